#include "core/attributes/attributelist.h"

#include "core/attributes/attribute.h"
#include "core/frame/weakhandle.h"
#include "core/host/at_attr.h"
#include "core/host/mo_node.h"

#include <algorithm>

namespace OMC {

struct AttributeList::Private : Recycled {
    WeakPointer<MO_Node> node;
    QStringList path;
    AttrTypeFilter filter;
    std::vector<Obj> items;
    quint64 cursor = 0;
    bool isSubList;
};

/// The attributes of the list's level, in order.
struct AttributeList::Level {
    MO_Node::AttrIterator first;
    MO_Node::AttrIterator last;

    MO_Node::AttrIterator begin() const { return first; }
    MO_Node::AttrIterator end() const { return last; }
    std::size_t size() const { return static_cast<std::size_t>(last - first); }
};

AttributeList::AttributeList(MO_Node* node, const QStringList& path, AttrTypeFilter filter)
    : d(new Private{{}, WeakPointer<MO_Node>(node), path, filter, {}, 0, !path.isEmpty()})
{}

AttributeList::AttributeList(const AttributeList& other)
    : ListObj(other),
      IterableObj(other),
      d(std::make_unique<Private>(*other.d))
{}

AttributeList::~AttributeList() = default;

BaseObject* AttributeList::copy() const
{
    return new AttributeList(*this);
}

std::string AttributeList::__str__() const
{
    validate();
    QString owner = d->node.get()->qualifiedName();
    if (d->isSubList)
        owner = tr("%1, %2").arg(owner, d->path.join(QLatin1Char('.')));
    return tr("AttributeList(%1)[%2]").arg(owner, QString::number(size())).toStdString();
}

void AttributeList::validate() const
{
    if (!d->node.get())
        throwInvalid();
    validateThreadLock();
}

std::size_t AttributeList::size() const
{
    validate();
    return d->filter == Iterating ? d->items.size() : level().size();
}

Obj AttributeList::get(const QString& name) const
{
    validate();
    if (d->filter == Iterating)
        throw Exception(BaseObject::tr("This action is not supported."));
    QStringView below = name;
    if (d->isSubList) {
        const QString prefix = d->path.join(QLatin1Char('.')) + QLatin1Char('.');
        if (name.startsWith(prefix) && Attribute::memberNamed(getSubAttrib(), below.sliced(prefix.size())))
            below = below.sliced(prefix.size());
    }
    if (AT_Attr* attribute = d->isSubList ? inLevel(below) : d->node.get()->findAttributeByKeyword(name))
        return wrapped(attribute);

    QStringList parentPath = d->path;
    const AT_ComplexAttr* holder = nullptr;
    for (qsizetype point = below.indexOf(QLatin1Char('.')); point >= 0; point = below.indexOf(QLatin1Char('.'))) {
        AT_Attr* attribute = holder ? Attribute::memberNamed(holder, below.first(point)) : inLevel(below.first(point));
        holder = attributeCast<AT_ComplexAttr>(attribute);
        if (!holder)
            return {};
        parentPath.append(attribute->meta().keyword());
        below = below.sliced(point + 1);
    }
    return Obj(Attribute::getWrapped(Attribute::memberNamed(holder, below), parentPath));
}

Obj AttributeList::get(int index) const
{
    validate();
    if (index < 0 || static_cast<std::size_t>(index) >= size())
        throwIndexOutOfRange();
    return d->filter == Iterating ? d->items[static_cast<std::size_t>(index)] : wrapped(level().begin()[index]);
}

void AttributeList::set(int, const Obj&)
{
    throw Exception(BaseObject::tr("Attribute List cannot be set."));
}

std::vector<Obj> AttributeList::list() const
{
    validate();
    if (d->filter == Iterating)
        return d->items;
    const Level members = level();
    std::vector<Obj> objects;
    objects.reserve(members.size());
    for (AT_Attr* attribute : members)
        objects.push_back(wrapped(attribute));
    return objects;
}

bool AttributeList::contains(const QVariant& value) const
{
    validate();
    if (value.typeId() == QMetaType::QString)
        return get(value.toString()).get() != nullptr;
    const auto* attribute = objectFrom<Attribute>(value);
    if (!attribute || attribute->getNode() != d->node.get())
        return false;
    const AT_Attr* sought = attribute->getAttr();
    if (!sought)
        return false;
    if (d->filter == Iterating)
        return std::any_of(d->items.begin(), d->items.end(), [&](const Obj& item) {
            const auto* candidate = objectIn<Attribute>(item);
            return candidate && *candidate == *attribute;
        });
    const Level members = level();
    return std::find(members.begin(), members.end(), sought) != members.end();
}

Obj AttributeList::operator()(const QString& name) const
{
    return get(name);
}

Obj AttributeList::__iterItem__() const
{
    validate();
    requireIterating();
    if (d->cursor >= d->items.size())
        throw Exception(BaseObject::tr("Iterator is out of range."));
    return d->items[d->cursor];
}

void AttributeList::operator++()
{
    validate();
    requireIterating();
    if (d->cursor < d->items.size())
        ++d->cursor;
}

void AttributeList::operator--()
{
    validate();
    requireIterating();
    if (d->cursor > 0)
        --d->cursor;
}

bool AttributeList::__atend__() const
{
    validate();
    return d->cursor >= d->items.size();
}

Obj AttributeList::__iter__() const
{
    auto iterator = std::make_unique<AttributeList>(d->node.get(), d->path, Iterating);
    iterator->d->items = list();
    return Obj(iterator.release());
}

AT_ComplexAttr* AttributeList::getSubAttrib() const
{
    return attributeCast<AT_ComplexAttr>(Attribute::attribFromPath(*d->node.get(), d->path));
}

AttributeList::Level AttributeList::level() const
{
    if (!d->isSubList)
        return {d->node.get()->attrsBegin(), d->node.get()->attrsEnd()};
    const AT_ComplexAttr* attribute = getSubAttrib();
    if (!attribute)
        throwInvalid();
    return {attribute->attrsBegin(), attribute->attrsEnd()};
}

AT_Attr* AttributeList::inLevel(QStringView keyword) const
{
    // The node looks the keyword up and keeps nothing of it: it needs no copy.
    return d->isSubList ? Attribute::memberNamed(getSubAttrib(), keyword)
                        : d->node.get()->findAttributeByKeyword(QString::fromRawData(keyword.data(), keyword.size()));
}

void AttributeList::requireIterating() const
{
    if (d->filter != Iterating)
        throw Exception(std::string("Unsupported iteration type."));
}

Obj AttributeList::wrapped(AT_Attr* attribute) const
{
    return Obj(Attribute::getWrapped(attribute, d->path));
}

} // namespace OMC
