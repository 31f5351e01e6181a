"""What each operation of an edit session does to a drawing, and what it refuses."""

import brindle
import pytest

from drawings import (GREEN, NOTHING, NO_ART, NO_LAYER, NO_PATH, NO_STROKE, NO_TARGET, OTHER_DRAWING, OUT_OF_RANGE, RED,
                      STEP, box, content, end, invalid, line, new_drawing, square, thick)
from failures import fails

NO_COLOUR = "Invalid vector colour specified."
NO_STYLE = "Invalid line style specified."
NO_THICKNESS = "Invalid thickness path specified."
NO_CONTOUR = "Invalid contour specified."
NO_JOINT = "Invalid joint specified."


# Layers.


def test_layers_are_made_at_their_places(session, art, layer, stroke):
    above = session.vector_layer_create_above(layer, "PAINT_LAYER")
    under = session.vector_layer_create_under(stroke, "BRUSH_LAYER")
    top = session.vector_layer_create("STROKE_LAYER")
    assert list(art) == [under, layer, above, top]
    second = session.vector_layer_create_at(1, "PEN_LAYER")
    last = session.vector_layer_create_at(5, "PEN_LAYER")
    assert list(art) == [under, second, layer, above, top, last]


def test_a_place_beyond_the_layers_is_out_of_range(session, layer):
    for call in (lambda: session.vector_layer_create_at(2, "PEN_LAYER"), lambda: session.vector_layer_erase_at(1),
                 lambda: session.vector_layer_paste_at(2, layer)):
        with fails(OUT_OF_RANGE):
            call()


@pytest.mark.parametrize("value", NOTHING)
def test_what_is_no_reference_is_refused(session, layer, stroke, value):
    for call in (lambda: session.vector_layer_create_above(value, "PEN_LAYER"),
                 lambda: session.vector_layer_create_under(value, "PEN_LAYER"),
                 lambda: session.vector_layer_copy(layer, value), lambda: session.vector_layer_move(layer, value),
                 lambda: session.stroke_create(square(), value, thick(), "LEFT", GREEN),
                 lambda: session.stroke_copy(stroke, value), lambda: session.stroke_move(stroke, value)):
        with fails(NO_TARGET):
            call()


@pytest.mark.parametrize("value", NOTHING)
def test_what_is_no_layer_is_refused(session, layer, value):
    for call in (lambda: session.vector_layer_copy(value, layer), lambda: session.vector_layer_move(value, layer),
                 lambda: session.vector_layer_erase(value), lambda: session.vector_layers_merge(value),
                 lambda: session.vector_layer_cut(value),
                 lambda: session.vector_layer_paste_at(0, value)):
        with fails(NO_LAYER):
            call()


def test_a_layer_of_another_drawing_is_a_source_and_no_target(app, session, layer):
    session.vector_end_operations()
    foreign = new_drawing(app, "2")["line"]
    theirs = foreign.add("PEN_LAYER")
    with brindle.DrawingAccess.editing(foreign) as access:
        access.stroke_create(square(30), theirs, thick(), "LEFT", GREEN)
    session.vector_begin_operations(app.elements["Arm"].drawings["1"].drawing["line"])
    session.vector_layer_copy(theirs, layer)
    assert box(layer.bounding_box) == (0, 0, 30, 30)
    with fails(NO_TARGET):
        session.vector_layer_copy(layer, theirs)
    for call in (session.vector_layer_erase, session.vector_layers_merge, session.vector_layer_cut):
        with fails(NO_LAYER):
            call(theirs)


def test_strokes_go_into_no_text_and_no_picture(session, art, layer, stroke):
    others = [session.vector_layer_create(type_) for type_ in ("TEXT_LAYER", "BITMAP_LAYER")]
    before = content([art])
    for other in others:
        for call in (lambda: session.stroke_create(square(), other, thick(), "LEFT", GREEN),
                     lambda: session.stroke_copy(stroke, other), lambda: session.stroke_move(stroke, other)):
            with fails(NO_TARGET):
                call()
        with fails(NO_LAYER):
            session.vector_layer_copy([other, layer], other)
        with fails(NO_LAYER):
            session.vector_layer_copy([layer, other], layer)
    assert content([art]) == before


def test_an_erased_layer_is_no_source(session, layer, stroke):
    erased = session.vector_layer_create("PEN_LAYER")
    session.vector_layer_erase(erased)
    for call in (lambda: session.vector_layer_copy([layer, erased], layer),
                 lambda: session.vector_layer_paste_at(0, [layer, erased])):
        with fails(NO_LAYER):
            call()
    assert len(layer.strokes) == 1


