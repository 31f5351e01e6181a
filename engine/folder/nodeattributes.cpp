#include "engine/folder/nodeattributes.h"

#include "core/host/sc_scene.h"
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
    const AttributeSet& attributes = node.attributes();
    const QString type = node.host().typeName();
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
