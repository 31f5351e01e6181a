#include "service/python/wrapper.h"

#include "service/python/enginegate.h"
#include "service/python/errors.h"

#include <array>
#include <cstdint>
#include <unordered_map>
#include <utility>

namespace brindle::python {

namespace {

std::unordered_map<const QMetaObject*, TypeEntry>& typesByClass()
{
    static std::unordered_map<const QMetaObject*, TypeEntry> types;
    return types;
}

/// The types found last, by the address of the class: a chain of calls goes through a handful of classes again and
/// again.
struct FoundType {
    const QMetaObject* metaObject;
    const TypeEntry* entry;
};
std::array<FoundType, 256> foundTypes;

FoundType& foundTypeFor(const QMetaObject* metaObject)
{
    constexpr std::uintptr_t spacing = 64; // of the meta-objects in a library's data
    return foundTypes[reinterpret_cast<std::uintptr_t>(metaObject) / spacing % foundTypes.size()];
}

/// The memory of the wrapper that went last, of each size: what a chain of calls makes lives for a step and leaves it
/// to the next one. Used under the interpreter's lock.
std::array<Wrapper*, 8> spareWrappers;

/// The spare memory for a type; null where Python's collector knows the instances, as those of a class that a
/// script derived.
Wrapper** spareFor(PyTypeObject* type)
{
    const std::size_t words = (static_cast<std::size_t>(type->tp_basicsize) - sizeof(Wrapper)) / sizeof(void*);
    return PyType_IS_GC(type) || words >= spareWrappers.size() ? nullptr : &spareWrappers[words];
}

/// An instance whose fields the caller fills.
Wrapper* newWrapper(PyTypeObject* type)
{
    Wrapper** spare = spareFor(type);
    if (!spare || !*spare)
        return reinterpret_cast<Wrapper*>(type->tp_alloc(type, 0));
    return reinterpret_cast<Wrapper*>(PyObject_Init(reinterpret_cast<PyObject*>(std::exchange(*spare, nullptr)), type));
}

} // namespace

PyObject* toPython(OMC::Obj&& handle)
{
    OMC::BaseObject* object = handle.get();
    if (!object)
        Py_RETURN_NONE;
    if (handle.hasRealOwner()) {
        object = object->copy();
    } else {
        object = handle.releaseToPython();
    }
    return adopt(typeFor(object->metaObject()), object);
}

PyObject* toPython(OMC::BaseObject* object)
{
    if (!object)
        Py_RETURN_NONE;
    if (object->getOwnership() != OMC::Unowned)
        object = object->copy();
    return adopt(typeFor(object->metaObject()), object);
}

bool isWrapper(PyObject* value)
{
    static PyTypeObject* root = typeFor(&OMC::BaseObject::staticMetaObject).type;
    return PyObject_TypeCheck(value, root);
}

OMC::BaseObject* objectOf(PyObject* wrapper)
{
    EngineGate::enter();
    return heldObject(wrapper);
}

OMC::BaseObject* heldObject(PyObject* wrapper)
{
    OMC::BaseObject* object = reinterpret_cast<Wrapper*>(wrapper)->object;
    if (!object)
        OMC::BaseObject::throwInvalid();
    return object;
}

PyObject* adopt(const TypeEntry& entry, OMC::BaseObject* object)
{
    auto* wrapper = newWrapper(entry.type);
    if (!wrapper) {
        delete object;
        throw PythonError{};
    }
    // An object that there is once for all, whose copy is itself, stays its native owner's.
    if (object->getOwnership() != OMC::OwnedByNative)
        object->setOwnership(OMC::OwnedByPython);
    wrapper->object = object;
    wrapper->operators = entry.operators;
    wrapper->weakReferences = nullptr;
    return reinterpret_cast<PyObject*>(wrapper);
}

void registerType(const QMetaObject* metaObject, const TypeEntry& entry)
{
    typesByClass()[metaObject] = entry;
}

const TypeEntry& typeFor(const QMetaObject* metaObject)
{
    FoundType& last = foundTypeFor(metaObject);
    if (last.metaObject == metaObject)
        return *last.entry;
    auto& types = typesByClass();
    auto found = types.find(metaObject);
    // A class without a type of its own is shown as its nearest base class.
    if (found == types.end())
        found = types.emplace(metaObject, TypeEntry(typeFor(metaObject->superClass()))).first;
    last = {metaObject, &found->second};
    return found->second;
}

void deallocate(PyObject* self)
{
    auto* wrapper = reinterpret_cast<Wrapper*>(self);
    PyTypeObject* type = Py_TYPE(self);
    if (PyType_IS_GC(type))
        PyObject_GC_UnTrack(self);
    if (wrapper->weakReferences)
        PyObject_ClearWeakRefs(self);
    if (wrapper->object && wrapper->object->getOwnership() != OMC::OwnedByNative)
        delete wrapper->object;
    if (Wrapper** spare = spareFor(type); spare && !*spare)
        *spare = wrapper;
    else
        type->tp_free(self);
    Py_DECREF(type);
}

void deallocateHolder(PyObject* self)
{
    PyObject_GC_UnTrack(self);
    Py_TRASHCAN_BEGIN(self, deallocateHolder) deallocate(self);
    Py_TRASHCAN_END
}

} // namespace brindle::python
