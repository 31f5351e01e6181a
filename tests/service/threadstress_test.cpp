#include "core/host/co_command.h"
#include "core/host/mo_node.h"
#include "core/host/tu_node.h"
#include "tests/service/support/interactive.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

// Eight threads of a script take the application's lock in turn, read and write, while the main thread runs its event
// loop, changes the project itself, and goes in and out of Python. Nothing may be lost, and nothing may stand still.
//
// The script here takes care of the part that the rules leave to it: threads that read a value and write it back do so
// in `with app.locked():`, and a value has either the main thread or the others for its writers. The main thread isn't
// kept out while it is inside Python.

namespace {

constexpr const char* script = R"py(
import sys, threading, time
nodes = app.scene.nodes
for name in ("Shared", "Main", "Job", "Raw"):
    nodes.create("PEG", name)
    nodes["Top/" + name].position = [0, 0]
app.project.history.clear()
stop = threading.Event()
THREADS = 8
turn = threading.Lock()
counts = {"shared": 0, "job": 0, "raw": 0, "python": 0, "extra": 0}
problems = []

def bump_job():
    position = app.scene.nodes["Top/Job"].position
    position.x = position.x + 1
    counts["job"] += 1

def bump_shared():
    with app.locked():
        position = app.scene.nodes["Top/Shared"].position
        x = position.x
        if x != counts["shared"]:
            problems.append(f"read {x} after writing {counts['shared']}")
        position.x = x + 1
        counts["shared"] += 1

def bump_raw():
    # The lock by itself doesn't make threads take turns.
    with turn:
        app.thread_lock()
        try:
            position = app.scene.nodes["Top/Raw"].position
            position.x = position.x + 1
            counts["raw"] += 1
        finally:
            app.thread_unlock()

def make_and_remove():
    with app.locked():
        made = app.scene.nodes.create("PEG", "T")
        made.attributes["angle"].set_value(3, 1.5)
        if made.attributes["angle"].value(3) != 1.5:
            problems.append("a value that isn't there")
        app.scene.nodes.remove(made)
        counts["extra"] += 3

def work(number):
    try:
        turns = 0
        while not stop.is_set():
            turns += 1
            if turns % 97 == 0:
                app.run_on_main(bump_job, True)
            elif turns % 41 == 0:
                with app.locked():
                    app.save()
            elif turns % 13 == 0:
                make_and_remove()
            elif turns % 3 == 0:
                bump_raw()
            else:
                bump_shared()
            if turns % 5 == 0:
                time.sleep(0.0005)
    except BaseException as error:
        problems.append(f"{type(error).__name__}: {error}")

threads = [threading.Thread(target=work, args=(i,)) for i in range(THREADS)]
def finish():
    for thread in threads:
        thread.join()
    app.run_on_main(leave, True)
)py";

/// In the main thread's turns in Python: reads what the threads write, and changes a value of its own.
constexpr const char* mainTurn = R"py(
position = app.scene.nodes["Top/Main"].position
position.y = position.y + 1
counts["python"] += 1
if app.scene.nodes["Top/Shared"].position.x > counts["shared"]:
    problems.append("a value from the future")
)py";

/// The main thread inside Python, waiting for threads that ask for the lock meanwhile.
constexpr const char* parkedTurn = R"py(
helper = threading.Thread(target=bump_shared)
helper.start()
helper.join()
app.process_one_event()
)py";

constexpr const char* verdict = R"py(
def expect(value, wanted, what):
    if value != wanted:
        problems.append(f"{what}: {value} instead of {wanted}")
expect(app.scene.nodes["Top/Shared"].position.x, counts["shared"], "the threads' value")
expect(app.scene.nodes["Top/Raw"].position.x, counts["raw"], "the value under the lock by itself")
expect(app.scene.nodes["Top/Job"].position.x, counts["job"], "the jobs' value")
expect(app.scene.nodes["Top/Main"].position.y, counts["python"], "the main thread's value in Python")
expect(app.scene.nodes["Top/Main"].position.x, native, "the main thread's value in its events")
steps = sum(counts.values()) + native
kept = 100_000  # The undo list forgets what is older.
expect(app.project.history.size_executed, min(steps, kept), "steps that can be undone")
expect(len(app.scene.nodes), 6, "nodes")
app.project.history.undo(app.project.history.size_executed)
if steps <= kept:
    expect([app.scene.nodes["Top/" + n].position.x for n in ("Shared", "Main", "Job", "Raw")], [0, 0, 0, 0], "undone")
busy = all(counts.values()) and native > 0
print("problems:", problems[:5], "busy:", busy, file=sys.stderr)
print({**counts, "native": native}, file=sys.stderr)
)py";

int stressSeconds()
{
    const int seconds = qEnvironmentVariableIntValue("BRINDLE_STRESS_SECONDS");
    return seconds > 0 ? seconds : 4;
}

/// Ends the process when the time is up and nothing has come of it.
void watch(int seconds)
{
    std::thread([seconds] {
        std::this_thread::sleep_for(std::chrono::seconds(seconds));
        std::fprintf(stderr, "it stands still\n");
        std::fflush(stderr);
        std::_Exit(105);
    }).detach();
}

void stress(Interactive& application)
{
    watch(stressSeconds() * 2 + 60);
    application.mustExecute(script);
    application.mustExecute("def leave():\n    global left\n    left = True\nleft = False\n"
                            "for thread in threads: thread.start()\n");

    // The main thread's own changes, in events: one at a time, whole, with the application held.
    int native = 0;
    QTimer ticks;
    QObject::connect(&ticks, &QTimer::timeout, [&] {
        MO_Node* node = node_util::getNodeFromQualifiedName_optimized(application.scene().sceneCommon(), "Top/Main");
        CO_CommandManager* manager = application.session().commandManager();
        if (manager->execute(new tu_node::SetXYCmd(node, node->x() + 1, node->y()), "tick"))
            ++native;
    });
    ticks.start(1);
    QTimer inPython;
    QObject::connect(&inPython, &QTimer::timeout, [&] { application.mustExecute(mainTurn); });
    inPython.start(3);
    QTimer parked;
    QObject::connect(&parked, &QTimer::timeout, [&] { application.mustExecute(parkedTurn); });
    parked.start(50);
    QTimer::singleShot(stressSeconds() * 1000, [&] {
        inPython.stop();
        parked.stop();
        application.mustExecute("stop.set()\nfinisher = threading.Thread(target=finish)\nfinisher.start()\n");
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
    ticks.stop();
    // It is over when the statement ends otherwise than well.
    while (application.execute("if left: raise SystemExit\n"))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    application.mustExecute("finisher.join()\n");
    application.mustExecute(qPrintable(QStringLiteral("native = %1\n").arg(native)));
    application.mustExecute(verdict);
}

TEST(ThreadStressTest, NothingIsLostAndNothingStandsStill)
{
    EXPECT_INTERACTIVE(stress, "problems: \\[\\] busy: True\n(.|\n)*0 objects left");
}

} // namespace
