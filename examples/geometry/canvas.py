"""Draws curves, points and text as SVG: panels in a row, each a window onto a plane with y upwards."""

from collections.abc import Iterable
from typing import TypeAlias
from xml.sax.saxutils import escape

import brindle

BLUE, RED, GREEN, ORANGE, GREY = "#2f6db3", "#c8432b", "#2e8b57", "#c77d0a", "#8a8a8a"

GAP = 16  # between panels, and around them
LINE = 15  # of text
CODE = 'font-family="monospace" font-size="11"'


Place: TypeAlias = brindle.Point2d | brindle.Point3d | Iterable[float]


def number(value: float) -> str:
    """Two digits are finer than a picture shows, and the same on every machine."""
    return f"{round(value, 2) + 0.0:g}"


class Panel:
    """A window onto the plane: what is drawn is given in the coordinates of `box`, (left, bottom, right, top). Without
    a height in pixels both axes have the same scale."""

    def __init__(self, title: str, box: tuple[float, float, float, float], caption: str = "",
                 width: float = 236, height: float | None = None) -> None:
        self.title = title.split("\n")
        self.caption = caption.split("\n") if caption else []
        self.box = box
        self.width = width
        left, bottom, right, top = box
        scale = width / (right - left)
        self.height = height or scale * (top - bottom)
        self.lines: list[str] = []
        self.matrix = brindle.Matrix()
        self.matrix.translate(0, self.height, 0)
        self.matrix.scale(scale, -self.height / (top - bottom), 1)
        self.matrix.translate(-left, -bottom, 0)
        self.grid()

    def at(self, point: Place) -> tuple[float, float]:
        x, y, _ = self.matrix.apply([*coordinates(point)])
        return x, y

    def grid(self) -> None:
        left, bottom, right, top = self.box
        step = next(step for step in (1, 2, 5, 10, 20, 50, 100) if (right - left) / step <= 15)
        for axis, low, high in ((0, left, right), (1, bottom, top)):
            for place in range(int(low // step) * step, int(high) + step, step):
                if low <= place <= high:
                    ends = ((place, bottom), (place, top)) if axis == 0 else ((left, place), (right, place))
                    self.line(*ends, "#c9c9c9" if place == 0 else "#eeeeee", 1)

    def line(self, a: Place, b: Place, colour: str, width: float = 1.5, dash: str = "") -> None:
        (x1, y1), (x2, y2) = self.at(a), self.at(b)
        dashes = f' stroke-dasharray="{dash}"' if dash else ""
        self.lines.append(f'<line x1="{number(x1)}" y1="{number(y1)}" x2="{number(x2)}" y2="{number(y2)}" '
                          f'stroke="{colour}" stroke-width="{width}"{dashes}/>')

    def arrow(self, a: Place, b: Place, colour: str, width: float = 1.5) -> None:
        self.line(a, b, colour, width)
        (x1, y1), (x2, y2) = self.at(a), self.at(b)
        length = ((x2 - x1) ** 2 + (y2 - y1) ** 2) ** 0.5 or 1.0
        x, y = (x2 - x1) / length * 7, (y2 - y1) / length * 7
        corners = [(x2, y2), (x2 - x - y / 2, y2 - y + x / 2), (x2 - x + y / 2, y2 - y - x / 2)]
        self.lines.append(f'<polygon points="{" ".join(f"{number(x)},{number(y)}" for x, y in corners)}" fill="{colour}"/>')

    def path(self, path: brindle.BezierPath, colour: str, width: float = 2, fill: str = "none",
             dash: str = "") -> None:
        """A BezierPath, whose curves become the curves of the picture."""
        drawn = path.copy()
        drawn.multiply(self.matrix)
        dashes = f' stroke-dasharray="{dash}"' if dash else ""
        self.lines.append(f'<path d="{path_data(drawn)}" fill="{fill}" stroke="{colour}" stroke-width="{width}"{dashes}/>')

    def curve(self, curve: brindle.Bezier, colour: str, width: float = 2, dash: str = "") -> None:
        self.path(path_of(curve), colour, width, dash=dash)

    def controls(self, path: brindle.BezierPath, colour: str) -> None:
        """The control points of a path, with the handles as lines to the points that they belong to."""
        points = list(path)
        for index, point in enumerate(points):
            if path.point_on_curve(index):
                self.dot(point, colour, 3.5)
                continue
            end = index - 1 if path.point_on_curve(index - 1) else index + 1
            self.line(point, points[end], colour, 0.8)
            self.ring(point, colour, 2.5)

    def dot(self, point: Place, colour: str, radius: float = 3) -> None:
        x, y = self.at(point)
        self.lines.append(f'<circle cx="{number(x)}" cy="{number(y)}" r="{radius}" fill="{colour}"/>')

    def ring(self, point: Place, colour: str, radius: float = 3) -> None:
        x, y = self.at(point)
        self.lines.append(f'<circle cx="{number(x)}" cy="{number(y)}" r="{radius}" fill="white" stroke="{colour}"/>')

    def text(self, point: Place, text: str, dx: float = 6, dy: float = -6, colour: str = "#333333",
             anchor: str = "start", font: str = 'font-size="11"') -> None:
        """Beside a point, the shift in pixels; white around it, so that it reads on lines."""
        x, y = self.at(point)
        self.lines.append(f'<text x="{number(x + dx)}" y="{number(y + dy)}" fill="{colour}" {font} text-anchor="{anchor}" '
                          f'stroke="white" stroke-width="3" paint-order="stroke">{escape(text)}</text>')

    def area(self, corner: Place, opposite: Place, colour: str, opacity: float = 1, stroke: str = "none") -> None:
        (x1, y1), (x2, y2) = self.at(corner), self.at(opposite)
        self.lines.append(f'<rect x="{number(x1)}" y="{number(y2)}" width="{number(x2 - x1)}" height="{number(y1 - y2)}" '
                          f'fill="{colour}" fill-opacity="{number(opacity)}" stroke="{stroke}"/>')


def coordinates(point: Place) -> tuple[float, ...]:
    return (point.x, point.y) if isinstance(point, (brindle.Point2d, brindle.Point3d)) else tuple(point)


def path_of(curve: brindle.Bezier) -> brindle.BezierPath:
    path = brindle.BezierPath()
    path.bezier_append(curve)
    return path


def path_through(points: object) -> brindle.BezierPath:
    """Straight lines from point to point."""
    path = brindle.BezierPath.create_rectangle()
    path.erase(1, 4)
    path[0] = points
    return path


def path_data(path: brindle.BezierPath) -> str:
    """The curves of a path in the letters of SVG: L for degree 1, Q for 2, C for 3."""
    if path.empty:
        return ""
    spelled = ["M " + " ".join(number(c) for c in coordinates(path[0]))]
    for index in range(path.bezier_count):
        curve = path.bezier(index)
        points = " ".join(number(c) for point in list(curve)[1:] for c in coordinates(point))
        spelled.append(f"{' LQC'[curve.degree]} {points}")
    return " ".join(spelled)


def picture(*panels: Panel) -> str:
    """The text of an SVG file with the panels side by side, their titles above and their captions below."""
    head = LINE * max(len(panel.title) for panel in panels) + 6
    foot = LINE * max(len(panel.caption) for panel in panels) + 4
    tallest = max(panel.height for panel in panels)
    width = sum(panel.width for panel in panels) + GAP * (len(panels) + 1)
    height = tallest + head + foot + 2 * GAP
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{number(width)}" height="{number(height)}" '
             f'viewBox="0 0 {number(width)} {number(height)}" font-family="sans-serif" font-size="12">',
             '<rect width="100%" height="100%" fill="white"/>']
    x: float = GAP
    for index, panel in enumerate(panels):
        y = GAP + head
        first = y - 8 - LINE * (len(panel.title) - 1)
        lines += [f'<text x="{number(x)}" y="{number(first + LINE * i)}" {CODE} xml:space="preserve">{escape(line)}</text>'
                  for i, line in enumerate(panel.title)]
        lines.append(f'<clipPath id="panel{index}"><rect width="{number(panel.width)}" height="{number(panel.height)}"/>'
                     '</clipPath>')
        lines.append(f'<g transform="translate({number(x)} {number(y)})" clip-path="url(#panel{index})">')
        lines += [*panel.lines, "</g>"]
        lines.append(f'<rect x="{number(x)}" y="{number(y)}" width="{number(panel.width)}" '
                     f'height="{number(panel.height)}" fill="none" stroke="#bbbbbb"/>')
        lines += [f'<text x="{number(x)}" y="{number(y + panel.height + LINE * (i + 1))}" fill="#555555">{escape(line)}</text>'
                  for i, line in enumerate(panel.caption)]
        x += panel.width + GAP
    return "\n".join(lines) + "\n</svg>\n"
