"""Graphs of what columns give: axes with numbers and units, and a line that says what the marks mean."""

from collections.abc import Callable

import brindle

from canvas import BLUE, GREY, ORANGE, RED, Panel, path_through

LEFT, BOTTOM, TOP, RIGHT = 34, 34, 24, 10  # of the margins, in pixels
SMALL = 'font-size="10"'
KEY, HANDLE, FRAME = ("dot", BLUE, "keyframe"), ("ring", RED, "handle"), ("small", ORANGE, "each frame")

Range = tuple[float, float]
Ticks = tuple[float, ...]


class Graph(Panel):
    """A window with an axis below and one on the left; `units` stand at their ends."""

    def __init__(self, title: str, x: Range, y: Range, ticks: tuple[Ticks, Ticks], units: tuple[str, str],
                 caption: str = "", width: float = 250, height: float = 220) -> None:
        self.x, self.y, self.ticks, self.units = x, y, ticks, units
        across = (x[1] - x[0]) / (width - LEFT - RIGHT)
        up = (y[1] - y[0]) / (height - BOTTOM - TOP)
        super().__init__(title, (x[0] - LEFT * across, y[0] - BOTTOM * up, x[1] + RIGHT * across, y[1] + TOP * up),
                         caption, width, height)

    def grid(self) -> None:
        for place in self.ticks[0]:
            self.line((place, self.y[0]), (place, self.y[1]), "#e6e6e6", 1)
            self.text((place, self.y[0]), f"{place:g}", 0, 13, "#555555", "middle", SMALL)
        for place in self.ticks[1]:
            self.line((self.x[0], place), (self.x[1], place), "#e6e6e6", 1)
            self.text((self.x[0], place), f"{place:g}", -5, 4, "#555555", "end", SMALL)
        corner = (self.x[0], self.y[0])
        self.line(corner, (self.x[1], self.y[0]), GREY, 1)
        self.line(corner, (self.x[0], self.y[1]), GREY, 1)
        self.text((self.x[1], self.y[0]), self.units[0], 0, 27, "#555555", "end", SMALL)
        self.text((self.x[0], self.y[1]), self.units[1], 5 - LEFT, -10, "#555555", "start", SMALL)

    def legend(self, *marks: tuple[str, str, str]) -> None:
        """A sample of each mark with its name, from the right above the graph."""
        (left, _), (right, _) = self.at((self.x[0], 0)), self.at((self.x[1], 0))
        x = right
        for kind, colour, name in reversed(marks):
            x -= 5.4 * len(name)
            place = (self.x[0] + (x - left) * (self.x[1] - self.x[0]) / (right - left), self.y[1])
            self.text(place, name, 0, -10, "#333333", "start", SMALL)
            self.mark(kind, colour, x - 7, self.at(place)[1] - 13.5)
            x -= 20

    def mark(self, kind: str, colour: str, x: float, y: float) -> None:
        fill, radius = ("white", 3.0) if kind == "ring" else (colour, 4.0 if kind == "dot" else 2.0)
        self.lines.append(f'<circle cx="{x:g}" cy="{y:g}" r="{radius:g}" fill="{fill}" stroke="{colour}"/>')

    def values(self, value: Callable[[float], float], colour: str = BLUE, dash: str = "") -> None:
        """A function of the frame over the whole axis, asked 16 times a frame."""
        first, last = self.x
        frames = [first + step / 16 for step in range(int((last - first) * 16) + 1)]
        self.path(path_through([(frame, value(frame)) for frame in frames]), colour, 2, dash=dash)

    def each_frame(self, value: Callable[[float], float]) -> None:
        for frame in range(int(self.x[0]), int(self.x[1]) + 1):
            self.dot((frame, value(frame)), ORANGE, 2)

    def keys(self, column: brindle.BezierColumn) -> None:
        """The keyframes with their handles; one that stands on its keyframe is left out."""
        points = [point for point in column.control_points if isinstance(point, brindle.BezierControlPoint)]
        for point in points:
            place = (point.frame, point.value)
            for handle in ((point.handle_left_x, point.handle_left_y), (point.handle_right_x, point.handle_right_y)):
                if handle != place:
                    self.line(place, handle, RED, 1)
                    self.ring(handle, RED, 3)
        for point in points:
            self.dot((point.frame, point.value), BLUE, 4)
