#include "engine/attributes/attributeset.h"

#include "engine/attributes/attributes.h"

#include <cstddef>
#include <new>

namespace brindle::engine {

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
    : table(ofType),
      attributes(new AT_Attr*[table.entries.size()]),
      memory(new std::byte[table.size])
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
        if (d->table.entries[index].keyword == keyword)
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

} // namespace brindle::engine

bool AT_ComplexAttr::splitNames(const QString& path, QString& first, QString& rest)
{
    const auto dot = path.indexOf('.');
    if (dot < 0)
        return false;
    first = path.left(dot);
    rest = path.mid(dot + 1);
    return true;
}
