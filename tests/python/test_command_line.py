"""The command line: what it prints, its exit codes, its errors in one line."""

import os
import re
import signal
import subprocess

import brindle
import pytest

import support

COMMANDS = ("run", "desk", "new", "info", "palette", "drawing", "render", "preferences")
USAGE_RUN = "brindle: Usage: brindle run [--project DIR [--read-only]] [--verbose] SCRIPT [ARGUMENT...]\n"


@pytest.fixture
def script(tmp_path):
    """Writes a script and gives its path."""

    def write(text, name="script.py"):
        path = tmp_path / name
        path.write_text(text)
        return path

    return write


def run(*arguments, **options):
    done = support.run_command(*arguments, **options)
    return done.returncode, done.stdout, done.stderr


@pytest.mark.parametrize("arguments, code, error", [
    ((), 2, "brindle: A command is missing; brindle --help lists them.\n"),
    (("",), 2, 'brindle: There is no command ""; brindle --help lists them.\n'),
    (("paint",), 2, 'brindle: There is no command "paint"; brindle --help lists them.\n'),
    (("--paint",), 2, 'brindle: There is no command "--paint"; brindle --help lists them.\n'),
    (("new",), 2, "brindle: Usage: brindle new DIR\n"), (("new", "a", "b"), 2, "brindle: Usage: brindle new DIR\n"),
    (("render",), 2, "brindle: Usage: brindle render [--scene S] [--frames 1-60,72] [--node NODE] [--size 1920x1080] "
     "[--out 'frames/%04d.png'] [--movie FILE.mp4|.gif|.apng] [--depth 16] [--threads N] [--resume] PROJECT\n"),
    (("info",), 2, "brindle: Usage: brindle info DIR\n"), (("info", "a", "b"), 2, "brindle: Usage: brindle info DIR\n"),
    (("run",), 2, USAGE_RUN), (("run", "--paint", "a.py"), 2, support.no_option("run", "--paint")), (("run", "--"), 2, USAGE_RUN),
    (("run", "-x.py"), 2, support.no_option("run", "-x.py")), (("new", "--paint"), 2, support.no_option("new", "--paint")),
    (("info", "-walk"), 2, support.no_option("info", "-walk")), (("new", "-", "a"), 2, "brindle: Usage: brindle new DIR\n"), (("run", "--project", "a"), 2, USAGE_RUN),
    (("run", "--project"), 2, "brindle: --project needs a folder.\n"),
    (("run", "--read-only", "a.py"), 2, "brindle: --read-only needs a project.\n"),
    (("run", "nowhere.py"), 1, 'brindle: There is no script "nowhere.py".\n'),
    (("run", "/"), 1, 'brindle: There is no script "/".\n'),
    (("run", "--project", "a", "nowhere.py"), 1, 'brindle: There is no script "nowhere.py".\n'),
    (("run", "--", "-x.py"), 1, 'brindle: There is no script "-x.py".\n'),
    (("new", b"walk\xff"), 2, 'brindle: The name "walk\ufffd" is no text in UTF-8.\n'),
    (("new", ""), 1, "brindle: Cannot create the project: the path is empty.\n"),
    (("info", "/nowhere"), 1, 'brindle: Cannot open the project: "/nowhere" does not exist.\n'),
    (("info", "/dev/null"), 1, 'brindle: Cannot open the project: "/dev/null" is a file, not a folder.\n'),
])
def test_a_failure_is_one_line_on_standard_error(tmp_path, arguments, code, error):
    assert run(*arguments, cwd=tmp_path) == (code, "", error)
    assert list(tmp_path.iterdir()) == []


@pytest.mark.parametrize("name", ["--help", "-h", "help"])
def test_help_lists_the_commands(name):
    code, text, error = run(name)
    assert (code, error) == (0, "")
    for part in ("run [--project DIR [--read-only]] [--verbose] SCRIPT [ARGUMENT...]", "new DIR", "info DIR", "--version", "Exit codes"):
        assert part in text


