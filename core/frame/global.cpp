#include "core/frame/global.h"

#include "core/host/sc_session.h"

namespace OMC::Global {

SC_SessionContext* sessionContext()
{
    return PLUG_Services::getSessionContext();
}

} // namespace OMC::Global
