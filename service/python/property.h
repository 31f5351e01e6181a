#pragma once

#include "service/python/wrapper.h"

#include <QMetaProperty>

namespace brindle::python {

/// A property of a class, found once: an attribute of the Python type goes through it.
struct Property {
    QMetaProperty meta;
    const char* documentation;
    /// Reads it without the way over a QVariant where its type has one.
    PyObject* (*read)(OMC::BaseObject* object, const Property& property);
    /// How the class that has the property is called for it, without the way down through its subclasses.
    void (*metacall)(QObject* object, QMetaObject::Call call, int index, void** slots);
    int index; ///< Of the property in that class.
};

Property makeProperty(const QMetaProperty& meta, const char* documentation);

/// The functions of a PyGetSetDef whose closure is a Property.
PyObject* getProperty(PyObject* self, void* property);
int setProperty(PyObject* self, PyObject* value, void* property);

/// The name of the property's type in a signature.
const char* typeName(const QMetaProperty& meta);

/// A new descriptor for the script method "get_x" or "set_x" behind a property x of a type.
PyObject* newAccessor(PyTypeObject* owner, const Property& property, bool setter);
bool addAccessorType();

} // namespace brindle::python