@pytest.mark.parametrize("name", ["--help", "-h"])
@pytest.mark.parametrize("arguments, usage, part", [
    (("new",), "brindle new DIR\n", "Makes a new project folder."), (("new", "walk"), "brindle new DIR\n", "--help"),
    (("info",), "brindle info DIR\n", "Tells what is in a project"),
    (("run",), USAGE_RUN.removeprefix("brindle: Usage: "), "--verbose"),
    (("run", "--project", "walk"), USAGE_RUN.removeprefix("brindle: Usage: "), "--read-only"),
])
def test_each_command_has_its_help(tmp_path, arguments, usage, part, name):
    code, text, error = run(*arguments, name, cwd=tmp_path)
    assert (code, error) == (0, "")
    assert text.startswith("Usage: " + usage) and part in text
    assert list(tmp_path.iterdir()) == []


@pytest.mark.parametrize("command", COMMANDS)
def test_the_texts_of_the_options_stand_in_one_column(command):
    code, text, error = run(command, "--help")
    options = re.findall(r"^(  -\S*(?: \S+)*? {2,})\S", text.partition("\nOptions:\n")[2], re.MULTILINE)
    assert (code, error) == (0, "") and len(options) >= 2
    assert len({len(option) for option in options}) == 1, text


@pytest.mark.parametrize("name", ["-walk", "--help", "--", "-"])
def test_a_project_may_have_the_name_of_an_option(tmp_path, name):
    assert run("new", "--", name, cwd=tmp_path) == (0, f"Made {tmp_path}/{name}\n", "")
    code, text, error = run("info", "--", name, cwd=tmp_path)
    assert (code, error) == (0, "") and text.startswith(f"Project: {tmp_path}/{name}\n")


def test_version_tells_the_version():
    code, text, error = run("--version")
    assert (code, error) == (0, "") and text.startswith("brindle ") and text.count(".") == 2


def test_new_makes_a_project(tmp_path):
    assert run("new", "walk", cwd=tmp_path) == (0, f"Made {tmp_path}/walk\n", "")
    with brindle.open(tmp_path / "walk") as app:
        assert app.scene.name == "Scene-1"
    message = f'brindle: Cannot create the project: "{tmp_path}/walk" already holds a project.\n'
    assert run("new", tmp_path / "walk") == (1, "", message)


@pytest.mark.parametrize("text, code, error", [
    ("", 0, ""), ("import sys; sys.exit()", 0, ""), ("import sys; sys.exit(0)", 0, ""),
    ("import sys; sys.exit(7)", 7, ""),
    ("raise SystemExit", 0, ""), ("raise SystemExit(3)", 3, ""), ("import sys; sys.exit(None)", 0, ""),
    ("import sys; sys.exit('It went wrong.')", 1, "It went wrong.\n"), ("import sys; sys.exit(255)", 255, ""),
    ("import sys; sys.exit(256)", 0, ""), ("import sys; sys.exit(-1)", 255, ""), ("import sys; sys.exit(True)", 1, ""),
    ("import atexit; atexit.register(print, end='')", 0, ""),
    ("import os; os._exit(9)", 9, ""), ("import threading; threading.Thread(target=print, args=('',)).start()", 0, ""),
])
def test_run_gives_the_scripts_own_exit_code(script, text, code, error):
    result = run("run", script(text))
    assert (result[0], result[2]) == (code, error)


@pytest.mark.parametrize("text, last", [
    ("1 / 0", "ZeroDivisionError: division by zero"),
    ("import nothing_there", "ModuleNotFoundError: No module named 'nothing_there'"),
    ("x = (", "SyntaxError: '(' was never closed"),
    ("import brindle; brindle.open('/nowhere')", 'brindle.Error: Cannot open the project: "/nowhere" does not exist.'),
    ("raise ValueError('ä')", "ValueError: ä"),
])
def test_an_exception_of_the_script_ends_it_with_its_traceback(script, text, last):
    code, out, error = run("run", script(text))
    assert (code, out) == (1, "")
    assert error.rstrip().splitlines()[-1] == last and str(script("")) in error


def test_the_script_gets_its_arguments(script, tmp_path):
    path = script("import sys; print(sys.argv); print(__name__, __file__)")
    code, out, error = run("run", path, "a", "b c", "--project", "x", "--help", "", "ä\U0001f600")
    assert (code, error) == (0, "")
    assert out.splitlines() == [repr([str(path), "a", "b c", "--project", "x", "--help", "", "ä\U0001f600"]),
                                f"__main__ {path}"]


