#pragma once

#include "service/python/classtable.h"

#include <QMetaProperty>

#include <string>

namespace brindle::python {

/// A property of a class, found once: an attribute of the Python type goes through it.
struct Property {
    QMetaProperty meta;
    const char* text;
    std::string type;  ///< The type that it gives, as Python writes it.
    std::string takes; ///< The type that may be written.
    /// Reads it without the way over a QVariant where its type has one.
    PyObject* (*read)(OMC::BaseObject* object, const Property& property);
    QMetaType valueType; ///< The type in C++.
    bool writable;
    /// How the class that has the property is called for it, without the way down through its subclasses.
    void (*metacall)(QObject* object, QMetaObject::Call call, int index, void** slots);
    int index; ///< The property's index in that class.
};

/// The row is the property's own, or null. Throws PythonError for a type that nothing tells.
Property makeProperty(const QMetaProperty& meta, const PropertyRow* row, const char* text);

/// The functions of a PyGetSetDef whose closure is a Property.
PyObject* getProperty(PyObject* self, void* property);
int setProperty(PyObject* self, PyObject* value, void* property);

/// A new descriptor for a script method that reads or writes a property, as "get_x" and "set_x". Type, property and
/// name must stay.
PyObject* newAccessor(PyTypeObject* owner, const Property& property, const char* name, bool setter);
bool addAccessorType();

} // namespace brindle::python
