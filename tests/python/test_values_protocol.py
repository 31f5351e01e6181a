"""What every value class does: it is made, shown, compared, copied and pickled."""

import copy
import math
import pickle

import brindle
import hypothesis
import pytest
from hypothesis import strategies as st

import support

# A class, the names of its members in their order, and an object of it.
MADE = {
    "Point2d": (("x", "y"), (1.5, -2.0)),
    "Point3d": (("x", "y", "z"), (1.5, -2.0, 3.25)),
    "Vector2d": (("x", "y"), (1.5, -2.0)),
    "Vector3d": (("x", "y", "z"), (1.5, -2.0, 3.25)),
    "Rect2D": (("width", "height"), (1.5, -2.0)),
    "Rect2DI": (("width", "height"), (1, -2)),
    "AllocatedRect2D": (("width", "height", "x", "y"), (1.5, 2.0, 3.25, -4.0)),
    "AllocatedRect2DI": (("width", "height", "x", "y"), (1, 2, 3, -4)),
}
WHOLE = {"Rect2DI", "AllocatedRect2DI"}


class Named(brindle.Point2d):
    """A script's own class, with what the script puts on its objects."""


class Slotted(brindle.Point3d):
    __slots__ = ("label",)


class Measured(brindle.AllocatedRect2D):
    def __init__(self, name):
        self.name = name


def make(name):
    return getattr(brindle, name)(*MADE[name][1])


def members(value):
    return tuple(getattr(value, name) for name in MADE[type(value).__name__][0])


@pytest.fixture(params=MADE)
def value(request):
    return make(request.param)


def test_members_come_in_the_order_of_the_constructor(value):
    names, numbers = MADE[type(value).__name__]
    assert members(value) == numbers
    assert members(type(value)()) == (0,) * len(names)
    assert members(type(value)(**dict(zip(names, numbers)))) == numbers
    assert members(type(value)(**{names[-1]: 7})) == (0,) * (len(names) - 1) + (7,)


def test_members_are_written_one_by_one(value):
    for index, name in enumerate(MADE[type(value).__name__][0]):
        setattr(value, name, 9)
        assert members(value)[index] == 9
    assert set(members(value)) == {9}


def test_a_member_takes_numbers_only(value):
    before = members(value)
    for name in MADE[type(value).__name__][0]:
        for wrong in ("1", None, [1], b"x", 1j, value):
            with pytest.raises(brindle.ArgumentError):
                setattr(value, name, wrong)
        if type(value).__name__ in WHOLE:
            for wrong in (1.5, 2**31, -2**31 - 1):
                with pytest.raises(brindle.ArgumentError):
                    setattr(value, name, wrong)
            for wrong in (math.inf, -math.inf, math.nan):
                assert support.message_of(setattr, value, name, wrong) == support.not_finite(name)
        assert support.message_of(delattr, value, name, error=AttributeError) == f"{name} can't be deleted"
    assert members(value) == before


def test_its_repr_is_what_a_script_would_write(value):
    text = repr(value)
    assert text == f"{type(value).__name__}({', '.join(f'{number:g}' for number in members(value))})"
    assert eval(text, vars(brindle)) == value


def test_its_repr_has_every_digit_where_its_text_has_six():
    point = brindle.Point2d(1 / 3, 1e300)
    assert str(point) == "Point2d(0.333333, 1e+300)"
    assert repr(point) == "Point2d(0.3333333333333333, 1e+300)"
    assert repr(brindle.Point2d(math.nan, -math.inf)) == "Point2d(nan, -inf)"
    assert repr(brindle.Point2d(-0.0, 5e-324)) == "Point2d(-0, 5e-324)"


def test_the_repr_of_an_own_class_has_its_name():
    assert repr(Named(1, 2)) == "Named(1, 2)"
    assert str(Named(1, 2)) == "Point2d(1, 2)"

    class Own(brindle.Bezier):
        pass

    class Paint(brindle.Colour):
        pass

    class Move(brindle.Matrix):
        pass

    assert repr(Own()) == "<Own: (0, 0) [0, 0] [0, 0] (0, 0)>"
    assert repr(Paint(1, 2, 3)) == "Paint(1, 2, 3, 255)"
    assert repr(Move()) == "Move()"


