#pragma once

#include "core/frame/export.h"

class SC_SessionContext;
class TUDbAccess;
class TUDbSceneData;

/// The way from any wrapper to the session.
namespace OMC::Global {

/// The host's session, or null when there is none.
BRINDLE_CORE_EXPORT SC_SessionContext* sessionContext();
/// The databases of the open project. The caller has checked that a session with a project is there.
BRINDLE_CORE_EXPORT TUDbAccess* dbAccess(); ///< Null for a project that lies in no database.
BRINDLE_CORE_EXPORT TUDbSceneData* dbSceneData();

} // namespace OMC::Global