def test_layers_are_copied_moved_pasted_and_erased(session, art, layer, stroke, history):
    second, third = (session.vector_layer_create("PEN_LAYER") for _ in range(2))
    session.vector_layer_copy([layer, layer], third)
    assert [len(each.strokes) for each in art] == [1, 0, 1]
    session.vector_layer_move([third, layer], second)
    assert list(art) == [second, layer, third], "kept in their order"
    pasted = session.vector_layer_paste_at(0, [layer])
    assert type(pasted) is list and list(art) == [*pasted, second, layer, third]
    single = session.vector_layer_paste_at(4, second)
    assert art[4] == single
    session.vector_layer_erase([third, second])
    session.vector_layer_erase_at(0)
    assert list(art) == [layer, single]
    assert end(session, history) == [STEP]
    history.undo()
    assert len(art) == 0


def test_a_layer_moves_into_another_art_layer_and_stays_valid(drawing, session, art, layer, stroke):
    target = session.vector_layer_create("PEN_LAYER")
    with brindle.DrawingAccess.editing(drawing["colour"]) as inner:
        there = inner.vector_layer_create("PEN_LAYER")
    session.vector_layer_move(layer, there)
    session.vector_end_operations()
    assert list(drawing["colour"]) == [there, layer] and list(art) == [target]
    assert box(layer.bounding_box) == (0, 0, 10, 10) and len(layer.strokes) == 1


def test_layers_are_merged_into_the_lowest(session, art, layer, stroke):
    second = session.vector_layer_create("PEN_LAYER")
    session.stroke_create(square(20), second, thick(), "LEFT", GREEN)
    merged = session.vector_layers_merge([second, layer])
    assert type(merged) is brindle.DrawingVectorLayer and list(art) == [merged] and merged == layer
    assert [box(each.bounding_box)[2] for each in merged.strokes] == [10, 20]
    text = session.vector_layer_create("TEXT_LAYER")
    with fails(NO_LAYER):
        session.vector_layers_merge([merged, text])


def test_a_cut_makes_joints_where_strokes_cross(session, art, layer, history):
    across, up = session.stroke_create([line((0, 0), (10, 0)), line((5, -5), (5, 5))], layer, thick(), "LEFT", GREEN)
    assert len(layer.joints) == 4
    assert session.vector_layer_cut(layer) == 2 and len(layer.strokes) == 4
    assert box(across.bounding_box) == (0, 0, 5, 0) and box(up.bounding_box) == (5, -5, 5, 0)
    assert (across.tail_cut, across.head_cut, across.tip_type_to) == (False, True, "Flat")
    (middle,) = [joint for joint in layer.joints if joint.degree > 1]
    assert (middle.position.x, middle.position.y, middle.degree) == (5, pytest.approx(0), 4)
    assert session.vector_layer_cut(layer) == 0
    cut = content([art])
    assert end(session, history) == [STEP]
    history.undo()
    history.redo()
    assert content([art]) == cut


def test_layers_are_cut_each_by_itself(session, drawing, layer):
    second = session.vector_layer_create("PEN_LAYER")
    session.stroke_create(line((0, 0), (10, 0)), layer, thick(), "LEFT", GREEN)
    session.stroke_create(line((5, -5), (5, 5)), second, thick(), "LEFT", GREEN)
    assert session.vector_layer_cut([layer, second]) == 0
    for each in (layer, second):
        session.stroke_create(line((2, -5), (2, 5)), each, thick(), "LEFT", GREEN)
    session.stroke_create(line((0, 1), (10, 1)), second, thick(), "LEFT", GREEN)
    assert session.vector_layer_cut([layer, second]) == 6
    assert [len(each.strokes) for each in (layer, second)] == [4, 7]


def test_layers_without_strokes_are_not_cut(session, art, layer):
    session.stroke_create([line((0, 0), (10, 0)), line((5, -5), (5, 5))], layer, thick(), "LEFT", GREEN)
    text = session.vector_layer_create("TEXT_LAYER")
    before = content([art])
    with fails(NO_LAYER):
        session.vector_layer_cut([layer, text])
    assert content([art]) == before


def test_art_layers_are_pasted(app, drawing, session, art, layer, stroke):
    session.art_layer_paste(drawing["colour"], art)
    session.art_layer_paste(drawing["overlay"])
    assert [box(each.bounding_box)[2] for each in (drawing["colour"], drawing["overlay"])] == [10, 10]
    other = app.elements["Arm"].drawings.create("2").initialize()
    for target, source in ((None, art), (7, art), (art, 7), (drawing, art), (layer, art)):
        with fails(NO_ART):
            session.art_layer_paste(target, source)
    with fails(OTHER_DRAWING):
        session.art_layer_paste(other["line"], art)


