#include "tests/app/desk/support/desktest.h"

#include "core/host/co_command.h"

#include <QAction>
#include <QStatusBar>
#include <QTimer>

namespace {

using app::desk::Tone;

/// The window while scripts work, on threads of their own and on the main thread.
class WorkingScriptTest : public DeskTest {
protected:
    WorkingScriptTest()
    {
        run("import threading, time\n");
        console().clear();
    }
    void run(const QString& script) { Process::instance().scripts().execute(script); }
    int entries() { return Process::instance().session().commandManager()->executedHistorySize(); }

    /// Does something from an event of the main thread, some time from now.
    void later(int milliseconds, const std::function<void()>& call)
    {
        QTimer::singleShot(milliseconds, window.get(), call);
    }
    void interruptLater()
    {
        later(150, [this] { press(Qt::Key_C, Qt::ControlModifier); });
    }
};

TEST_F(WorkingScriptTest, WhatAThreadPrintsAndRaisesIsShown)
{
    run(R"(
def work():
    print("from a thread")
    1 / 0
threading.Thread(target=work).start()
)");
    EXPECT_TRUE(waitFor([this] { return output().endsWith("ZeroDivisionError: division by zero\n"); }));
    EXPECT_TRUE(output().startsWith("from a thread\nException in thread"));
    EXPECT_EQ(toneOf(console().output(), "from a thread"), Tone::Plain);
    EXPECT_EQ(toneOf(console().output(), "ZeroDivisionError"), Tone::Error);
}

TEST_F(WorkingScriptTest, AThreadHasFunctionsRunOnTheMainThread)
{
    run(R"(
seen = []
def on_main():
    seen.append((threading.current_thread() is threading.main_thread(), app.scene.nodes.create("PEG", "Arm").name))
def work():
    app.run_on_main(on_main, True)
    seen.append("went on")
threading.Thread(target=work).start()
)");
    EXPECT_TRUE(waitFor([] { return holds("seen == [(True, 'Arm'), 'went on']"); })) << output().toStdString();
    EXPECT_TRUE(window->isWindowModified());
}

TEST_F(WorkingScriptTest, AFunctionForTheMainThreadRunsWhileAScriptIsBusyThere)
{
    run(R"(
seen = []
def work():
    app.run_on_main(lambda: seen.append(threading.current_thread() is threading.main_thread()), True)
def busy():
    threading.Thread(target=work).start()
    end = time.monotonic() + 20
    while not seen and time.monotonic() < end:
        pass
)");
    type("busy()");
    EXPECT_EQ(answerTo("seen"), "[True]");
}

TEST_F(WorkingScriptTest, AThreadThatTakesTheLockWorksWhileTheWindowLives)
{
    run(R"(
done = threading.Event()
def work():
    for turn in range(40):
        with app.locked():
            app.scene.nodes.create("PEG", "P")
        time.sleep(0.002)
    done.set()
threading.Thread(target=work).start()
)");
    int ticks = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, &clock, [&ticks] { ++ticks; });
    clock.start(1);
    EXPECT_TRUE(waitFor([] { return holds("done.is_set()"); }));
    EXPECT_GT(ticks, 5);
    EXPECT_EQ(entries(), 40);
    EXPECT_TRUE(waitFor([this] { return window->isWindowModified(); }));
    const QAction& undo = window->projectActions().undo();
    EXPECT_TRUE(undo.isEnabled());
    EXPECT_TRUE(undo.text().startsWith("&Undo ")) << undo.text().toStdString();
    window->projectActions().undo().trigger();
    EXPECT_EQ(entries(), 39);
}

TEST_F(WorkingScriptTest, AThreadsChangesAreSeenAlthoughNobodyTouchesTheWindow)
{
    run(R"(
def work():
    app.thread_lock()
    app.thread_lock()
    app.scene.nodes.create("PEG", "P")
    app.thread_unlock()
    app.thread_unlock()
threading.Thread(target=work).start()
)");
    EXPECT_TRUE(waitFor([this] { return window->isWindowModified(); }));
}

TEST_F(WorkingScriptTest, AThreadWithoutTheLockIsKeptOut)
{
    run("threading.Thread(target=lambda: app.scene.name).start()\n");
    EXPECT_TRUE(waitFor([this] {
        return output().endsWith("brindle.Error: Unable to access Object Model from another thread -- application must "
                                 "be locked.\n");
    })) << output().toStdString();
}

