"""Drawings, their art layers and layers, as scripts read them and as lists are changed."""

import threading

import brindle
import pytest

import support
from drawings import (GREEN, OTHER_DRAWING, OUT_OF_RANGE, STEP, box, content, invalid, line, new_drawing,
                      square, thick)
from failures import fails


def labels(history):
    return history.list()


def with_square(art, size=10):
    """A layer with a square, beside what is there."""
    with brindle.DrawingAccess.editing(art) as access:
        layer = access.vector_layer_create("PEN_LAYER")
        access.stroke_create(square(size), layer, thick(), "LEFT", GREEN)
    return layer


# The drawing of an element.


def test_a_drawing_without_a_file_has_no_content_until_it_is_initialized(app, history):
    one = app.elements.create("Arm").drawings.create("1")
    assert one.drawing is None
    before = labels(history)
    drawing = one.initialize()
    assert type(drawing) is brindle.Drawing and drawing.empty and labels(history) == before
    assert one.drawing.empty and one.initialize().empty


def test_a_picture_has_no_vector_drawing(app):
    one = app.elements.create("Arm", vector_type="").drawings.create("1")
    assert one.drawing is None and one.initialize() is None


def test_a_damaged_file_is_told_in_one_sentence(app, folder, drawing):
    picture = app.elements.create("Picture", vector_type="").drawings.create("1")
    source = folder.with_name("source.png")
    source.write_bytes(support.png())
    picture.import_file(source)
    with_square(drawing["line"])
    app.save()
    files = [folder / "elements/Picture/1.png", folder / "elements/Arm/1.pnt"]
    app.close()
    for file in files:
        file.write_bytes(file.read_bytes()[:40])
    with brindle.open(folder) as again:
        for element in ("Picture", "Arm"):
            message = support.message_of(lambda: again.elements[element].drawings["1"].drawing)
            assert message.startswith('Cannot read drawing "1": ') and message.endswith(".")
            assert not message.endswith("..")


def test_what_is_drawn_is_there_when_the_project_is_opened_again(app, folder, drawing):
    with_square(drawing["line"])
    drawing.pivot = (1, 2)
    before = content(drawing)
    app.save()
    app.close()
    with brindle.open(folder) as again:
        opened = again.elements["Arm"].drawings["1"].drawing
        assert content(opened) == before and (opened.pivot.x, opened.pivot.y) == (1, 2)
        assert not opened.modified


# The art layers.


@pytest.mark.parametrize("name, index", [
    ("LINE_ART", 2), ("lineart", 2), ("line", 2), ("colour", 1), ("colours", 1), ("Color", 1), ("underlay", 0),
    ("UnderlayArt", 0), ("overlay", 3), ("line colour", 2)])
def test_an_art_layer_is_found_by_the_beginning_of_its_name(drawing, name, index):
    assert drawing(name) == drawing[name] == drawing[index]


@pytest.mark.parametrize("name", ["ink", "", "lin", " line", "art line"])
def test_other_names_are_refused(drawing, name):
    for call in (lambda: drawing(name), lambda: drawing[name], lambda: drawing.get(name),
                 lambda: drawing.set(name, drawing[0])):
        with fails("Unexpected layer name."):
            call()


def test_a_drawing_is_a_list_of_four(drawing):
    arts = list(drawing)
    assert len(drawing) == 4 == len(arts) == len(drawing.list())
    assert [type(art) for art in arts] == [brindle.DrawingVectorArtLayer] * 4
    assert arts == drawing.list() and arts[2] in drawing and arts[2] == drawing["line"] != arts[1]
    assert 7 not in drawing and None not in drawing and str(drawing) == "Drawing()"
    assert str(arts[0]) == "DrawingVectorArtLayer()"
    for index in (4, 5, 2**31 - 1):
        with fails(OUT_OF_RANGE):
            drawing.get(index)


def test_colors_are_always_empty(drawing, history):
    assert drawing.colors is None and drawing["line"].colors is None
    drawing.colors = 7
    assert drawing.colors is None and labels(history) == []


