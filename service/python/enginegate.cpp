#include "service/python/enginegate.h"

#include "service/python/pyref.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <unistd.h>

namespace brindle::python {

std::atomic<bool> EngineGate::s_blocked = false;
int EngineGate::s_waiting = 0;

namespace {

std::mutex gateMutex;
std::condition_variable gateOpened;

/// Takes Python's lock again. At the end of the interpreter CPython ends the thread right here, by unwinding it; it has
/// nothing left to do, and what it holds may not be touched without the lock, so it stays until the process ends.
void takeLock(PyThreadState* state) noexcept
{
    try {
        PyEval_RestoreThread(state);
    } catch (...) { // not by its class: the unwinding has no object
        for (;;)
            ::pause();
    }
}

} // namespace

EngineGate::Blocking::Blocking()
{
    s_blocked.store(true, std::memory_order_relaxed);
    m_threadState = PyEval_SaveThread();
}

EngineGate::Blocking::~Blocking()
{
    takeLock(static_cast<PyThreadState*>(m_threadState));
    {
        const std::lock_guard lock(gateMutex);
        s_blocked.store(false, std::memory_order_relaxed);
    }
    gateOpened.notify_all();
}

void EngineGate::wait()
{
    ++s_waiting;
    // Another thread may block the engine again between the wake-up and taking Python's lock: look once more then.
    while (s_blocked.load(std::memory_order_relaxed)) {
        PyThreadState* state = PyEval_SaveThread();
        {
            // Let go of ahead of Python's lock: who opens the gate takes the two the other way round.
            std::unique_lock lock(gateMutex);
            gateOpened.wait(lock, [] { return !s_blocked.load(std::memory_order_relaxed); });
        }
        takeLock(state);
    }
    --s_waiting;
}

void EngineGate::waitForTurn()
{
    while (s_waiting > 0 || s_blocked.load(std::memory_order_relaxed)) {
        PyThreadState* state = PyEval_SaveThread();
        std::this_thread::sleep_for(std::chrono::microseconds(20));
        takeLock(state);
    }
}

} // namespace brindle::python
