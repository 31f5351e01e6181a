"""Strokes, contours and joints of a layer, as scripts read and write them."""

import math
import re

import brindle
import pytest

import support
from drawings import (GREEN, OUT_OF_RANGE, RED, STEP, UNEXPECTED, box, content, invalid, line, new_drawing, square, thick)

Colour, LineStyle, Thickness = brindle.DrawingVectorColour, brindle.DrawingVectorLineStyle, brindle.DrawingVectorThickness
Path, Point2d, Vector2d = brindle.DrawingVectorThicknessPath, brindle.Point2d, brindle.Vector2d

message_of = support.message_of


@pytest.fixture
def drawing(app):
    return new_drawing(app)


@pytest.fixture
def layer(app, drawing):
    """A layer of strokes without any, and an empty history."""
    made = drawing["line"].add("PEN_LAYER")
    app.project.history.clear()
    return made


@pytest.fixture
def stroke(app, layer):
    """From (0, 0) to (10, 0), with nothing else in the layer or the history."""
    made = layer.strokes.add(line([0, 0], [10, 0]))
    app.project.history.clear()
    return made


def refused(history, drawing, call, *arguments):
    """The message of a call that is refused and leaves drawing and history as they were."""
    before, labels = content(drawing), history.list()
    text = message_of(call, *arguments)
    assert content(drawing) == before and history.list() == labels
    return text


def ids(strokes):
    return [stroke.unique_id for stroke in strokes]


def place(point):
    return round(point.x, 9), round(point.y, 9)


# --- The list of strokes ----------------------------------------------------------------------------------------------

def test_a_path_becomes_a_stroke(layer, history):
    stroke = layer.strokes.add(line([0, 0], [10, 0], [10, 5]))
    assert type(stroke) is brindle.DrawingVectorStroke
    assert history.list() == [STEP]
    assert stroke.bezier_path.bezier_count == 2
    assert [stroke.bezier_path.bezier_degree(index) for index in (0, 1)] == [3, 3]
    assert box(stroke.bounding_box) == (0, 0, 10, 5)
    assert stroke in layer.strokes and len(layer.strokes) == 1 and layer.strokes[0] == stroke
    history.undo()
    assert len(layer.strokes) == 0
    history.redo()
    assert ids(layer.strokes) == [1]


def test_copies_of_strokes_are_added(layer, stroke, drawing, history):
    stroke.line_style = thick()
    copy = layer.strokes.add(stroke)
    assert copy != stroke and copy.line_style == stroke.line_style
    made = layer.strokes.add([stroke, copy, stroke])
    assert type(made) is list and len(made) == 2
    assert len(layer.strokes.add(layer.strokes)) == 4
    assert len(layer.strokes) == 8 and history.list() == [STEP] * 4
    other = drawing["colour"].add("PAINT_LAYER")
    assert len(other.strokes.add(layer.strokes)) == 8


@pytest.mark.parametrize("value", [None, 5, "a", [], {}, brindle.Matrix(), brindle.BezierPath(), [None]], ids=repr)
def test_what_is_no_stroke_is_refused(layer, drawing, history, value):
    assert refused(history, drawing, layer.strokes.add, value) == invalid(0)


def test_points_that_are_not_finite_are_refused(layer, stroke, drawing, history):
    path = line([0, 0], [10, 0])
    path[0] = Point2d(math.nan, 0)
    for call in (lambda: layer.strokes.add(path), lambda: setattr(stroke, "bezier_path", path),
                 lambda: layer.strokes.set(0, path)):
        assert refused(history, drawing, call) == UNEXPECTED


def test_a_stroke_is_replaced_and_stays_the_same_stroke(layer, stroke, history):
    other = layer.strokes.add(square())
    other.line_style = thick()
    history.clear()
    layer.strokes[0] = other
    assert history.list() == [STEP]
    assert box(stroke.bounding_box) == (0, 0, 10, 10) and stroke.line_style == thick()
    assert stroke.unique_id != other.unique_id and ids(layer.strokes) == ids([stroke, other])
    layer.strokes[0] = line([1, 1], [2, 2])
    assert box(stroke.bounding_box) == (1, 1, 2, 2) and stroke.line_style == thick()
    history.undo(2)
    assert box(stroke.bounding_box) == (0, 0, 10, 0) and stroke.line_style == LineStyle()


