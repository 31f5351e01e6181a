"""An argument is anything that behaves as one; all of a call's arguments are read before it touches the project."""

import array
import collections
import decimal
import fractions
import os
import pathlib
import re

import brindle
import pytest

import support


class Index:
    """A whole number of a script's own kind."""

    def __init__(self, value):
        self.value = value

    def __index__(self):
        return self.value


class Float:
    """A number of a script's own kind."""

    def __init__(self, value):
        self.value = value

    def __float__(self):
        return self.value


class Path:
    """A path of a script's own kind."""

    def __init__(self, text):
        self.text = text

    def __fspath__(self):
        return self.text


class Sequence:
    """Nothing but a length and items."""

    def __init__(self, *items):
        self.items = items

    def __len__(self):
        return len(self.items)

    def __getitem__(self, index):
        return self.items[index]


class Scalar(Float):
    """An array of no dimension, as libraries of arrays have it: its items can't be counted, and it is a number."""

    def __len__(self):
        raise TypeError("len() of unsized object")

    def __getitem__(self, index):
        raise IndexError("too many indices")


class Single(Sequence):
    """An array of one item: a list, although a number could be made of it."""

    def __float__(self):
        return float(self.items[0])

    def __index__(self):
        return int(self.items[0])


def echo(value):
    """The value as it arrives where any value is taken."""
    return brindle.PythonFunction(lambda got: got).call([value])


@pytest.mark.parametrize("value, arrives", [
    (Index(7), 7), (Index(2**40), 2**40), (Float(0.5), 0.5), (Scalar(1.5), 1.5), (decimal.Decimal("0.25"), 0.25),
    (fractions.Fraction(1, 4), 0.25), (Path("a/b"), "a/b"), (pathlib.Path("c"), "c"),
    (range(3), [0, 1, 2]), (range(5, 0, -2), [5, 3, 1]), (range(0), []),
    (array.array("i", [1, 2]), [1, 2]), (array.array("d", [0.5]), [0.5]), (memoryview(b"ab"), [97, 98]),
    (memoryview(array.array("d", [1.5, 2.5])), [1.5, 2.5]), (collections.deque([1, "x"]), [1, "x"]),
    (collections.UserList([1, [2]]), [1, [2]]), (Sequence(), []), (Sequence(1, Sequence(2, None)), [1, [2, None]]),
    (Sequence("a", "b"), ["a", "b"]), (Single(3), [3]), ([Index(1), Float(2.0), range(2)], [1, 2.0, [0, 1]]),
    ({"a": Index(1), "b": range(1)}, {"a": 1, "b": [0]}), ((1, 2), [1, 2]),
], ids=lambda value: f"{type(value).__name__}")
def test_a_value_is_what_it_behaves_as(app, value, arrives):
    result = echo(value)
    assert (type(result), result) == (type(arrives), arrives)


@pytest.mark.parametrize("value", [
    b"x", b"", bytearray(b"x"), bytearray(), {1}, frozenset(), {}.keys(), iter([1]), (i for i in ()), 1j, object(),
    collections.UserDict(a=1), collections.ChainMap({"a": 1}), type("Bytes", (bytes,), {})(b"x")],
    ids=lambda value: type(value).__name__)
def test_what_behaves_as_no_value_is_a_type_error(app, value):
    name = type(value).__name__
    for call in (lambda: echo(value), lambda: setattr(app.scene, "objectName", value), lambda: app.scene.nodes.find(value),
                 lambda: app.scene.nodes.remove([value])):
        assert support.message_of(call, error=TypeError).endswith(f"{name} can't be used here")


@pytest.mark.parametrize("value, error", [
    (Index(2**63), OverflowError), (Float("x"), TypeError), (Index("x"), TypeError), (range(2**70), OverflowError),
    (range(2**40), OverflowError), (collections.UserString("ab"), RecursionError),
    (memoryview(b"abcd").cast("B", (2, 2)), NotImplementedError),
    (type("Length", (Sequence,), {"__len__": lambda self: -1})(), ValueError),
    (type("Shrinks", (Sequence,), {"__len__": lambda self: 3})(1), IndexError),
    (type("Items", (Sequence,), {"__getitem__": lambda self, index: 1 / 0})(1), ZeroDivisionError),
    (type("Float", (Scalar,), {"__float__": lambda self: 1 / 0})(1), ZeroDivisionError)])
def test_what_a_value_raises_comes_back(app, state, value, error):
    before = state()
    for call in (lambda: echo(value), lambda: setattr(app.scene, "frame_count", value),
                 lambda: app.scene.nodes.remove(["Top/Composite", value])):
        with pytest.raises(error):
            call()
    assert state() == before


def test_a_callable_is_a_function_whatever_else_it_is(app):
    calls = []

    class Everything(Index, Path, Sequence):
        def __call__(self):
            calls.append(self)

    value = Everything(1)
    app.run_function(value)
    assert calls == [value]


@pytest.mark.parametrize("frame, value", [(Index(4), Index(2)), (True, Float(2.0)), (Index(4), decimal.Decimal(2))])
def test_the_arguments_of_a_method_are_read_alike(peg, frame, value):
    angle = peg.attributes["angle"]
    angle.set_value(frame, value, adjust_column=Index(1))
    assert angle.value(frame) == 2.0
    assert brindle.Point2d(value, Float(0.5)) == brindle.Point2d(2, 0.5)


