#include "core/elements/elementguard.h"

#include "core/frame/found.h"
#include "core/frame/global.h"
#include "core/host/sc_session.h"
#include "core/host/tu_elementmgr.h"

namespace OMC {

namespace {

SC_ProjectCommon* openProject()
{
    const SC_SessionContext* session = Global::sessionContext();
    return session ? session->projectCommon() : nullptr;
}

} // namespace

ElementGuard::ElementGuard()
{
    m_project.assign(openProject());
}

SC_ProjectCommon& ElementGuard::project() const
{
    BaseObject::validateThreadLock();
    SC_ProjectCommon* open = openProject();
    if (!open || m_project.get() != open)
        BaseObject::throwInvalid();
    return *open;
}

TUElementMgr& ElementGuard::manager() const
{
    return found(project().elementManager());
}

CO_CommandManager& ElementGuard::commands() const
{
    return found(Global::sessionContext()->commandManager());
}

EM_ElementInfo& ElementGuard::info(int id) const
{
    return found(manager().getElementDrawingInfoById(id));
}

SC_ProjectCommon* ElementGuard::findProject() const
{
    return m_project.get();
}

} // namespace OMC