# Descriptions of layers.


def test_layers_are_made_by_a_description(session, art, history):
    style = thick()
    made = session.vector_layers_create({"strokes": [
        {"path": square(10), "line_style": style, "colour_left": GREEN, "type": "PEN_LAYER"},
        {"path": line((0, 0), (3, 4)), "colour_right": "AUTO"},
        {"path": square(20), "type": "BRUSH_LAYER"}]})
    assert list(art) == made and [len(layer.strokes) for layer in made] == [2, 1]
    first = made[0].strokes[0]
    assert first.line_style.type == "Thick_Linestyle" and first.colour_left.id == GREEN and first.colour_right is None
    assert box(made[1].bounding_box) == (0, 0, 20, 20)
    assert end(session, history) == [STEP]


@pytest.mark.parametrize("under, expected", [(False, ["r", "a", "b", "top"]), (True, ["b", "a", "r", "top"])])
def test_described_layers_follow_their_reference(session, art, layer, under, expected):
    top = session.vector_layer_create("PEN_LAYER")
    a, b = session.vector_layers_create({
        "reference_layer": layer, "under": under,
        "strokes": [{"path": square(1), "type": "PEN_LAYER"}, {"path": square(2), "type": "PEN_LAYER"}]})
    assert list(art) == [{"r": layer, "a": a, "b": b, "top": top}[name] for name in expected]


def test_descriptions_copy_strokes_and_come_in_lists(session, art, stroke):
    made = session.vector_layers_create([{"strokes": [stroke, {"path": square(3)}]}, {"strokes": [stroke]}, {}])
    assert [[box(each.bounding_box)[2] for each in layer.strokes] for layer in made] == [[10, 3], [10]]


def test_a_mask_is_painted_between_its_outline_and_its_holes(session, art):
    hole = square(10, 5, 5)
    hole.reverse()
    mask, = session.vector_layers_create({"masks": [{"path": square(30), "holes": [hole, square(2, 20, 20)]}]})
    assert len(mask.strokes) == 3
    outline, first, second = mask.strokes
    for each in (outline, first, second):
        assert (each.colour_left is None) != (each.colour_right is None)
    inside = {each.unique_id: each.colour_left is not None for each in (outline, first, second)}
    assert inside[outline.unique_id] and inside[first.unique_id] and not inside[second.unique_id]


@pytest.mark.parametrize("description, sentence", [
    ({"strokes": [{"line_style": None}]}, NO_STYLE),
    ({"strokes": [{}]}, NO_PATH), ({"strokes": [{"path": None}]}, NO_PATH),
    ({"strokes": [{"path": square(), "line_style": 7}]}, NO_STYLE),
    ({"strokes": [{"path": square(), "colour_left": "0123456789abcde"}]}, NO_COLOUR),
    ({"strokes": [{"path": square(), "colour_right": None}]}, NO_COLOUR),
    ({"strokes": [{"path": square(), "type": "x"}]}, 'Unexpected layer type "x".'),
    ({"strokes": [{"path": square()}, {"path": square(), "type": "TEXT_LAYER"}]},
     'A layer of the type "TEXT_LAYER" has no strokes.'),
    ({"strokes": [{"path": square(), "color_left": GREEN}]}, 'The description has an unknown key "color_left".'),
    ({"strokes": [7]}, NO_STROKE), ({"stroke": []}, 'The description has an unknown key "stroke".'),
    ({"reference_layer": 7}, NO_LAYER), ({"masks": [{}]}, NO_PATH), ({"masks": [7]}, "The description of a mask is no map."),
    ({"masks": [{"path": square(), "hole": []}]}, 'The description has an unknown key "hole".'),
    (7, "The description of layers is no map."), (None, "The description of layers is no map."),
    ([{}, 7], "The description of layers is no map."),
    ([{"strokes": [{"path": square()}]}, {"strokes": [{"path": square(), "colour_left": 3}]}], NO_COLOUR)])
def test_a_bad_description_makes_nothing(session, art, history, description, sentence):
    with fails(sentence):
        session.vector_layers_create(description)
    assert len(art) == 0 and end(session, history) == []


def test_a_described_stroke_that_is_refused_makes_nothing(session, art, layer):
    for type_, sentence in (("x", 'Unexpected layer type "x".'),
                            ("BITMAP_LAYER", 'A layer of the type "BITMAP_LAYER" has no strokes.')):
        with fails(sentence):
            session.stroke_create([{"path": square()}, {"path": square(), "type": type_}], layer)
    assert list(art) == [layer] and len(layer.strokes) == 0


