#pragma once

#include "core/frame/baseobject.h"
#include "core/frame/weakhandle.h"

namespace OMC {

/// The usual wrapper: a view of one engine object, which it holds weakly and checks at the start of each operation.
///
/// A class derives from it (`class Project : public EngineView<SC_ProjectCommon>`) and says what it reads and changes;
/// `Base` is the class below it, as the list that it is (`EngineView<MO_Node, ListObj>`). One that fails otherwise
/// overrides `validate`.
template <typename Target, typename Base = BaseObject>
class EngineView : public Base {
protected:
    /// Null gives a wrapper that fails at its first use.
    explicit EngineView(Target* target) : m_target(target) {}

    void validate() const override
    {
        if (m_target.isGone())
            BaseObject::throwInvalid();
        BaseObject::validateThreadLock();
    }

    /// The engine object; throws as `validate` does.
    Target& target() const
    {
        this->validate();
        return *m_target.get();
    }
    /// The engine object, or null once it is gone; throws nothing and checks no thread.
    Target* findTarget() const { return m_target.get(); }
    bool isGone() const { return m_target.isGone(); }
    void setTarget(Target* target) { m_target.assign(target); }
    bool hasTargetOf(const EngineView& other) const { return m_target.sameTarget(other.m_target); }

private:
    WeakHandle<Target> m_target;
};

/// An EngineView that any thread may use: what it reads and changes is never looked at by a thread check.
template <typename Target, typename Base = BaseObject>
class UnguardedView : public EngineView<Target, Base> {
protected:
    using EngineView<Target, Base>::EngineView;

    void validate() const override
    {
        if (this->isGone())
            BaseObject::throwInvalid();
    }
};

} // namespace OMC
