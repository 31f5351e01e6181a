"""Colours, line styles and thicknesses of strokes: values that scripts build freely."""

import copy
import math
import pickle

import brindle
import pytest

import support

Colour, LineStyle, Thickness = brindle.DrawingVectorColour, brindle.DrawingVectorLineStyle, brindle.DrawingVectorThickness
Path, Point = brindle.DrawingVectorThicknessPath, brindle.DrawingVectorThicknessPathPoint
Matrix, Point2d, Vector2d = brindle.Matrix, brindle.Point2d, brindle.Vector2d

SKIN, PAPER = "0123456789abcdef", "fedcba9876543210"
NO_COLOUR = "0" * 16
FIRST = "Invalid argument at index 0."
SECOND = "Invalid argument at index 1."
UNEXPECTED = "An unexpected error has occurred."
OUT_OF_RANGE = "Index is out of range."
REPLACE = "Unable to replace thickness value --  the provided position is "

message_of = support.message_of


def refused(target, name, value):
    """The message of a write that is refused and changes nothing."""
    before = pickle.dumps(target)
    text = message_of(setattr, target, name, value)
    assert pickle.dumps(target) == before
    return text


def keys(path):
    return [(point.position, point.left_thickness, point.right_thickness) for point in path]


# --- DrawingVectorColour ----------------------------------------------------------------------------------------------

@pytest.mark.parametrize("text, id_", [
    ("eraser", Colour.eraser_colour().id), ("ERASER", Colour.eraser_colour().id), ("auto", Colour.auto_colour().id),
    ("Auto", Colour.auto_colour().id), (SKIN, SKIN), (SKIN.upper(), SKIN), ("sixteen letters!", NO_COLOUR)])
def test_texts_that_name_a_colour(text, id_):
    assert Colour.from_qvariant(text).id == id_
    assert Colour(text).colour_id == id_


@pytest.mark.parametrize("value", [SKIN[1:], SKIN + "0", "", "automatic", 5, 1.5, True, None, [SKIN], Matrix()], ids=repr)
def test_what_is_no_colour(value):
    assert Colour.from_qvariant(value) is None
    if value is not None:
        assert message_of(Colour, value) == FIRST


def test_a_colour_is_read_as_itself():
    colour = Colour(SKIN)
    assert Colour.from_qvariant(colour) == colour
    assert Colour(colour) == colour
    assert Colour.eraser_colour() != Colour.auto_colour()


def test_the_id_has_two_names():
    colour = Colour()
    assert (colour.id, colour.colour_id) == (NO_COLOUR, NO_COLOUR)
    colour.id = SKIN
    assert colour.colour_id == SKIN
    colour.colour_id = PAPER
    assert colour.id == PAPER
    for name in ("id", "colour_id"):
        assert refused(colour, name, "abc") == FIRST


def test_matrices_place_gradient_and_texture():
    colour = Colour(SKIN)
    assert colour.colour_matrix == Matrix() and colour.texture_matrix == Matrix()
    turned = Matrix()
    turned.translate(3, 4, 0)
    turned.rotate_degrees(30, None)
    colour.colour_matrix = turned
    colour.texture_matrix = [5, 6]
    assert colour.colour_matrix == turned
    assert list(colour.texture_matrix.get(index) for index in (12, 13)) == [5, 6]
    colour.colour_matrix = 2  # In the plane: z is left out.
    assert [colour.colour_matrix.get(index) for index in (0, 5, 10)] == [2, 2, 1]
    endless = Matrix()
    endless.origin = Point2d(math.inf, 0)
    for name in ("colour_matrix", "texture_matrix"):
        assert refused(colour, name, endless) == FIRST


def test_a_texture_comes_and_goes():
    colour = Colour(SKIN)
    assert colour.texture_id is False
    colour.texture_matrix = [5, 6]
    colour.texture_id = PAPER
    assert colour.texture_id == PAPER
    assert colour.texture_matrix.origin == brindle.Point3d(5, 6, 0)
    for nothing in (False, None):
        colour.texture_id = PAPER
        colour.texture_id = nothing
        assert colour.texture_id is False
    for value in (True, "", "abc", 5, [PAPER], colour):
        assert refused(colour, "texture_id", value) == FIRST


# --- DrawingVectorLineStyle -------------------------------------------------------------------------------------------

