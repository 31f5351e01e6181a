#include "service/python/valueprotocol.h"

#include "service/python/types.h"

#include <cstring>
#include <memory>

namespace brindle::python {

namespace {

/// A new reference, or the Python error that stands in its place.
Ref checked(PyObject* object)
{
    if (!object)
        throw PythonError{};
    return Ref(object);
}

/// The public members of a class, those of its base class first.
std::vector<const Member*> membersOf(PyTypeObject* type)
{
    std::vector<const Member*> members;
    const ClassTable& table = tableOf(type);
    if (const QMetaObject* base = table.metaObject->superClass(); base != &QObject::staticMetaObject)
        members = membersOf(typeFor(base).type);
    for (const Member& member : table.members)
        members.push_back(&member);
    return members;
}

/// What the object is made of, as a tuple.
Ref stateOf(PyObject* self)
{
    const ClassTable& table = tableOf(Py_TYPE(self));
    if (table.state.read)
        return checked(PySequence_Tuple(checked(toPython(table.state.read(objectOf(self)))).get()));
    const std::vector<const Member*> members = membersOf(Py_TYPE(self));
    Ref state = checked(PyTuple_New(static_cast<Py_ssize_t>(members.size())));
    Py_ssize_t index = 0;
    for (const Member* member : members)
        PyTuple_SET_ITEM(state.get(), index++, checked(member->get(self, nullptr)).release());
    return state;
}

/// A number as a script would write it: the shortest text that reads as the same number, without a ".0".
std::string textOf(PyObject* number)
{
    if (PyFloat_Check(number)) {
        const std::unique_ptr<char, decltype(&PyMem_Free)> text(
            PyOS_double_to_string(PyFloat_AS_DOUBLE(number), 'r', 0, 0, nullptr), &PyMem_Free);
        if (!text)
            throw PythonError{};
        return text.get();
    }
    const Ref text = checked(PyObject_Repr(number));
    const char* characters = PyUnicode_AsUTF8(text.get());
    if (!characters)
        throw PythonError{};
    return characters;
}

/// The module's function that pickles name; it lives as long as the process, as types do.
PyObject* rebuildFunction()
{
    static PyObject* const function = [] {
        const Ref module = checked(PyImport_ImportModule("brindle._brindle"));
        return checked(PyObject_GetAttrString(module.get(), "_rebuild")).release();
    }();
    return function;
}

PyObject* reduce(PyObject* self, PyObject*)
{
    return guarded([&]() -> PyObject* {
        const Ref state = stateOf(self);
        PyTypeObject* type = Py_TYPE(self);
        if (type == typeFor(objectOf(self)->metaObject()).type)
            return Py_BuildValue("O(OO)", rebuildFunction(), type, state.get());
        // What a script's own class adds: None, a dict, or a dict and the values of its slots.
        const Ref additions = checked(PyObject_CallMethod(self, "__getstate__", nullptr));
        return Py_BuildValue("O(OO)O", rebuildFunction(), type, state.get(), additions.get());
    });
}

} // namespace

const PyMethodDef reduceMethod = {"__reduce__", &reduce, METH_NOARGS, nullptr};

bool isValueType(PyTypeObject* type)
{
    return tableOf(type).state.read || !membersOf(type).empty();
}

PyObject* valueRepresentation(PyObject* self)
{
    return guarded([&]() -> PyObject* {
        if (tableOf(Py_TYPE(self)).state.read)
            return toPython(objectOf(self)->__str__());
        const char* name = Py_TYPE(self)->tp_name;
        if (const char* dot = std::strrchr(name, '.'))
            name = dot + 1;
        std::string text = name;
        const char* before = "(";
        for (const Member* member : membersOf(Py_TYPE(self))) {
            text += before + textOf(checked(member->get(self, nullptr)).get());
            before = ", ";
        }
        return toPython(text + ")");
    });
}

PyObject* rebuildValue(PyObject* cls, PyObject* state)
{
    PyTypeObject* type = PyType_Check(cls) ? reinterpret_cast<PyTypeObject*>(cls) : nullptr;
    if (!type || !PyType_IsSubtype(type, typeFor(&OMC::BaseObject::staticMetaObject).type) || !isValueType(type))
        throwArgument(0, "a value class", cls);
    if (!PyTuple_Check(state))
        throwArgument(1, "tuple", state);
    const ClassTable& table = tableOf(type);
    const TypeEntry entry = {type, &table.operators};
    if (table.state.rebuild) {
        const HeldItems held;
        return adopt(entry, table.state.rebuild(variantFrom(state).toList()));
    }
    const std::vector<const Member*> members = membersOf(type);
    if (PyTuple_GET_SIZE(state) != static_cast<Py_ssize_t>(members.size()))
        throwArgument(1, "a tuple with a number for each member", state);
    Ref value(adopt(entry, table.construct({nullptr, 0, nullptr})));
    Py_ssize_t index = 0;
    for (const Member* member : members) {
        if (member->set(value.get(), PyTuple_GET_ITEM(state, index++), nullptr) < 0)
            throw PythonError{};
    }
    return value.release();
}

} // namespace brindle::python
