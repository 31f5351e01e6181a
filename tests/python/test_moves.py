"""Moving nodes from a script: both forms of the target, lists of nodes, and the path that is written."""

import brindle
import pytest

import support


@pytest.fixture
def rig(app):
    """Top: Body (Multi-Port-In), and Peg that leads Drawing."""
    nodes = app.scene.nodes
    body = nodes.create("GROUP", "Body")
    body.multi_port_in
    peg, drawing = nodes.create("PEG", "Peg"), nodes.create("READ", "Drawing")
    peg.ports_out[0].link(drawing.ports_in[0])
    return {"app": app, "nodes": nodes, "body": body, "peg": peg, "drawing": drawing}


def test_a_node_moves_to_a_group_or_beside_a_node(rig):
    body, peg, drawing = rig["body"], rig["peg"], rig["drawing"]
    peg.move_to(body)
    assert peg.path == "Top/Body/Peg"
    drawing.move_to(peg, 3, y=4)
    assert drawing.path == "Top/Body/Drawing"
    inner = body.nodes.create("GROUP", "Inner")
    drawing.move_to("Top/Body/Inner")
    assert drawing.path == "Top/Body/Inner/Drawing"
    assert inner.valid
    body.move_to(target="Top/Display")
    assert body.path == "Top/Body"
    assert not drawing.valid


def test_the_object_that_moved_follows_and_all_others_are_gone(rig):
    nodes, peg = rig["nodes"], rig["peg"]
    other, attributes = nodes["Top/Peg"], peg.attributes
    peg.move_to("Top/Body")
    assert peg.valid and peg == nodes["Top/Body/Peg"]
    with pytest.raises(brindle.Error, match=support.NODE_GONE):
        other.name
    with pytest.raises(brindle.Error, match=support.GONE):
        attributes["angle"]
    rig["app"].project.history.undo(1)
    assert not peg.valid
    assert nodes["Top/Peg"].valid


def test_writing_the_path_moves_and_names(rig):
    peg = rig["peg"]
    peg.path = "Top/Body/Shoulder"
    assert (peg.path, peg.name) == ("Top/Body/Shoulder", "Shoulder")
    peg.path = "Top/Body/Hip"
    assert peg.path == "Top/Body/Hip"
    assert [peg.path for peg in rig["body"].nodes] == ["Top/Body/Multi-Port-In", "Top/Body/Hip"]


def test_a_list_of_nodes_moves_as_one_step(rig):
    app, body = rig["app"], rig["body"]
    entries = len(app.project.history)
    moved = body.nodes.move([rig["drawing"], "Top/Peg"])
    assert [node.path for node in moved] == ["Top/Body/Drawing", "Top/Body/Peg"]
    assert len(app.project.history) == entries + 1
    assert moved[0].ports_in[0].source_node == moved[1]
    app.project.history.undo(1)
    app.project.history.redo(1)
    assert [node.valid for node in moved] == [False, False]
    assert body.nodes["Drawing"].ports_in[0].source_node == body.nodes["Peg"]


def test_a_list_of_one_gives_the_node(rig):
    moved = rig["body"].nodes.move("Top/Peg", 1, 2)
    assert isinstance(moved, brindle.PegNode)
    assert moved.path == "Top/Body/Peg"
    assert not rig["peg"].valid


@pytest.mark.parametrize("move, sentence", [
    (lambda r: r["body"].move_to(r["body"]), "Unable to place the node in the group."),
    (lambda r: r["peg"].move_to(None), "Unable to find the target node."),
    (lambda r: r["peg"].move_to(r["nodes"]), "Unable to find the target node."),
    (lambda r: r["nodes"].move("Top/Peg"), "Unable to move nodes into this list."),
    (lambda r: r["body"].nodes.move([]), "No valid nodes specified."),
    (lambda r: r["body"].nodes.move(["Top/Peg", "Top/Body"]),
     "Invalid move - source contains the target group or multiport."),
    (lambda r: setattr(r["peg"], "path", "Peg"), "Invalid target path."),
    (lambda r: setattr(r["peg"], "path", "Top/Body/Multi-Port-In"), "Failed to rename the node."),
])
def test_a_move_that_fails_changes_nothing(rig, move, sentence):
    entries = len(rig["app"].project.history)
    with pytest.raises(brindle.Error) as failure:
        move(rig)
    assert str(failure.value) == sentence
    assert len(rig["app"].project.history) == entries
    assert rig["peg"].path == "Top/Peg"
    assert rig["body"].path == "Top/Body"


@pytest.mark.parametrize("arguments", [(), (1,), ("Top/Body", "1"), ("Top/Body", 1.5), ("Top/Body", 1, 2, 3), ("Top/Body", 2**31)])
def test_arguments_that_do_not_fit_are_type_errors(rig, arguments):
    with pytest.raises(TypeError):
        rig["peg"].move_to(*arguments)
    assert rig["peg"].path == "Top/Peg"


def test_a_node_stays_in_its_scene_and_its_objects_stay_valid(folder):
    with brindle.create(folder) as app:
        app.scene.nodes.create("GROUP", "Body").multi_port_in
        app.scene.nodes.create("PEG", "Peg")
        app.save()
    scenes = folder / "scenes"
    (scenes / "Two.json").write_text((scenes / "Scene-1.json").read_text().replace("Scene-1", "Two"))
    project = folder / "project.json"
    project.write_text(project.read_text().replace('"scenes/Scene-1.json"', '"scenes/Scene-1.json",\n    "scenes/Two.json"'))
    with brindle.open(folder) as app:
        one, two = app.scenes
        peg, body = one.nodes["Top/Peg"], two.nodes["Top/Body"]
        saved = support.files(folder)
        peg.move_to(body)
        assert body.nodes.move(peg) == peg
        assert support.message_of(body.nodes.move, [peg, one.nodes["Top/Display"]]) == (
            "Failed to move the nodes to the group.")
        assert (peg.path, peg.parent_scene(), len(app.project.history)) == ("Top/Peg", one, 0)
        app.save()
        assert support.files(folder) == saved
