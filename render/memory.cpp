#include "render/memory.h"

#include <limits>

namespace brindle::render {

std::shared_ptr<const void> Memory::valueOf(const Key& key)
{
    const QMutexLocker lock(&m_mutex);
    const auto known = m_places.find(key);
    if (known == m_places.end())
        return nullptr;
    m_entries.splice(m_entries.begin(), m_entries, known->second);
    return known->second->value;
}

void Memory::remember(const void* object, int number, std::shared_ptr<const void> value, qint64 bytes)
{
    Entries dropped; // Destroyed after the lock is released: an object among them may call forget().
    const QMutexLocker lock(&m_mutex);
    const auto [place, isNew] = m_places.try_emplace({object, number});
    if (!isNew)
        return;
    m_entries.push_front({place->first, std::move(value), bytes});
    place->second = m_entries.begin();
    m_bytes += bytes;
    while (m_bytes > m_limit)
        drop(std::prev(m_entries.end()), dropped);
}

void Memory::forget(const void* object)
{
    Entries dropped;
    const QMutexLocker lock(&m_mutex);
    auto place = m_places.lower_bound({object, std::numeric_limits<int>::min()});
    while (place != m_places.end() && place->first.first == object)
        drop((place++)->second, dropped);
}

void Memory::drop(Entries::iterator entry, Entries& dropped)
{
    m_bytes -= entry->bytes;
    m_places.erase(entry->key);
    dropped.splice(dropped.end(), m_entries, entry);
}

qint64 Memory::bytes() const
{
    const QMutexLocker lock(&m_mutex);
    return m_bytes;
}

} // namespace brindle::render
