"""Changes of a scene and of its nodes: what they do, what the undo list calls them, and how they are refused."""

import brindle
import pytest

import support

EDITS = {
    "framerate": (lambda r: setattr(r["scene"], "framerate", 25), ["Set Frame Rate"], lambda r: r["scene"].framerate,
                  25.0),
    "framerate of a fraction": (lambda r: setattr(r["scene"], "framerate", 29.97), ["Set Frame Rate"],
                                lambda r: r["scene"].framerate, 29.97),
    "frame_count, more": (lambda r: setattr(r["scene"], "frame_count", 100), ["Set Number of Frames"],
                          lambda r: (r["scene"].frame_count, r["scene"].frame_stop), (100, 100)),
    "frame_count, fewer": (lambda r: setattr(r["scene"], "frame_count", 5), ["Set Number of Frames"],
                           lambda r: (r["scene"].frame_count, r["scene"].frame_stop), (5, 5)),
    "frame_count of 1": (lambda r: setattr(r["scene"], "frame_count", 1), ["Set Number of Frames"],
                         lambda r: r["scene"].frame_count, 1),
    "frame_count of now": (lambda r: setattr(r["scene"], "frame_count", 60), [], lambda r: r["scene"].frame_count, 60),
    "frame_start": (lambda r: setattr(r["scene"], "frame_start", 5), ["Set Start Frame"],
                    lambda r: r["scene"].frame_start, 5),
    "frame_stop": (lambda r: setattr(r["scene"], "frame_stop", 30), ["Set Stop Frame"], lambda r: r["scene"].frame_stop,
                   30),
    "a new peg": (lambda r: r["nodes of the scene"].create("PEG", "Leg"), ["Add Leg"],
                  lambda r: "Top/Leg" in r["nodes of the scene"], True),
    "a new group": (lambda r: r["nodes of the scene"].create("GROUP", "Rig"), ["Add Rig"],
                    lambda r: type(r["nodes of the scene"]["Top/Rig"]).__name__, "GroupNode"),
    "a new node in a group": (lambda r: r["nodes of a group"].create("PEG", "Leg"), ["Add Leg"],
                              lambda r: [n.name for n in r["nodes of a group"]].count("Leg"), 1),
    "a new node by path": (lambda r: r["nodes of the scene"].create("PEG", "Top/Sample-Group/Leg"), ["Add Leg"],
                           lambda r: "Leg" in r["nodes of a group"], True),
    "a new group by path": (lambda r: r["nodes of the scene"].create("GROUP", "Top/Sample-Group/In"), ["Add In"],
                            lambda r: str(r["nodes of a group"]["In"]), "Group(Top/Sample-Group/In)"),
    "a new node of a name that is taken": (lambda r: r["nodes of the scene"].create("PEG", "Sample-Peg"),
                                           ["Add Sample-Peg"],
                                           lambda r: "Top/Sample-Peg_1" in r["nodes of the scene"], True),
    "a new node without a name": (lambda r: r["nodes of the scene"].create("PEG"), ["Add "],
                                  lambda r: "Top/Peg" in r["nodes of the scene"], True),
    "a new display of a name that is taken": (lambda r: r["nodes of the scene"].create("DISPLAY", "Display"),
                                              ["Add Display"],
                                              lambda r: len(r["nodes of the scene"].find({"type": "DISPLAY"})), 2),
    "a node of an unknown type": (lambda r: r["nodes of the scene"].create("NOTHING", "x"), [],
                                  lambda r: "Top/x" in r["nodes of the scene"], False),
    "a removed node": (lambda r: r["nodes of the scene"].remove("Top/Sample-Read"), ["Delete Nodes"],
                       lambda r: "Top/Sample-Read" in r["nodes of the scene"], False),
    "a removed node with its links": (lambda r: r["nodes of the scene"].remove(r["peg"]), ["Delete Nodes"],
                                      lambda r: r["in-port"].linked, False),
    "removed nodes": (lambda r: r["nodes of the scene"].remove(["Top/Sample-Read", r["camera"], [r["group"]]]),
                      ["Delete Nodes"],
                      lambda r: len(r["nodes of the scene"]), 7),
    "a removed group with all in it": (lambda r: r["nodes of the scene"].remove(r["group"]), ["Delete Nodes"],
                                       lambda r: r["nodes of the scene"].find("Sample-Inner"), []),
    "a removed node and its column": (lambda r: r["nodes of the scene"].remove("Top/Sample-Peg", True),
                                      ["Delete Nodes"],
                                      lambda r: repr(r["column"]), "<brindle.BezierColumn, no longer valid>"),
    "a removed node, bridged": (lambda r: bridge(r), ["Delete Nodes"],
                                lambda r: r["nodes of the scene"]["Top/Display"].ports_in[0].source_node, None),
    "name": (lambda r: setattr(r["peg"], "name", "Leg"), ["Rename Sample-Peg to Leg"],
             lambda r: r["nodes of the scene"]["Top/Leg"].name,
             "Leg"),
    "name of now": (lambda r: setattr(r["peg"], "name", "Sample-Peg"), ["Rename Sample-Peg to Sample-Peg"],
                    lambda r: r["peg"].path, "Top/Sample-Peg"),
    "name of a group": (lambda r: setattr(r["group"], "name", "Rig"), ["Rename Sample-Group to Rig"],
                        lambda r: [n.path for n in r["group"].nodes][0], "Top/Rig/Sample-Inner"),
    "position of two numbers": (lambda r: setattr(r["peg"], "position", [10, -20]), ["Set X position of Sample-Peg"],
                                lambda r: place(r), (10, -20, 0)),
    "position of three numbers": (lambda r: setattr(r["peg"], "position", (1, 2, 3)), ["Set X position of Sample-Peg"],
                                  lambda r: place(r), (1, 2, 3)),
    "position of a point": (lambda r: setattr(r["peg"], "position", brindle.Point2d(5.7, -40.9)),
                            ["Set X position of Sample-Peg"], lambda r: place(r), (5, -40, 0)),
    "position of a point in space": (lambda r: setattr(r["peg"], "position", brindle.Point3d(5, 6, 7)),
                                     ["Set X position of Sample-Peg"], lambda r: place(r), (5, 6, 7)),
    "position.x": (lambda r: setattr(r["coordinates"], "x", 4), ["Set X position of Sample-Peg"], lambda r: place(r),
                   (4, 0, 0)),
    "position.y": (lambda r: setattr(r["coordinates"], "y", 4), ["Set Y position of Sample-Peg"], lambda r: place(r),
                   (0, 4, 0)),
    "position.z": (lambda r: setattr(r["coordinates"], "z", 1), ["Set Z position of Sample-Peg"], lambda r: place(r),
                   (0, 0, 1)),
    "enabled": (lambda r: setattr(r["peg"], "enabled", False), ["Enable Sample-Peg"], lambda r: r["peg"].enabled,
                False),
    "enabled as now": (lambda r: setattr(r["peg"], "enabled", True), ["Enable Sample-Peg"], lambda r: r["peg"].enabled,
                       True),
    "multi_port_in of a new group": (lambda r: new_group(r).multi_port_in, ["Add Rig", "Add Multi-Port-In"],
                                     lambda r: r["nodes of the scene"]["Top/Rig/Multi-Port-In"].type, "MULTIPORT_IN"),
    "multi_port_out of a new group": (lambda r: new_group(r).multi_port_out, ["Add Rig", "Add Multi-Port-Out"],
                                      lambda r: str(r["nodes of the scene"]["Top/Rig/Multi-Port-Out"].position),
                                      "NodeCoordinates(0, 0, 0)"),
    "multi_port_in that is there": (lambda r: r["group"].multi_port_in, [], lambda r: len(r["group"].nodes), 3),
}