# Strokes.


def test_a_stroke_is_made(session, layer):
    made = session.stroke_create(line((0, 0), (10, 0)), layer, thick(), "left", GREEN)
    assert type(made) is brindle.DrawingVectorStroke and list(layer.strokes) == [made]
    assert made.colour_left.id == GREEN and made.colour_right is None and made.line_style.thickness == 4
    assert box(made.bounding_box) == (0, 0, 10, 0)
    other = session.stroke_create(square(), made, thick(), "Right", "eraser")
    assert other.colour_left is None and other.colour_right is not None and len(layer.strokes) == 2


def test_many_strokes_are_made(session, layer):
    made = session.stroke_create([square(1), {"path": square(2), "colour_left": RED}], layer, thick(), "RIGHT", GREEN)
    assert [box(each.bounding_box)[2] for each in made] == [1, 2]
    assert [each.colour_left and each.colour_left.id for each in made] == [None, RED]
    assert [each.colour_right.id for each in made] == [GREEN, GREEN]
    plain, = session.stroke_create([{"path": square(3)}], layer)
    assert plain.colour_left is None and plain.colour_right is None


def test_a_described_stroke_may_have_a_layer_of_its_own(session, art, layer, history):
    top = session.vector_layer_create("PEN_LAYER")
    made = session.stroke_create([{"path": square(1), "type": "PAINT_LAYER"}, {"path": square(2)},
                                  {"path": square(3), "type": "PEN_LAYER"}, {"path": square(4)}], layer)
    assert [box(each.bounding_box)[2] for each in made] == [1, 2, 3, 4]
    first, second = made[0].layer(), made[2].layer()
    assert list(art) == [layer, first, second, top]
    assert list(layer.strokes) == [made[1], made[3]] and list(second.strokes) == [made[2]]
    single = session.stroke_create({"path": square(5), "type": "BRUSH_LAYER"}, made[2])
    assert list(art) == [layer, first, second, single.layer(), top]
    assert end(session, history) == [STEP]


@pytest.mark.parametrize("path", [None, 7, "x", [], brindle.BezierPath(), [brindle.BezierPath()],
                                  [square(), brindle.BezierPath()]])
def test_what_is_no_path_is_refused(session, layer, stroke, path):
    with fails(NO_PATH):
        session.stroke_create(path, layer, thick(), "LEFT", GREEN)
    assert len(layer.strokes) == 1


@pytest.mark.parametrize("style, side, colour, sentence", [
    (None, "LEFT", GREEN, NO_STYLE), (7, "LEFT", GREEN, NO_STYLE), (thick(), "LEFT", None, NO_COLOUR),
    (thick(), "LEFT", "0123", NO_COLOUR), (thick(), "LEFT", 7, NO_COLOUR), (thick(), "", GREEN, invalid(3)),
    (thick(), "middle", GREEN, invalid(3)), (7, "middle", 7, NO_COLOUR)])
def test_what_a_stroke_can_not_have_is_refused(session, layer, style, side, colour, sentence):
    with fails(sentence):
        session.stroke_create(square(), layer, style, side, colour)
    assert len(layer.strokes) == 0


@pytest.mark.parametrize("value", NOTHING)
def test_what_is_no_stroke_is_refused(session, layer, value):
    for call in (lambda: session.stroke_copy(value, layer), lambda: session.stroke_move(value, layer),
                 lambda: session.stroke_erase(value), lambda: session.stroke_set_color(value, GREEN, "LEFT"),
                 lambda: session.stroke_set_line_style(value, thick()), lambda: session.stroke_set_path(value, square()),
                 lambda: session.stroke_set_thickness(value, brindle.DrawingVectorThickness()),
                 lambda: session.stroke_set_tip_tangent(value, "LEFT", "from", 1.0),
                 lambda: session.stroke_set_tip_type(value, "from", "flat")):
        with fails(NO_STROKE):
            call()


def test_an_erased_stroke_is_refused(session, layer, stroke):
    session.stroke_erase(stroke)
    assert len(layer.strokes) == 0
    with fails(NO_STROKE):
        session.stroke_erase(stroke)


def test_strokes_are_copied_and_moved(session, layer, stroke):
    other = session.vector_layer_create("PEN_LAYER")
    copy = session.stroke_copy(stroke, other)
    assert type(copy) is brindle.DrawingVectorStroke and copy.unique_id != stroke.unique_id
    copies = session.stroke_copy([stroke, copy], copy)
    assert len(copies) == 2 and len(other.strokes) == 3
    session.stroke_move(stroke, other)
    assert stroke.layer() == other and len(layer.strokes) == 0 and len(other.strokes) == 4
    assert box(stroke.bounding_box) == (0, 0, 10, 10)


