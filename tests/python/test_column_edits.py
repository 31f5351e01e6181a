"""Changes of columns: keyframes, points and their handles, names."""

import math

import brindle
import pytest

import support

POINT = ["Set Bezier Point Sample-Peg: angle"]
SEGMENT = ["Set Constant Segment on Sample-Peg: angle"]
LEFT = ["Set left handle on Sample-Peg: angle"]
RIGHT = ["Set right handle on Sample-Peg: angle"]
NO_KEY = "Constant Segment can only be set on a keyframe."


def frames(r):
    return r["column"].keyframe_list()


def handles(r, frame=10):
    value = r["column"][frame]
    return value.handle_left_x, value.handle_left_y, value.handle_right_x, value.handle_right_y


def point(r, frame):
    value = r["column"][frame]
    return (value.value, *handles(r, frame), value.const_segment, value.continuity)


EDITS = {
    "keyframe_create": (lambda r: r["column"].keyframe_create(5), ["Setting 1 keyframes."], frames, [1, 5, 10, 20]),
    "keyframe_create in a list": (lambda r: r["column"].keyframe_create([5]), ["Setting 1 keyframes."], frames,
                                  [1, 5, 10, 20]),
    "keyframe_create of two": (lambda r: r["column"].keyframe_create([5, 6]), ["Setting a keyframe."], frames,
                               [1, 5, 6, 10, 20]),
    "keyframe_create in nested lists": (lambda r: r["column"].keyframe_create([[2, 3], 4]), ["Setting a keyframe."],
                                        frames,
                                        [1, 2, 3, 4, 10, 20]),
    "keyframe_create of a text": (lambda r: r["column"].keyframe_create("5"), ["Setting 1 keyframes."], frames,
                                  [1, 5, 10, 20]),
    "keyframe_create of nothing": (lambda r: r["column"].keyframe_create([]), ["Setting 0 keyframes."], frames,
                                   [1, 10, 20]),
    "keyframe_create where one is": (lambda r: r["column"].keyframe_create(10), ["Setting 1 keyframes."], frames,
                                     [1, 10, 20]),
    "keyframe_remove": (lambda r: r["column"].keyframe_remove(10), ["Removing 1 keyframes."], frames, [1, 20]),
    "keyframe_remove of two": (lambda r: r["column"].keyframe_remove([10, 20]), ["Removing a keyframe."], frames, [1]),
    "keyframe_remove of all": (lambda r: r["column"].keyframe_remove([1, 10, 20]), ["Removing a keyframe."],
                               lambda r: (frames(r), r["double attribute"].value(5)), ([], 0.0)),
    "keyframe_remove where none is": (lambda r: r["column"].keyframe_remove(11), ["Removing 1 keyframes."], frames,
                                      [1, 10, 20]),
    "keyframe_clear": (lambda r: r["column"].keyframe_clear(7, 12), [""], frames, [1, 20]),
    "keyframe_clear from behind": (lambda r: r["column"].keyframe_clear(12, 7), [""], frames, [1, 20]),
    "keyframe_clear to the end": (lambda r: r["column"].keyframe_clear(10, 0), [""], frames, [1]),
    "keyframe_clear of nothing": (lambda r: r["column"].keyframe_clear(11, 12), [], frames, [1, 10, 20]),
    "create among control points": (lambda r: r["control points"].create(5), ["Create 1 keyframes."], frames,
                                    [1, 5, 10, 20]),
    "create two among control points": (lambda r: r["control points"].create([5, 6]), ["Create a keyframe."], frames,
                                        [1, 5, 6, 10, 20]),
    "remove among control points": (lambda r: r["control points"].remove(10), ["Remove 1 keyframes."], frames, [1, 20]),
    "remove two among control points": (lambda r: r["control points"].remove([1, 10]), ["Remove keyframe."], frames,
                                        [20]),
    "create_point": (lambda r: r["column"].create_point(5, 1, 4, 1, 6, 2, True, "smooth"), POINT,
                     lambda r: point(r, 5)[5:], (True, "SMOOTH")),
    "create_point of its defaults": (lambda r: r["column"].create_point(5, 1, 4, 0, 6, 2), POINT, lambda r: point(r, 5),
                                     (1.0, 4.0, 0.0, 6.0, 2.0, False, "CORNER")),
    "create_point on a key": (lambda r: r["column"].create_point(10, 1, 9, 0, 12, 2), POINT, lambda r: point(r, 10),
                              (1.0, 9.0, 0.0, 12.0, 2.0, False, "CORNER")),
    "create_point of a straight": (lambda r: r["column"].create_point(5, 1, 4, 1, 6, 1, False, "Straight"), POINT,
                                   lambda r: r["column"][5].continuity, "STRAIGHT"),
    "an item": (lambda r: r["column"].__setitem__(5, 3), POINT, lambda r: r["column"].get_entry(5), 3.0),
    "an item of a text": (lambda r: r["column"].__setitem__("5", "3.5"), POINT, lambda r: r["column"]["5"].value, 3.5),
    "an item of another's value": (lambda r: r["column"].__setitem__(5, r["keyframe"]), POINT,
                                   lambda r: r["column"].get_entry(5), 9.0),
    "set_entry": (lambda r: r["column"].set_entry(5.5, 3), POINT, lambda r: r["column"].get_entry(5.5), 3.0),
    "value between keys": (lambda r: setattr(r["column value"], "value", 3.0), POINT,
                           lambda r: (frames(r), r["column value"].key),
                           ([1, 5, 10, 20], True)),
    "value on a key carries its handles": (lambda r: setattr(r["keyframe"], "value", 19.0), POINT,
                                           lambda r: (r["keyframe"].value, *handles(r)),
                                           (19.0, 7.0, 19.0, 40 / 3, 19.0)),
    "value of hardly a difference": (lambda r: setattr(r["keyframe"], "value", 9.00005), [],
                                     lambda r: r["keyframe"].value, 9.0),
    "value of another value": (lambda r: setattr(r["column value"], "value", r["keyframe"]), POINT,
                               lambda r: r["column value"].value, 9.0),
    "key": (lambda r: setattr(r["column value"], "key", True), POINT, frames, [1, 5, 10, 20]),
    "key as it is": (lambda r: setattr(r["keyframe"], "key", True), [], frames, [1, 10, 20]),
    "no key": (lambda r: setattr(r["keyframe"], "key", False), ["Remove Bezier Point Sample-Peg: angle"], frames,
               [1, 20]),
    "no key as it is": (lambda r: setattr(r["column value"], "key", False), [], frames, [1, 10, 20]),
    "const_segment": (lambda r: setattr(r["keyframe"], "const_segment", True), SEGMENT,
                      lambda r: (r["column"][15].const_segment, r["column"].get_entry(19)), (True, 9.0)),
    "const_segment as it is": (lambda r: setattr(r["keyframe"], "const_segment", False), [],
                               lambda r: r["keyframe"].const_segment, False),
    "continuity": (lambda r: setattr(r["keyframe"], "continuity", "STRAIGHT"), SEGMENT,
                   lambda r: r["keyframe"].continuity, "STRAIGHT"),
    "continuity as it is": (lambda r: setattr(r["keyframe"], "continuity", r["keyframe"].continuity), [],
                            lambda r: r["keyframe"].continuity, "CORNER"),
    "handle_left_x": (lambda r: setattr(r["keyframe"], "handle_left_x", 8), LEFT, lambda r: handles(r)[0], 8.0),
    "handle_left_y": (lambda r: setattr(r["keyframe"], "handle_left_y", 8), LEFT, lambda r: handles(r)[1], 8.0),
    "handle_right_x": (lambda r: setattr(r["keyframe"], "handle_right_x", 12), RIGHT, lambda r: handles(r)[2], 12.0),
    "handle_right_y": (lambda r: setattr(r["keyframe"], "handle_right_y", 8), RIGHT, lambda r: handles(r)[3], 8.0),
    "a handle beyond its keyframe is held": (lambda r: setattr(r["keyframe"], "handle_left_x", 15), LEFT,
                                             lambda r: handles(r)[0] <= 10, True),
    "a handle as it is": (lambda r: setattr(r["keyframe"], "handle_left_x", r["keyframe"].handle_left_x), [], frames,
                          [1, 10, 20]),
    "hold_start": (lambda r: setattr(r["column"], "hold_start", 3), ["Set Start Frame for Hold"],
                   lambda r: r["column"].hold_start, 3),
    "hold_stop": (lambda r: setattr(r["column"], "hold_stop", 30), ["Set Stop Frame for Hold"],
                  lambda r: r["column"].hold_stop, 30),
    "hold_step": (lambda r: setattr(r["column"], "hold_step", 3), ["Set Step for Hold"],
                  lambda r: r["column"].hold_step, 3),
    "scale": (lambda r: r["column"].scale(2), [""], lambda r: [r["column"].get_entry(f) for f in (1, 10, 20)],
              [0.0, 18.0, -10.0]),
    "name": (lambda r: setattr(r["column"], "name", "Swing"), ["Rename ATV-0001 to Swing"],
             lambda r: (r["column"].name, r["double attribute"].column_name), ("Swing", "Swing")),
    "name as it is": (lambda r: setattr(r["column"], "name", "ATV-0001"), [], lambda r: r["column"].name, "ATV-0001"),
    "anonymous": (lambda r: setattr(r["column"], "anonymous", False), ["Setting column as not anonymous."],
                  lambda r: (r["column"].anonymous, r["column"].display_name), (False, "ATV-0001")),
    "anonymous and back": (lambda r: (setattr(r["column"], "anonymous", False),
                                      setattr(r["column"], "anonymous", True)),
                           ["Setting column as not anonymous.", "Setting column anonymous."],
                           lambda r: r["column"].display_name, "Sample-Peg: angle"),
    "anonymous as it is": (lambda r: setattr(r["column"], "anonymous", True), [], lambda r: r["column"].anonymous,
                           True),
}

