"""The application with a window, without anybody in front of it: what it opens, runs, and ends with."""

import os
import pathlib
import signal
import subprocess
import time

import brindle
import pytest

import support

USAGE = "brindle: Usage: brindle desk [--new | --read-only] [--verbose] DIR [--run SCRIPT [ARGUMENT...]]\n"


@pytest.fixture
def environment(tmp_path):
    """Of a person who never had a desk open, in front of a screen that nobody sees."""
    return {**os.environ, "QT_QPA_PLATFORM": "offscreen", "XDG_CONFIG_HOME": str(tmp_path / "config"),
            "XDG_DATA_HOME": str(tmp_path / "data"), "XDG_RUNTIME_DIR": str(tmp_path)}


@pytest.fixture
def project(tmp_path):
    with brindle.create(tmp_path / "walk"):
        pass
    return tmp_path / "walk"


@pytest.fixture
def start(environment):
    """Starts `brindle desk`; what still runs at the end is ended."""
    started = []

    def run(*arguments, **options):
        process = subprocess.Popen([support.COMMAND, "desk", *map(str, arguments)], text=True, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   **{"env": environment, **options})
        started.append(process)
        return process

    run.environment = environment
    yield run
    for process in started:
        process.kill()
        process.communicate()


@pytest.fixture
def desk(start, tmp_path):
    """Runs a script in a desk to the desk's end; its exit code and what it wrote to the process's own streams."""

    def run(project, script, *arguments, options=()):
        path = tmp_path / "script.py"
        path.write_text(script)
        process = start(*options, project, "--run", path, *arguments)
        return end_of(process)

    return run


def own(error):
    """Without what the screen that nobody sees has to say."""
    return "".join(line for line in error.splitlines(True) if not line.startswith("This plugin does not support"))


def end_of(process):
    out, error = process.communicate(timeout=60)
    return process.returncode, out, own(error)


@pytest.mark.parametrize("arguments, code, error", [
    ((), 2, USAGE), (("--paint", "a"), 2, support.no_option("desk", "--paint")), (("-walk",), 2, support.no_option("desk", "-walk")), (("a", "b"), 2, USAGE),
    (("a", "--run"), 2, "brindle: --run needs a script.\n"),
    (("--new", "--read-only", "a"), 2, "brindle: --new and --read-only don't go together.\n"),
    (("/nowhere",), 1, 'brindle: Cannot open the project: "/nowhere" does not exist.\n'),
    (("/dev/null",), 1, 'brindle: Cannot open the project: "/dev/null" is a file, not a folder.\n'),
])
def test_a_failure_is_one_line_on_standard_error(start, arguments, code, error):
    process = start(*arguments)
    assert end_of(process) == (code, "", error)


@pytest.mark.parametrize("name", ["-h", "--help"])
def test_help_needs_no_display(start, environment, name):
    bare = {name: value for name, value in environment.items() if name not in ("QT_QPA_PLATFORM", "DISPLAY")}
    code, out, error = end_of(start("--new", name, env=bare))
    assert (code, error) == (0, "") and out.startswith(USAGE.removeprefix("brindle: ")) and "--read-only" in out


def test_a_project_whose_name_begins_with_a_dash_stands_behind_two(desk, tmp_path, start):
    script = tmp_path / "script.py"
    script.write_text("raise SystemExit(3)")
    assert end_of(start("--new", "--", "-walk", "--run", script, cwd=tmp_path)) == (3, "", "")
    assert (tmp_path / "-walk" / "project.json").exists()


def test_bytes_that_are_no_text_reach_the_script(start, project, tmp_path):
    name = os.fsencode(tmp_path) + b"/\xff.py"
    with open(name, "w") as script:
        script.write("import os, sys; print([os.fsencode(each) for each in sys.argv], file=sys.__stdout__); sys.exit(5)")
    process = subprocess.run([support.COMMAND, "desk", project, "--run", name, b"a\xfe\xc3"], capture_output=True,
                             env=start.environment, timeout=60)
    assert (process.returncode, process.stdout.decode().strip()) == (5, str([name, b"a\xfe\xc3"]))


