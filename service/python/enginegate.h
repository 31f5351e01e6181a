#pragma once

#include <atomic>

namespace brindle::python {

/// Keeps script threads out of the engine while one of them is in the middle of a call but has given up Python's lock:
/// in a blocking operation (saving, opening), or waiting for the application's lock.
///
/// Every other call holds Python's lock from beginning to end, so calls never overlap; the gate closes the one gap. Who
/// waited for one blocking operation goes ahead of the next: a loop of saves keeps nobody out.
///
/// A process that was forked off has one thread, and the state in which the others left the engine. Where one of them
/// was saving or opening, nobody will ever bring that to its end: every call of the object model fails there.
class EngineGate {
public:
    /// At the start of each call, and where native code goes on after script code, with Python's lock held: waits while
    /// another thread blocks the engine. Throws in a process that was forked off in the middle of an operation.
    static void enter()
    {
        if (s_blocked.load(std::memory_order_relaxed))
            wait();
    }

    /// The same for native code that comes back to the engine and can't but go on.
    static void enterAgain() noexcept
    {
        if (!s_cutOff && s_blocked.load(std::memory_order_relaxed))
            wait();
    }

    /// Ahead of a blocking operation, with Python's lock held: lets those go first that waited for the one before.
    static void waitForTurn();

    /// Closes the gate for good, with Python's lock held: from now on the calling thread alone gets in. Threads that
    /// try stay outside until the process ends.
    static void closeForOthers();

    /// Whether this process was forked off while another thread was in the middle of an operation on the engine, which
    /// may not even be destroyed then.
    static bool isCutOff() { return s_cutOff; }

    /// Called once, when the module is made.
    static void watchForks();

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
    static thread_local bool s_isOperating; ///< The calling thread is in a blocking operation of its own.

    static bool mayPass();
    static void settle();
    static void wait();
    static void afterFork();

    static std::atomic<bool> s_blocked;
    static bool s_cutOff;
};

} // namespace brindle::python
