#include "core/scene/project.h"

#include "core/frame/found.h"
#include "core/frame/global.h"
#include "core/host/co_command.h"
#include "core/host/sc_session.h"
#include "core/palettes/palettelistlist.h"
#include "core/scene/history.h"
#include "core/scene/projectresolution.h"

namespace OMC {

namespace {

const CO_CommandManager& sessionCommands()
{
    const SC_SessionContext* session = Global::sessionContext();
    return found(session ? session->commandManager() : nullptr, &BaseObject::throwUnexpected);
}

} // namespace

Project::Project(SC_ProjectCommon* project) : EngineView(project) {}

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
    return Obj(new History(findTarget()));
}

Obj Project::getResolution() const
{
    return Obj(new ProjectResolution(findTarget()));
}

Obj Project::getPaletteLists() const
{
    return Obj(new PaletteListList(&target()));
}

Obj Project::getPalettes() const
{
    return PaletteListList(&target()).projectPalettes();
}

} // namespace OMC