@pytest.mark.parametrize("type_, line, visible", [
    ("No_Linestyle", False, False), ("Cutter_Linestyle", False, False), ("Stroke_LineStyle", True, False),
    ("Hair_Linestyle", True, True), ("Thick_Linestyle", True, True), ("Thickness_Cutter_Linestyle", False, False)])
def test_types_of_lines(type_, line, visible):
    style = LineStyle()
    for written in (type_, type_.upper(), type_.lower()):
        style.type = "HAIR_LINESTYLE"
        style.type = written
        assert (style.type, style.line, style.visible) == (type_, line, visible)


def test_other_types_are_refused():
    style = LineStyle()
    assert style.type == "No_Linestyle"
    for text in ("Unknown", "", "Thick", "Thick_Linestyle "):
        assert refused(style, "type", text) == FIRST


def test_the_colour_of_a_line():
    style = LineStyle()
    style.colour = SKIN
    assert style.colour_id == SKIN
    assert style.colour == Colour(SKIN)
    style.colour = Colour(PAPER)
    assert style.colour_id == PAPER
    style.colour.id = SKIN  # Of a colour of its own.
    assert style.colour_id == PAPER
    for value in ("abc", 5, None, [SKIN], style):
        assert refused(style, "colour", value) == FIRST
    for name in ("colour_id", "opacity_colour_id"):
        assert refused(style, name, "eraser") == FIRST


def test_the_thickness_of_a_line():
    style = LineStyle()
    assert style.thickness == 0
    style.thickness = 2.5
    assert style.thickness == 2.5
    assert refused(style, "thickness", -1) == FIRST
    assert refused(style, "thickness", math.inf) == support.not_finite("thickness")


@pytest.mark.parametrize("name", ["texture_scaling", "texture_offset", "opacity_texture_scaling", "opacity_texture_offset"])
def test_vectors_of_textures(name):
    style = LineStyle()
    assert getattr(style, name) == (Vector2d(1, 1) if "scaling" in name else Vector2d(0, 0))
    for value, vector in (([2, 3], Vector2d(2, 3)), (Point2d(4, 5), Vector2d(4, 5)), (6, Vector2d(6, 6)), ("a", Vector2d())):
        setattr(style, name, value)
        assert getattr(style, name) == vector
    assert refused(style, name, Point2d(math.nan, 0)) == FIRST


def test_switches_of_textures():
    style = LineStyle()
    for name in ("texture_tiled", "opacity_texture_tiled", "texture_wrap_at_tip"):
        assert getattr(style, name) is False
        setattr(style, name, True)
        assert getattr(style, name) is True
    assert not style.opacity_textured
    style.opacity_colour_id = PAPER
    assert style.opacity_textured


def test_a_line_is_textured_where_its_colour_is_a_texture(app):
    palette = app.project.palettes.create("Colour", "")
    colour = palette.create_solid_colour("Skin", [1, 2, 3])
    texture = palette.create_texture("Paper", support.ROOT / "tests/data/texture.png")
    style = LineStyle()
    assert not style.textured
    style.colour_id = colour.id
    assert not style.textured
    style.colour_id = texture.id
    assert style.textured
    palette.remove(texture)
    assert not style.textured


# --- DrawingVectorThicknessPathPoint ----------------------------------------------------------------------------------

CONTROLS = [f"{side}_thickness_{end}_control{what}" for side in ("left", "right") for end in ("from", "to")
            for what in ("", "_position")]


def test_a_point_has_both_handles_at_itself():
    point = Point(0.5, 3)
    assert (point.position, point.left_thickness, point.right_thickness) == (0.5, 3, 3)
    for name in CONTROLS:
        assert getattr(point, name) == (0.5 if name.endswith("position") else 3)
    assert (Point().position, Point().left_thickness) == (0, 0)


def test_each_number_of_a_point_is_its_own():
    point = Point(0.5, 3)
    names = ["left_thickness", "right_thickness", *CONTROLS]
    for number, name in enumerate(names):
        setattr(point, name, number)
    assert [getattr(point, name) for name in names] == list(range(len(names)))
    point.left_thickness_to_control = -1  # A handle may reach below zero.
    assert refused(point, "left_thickness", -1) == FIRST
    assert refused(point, "right_thickness", -0.5) == FIRST


