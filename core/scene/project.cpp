#include "core/scene/project.h"

#include "core/frame/global.h"
#include "core/host/co_command.h"
#include "core/host/sc_session.h"
#include "core/scene/history.h"
#include "core/scene/projectresolution.h"

namespace OMC {

namespace {

const CO_CommandManager& sessionCommands()
{
    const SC_SessionContext* session = Global::sessionContext();
    const CO_CommandManager* commands = session ? session->commandManager() : nullptr;
    if (!commands)
        BaseObject::throwUnexpected();
    return *commands;
}

} // namespace

Project::Project(SC_ProjectCommon* project) : m_project(project) {}

BaseObject* Project::copy() const
{
    return new Project(*this);
}

std::string Project::__str__() const
{
    return tr("Brindle Base Project").toStdString();
}

bool Project::getDirty() const
{
    validate();
    return sessionCommands().isDirty();
}

bool Project::getDirtyPreviously() const
{
    validate();
    return sessionCommands().executedHistorySize() != 0;
}

// Unchecked, like the resolution: what they give says for itself that the project is gone.
Obj Project::getHistory() const
{
    return Obj(new History(m_project.get()));
}

Obj Project::getResolution() const
{
    return Obj(new ProjectResolution(m_project.get()));
}

void Project::validate() const
{
    if (!m_project.get())
        throwInvalid();
    validateThreadLock();
}

} // namespace OMC
