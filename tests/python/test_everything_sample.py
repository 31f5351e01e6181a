"""A project with something of every kind: it opens with all of it, and is saved as it stands.

tests/data/everything was saved by the application when it had learnt these kinds; who changes the format adds a sample
instead of changing this one.
"""

import shutil

import brindle
import pytest

import support

SAMPLE = support.ROOT / "tests" / "data" / "everything"


@pytest.fixture
def sample(tmp_path):
    folder = shutil.copytree(SAMPLE, tmp_path / "everything")
    with brindle.open(folder) as app:
        yield app


def place(value):
    return value.x, value.y, value.z


def test_opening_and_saving_keeps_every_byte(tmp_path):
    folder = shutil.copytree(SAMPLE, tmp_path / "everything")
    before = support.files(folder)
    with brindle.open(folder) as app:
        assert not app.project.dirty
        assert support.saved(app, folder) == before
        app.scene.columns["Angle"][5] = 3
        app.elements["Hand"].name = "Other"
        app.scene.columns["Notes"][9] = "x"
        assert support.saved(app, folder) != before
        app.project.history.undo(3)
        assert support.saved(app, folder) == before
    assert support.files(folder) == before


def test_columns_of_every_kind_are_there(sample):
    columns = sample.scene.columns
    assert [(column.name, column.type) for column in columns][:11] == [
        ("Angle", "BEZIER"), ("Lean", "EASE"), ("Speed", "VELOBASED"), ("Flight", "3D_PATH"), ("Turn", "QUATERNION_PATH"),
        ("Sum", "EXPR"), ("Door", "SOUND"), ("Notes", "ANNOTATION"), ("Files", "FILE_LIBRARY"), ("Hand", "DRAWING"),
        ("Mouth", "TIMING")]
    angle = columns["Angle"][20]
    assert (angle.value, angle.const_segment, angle.continuity, angle.handle_left_x) == (30.5, True, "SMOOTH", 14)
    lean = columns["Lean"]
    assert (lean[24].value, lean[24].ease_in, lean.hold_stop, lean.hold_step) == (12.25, 3, 12, 2)
    assert columns["Speed"].keyframe_list() == [1, 30]
    flight = columns["Flight"]
    assert place(flight[20].value) == (10, 5, -2) and flight[20].const_segment
    assert (flight[20].tension, flight[20].continuity, flight[20].bias) == (0.5, -0.25, 0.125)
    assert place(columns["Turn"].get_entry(40)) == (0, 90, 350)
    assert columns["Sum"].get_entry(20) == 81.0
    assert (columns["Door"][12], columns["Notes"][3], columns["Files"][1]) == (
        "door.wav", "blink\n\"slowly\" 腕", "refs/walk.pdf")
    assert [columns["Mouth"][frame] for frame in (1, 2, 3, 9)] == ["m", "m", "o", "o"]


def test_links_attributes_and_marks_are_there(sample):
    nodes = sample.scene.nodes
    body, arm, face = nodes["Top/Body"], nodes["Top/Arm"], nodes["Top/Face"]
    links = {"Top/Arm": ["angle", "skew", "speed"], "Top/Body": ["position", "rotation", "scale.x"]}
    for path, keywords in links.items():
        assert all(nodes[path].attributes[keyword].column_name for keyword in keywords)
    assert place(body.attributes["position"].value(20)) == (10, 5, -2)
    assert body.attributes["full_transform"].localvalue()
    assert (face.attributes["drawing"].element_mode, face.attributes["drawing"].timing_name) == (False, "Mouth")
    added = {keyword: arm.attributes[keyword] for keyword in (
        "meta.take", "meta.weight", "meta.shot", "meta.ok", "meta.rig.place", "goal", "tint", "size", "aim", "speed")}
    assert all(attribute.dynamic for attribute in added.values())
    assert [added[f"meta.{keyword}"].localvalue() for keyword in ("take", "weight", "shot", "ok")] == [
        7, 1e300, "two\nlines", True]
    assert place(added["goal"].localvalue()) == (1, 2, 3) and added["tint"].localvalue() == brindle.Colour(9, 8, 7, 6)
    assert (added["speed"].type, added["speed"].value(10)) == ("DOUBLE_VB", 4)
    assert (nodes["Top/Paper"].cached, arm.locked, arm.thumbnail_timeline, arm.metadata["who"].value) == (True, True, True, "me")
    assert nodes["Top/Composite"].attributes["mode"].localvalue().name == "SCREEN"
    assert (sample.scene.metadata["shot"].value, sample.scene.metadata["shot"].creator) == ("SQ010", "breakdown")


def test_elements_exposures_and_palettes_are_there(sample):
    hand, vectors = sample.elements
    assert (hand.name, hand.opacity, vectors.vector_type, vectors.field_chart) == ("Hand", 40, "BVG", 16)
    one = hand.drawings["1"]
    assert (one.version, one.type, one.scale_factor, one.file_exists) == (2, "KEY", 0.5, True)
    column = sample.scene.columns["Hand"]
    assert [drawing and drawing.name for drawing in column[1:7]] == ["1", "1", "2", None, "A b", "A b"]
    assert column.key_exposure_next(1) == 2
    hero, props = sample.project.palettes
    assert (hero.name, props.name, [colour.name for colour in hero]) == (
        "Hero", "Props", ["Default", "Skin", "Sky", "Line \"black\"", "Paper"])
    assert [colour.position for colour in hero["Sky"]] == [0, 70, 100]