REFUSALS = {
    "frame_count of 0": (lambda r: setattr(r["scene"], "frame_count", 0),
                         "Framecount needs to be a positive value above one."),
    "frame_count below 0": (lambda r: setattr(r["scene"], "frame_count", -5),
                            "Framecount needs to be a positive value above one."),
    "frame_count beyond measure": (lambda r: setattr(r["scene"], "frame_count", 2**31 - 1),
                                   "Failed to set the scene's frame count."),
    "framerate of 0": (lambda r: setattr(r["scene"], "framerate", 0), "Failed to set the frame rate."),
    "framerate below 0": (lambda r: setattr(r["scene"], "framerate", -1.0), "Failed to set the frame rate."),
    "framerate that is no number": (lambda r: setattr(r["scene"], "framerate", float("nan")),
                                    support.not_finite("framerate")),
    "framerate without end": (lambda r: setattr(r["scene"], "framerate", float("inf")), support.not_finite("framerate")),
    "frame_start of 0": (lambda r: setattr(r["scene"], "frame_start", 0), "Unable to set the start frame."),
    "frame_start behind the last": (lambda r: setattr(r["scene"], "frame_start", 61), "Unable to set the start frame."),
    "frame_stop of 0": (lambda r: setattr(r["scene"], "frame_stop", 0), "Unable to set the stop frame."),
    "frame_stop behind the last": (lambda r: setattr(r["scene"], "frame_stop", 61), "Unable to set the stop frame."),
    "name of a scene": (lambda r: setattr(r["scene"], "name", "x"), "Renaming Scenes is not supported at this time."),
    "sounds": (lambda r: r["scene"].sounds, "Sounds are not yet supported in the Python DOM."),
    "compositions": (lambda r: r["scene"].compositions, "Compositions are not currently supported in Python."),
    "a new node in no group": (lambda r: r["nodes of the scene"].create("PEG", "Top/Nowhere", "x"),
                               "Unable to find specified group."),
    "a new node in a path without a group": (lambda r: r["nodes of the scene"].create("PEG", "Top/Nowhere/x"),
                                             "Unable to find specified group."),
    "a new node in a peg": (lambda r: r["nodes of the scene"].create("PEG", r["peg"], "x"),
                            "Unable to find the specified group."),
    "a new node in a list of pegs": (lambda r: r["nodes of the scene"].create("PEG", [r["peg"]], "x"),
                                     "Unable to find the specified group."),
    "a new node in a number beyond": (lambda r: r["nodes of the scene"].create("PEG", 500, "x"),
                                      "Index is out of range."),
    "removing nobody": (lambda r: r["nodes of the scene"].remove("Top/Nobody"), "No valid nodes specified."),
    "removing nothing": (lambda r: r["nodes of the scene"].remove([]), "No valid nodes specified."),
    "removing None": (lambda r: r["nodes of the scene"].remove(None), "No valid nodes specified."),
    "removing a scene": (lambda r: r["nodes of the scene"].remove(r["scene"]), "No valid nodes specified."),
    "removing an index beyond": (lambda r: r["nodes of the scene"].remove(1000), "Index is out of range."),
    "removing the root group": (lambda r: r["nodes of the scene"].remove(r["scene"].top), "Failed to remove nodes."),
    "renaming to a name that is taken": (lambda r: setattr(r["peg"], "name", "Sample-Read"),
                                         "Failed to rename the node."),
    "renaming the root group": (lambda r: setattr(r["scene"].top, "name", "x"), "Failed to rename the node."),
    "a path without a group": (lambda r: setattr(r["peg"], "path", "x"), "Invalid target path."),
    "a path in no group": (lambda r: setattr(r["peg"], "path", "Top/Nobody/x"), "Unable to find the target node."),
    "a path that is taken": (lambda r: setattr(r["peg"], "path", "Top/Sample-Read"), "Failed to rename the node."),
    "moving to None": (lambda r: r["peg"].move_to(None), "Unable to find the target node."),
    "moving to nobody": (lambda r: r["peg"].move_to("Top/Nobody"), "Unable to find the target node."),
    "moving the root group": (lambda r: r["scene"].top.move_to("Top/Sample-Group"), "The node source is invalid."),
    "moving into the scene": (lambda r: r["nodes of the scene"].move(r["peg"]), "Unable to move nodes into this list."),
}


