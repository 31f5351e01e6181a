#include "service/python/references.h"

#include "service/python/interpreter.h"

namespace brindle::python {

namespace {

template <typename Call>
void inInterpreter(Call call)
{
    if (!canEnterInterpreter())
        return;
    if (PyGILState_Check()) {
        call();
        return;
    }
    const InterpreterScope inside;
    call();
}

} // namespace

void addReference(PyObject* object)
{
    inInterpreter([object] { Py_INCREF(object); });
}

void dropReference(PyObject* object)
{
    if (object)
        inInterpreter([object] { Py_DECREF(object); });
}

} // namespace brindle::python
