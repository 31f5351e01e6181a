"""A script can't make an object pass for one of another class."""

import copy
import pickle

import brindle
import pytest

import support


class Pivot(brindle.Point2d):
    __slots__ = ()


class Depth(brindle.Point3d):
    __slots__ = ()


class Named(brindle.Point2d):
    pass


def become(thing, cls):
    thing.__class__ = cls


REFUSED = {
    "a getter on an object of another class": lambda s, p: brindle.Scene.__dict__["get_name"].__get__(p),
    "a setter on an object of another class": lambda s, p: brindle.Scene.__dict__["set_frame_count"].__get__(p),
    "a getter on a number": lambda s, p: brindle.Scene.__dict__["get_name"].__get__(5),
    "a getter on nothing": lambda s, p: brindle.Scene.__dict__["get_name"].__get__(None, brindle.Scene)(),
    "a getter without its object": lambda s, p: brindle.Scene.get_name(p),
    "a property on an object of another class": lambda s, p: brindle.Scene.frame_count.__get__(p),
    "a written property on an object of another class": lambda s, p: brindle.Scene.frame_count.__set__(p, 5),
    "a method on an object of another class": lambda s, p: brindle.Column.get_entry(p, 1),
    "a length of another class": lambda s, p: brindle.NodeList.__len__(s),
    "an item of another class": lambda s, p: brindle.NodeList.__getitem__(s, 0),
    "a comparison of another class": lambda s, p: brindle.Node.__eq__(s, s),
    "a method on a number": lambda s, p: brindle.BaseObject.copy(5),
    "a step of an iterator on a number": lambda s, p: type(iter(s.nodes)).__next__(5),
    "a node that becomes a scene": lambda s, p: become(p, brindle.Scene),
    "a node that becomes its base": lambda s, p: become(p, brindle.Node),
    "a peg that becomes a group": lambda s, p: become(p, brindle.GroupNode),
    "a node that becomes a scene behind Python's back": lambda s, p: object.__dict__["__class__"].__set__(p, brindle.Scene),
    "a point that becomes a point in space": lambda s, p: become(brindle.Point2d(1, 2), brindle.Point3d),
    "an own class that becomes another": lambda s, p: become(Pivot(1, 2), Depth),
    "an own class of another kind": lambda s, p: become(Named(1, 2), Depth),
    "an iterator that becomes a node": lambda s, p: become(iter(s.nodes), brindle.Node),
    "a class of two kinds": lambda s, p: type("Both", (brindle.Point2d, brindle.Point3d), {}),
    "a class of a node and a scene": lambda s, p: type("Both", (brindle.Node, brindle.Scene), {}),
    "an object without its making": lambda s, p: object.__new__(brindle.Point2d),
    "a node without its making": lambda s, p: object.__new__(brindle.Node),
    "an own object without its making": lambda s, p: object.__new__(Pivot),
    "a point made as a node": lambda s, p: brindle.Point2d.__new__(brindle.Node),
    "a point made as another": lambda s, p: brindle.Point2d.__new__(brindle.Point3d),
    "an own class of nodes": lambda s, p: type("Mine", (brindle.Node,), {})(),
    "an iterator made": lambda s, p: type(iter(s.nodes))(),
    "an accessor made": lambda s, p: type(brindle.Scene.__dict__["get_name"])(),
    "a copy of a node by Python": lambda s, p: copy.copy(p),
    "a deep copy of a node by Python": lambda s, p: copy.deepcopy([p]),
    "a pickled node": lambda s, p: pickle.dumps(p),
    "a hash": lambda s, p: hash(p),
}


def test_a_node_says_which_call_copies_it(scene, peg):
    sentence = ("Python can neither copy nor pickle this PegNode; scene.clipboard.copy(node) copies it, and "
                "scene.clipboard.paste_new_nodes(copy, group) makes new nodes of the copy.")
    for attempt in (copy.copy, copy.deepcopy, pickle.dumps):
        assert support.message_of(attempt, peg, error=TypeError) == sentence
        assert support.message_of(attempt, scene, error=TypeError) == (
            "Python can neither copy nor pickle this Scene.")


@pytest.mark.parametrize("name", REFUSED)
def test_it_is_a_type_error(scene, peg, name):
    with pytest.raises(TypeError):
        REFUSED[name](scene, peg)
    assert type(peg) is brindle.PegNode and peg.name == "Arm"


def test_an_own_class_keeps_what_its_base_does():
    pivot = Pivot(1, 2)
    assert (pivot.x, pivot.y, pivot == brindle.Point2d(1, 2)) == (1.0, 2.0, True)
    named = Named(3, 4)
    named.label = "knee"
    assert (named.x, named.label) == (3.0, "knee")


def test_an_own_class_is_taken_where_its_base_is(peg):
    peg.position = Named(3, 4)
    assert (peg.position.x, peg.position.y) == (3, 4)


def test_a_copy_is_another_object_of_the_same_thing(peg):
    again = peg.copy()
    assert again is not peg and again == peg and type(again) is brindle.PegNode
    point = brindle.Point2d(1, 2)
    other = point.copy()
    other.x = 9
    assert point.x == 1.0
    assert str(other) == "Point2d(9, 2)"


def test_a_class_takes_a_name_that_a_script_gives_it(peg):
    before = support.message_of(lambda: peg.shout, error=AttributeError)
    brindle.Node.shout = lambda self: self.name.upper()
    try:
        assert peg.shout() == "ARM"
    finally:
        del brindle.Node.shout
    assert support.message_of(lambda: peg.shout, error=AttributeError) == before


def test_a_class_that_a_script_derives_is_made_its_own_way():
    class Corner(brindle.Point2d):
        def __new__(cls, label, **names):
            return super().__new__(cls, 1, 2, **names)

        def __init__(self, label):
            self.label = label

    corner = Corner("left")
    assert (corner, corner.label, type(corner)) == (brindle.Point2d(1, 2), "left", Corner)
    assert Named(y=3, x=4) == brindle.Point2d(4, 3)
    with pytest.raises(TypeError):
        Named(1, 2, 3)


def test_a_class_of_the_module_may_be_given_an_init_of_the_script():
    seen = []

    def init(self, *values, **names):
        seen.append((values, names))

    brindle.Rect2D.__init__ = init
    try:
        assert brindle.Rect2D(1, height=2) == brindle.Rect2D(1, 2)
    finally:
        del brindle.Rect2D.__init__
    assert seen == [((1,), {"height": 2}), ((1, 2), {})]
    assert brindle.Rect2D(1, height=2) == brindle.Rect2D(1, 2) and len(seen) == 2


def test_values_are_made_of_arguments_in_every_form():
    for made in (brindle.Point2d(1, 2), brindle.Point2d(1, y=2), brindle.Point2d(y=2, x=1),
                 brindle.Point2d(*[1], **{"y": 2}), brindle.Point2d(value=[1, 2])):
        assert made == brindle.Point2d.__new__(brindle.Point2d, 1, 2)
    for call in (lambda: brindle.Point2d(1, 2, 3), lambda: brindle.Point2d(1, x=2), lambda: brindle.Point2d(z=1)):
        with pytest.raises(TypeError):
            call()
    with pytest.raises(TypeError):
        brindle.Scene()
