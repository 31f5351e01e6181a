#pragma once

#include "service/python/classtable.h"

namespace brindle::python {

/// Makes the Python type of a class from its table and adds it to the module. The type of its nearest base class in the
/// module must be there already. Throws PythonError.
void addClass(PyObject* module, const ClassTable& table);

/// The table behind a type of this module, or behind a script's own class derived from one.
const ClassTable& tableOf(PyTypeObject* type);

/// What all classes offer, as plain data: a new list of dicts, for stubs and reference pages.
PyObject* describeClasses();

} // namespace brindle::python
