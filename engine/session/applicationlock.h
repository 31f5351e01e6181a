#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>

namespace brindle::engine {

/// The lock behind PL_AppLock, which says what it is for: first come, first served, of no thread. It knows whether an
/// event loop takes part and what that one does.
class ApplicationLock {
public:
    /// The lock of the process. It is never destroyed: a thread may still hold it while the process ends.
    static ApplicationLock& instance();

    bool tryTake(); ///< Takes it when nobody has it and nobody waits.
    /// Takes it in two steps: to ask is to stand in line.
    std::uint64_t ask();
    void waitFor(std::uint64_t number);
    void giveBack();
    bool isAwaited() const; ///< Whether somebody waits while another one has it.

    /// The event loop of the calling thread takes part from now on, at work; one at a time.
    void joinLoop();
    void leaveLoop();
    bool isLoopThread() const { return m_loopThread.load(std::memory_order_relaxed) == std::this_thread::get_id(); }

    /// Tell, on the thread of the event loop, that it waits for events and that it is inside Python. It holds the lock
    /// while it does neither.
    void setIdle(bool idle);
    void setParked(bool parked);
    bool isParked() const { return m_parked; }
    /// Lets those go first that wait for the lock now, if the event loop has it.
    void giveWay();

private:
    void settle(); ///< Takes the lock or gives it back, by what the event loop does.
    void takeForLoop();

    mutable std::mutex m_mutex;
    std::condition_variable m_passed;
    std::uint64_t m_next = 0;    ///< The number that the next who comes draws.
    std::uint64_t m_serving = 0; ///< Whose turn it is; nobody's while it equals the one above.

    std::atomic<std::thread::id> m_loopThread;
    bool m_idle = false;
    bool m_parked = false;
    bool m_loopHolds = false;
};

} // namespace brindle::engine