def test_places_and_values_that_no_stroke_has(layer, stroke, drawing, history):
    strokes = layer.strokes
    for index in (1, -1, 2**31 - 1):
        assert refused(history, drawing, strokes.get, index) == OUT_OF_RANGE
        assert refused(history, drawing, strokes.set, index, stroke) == OUT_OF_RANGE
    for value in (None, 5, [], brindle.BezierPath()):
        assert refused(history, drawing, strokes.set, 0, value) == invalid(1)
    assert 5 not in strokes and None not in strokes and layer not in strokes


def test_a_stroke_of_another_layer_is_not_in_the_list(drawing, layer, stroke):
    other = drawing["line"].add("PEN_LAYER")
    assert stroke in layer.strokes and stroke not in other.strokes


def test_lists_are_gone_through_live(layer, stroke):
    second = layer.strokes.add(line([0, 5], [10, 5]))
    seen = []
    for each in layer.strokes:
        seen.append(each.unique_id)
        if len(seen) == 1:
            layer.strokes.add(line([0, 9], [1, 9]))
    assert seen == ids(layer.strokes) and seen[:2] == ids([stroke, second])
    assert ids(layer.strokes.list()) == seen and ids(layer.strokes[1:]) == seen[1:]
    assert str(layer.strokes) == "DrawingVectorStrokeList()"


def test_contours_and_joints_are_not_set(layer, drawing, history):
    layer.strokes.add(square())
    for name in ("contours", "joints"):
        items = getattr(layer, name)
        for index in (0, 99):
            assert refused(history, drawing, items.set, index, items[0]) == (
                f"Unable to set {name} -- use Drawing Access instead.")
        assert refused(history, drawing, items.get, len(items)) == OUT_OF_RANGE
        assert items[0] in items and None not in items and layer not in items
        assert str(items) == f"DrawingVector{name.capitalize()[:-1]}List()"
        assert list(items) == items.list()


# --- Strokes ----------------------------------------------------------------------------------------------------------

def test_the_path_of_a_stroke_is_written_with_degree_3(stroke, history):
    stroke.bezier_path = line([0, 0], [0, 20])
    assert history.list() == [STEP] and box(stroke.bounding_box) == (0, 0, 0, 20)
    stroke.bezier_path[0] = [99, 99]  # Of a path of its own.
    assert box(stroke.bounding_box) == (0, 0, 0, 20)
    history.undo()
    assert box(stroke.bounding_box) == (0, 0, 10, 0)


@pytest.mark.parametrize("value", [None, 5, "a", [], brindle.BezierPath(), brindle.Matrix()], ids=repr)
def test_what_is_no_path_is_refused(stroke, drawing, history, value):
    assert refused(history, drawing, setattr, stroke, "bezier_path", value) == invalid(0)


@pytest.mark.parametrize("side, other", [("left", "right"), ("right", "left")])
def test_each_side_has_a_colour(stroke, history, side, other):
    assert getattr(stroke, f"colour_{side}") is None
    for number, (name, value, id_) in enumerate([
            (f"colour_{side}", Colour(RED), RED), (f"color_{side}", GREEN, GREEN),
            (f"colour_{side}", "eraser", Colour.eraser_colour().id)]):
        setattr(stroke, name, value)
        assert getattr(stroke, f"colour_{side}").id == getattr(stroke, f"color_{side}").id == id_
        assert getattr(stroke, f"colour_{other}") is None
        assert history.list() == [STEP] * (number + 1)
    getattr(stroke, f"colour_{side}").id = RED  # Of a colour of its own.
    assert getattr(stroke, f"colour_{side}") == Colour("ERASER")
    history.undo(3)
    assert getattr(stroke, f"colour_{side}") is None


@pytest.mark.parametrize("value", [None, 5, "red", RED[1:], [RED], LineStyle()], ids=repr)
def test_what_is_no_colour_is_refused(stroke, drawing, history, value):
    for name in ("colour_left", "color_left", "colour_right", "color_right"):
        assert refused(history, drawing, setattr, stroke, name, value) == invalid(0)


