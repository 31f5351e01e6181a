"""Inserting and removing frames from a script."""

import brindle
import pytest

import support

INSERT, REMOVE = "Set Number of Frames", "Remove Frames"


def keys(r):
    return r["column"].keyframe_list()


def insert(*arguments, **named):
    return lambda r: r["scene"].frame_insert(*arguments, **named)


def remove(*arguments, **named):
    return lambda r: r["scene"].frame_remove(*arguments, **named)


OPTIONS = brindle.FrameOptions(False, True)

# The keys of the sample column are at 1, 10 and 20.
EDITS = {
    "behind a frame": (insert(5, 10), [INSERT], keys, [1, 20, 30]),
    "ahead of all": (insert(0, 1), [INSERT], keys, [2, 11, 21]),
    "behind all": (insert(60, 1), [INSERT], lambda r: (r["scene"].frame_count, keys(r)), (61, [1, 10, 20])),
    "behind a key": (insert(10, 5), [INSERT], keys, [1, 10, 25]),
    "with options": (insert(5, 1, OPTIONS), [INSERT], lambda r: r["scene"].frame_count, 61),
    "with options by name": (insert(count=2, at=5, options=OPTIONS), [INSERT], lambda r: r["scene"].frame_count, 62),
    "without options": (insert(5, 1, None), [INSERT], lambda r: r["scene"].frame_count, 61),
    "removed with a key": (remove(5, 10), [REMOVE], keys, [1, 10]),
    "removed ahead of all": (remove(0, 5), [REMOVE], lambda r: (r["scene"].frame_count, keys(r)), (55, [5, 15])),
    "removed but for one": (remove(1, 59), [REMOVE], lambda r: (r["scene"].frame_count, keys(r)), (1, [1])),
    "removed with options": (remove(30, 5, OPTIONS), [REMOVE], lambda r: r["scene"].frame_count, 55),
}

NO_EFFECT = {
    "none inserted": (insert(1, 0), True), "none removed": (remove(1, 0), True),
    "none inserted by options": (insert(1, 0, OPTIONS), True), "none removed by options": (remove(1, 0, OPTIONS), True),
    "fewer than none inserted": (insert(1, -1), False), "fewer than none removed": (remove(1, -1), False),
    "the fewest inserted": (insert(1, -2**31), False), "the fewest removed": (remove(1, -2**31, OPTIONS), False),
    "inserted beyond the end": (insert(61, 1), True), "inserted before the beginning": (insert(-1, 1), True),
    "inserted far away": (insert(2**31 - 1, 1), True), "more than can be inserted": (insert(1, 2**31 - 1), True),
    "all removed": (remove(0, 60), True), "more than there is removed": (remove(1, 2**31 - 1), True),
}


@pytest.mark.parametrize("name", EDITS)
def test_frames_are_changed_undone_and_redone(edit, name):
    edit(*EDITS[name])


@pytest.mark.parametrize("name", EDITS)
def test_a_change_of_the_frames_is_true(rig, name):
    assert EDITS[name][0](rig) is True


@pytest.mark.parametrize("name", NO_EFFECT)
def test_a_call_without_effect_changes_nothing(rig, state, name):
    call, result = NO_EFFECT[name]
    before = state()
    assert call(rig) is result
    assert state() == before


@pytest.mark.parametrize("method", ["frame_insert", "frame_remove"])
@pytest.mark.parametrize("arguments", [
    (), (1,), (1, 1, OPTIONS, 1), ("1", 1), (1, None), (1.5, 1), (1, 1, True), (1, 1, "options"), (1, 1, (True, False)),
    (1, 1, brindle.Point2d(1, 2)), (1, 1, brindle.FrameOptions),
])
def test_wrong_arguments_are_a_type_error(scene, state, method, arguments):
    before = state()
    with pytest.raises(TypeError):
        getattr(scene, method)(*arguments)
    assert state() == before


@pytest.mark.parametrize("method", ["frame_insert", "frame_remove"])
@pytest.mark.parametrize("arguments", [(2**31, 1), (1, 2**31), (1, -2**31 - 1), (10**400, 1)])
def test_numbers_beyond_32_bits_are_refused(scene, state, method, arguments):
    before = state()
    with pytest.raises(brindle.ArgumentError):
        getattr(scene, method)(*arguments)
    assert state() == before


def test_inserting_asks_whether_the_scene_is_there_and_removing_only_when_it_matters(app):
    scene = app.scene
    app.close()
    for count in (-1, 0, 1):
        assert support.message_of(scene.frame_insert, 1, count) == support.GONE
    assert scene.frame_remove(1, -1) is False
    assert scene.frame_remove(1, 0) is True
    assert support.message_of(scene.frame_remove, 1, 1) == support.GONE


def test_frames_and_more_in_a_bracket_are_one_entry(scene, history, column):
    with history.bracket("Retime"):
        scene.frame_insert(5, 5)
        scene.frame_remove(20, 3)
        scene.framerate = 12
        scene.frame_count = 100
    assert history.list() == ["Retime"]
    history.undo()
    assert (scene.frame_count, scene.framerate, column.keyframe_list()) == (60, 24.0, [1, 10, 20])


def test_a_subclass_of_the_options_is_taken(scene):
    class Mine(brindle.FrameOptions):
        pass

    assert scene.frame_insert(1, 1, Mine(False, False)) is True
    assert scene.frame_count == 61
