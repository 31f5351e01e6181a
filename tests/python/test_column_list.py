"""The columns of a scene: found, made, removed, and what they drive."""

import brindle
import pytest

import support

TYPES = ["3D_PATH", "ANNOTATION", "BEZIER", "DRAWING", "EASE", "EXPR", "FILE_LIBRARY", "QUATERNION_PATH", "SOUND",
         "TIMING", "VELOBASED"]
CLASSES = {"BEZIER": brindle.BezierColumn, "EASE": brindle.EaseColumn, "VELOBASED": brindle.VeloBasedColumn,
           "3D_PATH": brindle.Path3DColumn, "QUATERNION_PATH": brindle.QuaternionColumn, "SOUND": brindle.Column,
           "ANNOTATION": brindle.Column, "FILE_LIBRARY": brindle.Column, "EXPR": brindle.ExpressionColumn,
           "TIMING": brindle.DrawingTimingColumn}


@pytest.fixture
def columns(scene, history):
    columns = scene.columns
    for name in ("Arm", "Leg", "Leg 2"):
        columns.create("BEZIER", name)
    history.clear()
    return columns


def names(columns):
    return [column.name for column in columns]


def test_a_list_says_what_it_is(columns):
    assert str(columns) == "ColumnList(Scene-1)[3]"
    assert len(columns) == 3
    assert names(columns) == names(columns.list()) == ["Arm", "Leg", "Leg 2"]
    assert columns[1].name == columns["Leg"].name == columns.get(1).name == "Leg"
    assert columns["Foot"] is None
    assert list(columns._ipython_key_completions_()) == ["Arm", "Leg", "Leg 2"]


@pytest.mark.parametrize("index", [3, 100, -4])
def test_an_index_beyond_an_end_fails(columns, index):
    with pytest.raises((brindle.Error, IndexError)):
        columns[index]
    with pytest.raises(brindle.Error, match="^Index is out of range.$"):
        columns.get(abs(index))


def test_a_wildcard_gives_the_first_match_and_find_all(columns):
    assert columns("Leg*").name == "Leg"
    assert columns("?rm").name == "Arm"
    assert columns("leg*") is None
    assert names(columns.find("Leg*")) == ["Leg", "Leg 2"]
    assert columns.find("x") == []


def test_a_loop_over_no_columns_fails(scene):
    with pytest.raises(brindle.Error, match="^Column List is empty.$"):
        for _ in scene.columns:
            pass
    assert scene.columns.list() == []


def test_it_cannot_be_set(columns):
    with pytest.raises(brindle.Error, match="^Column Lists cannot be set.$"):
        columns[0] = columns[1]


@pytest.mark.parametrize("type_", CLASSES)
def test_each_kind_is_made_and_undone(scene, history, state, type_):
    before = state()
    made = scene.columns.create(type_.lower(), "Made")
    assert type(made) is CLASSES[type_]
    assert made.type == type_
    assert not made.anonymous
    assert history.list() == ["Add Column"]
    assert "Made" in scene.columns and made in scene.columns
    history.undo(1)
    assert state().saved == before.saved
    with pytest.raises(brindle.Error, match="^Object is no longer valid.$"):
        made.name
    history.redo(1)
    assert scene.columns["Made"].type == type_


def test_without_a_name_it_is_anonymous(scene):
    first, second = scene.columns.create("bezier"), scene.columns.create("bezier", "")
    assert first.anonymous and second.anonymous
    assert first.name and first.name != second.name


def test_options_of_other_kinds_are_not_read(scene):
    assert scene.columns.create("BEZIER", "a", 42).name == "a"


@pytest.mark.parametrize("call, sentence", [
    (lambda c: c.create("BEZIER", "Leg"), "Column with name Leg already exists."),
    (lambda c: c.create("CURVE", "x"), "Undefined Column type. Acceptable values include: " + ", ".join(TYPES)),
    (lambda c: c.create("", "x"), "Undefined Column type. Acceptable values include: " + ", ".join(TYPES)),
    (lambda c: c.create("DRAWING", "a", "COLOR"),
     'Drawing options should be in form: { "scanType" : "type", "fieldChart" : double, "pixmapFormat" : "format", '
     '"vectorType" : "type", "createNode" : bool }'),
    (lambda c: c.create("DRAWING", "a", {"scanType": "x"}), "Only accepted scan-types are : COLOR, GRAY_SCALE, BW"),
    (lambda c: c.create("DRAWING", "a", {"fieldChart": float("nan")}), "Invalid argument at index 2."),
    (lambda c: c.remove("nope"), "Failed to find column by name: nope"),
    (lambda c: c.remove(["Arm", "nope", "no"]), "Failed to find column by name: nope\n"
                                                "Failed to find column by name: no"),
    (lambda c: c.remove(3), "Column index is out of range."),
    (lambda c: c.remove(-1), "Column index is out of range."),
    (lambda c: c.remove(None), "Failed to find specified column."),
    (lambda c: c.remove([]), "Failed to find specified column."),
    (lambda c: c.remove(2.5), "Failed to find specified column."),
    (lambda c: c.linked_nodes("nope"), "Failed to find column by name: nope"),
    (lambda c: c.linked_attributes(None), "Failed to find specified column."),
    (lambda c: c.contains(7), "Index is out of range."),
])
def test_what_is_refused(columns, state, call, sentence):
    before = state()
    with pytest.raises(brindle.Error) as failure:
        call(columns)
    assert str(failure.value) == sentence
    assert state() == before