def test_a_colour_keeps_all_that_it_says(stroke):
    colour = Colour(RED)
    colour.colour_matrix, colour.texture_id = [3, 4], GREEN
    stroke.colour_left = colour
    assert stroke.colour_left == colour


def test_the_line_style_is_a_copy(stroke, drawing, history):
    stroke.line_style = thick(RED, 4)
    assert stroke.line_style == thick(RED, 4) and history.list() == [STEP]
    stroke.line_style.thickness = 9
    assert stroke.line_style.thickness == 4 and stroke.thickness_max_visible == 4
    for value in (None, 5, "thick_linestyle", RED, Colour(RED)):
        assert refused(history, drawing, setattr, stroke, "line_style", value) == invalid(0)
    history.undo()
    assert stroke.line_style == LineStyle() and stroke.thickness_max_visible == 0


def test_boxes_with_and_without_thickness(layer):
    path = brindle.BezierPath()
    curve = brindle.Bezier()
    for index, point in enumerate(([0, 0], [0, 10], [10, 10], [10, 0])):
        curve[index] = point
    path.bezier_append(curve)
    stroke = layer.strokes.add(path)
    assert box(stroke.bounding_box) == (0, 0, 10, 7.5) and box(stroke.bounding_box_inner) == (0, 0, 10, 0)
    assert box(stroke.bounding_box_visible) == (0, 0, 0, 0)
    stroke.line_style = thick(RED, 2)
    stroke.set_tip_type_from("flat")
    stroke.set_tip_type_to("flat")
    assert box(stroke.bounding_box_visible) == (-1, 0, 11, 8.5)


def test_the_thickness_of_a_stroke(stroke, drawing, history):
    assert not stroke.thickness_valid and stroke.thickness.path.empty
    thickness = Thickness()
    thickness.path, thickness.stop_position, thickness.start_tangent_left = Path([[0, 1], [1, 3]]), 0.5, -1
    stroke.thickness = thickness
    assert stroke.thickness == thickness and stroke.thickness_valid
    assert stroke.left_thickness_tangent_from == -1
    stroke.thickness = Path([[0, 2], [1, 2]])
    assert stroke.thickness.path == Path([[0, 2], [1, 2]]) and stroke.thickness.stop_position == 1
    stroke.thickness = 5
    assert stroke.thickness.path.thickness_constant and stroke.thickness.path.thickness_max == 5
    stroke.thickness = [[0, 1], [0.5, 7]]
    assert stroke.thickness.path == Path([[0, 1], [0.5, 7]])
    assert history.list() == [STEP] * 4
    for value in (None, "a", -1, [["a"]], [[0, -1]], Colour(), {}):
        assert refused(history, drawing, setattr, stroke, "thickness", value) == invalid(0)
    assert refused(history, drawing, setattr, stroke, "thickness", math.inf) == support.not_finite("thickness")
    stroke.line_style = thick()
    assert stroke.thickness_max_visible == 14
    history.undo(5)
    assert not stroke.thickness_valid


def test_strokes_with_one_path_share_it(layer, stroke):
    others = [layer.strokes.add(line([10 * n, 0], [10 * n + 10, 0])) for n in (1, 2, 3)]
    path = Path([[0, 1], [1, 2]])
    stroke.thickness = path
    others[0].thickness = path
    others[1].thickness = Path([[0, 1], [1, 2]])  # Equal, and apart.
    assert stroke.thickness_sharing(others[0]) and stroke.thickness_sharing(stroke)
    assert not stroke.thickness_sharing(others[1]) and not stroke.thickness_sharing(others[2])
    assert ids(stroke.strokes_shared_tickness()) == ids([stroke, others[0]])
    assert ids(others[0].strokes_shared_tickness()) == ids([others[0], stroke])
    assert ids(stroke.strokes_shared()) == ids(others[0].strokes_shared()) == ids([stroke, others[0]])
    thickness = stroke.thickness
    others[1].thickness = thickness
    assert stroke.thickness_sharing(others[1])
    path[0] = 9  # A path of its own, from now on.
    others[2].thickness = path
    assert not stroke.thickness_sharing(others[2])
    assert message_of(stroke.thickness_sharing, None) == message_of(stroke.thickness_sharing, path) == invalid(0)


