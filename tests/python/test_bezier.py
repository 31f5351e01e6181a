"""Curves and paths of curves: what a script makes of them."""

import copy
import itertools
import math
import pickle

import brindle
import pytest

import support
from curves import curve_of, path_of, pairs, points_of, polyline, xy

HUMP = [[0, 0], [0, 10], [10, 10], [10, 0]]
LOOP = [[0, 0], [20, 10], [-10, 10], [10, 0]]

NO_POINT = "Unsupported Point2D type."
OUT_OF_RANGE = "Index is out of range."
DEGREE = "Invalid bezier degree - valid value is from 0 through 3."
BOUNDARY = "Unexpected boundary type. Valid types are : Open, Closed"

BOTH = pytest.mark.parametrize("make", [curve_of, path_of], ids=["Bezier", "BezierPath"])

# --- Making curves --------------------------------------------------------------------------------------------------


def test_a_curve_made_without_arguments_is_a_cubic_at_the_origin():
    curve = brindle.Bezier()
    assert (curve.degree, points_of(curve), str(curve)) == (3, [(0, 0)] * 4, "Bezier()[4]")
    assert (curve.from_boundary, curve.to_boundary) == ("Closed", "Closed")
    assert (curve.from_parameter, curve.to_parameter) == (0, 1)
    assert points_of(brindle.Bezier(None)) == [(0, 0)] * 4


@pytest.mark.parametrize("value, points", [
    ([[1, 2], [3, 4], [5, 6]], [(0, 0)] * 4),
    ([[1, 2], [3, 4], [5, 6], [7, 8]], [(1, 2), (3, 4), (5, 6), (0, 0)]),
    ([[1, 2], [3, 4], [5, 6], [7, 8], [9, 9]], [(1, 2), (3, 4), (5, 6), (0, 0)]),
    ([brindle.Point2d(1, 2), [3, 4], brindle.Vector2d(5, 6), brindle.Point3d(7, 8, 9)],
     [(1, 2), (3, 4), (5, 6), (0, 0)]),
    ([], [(0, 0)] * 4), (5, [(0, 0)] * 4), ([1, 2], [(0, 0)] * 4), (brindle.Point2d(1, 2), [(0, 0)] * 4),
    ([1, 2, 3, 4, 5, 6, 7, 8], [(0, 0)] * 4),
], ids=str)
def test_a_curve_is_read_from_points(value, points):
    assert points_of(brindle.Bezier(value)) == points
    assert points_of(brindle.Bezier(value, 1)) == points  # The degree is not looked at.


def test_a_curve_is_the_first_of_those_in_a_long_enough_list():
    hump, loop = curve_of(HUMP), curve_of(LOOP)
    assert brindle.Bezier([loop, hump, hump, hump]) == loop
    assert brindle.Bezier([loop, hump, hump]) == brindle.Bezier()
    assert brindle.Bezier(hump) == hump
    hump[0] = 5
    assert brindle.Bezier(hump) == hump


@pytest.mark.parametrize("value", ["x", True, {}, ["a", "b", "c", "d"], [[1, 2], [3, 4], "x", [5, 6]], 1 << 40],
                         ids=repr)
@pytest.mark.parametrize("cls", [brindle.Bezier, brindle.BezierPath])
def test_what_tells_no_point_makes_no_curve(cls, value):
    assert support.message_of(cls, value) == NO_POINT


def test_a_path_is_read_from_curves_points_or_a_path():
    assert len(brindle.BezierPath()) == 0
    assert points_of(brindle.BezierPath(path_of(HUMP))) == pairs(HUMP)
    assert points_of(brindle.BezierPath(HUMP)) == pairs(HUMP[:3]) + [(0, 0)]
    assert points_of(brindle.BezierPath(HUMP, 2)) == pairs(HUMP[:2]) + [(0, 0)]
    assert points_of(brindle.BezierPath(HUMP, degree=1)) == [(0, 0), (0, 0)]
    assert len(brindle.BezierPath(HUMP, 4)) == 0
    assert support.message_of(brindle.BezierPath, HUMP * 3, 4) == DEGREE
    line = curve_of([[0, 0], [1, 0]])
    assert brindle.BezierPath([line] * 4).bezier_count == 7  # Lines lead back from the end of each to the next.
    with pytest.raises(brindle.ArgumentError):
        brindle.BezierPath(HUMP, -1)


