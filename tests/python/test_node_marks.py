"""What a person marks a node with, its box in the node view, its versions, and taking a group apart."""

import brindle
import pytest

import support


@pytest.fixture
def peg(app):
    peg = app.scene.nodes.create("PEG", "Peg")
    app.project.history.clear()
    return peg


def labels(app):
    return app.project.history.list()


def read(app):
    return app.scene.nodes["Top/Composite"]


MARKS = {
    "cached": (lambda app, peg: setattr(read(app), "cached", True), ["Cache Composite"],
               lambda app, peg: read(app).cached, True),
    "not cached": (lambda app, peg: setattr(read(app), "cached", False), ["Cache Composite"],
                   lambda app, peg: read(app).cached, False),
    "cached without pictures": (lambda app, peg: setattr(peg, "cached", True), [], lambda app, peg: peg.cached, False),
    "locked": (lambda app, peg: setattr(peg, "locked", True), ["Lock Peg"], lambda app, peg: peg.locked, True),
    "unlocked": (lambda app, peg: setattr(peg, "locked", False), ["Unlock Peg"], lambda app, peg: peg.locked, False),
    "thumbnails": (lambda app, peg: setattr(peg, "thumbnail_timeline", True), ["Show Thumbnail"],
                   lambda app, peg: peg.thumbnail_timeline, True),
    "no thumbnails": (lambda app, peg: setattr(peg, "thumbnail_timeline", False), ["Hide Thumbnail"],
                      lambda app, peg: peg.thumbnail_timeline, False),
    "colour": (lambda app, peg: setattr(peg, "colour", [1, 2, 3]), ["Set color position of Peg"],
               lambda app, peg: peg.colour.hex, "#010203"),
    "colour of another node": (lambda app, peg: setattr(peg, "colour", read(app)), ["Set color position of Peg"],
                               lambda app, peg: peg.colour.hex == read(app).colour.hex, True),
    "red": (lambda app, peg: setattr(peg.colour, "r", 7), ["Set Node Color"], lambda app, peg: peg.colour.r, 7),
    "green beyond the end": (lambda app, peg: setattr(peg.colour, "g", 700), ["Set Node Color"],
                             lambda app, peg: peg.colour.g, 255),
    "blue": (lambda app, peg: setattr(peg.colour, "b", 9), ["Set Node Color"], lambda app, peg: peg.colour.b, 9),
    "hex": (lambda app, peg: setattr(peg.colour, "hex", "#0a0B0c"), ["Set Node Color"],
            lambda app, peg: (peg.colour.r, peg.colour.g, peg.colour.b, peg.colour.hex), (10, 11, 12, "#0a0b0c")),
    "the name of a colour": (lambda app, peg: setattr(peg.colour, "hex", "red"), ["Set Node Color"],
                             lambda app, peg: peg.colour.hex, "#ff0000"),
    "the present version": (lambda app, peg: setattr(peg, "version", 1), [],
                            lambda app, peg: (peg.version, peg.version_max), (1, 1)),
}


@pytest.mark.parametrize("call, entries, value, expected", MARKS.values(), ids=MARKS)
def test_marks_are_set_saved_and_undone(app, folder, peg, call, entries, value, expected):
    before = support.saved(app, folder)
    call(app, peg)
    assert (labels(app), value(app, peg)) == (entries, expected)
    after = support.saved(app, folder)
    with brindle.open(folder) as again:
        assert value(again, again.scene.nodes["Top/Peg"]) == expected
        assert support.saved(again, folder) == after


@pytest.mark.parametrize("call, entries, value, expected", MARKS.values(), ids=MARKS)
def test_undo_and_redo_of_marks_are_exact(app, folder, peg, call, entries, value, expected):
    before, shown = support.saved(app, folder), peg.colour.hex
    call(app, peg)
    after = support.saved(app, folder)
    app.project.history.undo(1)
    assert (support.saved(app, folder), peg.colour.hex) == (before, shown)
    app.project.history.redo(1)
    assert support.saved(app, folder) == after and value(app, peg) == expected


def test_a_colour_that_there_is_not_takes_the_nodes_own_away(app, folder, peg):
    before, of_type = support.saved(app, folder), peg.colour.hex
    peg.colour = [1, 2, 3]
    peg.colour.hex = "nonsense"
    assert peg.colour.hex == of_type
    peg.colour = [1, 2, 3]
    peg.colour.reset()
    assert peg.colour.hex == of_type and labels(app)[-1] == "Reset Node Color"
    assert str(peg.colour) == "NodeColour(Top/Peg)"
    app.project.history.undo(4)
    assert support.saved(app, folder) == before


def test_a_node_takes_its_marks_along_when_it_moves(app, peg):
    peg.colour = [1, 2, 3]
    peg.locked = True
    peg.move_to(app.scene.nodes.create("GROUP", "Group"))
    assert (peg.path, peg.colour.hex, peg.locked) == ("Top/Group/Peg", "#010203", True)


