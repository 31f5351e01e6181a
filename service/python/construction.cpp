#include "service/python/construction.h"

#include "service/python/types.h"

namespace brindle::python {

namespace {

/// A new object of a class, or of one that a script derived from it.
PyObject* construct(PyTypeObject* type, const CallArguments& call)
{
    return guarded([&]() -> PyObject* {
        const ClassTable& table = tableOf(type);
        if (!table.construct)
            throwTypeError("%s objects are got from the project, not made", table.name);
        return adopt({type, &table.operators}, table.construct(call));
    });
}

/// Whether a script has given a class of this module another way to make its objects.
bool isMadeAnew(PyTypeObject* type)
{
    return type->tp_new != &newObject || type->tp_init != PyBaseObject_Type.tp_init;
}

} // namespace

PyObject* newObject(PyTypeObject* type, PyObject* arguments, PyObject* keywords)
{
    // The tuple stays as it is; the dict may not, once the script's own code gives a number.
    std::vector<PyObject*> values(&PyTuple_GET_ITEM(arguments, 0),
                                  &PyTuple_GET_ITEM(arguments, 0) + PyTuple_GET_SIZE(arguments));
    std::vector<Ref> named;
    Ref names;
    if (keywords && PyDict_GET_SIZE(keywords) > 0) {
        names = Ref(PyTuple_New(PyDict_GET_SIZE(keywords)));
        if (!names)
            return nullptr;
        Py_ssize_t position = 0;
        Py_ssize_t index = 0;
        PyObject* key = nullptr;
        PyObject* value = nullptr;
        while (PyDict_Next(keywords, &position, &key, &value)) {
            Py_INCREF(key);
            PyTuple_SET_ITEM(names.get(), index++, key);
            values.push_back(named.emplace_back(Ref::borrow(value)).get());
        }
    }
    return construct(type, {values.data(), PyTuple_GET_SIZE(arguments), names.get()});
}

PyObject* callType(PyObject* callable, PyObject* const* values, std::size_t flaggedCount, PyObject* names)
{
    auto* type = reinterpret_cast<PyTypeObject*>(callable);
    const Py_ssize_t count = PyVectorcall_NARGS(flaggedCount);
    if (!isMadeAnew(type))
        return construct(type, {values, count, names});
    const Ref arguments(PyTuple_New(count));
    const Ref keywords(names ? PyDict_New() : nullptr);
    if (!arguments || (names && !keywords))
        return nullptr;
    for (Py_ssize_t i = 0; i < count; ++i)
        PyTuple_SET_ITEM(arguments.get(), i, Ref::borrow(values[i]).release());
    for (Py_ssize_t i = 0; names && i < PyTuple_GET_SIZE(names); ++i) {
        if (PyDict_SetItem(keywords.get(), PyTuple_GET_ITEM(names, i), values[count + i]) < 0)
            return nullptr;
    }
    return PyType_Type.tp_call(callable, arguments.get(), keywords.get());
}

} // namespace brindle::python
