#include "core/host/co_command.h"
#include "core/host/mo_node.h"
#include "core/host/tu_node.h"
#include "tests/service/support/interactive.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <thread>

// The application's lock between threads of a script and the main thread of an application with an event loop.

namespace {

using namespace std::chrono_literals;

constexpr const char* common = R"py(
import sys, threading, time
def place(): return app.scene.nodes["Top/Display"].position.x
def tell(*what): sys.stderr.write(" ".join(map(str, what)) + "\n") # whole, of whichever thread
count = 0
def counting():
    global count
    while not done.is_set():
        count += 1
        time.sleep(0.001)
done = threading.Event()
)py";

/// Moves the display by one.
void tick(Interactive& application)
{
    MO_Node* node = node_util::getNodeFromQualifiedName_optimized(application.scene().sceneCommon(), "Top/Display");
    application.session().commandManager()->execute(new tu_node::SetXYCmd(node, node->x() + 1, node->y()), "tick");
}

void handleEventsFor(std::chrono::milliseconds time)
{
    QTimer::singleShot(time, [] { QCoreApplication::quit(); });
    QCoreApplication::exec();
}

/// Gives a test what its scripts have in common, and ends the process when it stands still.
void begin(Interactive& application)
{
    std::thread([] {
        std::this_thread::sleep_for(25s);
        std::_Exit(105);
    }).detach();
    application.mustExecute(common);
}

TEST(ThreadLockTest, AThreadWithTheLockHoldsTheEventLoop)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            begin(application);
            QTimer ticks;
            QObject::connect(&ticks, &QTimer::timeout, [&] { tick(application); });
            ticks.start(1);
            application.mustExecute(R"py(
def work():
    time.sleep(0.05)
    app.thread_lock()
    first = place()
    time.sleep(0.15)
    tell("held:", place() == first, first > 0)
    app.thread_unlock()
    time.sleep(0.1)
    app.thread_lock()
    tell("went on:", place() > first)
    app.thread_unlock()
threading.Thread(target=work).start()
)py");
            handleEventsFor(600ms);
        },
        "held: True True\nwent on: True\n0 objects left");
}

TEST(ThreadLockTest, ALockAskedForInPythonIsTakenUpWhenTheMainThreadLeaves)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            begin(application);
            QElapsedTimer time;
            time.start();
            application.mustExecute(R"py(
entered = threading.Event()
def work():
    app.thread_lock()
    position = app.scene.nodes["Top/Display"].position
    entered.set()
    time.sleep(0.2)
    # A view that makes no check of its own.
    position.x = 100
    app.thread_unlock()
threading.Thread(target=work).start()
entered.wait()
)py");
            tick(application);
            const auto* node =
                node_util::getNodeFromQualifiedName_optimized(application.scene().sceneCommon(), "Top/Display");
            std::fprintf(stderr, "waited: %d, at %d\n", time.elapsed() >= 200, node->x());
        },
        "waited: 1, at 101\n0 objects left");
}

TEST(ThreadLockTest, ALockWhoseThreadHasEndedIsGivenBackWhenTheMainThreadNeedsIt)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            begin(application);
            TUSceneChangeManager& changes = *application.session().changeManager();
            // Asked for while the main thread is in Python.
            application.mustExecute(R"py(
thread = threading.Thread(target=lambda: (app.thread_lock(), app.thread_lock()))
thread.start()
thread.join()
)py");
            std::fprintf(stderr, "notified: %d\n", changes.isNotifyEnabled());
            // Taken while it waits for events.
            application.mustExecute(R"py(
def work():
    time.sleep(0.02)
    try:
        app.run_function(lambda: 1 / 0)
    except ZeroDivisionError:
        pass
thread = threading.Thread(target=work)
thread.start()
)py");
            handleEventsFor(100ms);
            std::fprintf(stderr, "notified: %d\n", changes.isNotifyEnabled());
            tick(application);
        },
        "^Error: A thread of a script ended with the application locked; it is unlocked again.\nnotified: 1\n"
        "Error: A thread of a script ended with the application locked; it is unlocked again.\nnotified: 1\n"
        "0 objects left");
}

TEST(ThreadLockTest, ALockIsKeptWhileOneOfItsThreadsLives)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            begin(application);
            application.mustExecute(R"py(
entered = threading.Event()
def work():
    app.thread_lock()
    entered.set()
    # Longer than the main thread waits before it looks.
    time.sleep(0.6)
    tell(place())
    app.thread_unlock()
    app.thread_unlock()
def left():
    entered.wait()
    app.thread_lock()
for target in (work, left): threading.Thread(target=target).start()
entered.wait()
time.sleep(0.05)
)py");
            tick(application);
            std::fprintf(stderr, "went on\n");
        },
        "^0\nwent on\n0 objects left");
}

TEST(ThreadLockTest, OtherThreadsRunPythonWhileOneWaitsForABusyMainThread)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            begin(application);
            application.mustExecute(R"py(
def work():
    time.sleep(0.02)
    begin = time.monotonic()
    with app.locked():
        tell("waited:", time.monotonic() - begin > 0.1, count > 5)
    done.set()
for target in (work, counting): threading.Thread(target=target).start()
)py");
            // The main thread is at work, with the application held.
            std::this_thread::sleep_for(250ms);
            handleEventsFor(100ms);
        },
        "waited: True True\n0 objects left");
}

TEST(ThreadLockTest, AProjectThatClosesWhileAThreadWaitsLeavesItWithoutTheLock)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            begin(application);
            application.mustExecute(R"py(
def work():
    time.sleep(0.03)
    for turn in range(2):
        try:
            with app.locked():
                tell("entered")
        except brindle.Error as error:
            tell(error)
threads = [threading.Thread(target=work) for turn in range(2)]
for thread in threads: thread.start()
)py");
            // The main thread is at work, with the application held, and comes to close the project.
            std::this_thread::sleep_for(100ms);
            application.session().projectManager()->closeProject();
            handleEventsFor(100ms);
            application.mustExecute("for thread in threads: thread.join()\n");
        },
        "^(Thread failed to get Application Lock.\n){4}0 objects left");
}

TEST(ThreadLockTest, ThreadsRunPythonWhileAnEventLoopWaitsInsideAScriptsCall)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            begin(application);
            QTimer::singleShot(0, [] {
                QEventLoop nested;
                QTimer::singleShot(150, &nested, [&] { nested.quit(); });
                nested.exec();
            });
            application.mustExecute(R"py(
threading.Thread(target=counting).start()
before = count
app.process_one_event()
tell("counted:", count - before > 5)
done.set()
)py");
        },
        "counted: True\n0 objects left");
}

TEST(ThreadLockTest, AFunctionReachesAnIdleMainThread)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            begin(application);
            application.mustExecute(R"py(
def work():
    for turn in range(3):
        begin = time.monotonic()
        app.run_on_main(lambda: app.scene.nodes.create("PEG", "a"), True)
        tell(time.monotonic() - begin < 2)
threading.Thread(target=work).start()
)py");
            handleEventsFor(600ms);
        },
        "True\nTrue\nTrue\n0 objects left");
}

TEST(ThreadLockTest, ALockThatIsReallyHeldKeepsTheMainThreadFromTheFunction)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            begin(application);
            application.mustExecute(R"py(
def work():
    time.sleep(0.05)
    with app.locked():
        place()
        app.run_on_main(lambda: tell("called"), False)
        time.sleep(0.1)
        tell("unlocking")
threading.Thread(target=work).start()
)py");
            handleEventsFor(400ms);
        },
        "unlocking\ncalled\n0 objects left");
}

} // namespace
