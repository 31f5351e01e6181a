"""The list protocol: lengths, subscripts, slices, loops, membership, the call operator."""

import sys

import brindle
import pytest

import support

LISTS = ["scenes", "nodes of the scene", "nodes of a group", "fixed in-ports", "dynamic in-ports", "fixed out-ports",
         "dynamic out-ports", "cables", "flat cables", "attributes", "subattributes"]

OUT_OF_RANGE = {
    "scenes": "Scene index is out of range.", "nodes of the scene": "Index is out of range.",
    "nodes of a group": "Index is out of range.", "fixed in-ports": "Port index is out of range.",
    "dynamic in-ports": "Port index is out of range.", "fixed out-ports": "Port index is out of range.",
    "dynamic out-ports": "Port index is out of range.", "cables": "Cable index is out of range.",
    "flat cables": "Cable index is out of range.", "attributes": "Index is out of range.",
    "subattributes": "Index is out of range.", "history": "History item out of range.",
}

READ_ONLY = {
    "scenes": "Unable to set the scene list.", "nodes of the scene": "The node list cannot be set.",
    "nodes of a group": "The node list cannot be set.", "fixed in-ports": "Port lists cannot be set.",
    "dynamic in-ports": "Port lists cannot be set.", "fixed out-ports": "Port lists cannot be set.",
    "cables": "Cable lists cannot be set.", "flat cables": "Flat Cable lists cannot be set.",
    "attributes": "Attribute List cannot be set.", "history": "Unable to set a value in the history.",
    "control points": "Unable to set item in container.",
}


@pytest.mark.parametrize("name", LISTS)
def test_length_list_loop_and_subscripts_agree(samples, name):
    items = samples[name]
    texts = [str(item) for item in items.list()]
    assert len(items) == items.size() == len(texts)
    assert [str(items[i]) for i in range(len(items))] == texts
    assert [str(items.get(i)) for i in range(len(items))] == texts
    assert [str(item) for item in items] == texts
    assert [str(item) for item in items[:]] == texts


@pytest.mark.parametrize("cut", [slice(0, 2), slice(1, None), slice(None, None, 2), slice(None, None, -1),
                                 slice(-2, None), slice(5, 100), slice(3, 1), slice(10**30, 10**40)])
def test_a_slice_is_a_python_list_of_the_items(samples, cut):
    items = samples["nodes of the scene"]
    assert [str(item) for item in items[cut]] == [str(item) for item in items.list()[cut]]


@pytest.mark.parametrize("cut", [slice("a"), slice(1.5), slice(None, [])])
def test_a_slice_whose_bounds_are_no_numbers_is_a_type_error(samples, cut):
    with pytest.raises(TypeError):
        samples["nodes of the scene"][cut]


@pytest.mark.parametrize("name", OUT_OF_RANGE)
def test_an_index_past_the_end_has_its_sentence(samples, name):
    items = samples[name]
    for index in (len(items), len(items) + 1, 2**31 - 1):
        assert support.message_of(lambda i: items[i], index) == OUT_OF_RANGE[name]


@pytest.mark.parametrize("name", ["scenes", "nodes of the scene", "nodes of a group", "fixed in-ports", "cables",
                                  "attributes", "subattributes"])
def test_a_negative_index_is_out_of_range(samples, name):
    for index in (-1, -2**31):
        assert support.message_of(lambda i: samples[name][i], index) == OUT_OF_RANGE[name]


@pytest.mark.parametrize("key", [1.5, None, [], b"x", (1, 2)])
def test_a_subscript_of_another_type_is_refused(samples, key):
    with pytest.raises(brindle.ArgumentError):
        samples["nodes of the scene"][key]


def test_an_item_that_is_written_by_another_key_is_refused(peg, history):
    for items, key, value, index in ((peg.attributes, "angle", 5, 0), (brindle.application().scene.nodes, "x", peg, 0),
                                     (history, "x", "y", 0), (history, 0, 5, 1)):
        sentence = support.message_of(items.__setitem__, key, value, error=brindle.ArgumentError)
        assert sentence == f"Invalid argument at index {index}."


@pytest.mark.parametrize("name", READ_ONLY)
def test_a_list_that_cannot_be_written_says_so(samples, state, name):
    before = state()
    value = "x" if name == "history" else samples["peg"]
    assert support.message_of(samples[name].set, 0, value) == READ_ONLY[name]
    assert support.message_of(samples[name].__setitem__, 0, value) == READ_ONLY[name]
    assert state() == before


def test_an_item_cannot_be_deleted(scene):
    with pytest.raises(TypeError):
        del scene.nodes[0]


def test_a_node_is_found_by_its_path_in_the_scene(scene, peg):
    assert scene.nodes["Top/Arm"] == peg == scene.nodes("Top/Arm") == scene.nodes.get("Top/Arm")
    assert scene.nodes["Arm"] is None
    assert scene.nodes["Top/Nobody"] is None
    assert "Top/Arm" in scene.nodes and "Arm" not in scene.nodes


