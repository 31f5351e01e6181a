#include "engine/session/applicationlock.h"

#include "core/host/pl_applock.h"
#include "core/host/scp_pythonengine.h"

#include <chrono>

namespace brindle::engine {

namespace {

/// The time after which the event loop asks whether anybody is left to give the lock back.
constexpr auto patience = std::chrono::milliseconds(250);

} // namespace

ApplicationLock& ApplicationLock::instance()
{
    static auto* lock = new ApplicationLock;
    return *lock;
}

std::uint64_t ApplicationLock::ask()
{
    const std::lock_guard guard(m_mutex);
    return m_next++;
}

void ApplicationLock::waitFor(std::uint64_t number)
{
    std::unique_lock guard(m_mutex);
    m_passed.wait(guard, [this, number] { return m_serving == number; });
}

bool ApplicationLock::tryTake()
{
    const std::lock_guard guard(m_mutex);
    if (m_next != m_serving)
        return false;
    ++m_next;
    return true;
}

void ApplicationLock::giveBack()
{
    {
        const std::lock_guard guard(m_mutex);
        ++m_serving;
    }
    // Each waits for a number of its own.
    m_passed.notify_all();
}

bool ApplicationLock::isAwaited() const
{
    const std::lock_guard guard(m_mutex);
    return m_next - m_serving > 1;
}

void ApplicationLock::joinLoop()
{
    m_loopThread.store(std::this_thread::get_id(), std::memory_order_relaxed);
    m_idle = false;
    m_parked = false;
    settle();
}

void ApplicationLock::leaveLoop()
{
    m_loopThread.store({}, std::memory_order_relaxed);
    settle();
}

void ApplicationLock::setIdle(bool idle)
{
    m_idle = idle;
    settle();
}

void ApplicationLock::setParked(bool parked)
{
    m_parked = parked;
    settle();
}

void ApplicationLock::giveWay()
{
    if (!m_loopHolds || !isAwaited())
        return;
    giveBack();
    takeForLoop();
}

void ApplicationLock::settle()
{
    const bool holds = isLoopThread() && !m_idle && !m_parked;
    if (holds == m_loopHolds)
        return;
    m_loopHolds = holds;
    if (holds)
        takeForLoop();
    else
        giveBack();
}

/// A window would stand still for good behind a script's thread that ended without giving the lock back.
void ApplicationLock::takeForLoop()
{
    std::unique_lock guard(m_mutex);
    const std::uint64_t number = m_next++;
    while (!m_passed.wait_for(guard, patience, [this, number] { return m_serving == number; })) {
        guard.unlock();
        SCP_PythonEngine::giveBackLeftLock();
        guard.lock();
    }
}

} // namespace brindle::engine

namespace PL_AppLock {

using brindle::engine::ApplicationLock;

AppLock::AppLock()
{
    ApplicationLock& lock = ApplicationLock::instance();
    if (lock.tryTake())
        return;
    // Asked for with Python's lock held: in the order in which scripts ask.
    const std::uint64_t number = lock.ask();
    const SCP_PythonEngine::ThreadStateScope outside(SCP_PythonEngine::Waiting::ForApplicationLock);
    lock.waitFor(number);
}

AppLock::~AppLock()
{
    ApplicationLock::instance().giveBack();
}

Parking::Parking()
{
    ApplicationLock& lock = ApplicationLock::instance();
    m_parked = lock.isLoopThread() && !lock.isParked();
    if (m_parked)
        lock.setParked(true);
}

void Parking::end()
{
    // The event loop may have ended meanwhile, and what it had of the lock with it.
    if (m_parked)
        ApplicationLock::instance().setParked(false);
    m_parked = false;
}

} // namespace PL_AppLock
