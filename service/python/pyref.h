#pragma once

#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include <utility>

namespace brindle::python {

/// A counted reference to a Python object, dropped when it goes out of scope. Python's lock must be held.
class Ref {
public:
    Ref() = default;
    /// Takes over a new reference; null stands for a Python error that has been raised.
    explicit Ref(PyObject* owned) : m_object(owned) {}
    Ref(Ref&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    Ref& operator=(Ref&& other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~Ref() { Py_XDECREF(m_object); }

    static Ref borrow(PyObject* object)
    {
        Py_XINCREF(object);
        return Ref(object);
    }

    PyObject* get() const { return m_object; }
    explicit operator bool() const { return m_object; }
    PyObject* release() { return std::exchange(m_object, nullptr); }

private:
    PyObject* m_object = nullptr;
};

} // namespace brindle::python