def test_all_errors_of_drawing_options_come_in_one_message(columns, state):
    before = state()
    with pytest.raises(brindle.Error) as failure:
        columns.create("DRAWING", "a", {"scanType": "x", "pixmapFormat": "y"})
    assert str(failure.value).startswith("Only accepted scan-types are : COLOR, GRAY_SCALE, BW\n"
                                         "Failed to find a valid file format. \n Valid formats: ")
    assert state() == before


@pytest.mark.parametrize("selector, left, label", [
    ("Arm", ["Leg", "Leg 2"], "Removing columns"),
    (1, ["Arm", "Leg 2"], "Removing columns"),
    (["Leg 2", "Arm"], ["Leg"], "Removing column"),
])
def test_removing_is_one_entry(columns, history, state, selector, left, label):
    before = state()
    columns.remove(selector)
    assert names(columns) == left
    assert history.list() == [label]
    history.undo(1)
    assert state().saved == before.saved
    history.redo(1)
    assert names(columns) == left


def test_a_removed_column_is_gone_for_ever(columns, history):
    column = columns["Leg"]
    columns.remove(column)
    history.undo(1)
    with pytest.raises(brindle.Error, match="^Object is no longer valid.$"):
        column.name
    with pytest.raises(brindle.Error, match="^Unable to identify the column.$"):
        columns.remove(column)
    assert column not in columns


def test_a_column_in_use_is_not_removed_and_nor_are_the_others(scene, columns, peg, state):
    for keyword in ("angle", "skew"):
        peg.attributes[keyword].column = columns["Leg"]
    assert [node.name for node in columns.linked_nodes("Leg")] == ["Arm"]
    assert [attribute.keyword for attribute in columns.linked_attributes(["Leg", "Arm"])] == ["angle", "skew"]
    before = state()
    with pytest.raises(brindle.Error, match=r"^Column is still linked : Leg \[1 nodes\]$"):
        columns.remove(["Arm", "Leg"])
    assert state() == before
    peg.attributes["angle"].unlink()
    peg.attributes["skew"].unlink()
    columns.remove("Leg")
    assert columns["Leg"] is None


def test_a_velocity_belongs_to_its_path(scene, state):
    path = scene.columns.create("3D_PATH", "Flight")
    velocity = path.velocity_column
    assert velocity.name == "Flight Velocity"
    assert velocity not in scene.columns and "Flight Velocity" not in scene.columns
    before = state()
    for call, sentence in ((lambda: scene.columns.remove(velocity), "Failed to remove column: Flight Velocity"),
                           (lambda: setattr(velocity, "name", "x"), "Failed to rename the column."),
                           (lambda: velocity.scale(2), "Failed to scale the column.")):
        with pytest.raises(brindle.Error) as failure:
            call()
        assert str(failure.value) == sentence
        assert state() == before
    scene.columns.remove(path)
    with pytest.raises(brindle.Error, match="^Object is no longer valid.$"):
        velocity.name


def test_every_kind_is_saved_and_opened(app, folder):
    columns = app.scene.columns
    columns.create("EASE", "ease").create_point(3, 1.5, 2, 10, 4, 200, True, "STRAIGHT")
    columns.create("VELOBASED", "velocity").create_point(3, 1.5)
    columns.create("3D_PATH", "path").create_point(3, 1, 2, 3, 0.5, -0.5, 1)
    columns["path"].create_point(30, 4, 5, 6, 0, 0, 0)
    columns["path"][3].const_segment = True
    columns["path"].hold_step = 3
    columns.create("QUATERNION_PATH", "turn").create_point(3, 10, 20, 30, 0, 0, 0)
    app.save()
    files = support.files(folder)
    app.close()
    with brindle.open(folder) as again:
        assert {column.name: column.type for column in again.scene.columns} == {
            "ease": "EASE", "velocity": "VELOBASED", "path": "3D_PATH", "turn": "QUATERNION_PATH"}
        again.save()
        assert support.files(folder) == files
        path = again.scene.columns["path"]
        assert path[3].const_segment and path[3].tension == 0.5 and path.hold_step == 3
        assert path.get_entry(29).x == 1


def test_a_drawing_column_has_an_element_and_a_node(scene, history, state):
    before = state()
    made = scene.columns.create("drawing", "Arm", {"scanType": "bw", "vectorType": "nonsense"})
    assert made.type == "DRAWING"
    assert history.list() == ["Add Column"]
    assert [node.path for node in made.linked_nodes] == ["Top/Arm"]
    assert scene.nodes["Top/Arm"].type == "READ"
    refused = "Column is still linked : Arm [1 nodes]"
    assert support.message_of(scene.columns.remove, "Arm") == refused
    assert [node.path for node in scene.columns.linked_nodes("Arm")] == ["Top/Arm"]
    assert scene.columns.linked_attributes("Arm") == []
    history.undo(1)
    assert state().saved == before.saved
    history.redo(1)
    assert scene.columns["Arm"].linked_nodes


@pytest.mark.parametrize("options", [None, {"vectorType": "PNT"}, {"vectorType": ""}])
def test_a_drawing_column_holds_vector_drawings_until_its_element_says_else(scene, options):
    element = scene.columns.create("DRAWING", "Arm", options).element
    assert element.vector_type == "PNT"
    element.vector_type = ""
    assert element.drawings.create("1").initialize() is None
    element.vector_type = "PNT"
    assert element.drawings.create("2").initialize() is not None


def test_a_drawing_column_without_a_node(scene):
    nodes = len(scene.nodes)
    assert scene.columns.create("DRAWING", "", {"createNode": False}).anonymous
    assert len(scene.nodes) == nodes
