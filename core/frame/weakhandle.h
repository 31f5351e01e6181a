#pragma once

#include "core/frame/recycled.h"
#include "core/host/ut_sharedweak.h"

#include <memory>

namespace OMC {

/// A weak pointer at an engine object of a class, or at none. It belongs into a wrapper's private record.
template <typename Target>
class WeakPointer : public Recycled {
public:
    explicit WeakPointer(Target* target = nullptr) { assign(target); }

    void assign(Target* target) { m_pointer.assign(target); }
    /// The engine object, or null once it is gone.
    Target* get() const { return static_cast<Target*>(m_pointer.get()); }
    bool sameTarget(const WeakPointer& other) const { return m_pointer.sameTarget(other.m_pointer); }

private:
    UT_SharedWeakPtrBase m_pointer;
};

/// The whole private record of a wrapper that holds on to its engine object and to nothing else: a weak pointer on the
/// heap, which a copy of the wrapper never shares.
template <typename Target>
class WeakHandle {
public:
    explicit WeakHandle(Target* target = nullptr) : m_pointer(std::make_unique<WeakPointer<Target>>(target)) {}
    WeakHandle(const WeakHandle& other) : m_pointer(std::make_unique<WeakPointer<Target>>(*other.m_pointer)) {}
    WeakHandle& operator=(const WeakHandle& other)
    {
        *m_pointer = *other.m_pointer;
        return *this;
    }

    void assign(Target* target) { m_pointer->assign(target); }
    Target* get() const { return m_pointer->get(); }
    bool sameTarget(const WeakHandle& other) const { return m_pointer->sameTarget(*other.m_pointer); }

private:
    std::unique_ptr<WeakPointer<Target>> m_pointer;
};

} // namespace OMC
