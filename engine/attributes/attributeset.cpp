#include "engine/attributes/attributeset.h"

#include "engine/attributes/attributetable.h"

#include <cstddef>

namespace brindle::engine {

struct AttributeSet::Private {
    const AttributeTable& table;
    std::unique_ptr<AT_Attr*[]> attributes; // by the table's entries
    std::unique_ptr<std::byte[]> memory;

    Private(MO_Node& node, const AttributeTable& ofType);
    ~Private();
};

AttributeSet::Private::Private(MO_Node& node, const AttributeTable& ofType)
    : table(ofType),
      attributes(new AT_Attr*[table.entries().size()]),
      memory(new std::byte[table.size()])
{
    AT_Attr** place = attributes.get();
    for (const AttributeTable::Entry& entry : table.entries()) {
        const AttributeMembers members{&attributes[static_cast<std::size_t>(entry.firstMember)], entry.memberCount};
        *place++ = entry.meta->kind().make(memory.get() + entry.offset, node, *entry.meta, members);
    }
}

AttributeSet::Private::~Private()
{
    for (std::size_t index = table.entries().size(); index > 0; --index)
        attributes[index - 1]->~AT_Attr();
}

AttributeSet::AttributeSet(MO_Node& node, const AttributeTable& table) : d(new Private(node, table)) {}

AttributeSet::~AttributeSet() = default;

AT_Attr* AttributeSet::findTop(const QString& keyword) const
{
    const int index = d->table.find(keyword);
    return index >= 0 && index < d->table.topCount() ? d->attributes[static_cast<std::size_t>(index)] : nullptr;
}

MO_Node::AttrIterator AttributeSet::begin() const
{
    return d->attributes.get();
}

MO_Node::AttrIterator AttributeSet::end() const
{
    return d->attributes.get() + d->table.topCount();
}

int AttributeSet::count() const
{
    return static_cast<int>(d->table.order().size());
}

AT_Attr& AttributeSet::at(int place) const
{
    return *d->attributes[static_cast<std::size_t>(d->table.order()[static_cast<std::size_t>(place)])];
}

int AttributeSet::find(QStringView path) const
{
    const int index = d->table.find(path);
    return index < 0 ? index : d->table.entries()[static_cast<std::size_t>(index)].place;
}

void copyValues(const AttributeSet& from, const AttributeSet& to)
{
    for (int place = 0; place < from.count(); ++place) {
        const AttributeKind& kind = metaOf(from.at(place)).kind();
        kind.store(to.at(place), kind.stored(from.at(place)));
    }
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
