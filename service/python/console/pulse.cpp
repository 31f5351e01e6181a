#include "service/python/console/pulse.h"

#include "core/host/application.h"
#include "service/python/enginegate.h"
#include "service/python/errors.h"

#include <QScopeGuard>

#include <chrono>
#include <csignal>

namespace brindle::python {

namespace {

/// Longer than a person notices that nothing moves, shorter than it is felt; what is done sooner never waits for
/// events.
constexpr auto interval = std::chrono::milliseconds(40);
/// Longer than a call that a person waits for without wondering.
constexpr auto patience = std::chrono::milliseconds(1500);
constexpr int ownSignal = SIGURG;

std::function<void(bool)>& watcherOfNext()
{
    static std::function<void(bool)> watcher;
    return watcher;
}

PyObject* heard(PyObject*, PyObject*)
{
    return guarded([]() -> PyObject* {
        EngineGate::enter();
        Pulse::beat();
        Py_RETURN_NONE;
    });
}

} // namespace

Pulse* Pulse::s_innermost = nullptr;
std::atomic<bool> Pulse::s_beating = false;
std::atomic<bool> Pulse::s_asked = false;

Pulse::Pulse()
    : m_outer(s_innermost),
      m_watcher(m_outer ? std::function<void(bool)>() : watcherOfNext()),
      m_clock([this] { ask(); })
{
    s_innermost = this;
}

Pulse::~Pulse()
{
    {
        const std::lock_guard guard(m_mutex);
        m_ends = true;
    }
    m_ended.notify_one();
    m_clock.join();
    s_innermost = m_outer;
}

bool Pulse::install()
{
    static PyMethodDef definition = {"_beat", &heard, METH_VARARGS, nullptr};
    const Ref handler(PyCFunction_New(&definition, nullptr));
    const Ref module(handler ? PyImport_ImportModule("signal") : nullptr);
    const Ref before(module ? PyObject_CallMethod(module.get(), "signal", "iO", ownSignal, handler.get()) : nullptr);
    return bool(before);
}

void Pulse::setWatcher(std::function<void(bool)> watcher)
{
    watcherOfNext() = std::move(watcher);
}

void Pulse::interrupt()
{
    if (s_innermost)
        s_innermost->m_interrupted = true;
}

/// The clock's own thread, which never enters the interpreter.
void Pulse::ask()
{
    using Clock = std::chrono::steady_clock;
    bool isStuck = false;
    const auto tell = [&](bool stuck) {
        if (m_watcher && stuck != isStuck)
            m_watcher(stuck);
        isStuck = stuck;
    };
    Clock::time_point answered = Clock::now();
    std::unique_lock guard(m_mutex);
    while (!m_ended.wait_for(guard, interval, [this] { return m_ends; })) {
        const bool isAnswered = !s_asked.exchange(true);
        if (isAnswered)
            pthread_kill(m_mainThread, ownSignal);
        if (isAnswered || s_beating)
            answered = Clock::now();
        tell(Clock::now() - answered > patience);
    }
    tell(false);
}

/// A signal may arrive when the pulse that sent it is over: it then counts for the outer pulse, or for none.
void Pulse::beat()
{
    // A function that an event runs is not interrupted by further events.
    if (s_beating)
        return;
    // At its end: however long the events take, the script has the time between two beats.
    const auto asksAgain = qScopeGuard([] { s_asked = false; });
    if (!s_innermost)
        return;
    {
        s_beating = true;
        const auto isOver = qScopeGuard([] { s_beating = false; });
        BUIAPP_Application::processEventsNoAppLock(true);
    }
    if (!std::exchange(s_innermost->m_interrupted, false))
        return;
    PyErr_SetNone(PyExc_KeyboardInterrupt);
    throw PythonError{};
}

} // namespace brindle::python
