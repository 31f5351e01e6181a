#include "service/python/enginegate.h"

#include "service/python/pyref.h"

#include <condition_variable>
#include <mutex>

namespace brindle::python {

std::atomic<bool> EngineGate::s_blocked = false;

namespace {

std::mutex gateMutex;
std::condition_variable gateOpened;

} // namespace

EngineGate::Blocking::Blocking()
{
    s_blocked.store(true, std::memory_order_relaxed);
    m_threadState = PyEval_SaveThread();
}

EngineGate::Blocking::~Blocking()
{
    PyEval_RestoreThread(static_cast<PyThreadState*>(m_threadState));
    {
        const std::lock_guard lock(gateMutex);
        s_blocked.store(false, std::memory_order_relaxed);
    }
    gateOpened.notify_all();
}

void EngineGate::wait()
{
    // Another thread may block the engine again between the wake-up and taking Python's lock: look once more then.
    while (s_blocked.load(std::memory_order_relaxed)) {
        Py_BEGIN_ALLOW_THREADS
        {
            // Let go of ahead of Python's lock: who opens the gate takes the two the other way round.
            std::unique_lock lock(gateMutex);
            gateOpened.wait(lock, [] { return !s_blocked.load(std::memory_order_relaxed); });
        }
        Py_END_ALLOW_THREADS
    }
}

} // namespace brindle::python