def test_each_setter_changes_its_field(session, layer, stroke, history):
    second = session.stroke_copy(stroke, layer)
    both = [stroke, second]
    session.stroke_set_color(both, RED, "right")
    assert [each.colour_right.id for each in both] == [RED, RED] and stroke.colour_left.id == GREEN
    session.stroke_set_line_style(both, thick(thickness=9))
    assert [each.line_style.thickness for each in both] == [9, 9]
    session.stroke_set_path(second, line((0, 0), (7, 0)))
    assert box(second.bounding_box) == (0, 0, 7, 0)
    session.stroke_set_tip_type(both, "FROM", "Flat")
    session.stroke_set_tip_type(second, "to", "BEVEL")
    assert [(each.tip_type_from, each.tip_type_to) for each in both] == [("Flat", "Round"), ("Flat", "Bevel")]
    session.stroke_set_tip_tangent(stroke, "Right", "To", 0.5)
    assert stroke.right_thickness_tangent_to == 0.5 and stroke.left_thickness_tangent_to == 0
    assert end(session, history) == [STEP]


def test_thickness_is_set_or_shared(session, layer, stroke):
    second = session.stroke_copy(stroke, layer)
    path = brindle.DrawingVectorThicknessPath()
    path.insert([brindle.DrawingVectorThicknessPathPoint(0, 1), brindle.DrawingVectorThicknessPathPoint(1, 5)])
    thickness = brindle.DrawingVectorThickness()
    thickness.path = path
    session.stroke_set_thickness(stroke, thickness)
    assert stroke.thickness_max_visible == pytest.approx(10) and not stroke.thickness_sharing(second)
    session.stroke_set_thickness([stroke, second], path)
    assert stroke.thickness_sharing(second)


@pytest.mark.parametrize("call, sentence", [
    (lambda s, x: s.stroke_set_color(x, GREEN, "up"), invalid(2)),
    (lambda s, x: s.stroke_set_color(x, "0123", "LEFT"), NO_COLOUR),
    (lambda s, x: s.stroke_set_line_style(x, GREEN), NO_STYLE),
    (lambda s, x: s.stroke_set_path(x, brindle.BezierPath()), NO_PATH),
    (lambda s, x: s.stroke_set_thickness(x, 3), NO_THICKNESS),
    (lambda s, x: s.stroke_set_tip_type(x, "middle", "flat"), invalid(1)),
    (lambda s, x: s.stroke_set_tip_type(x, "from", "square"), invalid(2)),
    (lambda s, x: s.stroke_set_tip_type(x, "middle", "square"), invalid(1)),
    (lambda s, x: s.stroke_set_tip_tangent(x, "up", "from", 1.0), invalid(1)),
    (lambda s, x: s.stroke_set_tip_tangent(x, "LEFT", "up", 1.0), invalid(2)),
    (lambda s, x: s.contour_set_colour(x, GREEN), NO_CONTOUR),
    (lambda s, x: s.joint_set_inside_colour(x, GREEN), NO_JOINT),
    (lambda s, x: s.joint_set_outside_colour(None, GREEN), NO_JOINT),
    (lambda s, x: s.contour_set_colour(x.contour_left, "x"), NO_COLOUR),
    (lambda s, x: s.joint_set_inside_colour(x.head, 3), NO_COLOUR)])
def test_bad_arguments_are_refused(session, layer, stroke, drawing, call, sentence):
    before = content(drawing)
    with fails(sentence):
        call(session, stroke)
    assert content(drawing) == before


def test_contours_and_joints_are_painted(session, layer):
    strokes = session.stroke_create([line((0, 0), (10, 0)), line((10, 0), (5, 8)), line((5, 8), (0, 0))], layer, thick(),
                                    "RIGHT", RED)
    session.contour_set_colour(strokes[0].contour_left, GREEN)
    assert [each.colour_left.id for each in strokes] == [GREEN] * 3 and strokes[0].colour_right.id == RED
    session.contour_set_colour(strokes[0].contour_left, "AUTO", True)
    assert strokes[0].colour_left.id == GREEN
    session.joint_set_inside_colour(strokes[0].tail, "00000000000000cc")
    assert strokes[0].colour_left.id == "00000000000000cc"
    session.joint_set_outside_colour(strokes[0].tail, "00000000000000dd")
    assert strokes[0].colour_right.id == "00000000000000dd"
