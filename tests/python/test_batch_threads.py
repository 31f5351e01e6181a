"""Threads of a script in a batch: who may go on, the lock, functions on the main thread, and how a script ends."""

import brindle
import pytest

import support

LOCKED_OUT = "Unable to access Object Model from another thread -- application must be locked."
NO_LOCK = "Thread failed to get Application Lock."
NO_BLOCK = "This thread is in no locked block."

# Runs a call on a thread of its own; what it raises is what the call here raises.
FRAME = """
import brindle, sys, threading, time
app = brindle.application()
main = threading.current_thread()

def on_thread(function, *arguments):
    outcome = []
    def run():
        try:
            outcome.append((function(*arguments), None))
        except BaseException as error:
            outcome.append((None, error))
    thread = threading.Thread(target=run)
    thread.start()
    while thread.is_alive():
        app.process_one_event()
        thread.join(0.005)
    value, error = outcome[0]
    if error is not None:
        raise error
    return value

def failure(function, *arguments):
    try:
        function(*arguments)
    except brindle.Error as error:
        return str(error)
    return "no failure"

"""


@pytest.fixture
def batch(tmp_path):
    """Runs a script with a project open, and gives its exit code, output and errors."""
    folder = tmp_path / "project"
    brindle.create(folder).close()
    script = tmp_path / "script.py"

    def run(text, *options, timeout=60):
        script.write_text(FRAME + text)
        done = support.run_command("run", "--project", folder, *options, script, timeout=timeout)
        return done.returncode, done.stdout, done.stderr

    return run


def test_a_thread_without_the_lock_is_refused(batch):
    assert batch("""
scene, nodes, project = app.scene, app.scene.nodes, app.project
for call in (lambda: scene.name, lambda: nodes.create("PEG", "a"), lambda: project.history.list(), lambda: app.scene,
             app.save,
             app.close, lambda: brindle.open("/nowhere"), lambda: brindle.create("/tmp/never-made"),
             lambda: len(nodes), lambda: list(nodes)):
    print(on_thread(failure, call))
print(failure(lambda: scene.name), len(nodes))
""") == (0, f"{LOCKED_OUT}\n" * 10 + "no failure 2\n", "")


def test_while_one_thread_has_the_lock_every_thread_may_go_on(batch):
    assert batch("""
on_thread(app.thread_lock)
print(on_thread(lambda: app.scene.name), on_thread(lambda: len(app.scene.nodes)))
on_thread(app.thread_unlock)
print(on_thread(failure, lambda: app.scene.name))
""") == (0, f"Scene-1 2\n{LOCKED_OUT}\n", "")


def test_the_lock_on_the_main_thread_is_nothing(batch):
    assert batch("""
app.thread_lock()
with app.locked():
    print(on_thread(failure, lambda: app.scene.name))
app.thread_unlock()
app.thread_unlock()
print(app.scene.name)
""") == (0, f"{LOCKED_OUT}\nScene-1\n", "")


def test_locks_of_one_thread_lie_inside_each_other(batch):
    assert batch("""
def work():
    with app.locked():
        with app.locked():
            app.scene.nodes.create("PEG", "a")
        app.scene.nodes.create("PEG", "b")
    return failure(lambda: app.scene.name)
print(on_thread(work), len(app.scene.nodes))
def raw():
    app.thread_lock(); app.thread_lock(); app.thread_unlock()
    name = app.scene.name
    app.thread_unlock()
    return name, failure(lambda: app.scene.name)
print(on_thread(raw))
""") == (0, f"{LOCKED_OUT} 4\n('Scene-1', '{LOCKED_OUT}')\n", "")


def test_a_block_that_fails_gives_the_lock_back(batch):
    assert batch("""
def work():
    with app.locked():
        1 / 0
try:
    on_thread(work)
except ZeroDivisionError as error:
    print(error)
print(on_thread(failure, lambda: app.scene.name))
def again():
    with app.locked():
        return app.scene.name
print(on_thread(again))
""") == (0, f"division by zero\n{LOCKED_OUT}\nScene-1\n", "")