def test_sharing_lasts_over_saving_and_undo(app, folder, layer, stroke, history):
    other = layer.strokes.add(line([10, 0], [20, 0]))
    stroke.thickness = other.thickness = Path([[0, 1], [1, 2]])
    history.undo(2)
    history.redo(2)
    assert stroke.thickness_sharing(other)
    app.save()
    app.close()
    with brindle.open(folder) as again:
        first, second = again.elements["Arm"].drawings["1"].drawing["line"][0].strokes
        assert first.thickness_sharing(second)


TANGENTS = ("left_thickness_tangent_from", "left_thickness_tangent_to", "right_thickness_tangent_from",
            "right_thickness_tangent_to")


def test_tangents_of_the_tips(stroke, drawing, history):
    for number, name in enumerate(TANGENTS):
        assert getattr(stroke, name) == 0
        setattr(stroke, name, number + 0.5)
    assert [getattr(stroke, name) for name in TANGENTS] == [0.5, 1.5, 2.5, 3.5]
    thickness = stroke.thickness
    assert (thickness.start_tangent_left, thickness.stop_tangent_left) == (0.5, 1.5)
    assert (thickness.start_tangent_right, thickness.stop_tangent_right) == (2.5, 3.5)
    assert history.list() == [STEP] * 4
    for name in TANGENTS:
        assert refused(history, drawing, setattr, stroke, name, math.inf) == support.not_finite(name)
    history.undo(4)
    assert [getattr(stroke, name) for name in TANGENTS] == [0] * 4


def test_types_of_tips(stroke, drawing, history):
    assert (stroke.tip_type_from, stroke.tip_type_to) == ("Round", "Round")
    stroke.set_tip_type_from("FLAT")
    stroke.set_tip_type_to("bevel")
    assert (stroke.tip_type_from, stroke.tip_type_to) == ("Flat", "Bevel")
    for name in ("tip_type_from", "tip_type_to"):
        with pytest.raises((brindle.Error, AttributeError)):
            setattr(stroke, name, "round")
    for text in ("square", "", "Undefined", "round "):
        assert refused(history, drawing, stroke.set_tip_type_from, text) == invalid(0)
        assert refused(history, drawing, stroke.set_tip_type_to, text) == invalid(0)
    history.undo(2)
    assert (stroke.tip_type_from, stroke.tip_type_to) == ("Round", "Round")


def test_ends_of_a_stroke(stroke):
    assert stroke.tail_tangent == stroke.head_tangent == Vector2d(1, 0)
    assert place(stroke.tail.position) == (0, 0) and place(stroke.head.position) == (10, 0)
    assert not stroke.tail_cut and not stroke.head_cut
    assert (stroke.tail.extremity, stroke.head.extremity) == ("Tail", "Head")
    assert stroke.tail.tangent == Vector2d(1, 0) and stroke.head.tangent == Vector2d(-1, 0)


def test_a_stroke_in_one_place_is_in_no_joint_and_no_contour(layer):
    stroke = layer.strokes.add(line([3, 4], [3, 4]))
    assert stroke.degenerate and stroke.contour_left is None and stroke.contour_right is None
    assert stroke.tail_tangent == Vector2d(0, 0)
    assert stroke.tail.empty and stroke.tail.degree == 0 and stroke.tail.contours == []
    assert place(stroke.tail.position) == (3, 4) and stroke.tail.tangent == Vector2d(0, 0)
    assert stroke.tail.left().stroke() == stroke and stroke.tail not in layer.joints
    assert len(layer.contours) == len(layer.joints) == 0


def test_strokes_continue_each_other(layer, stroke):
    onward = layer.strokes.add(line([10, 0], [20, 0]))
    turned = layer.strokes.add(line([20, 0], [20, 10]))
    assert stroke.continuous(onward) and onward.continuous(stroke)
    assert not onward.continuous(turned) and not stroke.continuous(turned) and not stroke.continuous(stroke)
    assert message_of(stroke.continuous, None) == message_of(stroke.continuous, layer) == invalid(0)


