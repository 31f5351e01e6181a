"""Saving writes the whole project or nothing: without permission, on a full disk, when the process is killed."""

import os
import random
import signal
import stat
import subprocess
import time

import brindle
import pytest

import support

SCENE = "scenes/Scene-1.json"

# Opens a project with a node more than on disk, gives up root, and tells how a save ends.
SCRIPT = """
import brindle, os, resource, sys
folder, hook, action = sys.argv[1:]
app = brindle.open(folder)
node = app.scene.nodes.create("PEG", "Unsaved")
labels = app.project.history.list()
exec(hook)
for _ in range(2):
    try:
        exec(action)
        print("saved")
    except brindle.Error as error:
        print(error)
    assert node.valid and app.project.history.list() == labels and app.scene.nodes["Top/Unsaved"] == node
"""
NOBODY = "os.setgid(65534); os.setuid(65534)"

needs_root = pytest.mark.skipif(os.geteuid() != 0, reason="only root can become nobody")
unwatched = pytest.mark.skipif(
    "libubsan" in os.environ.get("LD_PRELOAD", ""), reason="the sanitizer asks for an object's class through a pipe of its own"
)


@pytest.fixture
def project(tmp_path):
    """A project on disk, with its bytes."""
    os.chmod(tmp_path, 0o755)
    folder = tmp_path / "project"
    with brindle.create(folder) as app:
        support.samples(app)
        app.save()
    return folder


def outcome(folder, hook, action="app.save()"):
    done = support.run_python(SCRIPT, folder, hook, action)
    assert (done.returncode, done.stderr) == (0, "")
    return done.stdout.splitlines()


def open_to_all(folder):
    for path in (*folder.parents[:3], folder, *folder.rglob("*")):
        if path.stat().st_uid == os.geteuid():
            path.chmod(path.stat().st_mode | stat.S_IRGRP | stat.S_IROTH | (0o111 if path.is_dir() else 0))


@needs_root
@pytest.mark.parametrize("part, told", [(".", SCENE), ("scenes", SCENE)])
def test_a_folder_without_permission_is_not_written(project, part, told):
    open_to_all(project)
    if part == "scenes":
        os.chmod(project, 0o777)
    before = support.files(project)
    sentence = f'Cannot save the project: "{project / told}" cannot be written: permission denied.'
    assert outcome(project, NOBODY) == [sentence] * 2
    assert support.files(project) == before


@needs_root
def test_a_read_only_file_is_not_written(project):
    open_to_all(project)
    os.chmod(project, 0o777)
    os.chmod(project / "scenes", 0o777)
    before = support.files(project)
    sentence = f'Cannot save the project: "{project / SCENE}" cannot be written: permission denied.'
    assert outcome(project, NOBODY) == [sentence] * 2
    assert support.files(project) == before


@needs_root
@pytest.mark.parametrize("hidden", ["project.json", SCENE, "."])
def test_what_may_not_be_read_is_not_opened(project, tmp_path, hidden):
    open_to_all(project)
    os.chmod(project / hidden, 0)
    done = support.run_python(f"import brindle, os, sys\n{NOBODY}\ntry: brindle.open(sys.argv[1])\n"
                              "except brindle.Error as error: print(error)", project)
    shown = project if hidden == "." else project / hidden
    assert done.stdout == f'Cannot open the project: "{shown}" cannot be read: permission denied.\n'
    assert done.returncode == 0


@needs_root
def test_a_project_is_not_made_where_that_is_not_allowed(project, tmp_path):
    open_to_all(project)
    done = support.run_python(f"import brindle, os, sys\n{NOBODY}\ntry: brindle.create(sys.argv[1])\n"
                              "except brindle.Error as error: print(error)", tmp_path / "new")
    assert done.stdout == f'Cannot create the project: "{tmp_path / "new"}" cannot be made: permission denied.\n'
    assert not (tmp_path / "new").exists()


@needs_root
def test_saving_elsewhere_is_possible_when_the_folder_is_read_only(project, tmp_path):
    open_to_all(project)
    (tmp_path / "mine").mkdir()
    os.chmod(tmp_path / "mine", 0o777)
    lines = outcome(project, NOBODY, f"app.save_as({str(tmp_path / 'mine' / 'copy')!r} + str(_))")
    assert lines == ["saved", "saved"]
    with brindle.open(tmp_path / "mine" / "copy0") as app:
        assert "Top/Unsaved" in app.scene.nodes


@pytest.mark.parametrize("size", [0, 1, 100, 512, 1000, 2000])
def test_a_full_disk_leaves_the_project_as_it_was(project, size):
    before = support.files(project)
    assert size < len(before[SCENE])
    hook = f"resource.setrlimit(resource.RLIMIT_FSIZE, ({size}, {size}))"
    sentence = f'Cannot save the project: "{project / SCENE}" cannot be written: file too large.'
    assert outcome(project, hook) == [sentence] * 2
    assert support.files(project) == before
    brindle.open(project).close()


