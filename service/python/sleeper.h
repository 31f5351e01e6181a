#pragma once

#include "service/python/pyref.h"

#include <pythread.h>

namespace brindle::python {

/// A thread that waits, without Python's lock, until another thread calls it. All of its functions are called with that
/// lock held; `sleep` gives it up meanwhile. It lives on the stack of the thread that waits.
class Sleeper {
public:
    Sleeper();
    Sleeper(const Sleeper&) = delete;
    Sleeper& operator=(const Sleeper&) = delete;
    ~Sleeper();

    /// Returns once the thread has been called; at once where it has been before.
    void sleep() noexcept;
    /// The same; false with a Python error raised where the person interrupts the main thread first.
    bool sleepUnlessInterrupted();
    void call();

private:
    PyThread_type_lock m_lock; ///< Held from the beginning; the call gives it back.
};

} // namespace brindle::python
