"""Saving writes the whole project or nothing: without permission, on a full disk, when the process is killed."""

import json
import os
import random
import shutil
import signal
import stat
import subprocess
import time
import zlib

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
# A person without preferences, who may not read those of who runs the tests.
NOBODY = "os.setgid(65534); os.setuid(65534); os.environ['XDG_CONFIG_HOME'] = '/nonexistent'"

needs_root = pytest.mark.skipif(os.geteuid() != 0, reason="only root can become nobody")
unwatched = pytest.mark.skipif(
    support.SANITIZED, reason="the sanitizer asks for an object's class through a pipe of its own")


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
    done = support.run_python(f"import brindle, os, sys\n{NOBODY}\ntry: brindle.open(sys.argv[1], read_only=True)\n"
                              "except brindle.Error as error: print(error)", project)
    shown = project if hidden == "." else project / hidden
    assert done.stdout == f'Cannot open the project: "{shown}" cannot be read: permission denied.\n'
    assert done.returncode == 0


@needs_root
def test_what_may_only_be_read_is_opened_read_only_when_that_is_asked_for(project):
    open_to_all(project)
    before = support.files(project)
    done = support.run_python(f"""
import brindle, os, sys
{NOBODY}
for read_only in (False, True):
    try:
        app = brindle.open(sys.argv[1], read_only=read_only)
        app.scene.frame_count += 1
        app.save()
    except brindle.Error as error:
        print(error)
""", project)
    assert done.stdout.splitlines() == [
        f'Cannot open the project: "{project}" cannot be written: permission denied; it can be opened read-only.',
        f'Cannot save the project: "{project}" is open read-only; it can be saved in another folder.']
    assert (done.returncode, done.stderr, support.files(project)) == (0, "", before)


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


def test_a_disk_that_fills_up_leaves_the_project_and_the_next_save_works(project, small_disk):
    folder = small_disk / "project"
    shutil.copytree(project, folder)
    before = support.files(folder)
    with brindle.open(folder) as app:
        history = app.project.history
        for _ in range(12):
            app.scene.nodes.create("PEG", "A peg with a name of some length")
        filler = small_disk / "filler"
        for room in (0, 1, 2):  # Pages of the file system that are left.
            filler.write_bytes(b"")
            free = os.statvfs(small_disk).f_bavail
            filler.write_bytes(b"x" * os.statvfs(small_disk).f_bsize * (free - room))
            labels = history.list()
            message = support.message_of(app.save)
            assert message.startswith(f'Cannot save the project: "{folder}/')
            assert message.endswith(": no space left on device.")
            assert support.files(folder) == before and history.list() == labels and app.project.dirty
            names = [support.LOCK, "elements", "elements.json", "palette-library", "project.json", "scenes"]
            assert sorted(path.name for path in folder.iterdir()) == names
        filler.unlink()
        app.save()
    with brindle.open(folder) as app:
        assert len(app.scene.nodes.find({"name": "^A peg"})) == 12


def test_a_disk_that_is_full_leaves_the_palettes_as_they_are(project, small_disk):
    folder = small_disk / "project"
    shutil.copytree(project, folder)
    with brindle.open(folder) as app:
        palettes, history = app.project.palettes, app.project.history
        before = support.files(folder)
        filler = small_disk / "filler"
        filler.write_bytes(b"x" * os.statvfs(small_disk).f_bsize * os.statvfs(small_disk).f_bavail)
        for make in (lambda: palettes.create("Colour", "New"), lambda: palettes.clone(palettes[0])):
            message = support.message_of(make)
            assert str(folder) in message and message.endswith("no space left on device.")
            assert len(palettes) == 1 and history.list() == [] and support.files(folder) == before
        filler.unlink()
        assert palettes.create("Colour", "New").name == "New" and history.list() == ["Create Palette"]


@unwatched
def test_whichever_call_of_a_save_fails_the_old_or_the_new_content_is_whole(tmp_path):
    library = tmp_path / "failingdisk.so"
    made = support.run("cc", "-shared", "-fPIC", "-o", library, support.ROOT / "tests/python/failingdisk.c")
    assert made.returncode == 0, made.stderr
    done = support.run(support.PYTHON, support.ROOT / "tests/python/failingdisk.py", library, tmp_path,
                       env={**os.environ, "LD_PRELOAD": str(library)})
    assert done.returncode == 0, done.stderr
    assert int(done.stdout.removesuffix(" calls\n")) > 100