def test_a_point_that_is_moved_has_its_handles_at_itself_again():
    point = Point(0.5, 3)
    point.right_thickness = 4
    point.left_thickness_to_control, point.left_thickness_to_control_position = 9, 0.7
    point.position = 0.6
    moved = Point(0.6, 3)
    moved.right_thickness = moved.right_thickness_from_control = moved.right_thickness_to_control = 4
    assert point == moved


def test_points_without_usable_numbers():
    assert message_of(Point, 0.5, -1) == SECOND
    for arguments in ((math.nan, 1), (0.5, math.inf)):
        with pytest.raises((brindle.Error, ValueError, TypeError)):
            Point(*arguments)


# --- DrawingVectorThicknessPath ---------------------------------------------------------------------------------------

def test_keys_go_to_their_places():
    path = Path()
    assert path.empty and len(path) == 0 and not list(path)
    assert path.insert(Point(0.5, 2)) == 0
    assert path.insert(Point2d(1, 3)) == 1
    assert path.insert([0, 1]) == 0
    assert path.insert([Point(0.25, 5), [0.75, 6], Vector2d(0.8, 7)]) == [1, 3, 4]
    assert keys(path) == [(0, 1, 1), (0.25, 5, 5), (0.5, 2, 2), (0.75, 6, 6), (0.8, 7, 7), (1, 3, 3)]
    assert path.insert([0.5, 9]) == 2
    assert len(path) == 6 and path[2].left_thickness == 9
    assert path.insert([]) == []
    assert [point.position for point in path[1:3]] == [0.25, 0.5]


@pytest.mark.parametrize("value", [0.5, "a", None, Point2d(0.5, -1), [0.5, -1], [0.5, "a"], [[0.1, 1], 5], [[0.1, 1], None],
                                   Point2d(math.nan, 1), {}, Matrix()], ids=repr)
def test_what_is_no_key_is_refused_and_changes_nothing(value):
    path = Path([[0, 1], [1, 2]])
    assert message_of(path.insert, value) == UNEXPECTED
    assert keys(path) == [(0, 1, 1), (1, 2, 2)]


def test_keys_are_removed_by_equality_or_index():
    path = Path([[0, 1], [0.5, 2], [1, 3]])
    path.remove(Point(0.5, 3))  # No key is equal.
    assert len(path) == 3
    path.remove(Point(0.5, 2))
    assert keys(path) == [(0, 1, 1), (1, 3, 3)]
    path.remove(1)
    assert keys(path) == [(0, 1, 1)]
    for index in (1, -1):
        assert message_of(path.remove, index) == OUT_OF_RANGE
    for value in ("a", None, Matrix()):
        assert message_of(path.remove, value) == UNEXPECTED
    assert len(path) == 1


def test_membership_is_exact_equality():
    path = Path([[0, 1], [1, 2]])
    assert Point(1, 2) in path and Point(1, 2.5) not in path and Point(0.9, 2) not in path
    bent = Point(1, 2)
    bent.left_thickness_to_control = 3
    assert bent not in path and 1 not in path and None not in path


def test_a_number_sets_the_thickness_alone():
    path = Path([[0, 1], [0.5, 2], [1, 3]])
    path[0] = 2.5
    path[1] = "4"
    assert keys(path) == [(0, 2.5, 2.5), (0.5, 4, 4), (1, 3, 3)]
    for value in ("a", None, [1], -1, math.nan, Matrix()):
        assert message_of(path.set, 1, value) == UNEXPECTED
    for index in (3, -1):
        assert message_of(path.set, index, 1) == OUT_OF_RANGE
    assert keys(path) == [(0, 2.5, 2.5), (0.5, 4, 4), (1, 3, 3)]


@pytest.mark.parametrize("index, position, text", [
    (0, 0.5, "0.5, but must be below 0.5."), (0, 2, "2, but must be below 0.5."),
    (2, 0.5, "0.5, but must be above 0.5."), (2, -1, "-1, but must be above 0.5."),
    (1, 0, "0, but value must be between 0 and 1."), (1, 1, "1, but value must be between 0 and 1."),
    (1, 1e-7 - 1, "-1, but value must be between 0 and 1."), (1, 1234567.5, "1.23457e+06, but value must be between 0 and 1.")])
