#pragma once

#include "core/host/mo_node.h"

#include <memory>

namespace brindle::engine {

struct AttributeTable;

/// The attributes that nodes of a type have, in order; an unknown type has none.
const AttributeTable& attributeTable(const QString& nodeType);

/// The attributes of one node, made from the table of its type, in one block of memory. It belongs to the node.
class AttributeSet {
public:
    AttributeSet(MO_Node& node, const AttributeTable& table);
    AttributeSet(const AttributeSet&) = delete;
    AttributeSet& operator=(const AttributeSet&) = delete;
    ~AttributeSet();

    AT_Attr* find(const QString& keyword) const; ///< Of the top level, or null.
    MO_Node::AttrIterator begin() const;
    MO_Node::AttrIterator end() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace brindle::engine