def test_a_node_is_found_by_name_and_by_path_in_its_group(scene):
    inner = scene.nodes.create("PEG", scene.nodes.create("GROUP", "Rig"), "Hand")
    group = scene.nodes["Top/Rig"]
    assert group.nodes["Hand"] == group.nodes["Top/Rig/Hand"] == inner
    assert group.nodes["Top/Rig"] == group
    assert group.nodes["Nobody"] is None
    assert "Hand" in group.nodes and group.nodes.contains("Top/Rig/Hand")


def test_a_node_is_in_the_list_that_holds_it(scene, peg):
    assert peg in scene.nodes
    assert peg in scene.top.nodes
    inner = scene.nodes.create("PEG", scene.nodes.create("GROUP", "Rig"), "Hand")
    assert inner in scene.nodes
    assert inner not in scene.top.nodes
    assert 5 not in scene.nodes and None not in scene.nodes


def test_a_scene_is_found_whatever_the_case_of_its_name(app):
    assert app.scenes["SCENE-1"].name == app.scenes("scene-1").name == "Scene-1"
    assert app.scenes["Nowhere"] is None


def test_a_scene_that_is_alive_is_never_contained(app):
    assert app.scene not in app.scenes
    assert app.scenes.contains(app.scene) is False


def test_a_port_is_found_by_its_number_as_text(peg):
    assert str(peg.ports_in["0"]) == str(peg.ports_in[0])
    assert peg.ports_in["first"] is None
    assert support.message_of(lambda: peg.ports_in["7"]) == "Port index is out of range."


@pytest.mark.parametrize("key, path", [("angle", "angle"), ("position.x", "position.x"), ("position", "position")])
def test_an_attribute_is_found_by_its_dotted_path(peg, key, path):
    assert peg.attributes[key].full_keyword == path
    assert peg.attributes(key) == peg.attributes.get(key)
    assert key in peg.attributes


def test_an_attribute_is_in_the_list_of_its_own_level(peg):
    position = peg.attributes["position"]
    assert position in peg.attributes
    assert position.subattributes["x"] in position.subattributes
    assert position.subattributes["x"] not in peg.attributes
    assert position not in position.subattributes
    assert 5 not in peg.attributes


@pytest.mark.parametrize("key", ["", "nothing", "position.", "position.w", ".x", "angle.x", "position.x.y", "ANGLE"])
def test_a_path_that_leads_to_no_attribute_gives_none(peg, key):
    assert peg.attributes[key] is None
    assert key not in peg.attributes


def test_a_subattribute_is_found_by_its_keyword_in_the_list_of_its_parent(peg):
    parts = peg.attributes["position"].subattributes
    assert parts["x"] == peg.attributes["position.x"]
    assert [part.keyword for part in parts] == ["x", "y", "z"]


def test_a_cable_list_contains_the_nodes_and_ports_that_it_leads_to(samples):
    cables = samples["cables"]
    destination = cables[0].destination_node
    assert destination in cables and cables[0].destination in cables
    assert samples["read"] not in cables
    message = "Cable lists can only check for existing nodes or ports."
    assert support.message_of(cables.contains, samples["scene"]) == message


def test_a_loop_goes_over_the_nodes_there_were_when_it_began(scene):
    for i in range(5):
        scene.nodes.create("PEG", f"p{i}")
    seen = []
    for node in scene.nodes:
        seen.append(node.name)
        scene.nodes.create("PEG", "more")
    assert seen == ["Display", "Composite", "p0", "p1", "p2", "p3", "p4"]


def test_a_loop_that_removes_every_node_shows_the_gone_ones_as_none(scene):
    for i in range(4):
        scene.nodes.create("PEG", f"p{i}")
    seen = []
    for node in scene.nodes:
        seen.append(node and node.name)
        if node and node.name == "p0":
            scene.nodes.remove(["Top/p1", "Top/p3"])
    assert seen == ["Display", "Composite", "p0", None, "p2", None]


def test_two_loops_over_one_list_are_independent(scene, peg):
    nodes = scene.nodes
    names = [node.name for node in nodes]
    assert [(a.name, b.name) for a in nodes for b in nodes] == [(a, b) for a in names for b in names]


def test_a_loop_that_has_ended_stays_ended(scene):
    loop = iter(scene.nodes)
    assert len(list(loop)) == 2
    scene.nodes.create("PEG", "late")
    with pytest.raises(StopIteration):
        next(loop)


def test_a_loop_over_the_nodes_of_a_project_that_is_closed_gives_none_to_its_end(app):
    loop = iter(app.scene.nodes)
    next(loop)
    app.close()
    assert list(loop) == [None]


@pytest.mark.parametrize("name", ["scenes", "nodes of a group", "fixed in-ports", "cables", "history", "column",
                                  "control points"])
def test_a_loop_over_what_a_closed_project_had_fails_with_a_sentence(app, name):
    loop = iter(support.samples(app)[name])
    app.close()
    assert support.message_of(next, loop) == support.GONE


