#include "service/python/valueprotocol.h"

#include "service/python/enginecall.h"
#include "service/python/types.h"

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

/// The state of the object, as a tuple.
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

std::string textOf(PyObject* number)
{
    if (PyFloat_Check(number))
        return numberText(PyFloat_AS_DOUBLE(number));
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
        // The state that a script's own class adds: None, a dict, or a dict and the values of its slots.
        const Ref additions = checked(PyObject_CallMethod(self, "__getstate__", nullptr));
        return Py_BuildValue("O(OO)O", rebuildFunction(), type, state.get(), additions.get());
    });
}

/// What the class of an object, or a base class, says of copying it; null where none does.
const char* copyHintFor(PyTypeObject* type)
{
    const ClassTable* table = &tableOf(type);
    while (!table->copyHint && table->metaObject != &OMC::BaseObject::staticMetaObject)
        table = &tableOf(typeFor(table->metaObject->superClass()).type);
    return table->copyHint;
}

PyObject* refuse(PyObject* self, PyObject*)
{
    return guarded([&]() -> PyObject* {
        const char* hint = copyHintFor(Py_TYPE(self));
        throwTypeError("Python can neither copy nor pickle this %s%s%s.", shortName(Py_TYPE(self)->tp_name).c_str(),
                       hint ? "; " : "", hint ? hint : "");
    });
}

} // namespace

const PyMethodDef reduceMethod = {"__reduce__", &reduce, METH_NOARGS,
                                  "__reduce__($self, /)\n--\n\nHow copy and pickle make an equal object."};

const PyMethodDef refuseMethod = {"__reduce__", &refuse, METH_NOARGS,
                                  "__reduce__($self, /)\n--\n\nFails: the object is neither copied nor pickled."};

bool isValueType(PyTypeObject* type)
{
    return tableOf(type).state.read || !membersOf(type).empty();
}

PyObject* valueRepresentation(PyObject* self)
{
    return guarded([&]() -> PyObject* {
        const std::string type = Py_TYPE(self)->tp_name;
        if (const auto represent = tableOf(Py_TYPE(self)).state.represent)
            return toPython(represent(objectOf(self), type));
        std::string text = shortName(type);
        const char* before = "(";
        for (const Member* member : membersOf(Py_TYPE(self))) {
            text += before + textOf(checked(member->get(self, nullptr)).get());
            before = ", ";
        }
        return toPython(text + ")");
    });
}

std::string numberText(double number)
{
    const std::unique_ptr<char, decltype(&PyMem_Free)> text(PyOS_double_to_string(number, 'r', 0, 0, nullptr),
                                                            &PyMem_Free);
    if (!text)
        throw PythonError{};
    return text.get();
}

std::string shortName(const std::string& type)
{
    return type.substr(type.rfind('.') + 1);
}

PyObject* rebuildValue(PyObject* cls, PyObject* state)
{
    PyTypeObject* type = PyType_Check(cls) ? reinterpret_cast<PyTypeObject*>(cls) : nullptr;
    if (!type || !PyType_IsSubtype(type, typeFor(&OMC::BaseObject::staticMetaObject).type) || !isValueType(type))
        throw Misfit{0, "a value class", cls};
    if (!PyTuple_Check(state))
        throw Misfit{1, "tuple", state};
    const ClassTable& table = tableOf(type);
    const TypeEntry entry = {type, &table.operators};
    if (table.state.rebuild) {
        return convertAndCall([state] { return variantFrom(state); },
                              [&](const QVariant& read) { return adopt(entry, table.state.rebuild(read.toList())); });
    }
    const std::vector<const Member*> members = membersOf(type);
    if (PyTuple_GET_SIZE(state) != static_cast<Py_ssize_t>(members.size()))
        throw Misfit{1, "a tuple with a number for each member", state};
    Ref value(adopt(entry, table.construct({nullptr, 0, nullptr})));
    Py_ssize_t index = 0;
    for (const Member* member : members) {
        if (member->set(value.get(), PyTuple_GET_ITEM(state, index++), const_cast<char*>(member->name)) < 0)
            throw PythonError{};
    }
    return value.release();
}

} // namespace brindle::python
