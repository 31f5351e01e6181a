"""Matrices: what they are read from, in which order steps act, and what comes out when they are taken apart."""

import copy
import math
import pickle

import brindle
import pytest
from brindle import Matrix, Point2d, Point3d, Vector2d, Vector3d
from hypothesis import assume, given, settings
from hypothesis import strategies as st

import support

IDENTITY = [1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1]
OUT_OF_RANGE = "Index is out of range."
NO_INVERSE = "Matrix cannot be inverted."

moderate = st.floats(-100, 100)
scales = st.one_of(st.floats(0.01, 100), st.floats(-100, -0.01))
angles = st.floats(-360, 360)
points = st.tuples(moderate, moderate, moderate)


def cells(matrix):
    return [matrix[i] for i in range(16)]


def scaled(x, y=None, z=None):
    matrix = Matrix()
    matrix.scale(x, x if y is None else y, x if z is None else z)
    return matrix


def moved(x, y, z=0):
    matrix = Matrix()
    matrix.translate(x, y, z)
    return matrix


def product(*factors):
    result = Matrix()
    for factor in factors:
        result.multiply(factor)
    return result


def near(one, two, tolerance=1e-9):
    size = max([1.0] + [abs(cell) for cell in cells(two)])
    return all(abs(a - b) <= tolerance * size for a, b in zip(cells(one), cells(two)))


@st.composite
def matrices(draw):
    """A matrix that moves, turns and scales, with an inverse that is exact enough."""
    matrix = moved(*draw(points))
    axis = draw(points)
    assume(math.hypot(*axis) > 1e-3)
    matrix.rotate_degrees(draw(angles), axis)
    matrix.scale(draw(scales), draw(scales), draw(scales))
    return matrix


READ = [
    (None, Matrix()), (0.0, Matrix()), (0.0005, Matrix()), (2, scaled(2)), (-0.5, scaled(-0.5)), (True, Matrix()),
    (math.nan, Matrix()), ("3", scaled(3)), ("a", Matrix()), ({}, Matrix()), (scaled(4), scaled(4)),
    (Vector3d(1, 2, 3), moved(1, 2, 3)), (Vector2d(1, 2), moved(1, 2)), (Point3d(1, 2, 3), moved(1, 2, 3)),
    (Point2d(1, 2), moved(1, 2)), (brindle.Colour(), Matrix()),
    ([], Matrix()), ([7], Matrix()), ([1, 2], moved(1, 2)), ((1, 2, 3), moved(1, 2, 2)), ([1, 2, 3, 4, 5], Matrix()),
    ([[1, 2]], Matrix()), (["a", None], Matrix()), ([1, "a", 2], moved(1, 2)), (["1", "2"], Matrix()),
    ([Vector3d(1, 2, 3)], moved(1, 2, 2)), ([scaled(2), 1, 2], product(moved(1, 2), scaled(2))),
    ([scaled(2), moved(1, 2)], product(scaled(2), moved(1, 2))),
]


@pytest.mark.parametrize("value, expected", READ, ids=lambda value: "")
def test_a_matrix_is_read_from_every_form(value, expected):
    assert cells(Matrix(value)) == cells(expected)
    matrix = Matrix()
    matrix.multiply(value)
    assert matrix == expected


def test_a_transformation_reads_as_its_matrix():
    transformation = brindle.Transformation()
    transformation.translate(1, 2, 3)
    assert Matrix(transformation) == moved(1, 2, 3)


def test_a_node_reads_as_the_identity(peg):
    assert Matrix(peg) == Matrix()
    assert Matrix([peg, 1, 2]) == moved(1, 2)


def test_nine_numbers_are_a_three_by_three_form():
    assert cells(Matrix(range_list(9))) == [1, 2, 0, 3, 4, 5, 0, 6, 0, 0, 1, 0, 7, 8, 0, 9]


def range_list(count):
    return [float(number) for number in range(1, count + 1)]


def test_sixteen_numbers_are_the_cells_and_more_are_left_out():
    assert cells(Matrix(range_list(16))) == range_list(16)
    assert cells(Matrix(range_list(30))) == range_list(16)


def test_sixteen_zeros_keep_a_little_of_every_axis():
    assert cells(Matrix([0] * 16)) == [0.001 if cell else 0 for cell in IDENTITY]


def test_a_matrix_is_made_of_an_axis_and_an_origin():
    assert Matrix(None, None) == Matrix() == Matrix(axis=None, origin=None)
    assert Matrix(None, [1, 2, 3]) == moved(1, 2, 3)
    turned = Matrix(Vector3d(-3, 0, 0), Point2d(5, 6))
    assert (turned.axis_y, turned.origin) == (Vector3d(-1, 0, 0), Point3d(5, 6, 0))


