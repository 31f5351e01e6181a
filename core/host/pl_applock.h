#pragma once

#include "core/host/export.h"

/// The lock of the application: whoever holds it may touch the engine.
///
/// One plain lock for the process, first come, first served. It isn't recursive, and it belongs to no thread: it may be
/// given back on another thread than the one that took it. The main thread holds it while its event loop works and
/// gives it up where it touches nothing:
/// - idle: while the event loop waits for the next event;
/// - parked: while it is inside Python (`Parking`), where it may wait for a thread that waits for the lock.
/// Everything else of the main thread (drawing, the handling of a click) runs with the lock held. A process without an
/// event loop that takes part, as a plain interpreter or a batch, never holds it on its main thread.
///
/// A thread that holds Python's lock gives that one up for as long as it waits for this one, so the main thread always
/// gets into Python, and out of it, while others wait. Nobody waits for the application's lock with another one held.
namespace PL_AppLock {

/// Holds the application: construction waits for the lock, destruction gives it back. Not for the main thread, which
/// holds it already while it works.
class BRINDLE_HOST_EXPORT AppLock {
public:
    AppLock();
    AppLock(const AppLock&) = delete;
    AppLock& operator=(const AppLock&) = delete;
    ~AppLock();
};

/// Gives up the main thread's hold on the application for as long as it is inside Python. Scopes may lie inside each
/// other; the outermost counts. Does nothing on other threads, and nothing where the main thread doesn't hold the lock.
class BRINDLE_HOST_EXPORT Parking {
public:
    Parking();
    Parking(const Parking&) = delete;
    Parking& operator=(const Parking&) = delete;
    ~Parking() { end(); }

    /// Waits for the lock and goes on with it; a second call does nothing. Python's lock must be given up before.
    void end();

private:
    bool m_parked;
};

} // namespace PL_AppLock
