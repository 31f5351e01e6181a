#pragma once

#include "core/host/mo_node.h"

#include <QStringView>

#include <memory>

class AT_DynGroupAttr;

namespace brindle::engine {

class AddedAttribute;
class AddedLevel;
class AttributeTable;

/// The attributes of one node: those of its type, made from the table in one block of memory, and those that were added
/// to it. It belongs to the node.
class AttributeSet {
public:
    AttributeSet(MO_Node& node, const AttributeTable& table);
    AttributeSet(const AttributeSet&) = delete;
    AttributeSet& operator=(const AttributeSet&) = delete;
    ~AttributeSet();

    AT_Attr* findTop(const QString& keyword) const; ///< An attribute of the top level, or null.
    MO_Node::AttrIterator begin() const;
    MO_Node::AttrIterator end() const;

    /// All attributes, each ahead of its members: those of the type in the same places in all its nodes, then the added
    /// ones in their order.
    int count() const;
    AT_Attr& at(int place) const;
    int find(QStringView path) const; ///< The place of the attribute with a dotted path ("position.x"), or -1.

    MO_Node& node() const;
    bool hasAdded() const;
    AT_Attr* findAdded(QStringView path) const; ///< The added one at a dotted path, or null.
    /// Those that were added at the top level; null while none ever was.
    const AddedLevel* added() const;
    /// Adds an attribute at a place among the added ones of a group of this set, or of the top level for null. A place
    /// below 0 is the end. The keyword is free there.
    void insert(AT_DynGroupAttr* group, std::unique_ptr<AddedAttribute> attribute, int place);
    /// Null when it isn't an added one of that level.
    std::unique_ptr<AddedAttribute> take(AT_DynGroupAttr* group, const AT_Attr& attr, int& place);

private:
    struct Private;
    struct Places;
    AddedLevel& levelOf(AT_DynGroupAttr* group);
    const Places& places() const;

    std::unique_ptr<Private> d;
};

/// Gives a new node the local values that another one of its type has, and attributes like those that were added to it.
void copyValues(const AttributeSet& from, AttributeSet& to);

} // namespace brindle::engine
