#include "app/desk/openproject.h"

#include "core/host/co_command.h"

#include <QFileInfo>

namespace app::desk {

OpenProject::OpenProject(SC_SessionContext& session) : m_session(session), m_watch([this] { Q_EMIT changed(); }) {}

QString OpenProject::name() const
{
    return QFileInfo(path()).fileName();
}

QString OpenProject::path() const
{
    return project() ? project()->path() : QString();
}

bool OpenProject::isReadOnly() const
{
    return project() && project()->isReadOnly();
}

bool OpenProject::isModified() const
{
    return history() && history()->isDirty();
}

std::optional<QString> OpenProject::undoLabel() const
{
    if (!history() || history()->executedHistorySize() == 0)
        return std::nullopt;
    // Without a copy of the whole list.
    return project()->lastChange();
}

std::optional<QString> OpenProject::redoLabel() const
{
    if (!history() || history()->historySize() == history()->executedHistorySize())
        return std::nullopt;
    return history()->collectUnexecutedNames().constFirst();
}

void OpenProject::undo()
{
    if (history())
        history()->unexecute(1);
}

void OpenProject::redo()
{
    if (history())
        history()->reexecute(1);
}

QString OpenProject::save()
{
    QString error;
    m_session.projectManager()->saveProject(error);
    return error;
}

QString OpenProject::saveAs(const QString& folder)
{
    QString error;
    m_session.projectManager()->saveProjectAs(folder, error);
    return error;
}

} // namespace app::desk
