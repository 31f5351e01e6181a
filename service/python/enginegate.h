#pragma once

#include <atomic>

namespace brindle::python {

/// Keeps script threads out of the engine while one of them is in the middle of a call but has given up Python's lock:
/// in a blocking operation (saving, opening), or waiting for the application's lock.
///
/// Every other call holds Python's lock from beginning to end, so calls never overlap; the gate closes the one gap. Who
/// waited for one blocking operation goes ahead of the next: a loop of saves keeps nobody out.
class EngineGate {
public:
    /// At the start of each call, and where native code goes on after script code, with Python's lock held: waits while
    /// another thread blocks the engine.
    static void enter()
    {
        if (s_blocked.load(std::memory_order_relaxed))
            wait();
    }

    /// Ahead of a blocking operation, with Python's lock held: lets those go first that waited for the one before.
    static void waitForTurn();

    /// Closes the gate for good, with Python's lock held: from now on the calling thread alone gets in. Threads that
    /// try stay outside until the process ends.
    static void closeForOthers();

    /// Whom a blocking operation lets into the engine.
    enum class Passing {
        Nobody,
        MainThread ///< It is what the operation waits for.
    };

    /// Gives up Python's lock while it lives and keeps the engine to this thread.
    class Blocking {
    public:
        explicit Blocking(Passing passing = Passing::Nobody);
        Blocking(const Blocking&) = delete;
        Blocking& operator=(const Blocking&) = delete;
        ~Blocking();

    private:
        Passing m_passing;
        void* m_threadState;
    };

private:
    static bool mayPass();
    static void settle();
    static void wait();

    static std::atomic<bool> s_blocked;
};

} // namespace brindle::python
