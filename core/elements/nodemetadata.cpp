#include "core/attributes/attributecast.h"
#include "core/attributes/attributecommands.h"
#include "core/elements/metadatapair.h"
#include "core/elements/metadatastore.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/at_dynamicattr.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"

#include <algorithm>
#include <cmath>

namespace OMC {

namespace {

constexpr unsigned int addedFlags = 13; // that of every attribute which is added to a node

const QString metaKeyword = QStringLiteral("meta");

QString modifyFailure()
{
    return MetaDataPair::tr("Failed to modify metadata.");
}

/// The type of attribute that holds a value; empty for a value that none holds.
QString typeWord(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return QStringLiteral("BOOL");
    case QMetaType::Int:
        return QStringLiteral("INT");
    case QMetaType::Double:
        return std::isfinite(value.toDouble()) ? QStringLiteral("DOUBLE") : QString();
    case QMetaType::QString:
        return QStringLiteral("STRING");
    default:
        return {};
    }
}

/// The metadata that an attribute holds.
class ValueReader final : public AT_AttrVisitor {
public:
    using AT_AttrVisitor::visit;
    void visit(AT_StringAttr& attr) override { set("TEXT", attr.localValue()); }
    void visit(AT_BoolAttr& attr) override { set("BOOL", attr.localValue()); }
    void visit(AT_IntAttr& attr) override { set("DOUBLE", attr.localValue()); }
    void visit(AT_DoubleAttr& attr) override { set("DOUBLE", attr.localValue()); }

    const char* type = "UNSUPPORTED";
    QVariant value;

private:
    void set(const char* text, const QVariant& local)
    {
        type = text;
        value = local;
    }
};

/// The command that sets the local value of an attribute.
class ValueWriter final : public AT_AttrVisitor {
public:
    explicit ValueWriter(const QVariant& value) : m_value(value) {}

    using AT_AttrVisitor::visit;
    void visit(AT_StringAttr& attr) override { set(attr, m_value.toString()); }
    void visit(AT_BoolAttr& attr) override { set(attr, m_value.toBool()); }
    void visit(AT_IntAttr& attr) override { set(attr, m_value.toInt()); }
    void visit(AT_DoubleAttr& attr) override { set(attr, m_value.toDouble()); }

    CO_Command* command = nullptr;

private:
    template <typename Attr>
    void set(Attr& attr, const typename Attr::ValueType& value)
    {
        command = new tu_attr::SetLocalValueCmd<Attr>(attr, value);
    }

    QVariant m_value;
};

/// The metadata of a node: the attributes that were added to it in the group "meta".
class NodeMetaData final : public MetaDataStore {
public:
    explicit NodeMetaData(MO_Node& node) : m_node(node) {}

    QString owner() const override
    {
        return MetaDataPair::tr("%1, %2").arg(QStringLiteral("Node"), m_node.qualifiedName());
    }
    int size() const override { return group() ? static_cast<int>(group()->nAttrs()) : 0; }
    QString keyAt(int index) const override { return keys().at(index); }

    bool exists(const QString& key) const override { return attribute(key); }
    QString type(const QString& key) const override
    {
        return attribute(key) ? QString::fromLatin1(read(key).type) : QStringLiteral("NULL");
    }
    QVariant value(const QString& key) const override { return read(key).value; }

    QString creator(const QString&) const override { refuseCreator(); }
    QString version(const QString&) const override { refuseVersion(); }
    void setCreator(const QString&, const QString&) override { refuseCreator(); }
    void setVersion(const QString&, const QString&) override { refuseVersion(); }

    void setValue(const QString& key, const QVariant& value) override
    {
        const SC_SceneCommon* scene = m_node.sceneCommon();
        CO_CommandManager& commands = found(scene ? scene->commandManager() : nullptr, &BaseObject::throwUnexpected);
        const QString type = typeWord(value);
        if (type.isEmpty() && value.isValid() && !value.isNull())
            throw Exception(modifyFailure());
        undo::Scope scope(commands, MetaDataPair::tr("Set Node Metadata :%1").arg(key));
        AT_Attr* present = attribute(key);
        if (present && present->typeText() != type) {
            run(commands, new Attr::DynGroup::RemoveAttrCmd(group(), present));
            present = nullptr;
        }
        if (type.isEmpty())
            return;
        if (!present)
            present = create(commands, key, type);
        ValueWriter writer(value);
        present->accept(writer);
        run(commands, writer.command);
    }

private:
    AT_DynGroupAttr* group() const
    {
        return attributeCast<AT_DynGroupAttr>(m_node.findAttributeByKeyword(metaKeyword));
    }
    AT_Attr* attribute(const QString& key) const { return group() ? group()->memberNamed(key) : nullptr; }

    const QStringList& keys() const
    {
        if (m_keys.isEmpty() && group()) {
            std::for_each(group()->attrsBegin(), group()->attrsEnd(),
                          [this](const AT_Attr* entry) { m_keys.append(entry->meta().keyword()); });
            m_keys.sort();
        }
        return m_keys;
    }

    ValueReader read(const QString& key) const
    {
        ValueReader reader;
        if (AT_Attr* present = attribute(key))
            present->accept(reader);
        return reader;
    }

    AT_Attr* create(CO_CommandManager& commands, const QString& key, const QString& type)
    {
        if (!m_node.findAttributeByKeyword(metaKeyword))
            run(commands, new tu_node::CreateAttrCmd(&m_node, AT_AttrMeta(metaKeyword, QString(), addedFlags),
                                                     AT_DynGroupAttr::TypeString(), false));
        auto& entries = found(group(), [] { return MetaDataPair::tr("Failed to find metadata information."); });
        run(commands,
            new Attr::DynGroup::CreateAttrCmd(&entries, AT_AttrMeta(key, QString(), addedFlags), type, false));
        return &found(attribute(key), &modifyFailure);
    }

    static void run(CO_CommandManager& commands, CO_Command* command)
    {
        undo::run(commands, command, QString(), modifyFailure());
    }

    [[noreturn]] static void refuseCreator()
    {
        throw Exception(MetaDataPair::tr("Creator information on node metadata is not supported."));
    }
    [[noreturn]] static void refuseVersion()
    {
        throw Exception(MetaDataPair::tr("Version information on node metadata is not supported."));
    }

    MO_Node& m_node;
    mutable QStringList m_keys; ///< Sorted; read at the first use.
};

} // namespace

std::unique_ptr<MetaDataStore> MetaDataStore::of(MO_Node& node)
{
    return std::make_unique<NodeMetaData>(node);
}

} // namespace OMC
