"""Calls: the number of arguments, their names, defaults and types; attributes that aren't there; texts of objects."""

import gc
import weakref

import brindle
import pytest

import support

COUNTS = [
    ("peg", "parent_scene", (1,)), ("peg", "copy", (1,)), ("nodes of the scene", "create", ()),
    ("nodes of the scene", "create", ("PEG", "Top", "a", 1)), ("nodes of the scene", "remove", ()),
    ("double attribute", "set_value", (1,)), ("double attribute", "set_value", (1, 2.0, True, 4)),
    ("history", "undo", (1, 2)), ("column", "create_point", (1, 2.0)), ("cable", "insert", ()),
    ("application", "save_as", ()), ("application", "save", ("a", "b")),
]

FORMS = [
    ("peg", "parent_scene", (1,), {}, "can't be called with 1 argument; it is called as parent_scene()"),
    ("history", "undo", (1, 2), {}, "can't be called with 2 arguments; it is called as undo(count: int = 1)"),
    ("nodes of the scene", "create", (), {},
     "can't be called with 0 arguments; it is called as create(type: str, name: str = '') "
     "or create(type: str, group: NodesLike, name: str = '')"),
    ("history", "undo", (), {"counts": 1}, 'has no argument "counts"; it is called as undo(count: int = 1)'),
    ("history", "undo", (1,), {"ä": 2}, 'has no argument "ä"; it is called as undo(count: int = 1)'),
    ("history", "undo", (1,), {"count": 2}, "can't be called with 2 arguments; it is called as undo(count: int = 1)"),
]

TYPES = [
    ("double attribute", "set_value", ("1", 2.0), 0, "expected int for frame, not str"),
    ("double attribute", "set_value", (1.5, 2.0), 0, "expected int for frame, not float"),
    ("double attribute", "set_value", (1, "2"), 1, "expected float for value, not str"),
    ("double attribute", "set_value", (1, None), 1, "expected float for value, not NoneType"),
    ("double attribute", "set_value", (1, 2.0, "yes"), 2, "expected bool for adjust_column, not str"),
    ("bool attribute", "set_localvalue", ("yes",), 0, "expected bool for value, not str"),
    ("text attribute", "set_localvalue", (1,), 0, "expected str for value, not int"),
    ("nodes of the scene", "create", (1,), 0, "expected str for type, not int"),
    ("nodes of the scene", "contains", (1,), 0, "expected str for name, not int"),
    ("history", "undo", (-1,), 0, "expected a number from 0 to 4294967295 for count, not int"),
    ("history", "undo", (2**32,), 0, "expected a number from 0 to 4294967295 for count, not int"),
    ("history", "begin", (None,), 0, "expected str for name, not NoneType"),
    ("double attribute", "value", (2**31,), 0, "expected a number of 32 bits for frame, not int"),
    ("cable", "insert", ("Top/Arm",), 0, "expected Node | None for node, not str"),
    ("application", "save", (5,), 0, "expected str | PathLike[str] | None for path, not int"),
]

