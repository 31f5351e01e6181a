#pragma once

#include "core/frame/threadmanager.h"

namespace OMC {

/// What the thread manager keeps to itself.
class ThreadManagerState {
public:
    static unsigned int depth() { return manager().m_applockDepth; }
    static bool delayed() { return manager().m_applockDelayed; }
    static bool lockTaken() { return bool(manager().m_appLock); }
    static bool hasApplock() { return manager().hasApplock(); }
    static std::size_t notifyStates() { return manager().m_notifyStates.size(); }
    static unsigned int& jobIndex() { return manager().threadLockIndex(); }

private:
    static ThreadManager& manager() { return *ThreadManager::instance(); }
};

} // namespace OMC