@pytest.mark.parametrize("arguments, seen", [
    (("--project", "DIR", "SCRIPT", "--project", "x"), ["--project", "x"]),
    (("--verbose", "--project", "DIR", "SCRIPT", "--verbose", "-h", "--help"), ["--verbose", "-h", "--help"]),
    (("--project", "DIR", "SCRIPT", "--", "--"), ["--", "--"]), (("--project", "DIR", "--", "SCRIPT", "--"), ["--"]),
    (("--project", "nowhere", "--project", "DIR", "SCRIPT", "-qmljsdebugger=port:1"), ["-qmljsdebugger=port:1"]),
    (("--project", "DIR", "SCRIPT", "--read-only", "--paint"), ["--read-only", "--paint"]),
])
def test_options_stand_ahead_of_the_script_and_its_own_behind_it(script, project, arguments, seen):
    path = script("import brindle, sys; print(sys.argv[1:], brindle.application().scene.name)")
    places = {"SCRIPT": path, "DIR": project}
    code, out, error = run("run", *(places.get(argument, argument) for argument in arguments))
    assert (code, out, error) == (0, f"{seen} Scene-1\n", "")


@pytest.mark.parametrize("argument", [b"\xff", b"a\xc3", b"\xed\xa0\x80", "ä\U0001f600".encode(), b"\xc3\xa4\xfe b"])
def test_bytes_that_are_no_text_reach_the_script_as_python_gives_them(script, argument):
    text = "import os, sys; print([os.fsencode(each) for each in sys.argv[1:]], ascii(sys.argv[1:]))"
    expected = subprocess.run([support.PYTHON, script(text), argument], capture_output=True, check=True).stdout
    done = subprocess.run([support.COMMAND, "run", script(text), argument], capture_output=True)
    assert (done.returncode, done.stdout, done.stderr) == (0, expected, b"")
    assert expected.decode().startswith(str([argument]))


def test_the_scripts_name_needs_be_no_text(tmp_path):
    path = os.fsencode(tmp_path) + b"/\xff.py"
    with open(path, "w") as file:
        file.write("import os, sys; print(os.fsencode(sys.argv[0]) == os.fsencode(__file__))")
    done = subprocess.run([support.COMMAND, "run", path], capture_output=True)
    assert (done.returncode, done.stdout, done.stderr) == (0, b"True\n", b"")


def test_a_script_may_come_through_a_pipe():
    done = support.run("bash", "-c", 'exec "$0" run <(echo "print(5)")', support.COMMAND)
    assert (done.returncode, done.stdout, done.stderr) == (0, "5\n", "")


@pytest.mark.parametrize("options, debug", [((), ""), (("--verbose",), "Debug: a detail\n")])
def test_the_log_tells_its_levels_apart_and_details_are_for_developers(script, project, options, debug):
    path = script("""
import brindle
app = brindle.application()
app.trace("a trace")
app.log("an error", "ERROR")
app.log("an errors", "errors")
app.debug("a detail")
app.error("another error ä")
""")
    lines = f"a trace\nError: an error\nan errors\n{debug}Error: another error ä\n"
    assert run("run", *options, "--project", project, path) == (0, "", lines)


def test_the_script_finds_the_modules_beside_it(script, tmp_path):
    script("VALUE = 5", "neighbour.py")
    assert run("run", script("import neighbour; print(neighbour.VALUE)"), cwd="/") == (0, "5\n", "")


def test_the_script_reads_standard_input(script):
    assert run("run", script("print(input().upper())"), input="word\n") == (0, "WORD\n", "")


def test_the_module_is_at_hand_without_a_search_path(script):
    environment = {name: value for name, value in os.environ.items() if name != "PYTHONPATH"}
    assert run("run", script("import brindle; print(brindle.application())"), env=environment) == (0, "None\n", "")


def test_project_opens_one_for_the_script(script, project):
    path = script("""
import brindle
app = brindle.application()
app.scene.frame_count = 12
app.save()
print(len(app.scene.nodes))
""")
    assert run("run", "--project", project, path) == (0, "13\n", "")
    with brindle.open(project) as app:
        assert app.scene.frame_count == 12


def test_a_script_that_does_not_save_changes_nothing(script, project):
    before = support.files(project)
    path = script("import brindle; brindle.application().scene.frame_count = 12")
    assert run("run", "--project", project, path) == (0, "", "")
    assert support.files(project) == before