def test_too_many_arguments_are_refused():
    with pytest.raises(TypeError):
        Matrix(1, 2, 3)
    with pytest.raises(TypeError):
        Matrix(pivot=1)


def test_cells_are_read_by_index_and_not_written():
    matrix = Matrix(range_list(16))
    assert len(matrix) == matrix.size() == 16
    assert [matrix.get(i) for i in range(16)] == range_list(16)
    for index in (16, -1, 2**31 - 1, -2**31):
        assert support.message_of(matrix.get, index) == OUT_OF_RANGE
        assert support.message_of(matrix.set, index, 0) == OUT_OF_RANGE
    matrix[3] = 9.0
    matrix.set(0, "text")
    assert cells(matrix) == range_list(16)
    with pytest.raises(TypeError):
        matrix["axis"] = 1


def test_an_iteration_sees_fifteen_cells():
    matrix = Matrix(range_list(16))
    assert list(matrix) == range_list(15)
    assert [pair for pair in zip(matrix, matrix)] == [(n, n) for n in range_list(15)]


def test_list_cuts_to_whole_numbers():
    matrix = Matrix()
    matrix.rotate_degrees(30)
    assert set(matrix.list()) == {0, 1}
    assert Matrix([1.9, -1.9]).list()[12:14] == [1, -1]


def test_str_has_four_lines_of_nine_columns():
    lines = str(Matrix()).split("\n")
    assert lines == ["Matrix(         1,         0,         0,         0,",
                     "                0,         1,         0,         0,",
                     "                0,         0,         1,         0,",
                     "                0,         0,         0,         1 )"]


def test_axes_and_origin_are_written():
    matrix = Matrix()
    matrix.axis_x = [1, 2, 3]
    matrix.axis_y = Vector2d(4, 5)
    matrix.axis_z = 6
    matrix.origin = moved(7, 8, 9)
    assert cells(matrix) == [1, 2, 3, 0, 4, 5, 0, 0, 6, 6, 6, 0, 7, 8, 9, 1]
    assert (matrix.get_axis_x(), matrix.axis_z) == (Vector3d(1, 2, 3), Vector3d(6, 6, 6))
    for name in "xyz":
        getattr(matrix, f"set_{name}_axis")([4, 5, 6])
        assert getattr(matrix, f"get_{name}_axis")() == getattr(matrix, f"axis_{name}") == Vector3d(4, 5, 6)
    matrix.identity = False
    assert not matrix.identity
    matrix.identity = True
    assert matrix == Matrix()


def test_the_step_added_last_acts_first():
    matrix = moved(10, 0)
    matrix.scale(2, 2, 2)
    assert matrix.apply(Point2d(1, 1)) == Point2d(12, 2)
    matrix.reset()
    matrix.scale(2, 2, 2)
    matrix.translate([10, 0, 0])
    assert matrix.apply(Point2d(1, 1)) == Point2d(22, 2)


@pytest.mark.parametrize("kind", [Point2d, Point3d, Vector2d, Vector3d], ids=lambda kind: kind.__name__)
def test_apply_gives_an_object_of_the_same_class(kind):
    result = moved(10, 20, 30).apply(kind(1, 2))
    assert type(result) is kind
    assert (result.x, result.y) == (11, 22)


def test_apply_gives_a_list_for_numbers_and_none_for_other_objects(peg):
    matrix = moved(10, 20, 30)
    assert matrix.apply([1, 2, 3]) == [11, 22, 33]
    assert matrix.apply(1) == [11, 21, 31]
    assert matrix.apply(None) == [10, 20, 30]
    assert matrix.apply(scaled(2)) == product(matrix, scaled(2))
    assert matrix.apply(brindle.Rect2D(1, 2)) is None


REFUSED = [
    ("translate", (math.nan, 0, 0), 0), ("translate", (0, 0, math.inf), 2), ("scale", (0, -math.inf, 0), 1),
    ("skew", (math.nan,), 0), ("rotate_degrees", (math.inf,), 0), ("rotate_radians", (math.nan, [0, 0, 1]), 0),
    ("orthogonal_project", (0, 1, 0, 1, math.nan, 1), 4), ("perspective_project", (40, 1, 1, math.inf), 3),
    ("perspective_project", (0, 1, 0, 1, 1, math.nan), 5),
]


@pytest.mark.parametrize("method, arguments, index", REFUSED)
def test_numbers_that_are_not_finite_are_refused(method, arguments, index):
    matrix = scaled(2)
    assert support.message_of(getattr(matrix, method), *arguments) == f"Invalid argument at index {index}."
    assert matrix == scaled(2)


