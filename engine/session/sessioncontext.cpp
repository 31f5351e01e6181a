#include "engine/session/sessioncontext.h"

#include "core/host/sc_scene.h"
#include "core/host/scp_pythonengine.h"
#include "engine/engine.h"
#include "engine/session/preferences.h"
#include "engine/session/scripting.h"

namespace {

SC_SessionContext* givenSession = nullptr;
PLUG_NetworkViewInterface* givenView = nullptr;

} // namespace

SC_SessionContext* PLUG_Services::getSessionContext()
{
    return givenSession;
}

void PLUG_Services::setSessionContext(SC_SessionContext* session)
{
    const SCP_PythonEngine::HaltScope halt;
    givenSession = session;
}

PLUG_NetworkViewInterface* PLUG_Services::getNetworkViewInterface()
{
    return givenView;
}

void PLUG_Services::setNetworkViewInterface(PLUG_NetworkViewInterface* view)
{
    givenView = view;
}

std::unique_ptr<SC_SessionContext> SC_SessionContext::create()
{
    return std::make_unique<brindle::engine::SessionContext>();
}

namespace brindle::engine {

std::unique_ptr<SC_SessionContext> createPythonSession()
{
    return std::make_unique<SessionContext>(std::make_unique<SCP_PythonEngine>());
}

SessionContext::SessionContext(std::unique_ptr<SCP_PythonEngine> python) : m_python(std::move(python))
{
    PLUG_Services::setSessionContext(this);
}

SessionContext::~SessionContext()
{
    m_projects.closeProject();
    endScripting();
    if (PLUG_Services::getSessionContext() == this)
        PLUG_Services::setSessionContext(nullptr);
    savePreferencesOfUser();
}

SC_ProjectCommon* SessionContext::projectCommon() const
{
    const SC_Project* project = m_projects.project();
    return project ? project->projectCommon() : nullptr;
}

CEL_ColorSpaceManager* SessionContext::colorSpaceManager() const
{
    const SC_ProjectCommon* common = projectCommon();
    return common ? common->colorSpaceManager() : const_cast<ColorSpaceManager*>(&m_colorSpaces);
}

CO_CommandManager* SessionContext::commandManager() const
{
    const SC_ProjectCommon* common = projectCommon();
    return common ? common->commandManager() : nullptr;
}

TUSceneChangeManager* SessionContext::changeManager() const
{
    const TUScene* scene = m_stage.scene();
    return scene ? scene->changeManager() : nullptr;
}

} // namespace brindle::engine
