"""Points, vectors and rectangles as scripts pass them."""

import math

import brindle
import pytest

import support

Point2d, Point3d, Vector2d, Vector3d = brindle.Point2d, brindle.Point3d, brindle.Vector2d, brindle.Vector3d
Rect2D, Rect2DI, AllocatedRect2D = brindle.Rect2D, brindle.Rect2DI, brindle.AllocatedRect2D

# A value, and the position in space that it is read as.
POSITIONS = [
    (5, (5, 5, 5)), (2.5, (2.5, 2.5, 2.5)), (True, (1, 1, 1)), (2**40, (2**40, 2**40, 2**40)), ("1.5", (1.5, 1.5, 1.5)),
    ("a", (0, 0, 0)), ("1e999", (0, 0, 0)), ("", (0, 0, 0)), (None, (0, 0, 0)), ({}, (0, 0, 0)), ({"x": 1}, (0, 0, 0)),
    ([], (0, 0, 0)), (["a"], (0, 0, 0)), (["1", "2"], (1, 2, 0)), ([1], (1, 0, 0)), ([1, 2, 3], (1, 2, 3)),
    ((1, 2), (1, 2, 0)), ([1, 2, 3, 4], (5, 2, 3)), ([1, 2, 3, 10, 20, 30, 100], (111, 22, 33)),
    ([1, "a", 2], (1, 2, 0)), ([1, None, 2], (1, 2, 0)), ([1, [7, 8], 2], (1, 2, 0)), ([1, "2.5"], (1, 2.5, 0)),
    (Point2d(1, 2), (1, 2, 0)), (Point3d(1, 2, 3), (1, 2, 3)), (Vector2d(1, 2), (1, 2, 0)),
    (Vector3d(1, 2, 3), (1, 2, 3)), ([Point3d(1, 1, 1), Vector3d(1, 0, 0)], (2, 1, 1)),
    ([Vector2d(1, 1), 10, Point2d(1, 1), 20], (12, 22, 0)), (Rect2D(1, 2), (0, 0, 0)), ([Rect2D(1, 2), 3], (3, 0, 0)),
    (AllocatedRect2D(1, 2, 3, 4), (0, 0, 0)),
]


@pytest.mark.parametrize("value, expected", POSITIONS, ids=repr)
def test_a_single_argument_is_read_leniently(value, expected):
    assert Point3d(value) == Point3d(*expected)
    assert Vector3d(value) == Vector3d(*expected)
    assert Point2d(value) == Point2d(*expected[:2])
    assert Vector2d(value) == Vector2d(*expected[:2])


@pytest.mark.parametrize("value, expected", POSITIONS, ids=repr)
def test_the_lenient_readers_give_new_objects_of_their_class(value, expected):
    for cls in (Point2d, Point3d, Vector2d, Vector3d):
        read = cls.from_qvariant(value)
        assert type(read) is cls and read is not value and read == cls(value)


# A value, what the strict readers of two and of three coordinates make of 7, 8, 9; None where they fail.
STRICT = [
    (5, [5, 8], [5, 8, 9]), (2.5, [2.5, 8], [2.5, 8, 9]), ([1], [1, 8], [1, 8, 9]), ([1, 2, 3], [1, 2], [1, 2, 3]),
    ([1, 2, 3, 4], [1, 2], [1, 2, 3]), (["a", 1], [7, 1], [7, 1, 9]), ([1, "a"], None, None), ([1, "a", 3], None, [1, 8, 3]),
    (Point2d(1, 2), [1, 2], [1, 2, 9]), (Vector2d(1, 2), [1, 2], [1, 2, 9]), (Point3d(1, 2, 3), [1, 2], [1, 2, 3]),
    (Vector3d(1, 2, 3), [1, 2], [1, 2, 3]), ([], None, None), ("a", None, None), (["a"], None, None), (None, None, None),
    ([[1, 2]], None, None), (2**40, None, None), (Rect2D(1, 2), None, None), (brindle.Matrix(), None, None),
]


@pytest.mark.parametrize("value, in_plane, in_space", STRICT, ids=repr)
def test_the_strict_readers_write_what_a_value_tells(value, in_plane, in_space):
    def checked(cls, numbers, expected):
        if expected is None:
            assert support.message_of(cls.convert_qvariant, value, *numbers) == f"Unsupported Point{len(numbers)}D type."
        else:
            assert cls.convert_qvariant(value, *numbers) == expected

    for cls in (Point2d, Vector2d):
        checked(cls, (7, 8), in_plane)
    for cls in (Point3d, Vector3d):
        checked(cls, (7, 8, 9), in_space)