def test_a_stroke_tells_where_it_is(drawing, layer, stroke):
    assert stroke.layer() == layer and stroke.drawing()["line"] == drawing["line"]
    assert stroke.tail.stroke() == stroke and stroke.tail.layer() == layer
    assert stroke.contour_left.stroke() == stroke and stroke.contour_left.layer() == layer
    assert stroke.tail.drawing()[2] == stroke.contour_left.drawing()[2] == drawing[2]
    assert (str(stroke), str(stroke.tail), str(stroke.contour_left)) == (
        "DrawingVectorStroke()", "DrawingVectorJoint()", "DrawingVectorContour()")


# --- Staying valid ----------------------------------------------------------------------------------------------------

def test_a_wrapper_goes_on_through_edits_of_others(layer, stroke, history):
    tail, contour = stroke.tail, stroke.contour_left
    others = [layer.strokes.add(square(x=100 * number)) for number in (1, 2, 3)]
    layer.strokes.get(1).colour_left = RED
    with brindle.DrawingAccess.editing(layer.drawing()["line"]) as access:
        access.stroke_erase(others[1])
        assert stroke.unique_id == 1 and tail.degree == 1 and contour.degenerate
    assert box(stroke.bounding_box) == (0, 0, 10, 0)
    history.undo(2)
    assert stroke == layer.strokes[0] and place(tail.position) == (0, 0) and contour == stroke.contour_right


def test_wrappers_of_an_erased_stroke_are_invalid_until_it_is_back(drawing, layer, stroke, history):
    tail, contour = stroke.tail, stroke.contour_left
    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        access.stroke_erase(stroke)
    for read in (lambda: stroke.unique_id, lambda: stroke.bounding_box, lambda: stroke.layer(), lambda: tail.degree,
                 lambda: tail.left(), lambda: contour.clockwise, lambda: contour.stroke(),
                 lambda: setattr(stroke, "colour_left", RED), lambda: stroke.set_tip_type_from("flat"),
                 lambda: setattr(stroke, "left_thickness_tangent_from", 1), lambda: layer.strokes.add(stroke)):
        assert refused(history, drawing, read) == support.GONE
    assert stroke not in layer.strokes
    history.undo()
    assert stroke in layer.strokes and tail.degree == 1 and contour.degenerate


def test_what_is_gone_is_equal_to_its_copies_only(drawing, layer, stroke):
    other = layer.strokes.add(square(x=100))
    gone = [(each, twin) for each, twin in (
        (stroke.tail, other.tail), (stroke.contour_left, other.contour_left), (stroke, other))]
    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        access.stroke_erase([stroke, other])
    assert all(each == each and each != twin for each, twin in gone)
    drawing["line"].remove(layer)
    assert all(each == each and each != twin for each, twin in gone)


def test_wrappers_of_a_layer_that_is_gone_are_invalid(drawing, layer, stroke, history):
    lists = layer.strokes, layer.contours, layer.joints
    tail, contour = stroke.tail, stroke.contour_left
    drawing["line"].remove(layer)
    for read in (lambda: stroke.unique_id, lambda: tail.degree, lambda: contour.clockwise,
                 lambda: stroke.continuous(stroke), *(lambda items=items: len(items) for items in lists),
                 *(lambda items=items: list(items) for items in lists)):
        assert message_of(read) == support.GONE
    history.undo()
    assert message_of(lambda: stroke.unique_id) == support.GONE


def test_wrappers_of_a_closed_project_are_invalid(app, layer, stroke):
    tail, contour = stroke.tail, stroke.contour_left
    app.close()
    for read in (lambda: stroke.unique_id, lambda: tail.degree, lambda: contour.clockwise, lambda: stroke.tail,
                 lambda: layer.strokes):
        assert message_of(read) == support.GONE


def test_writes_join_an_open_session(drawing, layer, stroke, history):
    with brindle.DrawingAccess.editing(drawing["line"]):
        stroke.colour_left = RED
        stroke.line_style = thick()
        layer.strokes.add(line([0, 5], [5, 5]))
        assert message_of(setattr, stroke, "colour_left", None) == invalid(0)
    assert history.list() == [STEP] and stroke.colour_left.id == RED and len(layer.strokes) == 2
    history.undo()
    assert stroke.colour_left is None and stroke.line_style == LineStyle() and len(layer.strokes) == 1


