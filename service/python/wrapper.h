#pragma once

#include "core/frame/obj.h"
#include "service/python/pyref.h"

namespace brindle::python {

struct Operators;

/// The Python type of a class, with the operators that its instances have.
struct TypeEntry {
    PyTypeObject* type;
    const Operators* operators;
};

/// The Python object of an object of the object model, which it owns (ownership 3) and destroys with itself.
struct Wrapper {
    PyObject_HEAD
    OMC::BaseObject* object;
    const Operators* operators;
    PyObject* weakReferences;
};

/// A new reference to a new Python object that takes the object out of the handle; None for an empty handle. An object
/// that is borrowed comes as a copy: it has an owner already.
PyObject* toPython(OMC::Obj&& handle);

/// The same for a plain pointer, whose object the Python object takes, unless it has an owner; null is None.
PyObject* toPython(OMC::BaseObject* object);

/// Whether the value is an object of this module.
bool isWrapper(PyObject* value);

/// The object behind a Python object of this module; throws when there is none. For arguments: the engine must not be
/// touched through it yet.
OMC::BaseObject* heldObject(PyObject* wrapper);

/// The same for the object of a call: waits while a blocking operation has the engine (EngineGate::enter). Behind it no
/// script's code may run ahead of the engine's, so all arguments have been read before.
OMC::BaseObject* objectOf(PyObject* wrapper);

/// Gives a new instance of a class of this module to Python; it takes the object.
PyObject* adopt(const TypeEntry& entry, OMC::BaseObject* object);

/// Makes known which Python type stands for a class, for it and for derived classes without a type of their own.
void registerType(const QMetaObject* metaObject, const TypeEntry& entry);
const TypeEntry& typeFor(const QMetaObject* metaObject);

/// tp_dealloc of the classes of this module; and of those whose objects hold Python objects, which may hold others of
/// theirs, without end: a long chain of them is taken down in steps.
void deallocate(PyObject* wrapper);
void deallocateHolder(PyObject* wrapper);

} // namespace brindle::python
