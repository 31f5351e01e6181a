#pragma once

#include "core/host/ut_sharedweak.h"

#include <memory>

namespace OMC {

/// A wrapper's hold on its engine object: a weak pointer on the heap, which a copy of the wrapper never shares.
template <typename Target>
class WeakHandle {
public:
    explicit WeakHandle(Target* target = nullptr) : m_pointer(std::make_unique<UT_SharedWeakPtrBase>())
    {
        assign(target);
    }
    WeakHandle(const WeakHandle& other) : m_pointer(std::make_unique<UT_SharedWeakPtrBase>(*other.m_pointer)) {}
    WeakHandle& operator=(const WeakHandle& other)
    {
        *m_pointer = *other.m_pointer;
        return *this;
    }

    void assign(Target* target) { m_pointer->assign(target); }
    /// The engine object, or null once it is gone.
    Target* get() const { return static_cast<Target*>(m_pointer->get()); }
    bool sameTarget(const WeakHandle& other) const { return m_pointer->sameTarget(*other.m_pointer); }

private:
    std::unique_ptr<UT_SharedWeakPtrBase> m_pointer;
};

} // namespace OMC
