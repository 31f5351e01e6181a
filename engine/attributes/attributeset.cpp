#include "engine/attributes/attributeset.h"

#include "engine/attributes/attributes.h"

#include <cmath>
#include <cstddef>
#include <new>

namespace engine {

const QString& AttributeLeaf::fullKeyword() const
{
    return m_meta->fullKeyword();
}

bool AttributeLeaf::isDefault() const
{
    const AttributeSpec& spec = m_meta->spec();
    switch (m_meta->kind()) {
    case AttributeKind::Bool:
        return static_cast<BoolAttribute&>(*m_attr).localValue() == (spec.defaultValue != 0);
    case AttributeKind::Int:
        return static_cast<IntAttribute&>(*m_attr).localValue() == static_cast<int>(spec.defaultValue);
    case AttributeKind::Double:
        return static_cast<DoubleAttribute&>(*m_attr).localValue() == spec.defaultValue;
    case AttributeKind::Enum:
        return static_cast<EnumAttribute&>(*m_attr).localValue() == static_cast<int>(spec.defaultValue);
    default:
        return static_cast<TextAttribute&>(*m_attr).localValue() == literalText(spec.defaultText);
    }
}

QVariant AttributeLeaf::localValue() const
{
    switch (m_meta->kind()) {
    case AttributeKind::Bool:
        return static_cast<BoolAttribute&>(*m_attr).localValue();
    case AttributeKind::Int:
        return static_cast<IntAttribute&>(*m_attr).localValue();
    case AttributeKind::Double:
        return static_cast<DoubleAttribute&>(*m_attr).localValue();
    case AttributeKind::Enum:
        return static_cast<EnumAttribute&>(*m_attr).text();
    default:
        return static_cast<TextAttribute&>(*m_attr).localValue();
    }
}

bool AttributeLeaf::setLocalValue(const QVariant& value) const
{
    const int type = value.typeId();
    switch (m_meta->kind()) {
    case AttributeKind::Bool:
        if (type != QMetaType::Bool)
            return false;
        static_cast<BoolAttribute&>(*m_attr).setLocalValue(value.toBool());
        return true;
    case AttributeKind::Int:
        if (type != QMetaType::Int || m_meta->read(value.toInt()) != value.toInt())
            return false;
        static_cast<IntAttribute&>(*m_attr).setLocalValue(value.toInt());
        return true;
    case AttributeKind::Double: {
        const double number = value.toDouble();
        if ((type != QMetaType::Double && type != QMetaType::Int) || m_meta->read(number) != number)
            return false;
        static_cast<DoubleAttribute&>(*m_attr).setLocalValue(number);
        return true;
    }
    case AttributeKind::Enum: {
        auto& attribute = static_cast<EnumAttribute&>(*m_attr);
        int option = 0;
        if (type != QMetaType::QString || !attribute.valueOf(value.toString(), option))
            return false;
        attribute.setLocalValue(option);
        return true;
    }
    default:
        if (type != QMetaType::QString)
            return false;
        static_cast<TextAttribute&>(*m_attr).setLocalValue(value.toString());
        return true;
    }
}

Socket* AttributeLeaf::socket() const
{
    return static_cast<Socket*>(m_attr->socket());
}

struct AttributeSet::Private {
    const AttributeTable& table;
    std::unique_ptr<AT_Attr*[]> attributes; // by the table's entries
    std::unique_ptr<std::byte[]> memory;

    Private(MO_Node& node, const AttributeTable& ofType);
    ~Private();
    AT_Attr* make(MO_Node& node, const AttributeTable::Entry& entry, void* place) const;
};

AT_Attr* AttributeSet::Private::make(MO_Node& node, const AttributeTable::Entry& entry, void* place) const
{
    const AttributeMeta& meta = *entry.meta;
    AT_Attr* const* members = &attributes[entry.firstMember];
    switch (meta.kind()) {
    case AttributeKind::Bool:
        return new (place) BoolAttribute(node, meta);
    case AttributeKind::Int:
        return new (place) IntAttribute(node, meta);
    case AttributeKind::Double:
        return new (place) DoubleAttribute(node, meta);
    case AttributeKind::Text:
        return new (place) TextAttribute(node, meta);
    case AttributeKind::Enum:
        return new (place) EnumAttribute(node, meta);
    case AttributeKind::Colour:
        return new (place) ComplexAttribute<AT_ColorAttr>(node, meta, members, entry.memberCount);
    case AttributeKind::Position2d:
        return new (place) ComplexAttribute<AT_Position2dAttr>(node, meta, members, entry.memberCount);
    case AttributeKind::Position3d:
        return new (place) ComplexAttribute<AT_Position3dAttr>(node, meta, members, entry.memberCount);
    case AttributeKind::Drawing:
    case AttributeKind::Complex:
        break;
    }
    return new (place) ComplexAttribute<AT_ComplexAttr>(node, meta, members, entry.memberCount);
}

AttributeSet::Private::Private(MO_Node& node, const AttributeTable& ofType)
    : table(ofType), attributes(new AT_Attr*[table.entries.size()]), memory(new std::byte[table.size])
{
    for (std::size_t index = 0; index < table.entries.size(); ++index)
        attributes[index] = make(node, table.entries[index], memory.get() + table.entries[index].offset);
}

AttributeSet::Private::~Private()
{
    for (std::size_t index = table.entries.size(); index > 0; --index)
        attributes[index - 1]->~AT_Attr();
}

AttributeSet::AttributeSet(MO_Node& node, const AttributeTable& table) : d(new Private(node, table)) {}

AttributeSet::~AttributeSet() = default;

AT_Attr* AttributeSet::find(const QString& keyword) const
{
    for (int index = 0; index < d->table.topCount; ++index) {
        if (literalText(d->table.entries[index].meta->spec().keyword) == keyword)
            return d->attributes[index];
    }
    return nullptr;
}

MO_Node::AttrIterator AttributeSet::begin() const
{
    return d->attributes.get();
}

MO_Node::AttrIterator AttributeSet::end() const
{
    return d->attributes.get() + d->table.topCount;
}

std::vector<AttributeLeaf> AttributeSet::leaves() const
{
    std::vector<AttributeLeaf> leaves;
    leaves.reserve(d->table.entries.size());
    const auto add = [&](int index) {
        const AttributeMeta& meta = *d->table.entries[index].meta;
        if (!meta.isComplex())
            leaves.emplace_back(*d->attributes[index], meta);
    };
    for (int index = 0; index < d->table.topCount; ++index) {
        add(index);
        const AttributeTable::Entry& entry = d->table.entries[index];
        for (int member = 0; member < entry.memberCount; ++member)
            add(entry.firstMember + member);
    }
    return leaves;
}

} // namespace engine

bool AT_ComplexAttr::splitNames(const QString& path, QString& first, QString& rest)
{
    const auto dot = path.indexOf('.');
    if (dot < 0)
        return false;
    first = path.left(dot);
    rest = path.mid(dot + 1);
    return true;
}