@pytest.mark.parametrize("size", [0, 100, 2000])
def test_a_full_disk_leaves_no_part_of_a_new_project(project, tmp_path, size):
    hook = f"resource.setrlimit(resource.RLIMIT_FSIZE, ({size}, {size}))"
    lines = outcome(project, hook, f"app.save_as({str(tmp_path / 'new')!r})")
    assert len(lines) == 2 and all(line.startswith(f'Cannot save the project: "{tmp_path / "new"}') for line in lines)
    assert not (tmp_path / "new").exists()


@unwatched
def test_out_of_file_handles_is_a_sentence(project):
    before = support.files(project)
    hook = "resource.setrlimit(resource.RLIMIT_NOFILE, (3, 3))"
    lines = outcome(project, hook)
    assert all(line.endswith("too many open files.") for line in lines), lines
    assert support.files(project) == before


KILLED = """
import brindle, sys
app = brindle.open(sys.argv[1])
node = app.scene.nodes["Top/Sample-Peg"]
print("ready", flush=True)
while True:
    app.scene.frame_count = 100
    node.name = "Old"
    app.save()
    app.scene.frame_count = 200
    node.name = "New"
    app.save()
"""


def test_a_process_that_is_killed_leaves_one_of_the_two_projects(project):
    wait = random.Random(5)
    for _ in range(12):
        with brindle.open(project) as app:
            node = app.scene.nodes["Top/Sample-Peg"] or app.scene.nodes["Top/Old"] or app.scene.nodes["Top/New"]
            node.name = "Sample-Peg"
            app.scene.frame_count = 60
            app.save()
        process = subprocess.Popen([support.PYTHON, "-c", KILLED, project], stdout=subprocess.PIPE, text=True)
        assert process.stdout.readline() == "ready\n"
        time.sleep(wait.random() * 0.1)
        process.send_signal(signal.SIGKILL)
        process.wait()
        process.stdout.close()
        with brindle.open(project) as app:
            found = app.scene.frame_count, [n.name for n in app.scene.nodes.find({"name": "^(Old|New|Sample-Peg)$"})]
            assert found in [(60, ["Sample-Peg"]), (100, ["Old"]), (200, ["New"])]
            app.save()
        assert sorted(support.files(project)) == ["project.json", SCENE]


def test_two_processes_that_save_into_one_folder_leave_it_whole(project):
    script = """
import brindle, sys
app = brindle.open(sys.argv[1])
print("open", flush=True)
sys.stdin.readline()
for i in range(30):
    app.scene.nodes.create("PEG", sys.argv[2])
    app.save()
"""
    processes = [subprocess.Popen([support.PYTHON, "-c", script, project, name], text=True, stdin=subprocess.PIPE,
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE) for name in "ab"]
    assert [process.stdout.readline() for process in processes] == ["open\n"] * 2
    for process in processes:
        process.stdin.write("go\n")
        process.stdin.flush()
    assert [process.communicate()[1] for process in processes] == ["", ""]
    with brindle.open(project) as app:
        made = [node.name for node in app.scene.nodes.find({"name": "^[ab]"})]
    assert len(made) == 30 and len({name[0] for name in made}) == 1
    assert sorted(support.files(project)) == ["project.json", SCENE]


def test_a_save_that_was_interrupted_is_completed_by_the_next_process(project):
    stage = project / ".brindle-save"
    stage.mkdir()
    changed = (project / SCENE).read_bytes().replace(b'"frames": 60', b'"frames": 99').replace(b'"stop": 60',
                                                                                               b'"stop": 99')
    (stage / "0").write_bytes(changed)
    (stage / "journal.json").write_text(
        f'{{"format": "brindle-journal", "version": 1, "replace": ["{SCENE}"], "remove": []}}')
    with brindle.open(project) as app:
        assert app.scene.frame_count == 99
    assert not stage.exists() and (project / SCENE).read_bytes() == changed


def test_a_save_that_was_never_complete_counts_for_nothing(project):
    stage = project / ".brindle-save"
    stage.mkdir()
    (stage / "0").write_text("half a fi")
    with brindle.open(project) as app:
        assert app.scene.frame_count == 60
        app.save()
        app.scene.frame_count = 61
        app.save()
    assert not stage.exists()


@pytest.mark.parametrize("entry", ["../outside", "/etc/passwd", "scenes/../../outside", "a/b/c", ""])
def test_a_journal_that_leads_out_of_the_folder_is_refused(project, entry):
    stage = project / ".brindle-save"
    stage.mkdir()
    (stage / "0").write_text("evil")
    (stage / "journal.json").write_text(
        f'{{"format": "brindle-journal", "version": 1, "replace": ["{entry}"], "remove": ["{entry}"]}}')
    before = support.files(project)
    message = support.message_of(brindle.open, project)
    assert message.startswith(f'Cannot open the project: "{stage}/journal.json" is damaged at line 1: replace[0] ')
    assert support.files(project) == before
    assert not (project.parent / "outside").exists()
