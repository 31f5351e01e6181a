#include "service/python/console/pulse.h"

#include "core/host/application.h"
#include "service/python/errors.h"

#include <chrono>

namespace brindle::python {

namespace {

/// Longer than a person notices that nothing moves, shorter than it is felt; what is done sooner never waits for
/// events.
constexpr auto interval = std::chrono::milliseconds(40);

} // namespace

Pulse* Pulse::s_innermost = nullptr;

Pulse::Pulse() : m_outer(s_innermost), m_clock([this] { ask(); })
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

void Pulse::interrupt()
{
    if (s_innermost)
        s_innermost->m_interrupted = true;
}

/// The clock's own thread, which never enters the interpreter.
void Pulse::ask()
{
    std::unique_lock guard(m_mutex);
    while (!m_ended.wait_for(guard, interval, [this] { return m_ends; })) {
        // A full list of pending calls has room again at the next turn.
        if (!m_asked.exchange(true) && Py_AddPendingCall(&beat, nullptr) < 0)
            m_asked = false;
    }
}

/// What was asked for may come when its pulse is over: it is then the outer one's, or nobody's.
int Pulse::beat(void*)
{
    if (!s_innermost)
        return 0;
    return guarded([]() -> int {
        handleEvents();
        return 0;
    });
}

void Pulse::handleEvents()
{
    Pulse& pulse = *s_innermost;
    BUIAPP_Application::processEventsNoAppLock(true);
    pulse.m_asked = false;
    if (!std::exchange(pulse.m_interrupted, false))
        return;
    PyErr_SetNone(PyExc_KeyboardInterrupt);
    throw PythonError{};
}

} // namespace brindle::python
