#include "service/python/operators.h"

#include <cstdlib>
#include <limits>

namespace brindle::python {

namespace {

/// Goes through the copy of a list that `__iter__` gave.
struct Iterator {
    PyObject_HEAD
    PyObject* list;
};

PyTypeObject* iteratorType = nullptr;

const Operators& operatorsOf(PyObject* self)
{
    return *reinterpret_cast<Wrapper*>(self)->operators;
}

Py_ssize_t length(PyObject* self)
{
    // A list whose size is -1, which Python's len() doesn't know, has no items.
    return guarded([&] { return std::max<Py_ssize_t>(operatorsOf(self).length(objectOf(self)), 0); });
}

/// The bound of a slice as Python counts, from 0. From the end it is negative and stays so; ahead of the first item it
/// is beyond the end of a way back.
Py_ssize_t boundFromZero(Py_ssize_t bound, Py_ssize_t first, Py_ssize_t step)
{
    if (bound < 0)
        return bound;
    if (bound < first)
        return step < 0 ? PY_SSIZE_T_MIN : 0;
    return bound - first;
}

/// The items of a slice, as a new list. Its bounds are indexes as a single item has them.
PyObject* itemsOf(PyObject* self, PyObject* slice)
{
    const Operators& operators = operatorsOf(self);
    Py_ssize_t start = 0;
    Py_ssize_t stop = 0;
    Py_ssize_t step = 0;
    if (!operators.length || !operators.itemByIndex)
        throw Misfit{0, "an index", slice};
    if (PySlice_Unpack(slice, &start, &stop, &step) < 0)
        throw PythonError{};
    const Py_ssize_t first = operators.firstIndex;
    start = boundFromZero(start, first, step);
    stop = boundFromZero(stop, first, step);
    const Py_ssize_t count = PySlice_AdjustIndices(operators.length(objectOf(self)), &start, &stop, step);
    Ref items(PyList_New(0));
    for (Py_ssize_t i = 0; items && i < count; ++i) {
        const Ref item(operators.itemByIndex(objectOf(self), static_cast<int>(first + start + i * step)));
        if (PyList_Append(items.get(), item.get()) < 0)
            throw PythonError{};
    }
    return items.release();
}

PyObject* subscript(PyObject* self, PyObject* key)
{
    return guarded([&]() -> PyObject* {
        const Operators& operators = operatorsOf(self);
        if (PyUnicode_Check(key) && operators.itemByKey)
            return convertAndCall([key] { return stringFrom(key); },
                                  [&](const QString& text) { return operators.itemByKey(heldObject(self), text); });
        if (PyIndex_Check(key) && operators.itemByIndex)
            return convertAndCall([key] { return From<int>::read(key, 0); },
                                  [&](int index) { return operators.itemByIndex(heldObject(self), index); });
        if (PySlice_Check(key) && !operators.isNumbered)
            return itemsOf(self, key);
        throw Misfit{0, operators.itemByKey ? "int or str" : "int", key};
    });
}

/// Writes the items of a slice. It may lie behind the last item, but has as many places as there are values.
void assignSlice(PyObject* self, PyObject* slice, PyObject* values)
{
    const Operators& operators = operatorsOf(self);
    const Py_ssize_t count = PyUnicode_Check(values) ? -1 : PySequence_Size(values);
    if (count < 0) {
        PyErr_Clear();
        throw Misfit{1, "a sequence", values};
    }
    Py_ssize_t start = 0;
    Py_ssize_t stop = 0;
    Py_ssize_t step = 0;
    if (PySlice_Unpack(slice, &start, &stop, &step) < 0)
        throw PythonError{};
    const auto* parts = reinterpret_cast<PySliceObject*>(slice);
    const Py_ssize_t end = operators.firstIndex + operators.length(objectOf(self));
    if (start < 0)
        start += end;
    if (parts->start == Py_None)
        start = step > 0 ? operators.firstIndex : end - 1;
    if (stop < 0 && parts->stop != Py_None)
        stop += end;
    constexpr Py_ssize_t most = std::numeric_limits<int>::max();
    if (start < operators.firstIndex || start > most || step > most || step < -most)
        throwTypeError("The slice lies outside of %s", Py_TYPE(self)->tp_name);
    if (parts->stop != Py_None) {
        const Py_ssize_t distance = step > 0 ? stop - start : start - stop;
        const Py_ssize_t size = std::abs(step);
        const Py_ssize_t places = distance <= 0 ? 0 : (distance - 1) / size + 1;
        if (places != count) {
            PyErr_Format(PyExc_ValueError, "attempt to assign sequence of size %zd to slice of size %zd", count,
                         places);
            throw PythonError{};
        }
    }
    operators.setSlice(self, start, step, values);
}

int assignSubscript(PyObject* self, PyObject* key, PyObject* value)
{
    return guarded([&] {
        if (!value)
            throwTypeError("Items of %s can't be deleted", Py_TYPE(self)->tp_name);
        if (PySlice_Check(key) && operatorsOf(self).setSlice) {
            assignSlice(self, key, value);
            return 0;
        }
        if (!PyIndex_Check(key) && !PyUnicode_Check(key))
            throw Misfit{0, "an index", key};
        operatorsOf(self).setItem(self, key, value);
        return 0;
    });
}

/// Looks for a value by going through the list.
bool isAmongItems(PyObject* self, PyObject* value)
{
    const Ref iterator(PyObject_GetIter(self));
    if (!iterator)
        throw PythonError{};
    while (Ref item{PyIter_Next(iterator.get())}) {
        const int equal = PyObject_RichCompareBool(item.get(), value, Py_EQ);
        if (equal < 0)
            throw PythonError{};
        if (equal)
            return true;
    }
    if (PyErr_Occurred())
        throw PythonError{};
    return false;
}

int contains(PyObject* self, PyObject* value)
{
    return guarded([&]() -> int {
        const Operators& operators = operatorsOf(self);
        if (operators.containsTextOnly && operators.holds && isWrapper(value))
            return operators.holds(objectOf(self), *heldObject(value));
        if (operators.containsTextOnly && !PyUnicode_Check(value))
            return isAmongItems(self, value);
        return operators.contains(self, value);
    });
}

PyObject* call(PyObject* self, PyObject* arguments, PyObject* names)
{
    return guarded([&]() -> PyObject* {
        if (PyTuple_GET_SIZE(arguments) != 1 || (names && PyDict_GET_SIZE(names) > 0))
            throwTypeError("%s takes one argument", Py_TYPE(self)->tp_name);
        PyObject* key = PyTuple_GET_ITEM(arguments, 0);
        if (!PyUnicode_Check(key))
            throw Misfit{0, "str", key};
        return convertAndCall([key] { return stringFrom(key); },
                              [self](const QString& text) { return operatorsOf(self).call(heldObject(self), text); });
    });
}

PyObject* callMethodOf(PyObject* self, PyObject* arguments, PyObject* names)
{
    const Ref method(PyObject_GetAttrString(self, operatorsOf(self).calledMethod));
    return method ? PyObject_Call(method.get(), arguments, names) : nullptr;
}

PyObject* iterate(PyObject* self)
{
    return guarded([&]() -> PyObject* {
        Ref list(operatorsOf(self).iterate(objectOf(self)));
        // A class that leaves the protocol alone is an empty sequence.
        if (list.get() == Py_None)
            return PyObject_GetIter(Ref(PyTuple_New(0)).get());
        auto* iterator = PyObject_New(Iterator, iteratorType);
        if (!iterator)
            throw PythonError{};
        iterator->list = list.release();
        return reinterpret_cast<PyObject*>(iterator);
    });
}

PyObject* next(PyObject* self)
{
    return guarded([&] {
        PyObject* list = reinterpret_cast<Iterator*>(self)->list;
        return operatorsOf(list).next(objectOf(list));
    });
}

void deallocateIterator(PyObject* self)
{
    PyTypeObject* type = Py_TYPE(self);
    Py_XDECREF(reinterpret_cast<Iterator*>(self)->list);
    PyObject_Free(self);
    Py_DECREF(type);
}

PyObject* compare(PyObject* self, PyObject* other, int operation)
{
    return guarded([&]() -> PyObject* {
        if (operation != Py_EQ && operation != Py_NE)
            Py_RETURN_NOTIMPLEMENTED;
        const Operators& operators = operatorsOf(self);
        // An object of another class that takes any value decides, so that a == b is b == a.
        const bool otherDecides = !operators.equalsValues && isWrapper(other) && operatorsOf(other).equalsValues;
        const std::optional<bool> equal = otherDecides ? std::nullopt : operators.equals(self, other);
        if (!equal)
            Py_RETURN_NOTIMPLEMENTED;
        return toPython(*equal == (operation == Py_EQ));
    });
}

PyObject* text(PyObject* self)
{
    return guarded([&] { return toPython(objectOf(self)->__str__()); });
}

int isTrue(PyObject*)
{
    return 1;
}

/// Never fails: a repr is what a person sees of an object that has gone, too.
PyObject* representation(PyObject* self)
{
    const char* type = Py_TYPE(self)->tp_name;
    const auto shown = operatorsOf(self).shown;
    const Ref description(shown ? guarded([&] { return toPython(shown(objectOf(self))); }) : text(self));
    if (description)
        return PyUnicode_FromFormat("<%s: %U>", type, description.get());
    PyErr_Clear();
    return PyUnicode_FromFormat("<%s, no longer valid>", type);
}

/// Adds the names that Python itself lists of an object: its type's, and those that a script put on it.
void addNativeNames(PyObject* names, PyObject* self)
{
    const Ref native(PyObject_CallMethod(reinterpret_cast<PyObject*>(&PyBaseObject_Type), "__dir__", "O", self));
    const Ref list(native ? PySequence_List(native.get()) : nullptr);
    if (!list)
        throw PythonError{};
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(list.get()); ++i) {
        if (PyDict_SetItem(names, PyList_GET_ITEM(list.get(), i), Py_None) < 0)
            throw PythonError{};
    }
}

bool isShown(const OMC::BaseObject& object, PyObject* name)
{
    Py_ssize_t size = 0;
    const char* utf8 = PyUnicode_AsUTF8AndSize(name, &size);
    if (!utf8) {
        // A name that is no text is the script's own.
        PyErr_Clear();
        return true;
    }
    std::string text(utf8, static_cast<std::size_t>(size));
    return object.filterDir(text);
}

PyObject* directory(PyObject* self, PyObject*)
{
    return guarded([&]() -> PyObject* {
        const OMC::BaseObject* object = objectOf(self);
        bool extendNative = false;
        bool filter = false;
        const std::vector<std::string> properties = object->getDir(extendNative, filter);
        // A dict has each name once, and in order.
        const Ref names(PyDict_New());
        const Ref shown(PyList_New(0));
        if (!names || !shown)
            throw PythonError{};
        for (const std::string& property : properties) {
            if (PyDict_SetItemString(names.get(), property.c_str(), Py_None) < 0)
                throw PythonError{};
        }
        if (extendNative)
            addNativeNames(names.get(), self);
        PyObject* name = nullptr;
        for (Py_ssize_t position = 0; PyDict_Next(names.get(), &position, &name, nullptr);) {
            if ((!filter || isShown(*object, name)) && PyList_Append(shown.get(), name) < 0)
                throw PythonError{};
        }
        return Ref::borrow(shown.get()).release();
    });
}

PyObject* keys(PyObject* self, PyObject*)
{
    return guarded([&] { return toPython(operatorsOf(self).keys(objectOf(self))); });
}

} // namespace

