#pragma once

#include "core/host/export.h"

/// The open engine, as the program that starts it sees it: a session is made by SC_SessionContext::create (in
/// core/host/sc_session.h), and these are the facts that only the program knows. Everything else is behind the host's
/// names.
namespace engine {

/// What the process runs for, when no person works with it.
enum class BatchMode { None, Scripting, Rendering, Python };

BRINDLE_HOST_EXPORT BatchMode batchMode(); ///< None, unless the program says else.
/// To be called before anything asks; ST_BatchParams tells it on.
BRINDLE_HOST_EXPORT void setBatchMode(BatchMode mode);

} // namespace engine
