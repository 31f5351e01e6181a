#include "app/desk/desk.h"

#include "app/command.h"
#include "app/desk/dialogs.h"
#include "app/desk/interrupthelper.h"
#include "app/desk/mainwindow.h"
#include "app/desk/scripting.h"
#include "app/desk/terminalinterrupt.h"
#include "engine/engine.h"

#include <QApplication>
#include <QFile>
#include <QScopeGuard>
#include <QTimer>

namespace app::desk {

namespace {

/// An empty text, or the reason why it isn't open.
QString openProject(SC_SessionContext& session, const Options& options)
{
    QString error;
    SC_ProjectManager& manager = *session.projectManager();
    if (options.make)
        manager.createProject(options.project, error);
    else if (options.readOnly)
        manager.openProjectReadOnly(options.project, error);
    else
        manager.openProject(options.project, error);
    return error;
}

/// Runs the window and its event loop.
int work(SC_SessionContext& session, BAPP_ScriptConsole& console, const Options& options)
{
    DesktopDialogs dialogs;
    MainWindow window(session, console, dialogs, MainWindow::Files::ofUser(), options.verbose);
    const TerminalInterrupt interrupt([&window] { window.close(); });
    InterruptHelper helper(QFile::encodeName(QCoreApplication::applicationFilePath()));
    console.setWatcher([&helper](bool isStuck) { isStuck ? helper.begin() : helper.end(); });
    const auto unwatched = qScopeGuard([&console] { console.setWatcher({}); });
    window.show();
    if (!options.script.isEmpty())
        QTimer::singleShot(0, &window, [&] { window.runAtStart(options.script); });
    QApplication::exec();
    return window.exitCode();
}

} // namespace

int run(const Options& options)
{
    brindle::engine::setLogVerbose(options.verbose);
    brindle::engine::Application application("brindle", BRINDLE_VERSION, true);
    const auto session = brindle::engine::createPythonSession();
    if (const QString error = openProject(*session, options); !error.isEmpty())
        return fail(error, failed);

    const brindle::engine::MainLoop loop;
    Scripting scripting(application, *session);
    if (!scripting.console())
        return fail(QString("Scripting can't be loaded: %1").arg(scripting.error()), failed);
    const int code = work(*session, *scripting.console(), options);
    scripting.closeProject();
    return code;
}

} // namespace app::desk
