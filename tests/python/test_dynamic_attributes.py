"""Attributes that a script adds to a node: making them, using them like others, taking them away, keeping them."""

import brindle
import pytest

import support

CREATE = ["Create Dynamic Attribute"]
REMOVE = ["Remove Dynamic Attribute"]
TYPES = ["BOOL", "COLOUR", "DOUBLE", "DOUBLE_VB", "DYNAMIC_GROUP", "INT", "POSITION_2D", "POSITION_3D", "ROTATION_3D", "SCALE_3D",
         "STRING"]


@pytest.fixture
def peg(app):
    peg = app.scene.nodes.create("PEG", "Peg")
    app.project.history.clear()
    return peg


def labels(app):
    return app.project.history.list()


def paths(attributes):
    return [attribute.full_keyword for attribute in attributes]


@pytest.mark.parametrize("type_", TYPES)
def test_each_type_is_made_and_undone(app, folder, peg, type_):
    before = support.saved(app, folder)
    attribute = peg.attributes.create_dynamic_attr("mine", type_.lower(), "Mine")
    assert (attribute.keyword, attribute.display_name, attribute.type) == ("mine", "Mine", type_)
    assert attribute.dynamic and not attribute.linkable
    assert attribute == peg.attributes["mine"] and attribute in peg.attributes
    assert labels(app) == CREATE
    after = support.saved(app, folder)
    app.project.history.undo(1)
    assert support.saved(app, folder) == before
    with pytest.raises(brindle.Error, match="Object is no longer valid."):
        attribute.type
    app.project.history.redo(1)
    assert support.saved(app, folder) == after
    with pytest.raises(brindle.Error, match="Object is no longer valid."):
        attribute.type


def test_a_dotted_name_makes_its_groups_in_the_same_step(app, peg):
    attribute = peg.attributes.create_dynamic_attr("meta.shot.take", "INT")
    assert (attribute.full_keyword, attribute.display_name) == ("meta.shot.take", "take")
    assert [peg.attributes[path].type for path in ("meta", "meta.shot")] == ["DYNAMIC_GROUP"] * 2
    assert labels(app) == CREATE
    peg.attributes.create_dynamic_attr("meta.shot.scene", "STRING")
    assert paths(peg.attributes["meta.shot"].subattributes) == ["meta.shot.take", "meta.shot.scene"]
    app.project.history.undo(2)
    assert peg.attributes["meta"] is None


def test_a_list_adds_at_its_own_level(app, peg):
    peg.attributes.create_dynamic_attr("meta", "DYNAMIC_GROUP")
    inside = peg.attributes["meta"].subattributes
    assert inside.create_dynamic_attr("take", "INT").full_keyword == "meta.take"
    assert inside.create_dynamic_attr("shot.name", "STRING").full_keyword == "meta.shot.name"
    assert paths(inside) == ["meta.take", "meta.shot"]
    inside.remove_dynamic_attr("shot.name")
    inside.remove_dynamic_attr("meta.shot")
    inside.remove_dynamic_attr("take")
    assert len(inside) == 0


def test_values_of_all_types_are_set_and_kept(app, folder, peg):
    create = peg.attributes.create_dynamic_attr
    create("flag", "BOOL").set_localvalue(True)
    create("meta.take", "INT").set_localvalue(-2**31)
    create("meta.weight", "DOUBLE").set_localvalue(1e300)
    create("meta.note", "STRING").set_localvalue("ä\n\U0001f600")
    create("place", "POSITION_3D")
    peg.attributes["place.z"].set_localvalue(2.5)
    create("tint", "COLOUR")
    peg.attributes["tint.green"].set_localvalue(7)
    saved = support.saved(app, folder)
    with brindle.open(folder) as again:
        attributes = again.scene.nodes["Top/Peg"].attributes
        assert [attributes[path].localvalue() for path in
                ("flag", "meta.take", "meta.weight", "meta.note", "place.z", "tint.green", "tint.red")] == [
            True, -2**31, 1e300, "ä\n\U0001f600", 2.5, 7, 255]
        assert attributes["meta"].dynamic and attributes["place.z"].dynamic and not attributes["angle"].dynamic
        assert support.saved(again, folder) == saved