def test_a_full_disk_keeps_the_drawing_that_was_exported_before(app, small_disk):
    drawing = support.samples(app)["content"]
    path = small_disk / "drawing.svg"
    brindle.export_svg(path, drawing)
    before = path.read_bytes()
    filler = small_disk / "filler"
    filler.write_bytes(b"x" * os.statvfs(small_disk).f_bsize * os.statvfs(small_disk).f_bavail)
    message = support.message_of(brindle.export_svg, path, drawing)
    assert message == f'"{path}" can\'t be written: No space left on device.'
    assert path.read_bytes() == before


def test_a_full_disk_lets_a_project_be_opened_read_only(project, small_disk):
    folder = small_disk / "project"
    shutil.copytree(project, folder)
    try:
        (small_disk / "filler").write_bytes(b"x" * 200_000)
    except OSError:
        pass
    message = support.message_of(brindle.open, folder)
    assert message == (f'Cannot open the project: "{folder}/{support.LOCK}" cannot be written: no space left on device; '
                       "it can be opened read-only.")
    with brindle.open(folder, read_only=True) as app:
        assert "Top/Sample-Peg" in app.scene.nodes
        app.save_as(small_disk.with_name("elsewhere"))


KILLED = """
import brindle, sys
app = brindle.open(sys.argv[1])
app.scene.frame_count = 100
node = app.scene.nodes["Top/Sample-Peg"]
print("ready", flush=True)
while True:
    node.name = "New"
    app.save()
    app.project.history.undo(1)
    app.save()
"""


def test_a_process_that_is_killed_leaves_one_of_the_two_projects_to_the_byte(project):
    wait = random.Random(5)
    forms = []
    with brindle.open(project) as app:
        app.scene.frame_count = 100
        forms.append(support.saved(app, project))
        app.scene.nodes["Top/Sample-Peg"].name = "New"
        forms.append(support.saved(app, project))
        app.project.history.undo(1)
        app.save()
    seen = set()
    for _ in range(40):
        process = subprocess.Popen([support.PYTHON, "-c", KILLED, project], stdout=subprocess.PIPE, text=True)
        assert process.stdout.readline() == "ready\n"
        time.sleep(wait.random() * 0.05)
        process.send_signal(signal.SIGKILL)
        process.wait()
        process.stdout.close()
        with brindle.open(project) as app:
            form = support.saved(app, project)
            assert form in forms
            seen.add(forms.index(form))
            if form == forms[1]:
                shutil.rmtree(project / "scenes")
                for path, content in forms[0].items():
                    (project / path).parent.mkdir(exist_ok=True)
                    (project / path).write_bytes(content)
    assert seen == {0, 1}


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


def interrupt(project, moved=0):
    """Leaves a save behind whose process was killed when it had moved this many of its two files. Gives the project's
    files before that save, and after it."""
    before = support.files(project)
    after = {**before, SCENE: before[SCENE].replace(b'"frames": 60', b'"frames": 99').replace(b'"stop": 60', b'"stop": 99'),
             "project.json": before["project.json"].replace(b'"HD_1080"', b'"PAL"').replace(b"1920", b"768").replace(
                 b"1080", b"576")}
    stage = project / ".brindle-save"
    stage.mkdir()
    journal = {"format": "brindle-journal", "version": 2, "files": []}
    for number, path in enumerate((SCENE, "project.json")):
        assert before[path] != after[path]
        journal["files"].append({"path": path, **{
            name: [len(files[path]), zlib.crc32(files[path])] for name, files in (("before", before), ("after", after))}})
        os.link(project / path, stage / f"{number}.old")
        (stage / str(number)).write_bytes(after[path])
        if number < moved:
            (stage / str(number)).rename(project / path)
    (stage / "journal.json").write_text(json.dumps(journal))
    return before, after


def visible(project):
    return {path: content for path, content in support.files(project).items() if not path.startswith(".")}


def damaged(project, name, what, whole=True):
    return (f'the save that was interrupted there is damaged ("{project}/.brindle-save/{name}" {what}); its remains are kept '
            f'in "{project}/.brindle-save-damaged"' + (", and the project is as it was before that save" if whole else ""))


