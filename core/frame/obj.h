#pragma once

#include "core/frame/baseobject.h"
#include "core/frame/export.h"

#include <QMetaType>
#include <QObject>

namespace OMC {

/// Carries any object of the object model by value, through a QVariant or a result.
///
/// It owns what it takes fresh (and destroys it), clones what another handle owns, and borrows what native code or
/// Python owns. A move hands the owned object on without a clone: it can't be told from a copy whose source dies.
class BRINDLE_CORE_EXPORT Obj : public QObject {
    Q_OBJECT

public:
    Obj(BaseObject* object = nullptr);
    Obj(const Obj& other);
    Obj(Obj&& other) noexcept;
    ~Obj() override;

    /// Drops, without destroying it, what the handle owned, and leaves a borrowed object in place: required as it is.
    /// Assign to fresh handles only.
    Obj& operator=(const Obj& other);
    Obj& operator=(Obj&& other) noexcept;
    void set(BaseObject* object);

    BaseObject* get() const { return m_borrowed ? m_borrowed : m_owned; }
    operator BaseObject*() const { return get(); }
    /// Whether the object has an owner elsewhere.
    bool hasRealOwner() const { return m_borrowed; }

    /// Hand the owned object to native code or to the binding layer and leave the handle empty; null when the object is
    /// borrowed. The handle must hold an object.
    BaseObject* releaseToCPP();
    BaseObject* releaseToPython();

private:
    void take(BaseObject* object);
    void copyFrom(const Obj& other);
    void moveFrom(Obj& other) noexcept;
    BaseObject* release(OwnershipType_e owner);

    BaseObject* m_owned = nullptr;
    BaseObject* m_borrowed = nullptr;
};

/// The object of class T in a handle, or null.
template <typename T>
T* objectIn(const Obj& handle)
{
    return dynamic_cast<T*>(handle.get());
}

/// A variant that holds the handle, moved there: QVariant::fromValue would clone the object.
BRINDLE_CORE_EXPORT QVariant toVariant(Obj&& handle);
/// A variant that holds a handle that takes the object.
BRINDLE_CORE_EXPORT QVariant toVariant(BaseObject* object);

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Obj)