def test_a_block_that_closes_the_project_gives_the_lock_back(batch):
    assert batch("""
def close():
    with app.locked():
        app.close()
on_thread(close)
def replace():
    with brindle.create(sys.argv[0] + ".first").locked():
        return brindle.create(sys.argv[0] + ".second")
print(on_thread(failure, replace))
other = brindle.create(sys.argv[0] + ".third")
print(on_thread(failure, lambda: other.scene.name))
def work():
    with other.locked():
        return other.scene.name
print(on_thread(work))
""") == (0, f"{LOCKED_OUT}\n{LOCKED_OUT}\nScene-1\n", "")


def test_only_who_is_in_a_block_leaves_it(batch):
    assert batch("""
block = app.locked()
def leave():
    return failure(block.__exit__, None, None, None)
def work():
    print(leave())
    with block:
        print(on_thread_of_its_own(leave), app.scene.name)
    return leave()
def on_thread_of_its_own(function):
    seen = []
    thread = threading.Thread(target=lambda: seen.append(function()))
    thread.start()
    thread.join()
    return seen[0]
print(on_thread(work), on_thread(failure, lambda: app.scene.name), sep="\\n")
app.close()
print(on_thread(leave))
""") == (0, f"{NO_BLOCK}\n{NO_BLOCK} Scene-1\n{NO_BLOCK}\n{LOCKED_OUT}\n{NO_BLOCK}\n", "")


def test_without_a_project_there_is_no_lock(batch):
    assert batch("""
app.close()
print(on_thread(failure, app.thread_lock), on_thread(failure, app.thread_unlock), sep="\\n")
def work():
    with app.locked():
        pass
print(on_thread(failure, work))
print(on_thread(failure, work))
""") == (0, f"{NO_LOCK}\n" * 4, "")


def test_threads_that_lock_lose_nothing(batch):
    assert batch("""
sys.setswitchinterval(1e-5)
peg = app.scene.nodes.create("PEG", "Arm")
peg.position = [0, 0]
app.project.history.clear()
def work():
    for turn in range(150):
        with app.locked():
            position = app.scene.nodes["Top/Arm"].position
            position.x = position.x + 1
threads = [threading.Thread(target=work) for _ in range(8)]
for thread in threads: thread.start()
for thread in threads: thread.join()
print(peg.position.x, app.project.history.size_executed)
""") == (0, "1200 1200\n", "")


def test_threads_may_log_at_any_time(batch):
    code, out, error = batch("""
def work(number):
    for line in range(50): app.log(f"{number} {line}")
threads = [threading.Thread(target=work, args=(i,)) for i in range(4)]
for thread in threads: thread.start()
for thread in threads: thread.join()
""")
    assert (code, out) == (0, "")
    assert sorted(error.splitlines()) == sorted(f"{i} {j}" for i in range(4) for j in range(50))


def test_a_function_runs_under_the_lock_on_a_thread(batch):
    assert batch("""
print(failure(lambda: app.run_function(lambda: print(app.scene.name))))
print(on_thread(failure, lambda: app.run_function(lambda: print(app.scene.name))))
print(on_thread(failure, lambda: app.scene.name))
""") == (0, f"Scene-1\nno failure\nScene-1\nno failure\n{LOCKED_OUT}\n", "")


def test_a_function_that_fails_on_a_thread_leaves_the_lock_taken(batch):
    assert batch("""
def run():
    try:
        app.run_function(lambda: 1 / 0)
    except ZeroDivisionError:
        return app.scene.name
print(on_thread(run), on_thread(lambda: app.scene.name))
on_thread(app.thread_unlock)
print(on_thread(failure, lambda: app.scene.name))
""") == (0, f"Scene-1 Scene-1\n{LOCKED_OUT}\n", "")


HELD = """
kept = [app, app.scene, list(app.scene.nodes), iter(app.scene.nodes), app.scene.nodes.create, app.locked()]
kept.append(brindle.PythonFunction(lambda: kept))
"""

