"""brindle info: what is in a project, without touching it, and also while another process has it open."""

import os
import shutil

import brindle

import support


def info(folder):
    done = support.run_command("info", folder)
    return done.returncode, done.stdout.splitlines(), done.stderr


def test_info_tells_what_is_in_a_project(project):
    before = support.files(project)
    size = sum(map(len, before.values()))
    assert info(project) == (0, [
        f"Project: {project}",
        "Resolution: HD_1080, 1920 x 1080",
        "Colour space: sRGB",
        'Scene "Scene-1": 60 frames (1 to 60) at 24 fps, 13 nodes, 8 columns, 0 markers',
        "Last change: Create Dynamic Attribute",
        "Elements: 2 with 1 drawing",
        f"Size: {size / 1024:.2f} KiB in {len(before)} files",
    ], "")
    assert support.files(project) == before and support.LOCK not in os.listdir(project)


def test_info_follows_what_was_saved_last(project):
    with brindle.open(project) as app:
        scene, history = app.scene, app.project.history
        scene.framerate = 29.97
        scene.frame_count, scene.frame_start, scene.frame_stop = 100, 3, 50
        app.project.resolution.x = 720
        app.save()
        lines = info(project)[1]
        assert lines[1] == "Resolution: 720 x 1080"
        assert lines[3].startswith('Scene "Scene-1": 100 frames (3 to 50) at 29.97 fps, ')
        assert lines[4] == "Last change: Set X Resolution."
        history.undo(4)
        app.save()
        assert info(project)[1][4] == "Last change: Set Frame Rate"
        history.undo(1)
        history.begin("Walk\n  cycle")
        scene.frame_count = 7
        history.end()
        assert info(project)[1][4] == "Last change: Set Frame Rate", "only what is saved counts"
        app.save()
        assert info(project)[1][4] == "Last change: Walk cycle"
        app.elements.create(["a", "b"])
        app.elements["a"].drawings.create(["1", "2"])
        app.elements.remove("Sample-Element")
        app.save()
        assert info(project)[1][5] == "Elements: 3 with 2 drawings, and 1 deleted"
        history.undo(3)
        history.clear()
        app.save()
        assert info(project)[1][4] == "Last change: Walk cycle"


def test_the_last_change_is_that_of_the_file_while_all_is_undone(project):
    with brindle.open(project) as app:
        app.scene.frame_count = 7
        app.save()
        app.project.history.undo(1)
        app.save()
    assert info(project)[1][4] == "Last change: Create Dynamic Attribute"


def test_whatever_is_in_a_name_stays_on_its_line(tmp_path):
    folder = tmp_path / "walk\ncycle"
    with brindle.create(folder) as app:
        angle = app.scene.nodes.create("PEG", "Arm").attributes["angle"]
        angle.set_value(1, 2.0)
        angle.column.name = "a\0b\x1b[31m"
        app.scene.nodes["Top/Arm"].attributes["skew"].link("a\0b\x1b[31m")
        app.save()
    scene = folder / "scenes" / "Scene-1.json"
    scene.write_text(scene.read_text().replace('"Scene-1"', r'"Scene\u0000\n1"'))
    code, lines, error = info(folder)
    assert (code, len(lines), error) == (0, 7, "")
    assert lines[0] == f"Project: {tmp_path}/walk\\ncycle"
    assert lines[3].startswith(r'Scene "Scene\u0000\n1": 60 frames')
    assert lines[4] == r"Last change: Linking skew of Arm to a\u0000b\u001b[31m"
    scene.unlink()
    assert info(folder) == (
        1, [], f'brindle: Cannot open the project: "{tmp_path}/walk\\ncycle/scenes/Scene-1.json" is missing.\n')


def test_a_new_project_has_no_last_change(tmp_path):
    brindle.create(tmp_path / "new").close()
    lines = info(tmp_path / "new")[1]
    assert lines[3:5] == ['Scene "Scene-1": 60 frames (1 to 60) at 24 fps, 2 nodes, 0 columns, 0 markers',
                          "Last change: none"]


def test_hidden_files_are_no_part_of_the_project(project):
    before = info(project)
    (project / ".git").mkdir()
    (project / ".git" / "index").write_text("x" * 5000)
    assert info(project) == before
    (project / "notes.txt").write_text("mine")
    assert info(project)[1][-1].endswith(f" in {len(support.files(project)) - 1} files")


def test_info_works_while_the_project_is_open_and_where_nothing_can_be_written(project):
    with brindle.open(project):
        assert info(project)[0] == 0
    shutil.copytree(project, project.with_name("interrupted"))
    stage = project / ".brindle-save"
    stage.mkdir()
    changed = (project / "scenes/Scene-1.json").read_bytes().replace(b'"frames": 60', b'"frames": 99')
    (stage / "0").write_bytes(changed)
    (stage / "journal.json").write_text('{"format": "brindle-journal", "version": 1, '
                                        '"replace": ["scenes/Scene-1.json"], "remove": []}')
    before = support.files(project)
    assert " 99 frames (1 to 60) " in info(project)[1][3], "a save that happened and was interrupted"
    assert support.files(project) == before


def test_info_of_a_damaged_project_is_one_line(project):
    (project / "project.json").write_text("{")
    code, lines, error = info(project)
    assert (code, lines, error.count("\n")) == (1, [], 1)
    assert error.startswith(f'brindle: Cannot open the project: "{project}/project.json" is damaged at line 1')


def test_run_opens_a_project_read_only(project, tmp_path):
    script = tmp_path / "script.py"
    script.write_text("""
import brindle
app = brindle.application()
app.scene.frame_count = 12
try:
    app.save()
except brindle.Error as error:
    print(error)
""")
    before = support.files(project)
    with brindle.open(project):
        done = support.run_command("run", "--project", project, "--read-only", script)
        sentence = f'Cannot save the project: "{project}" is open read-only; it can be saved in another folder.\n'
        assert (done.returncode, done.stdout, done.stderr) == (0, sentence, "")
        done = support.run_command("run", "--project", project, script)
        assert (done.returncode, done.stdout, done.stderr.count("\n")) == (1, "", 1)
        assert done.stderr.startswith(f'brindle: Cannot open the project: "{project}" is in use by ')
    assert support.files(project) == before
    done = support.run_command("run", "--read-only", script)
    assert (done.returncode, done.stderr) == (2, "brindle: --read-only needs a project.\n")
