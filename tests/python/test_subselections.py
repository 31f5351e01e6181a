"""The handles of a node's gizmo."""

import brindle
import pytest

import support

COUNTS = [("PEG", 7), ("CAMERA", 4), ("COLOR_CARD", 4), ("CUTTER", 4), ("COMPOSITE", -1), ("GROUP", -1), ("READ", -1)]


@pytest.mark.parametrize("kind, count", COUNTS)
def test_each_type_has_its_handles(scene, kind, count):
    handles = scene.nodes.create(kind, "Node").subselections
    assert str(handles) == f'NodeSubselectionList("Top/Node")[{count}]'
    assert (handles.size(), len(handles)) == (count, max(count, 0))
    names = [f"Handle_{index:03}" for index in range(count)]
    assert [handle.name for handle in handles] == [handle.name for handle in handles.list()] == names
    assert [handle.index for handle in handles[:]] == list(range(max(count, 0)))


def test_a_handle_says_its_node_and_its_name(peg):
    handle = peg.subselections[6]
    assert str(handle) == 'NodeSubselection("Top/Arm", "Handle_006")'
    peg.name = "Leg"
    assert str(handle) == 'NodeSubselection("Top/Leg", "Handle_006")'


@pytest.mark.parametrize("name, index", [("Handle_002", 2), ("2", 2), ("a2b9", 2), ("pivot", 0), ("", 0), ("-3", 3)])
def test_the_first_digits_of_a_name_count(peg, name, index):
    assert peg.subselections[name].index == index


@pytest.mark.parametrize("name", ["Handle_7", "99999999999999999999 1"])
def test_a_name_beyond_the_handles(peg, name):
    if name.startswith("9"):
        assert peg.subselections[name].index == 0  # More digits than a number holds count as none.
    else:
        assert support.message_of(lambda: peg.subselections[name]) == "Invalid subselection name for this node type."


@pytest.mark.parametrize("index", [-1, 7, 2**31 - 1])
def test_an_index_beyond_the_handles(peg, index):
    assert support.message_of(lambda: peg.subselections[index]) == "Invalid subselection index for this node type."


def test_a_node_without_a_gizmo_has_no_handle(scene):
    handles = scene.nodes.create("BLUR", "Blur").subselections
    assert support.message_of(lambda: handles[0]) == "Invalid subselection index for this node type."
    assert support.message_of(lambda: handles["x"]) == "Invalid subselection name for this node type."


def test_handles_of_a_node_that_is_gone(scene, peg):
    handles = peg.subselections
    handle = handles[0]
    scene.nodes.remove(peg)
    gone = "Node is no longer valid. Node may have been moved or deleted."
    for call in (lambda: handles[0], lambda: handles.size(), lambda: str(handles), lambda: handle.name,
                 lambda: handle.index, lambda: str(handle), lambda: list(handles), lambda: peg.subselections[0]):
        assert support.message_of(call) == gone
