#include "engine/attributes/attributetable.h"

#include <bit>
#include <cstring>

namespace brindle::engine {

namespace {

/// Tells short keywords apart by their length and three of their letters.
std::size_t hashOf(QStringView path)
{
    if (path.isEmpty())
        return 0;
    const std::size_t first = path.front().unicode();
    const std::size_t middle = path[path.size() / 2].unicode();
    const std::size_t last = path.back().unicode();
    const std::size_t mixed = ((static_cast<std::size_t>(path.size()) * 31 + first) * 31 + middle) * 31 + last;
    return mixed ^ (mixed >> 7);
}

bool isSame(QStringView one, QStringView other)
{
    return one.size() == other.size() &&
           std::memcmp(one.data(), other.data(), static_cast<std::size_t>(one.size()) * sizeof(QChar)) == 0;
}

} // namespace

AttributeTable::AttributeTable(std::span<const AttributeSpec> specs) : m_topCount(static_cast<int>(specs.size()))
{
    for (const AttributeSpec& spec : specs)
        m_entries.push_back({std::make_unique<AttributeMeta>(spec, nullptr)});
    for (std::size_t index = 0; index < m_entries.size(); ++index) {
        const AttributeMeta* meta = m_entries[index].meta.get();
        m_entries[index].firstMember = static_cast<int>(m_entries.size());
        m_entries[index].memberCount = static_cast<int>(meta->spec().members.size());
        for (const AttributeSpec& member : meta->spec().members)
            m_entries.push_back({std::make_unique<AttributeMeta>(member, meta)});
    }
    for (Entry& entry : m_entries) {
        const AttributeKind& kind = entry.meta->kind();
        entry.offset = (m_size + kind.alignment - 1) / kind.alignment * kind.alignment;
        m_size = entry.offset + kind.size;
    }
    appendToOrder(0, m_topCount);
    makeSlots();
}

int AttributeTable::find(QStringView path) const
{
    const Slot* slots = m_slots.data();
    for (std::size_t place = hashOf(path) & m_mask; slots[place].index >= 0; place = (place + 1) & m_mask) {
        if (isSame(slots[place].path, path))
            return slots[place].index;
    }
    return -1;
}

void AttributeTable::appendToOrder(int first, int count)
{
    for (int index = first; index < first + count; ++index) {
        Entry& entry = m_entries[static_cast<std::size_t>(index)];
        entry.place = static_cast<int>(m_order.size());
        m_order.push_back(index);
        appendToOrder(entry.firstMember, entry.memberCount);
    }
}

void AttributeTable::makeSlots()
{
    // At most a third of the slots is taken, so that a search ends soon.
    m_slots.resize(std::bit_ceil(m_entries.size() * 3 + 1));
    m_mask = m_slots.size() - 1;
    for (std::size_t index = 0; index < m_entries.size(); ++index) {
        const QStringView path = m_entries[index].meta->fullKeyword();
        std::size_t slot = hashOf(path) & m_mask;
        while (m_slots[slot].index >= 0)
            slot = (slot + 1) & m_mask;
        m_slots[slot] = {path, static_cast<int>(index)};
    }
}

} // namespace brindle::engine