VALUES = "Accepted values are : STRAIGHT, CORNER, SMOOTH "
REFUSALS = {
    "keyframe_create of a word": (lambda r: r["column"].keyframe_create("abc"), "Invalid argument: "),
    "keyframe_create of two words": (lambda r: r["column"].keyframe_create([1, "a", ["b"], 2]),
                                     "Invalid argument: \nInvalid argument: "),
    "keyframe_create of no number": (lambda r: r["column"].keyframe_create(math.nan), "Invalid argument at index 0."),
    "keyframe_create beyond measure": (lambda r: r["column"].keyframe_create([1, math.inf]),
                                       "Invalid argument at index 0."),
    "keyframe_remove of a word": (lambda r: r["column"].keyframe_remove("abc"), "Invalid argument: "),
    "keyframe_exists of a word": (lambda r: r["column"].keyframe_exists(["x", 10]), "Invalid argument: "),
    "remove among control points where none is": (lambda r: r["control points"].remove(11),
                                                  "Failed to remove keyframe at: 11"),
    "remove two where none is": (lambda r: r["control points"].remove([11, 10, 12.9]),
                                 "Failed to remove keyframe at: 11\nFailed to remove keyframe at: 12"),
    "create among control points of a word": (lambda r: r["control points"].create("x"), "Invalid argument: "),
    "create_point of another continuity": (lambda r: r["column"].create_point(5, 1, 1, 1, 1, 1, False, "round"),
                                           f"Invalid continuity value ROUND. {VALUES}"),
    "continuity in small letters": (lambda r: setattr(r["keyframe"], "continuity", "smooth"),
                                    f"Invalid continuity value smooth. {VALUES}"),
    "continuity between keys": (lambda r: setattr(r["column value"], "continuity", "SMOOTH"), NO_KEY),
    "const_segment between keys": (lambda r: setattr(r["column value"], "const_segment", True), NO_KEY),
    "handle_left_x between keys": (lambda r: setattr(r["column value"], "handle_left_x", 1), NO_KEY),
    "handle_left_y between keys": (lambda r: setattr(r["column value"], "handle_left_y", 1), NO_KEY),
    "handle_right_x between keys": (lambda r: setattr(r["column value"], "handle_right_x", 1), NO_KEY),
    "handle_right_y between keys": (lambda r: setattr(r["column value"], "handle_right_y", 1), NO_KEY),
    "value of a word": (lambda r: setattr(r["keyframe"], "value", "much"), "Invalid type set on column value."),
    "value of None": (lambda r: setattr(r["keyframe"], "value", None), "Invalid type set on column value."),
    "value of a list": (lambda r: setattr(r["keyframe"], "value", [1]), "Invalid type set on column value."),
    "value of a node": (lambda r: setattr(r["keyframe"], "value", r["peg"]), "Invalid type set on column value."),
    "value of a control point": (lambda r: setattr(r["control point"], "value", 1), "NOT YET IMPLEMENTED"),
    "an item of a word": (lambda r: r["column"].__setitem__(5, "much"), "Invalid type set on column value."),
    "an item at a word": (lambda r: r["column"].__setitem__("five", 1), "Invalid index provided."),
    "the item at a word": (lambda r: r["column"]["five"], "Invalid index provided."),
    "no name": (lambda r: setattr(r["column"], "name", ""), "Failed to rename the column."),
}


