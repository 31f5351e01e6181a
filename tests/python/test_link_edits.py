"""Changes of ports, links and cables: what they do, what the undo list calls them, and how they are refused."""

import pytest

import support

CONNECT = ["Connecting ports."]


def fed(name):
    """Which node feeds a node's first in-port."""
    return lambda r: path_of(r["nodes of the scene"][f"Top/{name}"].ports_in[0].source_node)


def path_of(node):
    return node and node.path


def create(r, type_, name="New"):
    return r["nodes of the scene"].create(type_, name)


def composite_sources(r):
    return [path_of(port.source_node) for port in r["composite"].ports_in]


EDITS = {
    # The forms of an out-port's link.
    "to a node": (lambda r: r["out-port"].link(r["camera"]), CONNECT, fed("Sample-Camera"), "Top/Sample-Peg"),
    "to an in-port": (lambda r: r["out-port"].link(r["camera"].ports_in[0]), CONNECT, fed("Sample-Camera"),
                      "Top/Sample-Peg"),
    "to a path": (lambda r: r["out-port"].link("Top/Sample-Camera"), CONNECT, fed("Sample-Camera"), "Top/Sample-Peg"),
    "to a name in the group": (lambda r: r["out-port"].link("Sample-Camera"), CONNECT, fed("Sample-Camera"),
                               "Top/Sample-Peg"),
    "to a node in a list": (lambda r: r["out-port"].link([r["camera"]]), CONNECT, fed("Sample-Camera"),
                            "Top/Sample-Peg"),
    "to a path and an index": (lambda r: r["out-port"].link(["Sample-Camera", 0]), CONNECT, fed("Sample-Camera"),
                               "Top/Sample-Peg"),
    "to a node and an index as text": (lambda r: r["out-port"].link([r["camera"], "0"]), CONNECT, fed("Sample-Camera"),
                                       "Top/Sample-Peg"),
    "to a composite, which gets a port": (lambda r: card_port(r).link(r["composite"]), CONNECT, composite_sources,
                                          [None, "Top/Sample-Card"]),
    "to a group, which gets a port": (lambda r: r["out-port"].link(r["group"]), CONNECT,
                                      lambda r: (len(r["group"].ports_in), len(r["multi-port in"].ports_out)), (2, 2)),
    # The forms of an in-port's link.
    "from a node": (lambda r: r["camera"].ports_in[0].link(r["peg"]), CONNECT, fed("Sample-Camera"), "Top/Sample-Peg"),
    "from an out-port": (lambda r: r["camera"].ports_in[0].link(r["out-port"]), CONNECT, fed("Sample-Camera"),
                         "Top/Sample-Peg"),
    "from a path": (lambda r: r["camera"].ports_in[0].link("Top/Sample-Peg"), CONNECT, fed("Sample-Camera"),
                    "Top/Sample-Peg"),
    "from a name and an index": (lambda r: r["camera"].ports_in[0].link(["Sample-Peg", 0]), CONNECT,
                                 fed("Sample-Camera"), "Top/Sample-Peg"),
    "from another node": (lambda r: r["in-port"].link(create(r, "PEG")), ["Add New"] + CONNECT,
                          fed("Sample-Child"), "Top/New"),
    "from the one that feeds it already": (lambda r: r["in-port"].link(r["peg"]), [], fed("Sample-Child"),
                                           "Top/Sample-Peg"),
    "from nothing": (lambda r: r["in-port"].link(None), [], fed("Sample-Child"), "Top/Sample-Peg"),
    "from False": (lambda r: r["in-port"].link(False), [], fed("Sample-Child"), "Top/Sample-Peg"),
    "source": (lambda r: setattr(r["camera"].ports_in[0], "source", r["out-port"]), CONNECT, fed("Sample-Camera"),
               "Top/Sample-Peg"),
    "source of None": (lambda r: setattr(r["in-port"], "source", None), [], fed("Sample-Child"), "Top/Sample-Peg"),
    "source_node": (lambda r: setattr(r["camera"].ports_in[0], "source_node", r["peg"]), CONNECT, fed("Sample-Camera"),
                    "Top/Sample-Peg"),
    # Cutting.
    "unlink of an in-port": (lambda r: r["in-port"].unlink(), ["Unlink Port"], fed("Sample-Child"), None),
    "unlink of an in-port without a link": (lambda r: r["camera"].ports_in[0].unlink(), ["Unlink Port"],
                                            fed("Sample-Camera"), None),
    "unlink from an in-port": (lambda r: r["out-port"].unlink(r["in-port"]), ["Unlink Port"], fed("Sample-Child"),
                               None),
    "unlink from a node": (lambda r: r["out-port"].unlink(r["in-port"].node), ["Unlinking ports."], fed("Sample-Child"),
                           None),
    "unlink from a node that isn't linked": (lambda r: r["out-port"].unlink(r["camera"]), [], fed("Sample-Child"),
                                             "Top/Sample-Peg"),
    "unlink of the first link": (lambda r: r["out-port"].unlink(0), ["Unlink Port"], fed("Sample-Child"), None),
    "unlink by name": (lambda r: r["out-port"].unlink("Sample-Child"), ["Disconnecting ports."], fed("Sample-Child"),
                       None),
    "unlink by path": (lambda r: r["out-port"].unlink("Top/Sample-Child"), ["Disconnecting ports."],
                       fed("Sample-Child"), None),
    "unlink by names": (lambda r: r["out-port"].unlink(["Sample-Child", "Top/Sample-Group"]), ["Disconnecting ports."],
                        lambda r: len(r["out-port"].cables), 0),
    "unlink of a cable wrapper": (lambda r: r["out-port"].unlink(r["cable"]), [], fed("Sample-Child"),
                                  "Top/Sample-Peg"),
    # Ports.
    "a port of a composite": (lambda r: r["dynamic in-ports"].create(), ["Add in-port node."], composite_sources,
                              [None, None]),
    "a port at an index": (lambda r: r["dynamic in-ports"].create(0), ["Add in-port node."],
                           lambda r: [p.id for p in r["composite"].ports_in], [1, 0]),
    "a port at an index beyond": (lambda r: r["dynamic in-ports"].create(100), ["Add in-port node."],
                                  lambda r: len(r["dynamic in-ports"]), 2),
    "a port ahead of another": (lambda r: r["dynamic in-ports"].create(r["dynamic in-ports"][0], True),
                                ["Add in-port node."],
                                lambda r: [p.id for p in r["composite"].ports_in], [1, 0]),
    "a port behind another": (lambda r: r["dynamic in-ports"].create(r["dynamic in-ports"][0], False),
                              ["Add in-port node."],
                              lambda r: [p.id for p in r["composite"].ports_in], [0, 1]),
    "an in-port of a group": (lambda r: r["group"].ports_in.create("IMAGE"), ["Add inport to the node."],
                              lambda r: [p.type for p in r["group"].ports_in], ["PEG", "IMAGE"]),
    "an in-port of a group at an index": (lambda r: r["group"].ports_in.create(0, "image"), ["Add inport to the node."],
                                          lambda r: [p.type for p in r["multi-port in"].ports_out], ["IMAGE", "PEG"]),
    "an in-port of a group like its last": (lambda r: r["group"].ports_in.create(), ["Add inport to the node."],
                                            lambda r: [p.type for p in r["group"].ports_in], ["PEG", "PEG"]),
    "an out-port of a group": (lambda r: r["group"].ports_out.create("transform"), ["Add out-port to the node."],
                               lambda r: [p.type for p in r["multi-port out"].ports_in], ["PEG"]),
    "an out-port inside a group": (lambda r: r["multi-port in"].ports_out.create("matrix"),
                                   ["Add out-port to the node."],
                                   lambda r: len(r["group"].ports_in), 2),
    "a removed port": (lambda r: r["dynamic in-ports"].remove(0), ["Remove in-port node."],
                       lambda r: len(r["dynamic in-ports"]), 0),
    "a removed port with its links": (lambda r: r["group"].ports_in.remove(r["port of a group"]),
                                      ["Remove in-port node."],
                                      lambda r: (len(r["out-port"].cables), len(r["multi-port in"].ports_out)), (1, 0)),
    "a removed out-port": (lambda r: r["multi-port in"].ports_out.remove(0), ["Remove out-port node."],
                           lambda r: len(r["group"].ports_in), 0),
    # Cables.
    "a cable's source": (lambda r: setattr(r["cable"], "source", create(r, "PEG")), ["Add New"] + CONNECT,
                         fed("Sample-Child"), "Top/New"),
    "a cable's source_node": (lambda r: setattr(r["cable"], "source_node", create(r, "PEG")),
                              ["Add New", "Changing the cable's source node."], fed("Sample-Child"), "Top/New"),
    "a cable's destination": (lambda r: setattr(r["cable"], "destination", r["camera"]),
                              ["Changing the cable's destination node."],
                              lambda r: (fed("Sample-Camera")(r), fed("Sample-Child")(r)), ("Top/Sample-Peg", None)),
    "a cable's destination_node, which sets the source": (lambda r: setattr(r["cable"], "destination_node",
                                                                            create(r, "PEG")),
                                                          ["Add New", "Changing the cable's source node."],
                                                          fed("Sample-Child"), "Top/New"),
    "a node put into a cable": (lambda r: r["cable"].insert(create(r, "PEG")), ["Add New", "Inserting a node."],
                                lambda r: (fed("Sample-Child")(r), fed("New")(r)), ("Top/New", "Top/Sample-Peg")),
    "a node put into a cable by its ports": (lambda r: r["cable"].insert(create(r, "PEG"), 0, 0),
                                             ["Add New", "Inserting a node."],
                                             lambda r: (fed("Sample-Child")(r), fed("New")(r)),
                                             ("Top/New", "Top/Sample-Peg")),
    "a cut cable": (lambda r: r["cable"].unlink(), ["Unlink Port"], fed("Sample-Child"), None),
}


