"""Attributes with a colour, a position or a choice: values over time, local values, how they are read and refused."""

import math

import brindle
import pytest

import support

LOCAL = "Set Attribute local value."


@pytest.fixture
def peg(app):
    peg = app.scene.nodes.create("PEG", "Peg")
    peg.attributes.create_dynamic_attr("place", "POSITION_2D", "", True)
    app.project.history.clear()
    return peg


@pytest.fixture
def colour(app):
    colour = app.scene.nodes.create("COLOR_CARD", "Card").attributes["colour"]
    app.project.history.clear()
    return colour


@pytest.fixture
def mode(app):
    return app.scene.nodes["Top/Composite"].attributes["mode"]


def labels(app):
    return app.project.history.list()


def undone(app, folder, before):
    after = support.saved(app, folder)
    app.project.history.undo(1)
    assert support.saved(app, folder) == before
    app.project.history.redo(1)
    assert support.saved(app, folder) == after
    return True


def numbers(point):
    return [point.x, point.y, point.z] if isinstance(point, brindle.Point3d) else [point.x, point.y]


# Positions.

CLASSES = {"position": brindle.Position3DAttribute, "scale": brindle.Position3DAttribute,
           "rotation": brindle.Position3DAttribute, "pivot": brindle.Position3DAttribute,
           "place": brindle.Position2DAttribute}
FORMS = {"a list": [1.5, -2, 3], "a point": brindle.Point3d(1.5, -2, 3), "a vector": brindle.Vector3d(1.5, -2, 3)}


def test_each_kind_has_its_class_and_text(peg, colour, mode):
    for keyword, kind in CLASSES.items():
        assert type(peg.attributes[keyword]) is kind, keyword
    assert [str(each) for each in (peg.attributes["position"], peg.attributes["place"], colour, mode)] == [
        "Pos3DAttr(Top/Peg, position)", "Pos2DAttr(Top/Peg, place)", "ColorAttr(Top/Card, colour)",
        "EnumAttr(Top/Composite, mode)"]


@pytest.mark.parametrize("value", FORMS.values(), ids=FORMS)
def test_a_position_is_set_at_a_frame_with_columns_of_its_own(app, folder, peg, value):
    position = peg.attributes["position"]
    before = support.saved(app, folder)
    position.set_value(5, value)
    assert labels(app) == [LOCAL], "the label that this change has always had"
    assert numbers(position.value(5)) == [1.5, -2, 3] and numbers(position.localvalue()) == [0, 0, 0]
    assert [peg.attributes[f"position.{axis}"].column.keyframe_list() for axis in "xyz"] == [[5]] * 3
    assert undone(app, folder, before)


def test_what_a_value_does_not_tell_stays(peg):
    position = peg.attributes["position"]
    position.set_localvalue([1, 2, 3])
    position.set_localvalue([7, 8])
    assert numbers(position.localvalue()) == [7, 8, 3]
    position.set_value(5, [1])
    position.set_value(9, 4)
    assert numbers(position.value(5)) == [1, 8, 3] and numbers(position.value(9)) == [4, 8, 3]


def test_local_values_and_defaults(app, folder, peg):
    scale = peg.attributes["scale"]
    assert numbers(scale.default) == [1, 1, 1] and numbers(peg.attributes["place"].default) == [0, 0]
    before = support.saved(app, folder)
    scale.set_localvalue([2, 3, 4])
    assert undone(app, folder, before)
    scale.reset_localvalue()
    assert numbers(scale.localvalue()) == [1, 1, 1]
    scale.set_value(3, [5, 6, 7])
    before = support.saved(app, folder)
    scale.reset_value(3)
    assert numbers(scale.value(3)) == [1, 1, 1]
    assert undone(app, folder, before)
    assert labels(app) == [LOCAL, "Resetting local value.", LOCAL, "Resetting local value."]


@pytest.mark.parametrize("keyword", ["position", "place"])
def test_an_offset_moves_what_lies_in_the_range_alone(app, folder, peg, keyword):
    attribute = peg.attributes[keyword]
    flat = len(numbers(attribute.default))
    for frame in (1, 10, 20, 30):
        attribute.set_value(frame, [frame, -frame, 0][:flat])
    before, behind = support.saved(app, folder), numbers(attribute.value(21))
    attribute.offset_value([10, 20], [5, 7, 9][:flat])
    moved = {frame: numbers(attribute.value(frame)) for frame in (1, 10, 20, 30)}
    assert moved == {1: [1, -1, 0][:flat], 10: [15, -3, 9][:flat], 20: [25, -13, 9][:flat], 30: [30, -30, 0][:flat]}
    assert numbers(attribute.value(21)) == pytest.approx(behind)
    assert undone(app, folder, before)


def test_an_offset_over_all_frames_without_columns_changes_the_local_value(peg):
    position = peg.attributes["position"]
    position.offset_value(0, [1, 2, 3])
    assert numbers(position.localvalue()) == [1, 2, 3] and peg.attributes["position.x"].column is None


# Colours.

def channels(colour):
    return [colour.r, colour.g, colour.b, colour.a]