def test_a_point_that_passes_its_neighbours_is_refused(index, position, text):
    path = Path([[0, 1], [0.5, 2], [1, 3]])
    assert message_of(path.set, index, Point(position, 9)) == REPLACE + text
    assert keys(path) == [(0, 1, 1), (0.5, 2, 2), (1, 3, 3)]


def test_a_point_between_its_neighbours_replaces_a_key():
    path = Path([[0, 1], [0.5, 2], [1, 3]])
    path[1] = Point(0.75, 9)
    path[0] = Point(-4, 8)
    path[2] = Point(4, 7)
    assert keys(path) == [(-4, 8, 8), (0.75, 9, 9), (4, 7, 7)]
    alone = Path([[0, 1]])
    alone[0] = Point(77, 2)
    assert keys(alone) == [(77, 2, 2)]
    pair = Path([[0, 1], [1, 1]])
    assert message_of(pair.set, 0, Point(1, 1)) == REPLACE + "1, but must be below 1."
    assert message_of(pair.set, 1, Point(0, 1)) == REPLACE + "0, but must be above 0."


def test_points_that_a_path_gives_are_copies():
    path = Path([[0, 1]])
    path[0].left_thickness = 5
    for point in path:
        point.position = 3
    assert keys(path) == [(0, 1, 1)]


def test_thicknesses_of_a_path():
    path = Path([[0, 2], [1, 2]])
    assert path.thickness_constant
    point = Point(1, 2)
    point.left_thickness_from_control, point.left_thickness_from_control_position = 10, 0.5
    path[1] = point
    assert not path.thickness_constant
    assert (path.thickness_min, path.thickness_min_inner, path.thickness_max_inner) == (2, 2, 2)
    assert 2 < path.thickness_max < 10
    assert (Path().thickness_max, Path().thickness_min, Path().thickness_constant) == (0, 0, True)


def test_reversing_gives_a_new_path():
    path = Path([[0, 1], [0.25, 2]])
    point = path[0]
    point.right_thickness = 7
    path[0] = point
    assert keys(path.reverse()) == [(0.75, 2, 2), (1, 7, 1)]
    assert keys(path) == [(0, 1, 7), (0.25, 2, 2)]


def test_a_stretch_of_a_path_is_a_new_path():
    path = Path([[0, 0], [1, 4]])
    assert keys(path.truncate(0.25, 0.5)) == [(0.25, 1, 1), (0.5, 2, 2)]
    assert keys(path.truncate(0.5, 0.25)) == keys(path.truncate(0.25, 0.5))
    assert keys(path) == [(0, 0, 0), (1, 4, 4)]
    assert message_of(path.truncate, 0.5, 0.5) == "A thickness path is cut at two different finite positions."


def test_stretching_changes_the_path_itself():
    path = Path([[0, 1], [1, 4]])
    path.transform(0.5, 0.25)
    assert keys(path) == [(0.25, 1, 1), (0.75, 4, 4)]
    for factor in (0, -1, 1e-300):
        assert message_of(path.transform, factor, 1) == "A thickness path is stretched by a finite factor above 0."
    assert keys(path) == [(0.25, 1, 1), (0.75, 4, 4)]


def test_a_clone_is_equal_and_apart():
    path = Path([[0, 1]])
    path.closed = True
    clone = path.clone()
    assert clone == path and clone.closed
    clone[0] = 2
    assert clone != path and keys(path) == [(0, 1, 1)]


@pytest.mark.parametrize("name", ["tip_from_bezier", "tip_to_bezier"])
def test_tips_by_a_curve(name):
    path = Path([[0, 1]])
    none = getattr(path, name)
    assert none == brindle.Bezier()
    curve = brindle.Bezier()
    for index, point in enumerate(([0, 1], [2, 1], [2, -1], [0, -1])):
        curve[index] = point
    setattr(path, name, curve)
    assert getattr(path, name) == curve
    assert keys(path) == [(0, 1, 1)]
    setattr(path, name, None)
    assert getattr(path, name) == none
    for value in (5, "a", [], [1, 2], Matrix()):
        with pytest.raises(brindle.Error):
            setattr(path, name, value)
    curve[0] = Point2d(math.nan, 0)
    assert message_of(setattr, path, name, curve) == "The curve of a tip has finite points."
    assert getattr(path, name) == none