def card_port(r):
    return r["nodes of the scene"]["Top/Sample-Card"].ports_out[0]


NO_TARGET = "Unable to find the target node."
REFUSALS = {
    "a link to nothing": (lambda r: r["out-port"].link(None), "No in-port has been specified."),
    "a link to an out-port": (lambda r: r["out-port"].link(r["out-port"]),
                              "Expected an in-port, but received an out-port."),
    "a link from an in-port": (lambda r: r["in-port"].link(r["in-port"]),
                               "Expected an out-port, but received an in-port."),
    "a link to nobody": (lambda r: r["out-port"].link("Nobody"), NO_TARGET),
    "a link to an empty list": (lambda r: r["out-port"].link([]), "No port or node specified."),
    "a link to a port in a list": (lambda r: r["out-port"].link([r["in-port"], 0]),
                                   "Failed to identify specified port."),
    "a link to a number": (lambda r: r["out-port"].link(5), "Failed to identify specified port."),
    "a link to a scene": (lambda r: r["out-port"].link(r["scene"]), "Failed to identify specified port."),
    "a link to a port that isn't there": (lambda r: r["out-port"].link(["Sample-Camera", 5]),
                                          "There is no port at the provided index on the target node."),
    "a link to no index": (lambda r: r["out-port"].link([r["camera"], "x"]), "Unable to find the target index."),
    "a link to an index that no int holds": (lambda r: r["out-port"].link([r["camera"], 2**32]),
                                             "Unable to find the target index."),
    "a link to an endless index": (lambda r: r["out-port"].link([r["camera"], float("inf")]),
                                   "Unable to find the target index."),
    "a link to a node that is full": (lambda r: r["out-port"].link("Sample-Child"),
                                      "Target has no available ports that can be linked. Unlink a port first."),
    "a link to a node without a fitting port": (lambda r: card_port(r).link(r["camera"]),
                                                "Failed to identify specified port."),
    "a link to the node itself": (lambda r: r["out-port"].link(r["peg"]), "Unable to connect a node to itself."),
    "a link from the node itself": (lambda r: r["peg"].ports_in[0].link(r["peg"]),
                                    "Unable to connect a node to itself."),
    "a link between kinds": (lambda r: card_port(r).link(r["camera"].ports_in[0]),
                             "The ports are unable to be linked."),
    "a link in a circle": (lambda r: r["peg"].ports_in[0].link(r["in-port"].node),
                           "The ports are unable to be linked."),
    "a link into a group": (lambda r: r["out-port"].link("Top/Sample-Group/Sample-Free"),
                            "The ports are unable to be linked."),
    "unlinking a port of another": (lambda r: r["out-port"].unlink(r["camera"].ports_in[0]),
                                    "The provided port is not connected to this one."),
    "unlinking an index below 0": (lambda r: r["out-port"].unlink(-1), "Invalid link index supplied."),
    "unlinking an index beyond": (lambda r: r["out-port"].unlink(50), "Cable index is out of range."),
    "unlinking nobody": (lambda r: r["out-port"].unlink("Nobody"), "Unable to find node to unlink."),
    "unlinking a list of nobodies": (lambda r: r["out-port"].unlink(["Nobody"]), "Unable to find node to unlink."),
    "unlinking None": (lambda r: r["out-port"].unlink(None), "Unable to find the cable to disconnect."),
    "unlinking a float": (lambda r: r["out-port"].unlink(0.0), "Unable to find the cable to disconnect."),
    "unlinking a scene": (lambda r: r["out-port"].unlink(r["scene"]), "Unable to find the cable to disconnect."),
    "a port of no type": (lambda r: r["group"].ports_in.create("sound"),
                          "Port creation requires a type -- 'image' or 'peg' is accepted."),
    "a port of an empty type": (lambda r: r["group"].ports_in.create(""),
                                "Port creation requires a type -- 'image' or 'peg' is accepted."),
    "a port beside no port": (lambda r: r["dynamic in-ports"].create(r["peg"], True), "Port object is not valid."),
    "a port beside nothing": (lambda r: r["dynamic in-ports"].create(None, True), "Port object is not valid."),
    "removing a port beyond": (lambda r: r["dynamic in-ports"].remove(5), "No in port available at given index."),
    "removing an out-port beyond": (lambda r: r["group"].ports_out.remove(5), "No out port available at given index."),
    "removing no port": (lambda r: r["dynamic in-ports"].remove(r["peg"]), "Invalid port-type specified for removal."),
    "removing nothing": (lambda r: r["dynamic in-ports"].remove(None), "Invalid port-type specified for removal."),
    "removing an out-port among in-ports": (lambda r: r["dynamic in-ports"].remove(r["out-port"]),
                                            "Cannot remove a out-port from and in-port list."),
    "removing an in-port among out-ports": (lambda r: r["group"].ports_out.remove(r["in-port"]),
                                            "Cannot remove an in-port from and out-port list."),
    "a cable without a source": (lambda r: setattr(r["cable"], "source", None), "Failed to set the cable's source."),
    "a cable without a source node": (lambda r: setattr(r["cable"], "source_node", None),
                                      "Failed to change the source node."),
    "a cable from nobody": (lambda r: setattr(r["cable"], "source_node", "Nobody"), NO_TARGET),
    "a cable to nobody": (lambda r: setattr(r["cable"], "destination", "Nobody"), NO_TARGET),
    "a cable to nothing": (lambda r: setattr(r["cable"], "destination", None), "No in-port has been specified."),
    "inserting nothing": (lambda r: r["cable"].insert(None), "Invalid node specififed."),
    "inserting a scene": (lambda r: r["cable"].insert(r["scene"]), "Invalid node specififed."),
    "inserting a node without a fitting port": (lambda r: r["cable"].insert(r["nodes of the scene"]["Top/Sample-Card"]),
                                                "Failed to identify specified port."),
    "inserting at a port that isn't there": (lambda r: r["cable"].insert(r["camera"], 7),
                                             "Unable to determine the inport."),
    "inserting at a text": (lambda r: r["cable"].insert(r["camera"], "0"), "Unable to determine the inport."),
    "inserting into a node without an out-port": (lambda r: r["cable"].insert(r["camera"]),
                                                  "Failed to identify specified port."),
    "inserting by an in-port alone": (lambda r: r["cable"].insert(r["camera"], r["camera"].ports_in[0], 0),
                                      "Unable to determine the outport."),
}


