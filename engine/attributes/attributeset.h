#pragma once

#include "core/host/mo_node.h"

#include <QVariant>

#include <memory>

namespace engine {

class AttributeMeta;
class Socket;
struct AttributeTable;

/// The attributes that nodes of a type have, in order; an unknown type has none.
const AttributeTable& attributeTable(const QString& nodeType);

/// An attribute that holds no attributes, as what a project stores of it: its local value.
///
/// The variant is a bool, an int, a double or a QString by the attribute's kind; an option of an enum goes by its text.
class AttributeLeaf {
public:
    AttributeLeaf(AT_Attr& attr, const AttributeMeta& meta) : m_attr(&attr), m_meta(&meta) {}

    AT_Attr& attr() const { return *m_attr; }
    const QString& fullKeyword() const; ///< "position.x".
    bool isDefault() const;             ///< Whether the local value is that of a new node.
    QVariant localValue() const;
    /// Without undo, as a project is read. False for a value of another kind, and for one that the attribute doesn't
    /// take as it stands: beyond its bounds, not finite, no option.
    bool setLocalValue(const QVariant& value) const;
    Socket* socket() const; ///< Null when it can't be linked.

private:
    AT_Attr* m_attr;
    const AttributeMeta* m_meta;
};

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

    /// All leaves of all levels, in the order of the table.
    std::vector<AttributeLeaf> leaves() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace engine
