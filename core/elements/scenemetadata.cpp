#include "core/elements/metadatapair.h"
#include "core/elements/metadatastore.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/application.h"
#include "core/host/pio_metadata.h"
#include "core/host/sc_scene.h"

#include <utility>

namespace OMC {

namespace {

QString multipleFound()
{
    return MetaDataPair::tr("More than one metadata was found with supplied name -- please remove one and try again.");
}

/// The type of entry that a value needs; nothing for a value that no entry takes.
std::optional<PIO_Metadata::Type> typeFor(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return PIO_Metadata::kBool;
    case QMetaType::Int:
        return PIO_Metadata::kInt;
    case QMetaType::Double:
        return PIO_Metadata::kDouble;
    case QMetaType::QString:
        return PIO_Metadata::kText;
    default:
        return std::nullopt;
    }
}

QString typeText(PIO_Metadata::Type type)
{
    switch (type) {
    case PIO_Metadata::kText:
        return QStringLiteral("TEXT");
    case PIO_Metadata::kBool:
        return QStringLiteral("BOOL");
    case PIO_Metadata::kInt:
    case PIO_Metadata::kDouble:
        return QStringLiteral("DOUBLE");
    case PIO_Metadata::kOther:
        break;
    }
    return QStringLiteral("UNSUPPORTED");
}

CO_Command* newValueCommand(SC_ProjectCommon* project, PIO_Metadata* metadata, const QVariant& value)
{
    switch (metadata->metaType()) {
    case PIO_Metadata::kBool:
        return new SetBoolValueCmd(project, metadata, value.toBool());
    case PIO_Metadata::kInt:
        return new SetIntValueCmd(project, metadata, value.toInt());
    case PIO_Metadata::kDouble:
        return new SetDoubleValueCmd(project, metadata, value.toDouble());
    default:
        return new SetGenericValueCmd(project, metadata, value.toString());
    }
}

/// The entries of a scene that have a name.
struct Entries {
    int count = 0;
    int index = -1; ///< The index of the last one.
    PIO_Metadata* entry = nullptr;
};

class SceneMetaData final : public MetaDataStore {
public:
    explicit SceneMetaData(TUScene& scene) : m_scene(scene), m_metadata(scene.metadatas()) {}

    QString owner() const override { return MetaDataPair::tr("%1, %2").arg(QStringLiteral("Scene"), m_scene.name()); }
    int size() const override { return m_metadata ? m_metadata->count() : 0; }
    QString keyAt(int index) const override { return m_metadata->metadata(index)->metaName(); }

    bool exists(const QString& key) const override { return !key.isEmpty() && first(key); }

    QString type(const QString& key) const override
    {
        const Entries found = entries(key);
        if (!found.entry)
            return QStringLiteral("NULL");
        return found.count > 1 ? QStringLiteral("MULTIPLE") : typeText(found.entry->metaType());
    }

    QVariant value(const QString& key) const override
    {
        QVariantList values;
        forEach(key, [&](int, const PIO_Metadata& entry) { values.append(entry.value()); });
        if (values.size() > 1)
            return values;
        return values.isEmpty() ? QVariant() : values.first();
    }

    QString creator(const QString& key) const override { return firstEntry(key).creator(); }
    QString version(const QString& key) const override { return firstEntry(key).version(); }

    void setValue(const QString& key, const QVariant& value) override
    {
        CO_CommandManager& commands = manager();
        const Entries present = onlyEntry(key);
        const QString creator = present.entry ? present.entry->creator() : programName();
        const QString version = present.entry ? present.entry->version() : QString();
        const std::optional<PIO_Metadata::Type> type = typeFor(value);

        undo::Scope scope(commands, label(key));
        PIO_Metadata* entry = present.entry;
        if (entry && entry->metaType() != type) {
            removeEntry(commands, present.index);
            entry = nullptr;
        }
        // Required: a value that no entry takes is no error. The removal is then the whole effect.
        if (!type)
            return;
        if (!entry)
            entry = addEntry(commands, *type, key, creator, version);
        run(commands, newValueCommand(m_scene.projectCommon(), entry, value),
            MetaDataPair::tr("Failed to update the metadata."));
    }