const PyMethodDef directoryMethod = {
    "__dir__", &directory, METH_NOARGS,
    "__dir__($self, /)\n--\n\nThe names that the object lets show; accessors of properties are left out."};

const PyMethodDef keysMethod = {"_ipython_key_completions_", &keys, METH_NOARGS,
                                "_ipython_key_completions_($self, /)\n--\n\nThe keys of the items, for a completer."};

std::vector<PyType_Slot> operatorSlots(const Operators& operators)
{
    std::vector<PyType_Slot> slotList = {{Py_tp_str, reinterpret_cast<void*>(&text)},
                                         {Py_tp_repr, reinterpret_cast<void*>(&representation)}};
    const auto add = [&](bool has, int slot, auto function) {
        if (has)
            slotList.push_back({slot, reinterpret_cast<void*>(function)});
    };
    add(operators.length, Py_mp_length, &length);
    add(operators.length, Py_sq_length, &length);
    add(operators.itemByIndex || operators.itemByKey, Py_mp_subscript, &subscript);
    add(operators.setItem, Py_mp_ass_subscript, &assignSubscript);
    add(operators.contains, Py_sq_contains, &contains);
    add(operators.call, Py_tp_call, &call);
    add(operators.calledMethod, Py_tp_call, &callMethodOf);
    add(operators.next, Py_tp_iter, &iterate);
    add(operators.equals, Py_tp_richcompare, &compare);
    add(operators.alwaysTrue, Py_nb_bool, &isTrue);
    return slotList;
}

bool addIteratorType()
{
    static PyType_Slot typeSlots[] = {{Py_tp_dealloc, reinterpret_cast<void*>(&deallocateIterator)},
                                      {Py_tp_iter, reinterpret_cast<void*>(&PyObject_SelfIter)},
                                      {Py_tp_iternext, reinterpret_cast<void*>(&next)},
                                      {0, nullptr}};
    static PyType_Spec spec = {"brindle.Iterator", sizeof(Iterator), 0,
                               Py_TPFLAGS_DEFAULT | Py_TPFLAGS_DISALLOW_INSTANTIATION, typeSlots};
    iteratorType = reinterpret_cast<PyTypeObject*>(PyType_FromSpec(&spec));
    return iteratorType;
}

} // namespace brindle::python
