#pragma once

#include "core/host/ut_sharedweak.h"

namespace OMC {

/// A weak pointer at an engine object of a class, or at none: the way a wrapper holds on to its engine object, as a
/// plain member. A copy is a pointer copy and a count, and leads to the same object.
template <typename Target>
class WeakHandle {
public:
    WeakHandle() = default;
    explicit WeakHandle(Target* target) { assign(target); }

    void assign(Target* target) { m_pointer.assign(target); }
    /// The engine object, or null once it is gone.
    Target* get() const { return static_cast<Target*>(m_pointer.get()); }
    bool isGone() const { return !m_pointer.get(); }
    bool sameTarget(const WeakHandle& other) const { return m_pointer.sameTarget(other.m_pointer); }

private:
    UT_SharedWeakPtrBase m_pointer;
};

} // namespace OMC