def test_a_linkable_one_is_animated(app, folder, peg):
    attribute = peg.attributes.create_dynamic_attr("meta.weight", "DOUBLE", "Weight", True)
    assert attribute.linkable
    attribute.set_value(1, 0.0)
    attribute.set_value(11, 10.0)
    assert attribute.value(6) == pytest.approx(5.0)
    column = attribute.column
    assert column.display_name == "Peg: meta.weight"
    saved = support.saved(app, folder)
    peg.attributes.remove_dynamic_attr("meta")
    assert labels(app)[-1:] == REMOVE and column.linked_nodes == []
    app.project.history.undo(1)
    assert support.saved(app, folder) == saved
    assert peg.attributes["meta.weight"].value(6) == pytest.approx(5.0)
    with brindle.open(folder, discard=True) as again:
        assert again.scene.nodes["Top/Peg"].attributes["meta.weight"].value(6) == pytest.approx(5.0)


@pytest.mark.parametrize("by", ["attribute", "keyword", "path"])
def test_it_is_taken_away(app, folder, peg, by):
    attributes = peg.attributes
    attribute = attributes.create_dynamic_attr("meta.take" if by == "path" else "take", "INT")
    before = support.saved(app, folder)
    attributes.remove_dynamic_attr({"attribute": attribute, "keyword": "take", "path": "meta.take"}[by])
    assert labels(app) == CREATE + REMOVE
    assert attribute.full_keyword not in attributes
    app.project.history.undo(1)
    assert support.saved(app, folder) == before


def test_a_node_takes_them_along_when_it_moves(app, folder, peg):
    peg.attributes.create_dynamic_attr("meta.take", "INT", "", True).set_value(5, 7)
    group = app.scene.nodes.create("GROUP", "Group")
    before = support.saved(app, folder)
    peg.move_to(group)
    assert peg.path == "Top/Group/Peg"
    assert peg.attributes["meta.take"].value(5) == 7
    assert [each.full_keyword for each in peg.attributes["meta.take"].column.linked_attributes] == ["meta.take"]
    app.project.history.undo(1)
    assert support.saved(app, folder) == before


REFUSALS = {
    "a type that there isn't": (lambda a: a.create_dynamic_attr("new", "NOTHING"),
                                "Attribute type is not valid. Available types include : " + ", ".join(TYPES)),
    "no type": (lambda a: a.create_dynamic_attr("new", ""),
                "Attribute type is not valid. Available types include : " + ", ".join(TYPES)),
    "below an attribute of the type": (lambda a: a.create_dynamic_attr("position.w", "INT"),
                                       "Parent attribute does not support sub attributes."),
    "below one of another type": (lambda a: a.create_dynamic_attr("meta.take.x", "INT"),
                                  "Attribute path does not support sub attributes."),
    "a name that the type has": (lambda a: a.create_dynamic_attr("angle", "INT"), "Failed to create the attribute."),
    "a name that was added": (lambda a: a.create_dynamic_attr("meta.take", "INT"), "Failed to create the attribute."),
    "no name": (lambda a: a.create_dynamic_attr("", "INT"), "Failed to create the attribute."),
    "no last name": (lambda a: a.create_dynamic_attr("new.", "INT"), "Failed to create the attribute."),
    "no first name": (lambda a: a.create_dynamic_attr(".new", "INT"), "Failed to create the attribute."),
    "no name between": (lambda a: a.create_dynamic_attr("new..x", "INT"), "Failed to create the attribute."),
    "far too deep": (lambda a: a.create_dynamic_attr("a." * 100_000 + "x", "INT"), "Failed to create the attribute."),
    "taking one of the type": (lambda a: a.remove_dynamic_attr("angle"), "Unexpected attribute type."),
    "taking nothing": (lambda a: a.remove_dynamic_attr("nothing"), "Unexpected attribute type."),
    "taking what is no attribute": (lambda a: a.remove_dynamic_attr(7), "Unexpected attribute type."),
    "taking one of another node": (lambda a: a.remove_dynamic_attr(
        a["angle"].node().parent_scene().nodes["Top/Other"].attributes["mine"]), "Unexpected attribute type."),
    "taking a part of an attribute": (lambda a: a.remove_dynamic_attr("place.x"), "Failed to remove the attribute."),
}