def test_a_write_fails_while_another_drawing_is_edited(app, stroke):
    other = new_drawing(app, "2")
    with brindle.DrawingAccess.editing(other["line"]):
        assert message_of(setattr, stroke, "colour_left", RED) == "A different drawing is already being modified."
    assert stroke.colour_left is None


# --- Joints -----------------------------------------------------------------------------------------------------------

@pytest.fixture
def star(layer):
    """Strokes from (0, 0) to the right, upwards and to the left, and one that ends there from below."""
    return [layer.strokes.add(line(*points)) for points in (
        ([0, 0], [10, 0]), ([0, 0], [0, 10]), ([0, 0], [-10, 0]), ([0, -10], [0, 0]))]


def test_ends_that_meet_share_a_joint(layer, star):
    right, up, left, below = star
    centre = right.tail
    assert centre.degree == 4 and not centre.empty and place(centre.position) == (0, 0)
    assert centre == up.tail == left.tail == below.head and centre != right.head
    assert len(layer.joints) == 5 and all(joint in layer.joints for joint in (centre, below.head, right.head))
    assert layer.joints[0] == centre and layer.joints[0].extremity == "Tail"


def test_neighbours_go_round_a_joint(star):
    right, up, left, below = star
    joint, seen = right.tail, []
    for _ in range(5):
        seen.append((joint.stroke().unique_id, joint.extremity))
        joint = joint.left()
    assert seen == [(right.unique_id, "Tail"), (up.unique_id, "Tail"), (left.unique_id, "Tail"),
                    (below.unique_id, "Head"), (right.unique_id, "Tail")]
    assert right.tail.right().stroke() == below and up.tail.right().stroke() == right
    free = right.head
    assert free.left() == free.right() == free and free.degree == 1
    assert free.joint_opposite() == right.tail and free.joint_opposite().extremity == "Tail"


def test_colours_seen_from_a_joint(star):
    right, _, _, below = star
    right.colour_left, right.colour_right = RED, GREEN
    below.colour_left, below.colour_right = RED, GREEN
    for joint, inside, outside in ((right.tail, RED, GREEN), (below.head, GREEN, RED)):
        assert joint.color_inside.id == joint.coloir_inside.id == inside
        assert joint.colour_outside.id == joint.color_outside.id == outside
    assert star[1].tail.color_inside is None and star[1].tail.colour_outside is None
    assert not hasattr(right.tail, "colour_inside")


def test_a_joint_lies_on_the_contours_between_its_strokes(layer, star):
    assert star[0].tail.contours == [star[0].contour_left]  # Lines that enclose nothing have one.
    arc = layer.strokes.add(line([10, 0], [10, 10], [0, 10]))
    corner = star[0].tail.contours
    assert len(corner) == 2 and corner[0] == star[0].contour_left
    assert not corner[0].clockwise and corner[1].clockwise
    assert arc.tail.degree == 2


# --- Contours ---------------------------------------------------------------------------------------------------------

@pytest.fixture
def nest(layer):
    """A square of 100, in it one of 50 with a line across and one that ends inside, and in that one of 10."""
    made = {"outer": square(100), "middle": square(50, 10, 10), "tongue": line([10, 10], [15, 20]),
            "inner": square(10, 30, 30), "beside": square(5, 200, 200)}
    return {name: layer.strokes.add(path) for name, path in made.items()}


def inside(stroke):
    """The contour that runs around the area of a closed stroke."""
    left, right = stroke.contour_left, stroke.contour_right
    return right if left.clockwise else left


def test_a_closed_stroke_has_an_inner_and_an_outer_contour(layer):
    stroke = layer.strokes.add(square())
    left, right = stroke.contour_left, stroke.contour_right
    assert left != right and {left.clockwise, right.clockwise} == {True, False}
    assert not left.degenerate and not right.degenerate and left.top_level and right.top_level
    assert {left.extremity, right.extremity} == {"Tail", "Head"} and left.extremity == "Tail"
    assert box(left.bounding_box) == box(left.bounding_box_inner) == (0, 0, 10, 10)
    assert left.unique_id != right.unique_id
    assert ids(left.strokes) == [stroke.unique_id]
    assert sorted(each.unique_id for each in layer.contours) == sorted([left.unique_id, right.unique_id])