TEST_F(WorkingScriptTest, AScriptIsInterrupted)
{
    run("def spin():\n    while True: pass\n");
    interruptLater();
    type("spin()");
    EXPECT_TRUE(output().endsWith("in spin\nKeyboardInterrupt\n")) << output().toStdString();
    EXPECT_EQ(toneOf(console().output(), "KeyboardInterrupt"), Tone::Error);
    EXPECT_EQ(console().prompt(), ">>> ");
    EXPECT_EQ(answerTo("1"), "1");

    interruptLater();
    EXPECT_EQ(console().runFile(write("nap.py", "time.sleep(1000)\n").toUtf8()), std::nullopt);
    EXPECT_TRUE(output().endsWith("KeyboardInterrupt\n"));

    interruptLater();
    paste("app.scene.nodes.create('PEG', 'Arm') and None\nspin()\napp.scene.nodes.create('PEG', 'Leg') and None\n");
    EXPECT_EQ(entries(), 1);
}

TEST_F(WorkingScriptTest, AScriptThatWaitsIsInterrupted)
{
    run("import subprocess\ntimer = threading.Timer(60, print)\ntimer.daemon = True\ntimer.start()\n");
    for (const char* waiting :
         {"time.sleep(60)", "threading.Event().wait()", "timer.join()", "subprocess.run(['sleep', '60'])",
          "subprocess.run(['sleep', '60'], "
          "capture_output=True)"}) {
        console().clear();
        interruptLater();
        type(waiting);
        EXPECT_TRUE(output().endsWith("\nKeyboardInterrupt\n")) << waiting << output().toStdString();
    }
    run("timer.cancel()\n");
}

TEST_F(WorkingScriptTest, AnInterruptIsTheScriptsToHandle)
{
    // Python 3.11 takes a loop that begins a try for one ahead of it.
    run(R"(
def stubborn():
    try:
        turns = 0
        while True: turns += 1
    except KeyboardInterrupt:
        return "handled"
)");
    later(100, [this] { window->interruptAction().trigger(); });
    EXPECT_EQ(answerTo("stubborn()").toStdString(), "'handled'");
    // One that comes when nothing runs is for nobody.
    Process::instance().console().interrupt();
    EXPECT_EQ(answerTo("sum(range(100000))"), "4999950000");
}

TEST_F(WorkingScriptTest, TheWindowShowsWhatAScriptDoesButLetsNobodyIntoIt)
{
    run(R"(
def work():
    print("begun")
    app.scene.nodes.create("PEG", "Arm")
    while go: pass
    return "ended"
go = True
)");
    auto& actions = window->projectActions();
    bool looked = false;
    later(150, [&] {
        looked = true;
        EXPECT_TRUE(output().endsWith("begun\n"));
        EXPECT_TRUE(window->isWindowModified());
        EXPECT_EQ(console().prompt(), "");
        for (QAction* action :
             {&actions.save(), &actions.saveAs(), &actions.undo(), &actions.redo(), &window->runAction()})
            EXPECT_FALSE(action->isEnabled());
        EXPECT_TRUE(window->interruptAction().isEnabled());
        QTest::keyClicks(&input(), "exit()");
        press(Qt::Key_Return);
        press(Qt::Key_Tab);
        paste("exit()\n");
        EXPECT_EQ(console().runFile(path("none.py").toUtf8()), std::nullopt);
        EXPECT_FALSE(window->close());
        EXPECT_EQ(window->statusBar()->currentMessage(), "A script is running; interrupt it first.");
        run("go = False\n");
    });
    type("work()");
    EXPECT_TRUE(looked);
    EXPECT_EQ(output(), ">>> work()\nbegun\n'ended'\n");
    EXPECT_EQ(input().text(), "");
    EXPECT_EQ(console().prompt(), ">>> ");
    EXPECT_TRUE(actions.undo().isEnabled());
    EXPECT_TRUE(actions.save().isEnabled());
    EXPECT_FALSE(window->interruptAction().isEnabled());
    EXPECT_EQ(dialogs.questions, QStringList());
}

TEST_F(WorkingScriptTest, AScriptMayHaveEventsHandledItself)
{
    run("def work():\n    while not seen: app.process_one_event()\nseen = []\n");
    later(20, [this] { run("seen.append(1)\n"); });
    type("work()");
    EXPECT_EQ(answerTo("seen"), "[1]");
}

TEST_F(WorkingScriptTest, MuchThatIsPrintedAtOnceEndsWhereItEnds)
{
    type("for i in range(200_000): print(i)");
    type("");
    EXPECT_TRUE(output().endsWith("\n199999\n"));
    EXPECT_LE(console().output().blockCount(), app::desk::TextView::maxLines);
}

TEST_F(WorkingScriptTest, APrinterThatHasGoneLeavesThePrintsToTheProcess)
{
    window.reset();
    testing::internal::CaptureStdout();
    run("print('on standard output')\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "on standard output\n");
}

} // namespace
