#pragma once

#include "core/frame/export.h"
#include "core/host/pl_applock.h"
#include "core/host/scp_pythonengine.h"

#include <QString>
#include <QVariant>

#include <deque>
#include <memory>
#include <vector>

class TUSceneChangeManager;

namespace OMC {

/// Decides at every checked call whether the calling thread may touch the engine, which belongs to the main thread (the
/// thread of the QCoreApplication).
///
/// In a plain interpreter (no session, or one without a Python engine) every check passes. Otherwise a script thread
/// must hold the application lock, or have asked for it while the main thread is parked inside Python.
///
/// The rules leave this unguarded, and some callers rely on it:
/// - The fields have no mutex and aren't atomic. One script thread at a time touches them, each under the lock or while
///   the main thread is parked. Threads of Python keep to that by Python's own lock; native threads have to take turns.
/// - No check asks which thread took the lock. While one holds it every thread passes, and any thread may give it back:
///   the lock keeps the main thread out, not script threads out of each other's work. A lock whose threads have all
///   ended stays taken, until the main thread of an application waits for it.
/// - Required: notifications are restored first in, first out, so a nested pair of locks leaves them off.
/// - A lock asked for while the main thread is inside Python is taken by the next check after it has left. Objects that
///   make no check (the coordinates of a node and other plain views) don't take it up: a binding that lets the main
///   thread out of Python takes it up itself, so that no thread works on while the main thread does.
/// - Those objects aren't kept from a thread that never asked for the lock either.
/// - Required: a function that fails inside `runFunction` leaves the lock taken.
/// - A thread that holds the lock keeps the main thread from its events, and so from the function that it waits for in
///   `runOnMain`.
/// - Required: of jobs that are posted before the main thread comes to the first, only the first runs.
class BRINDLE_CORE_EXPORT ThreadManager {
public:
    static ThreadManager* instance();

    /// Whether this is the main thread; asked once a thread. Throws when there is no QCoreApplication.
    static bool mainThread();
    /// The session's engine, or null.
    static SCP_PythonEngine* getPythonEngine();

    void throwIfNecessary();
    /// The stricter check, without an exception for a plain interpreter. `what` names the thing in the message.
    void throwIfNotMainThread(const QString& what);

    /// Take and give back the application lock for a script thread, and silence the scene's notifications meanwhile.
    void lock();
    void unlock();

    /// Calls a script's function, on a script thread under the lock.
    void runFunction(const QVariant& function);
    /// Calls a script's function on the main thread: at once where that is the calling thread, else when its event loop
    /// comes to it. With `wait`, returns when it is done, looking every 100 ms, and throws after 30 s without an
    /// answer; the job stays posted then. What the function raises comes back to a caller that waits, else goes to the
    /// log.
    void runOnMain(const QVariant& function, bool wait);

private:
    /// For the library that binds Python, and for tests.
    friend class ThreadManagerState;

    void getApplock();
    void getApplockDelayed();
    void releaseApplock();
    bool hasApplock();
    void unlockAlsoWithoutProject();
    void giveBackLock(TUSceneChangeManager* changes);
    void giveBackLeftLock();
    /// The running number of main-thread jobs. The main thread counts it on, the waiting thread looks at it.
    unsigned int& threadLockIndex();

    std::deque<bool> m_notifyStates;
    /// A mark for each lock that is held, of the thread that took it; it expires with that thread.
    std::vector<std::weak_ptr<const char>> m_holders;
    std::unique_ptr<PL_AppLock::AppLock> m_appLock;
    unsigned int m_applockDepth = 0;
    bool m_applockDelayed = false;
};

} // namespace OMC
