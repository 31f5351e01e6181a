"""The examples lipsync.py and timesheet.py: what files say comes to stand on the exposure sheet."""

import brindle
import pytest

import support
from exposuresheet import project_with_sheet

EXAMPLES = support.ROOT / "examples"


@pytest.fixture
def walk(tmp_path):
    return project_with_sheet(tmp_path / "walk")


def run(example, *arguments):
    done = support.run_command("run", EXAMPLES / example, *arguments)
    return done.returncode, done.stdout.splitlines(), done.stderr


def shown(folder, path="Top/Arm", count=12):
    with brindle.open(folder) as app:
        column = app.scene.nodes[path].attributes["drawing"].column
        return [column.get_entry(frame) for frame in range(1, count + 1)]


def test_shapes_hold_up_to_the_next_line_in_one_entry(walk, tmp_path):
    switches = tmp_path / "talk.dat"
    switches.write_text("Switches\n1 rest\n4 ai # a vowel\n\n6 etc\n9 rest\n", encoding="utf-8")
    assert run("lipsync.py", walk, "Top/Arm", switches, "--start", "2", "--shapes", "etc=closed") == (
        0, ["4 exposures of 3 shapes on frames 2 to 60 of Top/Arm"], "")
    assert shown(walk) == ["", *["rest"] * 3, *["ai"] * 2, *["closed"] * 3, *["rest"] * 3]
    with brindle.open(walk) as app:
        assert [drawing.name for drawing in app.elements["Arm"].drawings] == ["rest", "ai", "closed"]


@pytest.mark.parametrize("content, message", [
    ("heading\n", '"{file}" has no line with a frame and a shape.'),
    ("1 a\nx b\n", 'Line 2 of "{file}" is not a frame and a shape: "x b".'),
    ("1 a b\n", 'Line 1 of "{file}" is not a frame and a shape: "1 a b".'),
    ("-1 a\n", 'Line 1 of "{file}" is not a frame and a shape: "-1 a".')])
def test_a_file_without_sense_leaves_the_project_alone(walk, tmp_path, content, message):
    switches = tmp_path / "talk.dat"
    switches.write_text(content)
    before = support.files(walk)
    assert run("lipsync.py", walk, "Top/Arm", switches) == (1, [], f"lipsync: {message.format(file=switches)}\n")
    assert support.files(walk) == before


def test_a_node_without_a_drawing_column_is_told(walk, tmp_path):
    switches = tmp_path / "talk.dat"
    switches.write_text("1 a\n")
    for path, message in (("Top/Nobody", 'The scene has no node "Top/Nobody".'),
                          ("Top/Display", 'The node "Top/Display" shows no drawing column.'),
                          ("Top/Mouth", 'The node "Top/Mouth" shows no drawing column.')):
        assert run("lipsync.py", walk, path, switches) == (1, [], f"lipsync: {message}\n")
    assert run("lipsync.py", walk, "Top/Arm", switches, "--start", "61") == (
        1, [], "lipsync: Frame 61 is not in the scene, which has 60 frames.\n")


def test_a_sheet_is_written_read_and_written_again_to_the_byte(walk, tmp_path):
    with brindle.open(walk) as app:
        nodes = app.scene.nodes
        nodes["Top/Arm"].attributes["drawing"].column[2:7] = ["a", "a", None, 'b, "c"', "é"]
        nodes["Top/Bare"].attributes["drawing"].column[1] = "x"
        app.save()
    first, second = tmp_path / "first.csv", tmp_path / "second.csv"
    assert run("timesheet.py", "write", walk, first) == (0, ["2 columns of 60 frames"], "")
    lines = first.read_text(encoding="utf-8").splitlines()
    assert lines[:7] == ["Frame,Top/Arm,Top/Bare", "1,,x", "2,a,x", "3,a,x", "4,,x", '5,"b, ""c""",x', "6,é,x"]
    with brindle.open(walk) as app:
        for name in ("Arm", "Bare"):
            app.scene.nodes[f"Top/{name}"].attributes["drawing"].column[1:61] = ["z"] * 60
        app.save()
    assert run("timesheet.py", "read", walk, first) == (0, ["2 columns of 60 frames"], "")
    assert run("timesheet.py", "write", walk, second)[0] == 0
    assert second.read_bytes() == first.read_bytes()


@pytest.mark.parametrize("content, message", [
    ("", '"{file}" does not begin with "Frame" and the paths of nodes.'),
    ("Frame,Top/X\n", 'No column of drawings is shown by a node "Top/X".'),
    ("Frame,Top/Arm\n2,a\n", 'Line 2 of "{file}" is not that of frame 1 with 1 cells.'),
    ("Frame,Top/Arm\n1,a,b\n", 'Line 2 of "{file}" is not that of frame 1 with 1 cells.')])
def test_a_sheet_without_sense_leaves_the_project_alone(walk, tmp_path, content, message):
    sheet = tmp_path / "sheet.csv"
    sheet.write_text(content)
    before = support.files(walk)
    assert run("timesheet.py", "read", walk, sheet) == (1, [], f"timesheet: {message.format(file=sheet)}\n")
    assert support.files(walk) == before


@pytest.mark.parametrize("example", ["lipsync.py", "timesheet.py"])
def test_help_tells_the_arguments(example):
    code, lines, errors = run(example, "--help")
    assert code == 0 and not errors and lines[0].startswith(f"usage: {example[:-3]} ")