def test_a_loop_over_the_history_follows_it(scene, history, peg):
    for name in ("a", "b"):
        scene.nodes.create("PEG", name)
    assert [name for name in history] == ["Add a", "Add b"] == history.list() == history[:]
    assert "Add a" in history and "Add c" not in history and 5 not in history


def test_a_loop_over_a_column_gives_every_frame(scene, column):
    scene.frame_count = 4
    assert [value.frame for value in column] == [1.0, 2.0, 3.0, 4.0]
    assert len(column) == column.n_frames() == 4
    column.reset_iterator()
    assert column.get_current_index() == 1


def test_control_points_come_by_a_loop_only(column):
    points = column.control_points
    assert len(points) == column.control_point_size == 3
    assert [point.frame for point in points] == [1.0, 10.0, 20.0]
    assert support.message_of(lambda: points[0]) == "Unable to retrieve item in container."


@pytest.mark.parametrize("other", [None, 5, "Top/Arm", object()])
def test_an_object_equals_no_value_of_another_kind(peg, other):
    assert (peg == other) is False
    assert (peg != other) is True


def test_two_objects_of_one_node_are_equal(scene, peg):
    again = scene.nodes["Top/Arm"]
    assert again is not peg and again == peg and not again != peg
    assert peg != scene.nodes["Top/Body"]
    assert peg == scene.nodes.find("Arm")[0]


def test_two_objects_of_one_attribute_are_equal(peg):
    assert peg.attributes["angle"] == peg.attributes["angle"]
    assert peg.attributes["angle"] != peg.attributes["skew"]


def test_there_is_no_order_among_objects(peg):
    with pytest.raises(TypeError):
        peg < peg


@pytest.mark.parametrize("name, operators", [
    ("ListObj", {"__len__", "__getitem__", "__setitem__"}),
    ("ListQVar", {"__len__", "__getitem__", "__setitem__", "__contains__"}),
    ("MapObj", {"__len__", "__getitem__", "__setitem__"}),
])
def test_a_base_of_lists_has_what_its_members_make_possible(name, operators):
    assert set(next(c["operators"] for c in brindle._describe() if c["name"] == name)) == operators


def test_a_class_has_the_operators_of_its_base():
    described = {c["name"]: c for c in brindle._describe()}
    for entry in described.values():
        base = described.get(entry["base"].removeprefix("brindle."))
        assert base is None or set(base["operators"]) <= set(entry["operators"]), entry["name"]


def test_names_that_a_script_keeps_lead_to_their_own_node_each_time(scene):
    names = [sys.intern(f"Arm{number}") for number in range(600)]
    made = {name: scene.nodes.create("PEG", name) for name in names}
    for _ in range(2):
        assert all(scene.nodes[f"Top/{name}"] == made[name] for name in names)
        assert all(scene.top.nodes[name] == made[name] for name in names)
    for name in names:
        made[name].name = name + "_"
        assert scene.top.nodes[name] is None


def test_an_object_is_looked_for_among_the_nodes_that_a_list_shows(app):
    nodes = app.scene.nodes
    group, peg = nodes.create("GROUP", "G"), nodes.create("PEG", "P")
    inner = nodes.create("PEG", group, "I")
    assert peg in nodes and inner in nodes and group in nodes
    assert app.scene.top not in nodes
    assert peg in app.scene.top.nodes and inner not in app.scene.top.nodes
    assert inner in group.nodes and peg not in group.nodes
    assert peg.attributes["angle"] not in nodes and None not in nodes and 3 not in nodes
    nodes.remove(peg)
    assert peg not in nodes
    app.project.history.undo()
    assert nodes["Top/P"] in nodes
    dead = group.nodes
    nodes.remove(group)
    with pytest.raises(brindle.Error):
        inner in dead


def test_an_object_is_looked_for_among_the_drawings_of_an_element(app):
    arm, leg = app.elements.create("Arm"), app.elements.create("Leg")
    one, other = arm.drawings.create("1"), leg.drawings.create("1")
    assert one in arm.drawings and other not in arm.drawings
    assert arm not in arm.drawings and None not in arm.drawings
    arm.drawings.remove(one)
    assert one not in arm.drawings
    app.project.history.undo()
    assert one in arm.drawings


def test_nodes_by_index_follow_every_change(app):
    nodes, history = app.scene.nodes, app.project.history

    def agree():
        listed = [node.path for node in nodes.list()]
        assert len(nodes) == len(listed)
        assert [nodes[i].path for i in range(len(nodes))] == listed
        assert nodes[len(listed) - 1].path == listed[-1]
        return listed

    groups = [nodes.create("GROUP", f"G{i}") for i in range(3)]
    for i in range(12):
        nodes.create("PEG", groups[i % 3], f"P{i}")
        agree()
    before = agree()
    nodes["Top/G0/P3"].move_to(nodes["Top/G2"])
    moved = agree()
    nodes.remove("Top/G1")
    agree()
    nodes["Top/G2"].name = "A"
    agree()
    nodes["Top/A"].explode()
    agree()
    history.undo(3)
    assert agree() == moved
    history.undo()
    assert agree() == before
