#include "engine/folder/nodeattributes.h"

#include "core/host/sc_scene.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"
#include "engine/graph/group.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

namespace brindle::engine {

namespace {

/// Calls a function with the dotted path of each attribute that holds no attributes, and with the attribute.
template <typename Function>
void forEachPath(MO_Node::AttrIterator begin, MO_Node::AttrIterator end, const QString& prefix, Function function)
{
    for (auto attr = begin; attr != end; ++attr) {
        const QString path = prefix + (*attr)->meta().keyword();
        if (const auto* complex = dynamic_cast<const AT_ComplexAttr*>(*attr))
            forEachPath(complex->attrsBegin(), complex->attrsEnd(), path + u'.', function);
        else
            function(path, *attr);
    }
}

void collect(MO_Node::AttrIterator begin, MO_Node::AttrIterator end, std::vector<AT_Attr*>& attributes)
{
    for (auto attr = begin; attr != end; ++attr) {
        if (const auto* complex = dynamic_cast<const AT_ComplexAttr*>(*attr))
            collect(complex->attrsBegin(), complex->attrsEnd(), attributes);
        else
            attributes.push_back(*attr);
    }
}

AT_Attr* attributeAt(const MO_Node& node, const QString& path)
{
    QStringList keywords = path.split(u'.');
    AT_Attr* attr = node.findAttributeByKeyword(keywords.takeFirst());
    for (const QString& keyword : keywords) {
        const auto* complex = dynamic_cast<const AT_ComplexAttr*>(attr);
        if (!complex)
            return nullptr;
        const auto found = std::find_if(complex->attrsBegin(), complex->attrsEnd(),
                                        [&](const AT_Attr* sub) { return sub->meta().keyword() == keyword; });
        attr = found == complex->attrsEnd() ? nullptr : *found;
    }
    return dynamic_cast<AT_ComplexAttr*>(attr) ? nullptr : attr;
}

/// Sets an attribute's local value to what stands in a file.
class LocalValueReader final : public AT_AttrVisitor {
public:
    explicit LocalValueReader(const JsonPlace& place) : m_place(place) {}

