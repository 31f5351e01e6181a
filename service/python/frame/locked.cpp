#include "service/python/frame/locked.h"

#include "core/frame/threadmanagerstate.h"
#include "service/python/enginegate.h"
#include "service/python/errors.h"
#include "service/python/sleeper.h"

#include <pthread.h>
#include <algorithm>
#include <deque>
#include <thread>

namespace brindle::python {

namespace {

/// A thread that waits for its block.
struct Waiter {
    std::thread::id thread = std::this_thread::get_id();
    Sleeper sleeper{};
};

/// Which thread is in a block. The next one is who has waited longest: who leaves hands over to it. Used with Python's
/// lock held.
class Blocks {
public:
    /// Never destroyed: threads may wait when the process ends.
    static Blocks& instance()
    {
        static Blocks* const only = [] {
            pthread_atfork(nullptr, nullptr, [] { instance().afterFork(); });
            return new Blocks;
        }();
        return *only;
    }

    bool areOwn() const { return m_depth > 0 && m_owner == std::this_thread::get_id(); }

    /// Waits with Python's lock given up; throws where the person interrupts that.
    void enter()
    {
        if (m_depth > 0 && !areOwn()) {
            Waiter waiter;
            m_waiters.push_back(&waiter);
            if (!waiter.sleeper.sleepUnlessInterrupted()) {
                if (areOwn())
                    leave();
                else
                    m_waiters.erase(std::find(m_waiters.begin(), m_waiters.end(), &waiter));
                throw PythonError{};
            }
            return;
        }
        m_owner = std::this_thread::get_id();
        ++m_depth;
    }
    void leave()
    {
        if (--m_depth > 0 || m_waiters.empty())
            return;
        Waiter* next = m_waiters.front();
        m_waiters.pop_front();
        m_owner = next->thread;
        m_depth = 1;
        next->sleeper.call();
    }

private:
    /// The other threads aren't there.
    void afterFork()
    {
        m_waiters.clear();
        if (!areOwn())
            m_depth = 0;
    }

    std::thread::id m_owner;
    int m_depth = 0; ///< How many of the owner's blocks lie inside each other.
    std::deque<Waiter*> m_waiters;
};

bool needsNoLock()
{
    return OMC::ThreadManager::getPythonEngine() && OMC::ThreadManager::mainThread();
}

} // namespace

void Locked::enter()
{
    if (needsNoLock())
        return;
    Blocks& blocks = Blocks::instance();
    blocks.enter();
    try {
        // Others have worked while this thread waited.
        EngineGate::enter();
        OMC::ThreadManager::instance()->lock();
    } catch (...) {
        blocks.leave();
        throw;
    }
}

void Locked::leave()
{
    if (needsNoLock())
        return;
    Blocks& blocks = Blocks::instance();
    if (!blocks.areOwn())
        throw OMC::Exception(QStringLiteral("This thread is in no locked block."));
    OMC::ThreadManagerState::unlockAlsoWithoutProject();
    blocks.leave();
}

} // namespace brindle::python
