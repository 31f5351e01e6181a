"""Edit sessions of drawings: how they begin and end, what each operation does and refuses, and the undo step they make."""

import re
import textwrap

import brindle
import pytest

import support
from drawings import (GREEN, NO_ACCESS, NO_SESSION, OTHER_DRAWING, OUT_OF_RANGE, RED, STEP, box, content, invalid, line,
                      new_drawing, square, thick)

NO_ART = "Unexpected argument - a valid art-layer was not provided."
NO_TARGET = "Invalid target layer or stroke specified."
NO_LAYER = "Invalid target layer specified."
NO_STROKE = "Invalid stroke specified."
NO_PATH = "Invalid bezier path specified."
NO_COLOUR = "Invalid vector colour specified."
NO_STYLE = "Invalid line style specified."
NO_THICKNESS = "Invalid thickness path specified."
NO_CONTOUR = "Invalid contour specified."
NO_JOINT = "Invalid joint specified."
NOTHING = (None, 7, "x", [], {}, [None], brindle.Point2d())


@pytest.fixture
def drawing(app):
    return new_drawing(app)


@pytest.fixture
def art(drawing):
    return drawing["line"]


@pytest.fixture
def access(app):
    """A way to edit. A test may leave its session open: the project's end ends it."""
    return brindle.DrawingAccess()


@pytest.fixture
def session(access, art):
    """The same, with a session on the art layer of lines."""
    access.vector_begin_operations(art)
    return access


@pytest.fixture
def layer(session):
    return session.vector_layer_create("PEN_LAYER")


@pytest.fixture
def stroke(session, layer):
    return session.stroke_create(square(), layer, thick(), "LEFT", GREEN)


def fails(sentence):
    return pytest.raises(brindle.Error, match="^" + re.escape(sentence) + "$")


def end(access, history):
    """Ends the session; gives the labels of the undo list."""
    access.vector_end_operations()
    return history.list()


# Sessions.


def test_a_session_is_one_step(session, art, history, app, folder):
    before = support.saved_content(app, folder)
    for _ in range(3):
        session.stroke_create(square(), session.vector_layer_create("PEN_LAYER"), thick(), "LEFT", GREEN)
    assert history.list() == []
    assert end(session, history) == [STEP] and len(art) == 3
    after = support.saved_content(app, folder)
    for _ in range(2):
        history.undo()
        assert support.saved_content(app, folder) == before and len(art) == 0
        history.redo()
        assert support.saved_content(app, folder) == after and len(art) == 3


def test_a_session_without_a_change_leaves_no_step(session, history):
    assert end(session, history) == []
    with fails(NO_ACCESS):
        session.vector_end_operations()


def test_a_second_begin_joins_the_session(session, drawing, history):
    session.vector_begin_operations(drawing["line"])
    brindle.DrawingAccess().vector_begin_operations(drawing["colour"])
    session.vector_layer_create("PEN_LAYER")
    assert end(session, history) == [STEP]
    assert len(drawing["line"]) == 1 and len(drawing["colour"]) == 0, "new layers go where the session began"
    with fails(NO_ACCESS):
        session.vector_end_operations()


def test_another_drawing_is_refused_and_the_session_goes_on(app, session, drawing):
    other = new_drawing(app, "2")
    with fails(OTHER_DRAWING):
        session.vector_begin_operations(other["line"])
    session.vector_layer_create("PEN_LAYER")
    session.vector_end_operations()
    session.vector_begin_operations(other["line"])
    session.vector_end_operations()


@pytest.mark.parametrize("value", NOTHING)
def test_a_session_begins_on_an_art_layer_only(access, value):
    with fails(NO_ART):
        access.vector_begin_operations(value)
    with fails(NO_ACCESS):
        access.vector_end_operations()


def test_every_edit_asks_for_a_session_first(access):
    operations = [method["name"] for method in next(
        each for each in brindle._describe() if each["name"] == "DrawingAccess")["methods"]]
    numbers = {"vector_layer_create_at": (0, "x"), "vector_layer_paste_at": (0, None), "vector_layer_erase_at": (0,),
               "stroke_create": (None, None), "stroke_set_tip_tangent": (None, "x", "x", 1.0)}
    asked = 0
    for name in operations:
        if name.startswith(("vector_layer", "art_layer", "stroke", "contour", "joint")):
            arguments = numbers.get(name) or {"vector_layer_create": ("x",), "vector_layer_create_above": (None, "x"),
                                              "vector_layer_create_under": (None, "x"),
                                              "vector_layers_create": (None,), "vector_layer_erase": (None,),
                                              "vector_layers_merge": (None,), "vector_layer_cut": (None,),
                                              "stroke_erase": (None,),
                                              "stroke_set_color": (None, None, "x"),
                                              "stroke_set_tip_type": (None, "x", "x")}.get(name, (None, None))
            with fails(NO_SESSION):
                getattr(access, name)(*arguments)
            asked += 1
    assert asked == 26