# --- The list of points ---------------------------------------------------------------------------------------------


@BOTH
def test_a_curve_is_the_list_of_its_control_points(make):
    curve = make(HUMP)
    assert len(curve) == curve.size() == 4
    assert points_of(curve) == points_of(curve.list()) == points_of(curve[:]) == pairs(HUMP)
    assert xy(curve[2]) == (10, 10)
    assert all(isinstance(point, brindle.Point2d) for point in curve)
    for index in (4, -1, 2**31 - 1):
        assert support.message_of(lambda i: curve[i], index) == OUT_OF_RANGE
        assert support.message_of(curve.set, index, [1, 2]) == OUT_OF_RANGE
    assert support.message_of(lambda: curve["first"]) == "Unable to retrieve item in container."
    assert points_of(curve) == pairs(HUMP)


@BOTH
def test_a_point_got_from_a_curve_is_a_copy(make):
    curve = make(HUMP)
    curve[0].x = 99
    assert xy(curve[0]) == (0, 0)


@BOTH
def test_points_are_written_one_or_several(make):
    curve = make(HUMP)
    curve[1] = brindle.Point2d(1, 2)
    curve[2] = [[3, 4]]
    assert points_of(curve) == [(0, 0), (1, 2), (3, 4), (10, 0)]
    curve[0] = [[5, 5], [6, 6]]
    assert points_of(curve) == [(5, 5), (6, 6), (3, 4), (10, 0)]
    assert support.message_of(curve.set, 0, []) == "Must specify a point."
    assert support.message_of(curve.set, 0, [[1, 2], "x"]) == NO_POINT
    assert points_of(curve) == [(5, 5), (6, 6), (3, 4), (10, 0)]


def test_several_points_reach_the_end_of_a_path_and_not_of_a_curve():
    curve, path = curve_of(HUMP), path_of(HUMP)
    assert support.message_of(curve.set, 2, [[1, 1], [2, 2]]) == OUT_OF_RANGE
    assert points_of(curve) == pairs(HUMP)
    path[2] = [[1, 1], [2, 2], [3, 3]]
    assert points_of(path) == [(0, 0), (0, 10), (1, 1), (2, 2), (3, 3)]


@BOTH
def test_points_are_looked_for_exactly(make):
    curve = make(HUMP)
    assert [0, 10] in curve and brindle.Point2d(10, 10) in curve and [[0, 0], [10, 0]] in curve
    assert [5, 7.5] not in curve and [] not in curve and [[0, 0], [1, 1]] not in curve
    assert [math.nan, 0] not in curve and curve.contains(0)
    assert support.message_of(curve.contains, "x") == NO_POINT
    curve[0] = [math.nan, 0]
    assert [math.nan, 0] not in curve


@BOTH
def test_two_loops_over_a_curve_are_independent(make):
    curve = make(HUMP)
    assert [(xy(a), xy(b)) for a in curve for b in curve] == list(itertools.product(pairs(HUMP), repeat=2))


@BOTH
def test_a_curve_is_copied_compared_and_pickled(make):
    curve = make(LOOP)
    for other in (curve.copy(), copy.copy(curve), copy.deepcopy(curve), pickle.loads(pickle.dumps(curve))):
        assert other == curve and type(other) is type(curve) and repr(other) == repr(curve)
        other[0] = [5, 5]
        assert other != curve
    assert points_of(curve) == pairs(LOOP)
    assert (curve == HUMP, curve == None, curve == "x") == (False, False, False)  # noqa: E711


