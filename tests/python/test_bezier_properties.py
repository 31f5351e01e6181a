"""What holds for every curve and path of curves."""

import itertools
import math
import pickle

import brindle
import pytest
from hypothesis import assume, given, settings
from hypothesis import strategies as st

from curves import curve_of, distance, path_of, points_of, samples_of, size_of, xy


def every(*strategies, examples=None):
    """Runs a test on these values."""
    return lambda test: settings(max_examples=examples or settings.default.max_examples)(given(*strategies)(test))


coordinates = st.floats(-1000, 1000, allow_nan=False).map(lambda x: round(x, 6))
places = st.tuples(coordinates, coordinates)
parameters = st.floats(0, 1)
controls = st.lists(places, min_size=2, max_size=4)
curves = controls.map(curve_of)
chains = st.lists(controls, min_size=1, max_size=4)


def chain_of(pieces):
    """A path of several curves, each beginning where the one before it ends."""
    path = brindle.BezierPath()
    for piece in pieces:
        points = list(piece)
        if not path.empty:
            points[0] = xy(path[len(path) - 1])
        path.bezier_append(curve_of(points))
    return path


paths = chains.map(chain_of)


@every(curves, parameters)
def test_the_parts_of_a_curve_are_the_curve(curve, at):
    whole = curve.copy()
    behind = curve.split(at)
    tolerance = 1e-9 * size_of(whole)
    for s in (0, 0.25, 0.5, 0.9, 1):
        assert distance(curve.evaluate(s), whole.evaluate(at * s)) <= tolerance
        assert distance(behind.evaluate(s), whole.evaluate(at + (1 - at) * s)) <= tolerance
    assert (curve.to_parameter, behind.from_parameter) == (at, at)


@every(paths, parameters)
def test_a_path_that_was_split_is_joined_again(path, at):
    whole = path.copy()
    count = whole.bezier_count
    behind = path.split(at * count)
    tolerance = 1e-6 * size_of(whole)  # The precision of the nearest point at a cusp.
    assert distance(path[len(path) - 1], behind[0]) <= tolerance
    path.bezier_append(behind)
    for point in samples_of(whole, count, 10):
        nearest = path.evaluate(path.closest_point(point))
        assert distance(nearest, point) <= tolerance
    assert distance(path[0], whole[0]) <= tolerance
    assert distance(path[len(path) - 1], whole[len(whole) - 1]) <= tolerance


@every(curves, parameters, parameters)
def test_a_stretch_is_the_part_between_two_parameters(curve, a, b):
    stretch = curve.truncate(a, b)
    for s in (0, 0.3, 1):
        assert distance(stretch.evaluate(s), curve.evaluate(a + (b - a) * s)) <= 1e-9 * size_of(curve)


@every(st.one_of(curves, paths))
def test_reversed_twice_it_is_itself(curve):
    other = curve.copy()
    other.reverse()
    assert curve.equivalent_reverse(other) and points_of(other) == points_of(curve)[::-1]
    end = curve.bezier_count if isinstance(curve, brindle.BezierPath) else 1
    for s in (0, 0.25, 1):
        assert distance(curve.evaluate(s * end), other.evaluate((1 - s) * end)) <= 1e-9 * size_of(curve)
    other.reverse()
    assert other == curve


@every(st.one_of(curves, paths), st.floats(-180, 180), st.floats(0.1, 10), places)
def test_a_matrix_and_its_inverse_leave_a_curve(curve, angle, factor, place):
    matrix = brindle.Matrix()
    matrix.translate(*place, 0)
    matrix.rotate_degrees(angle)
    matrix.scale(factor, factor, 1)
    other = curve.copy()
    other.multiply(matrix)
    for point, moved in zip(curve, other):
        x, y, _ = matrix.apply([*xy(point)])
        assert math.dist((x, y), xy(moved)) <= 1e-9 * size_of(curve) * 20
    other.multiply(matrix.get_inverse())
    for point, back in zip(curve, other):
        assert distance(point, back) <= 1e-8 * size_of(curve)


@every(st.one_of(curves, paths))
def test_the_box_is_the_smallest_about_the_curve(curve):
    box = curve.bounding_box
    end = curve.bezier_count if isinstance(curve, brindle.BezierPath) else 1
    tolerance = 1e-9 * size_of(curve)
    dense = [xy(point) for point in samples_of(curve, end, 200)]
    for x, y in dense:
        assert box.x - tolerance <= x <= box.x + box.width + tolerance
        assert box.y - tolerance <= y <= box.y + box.height + tolerance
    coarse = 0.01 * size_of(curve)  # The samples come about as near to each side.
    assert min(x for x, _ in dense) <= box.x + coarse and max(x for x, _ in dense) >= box.x + box.width - coarse
    assert min(y for _, y in dense) <= box.y + coarse and max(y for _, y in dense) >= box.y + box.height - coarse