def test_a_folder_without_a_project_is_opened_only_as_a_new_one(desk, tmp_path):
    folder = tmp_path / "new"
    folder.mkdir()
    code, out, error = desk(folder, "raise SystemExit(3)")
    assert (code, out, error.count("\n")) == (1, "", 1) and error.startswith("brindle: Cannot open the project: ")
    assert desk(folder, "raise SystemExit(3)", options=["--new"]) == (3, "", "")
    assert desk(folder, "raise SystemExit(4)") == (4, "", "")
    code, out, error = desk(folder, "raise SystemExit(3)", options=["--new"])
    assert (code, out) == (1, "") and "already holds a project" in error


def test_without_a_display_it_says_so(start, environment, project):
    bare = {name: value for name, value in environment.items()
            if name not in ("QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY")}
    process = start(project, env=bare)
    assert end_of(process) == (1, "", "brindle: There is no display to open a window on.\n")


def test_a_display_that_cannot_be_reached_is_one_line(start, environment, project):
    process = start(project, env={**environment, "QT_QPA_PLATFORM": "nothing"})
    code, out, error = end_of(process)
    assert (code, out, error.count("\n")) == (1, "", 1)
    assert error.startswith("brindle: There is no display to open a window on: ")


@pytest.mark.parametrize("end, code", [
    ("raise SystemExit", 0), ("import sys; sys.exit(7)", 7), ("exit(True)", 1), ("quit()", 0),
])
def test_a_script_at_the_start_gives_the_exit_code(desk, project, end, code):
    assert desk(project, end) == (code, "", "")


def test_a_script_works_on_the_project_and_saves_it(desk, project):
    script = """
import sys, threading
assert app is brindle.application()
assert threading.current_thread() is threading.main_thread()
app.scene.nodes.create("PEG", sys.argv[1])
app.save()
raise SystemExit(5)
"""
    assert desk(project, script, "Arm", "--new") == (5, "", "")
    with brindle.open(project) as app:
        assert app.scene.nodes["Top/Arm"].name == "Arm"


def test_prints_and_the_log_stay_in_the_window(desk, project):
    script = """
import sys
print("in the console")
print("in the console", file=sys.stderr)
app.error("in the log")
print("on the terminal", file=sys.__stdout__)
raise SystemExit
"""
    assert desk(project, script) == (0, "on the terminal\n", "")


def test_the_thread_rules_hold(desk, project):
    script = """
import sys, threading

def work():
    try:
        app.scene.name
    except brindle.Error as error:
        print(error, file=sys.__stdout__)
    with app.locked():
        app.scene.nodes.create("PEG", "Arm")
    app.run_on_main(lambda: print(threading.current_thread() is threading.main_thread(), file=sys.__stdout__), True)
    app.run_on_main(end, True)

def end():
    app.save()
    exit = threading.Thread(target=lambda: app.run_on_main(app.close, False))
    exit.start()

thread = threading.Thread(target=work)
thread.start()
while thread.is_alive():
    app.process_one_event()
raise SystemExit(6)
"""
    code, out, error = desk(project, script)
    assert (code, error) == (6, "")
    assert out == "Unable to access Object Model from another thread -- application must be locked.\nTrue\n"


def test_the_console_drops_unsaved_changes_only_where_that_is_said(desk, project):
    script = """
import sys
app.scene.frame_count = 12
for more in ({}, {"discard": True}):
    try:
        brindle.create(sys.argv[1], **more)
    except brindle.Error as error:
        print(error, file=sys.__stdout__)
print(brindle.application().scene.frame_count, file=sys.__stdout__)
raise SystemExit
"""
    sentence = (f'Cannot create the project: "{project}" has unsaved changes; save or close it first, or discard them '
                "with brindle.create(path, discard=True).\n")
    assert desk(project, script, project.with_name("other")) == (0, sentence + "60\n", "")


def test_threads_that_still_work_at_the_end_are_waited_for(desk, project):
    script = """
import sys, threading, time

def work():
    time.sleep(0.5)
    print("done", brindle.application(), file=sys.__stdout__, flush=True)

threading.Thread(target=work).start()
raise SystemExit(2)
"""
    assert desk(project, script) == (2, "done None\n", "")


