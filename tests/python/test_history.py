"""The undo list as a script sees it: sizes, names, undo, redo, brackets."""

import brindle
import pytest

import support


def sizes(history):
    return history.size_executed, history.size_unexecuted, history.size_total


@pytest.fixture
def four(scene, history, peg):
    """Four entries."""
    for name in "abcd":
        scene.nodes.create("PEG", name)
    return history


def names(scene):
    return [node.name for node in scene.nodes if len(node.name) == 1]


def test_the_entries_stand_oldest_first(four):
    assert four.list() == list(four) == ["Add a", "Add b", "Add c", "Add d"]
    assert [four[i] for i in range(4)] == [four.get(i) for i in range(4)] == four.list()
    assert len(four) == four.size() == 4 and sizes(four) == (4, 0, 4)


@pytest.mark.parametrize("count, left", [(0, 4), (1, 3), (3, 1), (4, 0), (5, 0), (2**32 - 1, 0)])
def test_undo_takes_back_so_many_entries(scene, four, count, left):
    four.undo(count)
    assert names(scene) == list("abcd")[:left]
    assert four.list() == ["Add a", "Add b", "Add c", "Add d"][:left]
    assert sizes(four) == (left, 4 - left, 4)


@pytest.mark.parametrize("count, there", [(0, 1), (1, 2), (3, 4), (100, 4), (2**32 - 1, 4)])
def test_redo_does_so_many_entries_again(scene, four, count, there):
    four.undo(3)
    four.redo(count)
    assert names(scene) == list("abcd")[:there]
    assert sizes(four) == (there, 4 - there, 4)


def test_undo_and_redo_without_a_count_step_once(four):
    four.undo()
    assert sizes(four) == (3, 1, 4)
    four.redo()
    assert sizes(four) == (4, 0, 4)


def test_undo_and_redo_of_an_empty_list_do_nothing(history, state):
    before = state()
    history.undo(5)
    history.redo(5)
    assert state() == before and sizes(history) == (0, 0, 0)


def test_a_change_after_an_undo_drops_what_was_undone(scene, four):
    four.undo(2)
    scene.nodes.create("PEG", "e")
    assert four.list() == ["Add a", "Add b", "Add e"] and sizes(four) == (3, 0, 3)
    four.redo()
    assert names(scene) == list("abe")


def test_a_refused_change_drops_nothing(scene, four):
    four.undo(2)
    with pytest.raises(brindle.Error):
        scene.frame_count = 0
    assert sizes(four) == (2, 2, 4)
    four.redo(2)
    assert names(scene) == list("abcd")


def test_clear_forgets_the_entries_and_leaves_the_project(scene, four):
    four.undo()
    four.clear()
    assert sizes(four) == (0, 0, 0) and names(scene) == list("abc")
    four.undo(9)
    four.redo(9)
    assert names(scene) == list("abc")


def test_a_bracket_is_one_entry(scene, four):
    four.begin("Legs")
    scene.nodes.create("PEG", "e")
    scene.nodes["Top/e"].name = "f"
    four.end()
    assert four.list()[4:] == ["Legs"]
    four.undo()
    assert names(scene) == list("abcd")
    four.redo()
    assert names(scene) == list("abcdf")


def test_nested_brackets_are_one_entry_of_the_outer_name(scene, history, peg):
    history.begin("A")
    history.begin("B")
    scene.nodes.create("PEG", "e")
    history.end()
    assert history.current == "A" and history.list() == []
    scene.nodes.create("PEG", "f")
    history.end()
    assert history.list() == ["A"] and history.current == "NONE"


def test_cancel_takes_back_all_whatever_the_nesting(scene, history, state, peg):
    before = state()
    history.begin("A")
    scene.nodes.create("PEG", "e")
    history.begin("B")
    peg.name = "Leg"
    history.cancel()
    assert history.current == "NONE" and state() == before
    history.end()  # Nothing is open any more.
    assert state() == before


@pytest.mark.parametrize("call", ["end", "cancel"])
def test_a_bracket_that_is_not_open_has_no_end(history, state, call):
    before = state()
    getattr(history, call)()
    assert state() == before


def test_an_empty_bracket_is_no_entry(history, state):
    before = state()
    history.begin("Nothing")
    history.end()
    assert state() == before


def test_nothing_is_undone_inside_a_bracket(scene, four):
    four.begin("A")
    scene.nodes.create("PEG", "e")
    four.undo(2)
    four.redo(2)
    assert names(scene) == list("abcde")
    four.end()
    four.undo()
    assert names(scene) == list("abcd")


def test_a_failure_inside_a_bracket_leaves_the_bracket_open(scene, history, peg):
    history.begin("A")
    peg.enabled = False
    with pytest.raises(brindle.Error):
        scene.frame_count = 0
    assert history.current == "A"
    peg.enabled = True
    history.end()
    assert history.list() == ["A"]


def test_a_bracket_matches_across_objects_of_the_history(app, scene, peg):
    app.project.history.begin("A")
    peg.name = "Leg"
    app.project.history.end()
    assert app.project.history.list() == ["A"]


def test_active_is_false_inside_a_bracket_too(history):
    history.begin("A")
    assert history.active is False
    history.cancel()


@pytest.mark.parametrize("name", ["", "Ärmel", "\U0001f600", "%1 %n", "a" * 1000])
def test_a_bracket_keeps_its_name(history, peg, name):
    history.begin(name)
    assert history.current == name
    peg.enabled = False
    history.end()
    assert history.list() == [name]


def test_a_bracket_left_open_ends_with_its_project(app, folder, tmp_path):
    history = app.project.history
    history.begin("A")
    app.scene.nodes.create("PEG", "x")
    app.close()
    assert support.message_of(lambda: history.size_total) == support.GONE
    again = brindle.open(folder)
    assert again.project.history.current == "NONE"
    again.scene.nodes.create("PEG", "y")
    assert again.project.history.list() == ["Add y"]


def test_a_project_knows_whether_it_was_saved(app, scene, history):
    project = app.project
    assert (project.dirty, project.dirty_previously) == (False, False)
    scene.nodes.create("PEG", "a")
    assert (project.dirty, project.dirty_previously) == (True, True)
    app.save()
    assert (project.dirty, project.dirty_previously) == (False, True)
    history.undo()
    assert (project.dirty, project.dirty_previously) == (True, False)
    history.redo()
    assert (project.dirty, project.dirty_previously) == (False, True)


def test_a_project_that_is_opened_has_nothing_to_undo(app, folder, four):
    app.save()
    again = brindle.open(folder)
    assert sizes(again.project.history) == (0, 0, 0)
    assert names(again.scene) == list("abcd") and again.project.dirty is False


def test_the_limit_of_entries_is_told(history):
    assert history.size_max > 1000
