#pragma once

#include "core/host/scp_pythonengine.h"

#include <atomic>

/// The count of how deep the main thread is inside Python. The main thread alone writes it, while other threads read
/// it: both in atomic steps.
namespace OMC::MainThreadState {

inline std::atomic_ref<int> counter()
{
    return std::atomic_ref(SCP_PythonEngine::mainThreadState());
}

inline bool isInPython()
{
    return counter().load(std::memory_order_acquire) > 0;
}

inline void enterPython()
{
    counter().fetch_add(1, std::memory_order_acq_rel);
}

/// Never below 0.
inline void leavePython()
{
    const int depth = counter().load(std::memory_order_relaxed);
    counter().store(depth > 0 ? depth - 1 : 0, std::memory_order_release);
}

} // namespace OMC::MainThreadState
