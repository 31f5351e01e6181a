#pragma once

#include "core/frame/export.h"

class SC_SessionContext;

/// The way from any wrapper to the session.
namespace OMC::Global {

/// The host's session, or null when there is none.
BRINDLE_CORE_EXPORT SC_SessionContext* sessionContext();

} // namespace OMC::Global