def test_an_empty_drawing_tells_so(drawing):
    assert drawing.empty and drawing["line"].empty and drawing.thickness_max == 0
    assert box(drawing.bounding_box) == box(drawing.bounding_box_visible) == (0, 0, 0, 0)


def test_boxes_and_thickness_are_those_of_what_is_drawn(drawing, art):
    layer = with_square(art)
    for each in (drawing, art):
        assert box(each.bounding_box) == (0, 0, 10, 10)
        assert not each.empty and each.thickness_max == 4
        left, bottom, right, top = box(each.bounding_box_visible)
        assert left <= -2 and bottom <= -2 and right >= 12 and top >= 12
    assert box(layer.bounding_box) == (0, 0, 10, 10)
    assert box(layer.bounding_box_linestyle)[0] <= -2 and box(layer.bounding_box_visible)[0] <= -2
    assert drawing["colour"].empty and box(drawing["colour"].bounding_box) == (0, 0, 0, 0)


def test_a_layer_without_strokes_leaves_a_drawing_empty(drawing, art):
    art.add("PEN_LAYER")
    assert len(art) == 1 and drawing.empty and art.empty


def test_the_scaling_matrices_are_inverse(drawing):
    product = drawing.implicit_scaling_matrix
    product.multiply(drawing.implicit_scaling_matrix_inverse)
    assert all(abs(product[i] - brindle.Matrix()[i]) < 1e-9 for i in range(16))


def test_an_art_layer_is_replaced_by_copies(drawing, art, history):
    with_square(art, 10)
    with_square(drawing["colour"], 20)
    before = content(drawing)
    drawing["line"] = drawing["colour"]
    assert labels(history)[-1] == STEP and len(labels(history)) == 3
    assert box(art.bounding_box) == (0, 0, 20, 20) and len(art) == 1
    after = content(drawing)
    history.undo()
    assert content(drawing) == before
    history.redo()
    assert content(drawing) == after
    drawing[3] = [drawing["colour"], [art]]
    assert len(drawing[3]) == 2


def test_an_art_layer_of_another_drawing_is_copied(app, drawing, art):
    other = new_drawing(app, "2")
    with_square(other["overlay"])
    drawing["line"] = other["overlay"]
    assert box(art.bounding_box) == (0, 0, 10, 10)


@pytest.mark.parametrize("index, value, sentence", [
    (2, lambda d: d[2], "Unable to set art layer to itself."),
    (2, lambda d: [d[1], d[2]], "Unable to set art layer to itself."),
    (2, lambda d: None, invalid(1)), (2, lambda d: 7, invalid(1)), (2, lambda d: d, invalid(1)),
    (4, lambda d: d[1], OUT_OF_RANGE), (-5, lambda d: d[1], OUT_OF_RANGE)])
def test_what_is_no_source_is_refused(drawing, art, history, index, value, sentence):
    with_square(art)
    before = content(drawing)
    with fails(sentence):
        drawing.set(index, value(drawing))
    assert content(drawing) == before and labels(history) == [STEP]


# What is noted about the whole.


def test_the_pivot_is_set_and_removed_undoably(drawing, history):
    assert drawing.pivot is None and drawing.pivot_defined is False
    drawing.pivot = [3, 4]
    assert (drawing.pivot.x, drawing.pivot.y) == (3, 4) and drawing.pivot_defined
    drawing.pivot = brindle.Point2d(5, 6)
    drawing.pivot = None
    assert drawing.pivot is None
    drawing.pivot = None
    drawing.pivot_defined = False
    assert labels(history) == ["Change Drawing Pivot"] * 2 + ["Remove Drawing Pivot"]
    for expected in ((5, 6), (3, 4), None):
        history.undo()
        assert (drawing.pivot and (drawing.pivot.x, drawing.pivot.y)) == expected
    history.redo(3)
    assert drawing.pivot is None
    drawing.pivot_defined = True
    assert (drawing.pivot.x, drawing.pivot.y) == (5, 6)


