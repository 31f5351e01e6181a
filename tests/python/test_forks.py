"""Processes that a script forks off: they live, wait for nobody, and take nothing from the one that has the project."""

import pytest

import support

FRAME = """
import os, signal, sys, threading, time
import brindle
folder = sys.argv[1]

def forked(work):
    "What a process of its own says of it; the alarm is for one that stands still."
    reading, writing = os.pipe()
    pid = os.fork()
    if pid == 0:
        signal.alarm(20)
        try:
            answer = str(work())
        except brindle.Error as error:
            answer = str(error)
        os.write(writing, answer.encode())
        sys.exit(7)
    os.close(writing)
    answer = b""
    while piece := os.read(reading, 4096):
        answer += piece
    os.close(reading)
    return answer.decode(), os.waitstatus_to_exitcode(os.waitpid(pid, 0)[1])

"""

# A project that takes its time to be saved, and a thread that saves it again and again.
SAVING = """
app = brindle.create(folder)
for _ in range(3000):
    app.scene.nodes.create("PEG", "a")
failures = []
done = threading.Event()
def save():
    while not done.is_set():
        try:
            app.save()
        except brindle.Error as error:
            failures.append(str(error))
thread = threading.Thread(target=save)
thread.start()
"""

CUT_OFF = ("The project can't be used here: this process was forked off while another thread was saving or opening.")


# The sanitizer's own locks stay with the threads that aren't in the forked process.
MANY_THREADS = pytest.mark.skipif(support.SANITIZED, reason="the sanitizer doesn't take a fork beside other threads")


@pytest.fixture
def forks(folder):
    """Runs a script, and gives what it prints; whatever it forks off must end as Python ends it."""

    def run(text):
        done = support.run_python(FRAME + text, folder, timeout=120)
        assert (done.returncode, done.stderr) == (0, "")
        return done.stdout

    return run


def test_a_forked_process_reads_the_project_and_leaves_it_to_the_other(forks, folder):
    assert forks("""
app = brindle.create(folder)
scene = app.scene
def work():
    made = scene.nodes.create("PEG", "mine").path
    app.close()
    return made
print(forked(work), forked(lambda: scene.name), len(scene.nodes), os.path.exists(folder + "/.brindle-lock"))
app.save()
app.close()
print(os.path.exists(folder + "/.brindle-lock"))
""") == "('Top/mine', 7) ('Scene-1', 7) 2 True\nFalse\n"


def test_a_forked_process_draws_pictures_as_the_other_does(forks, folder):
    """Although it has none of the threads that the other process had started."""
    assert forks("""
from brindle import render
app = brindle.create(folder)
app.scene.nodes["Top/Composite"].ports_in.create().link(app.scene.nodes.create("COLOR_CARD", "Card"))
def draw():
    made = [render.cel(app.scene.nodes["Top/Composite"], frame, (640, 480), threads=2) for frame in range(1, 10)]
    render.frames(app.scene, lambda frame, cel: made.append(cel), range(1, 20), size=(640, 480), threads=4)
    return sum(memoryview(cel)[240, 320, 3] for cel in made)
print(draw(), forked(draw), forked(lambda: forked(draw)), draw())
""") == "7140 ('7140', 7) (\"('7140', 7)\", 7) 7140\n"


def test_a_forked_process_cannot_save_over_the_other(forks, folder):
    text = forks("""
app = brindle.create(folder)
print(forked(app.save)[0], len(app.scene.nodes))
""")
    assert text.startswith(f'Cannot save the project: "{folder}" is in use by ') and text.endswith(" 2\n")


@MANY_THREADS
def test_a_fork_in_the_middle_of_a_save_stands_still_in_no_process(forks):
    lines = forks(SAVING + """
for _ in range(6):
    time.sleep(0.02)
    print(*forked(lambda: app.scene.name))
done.set()
thread.join()
print(failures)
""").splitlines()
    assert set(lines[:-1]) <= {f"{CUT_OFF} 7", "Scene-1 7"} and f"{CUT_OFF} 7" in lines
    assert lines[-1] == "[]"


@MANY_THREADS
def test_a_function_that_native_code_called_may_fork_in_the_middle_of_a_save(forks):
    lines = forks(SAVING + """
answers = []
for _ in range(4):
    time.sleep(0.02)
    app.run_function(lambda: answers.append(forked(lambda: app.scene.name)))
done.set()
thread.join()
print(*[answer for answer, code in answers if code == 7], sep="\\n")
""").splitlines()
    assert len(lines) == 4 and set(lines) <= {CUT_OFF, "Scene-1"}


@MANY_THREADS
def test_a_save_is_over_for_others_although_a_forked_process_lives_on(forks):
    assert forks("""
app = brindle.create(folder)
for _ in range(3000):
    app.scene.nodes.create("PEG", "a")
saving = threading.Thread(target=app.save)
saving.start()
time.sleep(0.01)
pid = os.fork()
if pid == 0:
    time.sleep(1000)
saving.join()
begin = time.monotonic()
app.save()
print(time.monotonic() - begin < 5)
os.kill(pid, signal.SIGKILL)
os.waitpid(pid, 0)
""") == "True\n"