@every(st.one_of(curves, paths), places)
def test_no_sample_of_a_curve_is_nearer_than_the_nearest_point(curve, place):
    end = curve.bezier_count if isinstance(curve, brindle.BezierPath) else 1
    try:
        at = curve.closest_point([*place])
    except brindle.Error as failure:
        # The search reaches as far as the control points but the last; for a point on all of those it reaches nowhere.
        assert str(failure) == "Failed to find a nearest point."
        assert isinstance(curve, brindle.Bezier) and {xy(p) for p in curve[:-1]} == {place}
        return
    assert 0 <= at <= end
    target = brindle.Point2d(*place)
    nearest = distance(curve.evaluate(at), target)
    assert nearest <= min(distance(point, target) for point in samples_of(curve, end)) + 1e-7 * size_of(curve)


@every(paths, paths)
def test_intersections_lie_on_both_curves(path, other):
    tolerance = 1e-6 * size_of(path, other)
    found = path.intersections(other)
    assert path.intersecting(other) == bool(found)
    for point in found:
        for curve in (path, other):
            assert distance(curve.evaluate(curve.closest_point(point)), point) <= tolerance


@every(places, st.floats(0, 180), st.floats(5, 175), st.tuples(*[st.floats(1, 500)] * 4))
def test_lines_that_cross_meet_at_their_crossing(crossing, angle, between, lengths):
    def end(degrees, length):
        x, y = crossing
        return [x + length * math.cos(math.radians(degrees)), y + length * math.sin(math.radians(degrees))]

    one = curve_of([end(angle, lengths[0]), end(angle + 180, lengths[1])])
    other = curve_of([end(angle + between, lengths[2]), end(angle + between + 180, lengths[3])])
    found = one.intersections(other)
    assert one.intersecting(other) and len(found) == 1
    assert distance(found[0], brindle.Point2d(*crossing)) <= 1e-6 * size_of(one, other)


@every(paths, parameters)
def test_a_point_that_is_inserted_leaves_the_shape(path, at):
    whole = path.copy()
    path.insert_point(at * whole.bezier_count)
    assert path.bezier_count in (whole.bezier_count, whole.bezier_count + 1)
    for point in samples_of(whole, whole.bezier_count, 10):
        assert distance(path.evaluate(path.closest_point(point)), point) <= 1e-6 * size_of(whole)


def farthest(path, points):
    return max(distance(path.evaluate(path.closest_point(point)), brindle.Point2d(*point)) for point in points)


@every(st.lists(places, min_size=2, max_size=60), st.booleans())
def test_a_fit_comes_within_1_of_its_points(points, closed):
    points = [list(point) for point in points]
    assume(len({tuple(point) for point in points}) > 1)
    fit = brindle.BezierPath.create_bezier_fit(points, closed)
    assert farthest(fit, points) <= 1 + 1e-6
    assert math.dist(xy(fit[0]), points[0]) <= 1e-9 * 1000
    if closed:
        assert fit.closed


@every(st.floats(1, 100), st.floats(0.5, 30), st.integers(20, 300), examples=25)
def test_a_smooth_row_of_points_needs_few_curves(height, waves, count):
    points = [[i * 1000 / count, height * math.sin(waves * i / count)] for i in range(count + 1)]
    fit = brindle.BezierPath.create_bezier_fit(points)
    assert farthest(fit, points) <= 1 + 1e-6
    assert fit.bezier_count <= count
    one = brindle.BezierPath.create_bezier_fit(points, one_bezier=True)
    assert one.bezier_count == 1 and xy(one[0]) == tuple(points[0]) and xy(one[3]) == tuple(points[-1])


@every(paths)
def test_a_path_survives_a_pickle(path):
    other = pickle.loads(pickle.dumps(path))
    assert other == path and [other.point_on_curve(i) for i in range(len(other))] == [
        path.point_on_curve(i) for i in range(len(path))]


# --- Whatever a script passes ---------------------------------------------------------------------------------------

ODD = [0.0, 1.0, -1.0, 5e-324, 1e-160, 1e154, 1e160, 1.7e308, -1.7e308, math.inf, -math.inf, math.nan]


@every(st.lists(st.tuples(st.sampled_from(ODD), st.sampled_from(ODD)), min_size=1, max_size=4), st.sampled_from(ODD),
       examples=300)
def test_odd_points_give_a_result_or_one_sentence(points, number):
    for make in (curve_of, path_of):
        try:
            sample = make([list(point) for point in points])
        except brindle.Error:
            continue
        names = [name for name in dir(sample) if not name.startswith("_")]
        for name in names:
            for arguments in ((), (number,), (number, 0.5), ([number, number],), (sample,)):
                curve = sample.copy()
                try:
                    member = getattr(curve, name)
                    result = member(*arguments) if callable(member) and not isinstance(member, brindle.BaseObject) else member
                    repr(result)
                except (brindle.Error, TypeError, OverflowError, ValueError) as failure:
                    assert str(failure)


@pytest.mark.parametrize("points", [[[1, 2]] * 500, [[0, 0], [1, 0]] * 250, [[i, 0] for i in range(500)],
                                    [[i * 1e-9, 0] for i in range(500)], [[1e15 + i, 1e15] for i in range(500)],
                                    [[i % 7, i % 11] for i in range(1500)]],
                         ids=["one place", "to and fro", "a line", "tiny", "far away", "scattered"])
def test_degenerate_points_are_fitted(points):
    for closed, one in itertools.product((False, True), repeat=2):
        fit = brindle.BezierPath.create_bezier_fit(points, closed, one)
        assert not fit.empty
        fit.intersecting()