def test_a_failed_operation_leaves_the_session_open(session, layer, history):
    with fails(NO_PATH):
        session.stroke_create(None, layer, thick(), "LEFT", GREEN)
    session.stroke_create(square(), layer, thick(), "LEFT", GREEN)
    assert end(session, history) == [STEP] and len(layer.strokes) == 1


def test_an_erased_layer_is_there_until_the_session_ends(session, art, layer, stroke):
    session.vector_layer_erase(layer)
    assert len(art) == 0 and layer.type == "Vector" and layer.drawing().empty
    assert box(layer.bounding_box) == (0, 0, 10, 10) and len(list(layer.strokes)) == 1, "it shows what it held"
    with fails(NO_STROKE):
        session.stroke_erase(layer.strokes[0])
    with fails(NO_TARGET):
        session.stroke_create(square(), layer, thick(), "LEFT", GREEN)
    with fails(NO_LAYER):
        session.vector_layer_erase(layer)
    session.vector_end_operations()
    with fails(support.GONE):
        layer.type


def test_a_layer_that_was_erased_in_a_session_is_gone_for_good(access, art, history):
    layer = art.add("PEN_LAYER")
    access.vector_begin_operations(art)
    access.vector_layer_erase(layer)
    access.vector_end_operations()
    history.undo()
    with fails(support.GONE):
        layer.type
    assert len(art) == 1


def test_what_a_session_did_is_not_undone_while_it_is_open(access, art, history):
    art.add("PEN_LAYER")
    access.vector_begin_operations(art)
    access.vector_layer_create("PEN_LAYER")
    history.undo()
    assert len(art) == 2
    access.vector_end_operations()
    history.undo(2)
    assert len(art) == 0


def test_other_changes_keep_their_own_steps(session, scene, history):
    session.vector_layer_create("PEN_LAYER")
    scene.frame_count = 99
    assert end(session, history)[-1] == STEP and len(history.list()) == 2


def test_a_session_in_a_bracket_is_part_of_its_step(app, art, history):
    with history.bracket("Draw"):
        art.add("PEN_LAYER")
        with brindle.DrawingAccess.editing(art) as access:
            access.vector_layer_create("PEN_LAYER")
    assert history.list() == ["Draw"]
    history.undo()
    assert len(art) == 0


def test_a_session_ends_with_its_project(app, folder, session, layer):
    app.close()
    with fails(NO_SESSION):
        session.vector_layer_create("PEN_LAYER")
    with brindle.create(folder.with_name("other")) as other:
        art = new_drawing(other)["line"]
        session.vector_begin_operations(art)
        session.vector_layer_create("PEN_LAYER")
        session.vector_end_operations()
        assert len(art) == 1
        other.save()


def test_what_an_open_session_has_done_is_not_dropped_without_a_word(app, folder, session):
    app.save()
    assert not app.project.dirty
    session.vector_layer_create("PEN_LAYER")
    assert app.project.dirty
    with pytest.raises(brindle.Error, match="has unsaved changes"):
        brindle.create(folder.with_name("other"))
    app.save()
    assert not app.project.dirty
    brindle.create(folder.with_name("other")).close()


def test_saving_writes_what_an_open_session_has_done(app, folder, session, layer, stroke):
    app.save()
    app.close()
    with brindle.open(folder) as again:
        assert len(again.elements["Arm"].drawings["1"].drawing["line"]) == 1


@pytest.mark.parametrize("how", ["python", "command"])
def test_a_script_may_end_with_a_session_open(tmp_path, how):
    script = textwrap.dedent("""\
        import brindle
        app = brindle.application() or brindle.create("project")
        art = app.elements.create("Arm").drawings.create("1").initialize()["line"]
        access = brindle.DrawingAccess()
        access.vector_begin_operations(art)
        layer = access.vector_layer_create("PEN_LAYER")
        print(len(art))
        """)
    if how == "python":
        done = support.run_python(script, cwd=tmp_path)
    else:
        (tmp_path / "script.py").write_text(script)
        done = support.run_command("run", "script.py", cwd=tmp_path)
    assert (done.returncode, done.stdout, done.stderr) == (0, "1\n", "")


