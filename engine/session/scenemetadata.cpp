#include "engine/session/scenemetadata.h"

#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"
#include "engine/session/scene.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace brindle::engine {

namespace {

constexpr const char* typeWords[] = {"TEXT", "BOOL", "INT", "DOUBLE"};
static_assert(std::size(typeWords) == std::variant_size_v<Metadata::Value>);

/// The empty value of a type; nothing for a type that no value has.
std::optional<Metadata::Value> emptyValue(PIO_Metadata::Type type)
{
    switch (type) {
    case PIO_Metadata::kText:
        return QString();
    case PIO_Metadata::kBool:
        return false;
    case PIO_Metadata::kInt:
        return 0;
    case PIO_Metadata::kDouble:
        return 0.0;
    case PIO_Metadata::kOther:
        break;
    }
    return std::nullopt;
}

struct ContentWriter {
    JsonWriter& json;

    void operator()(const QString& value) const { json.text(value); }
    void operator()(bool value) const { json.flag(value); }
    void operator()(int value) const { json.integer(value); }
    void operator()(double value) const { json.number(value); }
};

struct ContentReader {
    const JsonPlace& place;

    Metadata::Value operator()(const QString&) const { return place.text(); }
    Metadata::Value operator()(bool) const { return place.flag(); }
    Metadata::Value operator()(int) const { return place.integer(); }
    Metadata::Value operator()(double) const { return place.number(); }
};

class Factory final : public PIO_MetadataFactory {
public:
    void create(PIO_Metadata::Type type, const QString& name, PIO_Metadata** metadata) const override
    {
        const std::optional<Metadata::Value> value = emptyValue(type);
        *metadata = value && !name.isEmpty() ? new Metadata(name, *value) : nullptr;
    }
};

MetadataList* metadataOf(SC_SceneCommon* scene)
{
    Scene* own = engineScene(scene);
    return own ? &own->metadataList() : nullptr;
}

class AddMetadata final : public CO_Command {
public:
    AddMetadata(SC_SceneCommon* scene, PIO_Metadata* metadata) : m_list(metadataOf(scene))
    {
        // An entry that a scene has is not this command's to take.
        const auto* own = dynamic_cast<Metadata*>(metadata);
        if (!own || !own->isInList())
            m_taken.reset(metadata);
    }

    Status execute() override
    {
        if (!m_list || !dynamic_cast<Metadata*>(m_taken.get()))
            return kFail;
        m_list->append(std::move(m_taken));
        return kOk;
    }
    Status unexecute() override
    {
        m_taken = m_list->take(m_list->count() - 1);
        return kOk;
    }

private:
    MetadataList* m_list;
    std::unique_ptr<PIO_Metadata> m_taken; ///< The entry while it is not in the scene.
};

class RemoveMetadata final : public CO_Command {
public:
    RemoveMetadata(SC_SceneCommon* scene, int index) : m_list(metadataOf(scene)), m_index(index) {}

    Status execute() override
    {
        if (!m_list || m_index < 0 || m_index >= m_list->count())
            return kFail;
        m_taken = m_list->take(m_index);
        return kOk;
    }
    Status unexecute() override
    {
        m_list->putBack(m_index, std::move(m_taken));
        return kOk;
    }

private:
    MetadataList* m_list;
    int m_index;
    std::unique_ptr<PIO_Metadata> m_taken;
};

class SetContent final : public CO_Command {
public:
    SetContent(PIO_Metadata* metadata, Metadata::Value value)
        : m_metadata(dynamic_cast<Metadata*>(metadata)),
          m_value(std::move(value))
    {}

    Status execute() override
    {
        if (!m_metadata || m_metadata->content().index() != m_value.index())
            return kFail;
        const double* number = std::get_if<double>(&m_value);
        if (number && !std::isfinite(*number))
            return kFail;
        if (m_metadata->content() == m_value)
            return kNoop;
        m_metadata->swapContent(m_value);
        return kOk;
    }
    Status unexecute() override
    {
        m_metadata->swapContent(m_value);
        return kOk;
    }

private:
    Metadata* m_metadata;
    Metadata::Value m_value; ///< The value that the next step sets.
};

} // namespace

QVariant Metadata::value() const
{
    return std::visit([](const auto& value) { return QVariant(value); }, m_value);
}

void Metadata::swapContent(Value& value)
{
    m_value.swap(value);
    if (m_list)
        m_list->tellChanged();
}

std::vector<int> MetadataList::indexesOf(const QString& name) const
{
    std::vector<int> indexes;
    const auto [first, last] = m_byName.equal_range(name.toCaseFolded());
    for (auto entry = first; entry != last; ++entry) {
        // Texts that fold to the same one may still differ, as "ss" and a sharp s do.
        if ((*entry)->m_name.compare(name, Qt::CaseInsensitive) == 0)
            indexes.push_back(indexOf(**entry));
    }
    std::sort(indexes.begin(), indexes.end());
    return indexes;
}

