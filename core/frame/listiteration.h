#pragma once

#include "core/frame/obj.h"

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace OMC {

/// The part that all lists with a loop share: a position of its own, and `__iter__`, which gives a copy of the list
/// that stands at the first item. So a loop never disturbs the list that a script holds, nor another loop over it.
///
/// `List` is the list's base (ListObj, ListQVar, MapObj, or an EngineView on one), `Protocol` what it gives item by
/// item (IterableObj, IterableQVar, IterableMap). A concrete list derives from CountedList or FlaggedList, which differ
/// in how they know the end, and overrides the hooks in which it differs from others. One that goes through items as
/// they were at the start takes a Snapshot in `startIteration`.
template <typename List, typename Protocol>
class ListIteration : public List, public Protocol {
public:
    using Item = decltype(std::declval<const Protocol&>().__iterItem__());

    Obj __iter__() const override
    {
        this->beforeIteration();
        auto* iterator = static_cast<ListIteration*>(this->copy());
        Obj handle(iterator);
        iterator->m_position = iterator->firstPosition();
        iterator->startIteration();
        return handle;
    }

protected:
    using List::List;

    quint64 position() const { return m_position; }
    void setPosition(quint64 position) { m_position = position; }

    /// Checks the list ahead of a loop; nothing by default.
    virtual void beforeIteration() const {}
    /// Checks the list ahead of a step; nothing by default.
    virtual void beforeStep() const {}
    /// On the copy that goes through the loop, which stands at the first item already.
    virtual void startIteration() {}
    virtual quint64 firstPosition() const { return 0; }
    /// How many positions a loop goes through: the list's size.
    virtual std::size_t iterationSize() const { return this->size(); }
    /// The item at a position: `get` of that index, or the key there.
    virtual Item itemAt(quint64 position) const
    {
        if constexpr (requires { static_cast<Item>(this->get(static_cast<int>(position))); })
            return this->get(static_cast<int>(position));
        else
            return this->list().at(static_cast<qsizetype>(position));
    }

private:
    quint64 m_position = 0;
};

/// A list that is at its end where its size is. The size is asked for anew at each step: a list that shrinks during a
/// loop ends it early, and one that grows is gone through to its new end.
template <typename List, typename Protocol>
class CountedList : public ListIteration<List, Protocol> {
public:
    bool __atend__() const override { return this->position() >= this->iterationSize(); }
    typename CountedList::Item __iterItem__() const override { return this->itemAt(this->position()); }
    void operator++() override
    {
        this->beforeStep();
        if (this->position() < this->iterationSize())
            this->setPosition(this->position() + 1);
    }
    void operator--() override
    {
        this->beforeStep();
        if (this->position() > 0)
            this->setPosition(this->position() - 1);
    }

protected:
    using ListIteration<List, Protocol>::ListIteration;
};

/// A list that is at its end once it has given its last item. A step asks for no size; `__iterItem__` alone looks
/// whether there is an item.
template <typename List, typename Protocol>
class FlaggedList : public ListIteration<List, Protocol> {
public:
    bool __atend__() const override { return m_atEnd; }
    typename FlaggedList::Item __iterItem__() const override
    {
        this->validate();
        const std::size_t count = this->iterationSize();
        if (this->position() >= count)
            throwNoMoreItems();
        if (this->position() + 1 >= count)
            m_atEnd = true;
        return this->itemAt(this->position());
    }
    void operator++() override
    {
        this->beforeStep();
        if (!stopsAtEnd() || !m_atEnd)
            this->setPosition(this->position() + 1);
    }
    void operator--() override
    {
        this->beforeStep();
        if (this->position() == this->firstPosition())
            return;
        this->setPosition(this->position() - 1);
        if (!staysAtEnd())
            m_atEnd = false;
    }

protected:
    using ListIteration<List, Protocol>::ListIteration;

    void startIteration() override { m_atEnd = this->iterationSize() == 0; }
    void setAtEnd(bool atEnd) const { m_atEnd = atEnd; }

    /// Throws the list's sentence for a position behind the last item. Where it doesn't, `itemAt` is asked all the
    /// same.
    virtual void throwNoMoreItems() const { throw Exception(std::string("Iteration item is out of range.")); }
    /// Whether a step at the end stays there.
    virtual bool stopsAtEnd() const { return false; }
    /// Whether a step back leaves the list at its end.
    virtual bool staysAtEnd() const { return false; }

private:
    mutable bool m_atEnd = false;
};

/// The items of a loop as they were when the loop began: nothing on a list, filled on the copy that goes through the
/// loop. Copies share it.
template <typename Entry>
class Snapshot {
public:
    void take(std::vector<Entry> entries) { m_entries = std::make_shared<std::vector<Entry>>(std::move(entries)); }

    bool isTaken() const { return m_entries != nullptr; }
    std::size_t size() const { return m_entries ? m_entries->size() : 0; }
    const Entry& operator[](std::size_t index) const { return (*m_entries)[index]; }
    auto begin() const { return m_entries->begin(); }
    auto end() const { return m_entries->end(); }

private:
    std::shared_ptr<const std::vector<Entry>> m_entries;
};

} // namespace OMC
