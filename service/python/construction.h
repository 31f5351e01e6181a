#pragma once

#include "service/python/pyref.h"

#include <cstddef>

/// How a script makes objects of the module's classes: the forms of the constructor in the class's table.
namespace brindle::python {

/// tp_new, which classes that a script derives come to.
PyObject* newObject(PyTypeObject* type, PyObject* arguments, PyObject* keywords);

/// tp_vectorcall, the short way of a call of the class itself: the arguments come as they are on the interpreter's
/// stack. Derived classes don't inherit it.
PyObject* callType(PyObject* callable, PyObject* const* values, std::size_t flaggedCount, PyObject* names);

} // namespace brindle::python
