"""Columns of texts (sounds, notes to the frames, names of files) as a script sees them."""

import brindle
import pytest

import support

TYPES = ["SOUND", "ANNOTATION", "FILE_LIBRARY"]


@pytest.fixture(params=TYPES)
def column(request, scene, history):
    column = scene.columns.create(request.param, "Made")
    history.clear()
    return column


def texts(column):
    """The cells that hold a text, by their frames."""
    return {frame: column[frame] for frame in range(1, column.size() + 1) if column[frame]}


def test_a_cell_holds_its_own_text_and_no_other_does(column, history, state):
    assert str(column) == "Column(Made)" and column[5] == column.get_entry(5) == ""
    before = state()
    column[5] = "door.wav"
    column.set_entry(7.9, "steps.wav")
    assert texts(column) == {5: "door.wav", 7: "steps.wav"}
    assert history.list() == ["Set Xsheet Entry"] * 2
    column[5] = ""
    assert texts(column) == {7: "steps.wav"}
    history.undo(3)
    assert state().saved == before.saved
    history.redo(2)
    assert texts(column) == {5: "door.wav", 7: "steps.wav"}


def test_a_slice_writes_many_cells(column, history):
    column[3:6] = ["a", "a", "b"]
    assert texts(column) == {3: "a", 4: "a", 5: "b"}
    assert column[2:7] == ["", "a", "a", "b", ""]
    assert len(history.list()) == 1


@pytest.mark.parametrize("frame", [0, -3, 0.99, 1e12, 1_000_001])
def test_frames_that_no_sheet_has_are_refused(column, state, frame):
    before = state()
    assert support.message_of(column.set_entry, frame, "x") == "Failed to set the value in the XSheet."
    assert state() == before
    assert column.get_entry(frame) == ""


def test_texts_are_kept_with_the_project(app, folder, column):
    kind = column.type
    column[1] = "two\nlines, \"quoted\" 腕"
    column[1_000_000] = "last"
    form = support.saved(app, folder)
    app.close()
    with brindle.open(folder) as again:
        column = again.scene.columns["Made"]
        assert (column.type, column[1], column[2], column[1_000_000]) == (kind, "two\nlines, \"quoted\" 腕", "", "last")
        assert support.saved(again, folder) == form


def test_cells_follow_the_frames_of_the_scene(column, scene, history, state):
    for frame in (2, 5, 6, 60):
        column[frame] = str(frame)
    before = state()
    scene.frame_insert(5, 3)
    assert texts(column) == {2: "2", 5: "5", 9: "6", 63: "60"}
    scene.frame_remove(4, 2)
    assert texts(column) == {2: "2", 7: "6", 61: "60"}
    history.undo(2)
    assert state().saved == before.saved


def test_texts_are_neither_scaled_nor_linked(column, state):
    before = state()
    assert support.message_of(column.scale, 2) == "Failed to scale the column."
    assert column.linked_nodes == column.linked_attributes == []
    assert state() == before


def test_no_attribute_is_driven_by_a_text(column, peg, history):
    angle = peg.attributes["angle"]
    assert support.message_of(setattr, angle, "column", column) == "Failed to set the attribute's column name."
    assert not angle.link(column) and angle.column is None
    assert history.list() == []


def test_a_sound_column_is_removed_and_the_others_are_refused(scene, history, state):
    for type_ in TYPES:
        scene.columns.create(type_, type_)
    before = state()
    assert support.message_of(scene.columns.remove, TYPES) == (
        "Unsupported column : ANNOTATION\nUnsupported column : FILE_LIBRARY")
    assert state() == before
    scene.columns.remove("SOUND")
    assert [column.name for column in scene.columns] == TYPES[1:]
    history.undo(1)
    assert [column.name for column in scene.columns] == TYPES


@pytest.mark.parametrize("cells, problem", [
    ('[[2, "a"], [2, "b"]]', "can't stand behind the cell ahead of it"), ('[[1, ""]]', "is empty"),
    ('[[0, "a"]]', ""), ('[[1]]', ""), ('[[1000001, "a"]]', ""), ('[["a", 1]]', "")])
def test_damaged_cells_are_told_with_their_place(app, folder, cells, problem):
    app.scene.columns.create("ANNOTATION", "Notes")
    app.save()
    app.close()
    path = folder / "scenes" / "Scene-1.json"
    path.write_text(path.read_text().replace('"cells": []', f'"cells": {cells}'))
    message = support.message_of(brindle.open, folder)
    assert str(path) in message and problem in message
