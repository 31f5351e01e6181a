#pragma once

#include "core/frame/exception.h"
#include "core/frame/export.h"
#include "core/frame/recycled.h"

#include <QObject>
#include <QVariant>

#include <string>
#include <vector>

class QMetaProperty;

/// Gives a class its `copy()`, which is its copy constructor on the heap. It stands behind Q_OBJECT in the class,
/// which is in no anonymous namespace.
#define BRINDLE_COPYABLE(Class)                                                                                        \
public:                                                                                                                \
    BRINDLE_CORE_EXPORT Class* copy() const override                                                                   \
    {                                                                                                                  \
        return new Class(*this);                                                                                       \
    }                                                                                                                  \
                                                                                                                       \
private:

namespace OMC {

/// The owner of an object of the object model, which destroys it.
enum OwnershipType_e : quint32 {
    Unowned = 0,       ///< Nobody yet: fresh out of `new`.
    OwnedByHandle = 1, ///< An Obj.
    OwnedByNative = 2, ///< Native code, through Obj::releaseToCPP.
    OwnedByPython = 3  ///< The binding layer, through Obj::releaseToPython.
};

/// Root of everything that a script can touch.
///
/// A wrapper of an engine object holds a weak handle, checks it in `validate()` at the start of each operation (an
/// EngineView does both), and never owns the engine object. Properties are Qt properties; `getAttr` and `setAttr` serve
/// them by name. Failures are OMC::Exception. An object belongs to one thread at a time; neither it nor Obj locks
/// anything.
class BRINDLE_CORE_EXPORT BaseObject : public QObject, public Recycled {
    Q_OBJECT

public:
    BaseObject();
    /// Copies nothing: the copy is a QObject of its own and nobody owns it yet.
    BaseObject(const BaseObject& other);
    BaseObject& operator=(const BaseObject&) { return *this; }
    ~BaseObject() override;

    /// A new object of the same class that shows the same thing; fails where a class has no copy.
    virtual BaseObject* copy() const;
    virtual bool __bool__() const;
    virtual std::string __str__() const;

    /// Reads a property; throws where that fails. An unknown name (`found` false, invalid) is left to the caller.
    virtual QVariant getAttr(const std::string& name, bool& found);
    /// Writes a property, converting the value; throws where that fails. An unknown name is no error (`found` false).
    virtual void setAttr(const std::string& name, const QVariant& value, bool& found);

private:
    virtual bool filterDir() const;

public:
    /// Whether a name shows in a listing of the object. Accessor names ("get_", "set_") don't.
    virtual bool filterDir(std::string& name) const;

protected:
    /// Throws when the object, or the calling thread, may not go on.
    virtual void validate() const;

private:
    virtual void extendDir(std::vector<std::string> names) const;
    virtual bool extendNative() const;

public:
    OwnershipType_e getOwnership() const { return m_ownership; }
    void setOwnership(OwnershipType_e ownership) { m_ownership = ownership; }

    /// The second half of `getAttr` and `setAttr`, once the property is found, for a binding that remembers it.
    QVariant readProperty(const QMetaProperty& property) const;
    void writeProperty(const QMetaProperty& property, const QVariant& value);

    /// The names of all properties, base class first. `extendNative`: add the script methods' names. `filter`: show
    /// only what `filterDir` lets through.
    std::vector<std::string> getDir(bool& extendNative, bool& filter) const;

    /// The object in a script's argument, or null. A value class comes as a pointer into the variant and lives as long.
    static const QObject* QVariantToPointer(const QVariant& value);
    /// Lets a class travel inside a QVariant by value. Called during static initialisation.
    static void registerValueType(int metaTypeId);

    [[noreturn]] static void throwInvalid();
    [[noreturn]] static void throwInvalidArgument(unsigned int index);
    [[noreturn]] static void throwUnexpected();
    [[noreturn]] static void throwUnread(); ///< A property gave nothing.
    static void throwIfNotMainThread(const QString& what);
    static void validateThreadLock();

    /// Objects of all classes that are alive in the process, to find what leaks.
    static qint64 liveObjects();

private:
    OwnershipType_e m_ownership = Unowned;
};

/// The object of class T in a script's argument, or null.
template <typename T>
const T* objectFrom(const QVariant& value)
{
    return dynamic_cast<const T*>(BaseObject::QVariantToPointer(value));
}

} // namespace OMC