@pytest.mark.parametrize("value", ["x", {}, object, [float("inf"), 0]])
def test_what_is_no_place_is_no_pivot(drawing, history, value):
    with pytest.raises((brindle.Error, TypeError)):
        drawing.pivot = value
    assert drawing.pivot is None and labels(history) == []


def test_an_art_layer_shows_the_pivot_and_refuses_to_set_it(drawing, art, history):
    drawing.pivot = (1, 2)
    assert art.pivot_defined and (art.pivot.x, art.pivot.y) == (1, 2)
    sentence = "Unable to set a pivot on a vector art layer. It must be set on the vector composite object."
    for value in (None, (3, 4)):
        with fails(sentence):
            art.pivot = value
    for value in (True, False):
        with fails(sentence):
            art.pivot_defined = value
    assert labels(history) == ["Change Drawing Pivot"]


def test_the_fields_are_written_undoably(drawing, history):
    size, quantum = drawing.field_size, drawing.point_quantum
    drawing.field_size, drawing.point_quantum = 24, 0.5
    assert (drawing.field_size, drawing.point_quantum) == (24, 0.5)
    drawing.field_size = 24
    assert labels(history) == ["Change Drawing Field Size", "Change Drawing Point Quantum"]
    for name, value in (("field_size", 0), ("field_size", -1), ("point_quantum", -0.5)):
        with fails(invalid(0)):
            setattr(drawing, name, value)
    history.undo(2)
    assert (drawing.field_size, drawing.point_quantum) == (size, quantum)


def test_undo_of_strokes_keeps_a_pivot_that_was_set_in_the_session(drawing, art, history):
    with brindle.DrawingAccess.editing(art) as access:
        layer = access.vector_layer_create("PEN_LAYER")
        drawing.pivot = (1, 2)
        access.stroke_create(square(), layer, thick(), "LEFT", GREEN)
    assert labels(history) == ["Change Drawing Pivot", STEP]
    history.undo()
    assert drawing.empty and drawing.pivot_defined
    history.undo()
    assert not drawing.pivot_defined


# The list of layers.


def test_a_layer_is_added_under_the_top_one(art, history):
    first = art.add("PEN_LAYER")
    second = art.add("BRUSH_LAYER")
    third = art.add("TEXT_LAYER")
    assert list(art) == [second, third, first] == art.list() and labels(history) == [STEP] * 3
    assert [type(layer) for layer in art] == [brindle.DrawingVectorLayer, brindle.DrawingTextLayer,
                                              brindle.DrawingVectorLayer]
    assert (str(first), str(third)) == ("DrawingVectorLayer()", "DrawingTextLayer()")
    assert first in art and second in art and 7 not in art and art[0] == second
    assert first.drawing() is not None and art in first.drawing()
    for index in (3, 2**31 - 1):
        with fails(OUT_OF_RANGE):
            art.get(index)


@pytest.mark.parametrize("type_, class_, name", [
    ("UNDEFINED_LAYER", "DrawingVectorLayer", "Vector"), ("PAINT_LAYER", "DrawingVectorLayer", "Vector"),
    ("CENTERLINE_EXTRACTOR_LAYER", "DrawingVectorLayer", "Vector"), ("FLASH_LAYER", "DrawingVectorLayer", "Vector"),
    ("ILLUSTRATOR_LAYER", "DrawingVectorLayer", "Vector"), ("BITMAP_LAYER", "DrawingBitmapLayer", "Bitmap"),
    ("TEXT_LAYER", "DrawingTextLayer", "Vector")])
def test_the_type_of_a_layer_decides_its_class(art, type_, class_, name):
    layer = art.add(type_)
    assert type(layer).__name__ == class_ and layer.type == name and str(layer) == class_ + "()"


def test_other_types_are_refused(art, history):
    for type_ in ("", "pen_layer", "PEN", "x"):
        with fails(f'Unexpected layer type "{type_}".'):
            art.add(type_)
    assert len(art) == 0 and labels(history) == []


