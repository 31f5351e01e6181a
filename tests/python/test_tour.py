"""The tour runs, tells what it does, and leaves a picture of the node graph."""

import shutil
import xml.etree.ElementTree

import brindle
import pytest

import support

TOUR = support.ROOT / "examples" / "tour"


@pytest.fixture(scope="module")
def tour(tmp_path_factory):
    """The tour, run twice in a row into one folder, from a copy that it can't leave anything in."""
    folder = tmp_path_factory.mktemp("tour")
    scripts = folder / "scripts"
    shutil.copytree(TOUR, scripts, ignore=shutil.ignore_patterns("__pycache__"))
    runs = [support.run_command("run", scripts / "tour.py", folder / "out") for _ in range(2)]
    return folder, runs


def test_it_succeeds_twice_in_a_row(tour):
    for done in tour[1]:
        assert (done.returncode, done.stderr) == (0, "")


def test_it_tells_the_same_each_time(tour):
    first, second = (done.stdout.splitlines()[:-1] for done in tour[1])
    assert first == second and len(first) > 8
    assert any("undid it" in line and support.GONE in line for line in first)


def test_its_picture_is_a_drawing_of_every_node(tour):
    root = xml.etree.ElementTree.parse(tour[0] / "out" / "graph.svg").getroot()
    assert root.tag == "{http://www.w3.org/2000/svg}svg"
    texts = {"".join(element.itertext()).strip() for element in root.iter() if element.tag.endswith("text")}
    with brindle.open(tour[0] / "out" / "walk-cycle") as app:
        names = {node.name for node in app.scene.nodes}
    assert names <= texts and len(names) > 20


def test_its_project_is_a_walk_that_can_be_opened(tour):
    with brindle.open(tour[0] / "out" / "walk-cycle") as app:
        assert app.scene.frame_count == 48
        keyed = [attribute for node in app.scene.nodes if node.type == "PEG" for attribute in node.attributes
                 if attribute.column_name]
        assert len(keyed) >= 8
        assert all(1 <= frame <= 48 for attribute in keyed for frame in attribute.column.keyframe_list())
    text = support.run_command("info", tour[0] / "out" / "walk-cycle").stdout
    assert 'Scene "Scene-1": 48 frames (1 to 48) at 24 fps' in text


def test_its_parts_show_drawings_and_its_head_blinks(tour):
    assert "  the head blinks: open from 1, half from 9, closed from 10, half from 12, open from 13" in (
        tour[1][0].stdout.splitlines())
    with brindle.open(tour[0] / "out" / "walk-cycle") as app:
        reads = {node.name: node.attributes["drawing"] for node in app.scene.nodes if node.type == "READ"}
        assert len(reads) == 17
        assert all(drawing.value(frame) for drawing in reads.values() for frame in (1, 48))
        assert {element.vector_type for element in app.elements} == {"PNT"}
        assert reads["Hand-L"].column_name == reads["Hand-R"].column_name == "hand"
        for name, expected in (("Head", ["open", "half", "closed", "closed", "half", "open"]), ("Neck", ["1"] * 6),
                               ("Hand-L", ["relaxed"] * 5 + ["fist"])):
            assert [reads[name].value(frame) for frame in range(8, 14)] == expected


@pytest.mark.skipif(not shutil.which("ffmpeg"), reason="ffmpeg is not installed")
def test_it_leaves_pictures_of_the_walk(tour):
    sheet = brindle.Cel.read(tour[0] / "out" / "walk.png")
    assert memoryview(sheet).shape == (826, 1944, 4)
    shown = brindle.Cel.read(support.ROOT / "docs" / "images" / "walk.png")
    assert sheet.compare_exr(shown)
    assert (tour[0] / "out" / "walk.gif").read_bytes().startswith(b"GIF89a")


def test_its_pictures_are_painted_all_over_and_pip_walks(tour):
    with brindle.open(tour[0] / "out" / "walk-cycle") as app:
        first, later = (brindle.render.cel(app.scene.display, frame, (96, 54)) for frame in (1, 30))
        assert set(memoryview(first).tobytes()[3::4]) == {255}
        assert not first.compare_exr(later)
        head = brindle.render.cel(app.scene.nodes["Top/Head"], 1, (96, 54))
        assert 0 < head.allocated_rect.width < 30 and head.allocated_rect.height > 8


def test_it_replaces_nothing_but_an_earlier_tour(tour):
    theirs = tour[0] / "theirs"
    (theirs / "walk-cycle").mkdir(parents=True)
    for place in (theirs, TOUR / "tour.py"):
        done = support.run(support.PYTHON, tour[0] / "scripts" / "tour.py", place)
        assert done.returncode == 2 and done.stderr.endswith(f"error: {place} is not an empty folder\n")
    assert (theirs / "walk-cycle").is_dir() and (TOUR / "tour.py").is_file()


def test_it_runs_in_a_plain_interpreter_too(tour):
    done = support.run(support.PYTHON, tour[0] / "scripts" / "tour.py", tour[0] / "plain")
    assert (done.returncode, done.stderr) == (0, "")
    assert (tour[0] / "plain" / "graph.svg").read_bytes() == (tour[0] / "out" / "graph.svg").read_bytes()
