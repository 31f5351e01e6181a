#include "service/python/sleeper.h"

#include "service/python/interpreter.h"

#include <new>

namespace brindle::python {

Sleeper::Sleeper() : m_lock(PyThread_allocate_lock())
{
    if (!m_lock)
        throw std::bad_alloc();
    PyThread_acquire_lock(m_lock, NOWAIT_LOCK);
}

Sleeper::~Sleeper()
{
    PyThread_free_lock(m_lock);
}

void Sleeper::sleep() noexcept
{
    PyThreadState* state = PyEval_SaveThread();
    PyThread_acquire_lock(m_lock, WAIT_LOCK);
    takeLock(state);
}

bool Sleeper::sleepUnlessInterrupted()
{
    for (;;) {
        PyThreadState* state = PyEval_SaveThread();
        const PyLockStatus status = PyThread_acquire_lock_timed(m_lock, -1, 1);
        takeLock(state);
        if (status == PY_LOCK_ACQUIRED)
            return true;
        if (PyErr_CheckSignals() < 0)
            return false;
    }
}

void Sleeper::call()
{
    PyThread_release_lock(m_lock);
}

} // namespace brindle::python
