"""Values on their way into the object model and back."""

import math
import pathlib
import re
import sys
import types

import brindle
import pytest

import support


class Colour(str):
    """A text of a script's own class."""


class Frame(int):
    """A number of a script's own class."""


class BytesPath(pathlib.PurePosixPath):
    """A path that gives its text as bytes."""

    def __fspath__(self):
        return b"x"


# A property of text shows what single values become.
AS_TEXT = [
    (True, "true"), (False, "false"), (0, "0"), (-7, "-7"), (2**31 - 1, "2147483647"), (2**31, "2147483648"),
    (-2**31 - 1, "-2147483649"), (2**63 - 1, "9223372036854775807"), (-2**63, "-9223372036854775808"), (1.5, "1.5"),
    (1e300, "1e+300"), ("", ""), ("Arm", "Arm"), ("äöü", "äöü"), ("\U0001f600", "\U0001f600"), ("a\0b", "a\0b"),
    (Colour("red"), "red"), (Frame(3), "3"), (pathlib.PurePosixPath("a/b"), "a/b"), (pathlib.Path("c"), "c"),
]

# A property that takes no such value names the type that arrived.
ARRIVES_AS = [
    (None, "NoneType"), (2**31, "qlonglong"), (-2**63, "qlonglong"), (1e300, "double"), ("Arm", "QString"), ("", "QString"), (pathlib.Path("a"), "QString"),
    (["a", "b"], "QStringList"), (("a",), "QStringList"),
    ([], "QVariantList"), ((), "QVariantList"), (["a", 1], "QVariantList"), ([1, 2.5], "QVariantList"),
    ([["a"]], "QVariantList"), ({}, "QVariantMap"), ({"a": [1]}, "QVariantMap"),
    (range(2), "QVariantList"), (re.compile("x"), "QRegularExpression"), (brindle.Point2d(), "QObject*"),
]

REFUSED = [
    (b"x", "A value of type bytes can't be used here"), ({1}, "A value of type set can't be used here"),
    (object(), "A value of type object can't be used here"), (1j, "A value of type complex can't be used here"),
    (bytearray(2), "A value of type bytearray can't be used here"), ([1, [b"x"]], "A value of type bytes can't be used here"),
    ({"a": b"x"}, "A value of type bytes can't be used here"), ({1: 2}, "The keys of a dict must be str, not int"),
    (re.compile(b"x"), "A pattern must be of str, not bytes"), (BytesPath("x"), "A path must be of str, not bytes"),
]


@pytest.mark.parametrize("value, text", AS_TEXT, ids=repr)
def test_a_single_value_arrives(scene, value, text):
    scene.objectName = value
    assert scene.objectName == text


@pytest.mark.parametrize("value, name", ARRIVES_AS, ids=repr)
def test_a_value_of_the_wrong_type_is_refused_by_the_name_of_its_type(scene, state, value, name):
    before = state()
    message = support.message_of(setattr, scene, "frame_count", value)
    assert message == f"Failed to write the property (Argument Type {name})"
    assert state() == before


@pytest.mark.parametrize("value", [math.nan, math.inf, -math.inf])
@pytest.mark.parametrize("name", ["frame_count", "framerate"])
def test_a_number_that_is_not_finite_is_refused_by_the_name_of_the_property(scene, state, name, value):
    before = state()
    message = f"The property {name} takes finite numbers only."
    assert support.message_of(setattr, scene, name, value) == message
    assert support.message_of(getattr(scene, f"set_{name}"), value) == message
    assert state() == before


def test_a_dead_object_says_so_whatever_it_is_written_with(app):
    scene = app.scene
    app.close()
    assert support.message_of(setattr, scene, "framerate", math.nan) == support.GONE


@pytest.mark.parametrize("value, message", REFUSED, ids=repr)
def test_what_the_table_of_values_does_not_have_is_a_type_error(scene, state, value, message):
    before = state()
    assert support.message_of(setattr, scene, "frame_count", value, error=TypeError) == message
    assert support.message_of(scene.nodes.find, value, error=TypeError) == message
    assert state() == before


def test_a_text_that_is_given_as_a_path_of_bytes_is_a_type_error(scene, state):
    before = state()
    message = support.message_of(scene.nodes.create, "PEG", BytesPath("x"), error=TypeError)
    assert message == "A path must be of str, not bytes"
    assert state() == before


@pytest.mark.parametrize("value", [2**63, -2**63 - 1, 10**400])
def test_a_number_beyond_64_bits_is_an_overflow(scene, value):
    message = "The number is beyond 64 bits."
    assert support.message_of(setattr, scene, "frame_count", value, error=OverflowError) == message


@pytest.mark.parametrize("wrap", [lambda value: [value], lambda value: (value, 1), lambda value: {"a": value}],
                         ids=["list", "tuple", "dict"])
def test_a_list_has_a_thousand_levels_at_most_whatever_limit_a_script_sets(app, wrap):
    before = sys.getrecursionlimit()
    values = [1]
    for _ in range(200_000):
        values.append(wrap(values[-1]))
    sys.setrecursionlimit(10**6)
    try:
        assert brindle.PythonFunction(lambda value: 7).call([values[990]]) == 7
        for call in (lambda: app.scene.nodes.find(values[-1]), lambda: setattr(app.scene, "objectName", values[-1]),
                     lambda: brindle.PythonFunction(lambda: values[-1]).call()):
            message = support.message_of(call, error=RecursionError)
            assert message.startswith("more than 1000 levels while reading a ")
    finally:
        sys.setrecursionlimit(before)
        while values:
            values.pop()