def test_art_layers_are_added_on_top(drawing, art, history):
    with_square(drawing["colour"], 20)
    own = art.add("PEN_LAYER")
    added = art.add([drawing["colour"], drawing["colour"]])
    assert len(added) == 1 and list(art) == [own, *added] and box(added[0].bounding_box) == (0, 0, 20, 20)
    assert len(art.add(art)) == 2 and len(art) == 4
    assert labels(history) == [STEP] * 4


def test_layers_are_added_under_the_top_one_each_under_the_one_before(drawing, art, history):
    sources = [with_square(drawing["colour"], size) for size in (20, 30)]
    text = drawing["colour"].add("TEXT_LAYER")
    text.text = "word"
    top = art.add("PEN_LAYER")
    added = art.add([sources[0], [text, sources[1]], sources[0]])
    assert len(added) == 3 and list(art) == [*reversed(added), top]
    assert [box(layer.bounding_box)[2] for layer in (added[0], added[2])] == [20, 30] and added[1].text == "word"
    assert labels(history)[-1] == STEP


def test_strokes_are_added_each_in_a_layer_of_its_own(art):
    layer = with_square(art)
    with brindle.DrawingAccess.editing(art) as access:
        access.stroke_create(line((0, 0), (5, 5)), layer, thick(), "LEFT", GREEN)
    added = art.add(list(layer.strokes))
    assert [[box(stroke.bounding_box) for stroke in each.strokes] for each in added] == [[(0, 0, 10, 10)], [(0, 0, 5, 5)]]
    assert list(art) == [*reversed(added), layer]


@pytest.mark.parametrize("value", [None, 7, [], {}, [None, 3], brindle.Point2d()])
def test_what_is_nothing_to_add_adds_nothing(art, history, value):
    assert art.add(value) is None and len(art) == 0 and labels(history) == []


def test_setting_a_layer_does_nothing(art, history):
    layer = art.add("PEN_LAYER")
    art[0] = 7
    art.set(99, None)
    assert list(art) == [layer] and labels(history) == [STEP]


def test_layers_and_strokes_are_removed(art, history):
    layers = [with_square(art) for _ in range(4)]
    stroke = layers[3].strokes[0]
    art.remove(0)
    art.remove(layers[1])
    art.remove(stroke)
    assert list(art) == layers[2:] and len(layers[3].strokes) == 0 and len(labels(history)) == 7
    art.remove([layers[2], [layers[3]]])
    assert len(art) == 0
    history.undo(4)
    assert len(art) == 4


@pytest.mark.parametrize("value, sentence", [
    (1, OUT_OF_RANGE), (-1, OUT_OF_RANGE), (2**40, OUT_OF_RANGE), (None, invalid(0)), ("0", invalid(0)),
    (0.0, invalid(0)), (True, invalid(0)), ([], invalid(0)), ([0], invalid(0)), ({}, invalid(0))])
def test_what_can_not_be_removed_is_refused(art, history, value, sentence):
    with_square(art)
    with fails(sentence):
        art.remove(value)
    assert len(art) == 1 and labels(history) == [STEP]


def test_layers_of_another_art_layer_are_not_removed(drawing, art):
    layer = with_square(drawing["colour"])
    for value in (layer, layer.strokes[0]):
        with fails(invalid(0)):
            art.remove(value)
    assert len(drawing["colour"]) == 1


def test_an_art_layer_is_cleared(drawing, art, history):
    with_square(art), with_square(art)
    art.clear()
    assert len(art) == 0 and labels(history) == [STEP] * 3
    history.undo()
    assert len(art) == 2


def test_contours_are_found_by_a_point(art):
    outer, inner = with_square(art, 30), with_square(art, 10)
    assert [c.layer() for c in art.find_containing_contour((5, 5))] == [inner, outer]
    assert [c.layer() for c in art.find_containing_contour(brindle.Point2d(20, 20))] == [outer]
    assert art.find_containing_contour([50, 50]) == []
    with pytest.raises((brindle.Error, TypeError)):
        art.find_containing_contour("x")


