#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace brindle::python {

/// While it lives, the main thread handles events every now and then although it runs a script: between two steps of
/// the interpreter, with Python's lock held, so no other thread is in the middle of a call then. A script that waits in
/// a call of the operating system, or works in one of a library, has no such steps, and no events either.
///
/// Made and destroyed on the main thread, with Python's lock held. The innermost one beats.
class Pulse {
public:
    Pulse();
    Pulse(const Pulse&) = delete;
    Pulse& operator=(const Pulse&) = delete;
    ~Pulse();

    /// Raises KeyboardInterrupt in the script at the next beat; on the main thread. Nothing where none lives.
    static void interrupt();

private:
    static int beat(void*);
    static void handleEvents();
    void ask();

    static Pulse* s_innermost;

    Pulse* m_outer;
    bool m_interrupted = false;
    std::atomic<bool> m_asked = false;
    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_ends = false;
    std::thread m_clock; ///< The last: it uses the others.
};

} // namespace brindle::python
