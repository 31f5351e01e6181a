"""The data that nodes of a type have."""

import pytest

import brindle


def test_without_a_host_there_are_none():
    data = brindle.NodeDataHandler("READ")
    assert str(data) == "Brindle Views: (No views loaded)"
    assert (len(data), list(data), "view" in data) == (0, [], False)


def test_what_is_not_there_is_said():
    data = brindle.NodeDataHandler("READ")
    with pytest.raises(brindle.Error, match="^Unable to find view: view$"):
        data["view"]
    with pytest.raises(brindle.Error, match="^Unable to set data handlers.$"):
        data["view"] = brindle.Point2d()


def test_a_node_does_not_lead_there(scene):
    with pytest.raises(brindle.Error, match="^View and tool data is not currently supported.$"):
        scene.nodes.create("READ", "Arm").data
