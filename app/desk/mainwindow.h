#pragma once

#include "app/desk/layout.h"
#include "app/desk/menuresponder.h"
#include "app/desk/openproject.h"
#include "app/desk/projectactions.h"
#include "app/desk/scriptrunner.h"

#include <QMainWindow>

namespace app::desk {

class CameraPanel;
class ConsolePanel;
class Dialogs;
class LogPanel;

/// The window of a session: its project in the title, the script console in the middle, the camera view and the log
/// in docks, and the menus. It belongs to whoever made it, who keeps the session, the interpreter and the dialogs for
/// longer.
class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// The files that keep a person's window and history from one run to the next; an empty path keeps nothing.
    struct Files {
        QString history;   ///< The lines that were typed into the console.
        QString placement; ///< The places of the window and its docks.
        static Files ofUser();
    };

    MainWindow(SC_SessionContext& session, BAPP_ScriptConsole& console, Dialogs& dialogs, const Files& files,
               bool showsDebug = false);
    ~MainWindow() override;

    ConsolePanel& console() const { return *m_console; }
    CameraPanel& camera() const { return *m_camera; }
    LogPanel& log() const { return *m_log; }
    ProjectActions& projectActions() { return m_actions; }
    QAction& runAction() { return m_run; }
    QAction& interruptAction() { return m_interrupt; }

    /// Closes the window because a script asked to end the process; the person may still decide to stay.
    void leave(int exitCode);
    int exitCode() const { return m_exitCode; } ///< The exit code that the process is to give.

    /// Runs a script that ends the process if it asks for that.
    void runAtStart(const QList<QByteArray>& script);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addDock(const QString& title, const QString& name, QWidget* panel, Qt::DockWidgetArea area);
    void addMenus();
    void addSlots();
    void runScript();
    void update();
    bool mayClose();

    Dialogs& m_dialogs;
    Files m_files;
    ScriptRunner m_scripts;
    OpenProject m_project;
    ProjectActions m_actions;
    MenuResponder m_responder; ///< What scripts reach of the menus.
    QAction m_run;
    QAction m_interrupt;
    LogPanel* m_log; ///< Ahead of what may write to it.
    ConsolePanel* m_console;
    CameraPanel* m_camera;
    Layout m_layout; ///< Of the docks.
    int m_exitCode = 0;
};

} // namespace app::desk
