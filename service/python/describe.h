#pragma once

#include "service/python/pyref.h"

namespace brindle::python {

/// Describes the module as plain data: a new list of dicts, one a class, from which scripts/generate_reference.py
/// writes the stubs and the reference.
PyObject* describeClasses();

} // namespace brindle::python
