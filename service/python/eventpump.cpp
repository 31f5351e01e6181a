#include "service/python/eventpump.h"

#include "core/frame/pythonthread.h"
#include "core/host/application.h"
#include "service/python/enginegate.h"
#include "service/python/errors.h"

#include <chrono>
#include <thread>

namespace brindle::python {

namespace {

constexpr auto step = std::chrono::milliseconds(5);

/// Whether threads other than this one keep the interpreter from ending, as Python's module of threads tells.
bool askForThreads()
{
    const Ref module(PyImport_ImportModule("threading"));
    const Ref enumerated(module ? PyObject_CallMethod(module.get(), "enumerate", nullptr) : nullptr);
    const Ref threads(enumerated ? PySequence_List(enumerated.get()) : nullptr);
    const Ref own(threads ? PyObject_CallMethod(module.get(), "current_thread", nullptr) : nullptr);
    if (!own)
        throw PythonError{};
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(threads.get()); ++i) {
        PyObject* thread = PyList_GET_ITEM(threads.get(), i);
        const Ref isDaemon(PyObject_GetAttrString(thread, "daemon"));
        if (!isDaemon)
            throw PythonError{};
        if (thread != own.get() && isDaemon.get() != Py_True)
            return true;
    }
    return false;
}

/// The same; that they don't where the script has made the module say nothing of the kind, which is printed. Python
/// still waits for them then.
bool threadsWork()
{
    try {
        return askForThreads();
    } catch (const PythonError&) {
        if (!PyErr_ExceptionMatches(PyExc_Exception))
            throw;
        PyErr_WriteUnraisable(nullptr);
        return false;
    }
}

PyObject* pump(PyObject*, PyObject*)
{
    return guarded([]() -> PyObject* {
        while (threadsWork()) {
            EngineGate::enter();
            BUIAPP_Application::processEventsNoAppLock(true);
            {
                const OMC::PythonThreadScope others;
                std::this_thread::sleep_for(step);
            }
            // The person may interrupt it.
            if (PyErr_CheckSignals() < 0)
                throw PythonError{};
        }
        Py_RETURN_NONE;
    });
}

} // namespace

void pumpEventsAtTheEnd()
{
    static PyMethodDef definition = {"_pump_events", &pump, METH_NOARGS, nullptr};
    const Ref callable(PyCFunction_New(&definition, nullptr));
    // Functions registered there are called when the main thread has come to its end, ahead of joining the others.
    const Ref module(callable ? PyImport_ImportModule("threading") : nullptr);
    const Ref done(module ? PyObject_CallMethod(module.get(), "_register_atexit", "O", callable.get()) : nullptr);
    if (!done)
        PyErr_WriteUnraisable(callable.get());
}

} // namespace brindle::python
