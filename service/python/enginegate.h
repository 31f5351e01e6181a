#pragma once

#include <atomic>
#include <utility>

namespace brindle::python {

/// Keeps script threads out of the engine while one of them is in the middle of a call but has given up Python's lock:
/// in a blocking operation (saving, opening), or waiting for the application's lock.
///
/// Every other call holds Python's lock from beginning to end, so calls never overlap; the gate closes the one gap. Who
/// has to wait stands in one line, calls and operations alike, and is let in one after the other in the order of
/// asking: a loop of saves keeps nobody out.
///
/// A process that was forked off has one thread, and the state in which the others left the engine. Where one of them
/// was saving or opening, nobody will ever bring that to its end: every call of the object model fails there.
class EngineGate {
public:
    /// At the start of each call, with Python's lock held: waits while another thread blocks the engine. Throws in a
    /// process that was forked off in the middle of an operation.
    static void enter()
    {
        if (s_blocked.load(std::memory_order_relaxed))
            wait();
    }

    /// The same for native code that comes back to the engine in the middle of a call and can't but go on.
    static void enterAgain() noexcept;

    /// The turn of a blocking operation: construction waits until all have gone who asked before, the end of the scope
    /// lets the next one go. What the operation needs of the engine is looked up in between. Throws as `enter` does. A
    /// thread that is inside an operation already has its turn.
    class Operation {
    public:
        Operation();
        Operation(const Operation&) = delete;
        Operation& operator=(const Operation&) = delete;
        ~Operation();

        /// Calls `work` without Python's lock and keeps the engine to this thread meanwhile.
        template <typename Work>
        decltype(auto) run(Work&& work)
        {
            const Outside outside(Outside::Working);
            return std::forward<Work>(work)();
        }

    private:
        bool m_hasTurn = false; ///< Else it is part of another operation, or one of the main thread ahead of the line.
    };

private:
    /// Without Python's lock while it lives.
    class Outside {
    public:
        enum Reason { Working, WaitingForMain };

        explicit Outside(Reason reason);
        Outside(const Outside&) = delete;
        Outside& operator=(const Outside&) = delete;
        ~Outside();

    private:
        Reason m_reason;
        void* m_threadState;
    };

public:
    /// While it lives, the thread waits for something that the main thread has: it gives up Python's lock, and lets
    /// nobody but the main thread into the engine.
    class WaitForMainThread {
    private:
        Outside m_outside{Outside::WaitingForMain};
    };

    /// Closes the gate for good, with Python's lock held: from now on the calling thread alone gets in. Threads that
    /// try stay outside until the process ends.
    static void closeForOthers();

    /// Whether this process was forked off while another thread was in the middle of an operation on the engine, which
    /// may not even be destroyed then.
    static bool isCutOff() { return s_cutOff; }

    /// Called once, when the module is made.
    static void watchForks();

private:
    static void wait();
    static void settle();
    static void afterFork();

    static std::atomic<bool> s_blocked; ///< Whether a call has to look closer.
    static bool s_cutOff;
};

} // namespace brindle::python
