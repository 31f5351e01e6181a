#pragma once

#include <atomic>

namespace brindle::python {

/// Keeps script threads out of the engine while a blocking operation (saving, opening) runs without Python's lock.
///
/// Every other call holds Python's lock from beginning to end, so calls never overlap; the gate closes the one gap. Who
/// waited for one blocking operation goes ahead of the next: a loop of saves keeps nobody out.
class EngineGate {
public:
    /// At the start of each call, with Python's lock held: waits while another thread blocks the engine.
    static void enter()
    {
        if (s_blocked.load(std::memory_order_relaxed))
            wait();
    }

    /// Ahead of a blocking operation, with Python's lock held: lets those go first that waited for the one before.
    static void waitForTurn();

    /// Gives up Python's lock while it lives and keeps the engine to this thread.
    class Blocking {
    public:
        Blocking();
        Blocking(const Blocking&) = delete;
        Blocking& operator=(const Blocking&) = delete;
        ~Blocking();

    private:
        void* m_threadState;
    };

private:
    static void wait();

    static std::atomic<bool> s_blocked;
    static int s_waiting; ///< Threads in `wait`, counted with Python's lock held.
};

} // namespace brindle::python