def test_colour_respect_sticky_is_kept_over_sessions(access, art):
    assert access.colour_respect_sticky is False
    access.colour_respect_sticky = True
    access.vector_begin_operations(art)
    assert brindle.DrawingAccess().colour_respect_sticky is True
    access.colour_respect_sticky = False
    access.vector_end_operations()
    assert access.colour_respect_sticky is False and str(access) == "DrawingAccess()"


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


# With blocks.


def test_a_block_is_one_step(art, history):
    with brindle.DrawingAccess.editing(art) as access:
        access.vector_layer_create("PEN_LAYER")
        access.vector_layer_create("PEN_LAYER")
    assert history.list() == [STEP] and len(art) == 2
    with fails(NO_ACCESS):
        access.vector_end_operations()


def test_an_exception_takes_a_block_back_without_a_trace(app, folder, drawing, art, history):
    layer = art.add("PEN_LAYER")
    art.add("PEN_LAYER")
    history.undo()
    before, steps = support.saved_content(app, folder), (history.size_executed, history.size_unexecuted)
    with pytest.raises(KeyError):
        with brindle.DrawingAccess.editing(art) as access:
            made = access.vector_layer_create("PEN_LAYER")
            access.stroke_create(square(), made, thick(), "LEFT", GREEN)
            access.vector_layer_erase(layer)
            raise KeyError
    assert support.saved_content(app, folder) == before
    assert (history.size_executed, history.size_unexecuted) == steps
    assert layer.type == "Vector" and list(art) == [layer]
    with fails(support.GONE):
        made.type
    history.redo()
    assert len(art) == 2


def test_a_nested_block_joins_and_the_outer_one_ends(drawing, art, history):
    with brindle.DrawingAccess.editing(art) as outer:
        outer.vector_layer_create("PEN_LAYER")
        with brindle.DrawingAccess.editing(drawing["colour"]) as inner:
            inner.vector_layer_create("PEN_LAYER")
        assert history.list() == []
        outer.vector_layer_create("PEN_LAYER")
    assert history.list() == [STEP] and [len(each) for each in drawing] == [0, 1, 2, 0]


def test_an_exception_that_stays_in_the_outer_block_takes_nothing_back(drawing, art, history):
    with brindle.DrawingAccess.editing(art) as outer:
        with pytest.raises(KeyError):
            with brindle.DrawingAccess.editing(art) as inner:
                inner.vector_layer_create("PEN_LAYER")
                raise KeyError
        outer.vector_layer_create("PEN_LAYER")
    assert len(art) == 2 and history.list() == [STEP]


def test_a_block_may_end_its_session_by_hand(app, art, history):
    with brindle.DrawingAccess.editing(art) as access:
        access.vector_layer_create("PEN_LAYER")
        access.vector_end_operations()
    assert history.list() == [STEP]
    with pytest.raises(KeyError):
        with brindle.DrawingAccess.editing(art) as access:
            access.vector_layer_create("PEN_LAYER")
            access.vector_end_operations()
            access.vector_begin_operations(art)
            raise KeyError
    assert len(art) == 2 and history.list() == [STEP, STEP]
    access.vector_end_operations()


def test_a_block_outlives_its_project(app, art):
    with brindle.DrawingAccess.editing(art):
        app.close()
    assert brindle.application() is None


@pytest.mark.parametrize("value", NOTHING)
def test_a_block_is_of_an_art_layer(value):
    with fails(NO_ART):
        brindle.DrawingAccess.editing(value)


def test_a_block_that_was_not_entered_is_not_left(art):
    block = brindle.DrawingAccess.editing(art)
    with fails("The block was not entered."):
        block.__exit__(None, None, None)
    assert str(block) == "DrawingEditing()"


def test_a_version_that_is_made_in_an_open_block_comes_back_as_it_was(app, folder, rig, history):
    before = support.saved(app, folder)
    with brindle.DrawingAccess.editing(rig["content"]["line"]) as access:
        access.vector_layer_create("PEN_LAYER")
        rig["drawing"].version = 5
    after = support.saved(app, folder)
    for _ in range(2):
        history.undo(2)
        assert support.saved(app, folder) == before
        history.redo(2)
        assert support.saved(app, folder) == after
