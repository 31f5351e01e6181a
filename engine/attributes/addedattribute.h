#pragma once

#include "engine/attributes/attributeof.h"

#include <QHash>

#include <memory>
#include <vector>

namespace brindle::engine {

/// An attribute that was added to a node, with those inside it. It belongs to the level of the node that it was put in,
/// or to the command that took it out.
class AddedAttribute {
public:
    /// `parent` is the group that it is made for, or null for the node's top level.
    AddedAttribute(MO_Node& node, const AttributeSpec& type, const AT_AttrMeta& names, bool linkable,
                   const AttributeMeta* parent);
    AddedAttribute(const AddedAttribute&) = delete;
    AddedAttribute& operator=(const AddedAttribute&) = delete;
    ~AddedAttribute();

    AT_Attr& attr() const { return *m_attr; }
    const AttributeMeta& meta() const { return m_meta; }

private:
    AttributeMeta m_meta;
    std::vector<std::unique_ptr<AddedAttribute>> m_members;
    std::vector<AT_Attr*> m_memberAttrs;
    AT_Attr* m_attr;
};

/// The attributes of a level to which some were added: first those that the level has from the node's type, then the
/// added ones in their order. They are found by keyword in constant time, and those at the end come and go in constant
/// time.
class AddedLevel {
public:
    AddedLevel() = default;
    AddedLevel(AT_ComplexAttr::AttrIterator first, AT_ComplexAttr::AttrIterator last);

    AT_ComplexAttr::AttrIterator begin() const { return m_attrs.data(); }
    AT_ComplexAttr::AttrIterator end() const { return m_attrs.data() + m_attrs.size(); }

    int addedCount() const { return static_cast<int>(m_added.size()); }
    const AddedAttribute& added(int place) const { return *m_added[static_cast<std::size_t>(place)]; }
    AddedAttribute* find(QStringView keyword) const; ///< An added one, or null.

    /// `place` is among the added ones, up to their count. The keyword is free.
    void insert(std::unique_ptr<AddedAttribute> attribute, int place);
    /// Null, and `place` is left alone, when it isn't one of the added ones. Weak pointers to what is taken expire.
    std::unique_ptr<AddedAttribute> take(const AT_Attr& attr, int& place);

private:
    std::vector<AT_Attr*> m_attrs; ///< All of the level.
    std::vector<std::unique_ptr<AddedAttribute>> m_added;
    QHash<QString, AddedAttribute*> m_byKeyword;
};

/// A group of added attributes. It has no value, and no text.
class GroupAttribute final : public AttributeOf<AT_DynGroupAttr> {
public:
    GroupAttribute(MO_Node& node, const AttributeMeta& meta, const AttributeMembers&) : AttributeOf(node, meta) {}

    AddedLevel& level() { return m_level; }
    const AddedLevel& level() const { return m_level; }

    AttrIterator attrsBegin() const override { return m_level.begin(); }
    AttrIterator attrsEnd() const override { return m_level.end(); }
    AT_Attr* memberNamed(QStringView keyword) const override;
    QString textAt(double) const override { return QString(); }
    CO_Command* setTextCommand(double, const QString&) override { return nullptr; }

    static AttributeValue newValue(const AttributeSpec&) { return {}; }
    AttributeValue stored() const { return {}; }
    void store(const AttributeValue&) {}

private:
    AddedLevel m_level;
};

/// The type of added attributes that has a name, or null.
const AttributeSpec* findAddedType(QStringView name);

/// How many groups an attribute can be inside. What goes through attributes may call itself for each of them.
inline constexpr int deepestGroups = 100;

/// Whether an attribute can be added under the keyword, in a group or at the top level for null: the keyword is neither
/// empty nor parted by points, and the group isn't too deep.
bool canAdd(QStringView keyword, const AttributeMeta* group);

} // namespace brindle::engine
