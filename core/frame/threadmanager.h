#pragma once

#include "core/frame/export.h"
#include "core/host/application.h"

#include <QString>

#include <deque>
#include <memory>

namespace OMC {

/// Decides at every checked call whether the calling thread may touch the engine, which belongs to the main thread (the
/// thread of the QCoreApplication).
///
/// In a plain interpreter (no session, or one without a Python engine) every check passes. Otherwise a script thread
/// must hold the application lock, or the main thread must be parked inside Python. The fields have no mutex: they are
/// touched by one script thread at a time, under that rule.
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

private:
    void getApplock();
    void getApplockDelayed();
    void releaseApplock();

    std::deque<bool> m_notifyStates;
    std::unique_ptr<PL_AppLock::AppLock> m_appLock;
    unsigned int m_applockDepth = 0;
    bool m_applockDelayed = false;
};

} // namespace OMC