def place(r):
    coordinates = r["nodes of the scene"]["Top/Sample-Peg"].position
    return coordinates.x, coordinates.y, coordinates.z


def new_group(r):
    return r["nodes of the scene"].create("GROUP", "Rig")


def bridge(r):
    r["nodes of the scene"].remove("Top/Composite", False, True)


@pytest.mark.parametrize("name", EDITS)
def test_an_edit_does_what_it_says_and_can_be_undone(edit, name):
    edit(*EDITS[name])


@pytest.mark.parametrize("name", REFUSALS)
def test_a_refused_edit_gives_its_sentence_and_changes_nothing(refuse, name):
    refuse(*REFUSALS[name])


@pytest.mark.parametrize("value", [["a", "b"], [1, None], [1, [2]], "here", {}, None, True, 2**40, [2**40]],
                         ids=repr)
def test_a_position_that_is_no_place_is_refused(refuse, value):
    refuse(lambda r: setattr(r["peg"], "position", value), "Unsupported Point3D type.")


@pytest.mark.parametrize("number", [float("nan"), float("inf"), 1e300, 2**31 + 0.5])
def test_a_position_beyond_the_node_view_is_refused(refuse, number):
    refuse(lambda r: setattr(r["peg"], "position", [number, 1]), "Invalid argument at index 0.")


