#include "core/frame/enginehold.h"

#include "core/frame/threadmanager.h"
#include "core/frame/threadmanagerstate.h"

namespace OMC {

namespace {

thread_local bool isHeldHere = false;

} // namespace

EngineHold::EngineHold()
{
    // A plain interpreter has no main thread that would need to be kept out.
    if (isHeldHere || !ThreadManager::getPythonEngine() || ThreadManager::mainThread() ||
        ThreadManagerState::hasApplock())
        return;
    m_lock.emplace();
    isHeldHere = m_isOutermost = true;
}

EngineHold::~EngineHold()
{
    if (m_isOutermost)
        isHeldHere = false;
}

} // namespace OMC
