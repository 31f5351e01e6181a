#pragma once

#include "engine/attributes/attributemeta.h"

#include <QStringView>

#include <memory>
#include <span>
#include <vector>

namespace brindle::engine {

/// The attributes of a node type, each with its place in the memory of an AttributeSet.
class AttributeTable {
public:
    struct Entry {
        std::unique_ptr<AttributeMeta> meta;
        int firstMember = 0; ///< Index of an entry.
        int memberCount = 0;
        int place = 0; ///< In `order`.
        std::size_t offset = 0;
    };

    explicit AttributeTable(std::span<const AttributeSpec> specs);

    /// The entries of the top level first, then the members of each entry together.
    const std::vector<Entry>& entries() const { return m_entries; }
    int topCount() const { return m_topCount; }
    std::size_t size() const { return m_size; } ///< Bytes that the attributes need.
    /// The indexes of all entries in the order of files and copies: each entry ahead of its members.
    const std::vector<int>& order() const { return m_order; }

    /// The index of the entry with a dotted path ("position.x"), or -1. It looks at one entry as a rule, however many
    /// there are.
    int find(QStringView path) const;

private:
    /// A place of the hash table: a path and the index of its entry, -1 while it is empty.
    struct Slot {
        QStringView path;
        int index = -1;
    };

    void appendToOrder(int first, int count);
    void makeSlots();

    std::vector<Entry> m_entries;
    std::vector<int> m_order;
    std::vector<Slot> m_slots; // a power of two of them
    std::size_t m_mask = 0;
    int m_topCount;
    std::size_t m_size = 0;
};

/// The attributes that nodes of a type have, in order; an unknown type has none.
const AttributeTable& attributeTable(const QString& nodeType);

} // namespace brindle::engine
