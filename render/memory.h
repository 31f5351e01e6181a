#pragma once

#include <QMutex>

#include <list>
#include <map>
#include <memory>
#include <utility>

namespace brindle::render {

/// A cache of what is used again from one frame to the next, of all kinds together. Above a number of bytes, the values
/// that weren't asked for longest are dropped. Any thread may use it.
class Memory {
public:
    explicit Memory(qint64 limit) : m_limit(limit) {}

    /// The value of an object for a number; null where it isn't remembered.
    template <typename Value>
    std::shared_ptr<const Value> find(const void* object, int number = 0)
    {
        return std::static_pointer_cast<const Value>(valueOf({object, number}));
    }
    /// Remembers a value of so many bytes; where there is one already, that stays. The object's address is the key, so
    /// either the value keeps the object alive, or the object calls forget() when it is destroyed.
    void remember(const void* object, int number, std::shared_ptr<const void> value, qint64 bytes);
    void forget(const void* object); ///< Drops all values of an object.

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
