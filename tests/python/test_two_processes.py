"""Two processes on one project: the second one is told who has it, and can read it meanwhile."""

import getpass
import os
import platform
import shutil
import signal
import subprocess

import brindle
import pytest

import support

HOLDER = """
import brindle, sys
app = brindle.open(sys.argv[1])
print("open", flush=True)
for line in sys.stdin:
    exec(line)
    print("done", flush=True)
"""


class Holder:
    """A process that has a project open and runs lines of Python on it."""

    def __init__(self, folder):
        self.process = subprocess.Popen([support.PYTHON, "-c", HOLDER, folder], text=True, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE)
        assert self.process.stdout.readline() == "open\n"

    def run(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        assert self.process.stdout.readline() == "done\n"

    def end(self, number=None):
        if number is None:
            self.process.stdin.close()
        else:
            self.process.send_signal(number)
        self.process.wait()
        self.process.stdout.close()


@pytest.fixture
def holder(project):
    other = Holder(project)
    yield other
    if other.process.returncode is None:
        other.end()


def in_use(folder, process):
    return (f'"{folder}" is in use by {getpass.getuser()} on {platform.node()} '
            f'({os.path.basename(os.path.realpath(support.PYTHON))}, process {process})')


def test_the_second_process_is_told_who_has_the_project(project, holder):
    before = support.files(project)
    sentence = f"Cannot open the project: {in_use(project, holder.process.pid)}; it can be opened read-only."
    assert support.message_of(brindle.open, project) == sentence
    assert brindle.application() is None and support.files(project) == before


def test_the_project_that_is_open_stays_open_when_another_one_is_in_use(project, holder, app, peg):
    assert support.message_of(brindle.open, project).startswith("Cannot open the project: ")
    assert brindle.application() is app and peg.valid


def test_read_only_sees_what_was_saved_last(project, holder):
    holder.run("app.scene.frame_count = 77; app.save(); app.scene.frame_count = 78")
    with brindle.open(project, read_only=True) as app:
        assert app.scene.frame_count == 77
        holder.run("app.save()")
        assert app.scene.frame_count == 77
    with brindle.open(project, True) as app:
        assert app.scene.frame_count == 78


def test_read_only_can_be_changed_undone_and_saved_elsewhere_only(project, holder, tmp_path):
    before = support.files(project)
    with brindle.open(project, read_only=True) as app:
        app.scene.frame_count = 99
        app.project.history.undo(1)
        assert not app.project.dirty
        app.project.history.redo(1)
        sentence = f'Cannot save the project: "{project}" is open read-only; it can be saved in another folder.'
        assert support.message_of(app.save) == sentence
        assert support.files(project) == before and app.project.dirty
        app.save(tmp_path / "mine")
        app.scene.frame_count = 98
        app.save()
    with brindle.open(tmp_path / "mine") as app:
        assert app.scene.frame_count == 98
    assert support.files(project) == before


def test_reading_leaves_nothing_in_the_folder(project):
    names = sorted(os.listdir(project))
    with brindle.open(project, read_only=True):
        assert sorted(os.listdir(project)) == names
    assert sorted(os.listdir(project)) == names


def test_the_lock_is_there_while_the_project_is_open(project, tmp_path):
    with brindle.open(project) as app:
        assert (project / support.LOCK).exists()
        app.save_as(tmp_path / "other")
        assert not (project / support.LOCK).exists() and (tmp_path / "other" / support.LOCK).exists()
    assert not (tmp_path / "other" / support.LOCK).exists()
    with brindle.create(tmp_path / "new"):
        assert (tmp_path / "new" / support.LOCK).exists()
    assert sorted(os.listdir(tmp_path / "new")) == ["project.json", "scenes"]


def test_a_project_that_was_left_is_free(project, holder, tmp_path):
    holder.run(f"app.save_as({str(tmp_path / 'other')!r})")
    brindle.open(project).close()
    assert "is in use by" in support.message_of(brindle.open, tmp_path / "other")
    holder.run("app.close()")
    brindle.open(tmp_path / "other").close()


@pytest.mark.parametrize("number", [None, signal.SIGTERM, signal.SIGKILL])
def test_a_process_that_ended_leaves_the_project_free(project, holder, number):
    holder.end(number)
    assert (project / support.LOCK).exists() == (number is not None)
    with brindle.open(project) as app:
        app.save()
    assert not (project / support.LOCK).exists()


def test_two_that_open_at_once_are_never_both_in(project):
    script = """
import brindle, sys
print("ready", flush=True)
for _ in range(20):
    sys.stdin.readline()
    try:
        app = brindle.open(sys.argv[1])
        print("in", flush=True)
    except brindle.Error as error:
        app = None
        print(error, flush=True)
    sys.stdin.readline()
    if app:
        app.close()
"""
    processes = [subprocess.Popen([support.PYTHON, "-c", script, project], text=True, stdin=subprocess.PIPE,
                                  stdout=subprocess.PIPE) for _ in range(3)]
    assert [process.stdout.readline() for process in processes] == ["ready\n"] * 3
    for _ in range(20):
        for step in range(2):
            for process in processes:
                process.stdin.write("\n")
                process.stdin.flush()
            if step == 0:
                outcomes = [process.stdout.readline() for process in processes]
                assert outcomes.count("in\n") == 1, outcomes
                who = processes[outcomes.index("in\n")].pid
                assert sum(in_use(project, who) in outcome for outcome in outcomes) == 2
        wait_until_free(project)
    for process in processes:
        process.communicate()
        assert process.returncode == 0


def wait_until_free(project):
    while (project / support.LOCK).exists():
        pass


def test_a_process_that_is_forked_off_can_neither_save_nor_unlock(project):
    done = support.run_python("""
import brindle, os, sys
app = brindle.open(sys.argv[1])
child = os.fork()
if child == 0:
    try:
        app.scene.frame_count = 5
        app.save()
    except brindle.Error as error:
        print(error, flush=True)
    app.close()
    sys.exit()
os.waitpid(child, 0)
app.save()
print("saved", os.getpid(), os.path.exists(sys.argv[1] + "/.brindle-lock"))
""", project)
    sentence, last = done.stdout.splitlines()
    assert last.startswith("saved ") and last.endswith(" True")
    assert sentence == f"Cannot save the project: {in_use(project, last.split()[1])}."
    assert (done.returncode, done.stderr) == (0, "")


def test_a_folder_whose_lock_was_cleaned_up_is_saved_and_locked_again(project):
    with brindle.open(project) as app:
        (project / support.LOCK).unlink()
        app.scene.frame_count = 61
        app.save()
        assert (project / support.LOCK).exists()


def test_a_project_that_moved_is_opened_at_its_new_place(project, tmp_path):
    with brindle.open(project) as app:
        shutil.move(project, tmp_path / "moved")
        assert support.message_of(app.save) == f'Cannot save the project: "{project}" does not exist.'
    with brindle.open(tmp_path / "moved") as app:
        app.save()


def test_a_save_leaves_a_project_alone_that_has_the_place_of_the_open_one(project, tmp_path):
    app = brindle.open(project)
    app.scene.frame_count = 99
    project.rename(tmp_path / "moved")
    support.run_python("import brindle, sys; brindle.create(sys.argv[1]).close()", project)
    before = support.files(project)
    sentence = (f'Cannot save the project: "{project}" is another folder by now; that of the open project has moved to '
                f'"{tmp_path / "moved"}".')
    for _ in range(2):
        assert support.message_of(app.save) == sentence
    assert support.files(project) == before and app.project.dirty
    assert not (project / support.LOCK).exists() and (tmp_path / "moved" / support.LOCK).exists()
    app.save(tmp_path / "moved")
    assert not app.project.dirty
    app.scene.frame_count = 98
    app.save()
    app.close()
    assert not (tmp_path / "moved" / support.LOCK).exists()
    assert support.files(project) == before
    with brindle.open(tmp_path / "moved") as app:
        assert app.scene.frame_count == 98


def test_a_folder_that_moved_is_free_once_its_project_is_closed(project, holder, tmp_path):
    holder.run(f"import os; os.rename({str(project)!r}, {str(tmp_path / 'moved')!r})")
    brindle.create(project).close()
    assert "is in use by" in support.message_of(brindle.open, tmp_path / "moved")
    holder.run("app.close()")
    for folder in (project, tmp_path / "moved"):
        with brindle.open(folder) as app:
            app.save()
        assert not (folder / support.LOCK).exists()


@pytest.mark.parametrize("value", ["yes", None, 1.5, []])
def test_read_only_is_a_flag(project, value):
    with pytest.raises(TypeError):
        brindle.open(project, read_only=value)
    assert brindle.application() is None