def test_what_is_left_held_doesnt_keep_it_from_ending(desk, project):
    script = """
import threading
kept = [app.scene, app.scene.nodes[0], lambda: app, app.project.history]
threading.Thread(target=app.thread_lock).start()
stuck = threading.Thread(target=threading.Event().wait, daemon=True)
stuck.start()
raise SystemExit(4)
"""
    assert desk(project, script) == (4, "", "")


def test_while_it_is_open_nobody_else_opens_the_project(start, project, tmp_path):
    marker = tmp_path / "marker"
    script = tmp_path / "script.py"
    script.write_text(f"import pathlib; pathlib.Path({str(marker)!r}).touch()\n")
    process = start(project, "--run", script)
    wait_for(marker.exists)
    with pytest.raises(brindle.Error, match="Cannot open the project"):
        brindle.open(project)
    with brindle.open(project, read_only=True) as app:
        assert app.scene.name == "Scene-1"
    interrupt(process)
    assert end_of(process) == (0, "", "")
    with brindle.open(project):
        pass


def test_an_interrupt_from_the_terminal_is_the_scripts_or_ends_the_desk(start, project, tmp_path):
    running, caught = tmp_path / "running", tmp_path / "caught"
    script = tmp_path / "script.py"
    script.write_text(f"""
import pathlib
try:
    pathlib.Path({str(running)!r}).touch()
    while True: pass
except KeyboardInterrupt:
    pathlib.Path({str(caught)!r}).touch()
""")
    process = start(project, "--run", script)
    wait_for(running.exists)
    process.send_signal(signal.SIGINT)
    wait_for(caught.exists)
    time.sleep(0.2)
    assert process.poll() is None
    interrupt(process)
    assert end_of(process) == (0, "", "")


def test_a_second_interrupt_ends_a_desk_that_stands_still(start, project, tmp_path):
    locked = tmp_path / "locked"
    script = tmp_path / "script.py"
    script.write_text(f"""
import pathlib, threading

def work():
    app.thread_lock()
    pathlib.Path({str(locked)!r}).touch()
    threading.Event().wait()

threading.Thread(target=work).start()
""")
    process = start(project, "--run", script)
    wait_for(locked.exists)
    time.sleep(0.2)
    process.send_signal(signal.SIGINT)
    time.sleep(0.5)
    assert process.poll() is None
    interrupt(process)
    assert end_of(process) == (-signal.SIGINT, "", "")
    with brindle.open(project):
        pass


def interrupt(process):
    """Once more where the first was still the script's."""
    while process.poll() is None:
        process.send_signal(signal.SIGINT)
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            pass


def wait_for(condition):
    end = time.monotonic() + 60
    while not condition():
        assert time.monotonic() < end
        time.sleep(0.01)


def helpers_of(process):
    """The processes that it started to offer an interrupt."""
    found = []
    for stat in pathlib.Path("/proc").glob("[0-9]*/stat"):
        try:
            parent = int(stat.read_text().rpartition(")")[2].split()[1])
            arguments = (stat.parent / "cmdline").read_bytes()
        except OSError:
            continue
        if parent == process.pid and b"--interrupter" in arguments:
            found.append(int(stat.parent.name))
    return found


def test_a_script_that_leaves_the_window_no_time_can_be_interrupted_from_a_window_of_its_own(start, project, tmp_path):
    path = tmp_path / "endless.py"
    path.write_text("try:\n    app.javascript.eval('while (true);')\n"
                    "except KeyboardInterrupt:\n    raise SystemExit(7)")
    process = start(project, "--run", path)
    end = time.monotonic() + 30
    while not helpers_of(process) and time.monotonic() < end:
        time.sleep(0.05)
    helper, = helpers_of(process)
    process.send_signal(signal.SIGINT)  # What the helper's button does.
    assert end_of(process)[0] == 7
    assert not pathlib.Path(f"/proc/{helper}").exists()


def test_a_script_that_lets_events_in_needs_no_window_beside(start, project, tmp_path):
    path = tmp_path / "long.py"
    path.write_text("import time\nend = time.monotonic() + 3\nwhile time.monotonic() < end:\n    pass\nraise SystemExit(5)")
    process = start(project, "--run", path)
    end = time.monotonic() + 4
    while process.poll() is None and time.monotonic() < end:
        assert not helpers_of(process)
        time.sleep(0.05)
    assert end_of(process)[0] == 5
