#include "service/python/frame/locked.h"

#include "core/frame/threadmanagerstate.h"
#include "service/python/enginegate.h"
#include "service/python/errors.h"

namespace brindle::python {

namespace {

/// Whose turn it is: Python's own lock that its thread may take again, so that waiting for it lets others run. Made at
/// the first use, and there until the interpreter has gone.
PyObject* turn()
{
    static PyObject* lock = nullptr;
    if (!lock) {
        const Ref module(PyImport_ImportModule("_thread"));
        lock = module ? PyObject_CallMethod(module.get(), "RLock", nullptr) : nullptr;
    }
    if (!lock)
        throw PythonError{};
    return lock;
}

Ref callTurn(const char* method)
{
    Ref result(PyObject_CallMethod(turn(), method, nullptr));
    if (!result)
        throw PythonError{};
    EngineGate::enter();
    return result;
}

bool needsNoLock()
{
    return OMC::ThreadManager::getPythonEngine() && OMC::ThreadManager::mainThread();
}

} // namespace

void Locked::enter()
{
    if (needsNoLock())
        return;
    callTurn("acquire");
    try {
        OMC::ThreadManager::instance()->lock();
    } catch (...) {
        callTurn("release");
        throw;
    }
}

void Locked::leave()
{
    if (needsNoLock())
        return;
    if (callTurn("_is_owned").get() != Py_True)
        throw OMC::Exception(QStringLiteral("This thread is in no locked block."));
    OMC::ThreadManagerState::unlockAlsoWithoutProject();
    callTurn("release");
}

} // namespace brindle::python
