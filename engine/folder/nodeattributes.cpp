#include "engine/folder/nodeattributes.h"

#include "core/host/sc_scene.h"
#include "engine/attributes/addedattribute.h"
#include "engine/attributes/attributemeta.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"
#include "engine/graph/hostnode.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace brindle::engine {

namespace {

/// Writes a value in the form of its type.
struct ValueWriter {
    JsonWriter& json;

    void operator()(std::monostate) const {}
    void operator()(bool value) const { json.flag(value); }
    void operator()(int value) const { json.integer(value); }
    void operator()(double value) const { json.number(value); }
    void operator()(const QString& value) const { json.text(value); }
};

/// Reads a value of the type of another one.
struct ValueReader {
    const JsonPlace& place;

    AttributeValue operator()(std::monostate) const { return {}; }
    AttributeValue operator()(bool) const { return place.flag(); }
    AttributeValue operator()(int) const { return place.integer(); }
    AttributeValue operator()(double) const { return place.number(); }
    AttributeValue operator()(const QString&) const { return place.text(); }
};

bool hasValue(const AT_Attr& attr)
{
    return !std::holds_alternative<std::monostate>(metaOf(attr).newValue());
}

void readValue(const JsonPlace& place, AT_Attr& attr)
{
    const AttributeMeta& meta = metaOf(attr);
    const AttributeValue value = std::visit(ValueReader{place}, meta.newValue());
    meta.kind().store(attr, value);
    if (meta.kind().stored(attr) != value)
        place.fail(QStringLiteral("is a value that the attribute can't have"));
}

/// The flag word of an attribute that a script adds; others are told in the file.
constexpr unsigned int addedFlags = AT_AttrMeta::kDirtyOnChange | AT_AttrMeta::kSaved | AT_AttrMeta::kDynamic;

void writeAdded(JsonWriter& json, const AddedLevel& level)
{
    for (int place = 0; place < level.addedCount(); ++place) {
        const AddedAttribute& attribute = level.added(place);
        const AttributeMeta& meta = attribute.meta();
        json.beginObject();
        json.key("path").text(meta.fullKeyword());
        json.key("type").text(meta.typeText());
        if (!meta.displayName().isEmpty())
            json.key("title").text(meta.displayName());
        if (meta.isLinkable())
            json.key("linkable").flag(true);
        if (meta.flags() != addedFlags)
            json.key("flags").integer(meta.flags());
        json.endObject();
        if (const auto* group = dynamic_cast<const GroupAttribute*>(&attribute.attr()))
            writeAdded(json, group->level());
    }
}

/// The group that an added attribute is in, by its path; null for the top level.
GroupAttribute* readGroup(const JsonPlace& place, const QString& path, const AttributeSet& attributes)
{
    const qsizetype point = path.lastIndexOf(u'.');
    if (point < 0)
        return nullptr;
    auto* group = dynamic_cast<GroupAttribute*>(attributes.findAdded(QStringView(path).first(point)));
    if (!group)
        place.fail(QStringLiteral("is not inside a group that was added ahead of it"));
    return group;
}

void readAdded(const JsonPlace& place, MO_Node& node, AttributeSet& attributes)
{
    place.requireOnly({"path", "type", "title", "linkable", "flags"});
    const JsonPlace pathPlace = place.field("path");
    const QString path = pathPlace.text();
    GroupAttribute* group = readGroup(pathPlace, path, attributes);
    const AttributeMeta* parent = group ? &metaOf(*group) : nullptr;
    const QString keyword = path.mid(path.lastIndexOf(u'.') + 1);
    if (!canAdd(keyword, parent))
        pathPlace.fail(QStringLiteral("is not a path that an attribute can have"));
    if (attributes.findAdded(path) || (!group && attributes.findTop(path)))
        pathPlace.fail(QStringLiteral("is the path of another attribute of the node"));
    const JsonPlace typePlace = place.field("type");
    const AttributeSpec* type = findAddedType(typePlace.text());
    if (!type)
        typePlace.fail(QStringLiteral("is no type of attribute that a node can be given"));
    const QString title = place.has("title") ? place.field("title").text() : QString();
    const bool linkable = place.has("linkable") && place.field("linkable").flag();
    const unsigned int flags =
        place.has("flags") ? static_cast<unsigned int>(place.field("flags").integer(0)) : addedFlags;
    attributes.insert(
        group, std::make_unique<AddedAttribute>(node, *type, AT_AttrMeta(keyword, title, flags), linkable, parent), -1);
}

} // namespace

void NodeAttributeWriter::write(JsonWriter& json, const Node& node)
{
    if (!node.hasAttributes())
        return;
    const AttributeSet& attributes = node.attributes();
    bool open = false;
    const auto openField = [&](const char* name) {
        if (!std::exchange(open, true))
            json.key(name).beginObject();
    };
    if (attributes.hasAdded()) {
        json.key("added").beginArray();
        writeAdded(json, *attributes.added());
        json.endArray();
    }
    m_linked.clear();
    for (int place = 0; place < attributes.count(); ++place) {
        AT_Attr& attr = attributes.at(place);
        const TUTvSocket* socket = attr.socket();
        if (socket && socket->isLinked())
            m_linked.push_back(&attr);
        const AttributeMeta& meta = metaOf(attr);
        if (meta.kind().isNew(attr))
            continue;
        openField("values");
        json.key(meta.fullKeyword());
        std::visit(ValueWriter{json}, meta.kind().stored(attr));
    }
    if (std::exchange(open, false))
        json.endObject();

    for (AT_Attr* attr : m_linked) {
        const TUTimedValue* column = attr->socket()->linkedTimedValue();
        openField("columns");
        json.key(metaOf(*attr).fullKeyword()).text(column->getName());
        m_driven[column].push_back(attr);
    }
    if (open)
        json.endObject();
}

void NodeAttributeReader::read(const JsonPlace& place, Node& node)
{
    AttributeSet& attributes = node.attributes();
    const QString type = node.host().typeName();
    if (const auto added = place.ifField("added")) {
        for (int i = 0; i < added->size(); ++i)
            readAdded(added->item(i), node.host(), attributes);
    }
    if (const auto values = place.ifField("values")) {
        for (const JsonPlace& value : values->fields()) {
            const int at = attributes.find(value.key());
            if (at < 0 || !hasValue(attributes.at(at)))
                value.fail(QStringLiteral("is no attribute of a node of type \"%1\"").arg(type));
            readValue(value, attributes.at(at));
        }
    }
    if (const auto columns = place.ifField("columns")) {
        std::vector<std::pair<int, const TUTimedValue*>> links;
        for (const JsonPlace& name : columns->fields()) {
            const int at = attributes.find(name.key());
            if (at < 0 || !attributes.at(at).socket())
                name.fail(QStringLiteral("is no attribute of a node of type \"%1\" that a column can drive").arg(type));
            const TUTimedValue* column = m_scene.timedValues()->findTimedValue(name.text(), 0);
            if (!column)
                name.fail(QStringLiteral("is not the name of a column"));
            links.emplace_back(at, column);
        }
        // In the order of the attributes, in whatever order a person has put them.
        std::sort(links.begin(), links.end());
        for (const auto& [at, column] : links)
            m_driven[column].push_back(&attributes.at(at));
    }
}

} // namespace brindle::engine