def test_what_is_refused_says_so(app, folder, peg):
    before = support.saved(app, folder)
    for call, sentence in (
            (lambda: setattr(app.scene.top, "locked", True), "This node cannot be locked."),
            (lambda: setattr(peg, "version", 2), "Failed to set the node's version."),
            (lambda: setattr(app.scene.top, "version", 1), "Failed to set the node's version."),
            (lambda: setattr(peg, "colour", None), "Unsupported colour type."),
            (lambda: peg.data, "View and tool data is not currently supported.")):
        with pytest.raises(brindle.Error) as failure:
            call()
        assert str(failure.value) == sentence
    assert (support.saved(app, folder), labels(app)) == (before, [])
    colour = peg.colour
    app.scene.nodes.remove(peg)
    with pytest.raises(brindle.Error, match="View and tool data is not currently supported."):
        peg.data
    with pytest.raises(brindle.Error, match=r"^Object is no longer valid\.$"):
        colour.r


def test_versions_and_cacheability_by_type(app, peg):
    assert (app.scene.top.version, app.scene.top.version_max) == (-1, -1)
    assert read(app).cacheable and not peg.cacheable and not app.scene.top.cacheable


def test_the_box_of_a_node_that_nothing_draws(app, peg):
    peg.position = [5, 7]
    assert (peg.width, peg.height) == (80, 0)
    box = peg.rect
    assert (type(box), box.width, box.height, box.x, box.y) == (brindle.AllocatedRect2D, 80, 32, 5, 39)


def test_the_matte_port(app, peg):
    cutter = app.scene.nodes.create("CUTTER", "Cutter")
    assert (cutter.matte_port.node, cutter.matte_port.index) == (cutter, 0) and peg.matte_port is None


# Taking a group apart.

@pytest.fixture
def group(app, peg):
    """A group between a peg and a composite: two pegs and a drawing, and a way right through it."""
    nodes = app.scene.nodes
    group = nodes.create("GROUP", "Group")
    inner, read_, again = (nodes.create(type_, f"Top/Group/{name}") for type_, name in (
        ("PEG", "Inner"), ("READ", "Drawing"), ("PEG", "Peg")))
    group.ports_in.create("peg").link(peg)
    outside = nodes.create("BLUR", "Soft")
    group.ports_in.create("image").link(outside)
    inner.ports_in[0].link(group.multi_port_in.ports_out[0])
    again.ports_in[0].link(inner)
    read_.ports_in[0].link(again)
    group.ports_out.create("image")
    group.multi_port_out.ports_in[0].link(read_)
    group.ports_out.create("image")
    group.multi_port_out.ports_in[1].link(group.multi_port_in.ports_out[1])
    read(app).ports_in[0].link(group.ports_out[0])
    app.scene.nodes["Top/Display"].ports_in[0].link(group.ports_out[1])
    app.project.history.clear()
    return group


def test_a_group_is_taken_apart_in_one_step(app, folder, group):
    inner = app.scene.nodes["Top/Group/Inner"]
    before = support.saved(app, folder)
    content = group.explode()
    assert [node.path for node in content] == ["Top/Inner", "Top/Drawing", "Top/Peg_1"]
    assert not group.valid and inner.path == "Top/Inner", "what is inside stays what it is"
    nodes = app.scene.nodes
    assert inner.ports_in[0].source_node == nodes["Top/Peg"]
    assert nodes["Top/Peg_1"].ports_in[0].source_node == inner
    assert read(app).ports_in[0].source_node == nodes["Top/Drawing"]
    assert nodes["Top/Display"].ports_in[0].source_node == nodes["Top/Soft"], "what leads right through"
    assert labels(app) == ["Explode Group"]
    after = support.saved(app, folder)
    for _ in range(2):
        app.project.history.undo(1)
        assert support.saved(app, folder) == before
        app.project.history.redo(1)
        assert support.saved(app, folder) == after
    with brindle.open(folder, discard=True) as again:
        assert support.saved(again, folder) == after


def test_a_group_keeps_the_default_camera_when_it_is_taken_apart(app, folder, group):
    camera = app.scene.nodes.create("CAMERA", "Top/Group/Camera")
    camera.active = True
    before = support.saved(app, folder)
    group.explode()
    assert camera.active and app.scene.camera_path == "Top/Camera"
    app.project.history.undo(1)
    assert app.scene.camera_path == "Top/Group/Camera" and support.saved(app, folder) == before


def test_an_empty_group_and_the_root_group(app, folder):
    empty = app.scene.nodes.create("GROUP", "Empty")
    assert empty.explode() == []
    before = support.saved(app, folder)
    assert app.scene.top.explode() == [app.scene.top]
    assert support.saved(app, folder) == before
