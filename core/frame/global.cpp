#include "core/frame/global.h"

#include "core/host/sc_session.h"

namespace OMC::Global {

SC_SessionContext* sessionContext()
{
    return PLUG_Services::getSessionContext();
}

TUDbAccess* dbAccess()
{
    return sessionContext()->projectCommon()->dbAccessPriv();
}

TUDbSceneData* dbSceneData()
{
    return sessionContext()->projectCommon()->dbSceneData();
}

} // namespace OMC::Global