DAMAGES = {
    "missing": (lambda path: path.unlink(), "is missing"),
    "empty": (lambda path: path.write_bytes(b""), "is not whole"),
    "a byte": (lambda path: path.write_bytes(path.read_bytes()[:1]), "is not whole"),
    "half": (lambda path: path.write_bytes(path.read_bytes()[:path.stat().st_size // 2]), "is not whole"),
    "all but the end": (lambda path: path.write_bytes(path.read_bytes()[:-1]), "is not whole"),
    "longer": (lambda path: path.write_bytes(path.read_bytes() + b"\n"), "is not whole"),
    "changed": (lambda path: path.write_bytes(path.read_bytes().replace(b"9", b"8").replace(b"5", b"6")), "is not whole"),
}


@pytest.mark.parametrize("moved", [0, 1, 2])
def test_an_interrupted_save_is_completed_wherever_it_was_interrupted(project, moved):
    _, after = interrupt(project, moved)
    with brindle.open(project, read_only=True) as app:
        assert (app.scene.frame_count, app.project.resolution.x) == (99, 768)
    with brindle.open(project) as app:
        assert (app.scene.frame_count, app.project.resolution.x) == (99, 768)
    assert support.files(project) == after


@pytest.mark.parametrize("moved, part", [(0, 0), (0, 1), (1, 1)])
@pytest.mark.parametrize("damage, what", DAMAGES.values(), ids=DAMAGES)
def test_an_interrupted_save_that_is_damaged_leaves_the_old_project_and_is_kept(project, damage, what, moved, part):
    before, _ = interrupt(project, moved)
    damage(project / ".brindle-save" / str(part))
    assert support.message_of(brindle.open, project) == f"Cannot open the project: {damaged(project, part, what)}."
    assert visible(project) == before and not (project / ".brindle-save").exists()
    assert (project / ".brindle-save-damaged" / "journal.json").exists()
    with brindle.open(project) as app:
        assert (app.scene.frame_count, app.project.resolution.x) == (60, 1920)
        app.save()
    assert visible(project) == before


@pytest.mark.parametrize("moved", [0, 1])
def test_who_may_only_read_sees_the_old_project_behind_a_damaged_save(project, moved):
    interrupt(project, moved)
    (project / ".brindle-save" / "1").write_bytes(b"{")
    before = support.files(project)
    done = support.run_python("""
import brindle, sys
with brindle.open(sys.argv[1], read_only=True) as app:
    print(app.scene.frame_count, app.project.resolution.x)
""", project)
    assert (done.returncode, done.stdout) == (0, "60 1920\n")
    assert done.stderr == (f'Error: In "{project}" the save that was interrupted there is damaged '
                           f'("{project}/.brindle-save/1" is not whole).\n')
    assert support.files(project) == before


def test_a_journal_that_is_cut_short_is_put_aside(project):
    before, _ = interrupt(project)
    journal = (project / ".brindle-save" / "journal.json").read_bytes()
    for length in range(0, len(journal), 7):
        (project / ".brindle-save" / "journal.json").write_bytes(journal[:length])
        message = support.message_of(brindle.open, project)
        assert message.startswith("Cannot open the project: the save that was interrupted there is damaged (")
        assert visible(project) == before
        (project / ".brindle-save-damaged").rename(project / ".brindle-save")


def test_a_journal_of_a_newer_version_is_left_to_that(project):
    interrupt(project)
    journal = project / ".brindle-save" / "journal.json"
    journal.write_text(journal.read_text().replace('"version": 2', '"version": 3'))
    before = support.files(project)
    for read_only in (False, True):
        assert support.message_of(brindle.open, project, read_only) == (
            f'Cannot open the project: "{journal}" has format version 3, and this version of the application reads '
            "versions up to 2.")
    assert support.files(project) == before


@pytest.mark.parametrize("damage, what", [("missing", "is missing"), ("half", "is damaged at line ")])
def test_a_damaged_save_of_an_earlier_version_is_put_aside(project, damage, what):
    before, after = interrupt(project)
    stage = project / ".brindle-save"
    for number in range(2):
        (stage / f"{number}.old").unlink()
    (stage / "journal.json").write_text(
        f'{{"format": "brindle-journal", "version": 1, "replace": ["{SCENE}", "project.json"], "remove": []}}')
    DAMAGES[damage][0](stage / "1")
    message = support.message_of(brindle.open, project)
    assert message.startswith(f'Cannot open the project: the save that was interrupted there is damaged ("{stage}/1" {what}')
    assert message.endswith("and the project is as it was before that save.") and visible(project) == before
    with brindle.open(project) as app:
        assert app.scene.frame_count == 60


@pytest.mark.parametrize("entry", ["../outside", "/etc/passwd", "scenes/../../outside", "a/b/c", ""])
def test_a_journal_that_leads_out_of_the_folder_is_put_aside(project, entry):
    before = support.files(project)
    stage = project / ".brindle-save"
    stage.mkdir()
    (stage / "0").write_text("evil")
    (stage / "journal.json").write_text(
        f'{{"format": "brindle-journal", "version": 1, "replace": ["{entry}"], "remove": ["{entry}"]}}')
    told = damaged(project, "journal.json", "is damaged at line 1: replace[0] is no file of the project", False)
    assert support.message_of(brindle.open, project) == f"Cannot open the project: {told}."
    assert not (project.parent / "outside").exists()
    assert visible(project) == before and (project / ".brindle-save-damaged" / "0").read_text() == "evil"
    with brindle.open(project) as app:
        assert app.scene.frame_count == 60