    void setCreator(const QString& key, const QString& creator) override
    {
        makeAnew(key, [&](const PIO_Metadata& entry) { return std::pair(creator, entry.version()); });
    }

    void setVersion(const QString& key, const QString& version) override
    {
        makeAnew(key, [&](const PIO_Metadata& entry) { return std::pair(entry.creator(), version); });
    }

private:
    template <typename Call>
    void forEach(const QString& key, Call call) const
    {
        if (!m_metadata)
            return;
        for (const int index : m_metadata->indexesOf(key))
            call(index, *m_metadata->metadata(index));
    }

    Entries entries(const QString& key) const
    {
        Entries found;
        forEach(key, [&](int index, PIO_Metadata& entry) { found = {found.count + 1, index, &entry}; });
        return found;
    }

    PIO_Metadata* first(const QString& key) const
    {
        PIO_Metadata* first = nullptr;
        forEach(key, [&](int, PIO_Metadata& entry) {
            if (!first)
                first = &entry;
        });
        return first;
    }

    const PIO_Metadata& firstEntry(const QString& key) const
    {
        return found(key.isEmpty() ? nullptr : first(key), [] { return MetaDataPair::tr("Unable to find metadata."); });
    }

    /// The entry that a change is made to, or none; a name that several have can't be changed.
    Entries onlyEntry(const QString& key) const
    {
        found(m_metadata, [] { return MetaDataPair::tr("Failed to find metadata information."); });
        const Entries present = entries(key);
        if (present.count > 1)
            throw Exception(multipleFound());
        return present;
    }

    /// Removes an entry and makes it again with the creator and the version that `fields` gives.
    template <typename Fields>
    void makeAnew(const QString& key, Fields fields)
    {
        CO_CommandManager& commands = manager();
        const Entries present = onlyEntry(key);
        const QVariant value = present.entry ? present.entry->value() : QVariant();
        if (!value.isValid())
            throw Exception(MetaDataPair::tr("Unable to find the original metadata value."));
        const std::optional<PIO_Metadata::Type> type = typeFor(value);
        if (!type)
            throw Exception(MetaDataPair::tr("Failed to update the metadata -- invalid type supplied."));
        const auto [creator, version] = fields(*present.entry);
        const QString name = present.entry->metaName();

        undo::Scope scope(commands, label(key));
        removeEntry(commands, present.index);
        PIO_Metadata* entry = addEntry(commands, *type, name, creator, version);
        run(commands, newValueCommand(m_scene.projectCommon(), entry, value),
            MetaDataPair::tr("Failed to update the metadata."));
    }

    void removeEntry(CO_CommandManager& commands, int index)
    {
        run(commands, new RemoveSceneMetadataCmd(m_scene.sceneCommon(), index),
            MetaDataPair::tr("Failed to remove previous metadata."));
    }

    PIO_Metadata* addEntry(CO_CommandManager& commands, PIO_Metadata::Type type, const QString& name,
                           const QString& creator, const QString& version)
    {
        const QString failure = MetaDataPair::tr("Failed to create the metadata.");
        PIO_Metadata* entry = nullptr;
        PIO_MetadataFactory::impl()->create(type, name, &entry);
        if (!entry)
            throw Exception(failure);
        entry->setCreator(creator);
        entry->setVersion(version);
        run(commands, new AddSceneMetadataCmd(m_scene.sceneCommon(), entry), failure);
        return entry;
    }

    static void run(CO_CommandManager& commands, CO_Command* command, const QString& failure)
    {
        undo::run(commands, command, QString(), failure);
    }

    static QString label(const QString& key) { return MetaDataPair::tr("Set Scene Metadata :%1").arg(key); }

    /// The name of the program that scripts run in; outside of one, that of the module.
    static QString programName()
    {
        const BAPP_Application* application = BAPP_Application::instance();
        return application ? application->name() : QStringLiteral("brindle");
    }

    CO_CommandManager& manager() const { return found(m_scene.commandManager(), &BaseObject::throwUnexpected); }

    TUScene& m_scene;
    PIO_Metadatas* m_metadata;
};

} // namespace

std::unique_ptr<MetaDataStore> MetaDataStore::of(TUScene& scene)
{
    return std::make_unique<SceneMetaData>(scene);
}

} // namespace OMC
