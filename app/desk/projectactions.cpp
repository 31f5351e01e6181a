#include "app/desk/projectactions.h"

#include "app/desk/dialogs.h"
#include "app/desk/openproject.h"
#include "app/desk/scriptrunner.h"

#include <QWidget>

namespace app::desk {

namespace {

/// The text of an action on a change; its label stands there as it is.
QString withLabel(const QString& text, QString label)
{
    return label.isEmpty() ? text : text + u' ' + label.replace(u'&', QStringLiteral("&&"));
}

} // namespace

ProjectActions::ProjectActions(OpenProject& project, const ScriptRunner& scripts, Dialogs& dialogs, QWidget& window)
    : m_project(project),
      m_scripts(scripts),
      m_dialogs(dialogs),
      m_window(window),
      m_save(tr("&Save")),
      m_saveAs(tr("Save &As..."))
{
    m_save.setShortcut(QKeySequence::Save);
    m_saveAs.setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    m_undo.setShortcut(QKeySequence::Undo);
    m_redo.setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    connect(&m_save, &QAction::triggered, this, &ProjectActions::saveProject);
    connect(&m_saveAs, &QAction::triggered, this, &ProjectActions::saveProjectAs);
    connect(&m_undo, &QAction::triggered, &project, &OpenProject::undo);
    connect(&m_redo, &QAction::triggered, &project, &OpenProject::redo);
    connect(&project, &OpenProject::changed, this, &ProjectActions::update);
    connect(&scripts, &ScriptRunner::started, this, &ProjectActions::update);
    connect(&scripts, &ScriptRunner::ended, this, &ProjectActions::update);
    update();
}

bool ProjectActions::saveProject()
{
    return m_project.isReadOnly() ? saveProjectAs() : tell(m_project.save());
}

bool ProjectActions::saveProjectAs()
{
    const QString folder = m_dialogs.askFolder(&m_window, m_project.path() + QStringLiteral("-2"));
    return !folder.isEmpty() && tell(m_project.saveAs(folder));
}

void ProjectActions::update()
{
    const bool isFree = m_project.isOpen() && !m_scripts.isRunning();
    m_save.setEnabled(isFree && !m_project.isReadOnly());
    m_saveAs.setEnabled(isFree);
    const std::optional<QString> undone = m_project.undoLabel();
    const std::optional<QString> redone = m_project.redoLabel();
    m_undo.setText(withLabel(tr("&Undo"), undone.value_or(QString())));
    m_redo.setText(withLabel(tr("&Redo"), redone.value_or(QString())));
    m_undo.setEnabled(isFree && undone);
    m_redo.setEnabled(isFree && redone);
}

bool ProjectActions::tell(const QString& failure)
{
    if (!failure.isEmpty())
        m_dialogs.showFailure(&m_window, failure);
    return failure.isEmpty();
}

} // namespace app::desk
