#include "engine/session/projectresponder.h"

#include "core/host/co_command.h"
#include "core/host/msg_scope.h"

#include <algorithm>

namespace brindle::engine {

namespace {

enum Result { Done = 0, NothingToDo = 1, NotDone = 2 };

struct ProjectAction {
    const char* slot;
    bool (*canRun)(const SC_SessionContext& session);
    int (*run)(const SC_SessionContext& session);
};

bool canSave(const SC_SessionContext& session)
{
    const SC_Project* project = session.projectManager()->project();
    return project && !project->isReadOnly();
}

int save(const SC_SessionContext& session)
{
    QString error;
    if (session.projectManager()->saveProject(error))
        return Done;
    MSG_Scope(error, MSG_Scope::kError);
    return NotDone;
}

bool canUndo(const SC_SessionContext& session)
{
    const CO_CommandManager* history = session.commandManager();
    return history && history->executedHistorySize() > 0;
}

bool canRedo(const SC_SessionContext& session)
{
    const CO_CommandManager* history = session.commandManager();
    return history && history->historySize() > history->executedHistorySize();
}

int undo(const SC_SessionContext& session)
{
    session.commandManager()->unexecute(1);
    return Done;
}

int redo(const SC_SessionContext& session)
{
    session.commandManager()->reexecute(1);
    return Done;
}

constexpr ProjectAction projectActions[] = {
    {"onActionSave()", &canSave, &save}, {"onActionUndo()", &canUndo, &undo}, {"onActionRedo()", &canRedo, &redo}};

const ProjectAction* findAction(const QString& slot)
{
    const auto found = std::find_if(std::begin(projectActions), std::end(projectActions),
                                    [&](const ProjectAction& action) { return slot == QLatin1String(action.slot); });
    return found == std::end(projectActions) ? nullptr : found;
}

} // namespace

QStringList ProjectResponder::slotNames() const
{
    QStringList names;
    for (const ProjectAction& action : projectActions)
        names.append(QString::fromLatin1(action.slot));
    return names;
}

int ProjectResponder::perform(const QString& slot, const std::vector<QVariant>&)
{
    const ProjectAction* action = findAction(slot);
    return action && action->canRun(m_session) ? action->run(m_session) : NothingToDo;
}

int ProjectResponder::validate(const QString& slot, bool& isEnabled, bool& isChecked) const
{
    const ProjectAction* action = findAction(slot);
    isEnabled = action && action->canRun(m_session);
    isChecked = false;
    return action ? 0 : 1;
}

} // namespace brindle::engine
