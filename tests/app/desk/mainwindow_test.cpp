#include "tests/app/desk/support/desktest.h"

#include "core/host/ac_manager.h"
#include "core/host/co_command.h"

#include <QDockWidget>
#include <QFileInfo>
#include <QMenuBar>
#include <QStatusBar>

namespace {

using app::desk::Dialogs;
using app::desk::MainWindow;

class MainWindowTest : public DeskTest {
protected:
    static SC_SessionContext& session() { return Process::instance().session(); }
    app::desk::ProjectActions& actions() { return window->projectActions(); }
    QStringList labels() { return session().commandManager()->collectExecutedNames(); }
    /// A change through the console.
    void change()
    {
        type("peg = app.scene.nodes.create('PEG', 'Arm')");
        runEvents(0);
    }
    bool isOnDisk(const QString& project, const QString& text)
    {
        QDir dir(path(project));
        for (const QFileInfo& file : dir.entryInfoList(QDir::Files)) {
            QFile content(file.filePath());
            if (content.open(QIODevice::ReadOnly) && content.readAll().contains(text.toUtf8()))
                return true;
        }
        return false;
    }
};

TEST_F(MainWindowTest, TheTitleTellsTheProjectAndWhetherItIsSaved)
{
    EXPECT_EQ(window->windowTitle(), "walk[*]");
    EXPECT_FALSE(window->isWindowModified());
    change();
    EXPECT_TRUE(window->isWindowModified());
    actions().save().trigger();
    runEvents(0);
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_TRUE(isOnDisk("walk", "Arm"));
    actions().undo().trigger();
    runEvents(0);
    EXPECT_TRUE(window->isWindowModified());
    actions().redo().trigger();
    runEvents(0);
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_EQ(dialogs.failures, QStringList());
}

TEST_F(MainWindowTest, AScriptPerformsWhatTheMenusDo)
{
    change();
    type("print(app.actions.responders, app.actions.validate_action('onActionUndo()')['enabled'])");
    type("print(app.actions.perform('onActionUndo()'), app.actions.perform('onActionUndo()'))");
    EXPECT_EQ(labels(), QStringList());
    type("print(app.actions.perform('onActionRedo()', 'desk'), app.actions.perform('onActionSave()'))");
    runEvents(0);
    EXPECT_FALSE(window->isWindowModified());
    QDockWidget* log = window->findChild<QDockWidget*>("log");
    const bool isShown = log->toggleViewAction()->isChecked();
    type("print(app.actions.perform('onActionToggleLog()'), app.about.interactive)");
    EXPECT_NE(log->toggleViewAction()->isChecked(), isShown);
    EXPECT_EQ(labels().size(), 1);
    AC_Manager& actions = *session().actionManager();
    bool isEnabled = false;
    bool isChecked = isShown;
    EXPECT_EQ(actions.validate("onActionToggleLog()", "", isEnabled, isChecked), 0);
    EXPECT_TRUE(isEnabled);
    EXPECT_EQ(isChecked, !isShown);
}

TEST_F(MainWindowTest, TheMenuUndoesAndRedoesUnderTheLabelsOfTheHistory)
{
    EXPECT_EQ(actions().undo().text(), "&Undo");
    EXPECT_FALSE(actions().undo().isEnabled());
    EXPECT_FALSE(actions().redo().isEnabled());
    change();
    type("peg.name = 'Leg'");
    runEvents(0);
    const QStringList done = labels();
    ASSERT_EQ(done.size(), 2);
    ASSERT_TRUE(done.last().contains("Leg"));
    EXPECT_EQ(actions().undo().text(), "&Undo " + done.last());
    actions().undo().trigger();
    EXPECT_EQ(answerTo("peg.name"), "'Arm'");
    EXPECT_EQ(actions().undo().text(), "&Undo " + done.first());
    EXPECT_EQ(actions().redo().text(), "&Redo " + done.last());
    EXPECT_TRUE(actions().redo().isEnabled());
    actions().undo().trigger();
    runEvents(0);
    EXPECT_FALSE(actions().undo().isEnabled());
    actions().redo().trigger();
    actions().redo().trigger();
    runEvents(0);
    EXPECT_FALSE(actions().redo().isEnabled());
    EXPECT_EQ(labels(), done);
}

TEST_F(MainWindowTest, ALabelIsShownAsItIs)
{
    type("with app.project.history.bracket('Cut & paste'): app.scene.nodes.create('PEG', 'Arm')");
    type("");
    runEvents(0);
    ASSERT_EQ(labels(), QStringList("Cut & paste"));
    EXPECT_EQ(actions().undo().text(), "&Undo Cut && paste");
}

TEST_F(MainWindowTest, TheKeysOfUndoGoToTheProjectUnlessTheLineHasSomethingToUndo)
{
    change();
    QTest::keyClicks(&input(), "typed");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(input().text(), "");
    EXPECT_EQ(labels().size(), 1);
}

TEST_F(MainWindowTest, SavingElsewhereGoesOnThere)
{
    change();
    dialogs.folder = path("run");
    actions().saveAs().trigger();
    runEvents(0);
    EXPECT_EQ(dialogs.proposal, path("walk") + "-2");
    EXPECT_EQ(window->windowTitle(), "run[*]");
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_TRUE(isOnDisk("run", "Arm"));
    EXPECT_FALSE(isOnDisk("walk", "Arm"));
}

TEST_F(MainWindowTest, AFailureToSaveIsToldAndChangesNothing)
{
    change();
    dialogs.folder = path("walk");
    actions().saveAs().trigger();
    dialogs.folder = QString();
    actions().saveAs().trigger();
    EXPECT_EQ(dialogs.failures.size(), 1);
    EXPECT_TRUE(dialogs.failures.value(0).contains(path("walk"))) << dialogs.failures.value(0).toStdString();
    EXPECT_EQ(window->windowTitle(), "walk[*]");
    EXPECT_TRUE(window->isWindowModified());
}

TEST_F(MainWindowTest, AReadOnlyProjectIsSavedElsewhereOnly)
{
    type(QString("app = brindle.open('%1', read_only=True)").arg(path("walk")));
    runEvents(0);
    EXPECT_EQ(window->windowTitle(), "walk[*] (read-only)");
    EXPECT_FALSE(actions().save().isEnabled());
    EXPECT_TRUE(actions().saveAs().isEnabled());
    dialogs.folder = path("mine");
    EXPECT_TRUE(actions().saveProject());
    runEvents(0);
    EXPECT_EQ(window->windowTitle(), "mine[*]");
    EXPECT_TRUE(actions().save().isEnabled());
}

TEST_F(MainWindowTest, ScriptsMayCloseTheProjectAndOpenAnotherOne)
{
    change();
    type("app.close()");
    runEvents(0);
    EXPECT_EQ(window->windowTitle(), "No project[*]");
    EXPECT_FALSE(window->isWindowModified());
    for (QAction* action : {&actions().save(), &actions().saveAs(), &actions().undo(), &actions().redo()})
        EXPECT_FALSE(action->isEnabled());
    type(QString("app = brindle.create('%1')").arg(path("other [*]")));
    runEvents(0);
    EXPECT_EQ(window->windowTitle(), "other [*][*][*]");
    EXPECT_TRUE(actions().save().isEnabled());
}

TEST_F(MainWindowTest, ASavedProjectIsClosedWithoutAQuestion)
{
    EXPECT_TRUE(window->close());
    EXPECT_EQ(dialogs.questions, QStringList());
}

TEST_F(MainWindowTest, ClosingAsksAboutUnsavedChanges)
{
    change();
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(dialogs.questions, QStringList("walk"));
    EXPECT_FALSE(isOnDisk("walk", "Arm"));

    dialogs.answer = Dialogs::Answer::Discard;
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(isOnDisk("walk", "Arm"));

    window->show();
    dialogs.answer = Dialogs::Answer::Save;
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(isOnDisk("walk", "Arm"));
    EXPECT_EQ(dialogs.questions.size(), 3);
}

TEST_F(MainWindowTest, WhatCantBeSavedIsntClosed)
{
    type(QString("app = brindle.open('%1', read_only=True)").arg(path("walk")));
    change();
    dialogs.answer = Dialogs::Answer::Save;
    EXPECT_FALSE(window->close());
    dialogs.folder = path("walk");
    EXPECT_FALSE(window->close());
    EXPECT_EQ(dialogs.failures.size(), 1);
    dialogs.folder = path("mine");
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(isOnDisk("mine", "Arm"));
}

TEST_F(MainWindowTest, ItAsksOnceThoughItIsToldToCloseMeanwhile)
{
    change();
    dialogs.whileAsked = [this] { window->leave(3); };
    EXPECT_FALSE(window->close());
    EXPECT_EQ(dialogs.questions.size(), 1);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->exitCode(), 0);
}