@pytest.mark.parametrize("method, arguments", [
    ("orthogonal_project", (0, 0, 0, 0, 0, 0)), ("orthogonal_project", (0, 1, 0, 1, 3, 3)),
    ("perspective_project", (0, 1, 1, 2)), ("perspective_project", (0, 1, 0, 1, 0, 1)),
])
def test_a_projection_without_volume_is_refused(method, arguments):
    matrix = scaled(2)
    message = support.message_of(getattr(matrix, method), *arguments)
    assert message == "The volume of the projection is empty."
    assert matrix == scaled(2)


def test_what_has_no_inverse_stays_as_it_is():
    matrix = scaled(1, 0, 1)
    assert matrix.singular
    for method in (matrix.inverse, matrix.get_inverse):
        assert support.message_of(method) == NO_INVERSE
    assert matrix == scaled(1, 0, 1)


def test_its_kinds_are_told():
    matrix = Matrix()
    names = ("identity", "constant_z", "transform_2d", "singular", "has_nan", "has_infinity", "rotation_exists",
             "perspective")
    assert [getattr(matrix, name) for name in names] == [True] * 3 + [False] * 5
    matrix.rotate_degrees(30, [1, 0, 0])
    matrix.perspective_project(40, 1, 1, 9)
    assert [getattr(matrix, name) for name in names] == [False] * 6 + [True] * 2
    assert (scaled(3).scale_factor, moved(0, 0, 4 / 3).truck_factor) == (3.0, 2.0)
    broken = Matrix([math.nan, math.inf])
    assert broken.has_nan and broken.has_infinity and broken.singular


def test_the_default_view_is_the_identity():
    matrix = Matrix()
    matrix.look_at()
    assert matrix.identity
    matrix.look_at(eye=[0, 0, 5], target=None, up=Vector3d(0, 1, 0))
    assert matrix == moved(0, 0, -5)


def test_get_inverse_shows_in_a_listing():
    names = dir(Matrix())
    assert {"get_inverse", "inverse", "rotate_degrees", "axis_x"} <= set(names)
    assert not {"get_origin", "set_origin", "get_identity"} & set(names)


@pytest.mark.parametrize("make", [copy.copy, copy.deepcopy, lambda value: pickle.loads(pickle.dumps(value))],
                         ids=["copy", "deepcopy", "pickle"])
def test_a_matrix_is_copied_and_stored_cell_by_cell(make):
    matrix = Matrix(range_list(16))
    matrix.axis_z = 0
    matrix.origin = [math.inf, 1e-300, 1 / 3]
    again = make(matrix)
    assert type(again) is Matrix and again is not matrix
    assert cells(again) == cells(matrix)
    again.reset()
    assert cells(matrix) != cells(again)


def test_its_repr_has_the_cells_that_make_it():
    assert repr(Matrix()) == "Matrix()"
    assert repr(moved(1 / 3, -2)) == "Matrix([1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0.3333333333333333, -2, 0, 1])"
    matrix = scaled(1e200, 1 / 7, -3)
    matrix.axis_x = [1, 2, 3]
    assert eval(repr(matrix), vars(brindle)) == matrix


@pytest.mark.parametrize("state", [(), (1.0,) * 15, ("a",) * 16, (None,) * 16, (1.0,) * 17])
def test_a_stored_matrix_that_was_tampered_with_is_refused(state):
    rebuild = Matrix().__reduce__()[0]
    with pytest.raises((brindle.Error, TypeError)):
        rebuild(Matrix, state)


def test_matrices_are_equal_cell_by_cell():
    assert Matrix() == Matrix()
    assert Matrix() != scaled(2)
    assert Matrix(Vector3d(1, 2, 3)) == moved(1, 2, 3)
    with pytest.raises(TypeError):
        hash(Matrix())


# A value, and the matrix that it is read as.
EQUAL = [(2, scaled(2)), (2.0, scaled(2)), (1, Matrix()), (True, Matrix()), ([1, 2, 3], moved(1, 2, 2)),
         (Vector3d(1, 2, 3), moved(1, 2, 3)), (brindle.Point2d(1, 2), moved(1, 2, 0)), ([], Matrix()), ("x", Matrix()),
         (brindle.Colour(), Matrix()), ([scaled(2), 1, 2], Matrix([moved(1, 2, 0), scaled(2)]))]


@pytest.mark.parametrize("value, matrix", EQUAL, ids=repr)
def test_a_matrix_equals_what_is_read_as_it(value, matrix):
    assert matrix == value and value == matrix and not matrix != value and not value != matrix
    changed = Matrix(matrix)
    changed.translate(0, 0, 1)
    assert changed != value and value != changed and not changed == value and not value == changed