def test_a_colour_is_set_at_a_frame(app, folder, colour):
    before = support.saved(app, folder)
    colour.set_value(3, [10, 20, 30])
    assert channels(colour.value(3)) == [10, 20, 30, 255] and channels(colour.localvalue()) == [255] * 4
    assert labels(app) == ["Set Attribute value."]
    assert undone(app, folder, before)
    colour.set_value(3, brindle.Colour(1, 2, 3, 4))
    assert channels(colour.value(3)) == [1, 2, 3, 4]
    colour.set_value(3, [300, -5, 7, 8])
    assert channels(colour.value(3)) == [255, 0, 7, 8], "held within the channel's range"


def test_a_local_colour(app, folder, colour):
    before = support.saved(app, folder)
    colour.set_localvalue([1, 2, 3, 4])
    assert channels(colour.localvalue()) == channels(colour.value(50)) == [1, 2, 3, 4]
    assert labels(app) == [LOCAL]
    assert undone(app, folder, before)


def test_an_offset_of_a_colour(app, folder, colour):
    colour.set_localvalue([10, 20, 30, 40])
    before = support.saved(app, folder)
    colour.offset_value(0, [1, 300, -50, 2])
    assert channels(colour.localvalue()) == [11, 255, 0, 42]
    assert labels(app)[-1] == "Offset Attribute value."
    assert undone(app, folder, before)


# Choices.

def test_the_options_of_a_choice(mode):
    options = mode.options
    assert [option.name for option in options][:3] == ["NORMAL", "MULTIPLY", "SCREEN"]
    assert [option.value for option in options][:3] == ["0", "1", "2"]
    assert str(options[1]) == "MULTIPLY"


@pytest.mark.parametrize("form", ["option", "name", "number as text", "number"])
def test_a_choice_is_made_in_each_form(app, folder, mode, form):
    before = support.saved(app, folder)
    choice = {"option": mode.options[2], "name": "SCREEN", "number as text": "2", "number": 2}[form]
    mode.set_value(77, choice)
    assert mode.value(1).name == mode.value(100).name == mode.localvalue().name == "SCREEN"
    assert labels(app) == [LOCAL]
    assert undone(app, folder, before)
    entries = len(labels(app))
    mode.set_localvalue(choice)
    assert len(labels(app)) == entries, "the present choice makes no entry"


UNKNOWN = "Failed to match value with a appropriate option in the attribute."
INDEX = "Invalid argument at index {}."

REFUSALS = {
    "no option": (lambda r: r["mode"].set_localvalue("NOTHING"), UNKNOWN),
    "no option's number": (lambda r: r["mode"].set_localvalue(99), UNKNOWN),
    "a number that is no integer": (lambda r: r["mode"].set_localvalue(1.0), UNKNOWN),
    "a flag": (lambda r: r["mode"].set_value(1, True), UNKNOWN),
    "nothing": (lambda r: r["mode"].set_localvalue(None), UNKNOWN),
    "another object": (lambda r: r["mode"].set_localvalue(brindle.Point2d()), UNKNOWN),
    "a place that is no number": (lambda r: r["position"].set_value(5, [math.nan, 0, 0]), INDEX.format(1)),
    "a place without end": (lambda r: r["position"].set_localvalue([0, 0, math.inf]), INDEX.format(0)),
    "a way without end": (lambda r: r["place"].offset_value([1, 5], [math.inf, 0]), INDEX.format(1)),
    "an empty range": (lambda r: r["position"].offset_value([], [1, 2, 3]), "Invalid range specififed."),
    "a range from a text": (lambda r: r["colour"].offset_value(["a", 2], [1, 2, 3]),
                            "First range argument is invalid."),
    "an object that is no colour": (lambda r: r["colour"].set_value(1, brindle.Point2d()), "Unsupported colour type."),
    "no colour": (lambda r: r["colour"].set_localvalue(None), "Unsupported colour type."),
    "a curve for a whole position": (lambda r: setattr(r["position"], "column", r["column"]),
                                     "Failed to set the attribute's column name."),
    "a column for a scale": (lambda r: setattr(r["scale"], "column", r["column"]), "This attribute cannot be linked."),
}


@pytest.mark.parametrize("call, sentence", REFUSALS.values(), ids=REFUSALS)
def test_what_is_refused_changes_nothing(app, folder, peg, colour, mode, call, sentence):
    peg.attributes["angle"].set_value(1, 5)
    objects = {"mode": mode, "colour": colour, "position": peg.attributes["position"], "scale": peg.attributes["scale"],
               "place": peg.attributes["place"], "column": peg.attributes["angle"].column}
    before, entries = support.saved(app, folder), labels(app)
    with pytest.raises(brindle.Error) as failure:
        call(objects)
    assert str(failure.value) == sentence
    assert (support.saved(app, folder), labels(app)) == (before, entries)


def test_a_place_that_is_no_place_is_refused(app, folder, peg):
    before = support.saved(app, folder)
    for value in (None, "x", ["a"], object):
        with pytest.raises((brindle.Error, TypeError)):
            peg.attributes["position"].set_value(1, value)
    assert support.saved(app, folder) == before


def test_a_part_that_cannot_have_a_column_takes_a_value_at_a_frame_as_its_local_one(peg):
    pivot = peg.attributes["pivot"]
    pivot.set_value(20, [1, 2, 3])
    assert numbers(pivot.localvalue()) == [1, 2, 3] and not pivot.linkable