@pytest.mark.parametrize("module", ["re", "pathlib"])
@pytest.mark.parametrize("other", [None, types.SimpleNamespace(), types.SimpleNamespace(Pattern=5, PurePath=5)], ids=repr)
def test_a_module_that_a_script_replaced_makes_no_value_another_one(scene, monkeypatch, module, other):
    monkeypatch.setitem(sys.modules, module, other)
    with pytest.raises(TypeError):
        scene.nodes.find(object())


@pytest.mark.parametrize("value", ["\ud800", "a\udfff", ["\ud800"], {"\ud800": 1}, {"a": "\ud800"}], ids=ascii)
def test_a_text_that_is_no_unicode_is_refused(scene, value):
    with pytest.raises(UnicodeEncodeError):
        scene.objectName = value


def test_a_list_that_holds_itself_is_refused(scene):
    endless = []
    endless.append(endless)
    with pytest.raises(RecursionError):
        scene.nodes.find(endless)


@pytest.mark.parametrize("kind", [list, tuple])
def test_a_list_nested_ten_thousand_deep_is_refused(scene, kind):
    value = kind()
    for _ in range(10_000):
        value = kind([value])
    with pytest.raises(RecursionError):
        scene.nodes.find(value)


def test_a_list_nested_less_deep_is_read_whole(column):
    frames = [5]
    for _ in range(100):
        frames = [frames]
    column.keyframe_create(frames)
    assert column.keyframe_exists(5)


@pytest.mark.parametrize("flags, text, found", [
    (0, "arm", False), (re.IGNORECASE, "arm", True), (0, "A.m", True), (re.VERBOSE, "A r m", True),
    (re.MULTILINE, "^Arm$", True), (re.DOTALL, "A.m", True), (0, "(", None),
])
def test_a_pattern_of_python_searches_the_same_here(scene, peg, flags, text, found):
    if found is None:
        assert scene.nodes.find({"name": text}) == []  # A text that is no pattern finds nothing.
    else:
        nodes = scene.nodes.find({"name": re.compile(text, flags)})
        assert [node.name for node in nodes] == (["Arm"] if found else [])


@pytest.mark.parametrize("value, expected", [
    (lambda s: s.frame_count, 60), (lambda s: s.framerate, 24.0), (lambda s: s.name, "Scene-1"),
    (lambda s: s.top.enabled, True), (lambda s: s.nodes["Top/Composite"].ports_in[0].id, 0),
    (lambda s: s.nodes["Top/Composite"].ports_out[0].source_node_flat
     if hasattr(brindle.OutPort, "source_node_flat") else None, None),
])
def test_a_property_comes_as_the_plain_type_it_is_of(scene, value, expected):
    result = value(scene)
    assert (type(result), result) == (type(expected), expected)


@pytest.mark.parametrize("read", [
    lambda a: a.scene.nodes["Top/Arm"].ports_in[0].source, lambda a: a.scene.nodes["Top/Arm"].ports_in[0].cable,
    lambda a: a.scene.nodes["Top/Arm"].attributes["angle"].column, lambda a: a.scene.nodes["Top/Nobody"],
    lambda a: a.scene.nodes["Top/Arm"].attributes["angle"].subattributes, lambda a: a.scenes["Nowhere"],
    lambda a: a.scene.nodes["Top/Arm"].ports_in.matte_port, lambda a: a.scene.nodes.create("NO TYPE"),
    lambda a: a.scene.nodes["Top/Arm"].ports_out[0].port_related,
])
def test_what_is_not_there_is_none(app, peg, read):
    assert read(app) is None


def test_lists_come_as_python_lists(scene, column, history):
    assert column.keyframe_list() == [1, 10, 20]
    assert history.list() == []
    assert scene.nodes["Top/Composite"].ports_out[0].destinations[0].node.name == "Display"
    assert column.linked_nodes == [scene.nodes["Top/Arm"]]
    scene.frame_count = 2
    assert column.list()[:3] == [None, None, None]
    assert len(column.list()) == 5


@pytest.mark.parametrize("text", ["Ä", "ÿ", "Ω", "日本", "\U0001f600", "a" * 5000, "x\U0001f600y"])
def test_a_text_comes_back_as_it_went_in(scene, peg, text):
    write = scene.nodes.create("WRITE", "Out")
    write.attributes["path"].set_localvalue(text)
    assert write.attributes["path"].localvalue() == text


@pytest.mark.parametrize("number", [0.0, -0.0, 1 / 3, 5e-324, 1.7976931348623157e308, -1e-300])
def test_a_number_comes_back_to_the_last_bit(peg, number):
    peg.attributes["position.x"].set_localvalue(number)
    result = peg.attributes["position.x"].localvalue()
    assert (result, math.copysign(1, result)) == (number, math.copysign(1, number))


@pytest.mark.parametrize("cls, values", [(brindle.Point2d, (1.5, -2.0)), (brindle.Point3d, (1.5, -2.0, 3.25))])
def test_the_members_of_a_value_class_are_attributes(cls, values):
    point = cls(*values)
    assert tuple(getattr(point, name) for name in "xyz"[:len(values)]) == values
    point.x = 7
    assert point.x == 7.0
    assert point == cls(7, *values[1:])
    assert point != cls(*values)


@pytest.mark.parametrize("value", ["1", None, [1], b"x"])
def test_a_member_of_a_value_class_refuses_what_is_no_number(value):
    point = brindle.Point2d(1, 2)
    with pytest.raises(brindle.ArgumentError):
        point.x = value
    assert point == brindle.Point2d(1, 2)


def test_a_member_of_a_value_class_cannot_be_deleted():
    point = brindle.Point2d(1, 2)
    with pytest.raises((AttributeError, TypeError, brindle.Error)):
        del point.x
    assert point.x == 1
