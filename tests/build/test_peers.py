"""The comparison beside other programs: the scenes in each one's form, the timing, and the tables; with programs made up."""

import ast
import json
import math
import pathlib
import re
import subprocess
import sys
import types
import xml.etree.ElementTree as ElementTree

import numpy
import pytest

BENCH = pathlib.Path(__file__).resolve().parents[2] / "bench"
sys.path.insert(0, str(BENCH))

from peers import blender, command, flat, lines, measure, pictures, scenes, scripting, sheet, svg, synfig, tools  # noqa: E402

DOT = scenes.Fill(((0, 0), (4, 0), (8, 0), (8, 4), (8, 8), (4, 8), (0, 0)), (10, 20, 30, 51))
STROKE = scenes.Line(((0, 0), (10, 0), (20, 0), (30, 0)), ((0.0, 1, 2), (1.0, 3, 4)), (0, 0, 0, 255))
OUTLINE = (((0, 1), (10, 1), (10, -3), (0, -1), (0, 1)), ((10, 1), (30, 4), (30, -4), (10, -3), (10, 1)),
           ((30, 4), (31, 0), (30, -4), (30, 4)))


def everything():
    """A scene with one of each."""
    drawing = scenes.Drawing("Dot", (DOT,))
    return scenes.Scene("all", "all", scenes.Stack((
        scenes.Blurred(8.0, scenes.Moved(scenes.Motion(100, 50, dx=2, turn=90), drawing)),
        scenes.Cut(drawing, scenes.Drawing("Both", (DOT, STROKE))),
        scenes.Drawing("Last", (STROKE,)))), camera=scenes.Motion(7, 0))


@pytest.mark.parametrize("key", scenes.SCENES)
def test_a_scene_is_the_same_each_time(key):
    made = scenes.SCENES[key]()
    assert made.key == key and made.root == scenes.SCENES[key]().root


def test_every_second_shape_is_translucent_and_all_turn():
    root = scenes.shapes().root
    assert [moved.child.arts[0].colour[3] for moved in root.children] == [255, 156] * 100
    assert {moved.motion.turn for moved in root.children} == {3.6, -3.6}
    assert all(len(moved.child.arts[0].points) == 1 + 3 * 8 for moved in root.children)


def test_the_graph_has_what_its_title_says():
    graph = scenes.graph()
    found = list(scenes.walk(graph.root))
    drawings = [item for item in found if isinstance(item, scenes.Drawing)]
    assert len(drawings) == 30 == len({drawing.name for drawing in drawings})
    assert [item.radius for item in found if isinstance(item, scenes.Blurred)] == [8.0]
    assert len([item for item in found if isinstance(item, scenes.Cut)]) == 1 and graph.camera


def test_each_inner_edge_of_a_partition_lies_between_two_cells_that_have_it():
    art = scenes.cells(4, 3, scenes.colour)
    assert len(art.cells) == 12 and len(art.edges) == 4 * 4 + 5 * 3
    assert sum(None in sides for _, *sides in art.edges) == 2 * 4 + 2 * 3
    for points, *sides in art.edges:
        for number in sides:
            if number is not None:
                assert set(points) <= set(art.cells[number].points)


def test_an_edge_s_left_cell_lies_on_its_left():
    art = scenes.cells(4, 3, scenes.colour)
    for points, left, right in art.edges:
        (x1, y1), (x2, y2) = points[0], points[-1]
        for number, side in ((left, -1), (right, 1)):
            if number is not None:
                around = art.cells[number].points[:-1]
                x, y = (sum(values) / len(around) for values in zip(*around))
                assert side * ((x2 - x1) * (y - y1) - (y2 - y1) * (x - x1)) > 0  # y runs down


def test_the_flat_form_has_a_path_once_and_a_pile_of_pictures():
    text = flat.Writer(everything(), {STROKE: OUTLINE}).text([1, 2])
    told = [line.split() for line in text.splitlines()]
    assert told[0] == ["size", "1920", "1080"]
    assert [" ".join(line[1:]) for line in told if line[0] == "path"] == [
        "M0 0C4 0 8 0 8 4C8 8 4 8 0 0Z", "M0 1L10 1L10 -3L0 -1L0 1ZM10 1L30 4L30 -4L10 -3L10 1ZM30 4L31 0L30 -4L30 4Z"]
    first = told[told.index(["frame"]) + 1:]
    steps = [line[0] for line in first[:first.index(["frame"])]]
    assert steps == ["draw", "fill", "blur", "draw", "fill", "draw", "fill", "fill", "cut", "over", "draw", "fill", "over"]
    # A quarter turn after the first frame, 2 to the right, under a camera that stands 7 to the right of the middle.
    turned = [float(value) for value in told[len(told) - 1 - told[::-1].index(["frame"]) + 2][2:8]]
    assert turned == pytest.approx([0, 1, -1, 0, 960 - 7 + 102, 540 + 50], abs=1e-9)


