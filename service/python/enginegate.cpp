#include "service/python/enginegate.h"

#include "core/frame/exception.h"
#include "service/python/interpreter.h"

#include <QCoreApplication>
#include <QThread>

#include <pthread.h>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace brindle::python {

std::atomic<bool> EngineGate::s_blocked = false;
bool EngineGate::s_cutOff = false;
thread_local bool EngineGate::s_isOperating = false;

namespace {

/// What waiting threads sleep on. Never destroyed: some still do when the process ends.
struct Gate {
    std::mutex mutex;
    std::condition_variable opened;
};

Gate*& currentGate()
{
    static auto* only = new Gate;
    return only;
}

Gate& gate()
{
    return *currentGate();
}

// Read and written with Python's lock held.
int waitingThreads = 0;
int operations = 0;        ///< Blocking operations that let nobody in: one at a time, but for the main thread's.
int waitingForMain = 0;    ///< Those that let the main thread in.
std::thread::id remaining; ///< The one thread that still gets in, once the gate is closed for others.

bool isClosed()
{
    return remaining != std::thread::id();
}

bool isMainThread()
{
    return QCoreApplication::instance() && QCoreApplication::instance()->thread() == QThread::currentThread();
}

} // namespace

EngineGate::Blocking::Blocking(Passing passing) : m_passing(passing)
{
    ++(passing == Passing::MainThread ? waitingForMain : operations);
    if (passing == Passing::Nobody)
        s_isOperating = true;
    settle();
    m_threadState = PyEval_SaveThread();
}

EngineGate::Blocking::~Blocking()
{
    takeLock(static_cast<PyThreadState*>(m_threadState));
    --(m_passing == Passing::MainThread ? waitingForMain : operations);
    if (m_passing == Passing::Nobody)
        s_isOperating = false;
    settle();
    // The main thread, which got in, may be in the middle of an operation of its own.
    if (m_passing == Passing::MainThread)
        enterAgain();
}

void EngineGate::watchForks()
{
    currentGate();
    pthread_atfork(nullptr, nullptr, &afterFork);
}

/// In the process that was forked off: the threads that waited or worked aren't there.
void EngineGate::afterFork()
{
    // Somebody may have held its mutex.
    currentGate() = new Gate;
    s_cutOff = s_cutOff || operations > 0;
    operations = 0;
    waitingForMain = 0;
    waitingThreads = 0;
    settle();
}

void EngineGate::closeForOthers()
{
    remaining = std::this_thread::get_id();
    settle();
}

/// Whether the thread gets in although the engine is blocked.
bool EngineGate::mayPass()
{
    if (isClosed())
        return remaining == std::this_thread::get_id();
    return s_isOperating || (operations == 0 && isMainThread());
}

void EngineGate::settle()
{
    const bool blocked = isClosed() || s_cutOff || operations > 0 || waitingForMain > 0;
    {
        const std::lock_guard lock(gate().mutex);
        s_blocked.store(blocked, std::memory_order_relaxed);
    }
    if (!blocked)
        gate().opened.notify_all();
}

void EngineGate::wait()
{
    if (s_cutOff)
        throw OMC::Exception(std::string("The project can't be used here: this process was forked off while another "
                                         "thread was saving or opening."));
    if (mayPass())
        return;
    ++waitingThreads;
    // Another thread may block the engine again between the wake-up and taking Python's lock: look once more then.
    while (s_blocked.load(std::memory_order_relaxed) && !mayPass()) {
        const bool forEver = isClosed();
        PyThreadState* state = PyEval_SaveThread();
        if (forEver)
            stayForEver();
        {
            // Let go of ahead of Python's lock: who opens the gate takes the two the other way round.
            std::unique_lock lock(gate().mutex);
            // Not without end: what blocks the engine now may let the main thread in.
            gate().opened.wait_for(lock, std::chrono::milliseconds(10),
                                   [] { return !s_blocked.load(std::memory_order_relaxed); });
        }
        takeLock(state);
    }
    --waitingThreads;
}

void EngineGate::waitForTurn()
{
    while (s_blocked.load(std::memory_order_relaxed) ? !mayPass() : waitingThreads > 0) {
        PyThreadState* state = PyEval_SaveThread();
        std::this_thread::sleep_for(std::chrono::microseconds(20));
        takeLock(state);
    }
}

} // namespace brindle::python