def test_a_repr_shows_the_control_points():
    curve = curve_of([[0, 0], [1 / 3, 10], [10, 1e9], [10, -0.5]])
    assert repr(curve) == "<brindle.Bezier: (0, 0) [0.333333, 10] [10, 1e+09] (10, -0.5)>"
    curve.degree = 0
    assert repr(curve) == "<brindle.Bezier: (0, 0)>"
    assert repr(curve_of([[math.nan, math.inf], [1, 2]])) == "<brindle.Bezier: (nan, inf) (1, 2)>"
    assert repr(brindle.BezierPath()) == "<brindle.BezierPath: empty>"
    path = path_of(HUMP)
    path[3] = [[10, 0], [20, 0]]
    assert repr(path) == "<brindle.BezierPath: (0, 0) [0, 10] [10, 10] (10, 0) (20, 0)>"
    assert str(path) == "BezierPath()[5]"


def test_the_repr_of_a_long_path_shows_both_ends():
    path = polyline([[i, 0] for i in range(12)])
    assert repr(path) == "<brindle.BezierPath: " + " ".join(f"({i}, 0)" for i in range(12)) + ">"
    path = polyline([[i, 0] for i in range(1000)])
    assert repr(path) == ("<brindle.BezierPath: (0, 0) (1, 0) (2, 0) (3, 0) (4, 0) (5, 0) (6, 0) (7, 0) ... "
                          "(998, 0) (999, 0), 1000 points>")


def test_a_curve_equals_what_it_is_made_of():
    curve = brindle.Bezier(LOOP)
    assert curve == LOOP and LOOP == curve and not curve != LOOP
    assert curve == [curve] * 4 and curve != HUMP and curve_of(LOOP) != LOOP
    curves = [curve, curve_of(HUMP)] * 2
    assert brindle.BezierPath(curves) == curves != brindle.BezierPath(curves[::-1])
    for empty in (brindle.Bezier(), brindle.BezierPath()):
        assert empty == [] and empty == [[1, 2]] and empty == brindle.Point2d() and brindle.Point2d() == empty


def test_a_curve_equals_nothing_that_it_cannot_be_made_of():
    for curve in (brindle.Bezier(), brindle.BezierPath()):
        for other in (brindle.Rect2D(), brindle.Matrix(2), brindle.Colour(), None, "x", ["x"], object(), {}, b"", 2**70):
            assert (curve == other, other == curve, curve != other, other != curve) == (False, False, True, True)
    assert brindle.Bezier() != brindle.BezierPath() and brindle.BezierPath() != brindle.Bezier()


def test_a_pickle_keeps_all_of_a_curve():
    curve = curve_of(LOOP)
    curve.degree = 1
    curve.from_boundary = "open"
    curve.to_parameter = 0.75
    curve[0] = [math.inf, -0.0]
    other = pickle.loads(pickle.dumps(curve))
    assert (other.degree, other.from_boundary, other.to_boundary) == (1, "Open", "Closed")
    assert (other.from_parameter, other.to_parameter) == (0, 0.75)
    other.degree = 3
    assert points_of(other) == [(math.inf, 0)] + pairs(LOOP[1:])


@pytest.mark.parametrize("cls, state", [
    (cls, state) for cls, states in {
        brindle.Bezier: [(), (3,), (9,) * 13, (4, *[0.0] * 8, True, True, 0.0, 1.0), (-1, *[0.0] * 8, True, True, 0.0, 1.0),
                         (3, *[0.0] * 8, True, True, 0.0, 1.0, 0.0), (3, *["x"] * 12), ("a", "b")],
        brindle.BezierPath: [(0.0,), (0.0, 0.0), (0.0, 0.0, False), (0.0, 0.0, 1), ("a",),
                             (0.0, 0.0, True, *[1.0, 1.0, False] * 3)],
    }.items() for state in states
], ids=repr)
def test_a_pickle_that_was_tampered_with_is_refused(cls, state):
    assert support.message_of(brindle._brindle._rebuild, cls, state) == "Invalid argument at index 1."