def test_the_svg_form_is_well_formed_and_has_all():
    root = ElementTree.fromstring(svg.Writer(everything(), {STROKE: OUTLINE}).text(2))
    tags = [element.tag.rpartition("}")[2] for element in root.iter()]
    assert tags.count("path") == 5 and tags.count("mask") == 1 and tags.count("feGaussianBlur") == 1
    assert root[1].get("transform") == "translate(-7 0) rotate(0)" and root[1][0][0].get("transform") == "translate(102 50) rotate(90)"


def test_the_synfig_form_has_all():
    root = ElementTree.fromstring(synfig.text(everything()))
    kinds = [layer.get("type") for layer in root.iter("layer")]
    assert kinds.count("region") == 3 and kinds.count("outline") == 2 and kinds.count("blur") == 1
    widths = [float(width[0].get("value")) for width in root.iter("width")]
    assert widths[-2:] == [3, 7]


def test_the_blender_form_has_all_and_can_be_written():
    scene = scenes.Scene("s", "s", scenes.Moved(scenes.Motion(100, 50), scenes.Drawing("Both", (DOT, STROKE))))
    told = json.loads(json.dumps(blender.description(scene, {STROKE: OUTLINE})))
    assert told["root"]["ends"] == [[1, -0.5, 0]] * 2
    dot, line = told["root"]["children"][0]["strokes"]
    assert len(dot["points"]) == 2 * blender.STEPS and dot["widths"] is None
    assert line["points"] == [[0, 0], [0.1, 0.01], [0.3, 0]] and line["widths"] == [0.02, 0.04, 0.08]


def test_a_thickness_lies_between_the_keys_by_length():
    bent = scenes.Line((*STROKE.points, (40, 0), (50, 0), (120, 0)), STROKE.keys, STROKE.colour)
    assert lines.thicknesses(bent) == pytest.approx([3, 4, 7])


def test_a_picture_is_judged_by_premultiplied_numbers():
    expected = numpy.zeros((4, 4, 4), numpy.float32)
    expected[1:3] = 0.5
    assert pictures.compared(expected, expected, 128) == pictures.Nearness(math.inf, 0.0, 0)
    seen = expected.copy()
    seen[1, 2, 3] = 0.45
    seen[0, 0, 3] = 0.1
    found = pictures.compared(seen, expected, 127.5)
    assert found.seams == 1 and found.worst == pytest.approx(25.5)
    assert found.psnr == pytest.approx(-10 * math.log10((0.05 ** 2 + 0.1 ** 2) / 64), abs=1e-3)


@pytest.mark.parametrize("limit, words, code", [("5", ["sh", "-c", "exit 3"], 3), ("0.1", ["sleep", "30"], -9),
                                                ("5", ["there is no such program"], 127)])
def test_a_command_is_timed_and_ended(tmp_path, limit, words, code):
    file = tmp_path / "result"
    subprocess.run([sys.executable, "-I", "-S", str(measure.TIMED), str(file), limit, *words], check=True,
                   stderr=subprocess.DEVNULL)
    told = json.loads(file.read_text())
    assert told["code"] == code and 0 < told["seconds"] < 5 and told["memory"] > 0


class Fake(tools.Tool):
    """Writes files that say on how many threads they were drawn, or on none."""

    def __init__(self, name, script="for i in $(seq {frames}); do echo {mark} > out/$i.png; done", **more):
        self.name, self.script = name, script
        self.__dict__ |= more

    def missing(self, build):
        return self.__dict__.get("gone", "")

    def cannot(self, scene):
        return self.__dict__.get("unable", "")

    def version(self, build):
        return f"{self.name} 1.0"

    def command(self, stage, frames, threads, png):
        return ["sh", "-c", self.script.format(frames=frames, mark=threads if "uneven" in self.__dict__ else 0)]


@pytest.fixture(scope="module")
def measured(tmp_path_factory):
    """The figures of made-up programs on one scene, the text, and what was told on the way."""
    with pytest.MonkeyPatch.context() as monkeypatch:
        yield measure_fakes(monkeypatch, tmp_path_factory.mktemp("peers"))


def measure_fakes(monkeypatch, folder):
    monkeypatch.setattr(tools, "ALL", {
        "ours": Fake("brindle", cheap="nothing"), "other": Fake("other", uneven=True, note="by hand"),
        "broken": Fake("broken", "echo no such option >&2; exit 4"), "gone": Fake("gone", gone="it isn't installed"),
        "unable": Fake("unable", unable="it has no blur")})
    monkeypatch.setattr(scenes, "SCENES", {"held": lambda: scenes.Scene("held", "a dot", scenes.Drawing("Dot", (DOT,)))})
    monkeypatch.setattr(measure, "LEVELS", ((5, 2),))
    monkeypatch.setattr(pictures, "reference", lambda *_: None)
    monkeypatch.setattr(pictures, "compared", lambda *_: pictures.Nearness(63.25, 57.0, None))
    monkeypatch.setattr(pictures, "read", lambda content: content)
    monkeypatch.setitem(sys.modules, "peers.ours", types.SimpleNamespace(write=lambda *_: None, outlines=lambda *_: {}))
    told = []
    options = types.SimpleNamespace(build=folder, scenes="held", tools=None, minutes=1.0)
    figures = command.run(options, told.append)
    texts = command.texts(figures, folder)
    assert list(texts) == [command.PICTURES]
    return figures, texts[command.PICTURES], told