@pytest.mark.parametrize("name", ["peg", "scene", "column"])
def test_a_position_that_is_another_object_is_refused(refuse, name):
    refuse(lambda r: setattr(r["peg"], "position", r[name]), "Unsupported Point3D type.")


@pytest.mark.parametrize("value, expected",
                         [(5, (5, 0, 7)), (1.9, (1, 0, 7)), ([1], (1, 0, 7)), ([1, 2], (1, 2, 7)),
                          ([1, 2, 3, 4], (1, 2, 3))])
def test_what_a_position_leaves_out_is_0_but_for_the_depth(rig, value, expected):
    rig["coordinates"].z = 7
    rig["peg"].position = value
    assert place(rig) == expected


@pytest.mark.parametrize("name, expected",
                         [("Left Arm", "Left Arm"), ("a/b", "a_b"), ("ä", "ä"), ("", None), ("\U0001f600", None)])
def test_a_name_is_made_one_that_a_node_can_have(scene, peg, history, name, expected):
    peg.name = name
    assert history.list() == [f"Rename Arm to {name}"]
    if expected:
        assert peg.name == expected
    assert "/" not in peg.name and peg.name != ""
    assert scene.nodes[peg.path] == peg


def test_a_node_of_every_type_is_created_with_its_ports(scene):
    ports = {type_: (len(node.ports_in) if type_ != "MULTIPORT_IN" else 0,
                     len(node.ports_out) if type_ != "MULTIPORT_OUT" else 0)
             for type_ in ("READ", "PEG", "CAMERA", "DISPLAY", "COMPOSITE", "WRITE", "GROUP", "MULTIPORT_IN",
                           "MULTIPORT_OUT", "COLOR_CARD", "BLUR", "CUTTER")
             for node in [scene.nodes.create(type_, f"New {type_}")]}
    assert ports == {"READ": (1, 1), "PEG": (1, 1), "CAMERA": (1, 0), "DISPLAY": (1, 1), "COMPOSITE": (1, 1),
                     "WRITE": (1, 1),
                     "GROUP": (0, 0), "MULTIPORT_IN": (0, 0), "MULTIPORT_OUT": (0, 0), "COLOR_CARD": (0, 1),
                     "BLUR": (1, 1),
                     "CUTTER": (2, 1)}


def test_nodes_on_the_border_of_a_group_have_one_side_only(rig):
    text = "The node does not support out-ports."
    assert text in str(pytest.raises(brindle.Error, lambda: rig["multi-port out"].ports_out).value)
    text = "Multi-In nodes do not support in-ports."
    assert text in str(pytest.raises(brindle.Error, lambda: rig["multi-port in"].ports_in).value)


def test_a_new_project_is_as_the_animator_finds_it(scene, history):
    assert (scene.name, scene.frame_count, scene.frame_start, scene.frame_stop, scene.framerate) == ("Scene-1", 60, 1,
                                                                                                     60, 24.0)
    assert [node.path for node in scene.nodes] == ["Top/Display", "Top/Composite"]
    assert scene.nodes["Top/Display"].ports_in[0].source_node == scene.nodes["Top/Composite"]
    assert scene.top.path == scene.top.name == "Top"
    assert scene.top.parent_group().valid is False
    assert history.list() == []


@pytest.mark.parametrize("filter_, found", [
    ("Sample-P", ["Sample-Peg"]), (["^PEG$", "CAMERA"],
                                   ["Sample-Peg", "Sample-Child", "Sample-Camera", "Sample-Inner"]),
    ({"NAME": "Peg"}, ["Sample-Peg"]), ({"type": "PEG", "path": "Group"}, ["Sample-Inner"]),
    ({"name": ["Peg", "Read"]}, ["Sample-Peg", "Sample-Read"]),
    ({"name": "Peg", "type": "READ"}, []), ("no such thing", []),
])
def test_nodes_are_found_by_patterns(rig, filter_, found):
    assert sorted(node.name for node in rig["nodes of the scene"].find(filter_)) == sorted(found)


def test_a_filter_without_a_known_key_finds_every_node_but_groups(rig):
    found = {node.path for node in rig["nodes of the scene"].find({"colour": "red"})}
    assert found == {node.path for node in rig["nodes of the scene"] if node.type != "GROUP"}
