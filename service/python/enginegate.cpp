#include "service/python/enginegate.h"

#include "core/frame/exception.h"
#include "service/python/interpreter.h"
#include "service/python/sleeper.h"

#include <QCoreApplication>
#include <QThread>

#include <pthread.h>
#include <algorithm>
#include <deque>
#include <thread>

namespace brindle::python {

std::atomic<bool> EngineGate::s_blocked = false;
bool EngineGate::s_cutOff = false;

namespace {

bool isMainThread()
{
    return QCoreApplication::instance() && QCoreApplication::instance()->thread() == QThread::currentThread();
}

/// The purpose for which a thread waits in the line. The last two go ahead of the others: they are in the middle of a
/// call.
enum class Wish {
    Call,         ///< To begin a call.
    Turn,         ///< To begin an operation.
    GoOn,         ///< To go on with a call.
    BackFromMain, ///< To go on behind WaitForMainThread, which still keeps out all but the main thread.
};

struct Waiter {
    Wish wish;
    bool isMain = isMainThread();
    Sleeper sleeper{};
};

/// The state of the gate. Read and written with Python's lock held.
struct Gate {
    std::deque<Waiter*> line;
    bool arriving = false;     ///< One of the line has been let in, and waits for Python's lock.
    bool turnTaken = false;    ///< An operation has its turn.
    int operations = 0;        ///< Threads at work inside the engine: one, and what is nested in it.
    int waitingForMain = 0;    ///< Threads in WaitForMainThread.
    std::thread::id remaining; ///< The one thread that still gets in, once the gate is closed for others.

    bool isClosed() const { return remaining != std::thread::id(); }
    bool isAheadOfLine(const Waiter& waiter) const
    {
        return waiter.wish == Wish::GoOn || waiter.wish == Wish::BackFromMain || (waiter.isMain && waitingForMain > 0);
    }
    bool maySendIn(const Waiter& waiter) const;
    void sendNext();
    void waitFor(Wish wish, bool again);
};

/// Never destroyed: threads may stand in line when the process ends.
Gate& gate()
{
    static auto* only = new Gate;
    return *only;
}

/// How many operations of the calling thread are at work: those inside others are calls of scripts that native code
/// made.
thread_local int ownOperations = 0;

bool Gate::maySendIn(const Waiter& waiter) const
{
    if (isClosed() || arriving || operations > 0)
        return false;
    if (waiter.wish == Wish::BackFromMain || (waiter.isMain && waitingForMain > 0))
        return true;
    return waitingForMain == 0 && (waiter.wish == Wish::GoOn || !turnTaken);
}

/// Lets in who is next, if that can be now. Called where anything has changed.
void Gate::sendNext()
{
    auto next = std::find_if(line.begin(), line.end(),
                             [this](const Waiter* waiter) { return isAheadOfLine(*waiter) && maySendIn(*waiter); });
    if (next == line.end())
        next = std::find_if(line.begin(), line.end(), [this](const Waiter* waiter) { return !isAheadOfLine(*waiter); });
    if (next == line.end() || !maySendIn(**next))
        return;
    arriving = true;
    (*next)->sleeper.call();
    line.erase(next);
}

/// Stands in line until the thread is let in. Others may have come before it got Python's lock, so it looks at the gate
/// once more then, and keeps its place (`again`) where it can't go on.
void Gate::waitFor(Wish wish, bool again)
{
    Waiter waiter{wish};
    line.insert(again ? line.begin() : line.end(), &waiter);
    sendNext();
    waiter.sleeper.sleep();
    arriving = false;
}

/// Whether the calling thread gets in although the engine is blocked.
bool mayPass()
{
    const Gate& current = gate();
    if (current.isClosed())
        return current.remaining == std::this_thread::get_id();
    return ownOperations > 0 || (current.operations == 0 && current.waitingForMain > 0 && isMainThread());
}

} // namespace

EngineGate::Outside::Outside(Reason reason) : m_reason(reason)
{
    if (reason == Working) {
        ++gate().operations;
        ++ownOperations;
    } else {
        ++gate().waitingForMain;
    }
    settle();
    m_threadState = PyEval_SaveThread();
}

EngineGate::Outside::~Outside()
{
    takeLock(static_cast<PyThreadState*>(m_threadState));
    Gate& current = gate();
    if (m_reason == Working) {
        --current.operations;
        --ownOperations;
    } else {
        // The main thread, which got in, may be in the middle of an operation of its own.
        while (current.operations > 0 && ownOperations == 0)
            current.waitFor(Wish::BackFromMain, true);
        --current.waitingForMain;
    }
    settle();
}

EngineGate::Operation::Operation()
{
    enter();
    Gate& current = gate();
    if (ownOperations > 0 || current.isClosed())
        return;
    for (bool again = false;; again = true) {
        if (current.operations == 0 && !current.arriving) {
            if (current.waitingForMain > 0 && isMainThread())
                return;
            if (current.waitingForMain == 0 && !current.turnTaken && (again || current.line.empty()))
                break;
        }
        current.waitFor(Wish::Turn, again);
    }
    current.turnTaken = true;
    m_hasTurn = true;
}

EngineGate::Operation::~Operation()
{
    if (!m_hasTurn)
        return;
    gate().turnTaken = false;
    gate().sendNext();
}

void EngineGate::enterAgain() noexcept
{
    Gate& current = gate();
    if (s_cutOff || !s_blocked.load(std::memory_order_relaxed) || mayPass())
        return;
    while (s_blocked.load(std::memory_order_relaxed) && !mayPass())
        current.waitFor(Wish::GoOn, true);
    current.sendNext();
}

void EngineGate::wait()
{
    if (s_cutOff)
        throw OMC::Exception(std::string("The project can't be used here: this process was forked off while another "
                                         "thread was saving or opening."));
    if (mayPass())
        return;
    gate().waitFor(Wish::Call, false);
    enterAgain();
    gate().sendNext();
}

/// Called where anything has changed that blocks the engine.
void EngineGate::settle()
{
    Gate& current = gate();
    const bool blocked = current.isClosed() || s_cutOff || current.operations > 0 || current.waitingForMain > 0;
    s_blocked.store(blocked, std::memory_order_relaxed);
    current.sendNext();
}

void EngineGate::closeForOthers()
{
    gate().remaining = std::this_thread::get_id();
    settle();
}

void EngineGate::watchForks()
{
    pthread_atfork(nullptr, nullptr, &afterFork);
}

/// In the process that was forked off: the threads that waited or worked aren't there.
void EngineGate::afterFork()
{
    Gate& current = gate();
    s_cutOff = s_cutOff || current.operations > 0;
    const std::thread::id remaining = current.remaining;
    current = Gate();
    current.remaining = remaining;
    settle();
}

} // namespace brindle::python
