#pragma once

#include "core/frame/export.h"
#include "core/host/pl_applock.h"

#include <optional>

namespace OMC {

/// Holds the application's lock for the length of an operation, where the calling thread may take it: not on the main
/// thread, which has it or is inside Python, and not where a script has it already. Holds may lie inside each other.
class BRINDLE_CORE_EXPORT EngineHold {
public:
    EngineHold();
    EngineHold(const EngineHold&) = delete;
    EngineHold& operator=(const EngineHold&) = delete;
    ~EngineHold();

private:
    std::optional<PL_AppLock::AppLock> m_lock;
    bool m_isOutermost = false;
};

} // namespace OMC
