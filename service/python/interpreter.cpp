#include "service/python/interpreter.h"

#include "service/python/enginegate.h"

#include <unistd.h>
#include <atomic>
#include <thread>
#include <utility>

namespace brindle::python {

namespace {

enum class Stage { NotBegun, Running, Ending, Gone };

std::atomic<Stage> stage = Stage::NotBegun;
std::atomic<std::thread::id> endingThread;

/// Never destroyed: the process may be ending already.
std::function<void()>& afterInterpreter()
{
    static auto* action = new std::function<void()>;
    return *action;
}

void interpreterHasGone()
{
    stage.store(Stage::Gone, std::memory_order_release);
    const auto action = std::exchange(afterInterpreter(), nullptr);
    if (action && !EngineGate::isCutOff())
        action();
}

/// Runs what CPython may end the thread in. The unwinding comes without an exception object, so it is known by what it
/// is not: C throws nothing else.
template <typename Call>
auto guardedFromTheEnd(Call call) noexcept
{
    try {
        return call();
    } catch (...) {
        stayForEver();
    }
}

} // namespace

bool interpreterBegins()
{
    if (stage.exchange(Stage::Running, std::memory_order_acq_rel) == Stage::Running)
        return true;
    if (Py_AtExit(&interpreterHasGone) == 0)
        return true;
    PyErr_SetString(PyExc_RuntimeError, "The end of the interpreter can't be watched.");
    return false;
}

void interpreterEnds()
{
    endingThread.store(std::this_thread::get_id(), std::memory_order_relaxed);
    stage.store(Stage::Ending, std::memory_order_release);
}

void setAfterInterpreter(std::function<void()> action)
{
    afterInterpreter() = std::move(action);
}

bool canEnterInterpreter()
{
    switch (stage.load(std::memory_order_acquire)) {
    case Stage::Running:
        return true;
    case Stage::Ending:
        return endingThread.load(std::memory_order_relaxed) == std::this_thread::get_id();
    case Stage::NotBegun:
    case Stage::Gone:
        break;
    }
    return false;
}

void stayForEver() noexcept
{
    for (;;)
        ::pause();
}

void takeLock(PyThreadState* state) noexcept
{
    guardedFromTheEnd([state] { PyEval_RestoreThread(state); });
}

InterpreterScope::InterpreterScope() noexcept : m_before(guardedFromTheEnd([] { return PyGILState_Ensure(); })) {}

PyObject* callScript(PyObject* callable, PyObject* arguments) noexcept
{
    return guardedFromTheEnd([&] { return PyObject_CallObject(callable, arguments); });
}

} // namespace brindle::python
