"""Brackets as `with` blocks: one entry of what is done in the block, and nothing of it when the block fails."""

import brindle
import pytest

import support


class Slip(Exception):
    pass


def names(scene):
    return [node.name for node in scene.nodes if len(node.name) == 1]


def create(scene, *wanted):
    for name in wanted:
        scene.nodes.create("PEG", name)


def test_a_block_is_one_entry(scene, history):
    with history.bracket("Walk cycle"):
        assert history.current == "Walk cycle"
        create(scene, "a", "b")
        scene.framerate = 12
    assert history.list() == ["Walk cycle"] and history.current == "NONE"
    history.undo()
    assert names(scene) == [] and scene.framerate == 24.0
    history.redo()
    assert names(scene) == ["a", "b"] and scene.framerate == 12.0


def test_a_block_gives_the_history(scene, history):
    with history.bracket("A") as inside:
        assert type(inside) is brindle.History and inside.current == "A"
        create(scene, "a")
    assert inside.list() == ["A"]


@pytest.mark.parametrize("failure", [Slip, KeyboardInterrupt, SystemExit, GeneratorExit, StopIteration, brindle.Error])
def test_an_exception_takes_all_back_and_goes_on(scene, history, peg, state, failure):
    before = state()
    with pytest.raises(failure):
        with history.bracket("A"):
            create(scene, "a", "b")
            peg.name = "Leg"
            raise failure()
    assert state() == before
    assert history.current == "NONE" and history.size_unexecuted == 0 and peg.name == "Arm"


def test_a_refused_change_takes_the_block_back(scene, history, state):
    before = state()
    with pytest.raises(brindle.Error, match="Framecount"):
        with history.bracket("A"):
            create(scene, "a")
            scene.frame_count = 0
    assert state() == before


def test_a_refused_change_that_the_block_catches_changes_nothing_else(scene, history):
    with history.bracket("A"):
        create(scene, "a")
        with pytest.raises(brindle.Error):
            scene.frame_count = 0
        create(scene, "b")
    assert history.list() == ["A"] and names(scene) == ["a", "b"]


def test_blocks_in_a_block_are_part_of_its_entry(scene, history):
    with history.bracket("A"):
        create(scene, "a")
        with history.bracket("B"):
            assert history.current == "A"
            create(scene, "b")
            with history.bracket("C"):
                create(scene, "c")
        assert history.current == "A" and history.list() == []
        create(scene, "d")
    assert history.list() == ["A"] and names(scene) == list("abcd")
    history.undo()
    assert names(scene) == []


def test_an_exception_through_all_blocks_takes_all_back(scene, history, state):
    before = state()
    with pytest.raises(Slip):
        with history.bracket("A"):
            create(scene, "a")
            with history.bracket("B"):
                create(scene, "b")
                raise Slip()
    assert state() == before


def test_an_inner_block_that_fails_takes_the_outer_one_back_too(scene, history):
    with history.bracket("A"):
        create(scene, "a")
        with pytest.raises(Slip):
            with history.bracket("B"):
                create(scene, "b")
                raise Slip()
        assert names(scene) == [] and history.current == "NONE"
        create(scene, "c")
    assert history.list() == ["Add c"] and names(scene) == ["c"]


def test_a_block_without_changes_is_no_entry(history, state):
    before = state()
    with history.bracket("A"):
        pass
    assert state() == before


def test_a_bracket_can_be_used_again_and_within_itself(scene, history):
    bracket = history.bracket("A")
    with bracket:
        create(scene, "a")
    with bracket, bracket:
        create(scene, "b")
    assert history.list() == ["A", "A"] and names(scene) == ["a", "b"]


def test_a_bracket_that_is_only_made_opens_nothing(scene, history):
    bracket = history.bracket("A")
    assert str(bracket) == "Bracket(A)" and str(bracket.copy()) == "Bracket(A)"
    assert history.current == "NONE"
    create(scene, "a")
    assert history.list() == ["Add a"]


def test_a_block_that_cancels_goes_on_without_a_bracket(scene, history):
    with history.bracket("A") as inside:
        create(scene, "a")
        inside.cancel()
        create(scene, "b")
    assert history.list() == ["Add b"] and names(scene) == ["b"]


def test_a_block_that_ends_its_bracket_goes_on_without_it(scene, history):
    with history.bracket("A") as inside:
        create(scene, "a")
        inside.end()
        create(scene, "b")
    assert history.list() == ["A", "Add b"]


def test_a_return_from_a_block_closes_it(scene, history):
    def work():
        with history.bracket("A"):
            create(scene, "a")
            return "done"

    assert work() == "done" and history.list() == ["A"]


def test_a_project_that_is_closed_in_the_block_says_so_at_its_end(app, history):
    with pytest.raises(brindle.Error) as failure:
        with history.bracket("A"):
            create(app.scene, "a")
            app.close()
    assert str(failure.value) == support.GONE


def test_what_made_a_block_fail_counts_more_than_its_closed_project(app, folder, history):
    with pytest.raises(Slip):
        with history.bracket("A"):
            create(app.scene, "a")
            app.close()
            raise Slip()
    again = brindle.open(folder)
    assert again.project.history.current == "NONE" and names(again.scene) == []


def test_another_project_opened_in_the_block_is_left_alone(app, folder, history):
    with pytest.raises(brindle.Error) as failure:
        with history.bracket("A"):
            other = brindle.create(folder.with_name("other"))
            create(other.scene, "a")
    assert str(failure.value) == support.GONE
    assert names(other.scene) == ["a"] and other.project.history.list() == ["Add a"]
    other.close()


def test_a_bracket_of_a_closed_project_opens_nothing(app, history):
    bracket = history.bracket("A")
    app.close()
    with pytest.raises(brindle.Error) as failure:
        with bracket:
            raise AssertionError("the block is not entered")
    assert str(failure.value) == support.GONE


@pytest.mark.parametrize("name", [None, 5, 1.5, b"A", ["A"], object()])
def test_the_name_of_a_bracket_is_a_text(history, state, name):
    before = state()
    with pytest.raises(TypeError):
        history.bracket(name)
    assert state() == before


@pytest.mark.parametrize("name", ["", "Ärmel", "\U0001f600", "%1 %n", "a" * 5000])
def test_any_text_is_a_name(scene, history, name):
    with history.bracket(name):
        create(scene, "a")
    assert history.list() == [name]


def test_a_name_ends_at_its_first_nul(scene, history):
    with history.bracket("a\0b"):
        create(scene, "a")
    assert history.list() == ["a"]
