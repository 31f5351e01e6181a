#pragma once

#include "service/python/pyref.h"

/// References on Python objects that native code holds: taken and dropped on any thread, with or without Python's lock,
/// for as long as there is an interpreter. What is still held when the interpreter has gone, went with it.
namespace brindle::python {

void addReference(PyObject* object);
void dropReference(PyObject* object); ///< Null is allowed.

} // namespace brindle::python
