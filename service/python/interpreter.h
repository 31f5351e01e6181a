#pragma once

#include "service/python/pyref.h"

#include <functional>

/// The interpreter that this library is loaded in: whether it can still be entered, and how a thread gets into it
/// without being caught by its end.
namespace brindle::python {

/// Notes that the interpreter is there, and asks to be told when it is gone. Called when the module is made; false with
/// a Python error raised.
bool interpreterBegins();
/// The interpreter is about to end, on the calling thread, which alone enters it from now on.
void interpreterEnds();
/// Work to be done once the interpreter is gone, on the thread that ended it: at the end of a script, and where
/// sys.exit or an interrupt ends the process. Not in a process whose engine can't be used any more (`EngineGate`).
void setAfterInterpreter(std::function<void()> action);
/// Whether the calling thread may enter the interpreter, or is in it already.
bool canEnterInterpreter();

/// Stays until the process ends. For a thread that the end of the interpreter has caught: what it holds may not be
/// touched without Python's lock, and it never gets that again.
[[noreturn]] void stayForEver() noexcept;

/// Takes Python's lock, as InterpreterScope does. At the end of the interpreter CPython ends a thread that tries, by
/// unwinding it right there; such a thread stays here instead.
void takeLock(PyThreadState* state) noexcept;

/// Native code is inside the interpreter while it lives. Scopes may lie inside each other. It must be possible to enter
/// (`canEnterInterpreter`).
class InterpreterScope {
public:
    InterpreterScope() noexcept;
    InterpreterScope(const InterpreterScope&) = delete;
    InterpreterScope& operator=(const InterpreterScope&) = delete;
    ~InterpreterScope() { PyGILState_Release(m_before); }

private:
    PyGILState_STATE m_before;
};

/// Calls a script's callable with a tuple of arguments. A new reference, or null with a Python error raised.
PyObject* callScript(PyObject* callable, PyObject* arguments) noexcept;

} // namespace brindle::python
