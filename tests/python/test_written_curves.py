"""Curves that are written point by point, and the columns of attributes that are given amounts."""

import tempfile

from hypothesis import given, settings, strategies as st

import brindle
import support

NUMBER = st.floats(-50, 50).map(lambda number: round(number, 2))
# Frames far enough apart that a handle may reach beyond the next one, and points of every kind.
POINT = st.tuples(NUMBER, NUMBER, NUMBER, NUMBER, NUMBER, st.booleans(),
                  st.sampled_from(["CORNER", "STRAIGHT", "SMOOTH"]))


def curve(scene):
    """An empty column that drives an attribute of a new node."""
    angle = scene.nodes.create("PEG", "Written").attributes["angle"]
    angle.set_value(1, 1.0)
    angle.column.keyframe_remove(1)
    return angle.column


def shape(column):
    return [(value.frame, value.value, value.handle_left_x, value.handle_left_y, value.handle_right_x,
             value.handle_right_y, value.const_segment, value.continuity)
            for value in (column[frame] for frame in column.keyframe_list())]


def test_a_handle_that_was_given_stays_when_a_point_comes_behind_ahead_or_between(scene):
    column = curve(scene)
    points = [(10, 5.0, 8, 9.0, 14, -3.0, False, "SMOOTH"), (40, 1.0, 30, 7.0, 44, 2.0, False, "CORNER"),
              (1, -1.0, 0, -4.0, 3, 6.0, False, "STRAIGHT"), (20, 2.0, 18, 1.0, 22, 3.0, True, "CORNER")]
    for point in points:
        column.create_point(*point)
    assert shape(column) == sorted(points)


def test_a_handle_is_drawn_back_to_a_point_that_comes_nearer(scene):
    column = curve(scene)
    column.create_point(1, 0, 1, 0, 30, 5)
    column.create_point(40, 0, 10, 6, 40, 0)
    column.create_point(20, 2, 15, 2, 25, 2)
    assert (column[1].handle_right_x, column[1].handle_right_y) == (20.0, 5.0)
    assert (column[40].handle_left_x, column[40].handle_left_y) == (20.0, 6.0)


@given(points=st.dictionaries(st.integers(1, 60), POINT, max_size=7), data=st.data())
@settings(max_examples=60)
def test_the_order_of_writing_makes_no_difference(points, data):
    frames = data.draw(st.permutations(sorted(points)))
    with tempfile.TemporaryDirectory(dir=support.MEMORY) as parent, brindle.create(f"{parent}/p") as app:
        folder = f"{parent}/p"
        column = curve(app.scene)
        app.project.history.clear()
        forms = []
        for order in (sorted(points), frames):
            for frame in order:
                column.create_point(frame, *points[frame])
            forms.append(support.saved_content(app, folder))
            app.project.history.undo(len(points))
        assert forms[0] == forms[1]


def test_an_amount_over_a_range_is_flat_where_there_was_no_column(app):
    x = app.scene.nodes.create("PEG", "Offset").attributes["position.x"]
    x.set_localvalue(1.0)
    x.offset_value([10, 20], 5)
    assert [x.value(frame) for frame in range(9, 22)] == [1.0, *[6.0] * 11, 1.0]
    assert (x.value(1), x.value(60)) == (1.0, 1.0)


def test_redoing_links_of_a_shared_column_keeps_their_order(app, folder):
    nodes, history = app.scene.nodes, app.project.history
    group = nodes.create("GROUP", "Body")
    a, b = nodes.create("PEG", "a"), nodes.create("PEG", "b")
    history.clear()
    a.attributes["angle"].set_value(1, 1.0)
    column = a.attributes["angle"].column_name
    b.attributes["skew"].column = column
    b.move_to(group)
    names = [app.scene.nodes["Top/a"].attributes["angle"].column.display_name]
    form = support.saved(app, folder)
    count = history.size_executed
    assert count == 3
    for _ in range(2):
        history.undo(count)
        history.redo(count)
        names.append(app.scene.nodes["Top/a"].attributes["angle"].column.display_name)
        assert support.saved(app, folder) == form
    assert names == ["a: angle"] * 3
