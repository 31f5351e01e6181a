"""Metadata of scenes and nodes: what a script reads and writes, what the undo list calls it, and what a project keeps of it."""

import brindle
import pytest

import support

SEVERAL = "More than one metadata was found with supplied name -- please remove one and try again."


@pytest.fixture
def metadata(scene):
    return scene.metadata


def test_a_missing_key_gives_a_pair_without_a_value(metadata):
    pair = metadata["x"]
    assert (pair.key, pair.exists, pair.type, pair.value) == ("x", False, "NULL", None)
    assert support.message_of(lambda: pair.creator) == "Unable to find metadata."
    assert str(pair) == "MetaDataPair(Scene, Scene-1, x)" and str(metadata) == "MetadataHandler(Scene, Scene-1)"
    assert "x" not in metadata and not len(metadata) and list(metadata) == []


def test_it_reads_like_a_dictionary(metadata):
    metadata["shot"] = "SQ010"
    metadata["takes"] = 3
    metadata.set("seconds", 2.5)
    metadata["approved"].value = True
    assert metadata.map() == {"approved": True, "seconds": 2.5, "shot": "SQ010", "takes": 3}
    assert [(pair.key, pair.type) for pair in metadata] == [("shot", "TEXT"), ("takes", "DOUBLE"),
                                                            ("seconds", "DOUBLE"), ("approved", "BOOL")]
    assert [pair.value for pair in metadata.list()] == ["SQ010", 3, 2.5, True]
    assert metadata[1].key == metadata.create_metadata_pair_at_idx(1).key == metadata.get(1).key == "takes"
    assert type(metadata[1].value) is int and metadata[3].value is True
    assert "SHOT" in metadata and metadata.contains("Shot") and 3 not in metadata
    assert metadata["shot"].creator == "brindle"
    assert [pair.key for pair in metadata[1:3]] == ["takes", "seconds"]


EDITS = {
    "a new value": (lambda m: m.set("a", 1), ":a", {"Shot": "x", "a": 1}),
    "a value of the same kind": (lambda m: m.set("shot", "y"), ":shot", {"Shot": "y"}),
    "a value of another kind": (lambda m: m.set("shot", 1.5), ":shot", {"shot": 1.5}),
    "the value at an index": (lambda m: m.set(0, False), ":Shot", {"Shot": False}),
    "no value": (lambda m: m.set("SHOT", None), ":SHOT", {}),
    "a removal": (lambda m: m.remove("shot"), ":shot", {}),
    "a value that no entry takes": (lambda m: m.set("shot", [1]), ":shot", {}),
    "a creator": (lambda m: setattr(m["shot"], "creator", "me"), ":shot", {"Shot": "x"}),
    "a version": (lambda m: setattr(m["shot"], "version", "2"), ":shot", {"Shot": "x"}),
    "a name of any letters": (lambda m: m.set("é \n%1\u0000", "v"), ":é \n%1\u0000", {"Shot": "x", "é \n%1\u0000": "v"}),
}


@pytest.mark.parametrize("name", EDITS)
def test_a_change_is_one_entry_that_undoes_and_redoes(app, folder, history, metadata, name):
    call, label, values = EDITS[name]
    metadata["Shot"] = "x"
    metadata["Shot"].creator = "breakdown"
    history.clear()
    before = support.saved(app, folder)
    call(metadata)
    assert history.list() == [f"Set Scene Metadata {label}"]
    assert metadata.map() == values
    after = support.saved(app, folder)
    for _ in range(2):
        history.undo(1)
        assert support.saved(app, folder) == before
        history.redo(1)
        assert support.saved(app, folder) == after
    with brindle.open(folder) as again:
        assert again.scene.metadata.map() == values


REFUSALS = {
    "an empty name": (lambda m: m.set("", 1), "Failed to create the metadata."),
    "no number": (lambda m: m.set("shot", float("nan")), "Failed to update the metadata."),
    "an infinite number": (lambda m: m.set("new", float("inf")), "Failed to update the metadata."),
    "the creator of nothing": (lambda m: setattr(m["x"], "creator", "me"),
                               "Unable to find the original metadata value."),
    "the version of nothing": (lambda m: setattr(m["x"], "version", "1"),
                               "Unable to find the original metadata value."),
    "an index behind the last": (lambda m: m[1], "Index is out of range."),
    "an index ahead of the first": (lambda m: m.set(-1, 1), "Index is out of range."),
}


@pytest.mark.parametrize("name", REFUSALS)
def test_a_refusal_leaves_everything(state, metadata, name):
    call, message = REFUSALS[name]
    metadata["shot"] = "x"
    before = state()
    assert support.message_of(call, metadata) == message
    assert state() == before