# How a script ends, and its exit code. None of them may crash, hang or print.
ENDINGS = {
    "wrappers and functions": (HELD, 0),
    "an exit code of its own": (HELD + "sys.exit(7)", 7),
    "a lock that is held by a thread that has ended": (HELD + "on_thread(app.thread_lock); sys.exit(8)", 8),
    "a block that a daemon is in": (HELD + """
def work():
    with app.locked():
        entered.set()
        time.sleep(1000)
entered = threading.Event()
threading.Thread(target=work, daemon=True).start()
entered.wait()
sys.exit(9)""", 9),
    "a daemon that waits for its turn": (HELD + """
on_thread(lambda: app.locked().__enter__())
threading.Thread(target=lambda: app.locked().__enter__(), daemon=True).start()
time.sleep(0.05)
sys.exit(10)""", 10),
    "a daemon that waits for the main thread": (HELD + """
threading.Thread(target=lambda: app.run_on_main(lambda: None, True), daemon=True).start()
time.sleep(0.05)
sys.exit(11)""", 11),
    "daemons that work on": (HELD + """
sys.setswitchinterval(1e-5)
def work():
    while True:
        with app.locked():
            [node.name for node in app.scene.nodes]
            app.run_function(lambda: app.scene.name)
def save():
    while True:
        with app.locked():
            app.save()
for target in (work, work, save): threading.Thread(target=target, daemon=True).start()
time.sleep(0.1)
sys.exit(12)""", 12),
    "a daemon inside a function that native code called": (HELD + """
def wait():
    entered.set()
    while True: pass
entered = threading.Event()
threading.Thread(target=lambda: app.run_function(wait), daemon=True).start()
entered.wait()
sys.exit(13)""", 13),
    "a daemon inside a method that native code called": (HELD + """
class Slow:
    def __fspath__(self):
        entered.set()
        time.sleep(1000)
def work():
    with app.locked(): app.scene.nodes.create(Slow(), "x")
entered = threading.Event()
threading.Thread(target=work, daemon=True).start()
entered.wait()
sys.exit(14)""", 14),
    "jobs that nobody came to": (HELD + """
on_thread_only = threading.Thread(target=lambda: [app.run_on_main(lambda: kept, False) for _ in range(20)])
on_thread_only.start()
on_thread_only.join()
sys.exit(15)""", 15),
    "an object that works in its end": (HELD + """
class Last:
    def __del__(self): app.scene.nodes.create("PEG", "last")
last = Last()
sys.exit(16)""", 16),
    "a function at the end of the interpreter": (HELD + """
import atexit
atexit.register(lambda: app.run_function(lambda: app.scene.name))
sys.exit(17)""", 17),
    "the project closed": (HELD + "app.close(); sys.exit(18)", 18),
    "another project": (HELD + "brindle.create(sys.argv[0] + '.other'); sys.exit(19)", 19),
}


# CPython unwinds a thread that comes back after the end. The address sanitizer takes what is left of such a stack for an
# error: it doesn't see frames go that are unwound from outside.
UNWOUND = pytest.mark.skipif(support.SANITIZED, reason="the sanitizer doesn't follow how CPython ends a thread")


@pytest.mark.parametrize(
    "name", [pytest.param(name, marks=[UNWOUND] if name == "daemons that work on" else []) for name in ENDINGS])
def test_a_script_ends_with_its_own_exit_code(batch, name):
    text, code = ENDINGS[name]
    assert batch(text, timeout=25) == (code, "", "")


def test_threads_of_a_script_that_has_ended_finish_their_work(batch):
    assert batch("""
def work():
    time.sleep(0.1)
    with app.locked():
        app.scene.nodes.create("PEG", "a")
    app.run_on_main(lambda: print(threading.current_thread() is main, len(app.scene.nodes)), True)
threading.Thread(target=work).start()
sys.exit(5)
""") == (5, "True 3\n", "")


@pytest.mark.parametrize("replaced", ["lambda: 5", "lambda: [5]", "lambda: (5,)", "lambda: 1 / 0", "None"])
def test_a_module_of_threads_that_is_not_what_it_was_ends_no_process(batch, replaced):
    code, out, error = batch(f"""
def work():
    time.sleep(0.05)
    print("done", flush=True)
threading.Thread(target=work).start()
threading.enumerate = {replaced}
sys.exit(6)
""")
    assert (code, out) == (6, "done\n") and "Error" in error.splitlines()[-1], error


def test_an_exception_ends_the_script_and_its_threads_still_finish(batch):
    code, out, error = batch("""
def work():
    time.sleep(0.05)
    app.run_on_main(lambda: print("done"), True)
threading.Thread(target=work).start()
1 / 0
""")
    assert (code, out) == (1, "done\n") and error.splitlines()[-1] == "ZeroDivisionError: division by zero"
