#pragma once

#include "core/host/export.h"

#include <ext/atomicity.h>
#include <atomic>
#include <utility>

class UT_SharedWeakBase;

/// A weak pointer to an engine object: one intrusive control block, so that a copy is a pointer copy and a count.
///
/// `get()` gives the engine object while it lives and null once it is gone. It owns nothing. Copies may be made and
/// dropped on any thread, and any thread may ask whether the object is gone; what `get()` gives follows the thread
/// rules of that object.
class BRINDLE_HOST_EXPORT UT_SharedWeakPtrBase {
public:
    UT_SharedWeakPtrBase() = default;
    UT_SharedWeakPtrBase(const UT_SharedWeakPtrBase& other) noexcept : m_block(retained(other.m_block)) {}
    UT_SharedWeakPtrBase(UT_SharedWeakPtrBase&& other) noexcept : m_block(std::exchange(other.m_block, nullptr)) {}
    ~UT_SharedWeakPtrBase() { release(m_block); }

    UT_SharedWeakPtrBase& operator=(const UT_SharedWeakPtrBase& other) noexcept
    {
        release(std::exchange(m_block, retained(other.m_block)));
        return *this;
    }
    UT_SharedWeakPtrBase& operator=(UT_SharedWeakPtrBase&& other) noexcept
    {
        std::swap(m_block, other.m_block);
        return *this;
    }

    /// Points at an engine object, or at nothing for null.
    void assign(UT_SharedWeakBase* target);

    /// The engine object, or null when there is none or it is gone.
    UT_SharedWeakBase* get() const noexcept
    {
        return m_block ? m_block->target.load(std::memory_order_relaxed) : nullptr;
    }

    /// Whether both lead (or led) to the same engine object; also true once that object is gone.
    bool sameTarget(const UT_SharedWeakPtrBase& other) const noexcept { return m_block == other.m_block; }

private:
    friend class UT_SharedWeakBase;

    /// Counted as libstdc++ counts the owners of a shared_ptr: with atomic steps once the process has a second thread.
    struct Block {
        _Atomic_word references;
        std::atomic<UT_SharedWeakBase*> target;
    };

    static Block* retained(Block* block) noexcept
    {
        if (block)
            __gnu_cxx::__atomic_add_dispatch(&block->references, 1);
        return block;
    }
    static void release(Block* block) noexcept
    {
        if (block && __gnu_cxx::__exchange_and_add_dispatch(&block->references, -1) == 1)
            delete block;
    }

    Block* m_block = nullptr;
};

/// Base of every engine object that weak pointers may lead to.
class BRINDLE_HOST_EXPORT UT_SharedWeakBase {
public:
    UT_SharedWeakBase() = default;
    UT_SharedWeakBase(const UT_SharedWeakBase&) = delete;
    UT_SharedWeakBase& operator=(const UT_SharedWeakBase&) = delete;
    virtual ~UT_SharedWeakBase() { expireWeakPointers(); }

    /// Makes every weak pointer to this object read null for ever, though the object lives on. An engine calls it when
    /// the object leaves the project and only the undo list keeps it: what a script held of it stays gone, also after
    /// an undo brings the object back.
    void expireWeakPointers() noexcept
    {
        if (auto* block = std::exchange(m_block, nullptr)) {
            block->target.store(nullptr, std::memory_order_relaxed);
            UT_SharedWeakPtrBase::release(block);
        }
    }

private:
    friend class UT_SharedWeakPtrBase;

    UT_SharedWeakPtrBase::Block* m_block = nullptr;
};

/// Always inlined: a copy of its own would be exported by every library that uses it.
[[gnu::always_inline]] inline void UT_SharedWeakPtrBase::assign(UT_SharedWeakBase* target)
{
    if (target && !target->m_block)
        target->m_block = new Block{1, target};
    release(std::exchange(m_block, retained(target ? target->m_block : nullptr)));
}