def test_the_strict_readers_begin_with_zeros():
    assert Point2d.convert_qvariant(5) == [5, 0]
    assert Point3d.convert_qvariant(value=[1], z=3) == [1, 0, 3]


def test_the_strict_readers_take_a_node_where_it_stands(peg, scene):
    peg.position = [10, 20, 30]
    assert Point2d.convert_qvariant(peg) == [10, 20]
    assert Point2d.convert_qvariant(peg.position) == [10, 20]
    assert Point3d.convert_qvariant(peg.position) == [10, 20, 30]
    assert support.message_of(Point3d.convert_qvariant, peg) == "Unsupported Point3D type."
    scene.nodes.remove([peg])
    for cls in (Point2d, Point3d):
        assert support.message_of(cls.convert_qvariant, peg) == "Position is invalid."


def test_points_are_added_to_a_list():
    points = [Point2d(9, 9)]
    assert Point2d.from_qvariant([[1, 2], [3, 4]], points) is None
    Point2d.from_qvariant([], points)
    Point2d.from_qvariant([5, 6], points)
    Point2d.from_qvariant([[[7]], Point3d(8, 9, 10)], points)
    assert points == [Point2d(9, 9), Point2d(1, 2), Point2d(3, 4), Point2d(5, 6), Point2d(7, 0), Point2d(8, 9)]
    assert all(type(point) is Point2d for point in points)


@pytest.mark.parametrize("value", [[1, [3, 4]], [[1, 2], "a"], "a", None], ids=repr)
def test_points_that_fail_to_be_read_leave_the_list_as_it_was(value):
    points = []
    assert support.message_of(Point2d.from_qvariant, value, points) == "Unsupported Point2D type."
    assert points == []
    assert support.message_of(Point2d.from_qvariant, [1, 2], ()) == "Invalid argument at index 1."


@pytest.mark.parametrize("value, expected", POSITIONS, ids=repr)
def test_translating_adds_what_is_read(value, expected):
    point = Point3d(1, 2, 3)
    point.translate(value)
    assert point == Point3d(1 + expected[0], 2 + expected[1], 3 + expected[2])
    vector = Vector2d(1, 2)
    vector.translate(value)
    assert vector == Point2d(1 + expected[0], 2 + expected[1])


def test_a_matrix_in_a_list_transforms_what_is_ahead_of_it():
    matrix = brindle.Matrix(Point3d(10, 20, 30))
    assert Point3d(matrix) == Point3d(10, 20, 30)
    assert Point3d([1, matrix, 2]) == Point3d(11, 22, 30)
    matrix.scale(2, 2, 2)
    assert Point3d([1, 2, 3, matrix]) == Point3d(12, 24, 36)
    assert Point3d([matrix, 1, 2, 3]) == Point3d(11, 22, 33)


def test_a_node_is_where_it_stands_in_the_node_view(peg):
    peg.position = [10, 20, 30]
    assert Point3d(peg) == Point3d(10, 20, 0)
    assert Point3d(peg.position) == Point3d(10, 20, 0)
    assert Point2d(peg) == Point2d(10, 20)
    assert Point3d([peg, peg.position, 1]) == Point3d(1, 0, 0)


def test_the_value_of_a_column_is_a_position(column):
    assert Point3d(column[10]) == Point3d(9, 9, 9)


def test_a_node_that_is_gone_is_no_position(scene, peg):
    place = peg.position
    scene.nodes.remove(peg)
    rectangle = AllocatedRect2D(1, 2, 3, 4)
    for read in (Point2d, Point3d, Vector2d, Vector3d, AllocatedRect2D, rectangle.add, Point2d(1, 2).translate,
                 lambda value: AllocatedRect2D([value])):
        assert support.message_of(read, peg) == support.GONE
        assert support.message_of(read, place) == support.GONE
    assert rectangle == AllocatedRect2D(1, 2, 3, 4)


@pytest.mark.parametrize("value, expected", [
    ([10.7, 20.7], (10, 20)), (Vector2d(3, 4), (3, 4)), (Vector3d(3, 4, 5), (3, 4)), ([7], (7, 0)), (9, (9, 0)),
    (["a", 4], (0, 4)),
])
def test_a_node_takes_its_position_strictly(peg, value, expected):
    peg.position = [0, 0, 0]
    peg.position = value
    assert (peg.position.x, peg.position.y) == expected