def test_a_line_has_one_contour_without_an_area(stroke, layer):
    assert stroke.contour_left == stroke.contour_right and stroke.contour_left.degenerate
    assert len(layer.contours) == 1 and not stroke.contour_left.clockwise
    assert stroke.contour_left.strokes_current_inside == [] == stroke.contour_left.strokes_inside


def test_colours_of_a_contour_are_those_of_its_sides(layer):
    stroke = layer.strokes.add(square())
    contour = inside(stroke)
    assert contour.colour_inside is None and contour.colour_outside is None
    is_left = contour == stroke.contour_left
    stroke.colour_left, stroke.colour_right = (RED, GREEN) if is_left else (GREEN, RED)
    assert contour.colour_inside.id == contour.color_inside.id == RED
    assert contour.colour_outside.id == contour.color_outside.id == GREEN
    assert not contour.outline_colour_used
    stroke.line_style = thick()
    assert contour.outline_colour_used


def test_contours_lie_in_one_another(nest):
    outer, middle, inner = (inside(nest[name]) for name in ("outer", "middle", "inner"))
    assert outer.contour_parent() is None and middle.contour_parent() == outer and inner.contour_parent() == middle
    assert outer.top_level and not middle.top_level
    assert middle in outer.contours_children and inner not in outer.contours_children
    assert inner in middle.contours_children and inner.contours_children == []
    assert ids(outer.strokes_inside) == ids([nest["middle"], nest["tongue"], nest["inner"]])
    assert ids(outer.strokes_children) == ids([nest["middle"], nest["tongue"]])
    assert ids(middle.strokes_inside) == ids([nest["tongue"], nest["inner"]])
    assert ids(middle.strokes_current_inside) == ids([nest["tongue"]])
    assert outer.strokes_current_inside == [] and ids(outer.strokes_current_children) == ids([nest["tongue"]])
    assert inner.strokes_inside == inner.strokes_children == []
    assert ids(middle.strokes) == ids([nest["middle"], nest["tongue"]])


def test_relationships_of_contours(layer, nest):
    outer, middle, inner, beside = (inside(nest[name]) for name in ("outer", "middle", "inner", "beside"))
    assert outer.relationship(outer) == "Same"
    assert outer.relationship(inner) == outer.relationship(middle) == "Contains"
    assert inner.relationship(outer) == "Contained_In"
    assert inner.relationship(beside) == beside.relationship(outer) == "Not_Related"
    assert outer.relationship([inner, beside, outer]) == ["Contains", "Not_Related", "Same"]
    assert outer.relationship([inner]) == ["Contains"]
    assert outer.relationship([inner, [inner, 5], inner]) == ["Contains"]
    for value in (None, 5, [], "a", nest["outer"]):
        assert outer.relationship(value) == ["Unknown"]
    relations = outer.relationship(layer.contours)
    assert len(relations) == len(layer.contours) and relations.count("Same") == 1


def test_contours_and_paths(layer):
    contour = inside(layer.strokes.add(square()))
    assert contour.contained_in(square(30, -10, -10)) and not contour.contained_in(square(30, 5, 5))
    assert contour.contains(square(4, 3, 3)) and not contour.contains(square(4, 8, 8))
    assert contour.outside(square(4, 30, 30)) and not contour.outside(square(4, 3, 3))
    for call in (contour.contained_in, contour.contains, contour.outside):
        for value in (None, 5, "a", [], brindle.BezierPath()):
            assert message_of(call, value) == invalid(0)
        with pytest.raises(brindle.Error):
            path = square()
            path[0] = Point2d(math.nan, 0)
            call(path)


def test_a_contour_is_found_again_at_its_side(layer, stroke):
    contour = stroke.contour_left
    assert contour.degenerate
    layer.strokes.add(line([10, 0], [10, 10], [0, 0]))
    assert not contour.degenerate and not contour.clockwise and contour == inside(stroke)
    assert layer.drawing()["line"].find_containing_contour([8, 2]) == [contour]


def test_repr_names_what_is_shown(stroke):
    assert re.search(rf"stroke {stroke.unique_id}\b", repr(stroke))
    assert "contour" in repr(stroke.contour_left) and "joint of 1 at (0, 0)" in repr(stroke.tail)