# --- A curve --------------------------------------------------------------------------------------------------------


def test_a_degree_is_from_0_to_3():
    curve = curve_of(HUMP)
    for degree in (4, -1, 2**31 - 1):
        assert support.message_of(setattr, curve, "degree", degree) == DEGREE
    curve.degree = 0
    assert (len(curve), xy(curve.evaluate(0.3))) == (1, (0, 0))
    curve.degree = 3
    assert points_of(curve) == pairs(HUMP)


@pytest.mark.parametrize("end", ["from_boundary", "to_boundary"])
def test_a_boundary_is_open_or_closed_in_any_case(end):
    curve = brindle.Bezier()
    for text, result in (("open", "Open"), ("closed", "Closed"), ("OPEN", "Open")):
        setattr(curve, end, text)
        assert getattr(curve, end) == result
    for text in ("", "half", "Open "):
        assert support.message_of(setattr, curve, end, text) == BOUNDARY
    assert getattr(curve, end) == "Open"


def test_a_parameter_that_is_kept_is_finite():
    curve = brindle.Bezier()
    for name, value in itertools.product(("from_parameter", "to_parameter"), (math.nan, math.inf)):
        assert support.message_of(setattr, curve, name, value) == support.not_finite(name)
    assert (curve.from_parameter, curve.to_parameter) == (0, 1)


def test_a_curve_tells_its_shape():
    hump = curve_of(HUMP)
    assert (hump.line, hump.cusp, hump.inflections) == (False, False, 0)
    assert (xy(hump.from_tangent), xy(hump.to_tangent)) == ((0, 1), (0, -1))
    assert isinstance(hump.from_tangent, brindle.Vector2d)
    assert hump.bounding_box == brindle.AllocatedRect2D(10, 7.5, 0, 0)
    assert curve_of([[0, 0], [10, 10], [0, -10], [10, 0]]).inflections == 1
    assert curve_of([[0, 0], [10, 10], [0, 10], [10, 0]]).cusp
    assert curve_of([[0, 0], [1, 1]]).line
    assert points_of(hump.derivative()) == [(0, 30), (30, 0), (0, -30)]
    assert xy(hump.evaluate_and_round(0.5)) == (5, 8)
    hump.straighten()
    assert points_of(hump) == [(0, 0), (10, 0)]


@BOTH
@pytest.mark.parametrize("bad", [math.nan, math.inf, -math.inf])
def test_a_number_that_is_not_finite_is_refused(make, bad):
    curve = make(HUMP)
    calls = [("evaluate", (bad,), 0), ("split", (bad,), 0), ("truncate", (bad, 1), 0), ("truncate", (0, bad), 1),
             ("round", (bad,), 0)]
    calls += [("evaluate_and_round", (bad,), 0)] if make is curve_of else [("insert_point", (bad,), 0)]
    for name, arguments, index in calls:
        assert support.message_of(getattr(curve, name), *arguments) == f"Invalid argument at index {index}."
    assert support.message_of(curve.closest_point, [bad, 0]) == "Failed to find a nearest point."
    assert points_of(curve) == pairs(HUMP)


# --- A path ---------------------------------------------------------------------------------------------------------


def test_a_circle_starts_above_its_centre_and_runs_clockwise():
    circle = brindle.BezierPath.create_circle()
    assert (circle.bezier_count, len(circle), xy(circle[0]), circle.closed) == (4, 13, (0, 1), True)
    assert circle.polygon_clockwise
    assert circle == brindle.BezierPath.create_circle(x=0, y=0, r=1, arcs=4)
    assert circle == brindle.BezierPath.create_oval()
    assert brindle.BezierPath.create_circle(arcs=0).empty
    for arcs in (1_000_001, 2**32 - 1):
        assert support.message_of(brindle.BezierPath.create_circle, 0, 0, 1, arcs) == "Invalid argument at index 3."
    with pytest.raises(brindle.ArgumentError):
        brindle.BezierPath.create_circle(arcs=-1)
    assert support.message_of(brindle.BezierPath.create_oval, 0, math.nan) == "Invalid argument at index 1."


