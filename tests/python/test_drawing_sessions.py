"""Edit sessions of drawings: how they begin and end, with blocks, and the undo step they make."""

import textwrap

import brindle
import pytest

import support
from drawings import (GREEN, NOTHING, NO_ACCESS, NO_ART, NO_LAYER, NO_PATH, NO_SESSION, NO_STROKE, NO_TARGET, OTHER_DRAWING,
                      STEP, box, end, new_drawing, square, thick)
from failures import fails


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
