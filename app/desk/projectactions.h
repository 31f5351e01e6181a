#pragma once

#include <QAction>
#include <QObject>

namespace app::desk {

class Dialogs;
class OpenProject;
class ScriptRunner;

/// The actions on the open project: save, undo, redo. Each action is on when it can be done, which is never
/// while a script runs; those of the history say what they would take on.
class ProjectActions final : public QObject {
    Q_OBJECT

public:
    ProjectActions(OpenProject& project, const ScriptRunner& scripts, Dialogs& dialogs, QWidget& window);

    QAction& save() { return m_save; }
    QAction& saveAs() { return m_saveAs; }
    QAction& undo() { return m_undo; }
    QAction& redo() { return m_redo; }

    /// False when it isn't saved: it failed, which the person was told, or the person went back. A project that is open
    /// read-only is saved in a folder that the person chooses.
    bool saveProject();
    bool saveProjectAs();

    void update();

private:
    bool tell(const QString& failure);

    OpenProject& m_project;
    const ScriptRunner& m_scripts;
    Dialogs& m_dialogs;
    QWidget& m_window;
    QAction m_save;
    QAction m_saveAs;
    QAction m_undo;
    QAction m_redo;
};

} // namespace app::desk