def test_a_rectangle_goes_along_x_first():
    rectangle = brindle.BezierPath.create_rectangle(1, 2, 5, 4)
    assert points_of(rectangle) == [(1, 2), (5, 2), (5, 4), (1, 4), (1, 2)]
    assert points_of(brindle.BezierPath.create_rectangle()) == [(0, 0), (1, 0), (1, 1), (0, 1), (0, 0)]


def test_a_static_method_needs_no_object_and_takes_one():
    assert len(brindle.BezierPath().create_circle()) == 13
    with pytest.raises(TypeError):
        brindle.BezierPath.create_circle(radius=1)


def test_curves_of_a_path_are_given_appended_and_replaced():
    path = path_of(HUMP)
    path.bezier_append(curve_of([[10, 0], [15, -5], [20, 0]]))
    path.bezier_append_front(curve_of([[-5, 0], [0, 0]]))
    assert [path.bezier_degree(i) for i in range(path.bezier_count)] == [1, 3, 2]
    assert points_of(path.bezier(1)) == pairs(HUMP)
    path.bezier_set(1, curve_of([[0, 0], [10, 0]]))
    assert points_of(path) == [(-5, 0), (0, 0), (10, 0), (15, -5), (20, 0)]
    for call in (lambda: path.bezier(3), lambda: path.bezier_degree(3), lambda: path.bezier_set(3, curve_of(HUMP)),
                 lambda: path.bezier_set(2, path), lambda: path.point_on_curve(5), lambda: path.erase(4, 2),
                 lambda: path.get_polygon_length(5)):
        assert support.message_of(call) == OUT_OF_RANGE
    path.bezier_append(path)
    assert path.bezier_count == 7  # With a line back to the first point.


def test_a_path_is_closed_and_emptied_and_no_more():
    path = polyline([(0, 0), (1, 0), (1, 1)])
    path.closed = False
    assert not path.closed
    path.closed = True
    assert path.closed and points_of(path)[-1] == (0, 0)
    path.closed = False
    assert path.closed
    path.empty = False
    assert len(path) == 4
    path.empty = True
    assert path.empty and len(path) == 0
    path.empty = False
    assert path.empty


def test_trimming_pads():
    path = polyline([(0, 0), (1, 0), (2, 0)])
    assert support.message_of(path.trim, 2) == "Cannot trim path to fewer points than available."
    assert support.message_of(path.trim, 10**9) == "Invalid argument at index 0."
    path.trim(5)
    assert len(path) == 5 and xy(path.evaluate(path.bezier_count)) == (2, 0)


def test_the_polygon_of_a_path_is_measured():
    path = path_of(HUMP)
    assert path.polygon_length == path.get_polygon_length() == path.get_polygon_length(-1) == 30
    assert [path.get_polygon_length(i) for i in range(4)] == [0, 10, 20, 30]
    assert (path.polygon_area, path.polygon_clockwise) == (100, True)
    assert (path.points_on_curve, [path.point_on_curve(i) for i in range(4)]) == (2, [True, False, False, True])
    assert path.bounding_box_inner == brindle.AllocatedRect2D(10, 0, 0, 0)


def test_areas():
    square = brindle.BezierPath.create_rectangle(0, 0, 10, 10)
    assert square.containing([5, 5]) and square.containing(5) and not square.containing([15, 5])
    assert brindle.BezierPath.create_circle(5, 5, 4).inside(square)
    assert brindle.BezierPath.create_circle(50, 5, 4).outside(square)
    across = brindle.BezierPath.create_circle(10, 5, 4)
    assert not across.inside(square) and not across.outside(square)
    assert square.intersecting(across) and len(square.intersections(across)) == 2
