"""Draws smooth shapes into drawings: closed outlines with a palette's colours, and lines that swell and taper."""

import math
from collections.abc import Sequence

import brindle

Point = tuple[float, float]
# How a pen presses along a line: a share of its length, and a share of the full width there.
EVEN = ((0.0, 1.0), (1.0, 1.0))
SWELLING = ((0.0, 0.55), (0.3, 1.0), (0.6, 0.8), (1.0, 0.55))
TAPERING = ((0.0, 0.15), (0.4, 1.0), (1.0, 0.15))


class Brush:
    """Paints into one art layer with the colours of a palette, each shape in a layer of its own above those before.

    Points are in units of the drawing, x to the right and y up.
    """

    def __init__(self, access: brindle.DrawingAccess, palette: brindle.Palette) -> None:
        self._access = access
        self._ids = {colour.name: colour.id for colour in palette}

    def shape(self, points: Sequence[Point], fill: str, ink: str = "ink", width: float = 6,
              matrix: brindle.Matrix | None = None) -> None:
        """A smooth closed outline through the points, filled, with a line around it; a width of 0 draws none.

        The matrix leads from a gradient's own coordinates to those of the drawing.
        """
        path = smooth([*points, points[0]])
        colour = brindle.DrawingVectorColour()
        colour.colour_id = self._ids[fill]
        if matrix is not None:
            colour.colour_matrix = matrix
        side = "LEFT" if area(points) > 0 else "RIGHT"
        self._stroke(path, ink, width, SWELLING, colour, side)

    def line(self, points: Sequence[Point], ink: str = "ink", width: float = 6,
             pressure: Sequence[tuple[float, float]] = TAPERING) -> None:
        """A smooth open line through the points, with round ends."""
        self._stroke(smooth(points), ink, width, pressure)

    def dot(self, centre: Point, radius: float, fill: str, ink: str = "ink", width: float = 0,
            height: float | None = None) -> None:
        """A filled ellipse."""
        self.shape(ring(centre, radius, radius if height is None else height), fill, ink, width)

    def _stroke(self, path: brindle.BezierPath, ink: str, width: float, pressure: Sequence[tuple[float, float]],
                colour: brindle.DrawingVectorColour | str = "ERASER", side: str = "LEFT") -> None:
        style = brindle.DrawingVectorLineStyle()
        if width:
            style.type, style.colour_id, style.thickness = "THICK_LINESTYLE", self._ids[ink], width
        layer = self._access.vector_layer_create("PEN_LAYER")
        stroke = self._access.stroke_create(path, layer, style, side, colour)
        if width:
            thickness = brindle.DrawingVectorThicknessPath([[place, share * width / 2] for place, share in pressure])
            thickness.closed = path.closed
            self._access.stroke_set_thickness(stroke, thickness)


def smooth(points: Sequence[Point]) -> brindle.BezierPath:
    """A path through points, by cubic curves (Catmull and Rom, 1974); closed where the last point is the first one."""
    closed = points[0] == points[-1]
    path = brindle.BezierPath()
    for i in range(len(points) - 1):
        before = points[i - 1] if i > 0 else points[-2] if closed else points[0]
        after = points[i + 2] if i + 2 < len(points) else points[1] if closed else points[-1]
        (x0, y0), (x1, y1) = points[i], points[i + 1]
        curve = brindle.Bezier()  # of degree 3
        curve[0], curve[3] = points[i], points[i + 1]
        curve[1] = x0 + (x1 - before[0]) / 6, y0 + (y1 - before[1]) / 6
        curve[2] = x1 - (after[0] - x0) / 6, y1 - (after[1] - y0) / 6
        path.bezier_append(curve)
    return path


def ring(centre: Point, width: float, height: float) -> list[Point]:
    """Points around an ellipse, of which a smooth outline looks like one."""
    turns = [math.tau * i / 8 for i in range(8)]
    return [(centre[0] + width * math.cos(turn), centre[1] + height * math.sin(turn)) for turn in turns]


def area(points: Sequence[Point]) -> float:
    """Twice the area of a polygon: above 0 where it runs counterclockwise."""
    following = [*points[1:], points[0]]
    return sum(x0 * y1 - x1 * y0 for (x0, y0), (x1, y1) in zip(points, following))
