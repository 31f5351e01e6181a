#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include <cstdlib>

// The least that a binding on CPython's own API costs: a type whose objects hold a small record and do nothing
// else. bench/script.py imports it as cpython_floors.

namespace {

struct Record {
    int number;
    double value;
};

struct Wrapper {
    PyObject_HEAD
    Record* record;
};

PyTypeObject* wrapperType = nullptr;

PyObject* makeWrapper()
{
    auto* wrapper = reinterpret_cast<Wrapper*>(wrapperType->tp_alloc(wrapperType, 0));
    if (!wrapper)
        return nullptr;
    wrapper->record = static_cast<Record*>(std::malloc(sizeof(Record)));
    if (!wrapper->record) {
        Py_DECREF(wrapper);
        return PyErr_NoMemory();
    }
    *wrapper->record = {4200, 2.5};
    return reinterpret_cast<PyObject*>(wrapper);
}

Record& recordOf(PyObject* self)
{
    return *reinterpret_cast<Wrapper*>(self)->record;
}

void deallocate(PyObject* self)
{
    PyTypeObject* type = Py_TYPE(self);
    std::free(reinterpret_cast<Wrapper*>(self)->record);
    type->tp_free(self);
    Py_DECREF(type);
}

PyObject* number(PyObject* self, void*)
{
    return PyLong_FromLong(recordOf(self).number);
}

int setNumber(PyObject* self, PyObject* value, void*)
{
    const long number = value ? PyLong_AsLong(value) : 0;
    if (number == -1 && PyErr_Occurred())
        return -1;
    recordOf(self).number = static_cast<int>(number);
    return 0;
}

PyObject* text(PyObject*, void*)
{
    return PyUnicode_FromStringAndSize("Arm", 3);
}

PyObject* child(PyObject*, void*)
{
    return makeWrapper();
}

/// Reads the bytes of the key, as a look-up has to, and makes a new object.
PyObject* item(PyObject*, PyObject* key)
{
    Py_ssize_t size = 0;
    return PyUnicode_AsUTF8AndSize(key, &size) ? makeWrapper() : nullptr;
}

PyObject* valueAt(PyObject* self, PyObject* const* arguments, Py_ssize_t count)
{
    if (count != 1)
        return PyErr_Format(PyExc_TypeError, "value_at takes 1 argument, not %zd", count);
    const long frame = PyLong_AsLong(arguments[0]);
    if (frame == -1 && PyErr_Occurred())
        return nullptr;
    return PyFloat_FromDouble(recordOf(self).value);
}

PyObject* setValue(PyObject* self, PyObject* const* arguments, Py_ssize_t count)
{
    if (count != 2)
        return PyErr_Format(PyExc_TypeError, "set_value takes 2 arguments, not %zd", count);
    const long frame = PyLong_AsLong(arguments[0]);
    const double value = PyFloat_AsDouble(arguments[1]);
    if ((frame == -1 || value == -1.0) && PyErr_Occurred())
        return nullptr;
    recordOf(self).value = value;
    Py_RETURN_NONE;
}

PyObject* call(PyObject*, PyObject*)
{
    Py_RETURN_NONE;
}

PyObject* make(PyTypeObject*, PyObject*, PyObject*)
{
    return makeWrapper();
}

template <typename Function>
PyCFunction method(Function function)
{
    return reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function));
}

PyGetSetDef properties[] = {{"number", &number, &setNumber, "An integer.", nullptr},
                            {"text", &text, nullptr, "A string.", nullptr},
                            {"child", &child, nullptr, "A new object.", nullptr},
                            {nullptr, nullptr, nullptr, nullptr, nullptr}};

PyMethodDef methods[] = {{"call", &call, METH_NOARGS, "Nothing."},
                         {"value_at", method(&valueAt), METH_FASTCALL, "A number for a number."},
                         {"set_value", method(&setValue), METH_FASTCALL, "Takes two numbers."},
                         {nullptr, nullptr, 0, nullptr}};

PyType_Slot typeSlots[] = {{Py_tp_new, reinterpret_cast<void*>(&make)},
                           {Py_tp_dealloc, reinterpret_cast<void*>(&deallocate)},
                           {Py_tp_getset, properties},
                           {Py_tp_methods, methods},
                           {Py_mp_subscript, reinterpret_cast<void*>(&item)},
                           {0, nullptr}};

PyType_Spec spec = {"cpython_floors.Wrapper", sizeof(Wrapper), 0, Py_TPFLAGS_DEFAULT, typeSlots};

PyModuleDef module = {PyModuleDef_HEAD_INIT,
                      "cpython_floors",
                      "What CPython's own API costs.",
                      -1,
                      nullptr,
                      nullptr,
                      nullptr,
                      nullptr,
                      nullptr};

} // namespace

PyMODINIT_FUNC PyInit_cpython_floors();

PyMODINIT_FUNC PyInit_cpython_floors()
{
    PyObject* self = PyModule_Create(&module);
    wrapperType = reinterpret_cast<PyTypeObject*>(PyType_FromSpec(&spec));
    if (!self || !wrapperType || PyModule_AddObjectRef(self, "Wrapper", reinterpret_cast<PyObject*>(wrapperType)) < 0) {
        Py_XDECREF(self);
        return nullptr;
    }
    return self;
}