@pytest.mark.parametrize("value", ["a", True, None, [], [1, 2, "a"], [[1, 2]], ["1"], {}, 2**40, Rect2D(1, 2),
                                   brindle.Colour()], ids=repr)
def test_a_node_refuses_what_is_no_position(peg, value):
    peg.position = [1, 2, 3]
    brindle.application().project.history.clear()
    assert support.message_of(setattr, peg, "position", value) == "Unsupported Point3D type."
    assert (peg.position.x, peg.position.y, peg.position.z) == (1, 2, 3)
    assert brindle.application().project.history.list() == []


def test_a_node_refuses_to_stand_where_a_node_stands(peg, scene):
    message = support.message_of(setattr, peg, "position", scene.nodes["Top/Body"])
    assert message == "Unsupported Point3D type."


# --- Rectangles -----------------------------------------------------------------------------------------------------

def test_the_texts_of_rectangles_are_as_scripts_know_them():
    assert str(brindle.AllocatedRect2DI(1, 2, 3, 4)) == "AllocatedRect2D(1, 2, 3, 4)"
    assert repr(brindle.AllocatedRect2DI(1, 2, 3, 4)) == "AllocatedRect2DI(1, 2, 3, 4)"
    assert str(Rect2DI(1, 2)) == "Rect2dI(1, 2)"
    assert repr(Rect2DI(1, 2)) == "Rect2DI(1, 2)"
    assert str(AllocatedRect2D(1, 2, 3, 4)) == "AllocatedRect2D(1, 2, 3, 4)"
    assert str(Rect2D(1.5, 2)) == "Rect2D(1.5, 2)"


def test_the_height_of_a_whole_size_may_have_a_fraction():
    assert Rect2DI(1, 2.9) == Rect2DI(1, 2)
    assert Rect2DI(1, -2.9) == Rect2DI(1, -2)
    with pytest.raises(brindle.ArgumentError):
        Rect2DI(1.5, 2)
    for height in (math.nan, math.inf, 1e300, 2**31):
        assert support.message_of(Rect2DI, 1, height) == "Invalid argument at index 1."


@pytest.mark.parametrize("value, expected", [
    ([], (0, 0, 0, 0)), ([Point2d(3, 4)], (0, 0, 3, 4)), ([Point2d(3, 4), [-1, 10], [7, 5]], (8, 6, -1, 4)),
    ([1, 5], (4, 4, 1, 1)), ([Point2d(3, 4), "a"], (3, 4, 0, 0)), (Point3d(3, 4, 5), (0, 0, 3, 4)),
    (AllocatedRect2D(1, 2, 3, 4), (1, 2, 3, 4)), (Rect2D(1, 2), (0, 0, 0, 0)), (None, (0, 0, 0, 0)),
])
def test_a_rectangle_is_made_of_what_it_shall_hold(value, expected):
    assert AllocatedRect2D(value) == AllocatedRect2D(*expected)


def test_a_rectangle_is_made_about_nodes(scene, peg):
    scene.nodes["Top/Arm"].position = [10, 20]
    scene.nodes["Top/Body"].position = [-5, 100]
    assert AllocatedRect2D([scene.nodes["Top/Arm"], scene.nodes["Top/Body"]]) == AllocatedRect2D(15, 80, -5, 20)
    assert AllocatedRect2D(peg) == AllocatedRect2D(0, 0, 10, 20)
    assert AllocatedRect2D(peg.position) == AllocatedRect2D(0, 0, 10, 10)  # x twice.


@pytest.mark.parametrize("value, expected", [
    ([2, 3], (10, 10, 1, 2)), ([20, -3], (19, 15, 1, -3)), (AllocatedRect2D(5, 5, -2, 20), (13, 23, -2, 2)),
    (Rect2D(50, 50), (11, 12, 0, 0)), ("nothing", (11, 12, 0, 0)), ([math.nan, math.nan], (10, 10, 1, 2)),
])
def test_adding_grows_a_rectangle(value, expected):
    rectangle = AllocatedRect2D(10, 10, 1, 2)
    assert rectangle.add(value) is None
    assert rectangle == AllocatedRect2D(*expected)


