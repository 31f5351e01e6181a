#include "engine/attributes/attributeset.h"

#include "engine/attributes/addedattribute.h"
#include "engine/attributes/attributetable.h"

#include <cstddef>
#include <unordered_map>

namespace brindle::engine {

/// All attributes of a node to which some were added, by place.
struct AttributeSet::Places {
    std::vector<AT_Attr*> attributes;
    std::unordered_map<const AT_Attr*, int> places;
};

struct AttributeSet::Private {
    MO_Node& node;
    const AttributeTable& table;
    std::unique_ptr<AT_Attr*[]> attributes; // by the table's entries
    std::unique_ptr<std::byte[]> memory;
    std::unique_ptr<AddedLevel> added; // null while nothing was added
    std::unique_ptr<Places> places;    // null while out of date

    Private(MO_Node& ofNode, const AttributeTable& ofType);
    ~Private();
};

AttributeSet::Private::Private(MO_Node& ofNode, const AttributeTable& ofType)
    : node(ofNode),
      table(ofType),
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
    if (index >= 0 && index < d->table.topCount())
        return d->attributes[static_cast<std::size_t>(index)];
    const AddedAttribute* found = d->added ? d->added->find(keyword) : nullptr;
    return found ? &found->attr() : nullptr;
}

MO_Node::AttrIterator AttributeSet::begin() const
{
    return d->added ? d->added->begin() : d->attributes.get();
}

MO_Node::AttrIterator AttributeSet::end() const
{
    return d->added ? d->added->end() : d->attributes.get() + d->table.topCount();
}

int AttributeSet::count() const
{
    return hasAdded() ? static_cast<int>(places().attributes.size()) : static_cast<int>(d->table.order().size());
}

AT_Attr& AttributeSet::at(int place) const
{
    const auto& order = d->table.order();
    const auto index = static_cast<std::size_t>(place);
    return index < order.size() ? *d->attributes[static_cast<std::size_t>(order[index])] : *places().attributes[index];
}

int AttributeSet::find(QStringView path) const
{
    const int index = d->table.find(path);
    if (index >= 0)
        return d->table.entries()[static_cast<std::size_t>(index)].place;
    const AT_Attr* attr = findAdded(path);
    return attr ? places().places.at(attr) : -1;
}

AT_Attr* AttributeSet::findAdded(QStringView path) const
{
    if (!hasAdded())
        return nullptr;
    const qsizetype point = path.indexOf(u'.');
    const AddedAttribute* top = d->added->find(point < 0 ? path : path.first(point));
    AT_Attr* attr = top ? &top->attr() : nullptr;
    for (QStringView rest = point < 0 ? QStringView() : path.sliced(point + 1); attr && !rest.isNull();) {
        const qsizetype next = rest.indexOf(u'.');
        const auto* complex = dynamic_cast<const AT_ComplexAttr*>(attr);
        attr = complex ? complex->memberNamed(next < 0 ? rest : rest.first(next)) : nullptr;
        rest = next < 0 ? QStringView() : rest.sliced(next + 1);
    }
    return attr;
}

MO_Node& AttributeSet::node() const
{
    return d->node;
}

bool AttributeSet::hasAdded() const
{
    return d->added && d->added->addedCount() > 0;
}

const AddedLevel* AttributeSet::added() const
{
    return d->added.get();
}

void AttributeSet::insert(AT_DynGroupAttr* group, std::unique_ptr<AddedAttribute> attribute, int place)
{
    AddedLevel& level = levelOf(group);
    level.insert(std::move(attribute), place < 0 ? level.addedCount() : place);
    d->places.reset();
}

std::unique_ptr<AddedAttribute> AttributeSet::take(AT_DynGroupAttr* group, const AT_Attr& attr, int& place)
{
    d->places.reset();
    return levelOf(group).take(attr, place);
}

AddedLevel& AttributeSet::levelOf(AT_DynGroupAttr* group)
{
    if (group)
        return static_cast<GroupAttribute*>(group)->level();
    if (!d->added)
        d->added = std::make_unique<AddedLevel>(begin(), end());
    return *d->added;
}

const AttributeSet::Places& AttributeSet::places() const
{
    if (!d->places) {
        auto made = std::make_unique<Places>();
        std::vector<AT_AttrDesc> all;
        for (AT_Attr* top : *d->added) {
            all.push_back({top, QString()});
            top->getFullAttrList(all);
        }
        for (const AT_AttrDesc& desc : all) {
            made->places.emplace(desc.attr, static_cast<int>(made->attributes.size()));
            made->attributes.push_back(desc.attr);
        }
        d->places = std::move(made);
    }
    return *d->places;
}

namespace {

/// Adds attributes like those of a level of another set.
void addLike(const AddedLevel& level, MO_Node& node, AttributeSet& to, AT_DynGroupAttr* group)
{
    for (int place = 0; place < level.addedCount(); ++place) {
        const AttributeMeta& meta = level.added(place).meta();
        auto like = std::make_unique<AddedAttribute>(node, meta.spec(), meta, meta.isLinkable(),
                                                     group ? &metaOf(*group) : nullptr);
        AT_Attr& attr = like->attr();
        to.insert(group, std::move(like), -1);
        if (const auto* inside = dynamic_cast<const GroupAttribute*>(&level.added(place).attr()))
            addLike(inside->level(), node, to, static_cast<GroupAttribute*>(&attr));
    }
}

} // namespace

void copyValues(const AttributeSet& from, AttributeSet& to)
{
    if (from.hasAdded())
        addLike(*from.added(), to.node(), to, nullptr);
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
