#include "core/frame/baseobject.h"

#include "core/frame/obj.h"
#include "core/frame/threadmanager.h"
#include "core/frame/unexpected.h"

#include <QMetaProperty>
#include <QMetaType>

#include <ext/atomicity.h>
#include <set>

namespace OMC {

namespace {

const char* const getterPrefix = "get_";
const char* const setterPrefix = "set_";

/// Counted as libstdc++ counts the owners of a shared_ptr: with atomic steps once the process has a second thread.
_Atomic_word liveObjectCount = 0;

std::set<qint32>& valueTypeIDList()
{
    static std::set<qint32> ids;
    return ids;
}

QObject* pointerIn(const QVariant& value)
{
    if (value.metaType() == QMetaType::fromType<QObject*>())
        return *static_cast<QObject* const*>(value.constData());
    QObject* object = nullptr;
    QMetaType::convert(value.metaType(), value.constData(), QMetaType::fromType<QObject*>(), &object);
    return object;
}

QMetaProperty propertyNamed(const QMetaObject* metaObject, const std::string& name)
{
    const int index = metaObject ? metaObject->indexOfProperty(name.c_str()) : -1;
    return index < 0 ? QMetaProperty() : metaObject->property(index);
}

} // namespace

BaseObject::BaseObject()
{
    __gnu_cxx::__atomic_add_dispatch(&liveObjectCount, 1);
}

BaseObject::BaseObject(const BaseObject&) : BaseObject() {}

BaseObject::~BaseObject()
{
    __gnu_cxx::__atomic_add_dispatch(&liveObjectCount, -1);
}

BaseObject* BaseObject::copy() const
{
    throw Exception(std::string("!! A proper copy constructor is needed. !!\n"));
}

bool BaseObject::__bool__() const
{
    return false;
}

std::string BaseObject::__str__() const
{
    return "Base Object";
}

QVariant BaseObject::getAttr(const std::string& name, bool& found)
{
    found = false;
    const QMetaProperty property = propertyNamed(metaObject(), name);
    // A write-only property is not valid to Qt and so comes out as unknown here: both tests are required as they are.
    if (!property.isValid())
        return {};
    QVariant value = readProperty(property);
    found = true;
    return value;
}

QVariant BaseObject::readProperty(const QMetaProperty& property) const
{
    if (!property.isReadable())
        throw Exception(std::string("Property is write-only."));
    QVariant value = property.read(this);
    if (!value.isValid())
        throwUnread();
    return value;
}

void BaseObject::setAttr(const std::string& name, const QVariant& value, bool& found)
{
    found = false;
    const QMetaProperty property = propertyNamed(metaObject(), name);
    if (!property.isValid())
        return;
    writeProperty(property, value);
    found = true;
}

void BaseObject::writeProperty(const QMetaProperty& property, const QVariant& value)
{
    if (!property.isWritable())
        throw Exception(tr("Property is read-only."));
    if (!property.write(this, value))
        throw Exception(tr("Failed to write the property (Argument Type %1)").arg(value.typeName()));
}

bool BaseObject::filterDir() const
{
    return true;
}

bool BaseObject::filterDir(std::string& name) const
{
    return !name.starts_with(getterPrefix) && !name.starts_with(setterPrefix);
}

void BaseObject::validate() const {}

// The names come by value, so an override can't change what getDir gives: this is required.
void BaseObject::extendDir(std::vector<std::string>) const {}

bool BaseObject::extendNative() const
{
    return true;
}

std::vector<std::string> BaseObject::getDir(bool& extendNative, bool& filter) const
{
    extendNative = this->extendNative();
    filter = true;
    std::vector<std::string> names;
    const QMetaObject* meta = metaObject();
    if (!meta)
        return names;
    names.reserve(static_cast<std::size_t>(meta->propertyCount()));
    for (int index = 0; index < meta->propertyCount(); ++index)
        names.emplace_back(meta->property(index).name());
    extendDir(names);
    return names;
}

const QObject* BaseObject::QVariantToPointer(const QVariant& value)
{
    const int id = value.typeId();
    // Plain data first: Qt takes no converter between types of its own, and asking for one costs more than the rest.
    if (id >= QMetaType::Bool && id <= QMetaType::QStringList)
        return nullptr;
    if (id == QMetaType::QObjectStar)
        return pointerIn(value);
    if (id == QMetaType::fromType<Obj>().id())
        return static_cast<const Obj*>(value.constData())->get();
    if (value.canConvert<QObject*>())
        return pointerIn(value);
    if (valueTypeIDList().contains(id))
        return static_cast<const BaseObject*>(value.constData());
    return nullptr;
}

void BaseObject::registerValueType(int metaTypeId)
{
    valueTypeIDList().insert(metaTypeId);
}

void BaseObject::throwInvalid()
{
    throw Exception(tr("Object is no longer valid."));
}

void BaseObject::throwInvalidArgument(unsigned int index)
{
    throw Exception(tr("Invalid argument at index %1.").arg(index));
}

void BaseObject::throwUnexpected()
{
    unexpected::fail(unexpected::ErrorHasOccurred);
}

void BaseObject::throwUnread()
{
    throw Exception(std::string("Failed to read the property."));
}

void BaseObject::throwIfNotMainThread(const QString& what)
{
    ThreadManager::instance()->throwIfNotMainThread(what);
}

void BaseObject::validateThreadLock()
{
    // Nothing is asked of the main thread; every operation of every object comes here.
    if (!ThreadManager::mainThread())
        ThreadManager::instance()->throwIfNecessary();
}

qint64 BaseObject::liveObjects()
{
    return __atomic_load_n(&liveObjectCount, __ATOMIC_RELAXED);
}

} // namespace OMC