TEXTS = {
    "application": "BrindleApplication()",
    "project": "Brindle Base Project",
    "history": "Brindle Application History",
    "scenes": "Scenes()[1]",
    "scene": "Scene(Scene-1)",
    "nodes of a group": "NodeList(Group, Top/Sample-Group)[3]",
    "peg": "PegNode(Top/Sample-Peg)",
    "camera": "CameraNode(Top/Sample-Camera)",
    "display": "DisplayNode(Top/Display)",
    "read": "Node(Top/Sample-Read)",
    "group": "Group(Top/Sample-Group)",
    "coordinates": "NodeCoordinates(0, 32, 0)",
    "fixed in-ports": "InPorts(Top/Sample-Peg)[1]",
    "dynamic in-ports": "InPorts(Top/Composite)[1]",
    "fixed out-ports": "OutPorts(Top/Sample-Peg)[1]",
    "dynamic out-ports": "OutPorts(Top/Sample-Group)[0]",
    "in-port": "InPort(Top/Sample-Child, 0)",
    "out-port": "OutPort(Top/Sample-Peg, 0)",
    "cable": "Cable(Top/Sample-Peg, 0, Top/Sample-Child, 0)",
    "flat cable": "Cable(Top/Sample-Peg, 0, Top/Sample-Child, 0)",
    "cables": "CableList(Top/Sample-Peg, 0)",
    "flat cables": "FlatCableList(Top/Sample-Peg, 0)",
    "attributes": "AttributeList(Top/Sample-Peg)[10]",
    "subattributes": "AttributeList(Top/Sample-Peg, position)[3]",
    "attribute": "Pos3DAttr(Top/Sample-Peg, pivot)",
    "double attribute": "DoubleAttr(Top/Sample-Peg, angle)",
    "bool attribute": "BoolAttr(Top/Sample-Read, visible)",
    "int attribute": "IntAttr(Top/Sample-Card, colour.red)",
    "text attribute": "TextAttr(Top/Sample-Write, path)",
    "column": "BezierColumn(ATV-0001)",
    "column value": 'BezierColumnValue("ATV-0001", 5)',
    "control point": 'BezierControlPoint( "ATV-0001", 10 )',
    "control points": "ControlPointList(ATV-0001)[3]",
}


@pytest.mark.parametrize("name, method, arguments", COUNTS)
def test_a_wrong_number_of_arguments_is_a_type_error(samples, name, method, arguments):
    message = support.message_of(getattr(samples[name], method), *arguments, error=TypeError)
    assert message.startswith(f"{method}() can't be called with {len(arguments)} argument")


@pytest.mark.parametrize("name, method, arguments, named, message", FORMS)
def test_a_call_that_does_not_fit_is_told_the_forms_that_do(samples, name, method, arguments, named, message):
    with pytest.raises(TypeError) as failure:
        getattr(samples[name], method)(*arguments, **named)
    assert str(failure.value) == f"{method}() {message}"


@pytest.mark.parametrize("name, method, arguments, index, note", TYPES)
def test_an_argument_of_the_wrong_type_is_told_by_its_place_and_name(samples, name, method, arguments, index, note):
    with pytest.raises(brindle.ArgumentError) as failure:
        getattr(samples[name], method)(*arguments)
    assert str(failure.value) == f"Invalid argument at index {index}."
    assert failure.value.__notes__ == [note]


def test_arguments_may_be_named(peg):
    angle = peg.attributes["angle"]
    angle.set_value(value=3.0, frame=2)
    assert angle.value(frame=2) == 3.0


@pytest.mark.parametrize("call", [
    lambda a: a.set_value(1, 2.0), lambda a: a.set_value(1, 2.0, False),
    lambda a: a.set_value(1, 2.0, adjust_column=False),
    lambda a: a.set_value(1, 2), lambda a: a.set_value(True, 2.0),
])
def test_what_is_left_out_has_its_default(peg, call):
    call(peg.attributes["angle"])
    assert peg.attributes["angle"].value(1) == 2.0


class OwnInt(int):
    def fail(self, *arguments):
        raise ValueError("its own way")

    __bool__ = __index__ = __int__ = __float__ = __eq__ = fail
    __hash__ = int.__hash__


class OwnFloat(float):
    __float__ = __eq__ = OwnInt.fail
    __hash__ = float.__hash__


class OwnText(str):
    __str__ = __eq__ = encode = OwnInt.fail
    __hash__ = str.__hash__


def test_a_number_or_text_of_an_own_class_counts_as_what_it_is(scene, peg):
    angle = peg.attributes["angle"]
    angle.set_value(OwnInt(3), OwnFloat(2.5), OwnInt(1))
    assert angle.value(OwnInt(3)) == 2.5
    peg.enabled = OwnInt(0)
    assert peg.enabled is False
    scene.frame_count = OwnInt(70)
    assert scene.frame_count == 70
    assert scene.nodes.create(OwnText("PEG"), OwnText("Own")).path == "Top/Own"
    assert scene.nodes[OwnText("Top/Own")].name == "Own"


