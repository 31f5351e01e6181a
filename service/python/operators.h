#pragma once

#include "service/python/classtable.h"

#include <vector>

namespace brindle::python {

/// The type slots for the operators that a class has; str() and repr() every class has.
std::vector<PyType_Slot> operatorSlots(const Operators& operators);

/// `__dir__`: the properties and methods that the object lets show.
extern const PyMethodDef directoryMethod;

/// `_ipython_key_completions_`: the keys that a completer offers inside `x[""]`.
extern const PyMethodDef keysMethod;

/// Makes the type of the iterators; false with a Python error raised.
bool addIteratorType();

} // namespace brindle::python
