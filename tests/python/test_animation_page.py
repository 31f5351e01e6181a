"""The page on animation: its pictures and its script are what the module makes, and what it says of values holds."""

import re
import xml.etree.ElementTree

import brindle
import pytest

import support

DOCS = support.ROOT / "docs"
PAGE = (DOCS / "animation.md").read_text()
(SCRIPT,) = re.findall(r"```python\n(.*?)```", PAGE, re.DOTALL)
IMAGES = re.findall(r"!\[[^]]+\]\((images/[^)]+)\)", PAGE)
WRITER = support.ROOT / "examples" / "animation" / "write_animation_page.py"


def test_the_pictures_are_up_to_date():
    done = support.run(support.PYTHON, WRITER, "--check")
    assert done.returncode == 0, f"{done.stdout}{done.stderr}\nexamples/animation/write_animation_page.py writes them anew"


def test_the_script_on_the_page_runs(tmp_path):
    done = support.run_python(SCRIPT, cwd=tmp_path)
    assert done.returncode == 0, done.stderr


def test_each_picture_is_shown_once_and_is_sound():
    assert sorted(IMAGES) == sorted(f"images/animation/{path.name}" for path in (DOCS / "images/animation").iterdir())
    for image in IMAGES:
        root = xml.etree.ElementTree.fromstring((DOCS / image).read_text())
        assert root.tag == "{http://www.w3.org/2000/svg}svg" and len(root) > 3


def test_links_lead_somewhere():
    for target in re.findall(r"\]\(([^)]+)\)", PAGE):
        assert (DOCS / target).exists(), target


def test_handles_stay_beside_their_keyframe(scene):
    column = scene.columns.create("BEZIER", "Wave")
    column[1], column[13], column[25] = 0, 6, 0
    key = column[13]
    assert (key.handle_left_x, key.handle_left_y, key.handle_right_x, key.handle_right_y) == (9, 6, 17, 6)
    key.handle_left_x, key.handle_right_x = -40, 12
    assert (key.handle_left_x, key.handle_right_x) == (1, 13)
    key.value = 7
    assert (key.handle_left_y, key.handle_right_y) == (7, 7)
    shape = [column.get_entry(1 + step / 4) for step in range(97)]
    column.keyframe_create(7)
    column[7].continuity = "SMOOTH"
    assert [column.get_entry(1 + step / 4) for step in range(97)] == pytest.approx(shape)


def test_more_points_of_the_velocity_leave_the_shape(scene):
    path = scene.columns.create("3D_PATH", "Flight")
    for frame, x, y in ((1, 0, 0), (13, 8, 6), (25, 16, 0)):
        path.create_point(frame, x, y, 0)
    position = scene.nodes.create("PEG", "Bird").attributes["position"]
    position.column = path
    half = position.value(7)
    path.velocity_column[5] = 0.5
    assert position.value(5) == half and path.keyframe_list() == [1, 13, 25]


def test_a_column_that_goes_away_counts_as_0_until_it_is_back(scene):
    scene.columns.create("BEZIER", "Wave")[1] = 6
    column = scene.columns.create("EXPR", "Half")
    column.text = 'value("Wave") / 2'
    assert column[4] == 3
    scene.columns["Wave"].name = "Other"
    assert (column[4], column.text) == (0, 'value("Wave") / 2')
    scene.columns["Other"].name = "Wave"
    assert column[4] == 3
    with pytest.raises(brindle.Error):
        column[4] = 5