@pytest.mark.parametrize("name", EDITS)
def test_an_edit_does_what_it_says_and_can_be_undone(edit, name):
    edit(*EDITS[name])


@pytest.mark.parametrize("name", REFUSALS)
def test_a_refused_edit_gives_its_sentence_and_changes_nothing(refuse, name):
    refuse(*REFUSALS[name])


def test_a_hold_value_that_is_refused_raises_no_error(rig, state):
    before = state()
    rig["column"].hold_step = -1
    assert state() == before


def test_a_name_that_is_taken_is_refused(refuse, rig):
    rig["peg"].attributes["skew"].set_value(1, 1)
    refuse(lambda r: setattr(r["column"], "name", "ATV-0002"), "A column named ATV-0002 already exists.")


def test_keyframe_create_gives_the_control_point_or_a_list_of_them(rig):
    column = rig["column"]
    assert column.keyframe_create(5).frame == column.keyframe_create([6]).frame - 1 == 5.0
    assert [p.frame for p in column.keyframe_create([7, [8, 10]])] == [7.0, 8.0, 10.0]
    assert column.keyframe_create([]) == []


def test_a_new_keyframe_does_not_change_the_curve(rig):
    before = [rig["column"].get_entry(frame / 4) for frame in range(0, 100)]
    rig["column"].keyframe_create([3, 5.5, 15])
    after = [rig["column"].get_entry(frame / 4) for frame in range(0, 100)]
    assert after == pytest.approx(before, abs=1e-6)