def test_a_trailing_flag_is_false_by_default(scene, peg, column):
    scene.nodes.remove(peg)
    assert column.name  # It is still there: only delete_columns=True removes it.


def test_a_missing_path_saves_in_place(app, folder):
    app.save()
    app.save(None)
    assert "project.json" in support.files(folder)


def test_a_node_is_created_where_its_arguments_say(scene):
    group = scene.nodes.create("GROUP", "Rig")
    assert scene.nodes.create("PEG", "a").path == "Top/a"
    assert scene.nodes.create("PEG", group, "b").path == "Top/Rig/b"
    assert scene.nodes.create("PEG", "Top/Rig", "c").path == "Top/Rig/c"
    assert scene.nodes.create("PEG", "Top/Rig/d").path == "Top/Rig/d"
    assert scene.nodes.create("PEG").path == "Top/Peg"
    assert scene.nodes.create(type="PEG", group=[group], name="e").path == "Top/Rig/e"


def test_an_unknown_attribute_is_an_attribute_error(samples):
    for sample in samples.values():
        with pytest.raises(AttributeError):
            sample.nothing_of_the_kind
        with pytest.raises(AttributeError):
            sample.nothing_of_the_kind = 1
        with pytest.raises(AttributeError):
            del sample.nothing_of_the_kind


def test_a_property_that_is_read_only_says_so(samples):
    for sample in samples.values():
        for entry in brindle._describe():
            if isinstance(sample, getattr(brindle, entry["name"])):
                for member in entry["properties"]:
                    if not member["writable"]:
                        message = support.message_of(setattr, sample, member["name"], 1)
                        assert message == "Property is read-only.", (sample, member["name"])


def test_a_property_cannot_be_deleted(peg):
    assert support.message_of(delattr, peg, "name", error=AttributeError) == "name can't be deleted"
    assert peg.name == "Arm"


@pytest.mark.parametrize("name", sorted({c["name"] for c in brindle._describe() if not c["constructors"]}))
def test_an_object_of_the_project_is_got_and_not_made(name):
    message = support.message_of(getattr(brindle, name), error=TypeError)
    assert message == f"{name} objects are got from the project, not made"


def test_a_value_class_is_made(app):
    assert str(brindle.Point2d()) == "Point2d(0, 0)"
    assert str(brindle.Point2d(1, y=2.5)) == "Point2d(1, 2.5)"
    assert str(brindle.Point3d(z=1)) == "Point3d(0, 0, 1)"
    message = ("Point2d() can't be called with 3 arguments; it is called as Point2d(value: PointLike) "
               "or Point2d(x: float = 0, y: float = 0)")
    assert support.message_of(brindle.Point2d, 1, 2, 3, error=TypeError) == message


@pytest.mark.parametrize("name", [name for name, (_, text) in support.VALUES.items() if text])
def test_a_value_shows_what_it_is_made_of(name):
    make, text = support.VALUES[name]
    assert repr(make()) == text


@pytest.mark.parametrize("name", TEXTS)
def test_an_object_says_what_it_is(app, name):
    sample = support.samples(app)[name]
    assert str(sample) == TEXTS[name]
    assert repr(sample) == f"<brindle.{type(sample).__name__}: {TEXTS[name]}>"


def test_an_object_without_a_length_is_true(samples):
    for sample in samples.values():
        # A texture has no colours at places, and is something all the same.
        if not hasattr(type(sample), "__len__") or isinstance(sample, brindle.PaletteBaseColour):
            assert bool(sample) is True
        else:
            assert bool(sample) == (len(sample) > 0)


def test_a_script_may_derive_a_class_of_its_own_from_a_value_class():
    class Pivot(brindle.Point2d):
        def __init__(self, *values):
            self.label = "pivot"

    pivot = Pivot(1, 2)
    assert (pivot.x, pivot.label, str(pivot)) == (1.0, "pivot", "Point2d(1, 2)")
    pivot.me = pivot
    seen = weakref.ref(pivot)
    del pivot
    gc.collect()
    assert seen() is None
