#include "service/serviceapplication.h"

#include "core/bridges/javascript.h"
#include "core/elements/elementlist.h"
#include "core/metrics/metrics.h"
#include "core/scene/project.h"
#include "core/scene/scene.h"
#include "core/scene/scenelist.h"
#include "core/services/about.h"
#include "core/services/actions.h"
#include "core/services/preferences.h"
#include "core/services/selection.h"
#include "core/services/tool.h"
#include "core/services/view.h"

namespace brindle {

ServiceApplication::ServiceApplication(SC_SessionContext* session)
    : OMC::Application(session),
      m_project(session->projectCommon())
{}

OMC::BaseObject* ServiceApplication::copy() const
{
    return new ServiceApplication(*this);
}

OMC::Obj ServiceApplication::getProject() const
{
    return new OMC::Project(project());
}

OMC::Obj ServiceApplication::getScenes() const
{
    return new OMC::SceneList(project());
}

OMC::Obj ServiceApplication::getScene() const
{
    return OMC::SceneList(project()).get(0);
}

OMC::Obj ServiceApplication::getElements() const
{
    project();
    return new OMC::ElementList;
}

OMC::Obj ServiceApplication::getClipboard() const
{
    const OMC::Obj scene = getScene();
    const auto* first = OMC::objectIn<OMC::Scene>(scene);
    return first ? first->getClipboard() : OMC::Obj();
}

OMC::Obj ServiceApplication::getJavascript() const
{
    project();
    return new OMC::Javascript;
}

OMC::Obj ServiceApplication::getPreferences() const
{
    return new OMC::Preferences;
}

OMC::Obj ServiceApplication::getActions() const
{
    return new OMC::Actions;
}

OMC::Obj ServiceApplication::getAbout() const
{
    return new OMC::About;
}

OMC::Obj ServiceApplication::getMetrics() const
{
    project();
    return new OMC::Metrics;
}

OMC::Obj ServiceApplication::getViews() const
{
    return OMC::ViewMap::getInstance();
}

OMC::Obj ServiceApplication::getTools() const
{
    return new OMC::ToolList;
}

OMC::Obj ServiceApplication::getSelection() const
{
    return new OMC::Selection;
}

SC_ProjectManager& ServiceApplication::projectManager() const
{
    project();
    return *context()->projectManager();
}

SC_ProjectCommon* ServiceApplication::project() const
{
    validateThreadLock();
    SC_ProjectCommon* project = m_project.get();
    if (!project)
        throwInvalid();
    return project;
}

} // namespace brindle