std::int64_t MetadataList::orderOf(const std::unique_ptr<PIO_Metadata>& entry)
{
    return static_cast<const Metadata&>(*entry).m_order;
}

int MetadataList::indexOf(const Metadata& entry) const
{
    const auto place = std::lower_bound(m_entries.begin(), m_entries.end(), entry.m_order,
                                        [](const auto& one, std::int64_t order) { return orderOf(one) < order; });
    return static_cast<int>(place - m_entries.begin());
}

void MetadataList::append(std::unique_ptr<PIO_Metadata> metadata)
{
    static_cast<Metadata&>(*metadata).m_order = m_entries.empty() ? 0 : orderOf(m_entries.back()) + 1;
    putBack(count(), std::move(metadata));
}

void MetadataList::prepend(std::unique_ptr<PIO_Metadata> metadata)
{
    static_cast<Metadata&>(*metadata).m_order = m_entries.empty() ? 0 : orderOf(m_entries.front()) - 1;
    putBack(0, std::move(metadata));
}

void MetadataList::putBack(int index, std::unique_ptr<PIO_Metadata> metadata)
{
    auto& entry = static_cast<Metadata&>(*metadata);
    entry.m_list = this;
    m_byName.insert(entry.m_name.toCaseFolded(), &entry);
    m_entries.insert(m_entries.begin() + index, std::move(metadata));
    tellChanged();
}

std::unique_ptr<PIO_Metadata> MetadataList::take(int index)
{
    const auto place = m_entries.begin() + index;
    std::unique_ptr<PIO_Metadata> taken = std::move(*place);
    m_entries.erase(place);
    auto& entry = static_cast<Metadata&>(*taken);
    entry.m_list = nullptr;
    m_byName.remove(entry.m_name.toCaseFolded(), &entry);
    tellChanged();
    return taken;
}

void MetadataList::tellChanged() const
{
    m_changes.notify();
}

void MetadataList::write(JsonWriter& json) const
{
    if (m_entries.empty())
        return;
    json.key("metadata").beginArray();
    for (const auto& entry : m_entries) {
        const auto& metadata = static_cast<const Metadata&>(*entry);
        json.beginObject();
        json.key("name").text(metadata.metaName());
        json.key("type").text(typeWords[metadata.content().index()]);
        json.key("value");
        std::visit(ContentWriter{json}, metadata.content());
        if (!metadata.creator().isEmpty())
            json.key("creator").text(metadata.creator());
        if (!metadata.version().isEmpty())
            json.key("version").text(metadata.version());
        json.endObject();
    }
    json.endArray();
}

void MetadataList::read(const JsonPlace& place)
{
    for (int i = 0; i < place.size(); ++i) {
        const JsonPlace entry = place.item(i);
        entry.requireOnly({"name", "type", "value", "creator", "version"});
        const JsonPlace name = entry.field("name");
        if (name.text().isEmpty())
            name.fail(QStringLiteral("is empty"));
        const auto type = static_cast<PIO_Metadata::Type>(entry.field("type").oneOf(typeWords));
        const JsonPlace value = entry.field("value");
        auto metadata = std::make_unique<Metadata>(name.text(), std::visit(ContentReader{value}, *emptyValue(type)));
        if (const auto creator = entry.ifField("creator"))
            metadata->setCreator(creator->text());
        if (const auto version = entry.ifField("version"))
            metadata->setVersion(version->text());
        append(std::move(metadata));
    }
}

} // namespace brindle::engine

PIO_MetadataFactory* PIO_MetadataFactory::impl()
{
    static brindle::engine::Factory factory;
    return &factory;
}

AddSceneMetadataCmd::AddSceneMetadataCmd(SC_SceneCommon* scene, PIO_Metadata* metadata)
    : CO_EngineCommand(std::make_unique<brindle::engine::AddMetadata>(scene, metadata))
{}

RemoveSceneMetadataCmd::RemoveSceneMetadataCmd(SC_SceneCommon* scene, int index)
    : CO_EngineCommand(std::make_unique<brindle::engine::RemoveMetadata>(scene, index))
{}

SetBoolValueCmd::SetBoolValueCmd(SC_ProjectCommon*, PIO_Metadata* metadata, bool value)
    : CO_EngineCommand(std::make_unique<brindle::engine::SetContent>(metadata, value))
{}

SetIntValueCmd::SetIntValueCmd(SC_ProjectCommon*, PIO_Metadata* metadata, int value)
    : CO_EngineCommand(std::make_unique<brindle::engine::SetContent>(metadata, value))
{}

SetDoubleValueCmd::SetDoubleValueCmd(SC_ProjectCommon*, PIO_Metadata* metadata, double value)
    : CO_EngineCommand(std::make_unique<brindle::engine::SetContent>(metadata, value))
{}

SetGenericValueCmd::SetGenericValueCmd(SC_ProjectCommon*, PIO_Metadata* metadata, const QString& value)
    : CO_EngineCommand(std::make_unique<brindle::engine::SetContent>(metadata, value))
{}