@pytest.mark.parametrize("value", [b"Top", bytearray(b"Top"), memoryview(b"Top")], ids=lambda v: type(v).__name__)
def test_bytes_are_no_text(scene, value):
    for call in (lambda: scene.nodes.create(value, "a"), lambda: scene.nodes.contains(value),
                 lambda: scene.nodes[value], lambda: scene.nodes(value)):
        with pytest.raises(TypeError):
            call()


@pytest.mark.parametrize("frames", [range(2, 5), array.array("i", [2, 3, 4]), Sequence(2, Index(3), (4,))])
def test_frames_are_any_sequence(column, frames):
    column.keyframe_create(frames)
    assert column.keyframe_list() == [1, 2, 3, 4, 10, 20]
    column.keyframe_remove(frames)
    assert column.keyframe_list() == [1, 10, 20]


def test_nodes_are_any_sequence(scene, peg):
    scene.nodes.remove(Sequence("Top/Arm", scene.nodes["Top/Body"]))
    assert scene.nodes["Top/Arm"] is None and scene.nodes["Top/Body"] is None


def test_a_point_is_any_sequence_of_numbers(peg):
    peg.position = array.array("d", [3.0, 4.0])
    assert (peg.position.x, peg.position.y) == (3, 4)
    assert brindle.BezierPath.create_rectangle(0, 0, 2, 2).containing(array.array("d", [1, 1]))


# Script code that runs while an argument is read, and the calls that read it. A save is in the middle of its work when
# that code comes to its end.
READING = """
import re, sys, threading
import brindle
sys.setswitchinterval(1)
app = brindle.create(sys.argv[1])
nodes = app.scene.nodes
for number in range(4000):
    nodes.create("PEG", "a")
peg = nodes.create("PEG", "Arm")
angle = peg.attributes["angle"]
angle.set_value(1, 0.0)
column = angle.column
app.save()
ended = []
begins = threading.Event()

def save():
    begins.wait(20)
    app.scene.frame_count = 61
    begun.set()
    app.save()
    ended.append("save")

begun = threading.Event()
saver = threading.Thread(target=save)
saver.start()

def pause():
    begins.set()
    begun.wait()
    # Without Python's lock for as long as the save needs to begin.
    threading.Event().wait(0.002)

class Odd:
    def __index__(self): pause(); return 2
    def __float__(self): pause(); return 2.0
    def __fspath__(self): pause(); return "PEG"

class Number:
    __float__ = Odd.__float__

class Callable:
    @property
    def __class__(self): pause(); return int
    def __call__(self): pass

class Items:
    def __len__(self): return 2
    def __getitem__(self, index): pause(); return "Top/Composite"

class Place(Items):
    def __getitem__(self, index): pause(); return 3
"""

READERS = {
    "a callable in a list": "nodes.remove([Callable(), 'Top/Composite'])",
    "a sequence": "nodes.remove(Items())",
    "a number in a list": "nodes.remove([Odd(), 'Top/Composite'])",
    "a path": "nodes.create(Odd(), 'b')",
    "a whole number": "angle.set_value(Odd(), 1.0)",
    "a number": "angle.set_value(2, Number())",
    "a flag": "angle.set_value(2, 1.0, Odd())",
    "any value": "column.set_entry(2, Number())",
    "the value of a property": "peg.position = Place()",
    "the value of a setter": "peg.set_position(Place())",
    "an item's index": "column[Odd()] = 3.0",
    "an item's value": "column[2] = Number()",
    "the index of an item that is read": "nodes[Odd()]",
    "a slice": "nodes[Odd():]",
    "a value looked for": "Callable() in app.scene.top.attributes",
    "a value's argument": "brindle.Colour([peg, Odd()])",
    "a function of the module": "brindle.open(Odd())",
}


@pytest.mark.parametrize("name", READERS)
def test_a_call_whose_argument_runs_a_script_waits_for_the_save_that_began_meanwhile(folder, name):
    done = support.run_python(f"""{READING}
try:
    {READERS[name]}
except (brindle.Error, TypeError):
    pass
ended.append("call")
saver.join()
print(begun.is_set(), *ended)
""", folder)
    assert (done.stdout, done.returncode) == ("True save call\n", 0), done.stderr


def test_objects_in_a_list_outlive_the_reading_of_the_next_item(app):
    items = [app.scene.nodes.create("PEG", "Arm"), None]

    class Emptying:
        def __index__(self):
            items.clear()
            for number in range(1000):
                brindle.Point3d(number, 0, 0)
            return 10**6

    items[1] = Emptying()
    assert support.message_of(app.scene.nodes.remove, Sequence(*items)) == "Index is out of range."
    assert app.scene.nodes["Top/Arm"] is not None


def test_the_object_of_a_call_is_found_behind_its_arguments(app, folder):
    nodes = app.scene.nodes
    other = os.fspath(folder) + "-other"

    class Replacing:
        def __fspath__(self):
            brindle.create(other)
            return "PEG"

    assert support.message_of(nodes.create, Replacing(), "a") == support.GONE
    assert support.message_of(nodes.find, re.compile("a")) == support.GONE
    brindle.application().close()
