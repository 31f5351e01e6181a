#pragma once

#include <pthread.h>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace brindle::python {

/// While it lives, the main thread handles events every now and then although it runs a script: between two steps of
/// the interpreter, with Python's lock held, so no other thread is in the middle of a call then; and in a script that
/// sleeps, or waits for a file, a process or a thread. One that works in a call of a library has no such steps, and no
/// events either.
///
/// The interpreter is reached by a signal to the main thread, SIGURG, which means nothing where nobody asks for it.
/// Unlike a call that another thread leaves with the interpreter, a signal is heard where Python waits for the system.
///
/// Made and destroyed on the main thread, with Python's lock held. The innermost one beats.
class Pulse {
public:
    Pulse();
    Pulse(const Pulse&) = delete;
    Pulse& operator=(const Pulse&) = delete;
    ~Pulse();

    /// Has the interpreter listen, once, ahead of the first; false with a Python error raised.
    static bool install();

    /// Handles events, unless that is being done already; for the interpreter. Throws PythonError on an interrupt.
    static void beat();

    /// Of those that are made from now on: gets true, on the pulse's thread, when no events could be handled for long,
    /// and false when they are again, or the pulse ends. An empty function for nobody.
    static void setWatcher(std::function<void(bool isStuck)> watcher);

    /// Raises KeyboardInterrupt in the script at the next beat; on the main thread. Nothing where none lives.
    static void interrupt();

private:
    void ask();

    static Pulse* s_innermost;
    static std::atomic<bool> s_beating;
    static std::atomic<bool> s_asked; ///< A signal is on its way, or being answered.

    Pulse* m_outer;
    bool m_interrupted = false;
    std::function<void(bool)> m_watcher; ///< The outermost pulse's; none in the others.
    pthread_t m_mainThread = pthread_self();
    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_ends = false;
    std::thread m_clock; ///< The last: it uses the others.
};

} // namespace brindle::python