def test_an_art_layer_is_transformed_as_one_step(drawing, art, history):
    with_square(art), with_square(art, 20)
    before = content(drawing)
    art.translate((5, -5))
    assert box(art.bounding_box) == (5, -5, 25, 15) and len(art) == 2
    art.transform(brindle.Matrix([2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1]))
    assert box(art.bounding_box) == (10, -15, 50, 45)
    assert labels(history) == [STEP] * 4
    history.undo(2)
    assert content(drawing) == before
    history.redo(2)
    assert box(art.bounding_box) == (10, -15, 50, 45)


def test_a_layer_is_transformed_and_stays_the_same_layer(drawing, art, history):
    layer, other = with_square(art), with_square(art, 20)
    layer.translate(brindle.Vector2d(100, 0))
    assert box(layer.bounding_box) == (100, 0, 110, 10) and box(other.bounding_box) == (0, 0, 20, 20)
    layer.transform(2)
    assert box(layer.bounding_box) == (200, 0, 220, 20) and list(art) == [layer, other]
    assert labels(history) == [STEP] * 4
    history.undo(2)
    assert box(layer.bounding_box) == (0, 0, 10, 10)


@pytest.mark.parametrize("value", ["x", None, {}, [], [1], ["a", "b"], brindle.CopyOptions()])
def test_what_is_no_matrix_transforms_nothing(art, history, value):
    layer = with_square(art)
    for call in (art.transform, art.translate, layer.transform, layer.translate):
        if value == [1] and call.__name__ == "translate":
            continue  # A single number tells x alone.
        with fails(invalid(0)):
            call(value)
    assert labels(history) == [STEP] and box(art.bounding_box) == (0, 0, 10, 10)


def test_a_pivot_is_undone_to_the_byte_after_strokes_came_and_went(app, folder, drawing, history):
    with_square(drawing["line"])
    before = support.saved(app, folder)
    drawing.pivot = (1, 2)
    with_square(drawing["line"])
    history.undo(2)
    assert support.saved(app, folder) == before


# Texts.


@pytest.fixture
def text(art):
    return art.add("TEXT_LAYER")


def test_a_text_layer_has_a_text_and_a_selection(text, history):
    assert (text.text, text.character_count, text.text_selected) == ("", 0, "")
    text.text = "Häschen \U0001f407 im Feld"
    assert text.character_count == len(text.text)
    text.character_selection_to, text.character_selection_from = 9, 8
    assert text.text_selected == "\U0001f407"
    text.text_selected = "Hase"
    assert text.text == "Häschen Hase im Feld" and text.text_selected == "Hase"
    text.character_selection_from = 15
    assert (text.character_selection_from, text.character_selection_to) == (15, 15)
    text.text = "x"
    assert (text.character_selection_from, text.character_selection_to) == (1, 1)
    for value in (-1, 2, 2**31 - 1):
        with fails(invalid(0)):
            text.character_selection_from = value
        with fails(invalid(0)):
            text.character_selection_to = value
    assert set(labels(history)) == {STEP}


@pytest.mark.parametrize("name, value", [
    ("width", 100.5), ("width_fixed", 20.0), ("alignment", "Justify"), ("margin_left", 3), ("margin_right", -4),
    ("indent", 5), ("line_space", 6), ("text", "word"), ("character_selection_to", 0)])
def test_each_property_of_a_text_is_undone_exactly(app, folder, text, history, name, value):
    text.text, before = "ab", None
    before, form = getattr(text, name), support.saved(app, folder)
    setattr(text, name, value)
    steps = 0 if before == value else 1
    assert getattr(text, name) == value and len(labels(history)) == 2 + steps
    setattr(text, name, value)
    assert len(labels(history)) == 2 + steps
    history.undo(steps)
    assert getattr(text, name) == before and support.saved(app, folder) == form


