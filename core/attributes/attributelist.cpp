#include "core/attributes/attributelist.h"

#include "core/attributes/attribute.h"
#include "core/frame/found.h"
#include "core/host/at_attr.h"
#include "core/host/mo_node.h"

#include <algorithm>

namespace OMC {

namespace {

/// The place of the first point in a dotted path; its size when there is none.
qsizetype pointIn(QStringView path)
{
    return std::find(path.begin(), path.end(), QLatin1Char('.')) - path.begin();
}

} // namespace

/// The attributes of the list's level, in order.
struct AttributeList::Level {
    MO_Node::AttrIterator first;
    MO_Node::AttrIterator last;

    MO_Node::AttrIterator begin() const { return first; }
    MO_Node::AttrIterator end() const { return last; }
    std::size_t size() const { return static_cast<std::size_t>(last - first); }
};

AttributeList::AttributeList(MO_Node* node, const QStringList& path, AttrTypeFilter filter)
    : CountedList(node),
      m_path(path.join(QLatin1Char('.'))),
      m_filter(filter)
{}

std::string AttributeList::__str__() const
{
    QString owner = target().qualifiedName();
    if (isSubList())
        owner = tr("%1, %2").arg(owner, m_path);
    return tr("AttributeList(%1)[%2]").arg(owner, QString::number(size())).toStdString();
}

std::size_t AttributeList::size() const
{
    validate();
    return m_filter == Iterating ? m_items.size() : level().size();
}

Obj AttributeList::get(const QString& name) const
{
    return Obj(newItem(name));
}

Obj AttributeList::get(int index) const
{
    return Obj(newItem(index));
}

Attribute* AttributeList::newItem(const QString& name) const
{
    validate();
    if (m_filter == Iterating)
        throw Exception(BaseObject::tr("This action is not supported."));
    QStringView below = name;
    if (isSubList()) {
        const QString prefix = m_path + QLatin1Char('.');
        if (name.startsWith(prefix) && Attribute::memberNamed(getSubAttrib(), below.sliced(prefix.size())))
            below = below.sliced(prefix.size());
    }
    if (AT_Attr* attribute = isSubList() ? inLevel(below) : findTarget()->findAttributeByKeyword(name))
        return newWrapper(attribute);

    QString parentPath = m_path;
    const AT_ComplexAttr* holder = nullptr;
    for (qsizetype point = pointIn(below); point < below.size(); point = pointIn(below)) {
        AT_Attr* attribute = holder ? Attribute::memberNamed(holder, below.first(point)) : inLevel(below.first(point));
        holder = attributeCast<AT_ComplexAttr>(attribute);
        if (!holder)
            return nullptr;
        const QString keyword = attribute->meta().keyword();
        parentPath = parentPath.isEmpty() ? keyword : parentPath + QLatin1Char('.') + keyword;
        below = below.sliced(point + 1);
    }
    return Attribute::getWrappedBelow(Attribute::memberNamed(holder, below), parentPath);
}

Attribute* AttributeList::newItem(int index) const
{
    validate();
    if (index < 0 || static_cast<std::size_t>(index) >= size())
        throwIndexOutOfRange();
    if (m_filter == Iterating)
        return foundAs<Attribute>(m_items[static_cast<std::size_t>(index)].get()).copy();
    return newWrapper(level().begin()[index]);
}

void AttributeList::set(int, const Obj&)
{
    throw Exception(BaseObject::tr("Attribute List cannot be set."));
}

std::vector<Obj> AttributeList::list() const
{
    validate();
    if (m_filter == Iterating)
        return {m_items.begin(), m_items.end()};
    const Level members = level();
    std::vector<Obj> objects;
    objects.reserve(members.size());
    for (AT_Attr* attribute : members)
        objects.emplace_back(newWrapper(attribute));
    return objects;
}

bool AttributeList::contains(const QVariant& value) const
{
    validate();
    if (value.typeId() == QMetaType::QString)
        return get(value.toString()).get() != nullptr;
    const auto* attribute = objectFrom<Attribute>(value);
    if (!attribute || attribute->getNode() != findTarget())
        return false;
    const AT_Attr* sought = attribute->getAttr();
    if (!sought)
        return false;
    if (m_filter == Iterating)
        return std::any_of(m_items.begin(), m_items.end(), [&](const Obj& item) {
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

bool AttributeList::__atend__() const
{
    validate();
    return CountedList::__atend__();
}

void AttributeList::beforeStep() const
{
    validate();
    requireIterating();
}

void AttributeList::startIteration()
{
    m_items.take(list());
    m_filter = Iterating;
}

Obj AttributeList::itemAt(quint64 position) const
{
    beforeStep();
    if (position >= m_items.size())
        throw Exception(BaseObject::tr("Iterator is out of range."));
    return m_items[position];
}

AT_ComplexAttr* AttributeList::getSubAttrib() const
{
    return attributeCast<AT_ComplexAttr>(Attribute::attribFromFullPath(findTarget(), m_path));
}

AttributeList::Level AttributeList::level() const
{
    if (!isSubList())
        return {findTarget()->attrsBegin(), findTarget()->attrsEnd()};
    const AT_ComplexAttr* attribute = getSubAttrib();
    if (!attribute)
        throwInvalid();
    return {attribute->attrsBegin(), attribute->attrsEnd()};
}

AT_Attr* AttributeList::inLevel(QStringView keyword) const
{
    // The node looks the keyword up and keeps nothing of it: it needs no copy.
    return isSubList() ? Attribute::memberNamed(getSubAttrib(), keyword)
                       : findTarget()->findAttributeByKeyword(QString::fromRawData(keyword.data(), keyword.size()));
}

void AttributeList::requireIterating() const
{
    if (m_filter != Iterating)
        throw Exception(std::string("Unsupported iteration type."));
}

Attribute* AttributeList::newWrapper(AT_Attr* attribute) const
{
    return Attribute::getWrappedBelow(attribute, m_path);
}

} // namespace OMC
