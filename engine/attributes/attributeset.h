#pragma once

#include "core/host/mo_node.h"

#include <QStringView>

#include <memory>

namespace brindle::engine {

class AttributeTable;

/// The attributes of one node, made from the table of its type, in one block of memory. It belongs to the node.
class AttributeSet {
public:
    AttributeSet(MO_Node& node, const AttributeTable& table);
    AttributeSet(const AttributeSet&) = delete;
    AttributeSet& operator=(const AttributeSet&) = delete;
    ~AttributeSet();

    AT_Attr* findTop(const QString& keyword) const; ///< An attribute of the top level, or null.
    MO_Node::AttrIterator begin() const;
    MO_Node::AttrIterator end() const;

    /// All attributes, each ahead of its members: in the same places in all nodes of a type.
    int count() const;
    AT_Attr& at(int place) const;
    int find(QStringView path) const; ///< The place of the attribute with a dotted path ("position.x"), or -1.

private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// Gives the attributes of a node the local values that those of another node of its type have.
void copyValues(const AttributeSet& from, const AttributeSet& to);

} // namespace brindle::engine