@pytest.mark.parametrize("name", EDITS)
def test_an_edit_does_what_it_says_and_can_be_undone(edit, name):
    edit(*EDITS[name])


@pytest.mark.parametrize("name", REFUSALS)
def test_a_refused_edit_gives_its_sentence_and_changes_nothing(refuse, rig, name):
    rig["nodes of the scene"].create("PEG", "Top/Sample-Group/Sample-Free")
    refuse(*REFUSALS[name])


def test_a_link_gives_the_cable(rig):
    cable = rig["out-port"].link(rig["camera"])
    assert (cable.source_node, cable.destination_node) == (rig["peg"], rig["camera"])
    assert str(cable) == "Cable(Top/Sample-Peg, 0, Top/Sample-Camera, 0)"
    assert str(rig["camera"].ports_in[0].cable) == str(cable)


def test_a_cable_that_a_node_was_put_into_is_no_longer_one(rig):
    between = rig["cable"].insert(create(rig, "PEG"))
    assert between.source_node == rig["peg"] and between.destination_node.name == "New"
    assert support.message_of(lambda: rig["cable"].source) == support.APART


def test_the_place_of_the_way_in_serves_the_way_out_too(rig):
    group = create(rig, "GROUP", "Rig")
    for ports in (group.ports_in, group.ports_out):
        ports.create("peg"), ports.create("peg")
    rig["cable"].insert(group, 1, 0)
    assert group.ports_in[1].source_node == rig["peg"] and not group.ports_in[0].linked
    assert rig["in-port"].source.index == 1 and rig["in-port"].source_node == group