# A vector is a point, and equals one.
ALIKE = [{"point 2d", "vector 2d"}, {"point 3d", "vector 3d"}]


@pytest.mark.parametrize("name", support.VALUES)
def test_no_value_equals_one_of_another_kind(name):
    value = support.VALUES[name][0]()
    for other_name, (make, _) in support.VALUES.items():
        other = make()
        assert (value == other) == (other == value) == (not value != other)
        if other_name != name and {name, other_name} not in ALIKE:
            assert value != other


def test_values_are_compared_by_their_members(value):
    other = make(type(value).__name__)
    assert value == other and not value != other
    for name in MADE[type(value).__name__][0]:
        changed = make(type(value).__name__)
        setattr(changed, name, 77)
        assert value != changed and not value == changed
    for strange in (None, 5, "x", members(value), [value], brindle.Colour(), object()):
        assert value != strange and not value == strange


def test_a_vector_equals_the_point_that_it_is():
    assert brindle.Vector2d(1, 2) == brindle.Point2d(1, 2)
    assert brindle.Point2d(1, 2) == brindle.Vector2d(1, 2)
    assert brindle.Point3d(1, 2, 3) == brindle.Vector3d(1, 2, 3)
    assert brindle.Vector2d(1, 2) != brindle.Point2d(1, 3)
    assert brindle.Point2d(1, 2) != brindle.Point3d(1, 2, 0)
    assert brindle.Rect2D(1, 2) != brindle.AllocatedRect2D(1, 2)
    assert brindle.Rect2D(1, 2) != brindle.Rect2DI(1, 2)


def test_a_value_that_is_no_number_equals_nothing():
    nowhere = brindle.Point2d(math.nan, 0)
    assert nowhere != nowhere


def test_a_value_can_change_and_so_has_no_hash(value):
    with pytest.raises(TypeError):
        hash(value)
    with pytest.raises(TypeError):
        hash(brindle.Colour())


COPIES = {
    "copy": lambda v: v.copy(),
    "copy.copy": copy.copy,
    "copy.deepcopy": copy.deepcopy,
    "in a list": lambda v: copy.deepcopy([v])[0],
    **{f"pickle {n}": lambda v, n=n: pickle.loads(pickle.dumps(v, n)) for n in range(pickle.HIGHEST_PROTOCOL + 1)},
}


@pytest.mark.parametrize("how", COPIES)
def test_a_copy_is_an_equal_object_of_its_own(value, how):
    before = members(value)
    other = COPIES[how](value)
    assert type(other) is type(value) and other is not value and members(other) == before
    for name in MADE[type(value).__name__][0]:
        setattr(other, name, 9)
    assert members(value) == before


@pytest.mark.parametrize("how", COPIES)
def test_a_copy_has_every_bit(how):
    for number in (math.nan, math.inf, -math.inf, -0.0, 5e-324, 1.7976931348623157e308, 1 / 3):
        other = COPIES[how](brindle.Point2d(number, -1.5))
        assert str(other.x) == str(number) and other.y == -1.5


@pytest.mark.parametrize("how", [name for name in COPIES if name != "copy"])
def test_an_object_of_an_own_class_keeps_what_the_script_put_on_it(how):
    named = Named(1, 2)
    named.label = ["knee"]
    other = COPIES[how](named)
    assert (type(other), other.x, other.y, other.label) == (Named, 1.0, 2.0, ["knee"])
    assert (other.label is named.label) == (how == "copy.copy")


