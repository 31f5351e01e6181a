#pragma once

#include <atomic>

namespace brindle::python {

/// Keeps script threads out of the engine while a blocking operation (saving, opening) runs without Python's lock.
///
/// Every other call holds Python's lock from beginning to end, so calls never overlap; the gate closes the one gap.
class EngineGate {
public:
    /// At the start of each call, with Python's lock held: waits while another thread blocks the engine.
    static void enter()
    {
        if (s_blocked.load(std::memory_order_relaxed))
            wait();
    }

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
};

} // namespace brindle::python