def test_keyframe_exists_asks_for_any_of_the_frames(rig):
    exists = rig["column"].keyframe_exists
    assert (exists(10), exists([11, 10]), exists([[11], [1]]), exists(11), exists([]), exists(10.5)) == (True, True,
                                                                                                         True, False,
                                                                                                         False, False)


def test_keyframe_clear_on_a_short_scene_swaps_its_range(rig, scene):
    scene.frame_count = 8
    rig["column"].keyframe_create([8, 9, 20])
    rig["column"].keyframe_clear(10, 0)  # The last frame is 8: the range is 8 to 10.
    assert frames(rig) == [1, 20]


def test_the_neighbours_of_a_frame_are_the_keys_around_it(rig):
    column = rig["column"]
    assert column[10].keyframe_previous.frame == 10.0 and column[10].keyframe_next.frame == 20.0
    assert column[15].keyframe_previous.frame == 10.0 and column[15].keyframe_next.frame == 20.0
    assert column[20].keyframe_next is None
    assert column[0].keyframe_previous is None and column[0].keyframe_next is None


def test_a_value_between_keys_shows_the_handles_of_the_key_before(rig):
    assert handles(rig, 15) == handles(rig, 10)
    assert support.message_of(lambda: rig["column"][0].handle_left_x) == "An unexpected error has occurred."
    assert (rig["column"][0].continuity, rig["column"][0].const_segment, rig["column"][0].key) == ("UNKNOWN", False,
                                                                                                   False)


