#include "app/desk/mainwindow.h"

#include "app/desk/camerapanel.h"
#include "app/desk/console/consolepanel.h"
#include "app/desk/dialogs.h"
#include "app/desk/logpanel.h"
#include "app/desk/placement.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QFile>
#include <QFileInfo>
#include <QMenuBar>
#include <QStandardPaths>
#include <QStatusBar>

namespace app::desk {

namespace {

constexpr int messageTime = 5'000; ///< In milliseconds.
constexpr int firstLogHeight = 170;
constexpr int firstCameraWidth = 480;

} // namespace

MainWindow::Files MainWindow::Files::ofUser()
{
    const QString settings = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return {InputHistory::fileOfUser(), settings.isEmpty() ? QString() : settings + "/brindle/desk.ini"};
}

MainWindow::MainWindow(SC_SessionContext& session, BAPP_ScriptConsole& console, Dialogs& dialogs, const Files& files,
                       bool showsDebug)
    : m_dialogs(dialogs),
      m_files(files),
      m_scripts(console),
      m_project(session),
      m_actions(m_project, m_scripts, dialogs, *this),
      m_responder(session.actionManager()),
      m_run(tr("&Run Script...")),
      m_interrupt(tr("&Interrupt Script")),
      m_log(new LogPanel(showsDebug, this)),
      m_console(new ConsolePanel(m_scripts, files.history, this)),
      m_camera(new CameraPanel(*session.stage(), m_project, this))
{
    m_run.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
    m_interrupt.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Period));
    setCentralWidget(m_console);
    addDock(tr("Camera"), QStringLiteral("camera"), m_camera, Qt::RightDockWidgetArea);
    addDock(tr("Log"), QStringLiteral("log"), m_log, Qt::BottomDockWidgetArea);
    addMenus();
    addSlots();
    connect(&m_run, &QAction::triggered, this, &MainWindow::runScript);
    connect(&m_interrupt, &QAction::triggered, m_console, &ConsolePanel::interrupt);
    connect(m_console, &ConsolePanel::leaveAsked, this, &MainWindow::leave);
    connect(&m_project, &OpenProject::changed, this, &MainWindow::update);
    connect(&m_scripts, &ScriptRunner::started, this, &MainWindow::update);
    connect(&m_scripts, &ScriptRunner::ended, this, &MainWindow::update);
    statusBar();
    update();
    restorePlacement(*this, m_files.placement);
    m_console->setFocus();
}

/// Console and camera view use what is destroyed ahead of a widget's children.
MainWindow::~MainWindow()
{
    delete m_camera;
    delete m_console;
}

/// The place of a dock is kept under its name.
void MainWindow::addDock(const QString& title, const QString& name, QWidget* panel, Qt::DockWidgetArea area)
{
    auto* dock = new QDockWidget(title, this);
    dock->setObjectName(name);
    dock->setWidget(panel);
    addDockWidget(area, dock);
    m_layout.add(*dock);
    if (area == Qt::BottomDockWidgetArea)
        resizeDocks({dock}, {firstLogHeight}, Qt::Vertical);
    else
        resizeDocks({dock}, {firstCameraWidth}, Qt::Horizontal);
}

void MainWindow::addMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addActions({&m_actions.save(), &m_actions.saveAs()});
    file->addSeparator();
    file->addActions({&m_run, &m_interrupt});
    file->addSeparator();
    file->addAction(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), this, &MainWindow::close);
    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    edit->addActions({&m_actions.undo(), &m_actions.redo()});
    QMenu* view = menuBar()->addMenu(tr("&View"));
    for (QDockWidget* dock : findChildren<QDockWidget*>())
        view->addAction(dock->toggleViewAction());
}

void MainWindow::addSlots()
{
    const auto isOpen = [this] { return m_project.isOpen(); };
    const auto always = [] { return true; };
    m_responder.add({"onActionSave()", [this] { return m_project.isOpen() && !m_project.isReadOnly(); },
                     [this] { return m_actions.saveProject(); }});
    m_responder.add({"onActionSaveAs()", isOpen, [this] { return m_actions.saveProjectAs(); }});
    m_responder.add({"onActionUndo()", [this] { return m_project.undoLabel().has_value(); },
                     [this] {
                         m_project.undo();
                         return true;
                     }});
    m_responder.add({"onActionRedo()", [this] { return m_project.redoLabel().has_value(); },
                     [this] {
                         m_project.redo();
                         return true;
                     }});
    for (QDockWidget* dock : findChildren<QDockWidget*>()) {
        QAction* toggle = dock->toggleViewAction();
        // "log" is shown and hidden by "onActionToggleLog()".
        QString name = dock->objectName();
        name[0] = name[0].toUpper();
        m_responder.add({"onActionToggle" + name + "()", always,
                         [toggle] {
                             toggle->trigger();
                             return true;
                         },
                         [toggle] { return toggle->isChecked(); }});
    }
}

void MainWindow::leave(int exitCode)
{
    m_exitCode = exitCode;
    close();
}

void MainWindow::runAtStart(const QList<QByteArray>& script)
{
    if (const std::optional<int> code = m_console->runFile(script.first(), script.mid(1)))
        leave(*code);
}

/// A script that the person chose while working here is one of many things: its end isn't that of the window.
void MainWindow::runScript()
{
    const QString path = m_dialogs.askScript(this, QFileInfo(m_project.path()).path());
    if (path.isEmpty())
        return;
    if (const std::optional<int> code = m_console->runFile(QFile::encodeName(path)))
        statusBar()->showMessage(tr("The script ended with exit code %1.").arg(*code), messageTime);
}

void MainWindow::update()
{
    const bool isRunning = m_scripts.isRunning();
    m_run.setEnabled(!isRunning);
    m_interrupt.setEnabled(isRunning);
    // Qt adds the program's name.
    const QString name = m_project.isOpen() ? m_project.name().replace("[*]", "[*][*]") : tr("No project");
    setWindowTitle(name + "[*]" + (m_project.isReadOnly() ? tr(" (read-only)") : QString()));
    setWindowModified(m_project.isOpen() && m_project.isModified());
}

bool MainWindow::mayClose()
{
    if (m_scripts.isRunning()) {
        statusBar()->showMessage(tr("A script is running; interrupt it first."), messageTime);
        return false;
    }
    if (!m_project.isModified())
        return true;
    switch (m_dialogs.askAboutChanges(this, m_project.name())) {
    case Dialogs::Answer::Save:
        return m_actions.saveProject();
    case Dialogs::Answer::Discard:
        return true;
    case Dialogs::Answer::Cancel:
        break;
    }
    return false;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (mayClose()) {
        keepPlacement(*this, m_files.placement);
        return;
    }
    event->ignore();
    m_exitCode = 0;
}

} // namespace app::desk