def test_alignments_are_written_in_any_case(text):
    assert text.alignment == "Left"
    for name in ("Left", "Center", "Right", "Justify"):
        text.alignment = name.upper()
        assert text.alignment == name
    with fails(invalid(0)):
        text.alignment = "middle"


def test_the_matrix_of_a_text_is_read_and_that_of_its_colour_written(text, history):
    assert text.matrix.identity and text.colour_matrix.identity
    text.colour_matrix = 2
    assert text.colour_matrix[0] == 2 == text.colour_matrix[5]
    with fails(invalid(0)):
        text.colour_matrix = "x"
    with fails("Property is read-only."):
        text.matrix = brindle.Matrix()


def test_a_text_has_boxes(text):
    text.text = "Mm"
    for rectangle in (text.bounding_box, text.bounding_box_visible, text.bounding_box_linestyle):
        assert rectangle.width > 0 and rectangle.height > 0


def test_a_picture_layer_has_one_box(art):
    layer = art.add("BITMAP_LAYER")
    assert box(layer.bounding_box) == box(layer.bounding_box_visible) == box(layer.bounding_box_linestyle) == (0, 0, 0, 0)


# What has gone.


def test_two_wrappers_show_one_drawing(app, drawing, art):
    other = app.elements["Arm"].drawings["1"].drawing
    layer = with_square(art)
    assert other["line"] == art and list(other["line"]) == [layer] and other["line"][0] == layer


def test_a_layer_is_gone_with_the_step_that_made_it(drawing, art, history):
    layer = art.add("PEN_LAYER")
    history.undo()
    with fails(support.GONE):
        layer.type
    history.redo()
    with fails(support.GONE):
        layer.bounding_box
    assert art[0] != layer and art[0].type == "Vector"


def test_a_layer_that_was_removed_is_gone_also_when_it_comes_back(art, history):
    layer = art.add("PEN_LAYER")
    art.remove(layer)
    with fails(support.GONE):
        layer.strokes
    history.undo()
    with fails(support.GONE):
        layer.strokes
    assert len(art) == 1


def test_a_layer_outlives_changes_of_others(art, history):
    layers = [with_square(art, size) for size in (10, 20, 30)]
    art.remove(layers[1])
    assert [box(layer.bounding_box)[2] for layer in (layers[0], layers[2])] == [10, 30]
    history.undo()
    assert box(layers[2].bounding_box)[2] == 30


@pytest.mark.parametrize("go", ["remove", "close", "reopen"])
def test_all_is_gone_with_the_drawing(app, folder, drawing, art, go):
    layer = with_square(art)
    app.save()
    again = app.elements["Arm"].drawings["1"].drawing
    if go == "remove":
        app.elements["Arm"].drawings.remove("1")
    else:
        app.close()
    if go == "reopen":
        app = brindle.open(folder)
    for _ in range(2):
        for call in (lambda: drawing.empty, lambda: again.empty, lambda: len(art), lambda: art.add("PEN_LAYER"),
                     lambda: layer.type, lambda: layer.strokes, lambda: layer.drawing(),
                     lambda: brindle.DrawingAccess().vector_begin_operations(art),
                     lambda: brindle.DrawingAccess.editing(art).__enter__()):
            with fails(support.GONE):
                call()


def test_an_own_session_waits_for_no_other_drawing(app, drawing, art):
    other = new_drawing(app, "2")
    with brindle.DrawingAccess.editing(art):
        for call in (lambda: other["line"].add("PEN_LAYER"), lambda: other["line"].clear(),
                     lambda: other.set(1, drawing["overlay"]), lambda: other["line"].translate((1, 1))):
            with fails(OTHER_DRAWING):
                call()
    assert other.empty


def test_a_drawing_is_read_on_every_thread_that_keeps_it(drawing, art):
    layer = with_square(art)
    read = []
    thread = threading.Thread(target=lambda: read.append((drawing.empty, len(art), layer.type)))
    thread.start()
    thread.join()
    assert read == [(False, 1, "Vector")]
