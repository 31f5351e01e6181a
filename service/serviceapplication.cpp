#include "service/serviceapplication.h"

#include "core/elements/elementlist.h"
#include "core/scene/project.h"
#include "core/scene/scenelist.h"

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