def test_a_group_is_seen_through_by_the_flat_views(rig):
    inner = rig["nodes of the scene"]["Top/Sample-Group/Sample-Inner"]
    port = inner.ports_in[0]
    assert port.source_node == rig["multi-port in"]
    assert port.source_node_flat == rig["peg"] and str(port.source_flat) == str(rig["out-port"])
    assert rig["group"] in rig["out-port"].destination_nodes
    assert inner in rig["out-port"].destination_nodes_flat
    assert inner in rig["flat cables"] and inner not in rig["cables"]
    # The flat cable of an in-port is a cable all the same, and its ends aren't linked directly.
    assert support.message_of(lambda: port.cable_flat.source_node) == support.APART


def test_a_port_of_a_group_knows_its_other_side(rig):
    outside = rig["port of a group"]
    inside = rig["multi-port in"].ports_out[0]
    assert str(outside.port_related) == str(inside) and str(inside.port_related) == str(outside)
    assert outside.node_related == rig["multi-port in"]
    assert inside.node_related is None and rig["in-port"].port_related is None


def test_a_port_keeps_its_id_while_its_place_changes(rig):
    ports = rig["dynamic in-ports"]
    first, second, third = ports[0], ports.create(), ports.create()
    ports.remove(0)
    assert [(p.index, p.id) for p in (second, third)] == [(0, 1), (1, 2)]
    assert support.message_of(lambda: first.index) == support.GONE
    assert [p.id for p in ports] == [1, 2]
    assert ports.create().id not in (1, 2)


def test_a_loop_over_flat_cables_sees_those_of_its_beginning(rig):
    seen = []
    for cable in rig["flat cables"]:
        seen.append(cable.destination_node.name)
        if cable.destination.source_node == rig["peg"]:
            cable.destination.unlink()
    assert sorted(seen) == ["Sample-Child", "Sample-Inner"]
    assert len(rig["out-port"].cables) == 1


def test_a_cutter_takes_a_matte_first(scene):
    cutter = scene.nodes.create("CUTTER", "Cut")
    assert [port.matte_port for port in cutter.ports_in] == [True, False]
    assert cutter.ports_in.matte_port.index == 0


def test_undo_links_in_the_same_order(rig, history):
    order = [node.name for node in rig["out-port"].destination_nodes]
    rig["in-port"].unlink()
    history.undo()
    assert [node.name for node in rig["out-port"].destination_nodes] == order
