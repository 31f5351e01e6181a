#pragma once

#include "service/python/property.h"

#include <deque>
#include <string>
#include <vector>

/// Makes Python's types of the tables of the classes.
namespace brindle::python {

/// A type with all that CPython refers to for as long as it lives; types live as long as the process.
struct TypeRecord {
    ClassTable table;
    std::string qualifiedName; ///< "brindle.Scene"
    std::deque<Property> properties;
    std::vector<PyGetSetDef> attributes;
    std::vector<PyMethodDef> methods;
    std::deque<std::string> texts;
    PyTypeObject* type = nullptr;
};

/// Makes the Python types of the classes of all families and adds them to the module. Throws PythonError, also where a
/// class or a member has no text.
void addClasses(PyObject* module);

/// Base classes ahead of what derives from them.
const std::deque<TypeRecord>& allTypes();

/// The table behind a type of this module, or behind a script's own class derived from one.
const ClassTable& tableOf(PyTypeObject* type);

} // namespace brindle::python
