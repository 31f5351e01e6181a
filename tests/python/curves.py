"""Curves to test with, and short ways to look at them."""

import math

import brindle


def curve_of(points):
    """A curve with one point more than its degree."""
    curve = brindle.Bezier()
    curve.degree = len(points) - 1
    for index, point in enumerate(points):
        curve[index] = point
    return curve


def path_of(points):
    """A path of that one curve."""
    path = brindle.BezierPath()
    path.bezier_append(curve_of(points))
    return path


def polyline(points):
    """A path of straight lines from point to point."""
    path = brindle.BezierPath.create_rectangle()
    path.erase(1, 4)
    path[0] = [list(map(float, point)) for point in points] if len(points) > 1 else points[0]
    return path


def xy(point):
    return point.x, point.y


def points_of(curve):
    return [xy(point) for point in curve]


def pairs(points):
    return [tuple(map(float, point)) for point in points]


def distance(a, b):
    return math.dist(xy(a), xy(b))


def size_of(*curves):
    """How large the coordinates are, at least 1: what tolerances are multiples of."""
    return max([1.0, *(abs(c) for curve in curves for point in curve for c in xy(point))])


def samples_of(curve, end, count=100):
    """So many points of each curve up to a parameter, those where curves join among them."""
    return [curve.evaluate(i / count) for i in range(end * count + 1)]