    using AT_AttrVisitor::visit;
    void visit(AT_Attr&) override { m_place.fail(QStringLiteral("is no value that can be set")); }
    void visit(AT_BoolAttr& attr) override { attr.setLocalValue(m_place.flag()); }
    void visit(AT_IntAttr& attr) override
    {
        const int value = m_place.integer(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
        attr.setLocalValue(value);
        require(attr.localValue() == value);
    }
    void visit(AT_DoubleAttr& attr) override
    {
        const double value = m_place.number();
        attr.setLocalValue(value);
        require(attr.localValue() == value);
    }
    void visit(AT_StringAttr& attr) override
    {
        const QString value = m_place.text();
        attr.setLocalValue(value);
        require(attr.localValue() == value);
    }
    void visit(AT_EnumAttrBase& attr) override
    {
        const QString option = m_place.text();
        const std::unique_ptr<CO_Command> command(attr.setTextCommand(1, option));
        if (command)
            command->execute();
        require(attr.options().value(attr.localValue()) == option);
    }

private:
    void require(bool isSet)
    {
        if (!isSet)
            m_place.fail(QStringLiteral("is a value that the attribute can't have"));
    }

    const JsonPlace& m_place;
};

} // namespace

void NodeAttributeWriter::write(JsonWriter& json, const Node& node)
{
    if (!node.hasAttributes())
        return;
    const Shape& shape = shapeOf(node);
    m_attributes.clear();
    collect(node.host().attrsBegin(), node.host().attrsEnd(), m_attributes);

    bool open = false;
    const auto openField = [&](const char* name) {
        if (!std::exchange(open, true))
            json.key(name).beginObject();
    };
    for (std::size_t i = 0; i < m_attributes.size(); ++i) {
        const Value value = valueOf(*m_attributes[i]);
        if (value == shape.newValues[i])
            continue;
        openField("values");
        json.key(shape.paths[i]);
        writeValue(json, value);
    }
    if (std::exchange(open, false))
        json.endObject();

    for (std::size_t i = 0; i < m_attributes.size(); ++i) {
        const TUTvSocket* socket = m_attributes[i]->socket();
        const TUTimedValue* column = socket ? socket->linkedTimedValue() : nullptr;
        if (!column)
            continue;
        openField("columns");
        json.key(shape.paths[i]).text(column->getName());
        m_driven[column].push_back(m_attributes[i]);
    }
    if (open)
        json.endObject();
}

NodeAttributeWriter::Value NodeAttributeWriter::valueOf(AT_Attr& attr)
{
    class Getter final : public AT_AttrVisitor {
    public:
        using AT_AttrVisitor::visit;
        void visit(AT_BoolAttr& attr) override { value = attr.localValue(); }
        void visit(AT_IntAttr& attr) override { value = attr.localValue(); }
        void visit(AT_DoubleAttr& attr) override { value = attr.localValue(); }
        void visit(AT_StringAttr& attr) override { value = attr.localValue(); }
        void visit(AT_EnumAttrBase& attr) override { value = attr.options().value(attr.localValue()); }
        Value value;
    } getter;
    attr.accept(getter);
    return getter.value;
}

void NodeAttributeWriter::writeValue(JsonWriter& json, const Value& value)
{
    if (const bool* flag = std::get_if<bool>(&value))
        json.flag(*flag);
    else if (const int* integer = std::get_if<int>(&value))
        json.integer(*integer);
    else if (const double* number = std::get_if<double>(&value))
        json.number(*number);
    else
        json.text(std::get<QString>(value));
}

const NodeAttributeWriter::Shape& NodeAttributeWriter::shapeOf(const Node& node)
{
    const auto [found, isNew] = m_shapes.try_emplace(&node.type());
    Shape& shape = found->second;
    if (isNew) {
        bool flag = true;
        const std::unique_ptr<MO_Node> fresh(node.asGroup()
                                                 ? static_cast<MO_Node*>(TUGroup::create())
                                                 : TUGroup::createNode(node.host().typeName(), 0, 0, 0, flag, nullptr));
        forEachPath(fresh->attrsBegin(), fresh->attrsEnd(), {}, [&shape](const QString& path, AT_Attr* attr) {
            shape.paths.push_back(path);
            shape.newValues.push_back(valueOf(*attr));
        });
    }
    return shape;
}

void NodeAttributeReader::read(const JsonPlace& node, MO_Node& host)
{
    if (node.has("values")) {
        const JsonPlace values = node.field("values");
        for (const QString& path : values.keys()) {
            const JsonPlace value = values.field(path);
            AT_Attr* attr = attributeAt(host, path);
            if (!attr)
                value.fail(QStringLiteral("is no attribute of a node of type \"%1\"").arg(host.typeName()));
            LocalValueReader reader(value);
            attr->accept(reader);
        }
    }
    if (node.has("columns")) {
        const JsonPlace columns = node.field("columns");
        std::unordered_map<const AT_Attr*, const TUTimedValue*> links;
        for (const QString& path : columns.keys()) {
            const JsonPlace name = columns.field(path);
            AT_Attr* attr = attributeAt(host, path);
            if (!attr || !attr->socket())
                name.fail(QStringLiteral("is no attribute of a node of type \"%1\" that a column can drive")
                              .arg(host.typeName()));
            const TUTimedValue* column = m_scene.timedValues()->findTimedValue(name.text(), 0);
            if (!column)
                name.fail(QStringLiteral("is not the name of a column"));
            links.emplace(attr, column);
        }
        // A parsed object has lost the order of its fields.
        std::vector<AT_Attr*> attributes;
        collect(host.attrsBegin(), host.attrsEnd(), attributes);
        for (AT_Attr* attr : attributes) {
            if (const auto found = links.find(attr); found != links.end())
                m_driven[found->second].push_back(attr);
        }
    }
}

} // namespace brindle::engine
