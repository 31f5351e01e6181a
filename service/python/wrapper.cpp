#include "service/python/wrapper.h"

#include "service/python/errors.h"

#include <unordered_map>

namespace brindle::python {

namespace {

std::unordered_map<const QMetaObject*, TypeEntry>& typesByClass()
{
    static std::unordered_map<const QMetaObject*, TypeEntry> types;
    return types;
}

/// An instance whose fields the caller fills. A class that a script derived may need more of Python than its fields.
Wrapper* newWrapper(PyTypeObject* type)
{
    if (PyType_IS_GC(type) || type->tp_basicsize != sizeof(Wrapper))
        return reinterpret_cast<Wrapper*>(type->tp_alloc(type, 0));
    return PyObject_New(Wrapper, type);
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
    // A loop makes objects of one class.
    static const QMetaObject* lastClass = nullptr;
    static const TypeEntry* lastType = nullptr;
    if (metaObject == lastClass)
        return *lastType;
    auto& types = typesByClass();
    auto found = types.find(metaObject);
    // A class without a type of its own is shown as its nearest base class.
    if (found == types.end())
        found = types.emplace(metaObject, TypeEntry(typeFor(metaObject->superClass()))).first;
    lastClass = metaObject;
    lastType = &found->second;
    return *lastType;
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

} // namespace brindle::python