def test_several_entries_of_a_name_are_read_and_not_written(app, folder, scene):
    """As a file may have them that another program wrote."""
    scene.metadata["a"] = 1
    scene.metadata["b"] = "two"
    support.saved(app, folder)
    app.close()
    path = folder / "scenes" / "Scene-1.json"
    path.write_text(path.read_text().replace('"name": "b"', '"name": "A"'))
    with brindle.open(folder) as again:
        metadata = again.scene.metadata
        pair = metadata["a"]
        assert (pair.type, pair.value, pair.exists, len(metadata)) == ("MULTIPLE", [1, "two"], True, 2)
        assert support.message_of(setattr, pair, "value", 3) == SEVERAL
        assert support.message_of(metadata.remove, "A") == SEVERAL
        assert again.project.history.size_total == 0


def test_removing_what_is_not_there_is_no_error_and_no_entry(history, metadata):
    metadata.remove("x")
    metadata["x"] = None
    assert history.list() == []


def test_a_node_keeps_its_metadata_in_attributes_of_its_own(app, folder, history, peg):
    metadata = peg.metadata
    assert str(metadata) == "MetadataHandler(Node, Top/Arm)" and not len(metadata) and "a" not in metadata
    assert (metadata["a"].type, metadata["a"].value, metadata["a"].exists) == ("NULL", None, False)
    values = {"approved": True, "takes": 3, "seconds": 2.5, "shot": "SQ010"}
    for key, value in values.items():
        before = support.saved(app, folder)
        metadata[key] = value
        assert history.list()[-1] == f"Set Node Metadata :{key}"
        after = support.saved(app, folder)
        history.undo(1)
        assert support.saved(app, folder) == before
        history.redo(1)
        assert support.saved(app, folder) == after
    assert metadata.map() == values and type(metadata["takes"].value) is int
    assert {pair.key: pair.type for pair in metadata} == {"approved": "BOOL", "takes": "DOUBLE", "seconds": "DOUBLE",
                                                          "shot": "TEXT"}
    assert peg.attributes["meta.takes"].localvalue() == 3 and peg.attributes["meta.takes"].dynamic
    assert "SHOT" not in metadata and "shot" in metadata
    assert str(metadata["shot"]) == "MetaDataPair(Node, Top/Arm, shot)"
    metadata["shot"] = 1.5
    metadata["takes"].value = 4
    metadata.remove("approved")
    values = {"seconds": 2.5, "shot": 1.5, "takes": 4}
    assert metadata.map() == values
    app.save()
    with brindle.open(folder) as again:
        assert again.scene.nodes["Top/Arm"].metadata.map() == values


def test_metadata_of_a_node_is_in_the_order_of_its_names(peg):
    metadata = peg.metadata
    for key, value in {"b": 1, "a": 2, "B": 3}.items():
        metadata[key] = value
    metadata.set(1, "text")
    assert [pair.key for pair in metadata] == [pair.key for pair in metadata.list()] == ["B", "a", "b"]
    assert metadata.map() == {"B": 3, "a": "text", "b": 1}
    assert [metadata[index].key for index in range(3)] == ["B", "a", "b"]
    assert metadata.create_metadata_pair_at_idx(2).key == "b"


def test_a_node_has_no_creators_and_refuses_what_it_cannot_keep(state, peg):
    peg.metadata["shot"] = "x"
    pair = peg.metadata["shot"]
    creator = "Creator information on node metadata is not supported."
    version = "Version information on node metadata is not supported."
    failed = "Failed to modify metadata."
    before = state()
    for call, message in ((lambda: pair.creator, creator), (lambda: setattr(pair, "creator", "me"), creator),
                          (lambda: pair.version, version), (lambda: setattr(pair, "version", "1"), version),
                          (lambda: setattr(pair, "value", [1]), failed), (lambda: setattr(pair, "value", 2**40), failed),
                          (lambda: setattr(pair, "value", float("nan")), failed),
                          (lambda: peg.metadata.set("", 1), failed), (lambda: peg.metadata.set("a.b", 1), failed),
                          (lambda: peg.metadata[1], "Index is out of range.")):
        assert support.message_of(call) == message
        assert state() == before
    peg.metadata.remove("x")
    assert state() == before


def test_an_attribute_of_that_name_which_is_no_group_is_left_alone(state, peg):
    peg.attributes.create_dynamic_attr("meta", "INT")
    before = state()
    assert support.message_of(peg.metadata.set, "a", 1) == "Failed to find metadata information."
    assert not len(peg.metadata) and state() == before