TEST_F(MainWindowTest, AStatementThatEndsTheProcessAsksToClose)
{
    change();
    type("exit(3)");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->exitCode(), 0);
    EXPECT_EQ(answerTo("'stayed'"), "'stayed'");
    dialogs.answer = Dialogs::Answer::Discard;
    type("import sys; sys.exit(4)");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->exitCode(), 4);
}

TEST_F(MainWindowTest, AScriptOfTheMenuEndsOnlyItself)
{
    dialogs.script = write("go.py", "x = 1\nraise SystemExit(5)\n");
    window->runAction().trigger();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->statusBar()->currentMessage(), "The script ended with exit code 5.");
    EXPECT_EQ(answerTo("x"), "1");
    dialogs.script = QString();
    const QString before = output();
    window->runAction().trigger();
    EXPECT_EQ(output(), before);
    window->runAtStart({path("go.py").toUtf8()});
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->exitCode(), 5);
}

TEST_F(MainWindowTest, TheMenusOfferWhatThereIs)
{
    QStringList texts;
    for (const QAction* menu : window->menuBar()->actions()) {
        for (const QAction* action : menu->menu()->actions()) {
            if (!action->isSeparator())
                texts.append(menu->text() + " > " + action->text());
        }
    }
    EXPECT_EQ(texts, QStringList({"&File > &Save", "&File > Save &As...", "&File > &Run Script...",
                                  "&File > &Interrupt Script", "&File > &Quit", "&Edit > &Undo", "&Edit > &Redo",
                                  "&View > Camera", "&View > Log"}));
    for (const QDockWidget* dock : window->findChildren<QDockWidget*>())
        EXPECT_TRUE(dock->isVisible()) << dock->objectName().toStdString();
}

TEST_F(MainWindowTest, ItsPlaceAndItsHistoryAreKept)
{
    const MainWindow::Files files{path("history"), path("desk.ini")};
    Process& process = Process::instance();
    window.reset();
    window = std::make_unique<MainWindow>(process.session(), process.console(), dialogs, files);
    window->show();
    window->resize(700, 500);
    type("1 + 1");
    window->findChild<QDockWidget*>("log")->hide();
    ASSERT_TRUE(window->close());
    window.reset();
    window = std::make_unique<MainWindow>(process.session(), process.console(), dialogs, files);
    window->show();
    EXPECT_EQ(window->size(), QSize(700, 500));
    EXPECT_FALSE(window->findChild<QDockWidget*>("log")->isVisible());
    press(Qt::Key_Up);
    EXPECT_EQ(input().text(), "1 + 1");
}

} // namespace