def test_a_value_is_the_curve_at_its_frame(rig):
    for frame in (0, 1, 5, 10, 15, 20, 70):
        assert rig["column"][frame].value == rig["column"].get_entry(frame) == rig["double attribute"].value(frame)
        assert rig["column"][frame].frame == float(frame)


def test_the_control_points_show_the_keys(rig):
    assert [(p.frame, p.value) for p in rig["control points"]] == [(1.0, 0.0), (10.0, 9.0), (20.0, -5.0)]
    shown = rig["control point"]
    assert (shown.handle_left_x, shown.handle_left_y, shown.handle_right_x, shown.handle_right_y) == handles(rig)
    assert (shown.const_segment, shown.continuity) == (rig["keyframe"].const_segment, rig["keyframe"].continuity)


def test_a_column_tells_what_it_is(rig):
    column = rig["column"]
    assert (column.name, column.display_name, column.type, column.anonymous) == ("ATV-0001", "Sample-Peg: angle",
                                                                                 "BEZIER", True)
    assert [node.name for node in column.linked_nodes] == ["Sample-Peg"]
    assert column.control_point_size == len(column.control_points) == 3


def test_a_list_of_a_column_begins_with_empty_items(rig, scene):
    scene.frame_count = 3
    values = rig["column"].list()
    assert values[:4] == [None] * 4 and [value.frame for value in values[4:]] == [1.0, 2.0, 3.0]


def test_a_subscript_as_text_is_a_frame(rig):
    assert rig["column"]["10"].value == rig["column"][10].value == 9.0
    assert rig["column"].get("10").frame == 10.0


def test_a_control_point_that_is_gone_or_replaced_says_so(rig):
    point = rig["control point"]
    names = [member["name"] for entry in brindle._describe()
             if entry["name"] in ("ControlPoint", "BezierControlPoint") for member in entry["properties"]]
    assert "frame" in names and "handle_right_y" in names
    rig["column"].keyframe_remove(10)
    assert {support.message_of(lambda n=name: getattr(point, n)) for name in names} == {support.GONE}
    rig["column"].keyframe_create(10)
    assert {support.message_of(lambda n=name: getattr(point, n)) for name in names} == {support.GONE}


@pytest.mark.parametrize("cut, expected", [
    (slice(None), [1, 2, 3, 4]), (slice(1, 3), [1, 2]), (slice(2, None), [2, 3, 4]), (slice(1, 5), [1, 2, 3, 4]),
    (slice(0, 2), [1]), (slice(-2, None), [3, 4]), (slice(None, -1), [1, 2, 3]), (slice(4, 100), [4]),
    (slice(3, 1), []), (slice(0, 0), []), (slice(5, None), []), (slice(None, None, 2), [1, 3]),
    (slice(2, None, 2), [2, 4]), (slice(None, None, -1), [4, 3, 2, 1]), (slice(3, 1, -1), [3, 2]),
    (slice(3, 0, -1), [3, 2, 1]), (slice(0, None, -1), []), (slice(4, None, -3), [4, 1]),
])
def test_a_slice_of_a_column_is_made_of_frames(rig, scene, cut, expected):
    scene.frame_count = 4
    assert [value.frame for value in rig["column"][cut]] == expected


@pytest.mark.parametrize("kind", ["EASE", "VELOBASED", "3D_PATH", "QUATERNION_PATH"])
def test_hold_values_of_every_kind_of_curve(app, folder, scene, kind):
    column = scene.columns.create(kind, "Held")
    column.keyframe_create([1, 5, 20])
    history = app.project.history
    history.clear()
    before = support.saved(app, folder)
    column.hold_start, column.hold_stop, column.hold_step = 2, 9, 3
    assert (column.hold_start, column.hold_stop, column.hold_step) == (2, 9, 3)
    assert history.list() == ["Set Start Frame for Hold", "Set Stop Frame for Hold", "Set Step for Hold"]
    column.hold_step = -1
    assert column.hold_step == 3
    after = support.saved(app, folder)
    history.undo(3)
    assert support.saved(app, folder) == before
    history.redo(3)
    assert support.saved(app, folder) == after
    assert column.control_point_size == len(column.control_points) == 3
    assert [point.frame for point in column.control_points] == [1, 5, 20]