ENDS = {
    "end": ("", 0), "exit": ("sys.exit()", 0), "exit 0": ("sys.exit(0)", 0), "exit 7": ("sys.exit(7)", 7),
    "exit text": ("sys.exit('bad')", 1), "exception": ("1 / 0", 1),
    "interrupt": ("raise KeyboardInterrupt", -signal.SIGINT), "signal": ("signal.raise_signal(signal.SIGINT)", -signal.SIGINT),
    "in a function": ("def f(): sys.exit(4)\nf()", 4), "while locked": ("with app.locked(): sys.exit(4)", 4),
    "with a thread": ("threading.Thread(target=time.sleep, args=(0.2,)).start(); sys.exit(3)", 3),
    "with a daemon": ("threading.Thread(target=time.sleep, args=(100,), daemon=True).start(); sys.exit(3)", 3),
    "inside a bracket": ("app.project.history.begin('x'); app.scene.frame_count = 5; sys.exit(6)", 6),
    "at exit": ("import atexit; atexit.register(lambda: print(app.scene.name, file=open(os.devnull, 'w'))); sys.exit(2)", 2),
}


@pytest.mark.parametrize("imported", [True, False])
@pytest.mark.parametrize("end, code", ENDS.values(), ids=ENDS)
def test_the_end_of_a_script_closes_the_project_and_gives_pythons_exit_code(script, project, end, code, imported):
    before = sorted(os.listdir(project))
    modules = "import os, signal, sys, threading, time"
    if imported:
        path = script(f"import brindle\n{modules}\napp = brindle.application()\n{end}")
    elif "app" in end:
        return
    else:
        path = script(f"{modules}\n{end}")
    assert run("run", "--project", project, path)[0] == code
    assert sorted(os.listdir(project)) == before
    if imported:
        path = script(f"import brindle\n{modules}\napp = brindle.open(sys.argv[1])\n{end}")
        assert run("run", path, project)[0] == code
        assert sorted(os.listdir(project)) == before


def test_a_script_that_is_interrupted_from_outside_closes_the_project(script, project):
    path = script("import time\nprint('ready', flush=True)\ntime.sleep(60)")
    process = subprocess.Popen([support.COMMAND, "run", "--project", project, path], text=True, stdout=subprocess.PIPE,
                               stderr=subprocess.PIPE)
    assert process.stdout.readline() == "ready\n" and (project / support.LOCK).exists()
    process.send_signal(signal.SIGINT)
    _, error = process.communicate(timeout=60)
    assert process.returncode == -signal.SIGINT and error.endswith("KeyboardInterrupt\n")
    assert not (project / support.LOCK).exists()


def test_a_child_that_exits_leaves_the_project_to_its_parent(script, project):
    path = script("""
import brindle, os, sys
app = brindle.application()
if os.fork() == 0:
    sys.exit(3)
print(os.waitstatus_to_exitcode(os.wait()[1]), os.path.exists(sys.argv[1]))
app.scene.frame_count = 12
app.save()
""")
    assert run("run", "--project", project, path, project / support.LOCK) == (0, "3 True\n", "")
    assert not (project / support.LOCK).exists()


def test_a_project_that_cannot_be_opened_is_one_line_and_the_script_does_not_run(script, tmp_path):
    path = script("print('ran')")
    error = f'brindle: Cannot open the project: "{tmp_path}/nowhere" does not exist.\n'
    assert run("run", "--project", tmp_path / "nowhere", path) == (1, "", error)


def test_a_script_may_work_with_threads_and_leave_objects_behind(script, tmp_path):
    path = script("""
import brindle, sys, threading
app = brindle.create(sys.argv[1])
def work():
    with app.locked():
        for i in range(50): app.scene.nodes.create("PEG", "x")
threads = [threading.Thread(target=work) for _ in range(2)]
for thread in threads: thread.start()
app.process_one_event()
for thread in threads: thread.join()
kept = [list(app.scene.nodes), iter(app.scene.nodes)]
for node in app.scene.nodes: kept.append(node)
print(len(app.scene.nodes))
""")
    assert run("run", path, tmp_path / "p") == (0, "102\n", "")


def test_numbers_keep_their_point_whatever_the_locale(script, project):
    environment = {**os.environ, "LC_ALL": "de_DE.UTF-8", "LANG": "de_DE.UTF-8"}
    path = script("""
import brindle
scene = brindle.application().scene
scene.framerate = 23.976
print(scene.framerate, float('1.5'))
""")
    code, out, _ = run("run", "--project", project, path, env=environment)
    assert (code, out) == (0, "23.976 1.5\n")