@pytest.mark.parametrize("call, sentence", REFUSALS.values(), ids=REFUSALS)
def test_what_is_refused_changes_nothing(app, folder, peg, call, sentence):
    app.scene.nodes.create("PEG", "Other").attributes.create_dynamic_attr("mine", "INT")
    peg.attributes.create_dynamic_attr("meta.take", "INT")
    peg.attributes.create_dynamic_attr("place", "POSITION_3D")
    before, entries = support.saved(app, folder), labels(app)
    with pytest.raises(brindle.Error) as failure:
        call(peg.attributes)
    assert str(failure.value) == sentence
    assert (support.saved(app, folder), labels(app)) == (before, entries)


def test_the_node_may_go_inside_a_bracket(app, folder, peg):
    before = support.saved(app, folder)
    with app.project.history.bracket("All"):
        attribute = peg.attributes.create_dynamic_attr("meta.take", "INT")
        inside = peg.attributes["meta"].subattributes
        app.scene.nodes.remove(peg)
        for call in (lambda: attribute.set_localvalue(1), lambda: inside.create_dynamic_attr("x", "INT"),
                     lambda: inside.remove_dynamic_attr("take"), lambda: len(inside)):
            with pytest.raises(brindle.Error, match="Object is no longer valid."):
                call()
    assert labels(app) == ["All"]
    app.project.history.undo(1)
    assert support.saved(app, folder) == before


DAMAGE = {
    "a group that isn't there": ('[{"path": "meta.take", "type": "INT"}]',
                                 "added[0].path is not inside a group that was added ahead of it"),
    "a part of an attribute": ('[{"path": "position.w", "type": "INT"}]',
                               "added[0].path is not inside a group that was added ahead of it"),
    "a path that is taken": ('[{"path": "angle", "type": "INT"}]',
                             "added[0].path is the path of another attribute of the node"),
    "one twice": ('[{"path": "a", "type": "INT"}, {"path": "a", "type": "INT"}]',
                  "added[1].path is the path of another attribute of the node"),
    "no path": ('[{"path": "", "type": "INT"}]', "added[0].path is not a path that an attribute can have"),
    "an unknown type": ('[{"path": "a", "type": "NOTHING"}]',
                        "added[0].type is no type of attribute that a node can be given"),
    "a field too many": ('[{"path": "a", "type": "INT", "more": 1}]', "added[0].more is an unknown field"),
}


@pytest.mark.parametrize("added, sentence", DAMAGE.values(), ids=DAMAGE)
def test_a_damaged_file_is_refused_with_the_place(app, folder, peg, added, sentence):
    app.save()
    app.close()
    (path,) = folder.glob("scenes/*.json")
    text = path.read_text()
    path.write_text(text.replace('"type": "PEG",', '"type": "PEG", "added": ' + added + ",", 1))
    with pytest.raises(brindle.Error) as failure:
        brindle.open(folder)
    assert sentence in str(failure.value)


def test_a_velocity_number_gets_a_velocity_column(app, folder, peg):
    attribute = peg.attributes.create_dynamic_attr("speed", "double_vb", "Speed", True)
    assert isinstance(attribute, brindle.DoubleAttribute) and attribute.type == "DOUBLE_VB"
    app.project.history.clear()
    before = support.saved(app, folder)
    attribute.set_value(5, 2.5)
    assert type(attribute.column) is brindle.VeloBasedColumn
    assert labels(app) == ["Set Attribute Value"]
    attribute.set_value(15, 7.5)
    attribute.offset_value([5, 15], 1)
    assert [attribute.value(frame) for frame in (1, 5, 15, 60)] == [2.5, 3.5, 8.5, 7.5]
    assert 3.5 < attribute.value(10) < 8.5
    app.project.history.undo(3)
    assert support.saved(app, folder) == before
    app.project.history.redo(3)
    app.save()
    app.close()
    with brindle.open(folder) as again:
        attribute = again.scene.nodes["Top/Peg"].attributes["speed"]
        assert (attribute.type, attribute.value(15), attribute.column.type) == ("DOUBLE_VB", 8.5, "VELOBASED")