# --- DrawingVectorThickness -------------------------------------------------------------------------------------------

NUMBERS = ("start_position", "stop_position", "start_tangent_left", "start_tangent_right", "stop_tangent_left",
           "stop_tangent_right")


def test_a_thickness_is_a_part_of_a_path():
    thickness = Thickness()
    assert [getattr(thickness, name) for name in NUMBERS] == [0, 1, 0, 0, 0, 0]
    for number, name in enumerate(NUMBERS):
        setattr(thickness, name, number + 0.5)
    assert [getattr(thickness, name) for name in NUMBERS] == [0.5, 1.5, 2.5, 3.5, 4.5, 5.5]
    assert refused(thickness, "start_position", math.nan) == support.not_finite("start_position")


def test_the_path_has_two_names():
    thickness, path = Thickness(), Path([[0, 1], [1, 2]])
    assert thickness.path.empty
    thickness.path = path
    assert thickness.thickness_path == path
    thickness.thickness_path = Path([[0, 3]])
    assert keys(thickness.path) == [(0, 3, 3)]
    for name in ("path", "thickness_path"):
        for value in (None, 5, "a", [[0, 1]], thickness):
            assert refused(thickness, name, value) == FIRST


def test_a_path_that_is_changed_leaves_what_has_it_as_it_was():
    thickness, path = Thickness(), Path([[0, 1]])
    thickness.path = path
    path[0] = 5
    assert keys(thickness.path) == [(0, 1, 1)]
    thickness.path.insert([1, 7])
    assert keys(thickness.path) == [(0, 1, 1)]


def test_sharing_takes_the_path_of_another():
    one, other = Thickness(), Thickness()
    other.path = Path([[0, 4]])
    other.start_position = 0.5
    one.share_thickness(other)
    assert keys(one.path) == [(0, 4, 4)] and one.start_position == 0
    for value in (None, 5, Path(), [other]):
        assert message_of(one.share_thickness, value) == UNEXPECTED


# --- All of them ------------------------------------------------------------------------------------------------------

@pytest.mark.parametrize("cls", [Colour, LineStyle, Thickness, Path, Point])
def test_texts_and_copies(cls):
    value = cls()
    assert str(value) == f"{cls.__name__}()"
    assert copy.copy(value) == value and pickle.loads(pickle.dumps(value)) == value
    assert cls(value) == value
    with pytest.raises((brindle.Error, TypeError)):
        cls(Matrix())


def test_copies_keep_every_field():
    colour = Colour(SKIN)
    colour.colour_matrix, colour.texture_id, colour.texture_matrix = 2, PAPER, [3, 4]
    style = LineStyle()
    style.type, style.colour, style.thickness = "thick_linestyle", SKIN, 3
    style.texture_scaling, style.opacity_texture_offset, style.texture_wrap_at_tip = [2, 3], [4, 5], True
    style.opacity_colour_id = PAPER
    point = Point(0.5, 2)
    point.right_thickness_to_control_position = 0.7
    path = Path([[0, 1], point])
    path.closed, path.tip_to_bezier = True, brindle.Bezier([[0, 1], [1, 1], [1, -1], [0, -1]])
    thickness = Thickness()
    thickness.path, thickness.stop_tangent_left = path, -0.5
    for value in (colour, style, point, path, thickness):
        twin = pickle.loads(pickle.dumps(value))
        assert twin == value and twin != type(value)()


@pytest.mark.parametrize("value, shown", [
    (Colour(SKIN), f"<brindle.DrawingVectorColour: {SKIN}>"), (Colour("auto"), "<brindle.DrawingVectorColour: auto>"),
    (Colour(), "<brindle.DrawingVectorColour: no colour>"),
    (LineStyle(), f"<brindle.DrawingVectorLineStyle: No_Linestyle, 0, {NO_COLOUR}>"),
    (Point(0.5, 2), "DrawingVectorThicknessPathPoint(0.5, 2)"),
    (Path([[0, 1]]), "<brindle.DrawingVectorThicknessPath: 1 key>"),
    (Thickness(), "<brindle.DrawingVectorThickness: no path>")], ids=lambda value: type(value).__name__)
def test_repr_tells_what_a_value_holds(value, shown):
    assert repr(value) == shown
