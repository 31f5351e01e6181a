"""Lines whose thickness differs from side to side, for programs that know one thickness at a point."""

import itertools
import math


def thicknesses(line):
    """The thickness of both sides together at each point of the path, between keys evenly along the length."""
    points = line.points
    ways = [length(points[start:start + 4]) for start in range(0, len(points) - 1, 3)]
    whole = sum(ways)
    return [at(line.keys, way / whole) for way in itertools.accumulate(ways, initial=0.0)]


def at(keys, share):
    for (start, *from_sides), (end, *to_sides) in zip(keys, keys[1:]):
        if share <= end:
            part = (share - start) / (end - start)
            return sum(from_sides) + (sum(to_sides) - sum(from_sides)) * part
    return sum(keys[-1][1:])


def length(curve, steps=32):
    points = [point(curve, step / steps) for step in range(steps + 1)]
    return sum(map(math.dist, points, points[1:]))


def point(curve, t):
    s = 1 - t
    weights = s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t
    return tuple(sum(weight * place[axis] for weight, place in zip(weights, curve)) for axis in (0, 1))


def middle(polygons):
    """Points along the middle of an outline, each with the thickness there.

    The outline's pieces with four corners follow one another from its beginning to its end: a corner on one side, the next
    one, and the two of the other side on the way back.
    """
    pieces = [polygon[:4] for polygon in polygons if len(set(polygon)) == 4]
    ends = [(piece[0], piece[3]) for piece in pieces] + [(pieces[-1][1], pieces[-1][2])]
    return [((a[0] + b[0]) / 2, (a[1] + b[1]) / 2, math.dist(a, b)) for a, b in ends]
