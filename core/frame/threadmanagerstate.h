#pragma once

#include "core/frame/threadmanager.h"

namespace OMC {

/// The inside of the thread manager: for the library that binds Python, and for tests. To be used like its fields, by
/// one script thread at a time.
class ThreadManagerState {
public:
    static unsigned int depth() { return manager().m_applockDepth; }
    static bool delayed() { return manager().m_applockDelayed; }
    static bool lockTaken() { return bool(manager().m_appLock); }
    static bool hasApplock() { return manager().hasApplock(); }
    static std::size_t notifyStates() { return manager().m_notifyStates.size(); }
    static unsigned int& jobIndex() { return manager().threadLockIndex(); }

    /// Makes the calling thread the main thread of a process without a QCoreApplication, whose place it takes in each check: of a
    /// plain interpreter. Later calls change nothing.
    BRINDLE_CORE_EXPORT static void standInForApplication();

    /// Takes the application's lock for those who asked for it while the main thread was inside Python.
    static void takeUpDelayedLock()
    {
        if (delayed())
            manager().getApplockDelayed();
    }
    /// Does what `unlock` does, and also works where the project was closed under the lock, which `unlock` refuses.
    static void unlockAlsoWithoutProject() { manager().unlockAlsoWithoutProject(); }
    /// Gives the lock back where all threads that took it have ended; the log tells.
    static void giveBackLeftLock() { manager().giveBackLeftLock(); }

private:
    static ThreadManager& manager() { return *ThreadManager::instance(); }
};

} // namespace OMC
