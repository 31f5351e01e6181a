#pragma once

#include <QMutex>

#include <list>
#include <map>
#include <memory>
#include <utility>

namespace brindle::render {

/// What is remembered from one frame to the next, of all kinds together up to a number of bytes: what wasn't asked for
/// longest goes first. Any thread may ask it.
class Memory {
public:
    explicit Memory(qint64 limit) : m_limit(limit) {}

    /// The value of an object, which has one for each number; null where it isn't remembered.
    template <typename Value>
    std::shared_ptr<const Value> find(const void* object, int number = 0)
    {
        return std::static_pointer_cast<const Value>(valueOf({object, number}));
    }
    /// Remembers a value of so many bytes; where there is one already, that stays. The object's place in memory is its
    /// name: the value holds the object, or the object is forgotten when it goes.
    void remember(const void* object, int number, std::shared_ptr<const void> value, qint64 bytes);
    void forget(const void* object);

    qint64 bytes() const; ///< Of all that is remembered.

private:
    using Key = std::pair<const void*, int>;
    struct Entry {
        Key key;
        std::shared_ptr<const void> value;
        qint64 bytes;
    };
    using Entries = std::list<Entry>;

    std::shared_ptr<const void> valueOf(const Key& key);
    void drop(Entries::iterator entry, Entries& dropped);

    const qint64 m_limit;
    mutable QMutex m_mutex;
    Entries m_entries; ///< What was asked for last comes first.
    std::map<Key, Entries::iterator> m_places;
    qint64 m_bytes = 0;
};

} // namespace brindle::render