def test_a_matrix_equals_a_transformation_with_it():
    transformation = brindle.Transformation()
    assert Matrix() == transformation and transformation == Matrix()
    transformation.scale(2, 2, 2)
    assert Matrix(2) == transformation and transformation == Matrix(2)


@pytest.mark.parametrize("other", [None, object(), b"x", {1}, 1j, 2**70, "\ud800", {1: 2}], ids=repr)
def test_a_matrix_equals_neither_none_nor_what_is_no_argument(other):
    for matrix in (Matrix(), scaled(2)):
        assert (matrix == other, other == matrix, matrix != other, other != matrix) == (False, False, True, True)


def test_an_error_of_a_script_ends_a_comparison():
    class Stubborn(dict):
        def __eq__(self, other):
            raise ZeroDivisionError

    with pytest.raises(ZeroDivisionError):
        assert Stubborn() == Matrix()
    assert Matrix() == Stubborn()


@given(matrices())
def test_multiplied_by_its_inverse_a_matrix_is_the_identity(matrix):
    assert near(product(matrix, matrix.get_inverse()), Matrix(), 1e-6)
    inverted = Matrix(matrix)
    inverted.inverse()
    assert inverted == matrix.get_inverse()


@given(matrices(), matrices(), points)
def test_a_product_does_the_right_hand_matrix_first(one, two, point):
    both = product(one, two).apply(list(point))
    in_turn = one.apply(two.apply(list(point)))
    size = max(1.0, *map(abs, in_turn), 1e4)
    assert both == pytest.approx(in_turn, abs=1e-9 * size)


@given(matrices(), matrices(), matrices())
@settings(max_examples=50)
def test_products_can_be_grouped_in_any_way(one, two, three):
    assert near(product(product(one, two), three), product(one, product(two, three)))


@given(matrices(), points)
def test_what_is_taken_apart_in_space_gives_the_matrix_back(matrix, pivot):
    translation, scale, rotation = matrix.extract_parameters_3d(pivot)
    again = moved(translation.x, translation.y, translation.z)
    again.translate(list(pivot))
    again.rotate_degrees(rotation.z)
    again.rotate_degrees(rotation.y, [0, 1, 0])
    again.rotate_degrees(rotation.x, [1, 0, 0])
    again.scale(scale.x, scale.y, scale.z)
    again.translate(-pivot[0], -pivot[1], -pivot[2])
    # A pivot that the scale throws far away costs the digits that it is far by.
    assert near(again, matrix, 1e-9 * 100)


@given(points, angles, st.floats(-80, 80), scales, scales, points, st.booleans(), st.booleans())
def test_what_is_taken_apart_in_the_plane_gives_the_matrix_back(place, angle, skew, x, y, pivot, negative_x, negative_y):
    matrix = moved(*place)
    matrix.rotate_degrees(angle)
    matrix.skew(skew)
    matrix.scale(x, y, 1)
    translation, scale, rotation, lean = matrix.extract_parameters_2d(negative_x, negative_y, pivot)
    again = moved(translation.x, translation.y, translation.z)
    again.translate(pivot[0], pivot[1], 0)
    again.rotate_degrees(rotation)
    again.skew(lean)
    again.scale(scale.x, scale.y, 1)
    again.translate(-pivot[0], -pivot[1], 0)
    assert near(again, matrix, 1e-9 * 100)
    mirrors = x * y < 0
    assert (scale.x < 0) == (negative_x or (negative_y and not mirrors))
    assert (scale.x * scale.y < 0) == mirrors


@given(st.recursive(st.one_of(st.none(), st.booleans(), st.integers(), st.floats(), st.text(max_size=5),
                              st.builds(Vector3d, st.floats(), st.floats(), st.floats()), st.builds(Matrix)),
                    lambda items: st.lists(items, max_size=20), max_leaves=30))
def test_whatever_is_passed_reads_as_some_matrix_or_is_refused(value):
    try:
        matrix = Matrix(value)
    except (OverflowError, ValueError):
        return  # a whole number beyond 64 bits, or no text
    assert len(cells(matrix)) == 16
    matrix.multiply(value)
    matrix.apply(value)
    matrix.look_at(value, value, value)
    matrix.rotate_degrees(30, value)
    for parts in (matrix.extract_parameters_2d(True, False, value), matrix.extract_parameters_3d(value)):
        assert parts
    str(matrix), matrix.list(), matrix.matrix_rotation(), matrix.scale_factor, matrix.truck_factor
    matrix.normalize()
    matrix.transpose()