def test_programs_are_measured_in_turn_and_what_has_no_figure_has_a_reason(measured):
    figures, text, told = measured
    ours, other, broken = figures["scenes"][0]["tools"]
    assert ours["frames"] == 5 and ours["repetitions"] == 2 and ours["same"] and ours["memory"] > 0
    assert ours["first"] > 0 and None not in (ours["picture"], ours["png_alone"], ours["png"])
    assert other["picture"] is None and other["same"] is False
    assert broken["failure"] == "exit code 4: no such option"
    assert figures["scenes"][0]["skipped"] == {"gone": "it isn't installed", "unable": "it has no blur"}
    assert "gone is skipped: it isn't installed" in told


def test_the_table_tells_each_figure_reason_version_and_command(measured):
    lines = measured[1].splitlines()
    assert lines[0] == "a dot"
    ours = next(line for line in lines if line.startswith("brindle "))
    assert ours.split()[-7:] == ["63.2", "57", "0", "yes", "5", "x", "2"]
    assert "broken                failed: exit code 4: no such option" in lines
    assert "unable                skipped: it has no blur" in lines
    assert any(line.startswith("our aims: picture on 1 thread 8.0 ms ") for line in lines)
    assert "other: other 1.0; by hand" in lines
    assert "    PNG, 2 threads: for i in $(seq 5); do echo 2 > out/$i.png; done" in lines


def test_two_threads_are_as_busy_at_the_end_of_a_short_run_as_of_a_long_one():
    for frames, _ in measure.LEVELS:
        short = measure.shorter(frames)
        assert 0 < short < frames and (frames - short) % 2 == 0


def test_an_unknown_scene_is_told():
    with pytest.raises(SystemExit, match="there is no scene sky; there are shapes, lines$"):
        command.chosen("shapes,sky", {"shapes": 1, "lines": 2}, "scene")


SCRIPT = f"""
import sys
sys.path.insert(0, {str(scripting.SCRIPTS)!r})
from report import Report
report = Report()
report.short({{"number": 5}}, integer="number", write=("number + 1", "pass"))
with report.long("create", "make ten", 10):
    pass
report.write()
"""


def test_scripts_are_run_and_what_can_t_be_has_a_reason(monkeypatch, tmp_path):
    (tmp_path / "in_good.py").write_text(SCRIPT)
    (tmp_path / "in_bad.py").write_text("raise SystemExit('no such property')")
    monkeypatch.setattr(scripting, "SCRIPTS", tmp_path)
    monkeypatch.setattr(scripting, "PROGRAMS", {
        "good": scripting.of_python("Good", "import sys", "'3.1'"), "bad": scripting.of_python("Bad", "import sys", "1"),
        "gone": scripting.of_python("Gone", "import there_is_no_such_module", "1")})
    found = scripting.measure(["good", "bad", "gone"], None, lambda text: None)
    good = found["Good"]
    assert good["version"] == "3.1" and len(good["seconds"]["start"]) == scripting.STARTS
    assert good["code"] == {"integer": "number", "write": "number + 1", "create": "make ten"}
    assert all(seconds >= 0 for key in ("integer", "write", "create", "start") for seconds in good["seconds"][key])
    assert found["Bad"] == {"skipped": "its script failed with exit code 1: no such property"}
    assert found["Gone"] == {"skipped": "it isn't installed: scripts/setup.sh --peers"}


def test_the_table_of_scripts_has_our_aim_and_what_was_done():
    text = scripting.text({
        "brindle": {"seconds": {"integer": [17e-9], "open": [0.2]}, "code": {"integer": "scene.frame_count"}, "version": "1.0"},
        "Other": {"seconds": {"integer": [30e-9]}, "code": {"integer": "node.count"}, "version": "2.0"},
        "Gone": {"skipped": "it isn't installed"}})
    told = [line.split() for line in text.splitlines()]
    assert "read an integer property 17 ns 30 ns 80 ns met".split() in told
    assert "open them 200 ms - 150 ms ---".split() in told
    assert "Gone: skipped: it isn't installed" in text and "Gone (" not in text
    assert "    read an integer property:             node.count" in text.split("Other (2.0):")[1]


def keys_of(source):
    """The operations that a script measures."""
    for call in ast.walk(ast.parse(source)):
        match call:
            case ast.Call(func=ast.Attribute(attr="short"), keywords=operations):
                yield from (operation.arg for operation in operations)
            case (ast.Call(func=ast.Attribute(attr="long" | "save"), args=[ast.Constant(key), *_])
                  | ast.Call(func=ast.Name("write"), args=[_, ast.Constant(key)])):
                yield key


def test_the_scripts_measure_what_the_table_has_and_ours_measures_all_of_it():
    rows = {key for key, *_ in scripting.ROWS}
    for name in scripting.PROGRAMS:
        keys = set(keys_of((scripting.SCRIPTS / f"in_{name}.py").read_text()))
        assert keys <= rows and len(keys) >= 8
        assert name != "brindle" or keys == rows - {"start"}
