#include "engine/attributes/addedattribute.h"

#include <algorithm>
#include <new>

namespace brindle::engine {

namespace {

/// What a script held of an attribute that leaves its node stays gone, also when the attribute comes back.
void expire(AT_Attr& attr)
{
    attr.expireWeakPointers();
    std::vector<AT_AttrDesc> inside;
    attr.getFullAttrList(inside);
    for (const AT_AttrDesc& desc : inside)
        desc.attr->expireWeakPointers();
}

} // namespace

AddedAttribute::AddedAttribute(MO_Node& node, const AttributeSpec& type, const AT_AttrMeta& names, bool linkable,
                               const AttributeMeta* parent)
    : m_meta(type, names, linkable, parent)
{
    for (const AttributeSpec& member : type.members) {
        const AT_AttrMeta inside(literalText(member.keyword), literalText(member.displayName), names.flags());
        m_members.push_back(std::make_unique<AddedAttribute>(node, member, inside, linkable, &m_meta));
        m_memberAttrs.push_back(&m_members.back()->attr());
    }
    const AttributeKind& kind = type.kind;
    void* place = ::operator new(kind.size, std::align_val_t(kind.alignment));
    m_attr = kind.make(place, node, m_meta, {m_memberAttrs.data(), static_cast<int>(m_memberAttrs.size())});
}

AddedAttribute::~AddedAttribute()
{
    void* place = dynamic_cast<void*>(m_attr);
    m_attr->~AT_Attr();
    ::operator delete(place, std::align_val_t(m_meta.kind().alignment));
}

AddedLevel::AddedLevel(AT_ComplexAttr::AttrIterator first, AT_ComplexAttr::AttrIterator last) : m_attrs(first, last) {}

AddedAttribute* AddedLevel::find(QStringView keyword) const
{
    // The table keeps nothing of the text that it is asked for.
    return m_byKeyword.value(QString::fromRawData(keyword.data(), keyword.size()), nullptr);
}

void AddedLevel::insert(std::unique_ptr<AddedAttribute> attribute, int place)
{
    m_byKeyword.insert(attribute->meta().keyword(), attribute.get());
    m_attrs.insert(m_attrs.end() - (addedCount() - place), &attribute->attr());
    m_added.insert(m_added.begin() + place, std::move(attribute));
}

std::unique_ptr<AddedAttribute> AddedLevel::take(const AT_Attr& attr, int& place)
{
    const auto addedEnd = m_attrs.rbegin() + addedCount();
    const auto found = std::find(m_attrs.rbegin(), addedEnd, &attr);
    if (found == addedEnd)
        return nullptr;
    const auto behind = found - m_attrs.rbegin();
    place = addedCount() - 1 - static_cast<int>(behind);
    std::unique_ptr<AddedAttribute> taken = std::move(m_added[static_cast<std::size_t>(place)]);
    m_added.erase(m_added.begin() + place);
    m_attrs.erase(m_attrs.end() - 1 - behind);
    m_byKeyword.remove(taken->meta().keyword());
    expire(taken->attr());
    return taken;
}

AT_Attr* GroupAttribute::memberNamed(QStringView keyword) const
{
    const AddedAttribute* found = m_level.find(keyword);
    return found ? &found->attr() : nullptr;
}

bool canAdd(QStringView keyword, const AttributeMeta* group)
{
    return !keyword.isEmpty() && !keyword.contains(u'.') &&
           (!group || group->fullKeyword().count(u'.') + 1 < deepestGroups);
}

} // namespace brindle::engine

void AT_Attr::getFullAttrList(std::vector<AT_AttrDesc>& list) const
{
    struct Level {
        AT_ComplexAttr::AttrIterator next;
        AT_ComplexAttr::AttrIterator last;
        QString path;
    };
    std::vector<Level> levels;
    const auto enter = [&levels](const AT_Attr* attr, const QString& path) {
        if (const auto* complex = dynamic_cast<const AT_ComplexAttr*>(attr))
            levels.push_back({complex->attrsBegin(), complex->attrsEnd(), path});
    };
    for (enter(this, QString()); !levels.empty();) {
        Level& level = levels.back();
        if (level.next == level.last) {
            levels.pop_back();
            continue;
        }
        AT_Attr* attr = *level.next++;
        const QString path = level.path;
        list.push_back({attr, path});
        enter(attr, path.isEmpty() ? attr->meta().keyword() : path + u'.' + attr->meta().keyword());
    }
}

void AT_Attr::getTVAttrList(std::vector<AT_AttrDesc>& list, int, int) const
{
    std::vector<AT_AttrDesc> all;
    getFullAttrList(all);
    std::copy_if(all.begin(), all.end(), std::back_inserter(list),
                 [](const AT_AttrDesc& desc) { return desc.attr->socket(); });
}

void MO_Node::getFullAttrList(std::vector<AT_AttrDesc>& list) const
{
    for (auto top = attrsBegin(); top != attrsEnd(); ++top) {
        const std::size_t before = list.size();
        list.push_back({*top, QString()});
        (*top)->getFullAttrList(list);
        const QString& keyword = (*top)->meta().keyword();
        for (std::size_t index = before + 1; index < list.size(); ++index) {
            QString& path = list[index].parentPath;
            path = path.isEmpty() ? keyword : keyword + u'.' + path;
        }
    }
}