@pytest.mark.parametrize("margins, expected", [
    ((3, 4), (16, 18, -2, -2)), ((-3, -4), (4, 2, 4, 6)), ((1, 2, 3, 4), (14, 16, 0, 0)),
    ((-8, 0, -8, 0), (6, 10, 3, 2)), ((0, 0), (10, 10, 1, 2)),
])
def test_expanding_moves_the_sides(margins, expected):
    rectangle = AllocatedRect2D(10, 10, 1, 2)
    assert rectangle.expand(*margins) is None
    assert rectangle == AllocatedRect2D(*expected)


@pytest.mark.parametrize("margins, index", [
    ((math.nan, 1), 0), ((1, math.inf), 1), ((1, 1, -math.inf, 1), 2), ((1, 1, 1, math.nan), 3), (("1", 1), 0),
])
def test_a_margin_that_is_no_number_changes_nothing(margins, index):
    rectangle = AllocatedRect2D(10, 10, 1, 2)
    assert support.message_of(rectangle.expand, *margins) == f"Invalid argument at index {index}."
    assert rectangle == AllocatedRect2D(10, 10, 1, 2)


def test_an_allocated_rectangle_is_read_of_positions(peg):
    read = AllocatedRect2D.from_qvariant
    assert read([[1, 2], Point2d(5, 0), 3]) == AllocatedRect2D(4, 3, 1, 0)
    assert read([]) == AllocatedRect2D(0, 0, *(getattr(AllocatedRect2D([]), name) for name in "xy"))
    assert read(AllocatedRect2D(1, 2, 3, 4)) == AllocatedRect2D(1, 2, 3, 4)
    assert read(7) == AllocatedRect2D(0, 0, 7, 7)
    peg.position = [10, 20]
    assert read(peg) == AllocatedRect2D(0, 0, 10, 20)
    assert read(peg.position) == AllocatedRect2D(0, 0, 10, 10)
    assert read([peg, [0, 50]]) == AllocatedRect2D(10, 30, 0, 20)


@pytest.mark.parametrize("value, expected", [
    ([3.2, 4.6, 0], Rect2DI(3, 5)), ([-0.7, -1.7, 0], Rect2DI(0, -1)), (["a", 2, 0], Rect2DI(0, 2)),
    (Rect2D(1, 2), Rect2DI()), (AllocatedRect2D(1, 2, 3, 4), Rect2DI()), (Rect2DI(1, 2), Rect2DI()),
    (brindle.AllocatedRect2DI(1, 2, 3, 4), Rect2DI()), ([3.2, 4.6], None), ([1, "a", 0], None), (5, None), ([], None),
    (Point2d(1, 2), None), (None, None), ([1e300, 1, 0], None),
], ids=repr)
def test_a_whole_size_is_read_of_three_numbers(value, expected):
    if expected is None:
        assert support.message_of(Rect2DI.convert_qvariant, value) == "Unsupported Point3D type."
    else:
        assert Rect2DI.convert_qvariant(value) == expected and type(Rect2DI.convert_qvariant(value)) is Rect2DI


def test_colours_matrices_and_curves_have_their_readers_too():
    assert brindle.Colour.qvariant_to_rgba_int([1, 2, 3], a=9) == [1, 2, 3, 9]
    assert brindle.Colour.qvariant_to_rgba_int([1, 2], 5, 6, 7, 8) == [5, 6, 7, 8]
    assert support.message_of(brindle.Colour.qvariant_to_rgba_int, {}) == "Unsupported colour type."
    assert brindle.Matrix.from_qvariant([1, 2, 3]).origin == Point3d(1, 2, 2)
    corners = [[0, 0], [1, 6], [7, 8], [10, 1]]
    curve = brindle.Bezier(corners)
    assert brindle.Bezier.get_bezier_from_qvariant([curve, *corners]) == [curve, curve]
    assert brindle.Bezier.get_bezier_from_qvariant(corners[:3]) == []
    assert brindle.Bezier.get_bezier_from_qvariant(corners[:3], 2)[0].degree == 2
    path = brindle.BezierPath()
    brindle.BezierPath.get_bezier_path_from_qvariant([curve], path)
    assert path == brindle.BezierPath([curve])
    brindle.BezierPath.get_bezier_path_from_qvariant(brindle.BezierPath.create_circle(), path)
    assert path == brindle.BezierPath.create_circle()
    assert support.message_of(brindle.BezierPath.get_bezier_path_from_qvariant, [], curve) == "Invalid argument at index 1."
