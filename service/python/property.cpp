#include "service/python/property.h"

#include "service/python/enginecall.h"
#include "service/python/errors.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <optional>

namespace brindle::python {

namespace {

/// Puts the property's value into `value`, which is of the property's type.
void readInto(void* value, OMC::BaseObject* object, const Property& property)
{
    int status = -1;
    void* slots[] = {value, nullptr, &status};
    property.metacall(object, QMetaObject::ReadProperty, property.index, slots);
}

template <typename Value>
PyObject* readAs(OMC::BaseObject* object, const Property& property)
{
    Value value{};
    readInto(&value, object, property);
    return toPython(std::move(value));
}

/// An object, read into a handle that is kept from read to read: making one is a third of what an object costs.
PyObject* readObject(OMC::BaseObject* object, const Property& property)
{
    static std::optional<OMC::Obj> handle(std::in_place);
    readInto(&*handle, object, property);
    if (!handle->hasRealOwner())
        return toPython(std::move(*handle));
    // A borrowed object would stay in the handle, in the way of the next one.
    const OMC::BaseObject* borrowed = handle->get();
    handle.emplace();
    return toPython(borrowed->copy());
}

PyObject* readVariant(OMC::BaseObject* object, const Property& property)
{
    QVariant value;
    readInto(&value, object, property);
    if (!value.isValid())
        OMC::BaseObject::throwUnread();
    return toPython(std::move(value));
}

/// How a property of a C++ type is read, and what Python calls the type; null where only the class's row can tell.
struct PropertyType {
    int id;
    const char* name;
    PyObject* (*read)(OMC::BaseObject*, const Property&);
};

const PropertyType& propertyType(const QMetaProperty& meta)
{
    static const PropertyType entries[] = {
        {QMetaType::fromType<OMC::Obj>().id(), nullptr, &readObject},
        {QMetaType::Int, "int", &readAs<int>},
        {QMetaType::UInt, "int", &readAs<unsigned int>},
        {QMetaType::ULong, "int", &readAs<unsigned long>},
        {QMetaType::LongLong, "int", &readAs<long long>},
        {QMetaType::Bool, "bool", &readAs<bool>},
        {QMetaType::Double, "float", &readAs<double>},
        {QMetaType::Float, "float", &readAs<float>},
        {QMetaType::QString, "str", &readAs<QString>},
        {QMetaType::QStringList, "list[str]", &readAs<QStringList>},
        {QMetaType::QVariantList, nullptr, &readAs<QVariantList>},
        {QMetaType::fromType<std::vector<OMC::Obj>>().id(), nullptr, &readAs<std::vector<OMC::Obj>>},
        {QMetaType::fromType<QMap<QString, OMC::Obj>>().id(), nullptr, &readAs<QMap<QString, OMC::Obj>>},
        {QMetaType::QVariant, nullptr, &readVariant},
    };
    for (const PropertyType& entry : entries) {
        if (entry.id == meta.typeId())
            return entry;
    }
    throwTypeError("The property %s is of type %s, which has no form in Python", meta.name(), meta.typeName());
}

[[noreturn]] void refuseValue(const char* type)
{
    throw OMC::Exception(OMC::BaseObject::tr("Failed to write the property (Argument Type %1)").arg(type));
}

bool isNotFinite(const QVariant& value)
{
    return value.typeId() == QMetaType::Double && !std::isfinite(value.toDouble());
}

/// Stops what Qt's conversion would change without a word: None where a value belongs, which Qt takes for a default,
/// and a number that an int property would cut short.
void refuseLossyValue(const QMetaProperty& meta, const QVariant& value)
{
    if (!value.isValid() && meta.typeId() != QMetaType::QVariant)
        refuseValue("NoneType");
    const bool wide = value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::Double;
    if (meta.typeId() != QMetaType::Int || !wide)
        return;
    if (isNotFinite(value))
        throwNotFinite(meta.name());
    const double number = value.toDouble();
    if (!(number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max()))
        refuseValue(value.typeName());
}

/// Writes a value that is of the property's type already. The status is what QMetaProperty::write looks at.
void writeAsIs(OMC::BaseObject* object, const Property& property, QVariant& value)
{
    int status = -1;
    int flags = 0;
    void* slots[] = {value.data(), &value, &status, &flags};
    property.metacall(object, QMetaObject::WriteProperty, property.index, slots);
}

void write(PyObject* self, const Property& property, PyObject* value)
{
    convertAndCall([value] { return variantFrom(value); },
                   [&](QVariant& read) {
                       OMC::BaseObject* object = heldObject(self);
                       const bool fits = property.writable && read.metaType() == property.valueType;
                       if (property.writable && !fits)
                           refuseLossyValue(property.meta, read);
                       try {
                           if (fits)
                               writeAsIs(object, property, read);
                           else
                               object->writeProperty(property.meta, read);
                       } catch (const OMC::Exception& exception) {
                           if (isNotFinite(read) && exception.message() == argumentSentence(0))
                               throwNotFinite(property.meta.name());
                           throw;
                       }
                   });
}

/// The script method behind a property: a descriptor of the type, and what it gives when it is bound to an object.
struct Accessor {
    PyObject_HEAD
    PyTypeObject* owner; ///< Types live as long as the process, and so does what they are made of.
    const Property* property;
    const char* name;
    PyObject* self;
    bool setter;
};

PyTypeObject* accessorType = nullptr;

PyObject* newAccessorOn(const Accessor& model, PyObject* self)
{
    auto* accessor = PyObject_GC_New(Accessor, accessorType);
    if (!accessor)
        return nullptr;
    accessor->owner = model.owner;
    accessor->property = model.property;
    accessor->name = model.name;
    accessor->setter = model.setter;
    Py_XINCREF(self);
    accessor->self = self;
    PyObject_GC_Track(accessor);
    return reinterpret_cast<PyObject*>(accessor);
}

PyObject* accessorName(PyObject* self, void*)
{
    return PyUnicode_FromString(reinterpret_cast<Accessor*>(self)->name);
}

PyObject* accessorQualifiedName(PyObject* self, void*)
{
    const auto* accessor = reinterpret_cast<Accessor*>(self);
    const char* type = std::strrchr(accessor->owner->tp_name, '.') + 1; // "brindle.Scene"
    return PyUnicode_FromFormat("%s.%s", type, accessor->name);
}

/// The call as inspect.signature() reads it.
PyObject* accessorSignature(PyObject* self, void*)
{
    const auto* accessor = reinterpret_cast<Accessor*>(self);
    if (accessor->self)
        return PyUnicode_FromString(accessor->setter ? "(value, /)" : "()");
    return PyUnicode_FromString(accessor->setter ? "($self, value, /)" : "($self, /)");
}

/// As Python shows a method.
PyObject* accessorRepresentation(PyObject* self)
{
    const auto* accessor = reinterpret_cast<Accessor*>(self);
    return PyUnicode_FromFormat(accessor->self ? "<bound method %s of '%s' object>" : "<method '%s' of '%s' objects>",
                                accessor->name, accessor->owner->tp_name);
}

PyObject* bindAccessor(PyObject* descriptor, PyObject* object, PyObject*)
{
    auto* accessor = reinterpret_cast<Accessor*>(descriptor);
    if (!object || object == Py_None) {
        Py_INCREF(descriptor);
        return descriptor;
    }
    if (!PyObject_TypeCheck(object, accessor->owner)) {
        PyErr_Format(PyExc_TypeError, "descriptor '%s' for '%s' objects doesn't apply to a '%s' object", accessor->name,
                     accessor->owner->tp_name, Py_TYPE(object)->tp_name);
        return nullptr;
    }
    return newAccessorOn(*accessor, object);
}

PyObject* callAccessor(PyObject* callable, PyObject* arguments, PyObject* names)
{
    return guarded([&]() -> PyObject* {
        auto* accessor = reinterpret_cast<Accessor*>(callable);
        if (!accessor->self)
            throwTypeError("%s() needs an object", accessor->name);
        const Py_ssize_t count = PyTuple_GET_SIZE(arguments) + (names ? PyDict_GET_SIZE(names) : 0);
        if (count != (accessor->setter ? 1 : 0) || PyTuple_GET_SIZE(arguments) != count)
            throwTypeError("%s() takes %s", accessor->name,
                           accessor->setter ? "one argument, by its place" : "no arguments");
        if (!accessor->setter)
            return accessor->property->read(objectOf(accessor->self), *accessor->property);
        write(accessor->self, *accessor->property, PyTuple_GET_ITEM(arguments, 0));
        Py_RETURN_NONE;
    });
}

void deallocateAccessor(PyObject* self)
{
    PyTypeObject* type = Py_TYPE(self);
    PyObject_GC_UnTrack(self);
    Py_XDECREF(reinterpret_cast<Accessor*>(self)->self);
    PyObject_GC_Del(self);
    Py_DECREF(type);
}

int visitAccessor(PyObject* self, visitproc visit, void* arg)
{
    Py_VISIT(Py_TYPE(self));
    Py_VISIT(reinterpret_cast<Accessor*>(self)->self);
    return 0;
}

int clearAccessor(PyObject* self)
{
    Py_CLEAR(reinterpret_cast<Accessor*>(self)->self);
    return 0;
}

PyObject* accessorText(PyObject* self, void*)
{
    auto* accessor = reinterpret_cast<Accessor*>(self);
    return PyUnicode_FromFormat("%s the property %s.", accessor->setter ? "Sets" : "Gives",
                                accessor->property->meta.name());
}

} // namespace

Property makeProperty(const QMetaProperty& meta, const PropertyRow* row, const char* text)
{
    const PropertyType& usual = propertyType(meta);
    const char* type = row && row->type ? row->type : usual.name;
    if (!type && !(row && row->gives))
        throwTypeError("The row of the property %s has to tell its type: %s leaves it open", meta.name(),
                       meta.typeName());
    const std::string gives = type ? type : nameOf(row->gives);
    return {.meta = meta,
            .text = text,
            .type = gives,
            .takes = row && row->takes ? row->takes : gives,
            .read = row && row->read ? row->read : usual.read,
            .valueType = meta.metaType(),
            .writable = meta.isWritable(),
            .metacall = meta.enclosingMetaObject()->d.static_metacall,
            .index = meta.relativePropertyIndex()};
}

PyObject* getProperty(PyObject* self, void* closure)
{
    return guarded([&]() -> PyObject* {
        const auto& property = *static_cast<const Property*>(closure);
        return property.read(objectOf(self), property);
    });
}

int setProperty(PyObject* self, PyObject* value, void* closure)
{
    return guarded([&]() -> int {
        const auto& property = *static_cast<const Property*>(closure);
        if (!value)
            throwUndeletable(property.meta.name());
        write(self, property, value);
        return 0;
    });
}

PyObject* newAccessor(PyTypeObject* owner, const Property& property, const char* name, bool setter)
{
    Accessor model{};
    model.owner = owner;
    model.property = &property;
    model.name = name;
    model.setter = setter;
    return newAccessorOn(model, nullptr);
}

bool addAccessorType()
{
    static PyGetSetDef attributes[] = {{"__doc__", &accessorText, nullptr, nullptr, nullptr},
                                       {"__name__", &accessorName, nullptr, nullptr, nullptr},
                                       {"__qualname__", &accessorQualifiedName, nullptr, nullptr, nullptr},
                                       {"__text_signature__", &accessorSignature, nullptr, nullptr, nullptr},
                                       {}};
    static PyType_Slot typeSlots[] = {{Py_tp_dealloc, reinterpret_cast<void*>(&deallocateAccessor)},
                                      {Py_tp_descr_get, reinterpret_cast<void*>(&bindAccessor)},
                                      {Py_tp_call, reinterpret_cast<void*>(&callAccessor)},
                                      {Py_tp_repr, reinterpret_cast<void*>(&accessorRepresentation)},
                                      {Py_tp_traverse, reinterpret_cast<void*>(&visitAccessor)},
                                      {Py_tp_clear, reinterpret_cast<void*>(&clearAccessor)},
                                      {Py_tp_getset, attributes},
                                      {0, nullptr}};
    static PyType_Spec spec = {"brindle.Accessor", sizeof(Accessor), 0,
                               Py_TPFLAGS_DEFAULT | Py_TPFLAGS_DISALLOW_INSTANTIATION | Py_TPFLAGS_HAVE_GC, typeSlots};
    accessorType = reinterpret_cast<PyTypeObject*>(PyType_FromSpec(&spec));
    return accessorType;
}

} // namespace brindle::python
