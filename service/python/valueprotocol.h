#pragma once

#include "service/python/classtable.h"

#include <string>

/// The protocol of a plain value beyond its operators: a text that tells it whole, and that copy.copy,
/// copy.deepcopy and pickle take it. Value classes are those with public members and those whose table has a state.
namespace brindle::python {

/// Whether objects of a type of this module, or of a script's own class derived from one, are values.
bool isValueType(PyTypeObject* type);

/// tp_repr: of a class with public members "Point2d(1, 2.5)", each number to the last digit; of others what their table
/// says.
PyObject* valueRepresentation(PyObject* self);

/// A number as a script would write it: the shortest text that reads as the same number, without a ".0".
std::string numberText(double number);

/// "Point2d" of "brindle.Point2d".
std::string shortName(const std::string& type);

/// `__reduce__`: how copy and pickle make an equal object, of a script's own class too, with what the script put on it.
extern const PyMethodDef reduceMethod;

/// `__reduce__` of everything else: one sentence that says that Python can't copy the object, and what can where the
/// class's table tells it.
extern const PyMethodDef refuseMethod;

/// Makes an object of a class of its state; `__reduce__` names this function.
PyObject* rebuildValue(PyObject* cls, PyObject* state);

} // namespace brindle::python
