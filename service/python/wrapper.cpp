#include "service/python/wrapper.h"

#include "service/python/errors.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <unordered_map>

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

/// An instance whose fields the caller fills. What follows them, in a class that a script derived, begins as zeros.
Wrapper* newWrapper(PyTypeObject* type)
{
    if (PyType_IS_GC(type))
        return reinterpret_cast<Wrapper*>(type->tp_alloc(type, 0));
    auto* wrapper = PyObject_New(Wrapper, type);
    if (wrapper)
        std::memset(wrapper + 1, 0, static_cast<std::size_t>(type->tp_basicsize) - sizeof(Wrapper));
    return wrapper;
}

} // namespace

PyObject* toPython(OMC::Obj&& handle)
{
    OMC::BaseObject* object = handle.get();
    if (!object)
        Py_RETURN_NONE;
    if (handle.hasRealOwner()) {
        object = object->copy();
        object->setOwnership(OMC::OwnedByPython);
    } else {
        object = handle.releaseToPython();
    }
    return adopt(typeFor(object->metaObject()), object);
}

bool isWrapper(PyObject* value)
{
    static PyTypeObject* root = typeFor(&OMC::BaseObject::staticMetaObject).type;
    return PyObject_TypeCheck(value, root);
}

OMC::BaseObject* objectOf(PyObject* wrapper)
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
    delete wrapper->object;
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