@pytest.mark.parametrize("how", ["copy.copy", "copy.deepcopy", "pickle 2", "pickle 4"])
def test_slots_and_another_constructor_are_no_hindrance(how):
    slotted = Slotted(1, 2, 3)
    slotted.label = "knee"
    other = COPIES[how](slotted)
    assert (type(other), other.z, other.label) == (Slotted, 3.0, "knee")
    measured = Measured.__new__(Measured, 1, 2, 3, 4)
    measured.__init__("leg")
    other = COPIES[how](measured)
    assert (type(other), other.height, other.name) == (Measured, 2.0, "leg")


def test_values_that_refer_to_each_other_are_copied_once():
    point = brindle.Point2d(1, 2)
    first, second = copy.deepcopy([point, point])
    assert first is second and first is not point
    first, second = pickle.loads(pickle.dumps([point, point]))
    assert first is second


@pytest.mark.parametrize("arguments", [
    (), (brindle.Point2d,), (brindle.Point2d, (1, 2), 3), (5, (1, 2)), (int, (1,)), (brindle.Node, ()),
    (brindle.BaseObject, ()), (object, ()), (brindle.Point2d, 5), (brindle.Point2d, [1, 2]), (brindle.Point2d, (1,)),
    (brindle.Point2d, (1, 2, 3)), (brindle.Point2d, ("1", 2)), (brindle.Point2d, (1, None)),
    (brindle.Rect2DI, (1, 2**40)), (brindle.Rect2DI, (1.5, 2)), (brindle.Colour, ("red",)), (brindle.Colour, (1, 2)),
    (brindle.Colour, ()), (brindle.Colour, (1, 2, 3, "x")), (brindle.Colour, (1, 2, 3, 4, 5)),
    (brindle.Colour, (1, 2, 3, 300)), (brindle.Colour, (1, 2, 3, 1.5)), (brindle.Colour, (object(),)),
])
def test_a_damaged_pickle_is_refused(arguments):
    rebuild = brindle.Point2d().__reduce__()[0]
    with pytest.raises((TypeError, brindle.Error)):
        rebuild(*arguments)


def test_objects_of_the_project_are_neither_copied_nor_pickled_by_python(peg):
    for action in (copy.copy, copy.deepcopy, pickle.dumps):
        with pytest.raises(TypeError):
            action(peg)
        with pytest.raises(TypeError):
            action(peg.position)


NUMBERS = st.floats(allow_nan=False)


@hypothesis.given(st.tuples(NUMBERS, NUMBERS, NUMBERS))
def test_pickles_and_reprs_come_back(numbers):
    for value in (brindle.Point3d(*numbers), brindle.Vector2d(*numbers[:2]), brindle.Rect2D(*numbers[:2]),
                  brindle.AllocatedRect2D(*numbers, 1)):
        assert pickle.loads(pickle.dumps(value)) == value
        assert copy.copy(value) == value
        assert eval(repr(value), {**vars(brindle), "inf": math.inf}) == value


JUNK = st.recursive(
    st.one_of(st.none(), st.booleans(), st.integers(), st.floats(), st.text(), st.binary(),
              st.builds(brindle.Point2d, NUMBERS, NUMBERS), st.builds(brindle.Vector3d, NUMBERS),
              st.builds(brindle.Colour), st.builds(brindle.Rect2D), st.builds(brindle.AllocatedRect2DI)),
    lambda inner: st.one_of(st.lists(inner, max_size=5), st.dictionaries(st.text(max_size=3), inner, max_size=3),
                            st.tuples(inner, inner)),
    max_leaves=20)


@hypothesis.given(JUNK)
def test_the_readers_give_a_value_or_one_clear_error_for_any_junk(junk):
    for read in (brindle.Point2d, brindle.Point3d, brindle.Vector2d, brindle.Vector3d, brindle.AllocatedRect2D,
                 brindle.Colour, brindle.AllocatedRect2D(1, 2, 3, 4).add, brindle.Point2d(1, 2).translate,
                 brindle.Point3d(1, 2, 3).translate):
        try:
            repr(read(junk))
        except (brindle.Error, TypeError, OverflowError, UnicodeEncodeError) as error:
            assert str(error)
