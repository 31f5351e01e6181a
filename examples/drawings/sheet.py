"""Panels that show drawings as the module gives them out: their SVG, with marks at what a script sees of them."""

import math
import pathlib
import re
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

import brindle

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "geometry"))

from canvas import BLUE, GREY, RED, Panel, Place, coordinates, number  # noqa: E402

SMALL = 'font-size="10"'
BOX = (-120.0, -90.0, 120.0, 90.0)  # of a panel, in units of the drawing


def svg_of(drawing: brindle.Drawing) -> list[str]:
    """What brindle.export_svg writes of a drawing, y upwards; numbers of two digits, the same on every machine."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "drawing.svg"
        brindle.export_svg(path, drawing)
        root = ElementTree.parse(path).getroot()
    for element in root.iter():
        element.tag = element.tag.rpartition("}")[2]
        element.tail = element.text = None
        for name in ("d", "points", "transform"):
            if name in element.attrib:
                element.set(name, re.sub(r"-?[0-9][0-9.]*(e-?[0-9]+)?", lambda found: number(float(found[0])),
                                         element.attrib[name]))
    return [ElementTree.tostring(art, encoding="unicode") for art in root[0]]


def at_length(path: brindle.BezierPath, share: float, steps: int = 2000) -> tuple[float, float]:
    """The point at a share of a path's length, 0 to 1, as thickness keys are placed."""
    end = path.bezier_count
    points = [coordinates(path.evaluate(end * step / steps)) for step in range(steps + 1)]
    left = share * sum(math.dist(a, b) for a, b in zip(points, points[1:]))
    for (x1, y1), (x2, y2) in zip(points, points[1:]):
        length = math.dist((x1, y1), (x2, y2))
        if left <= length:
            within = left / length if length else 0.0
            return x1 + (x2 - x1) * within, y1 + (y2 - y1) * within
        left -= length
    return x2, y2


class Sheet(Panel):
    """A window onto a drawing."""

    def __init__(self, title: str, caption: str = "", box: tuple[float, float, float, float] = BOX,
                 width: float = 236) -> None:
        super().__init__(title, box, caption, width)
        self.scale = width / (box[2] - box[0])

    def drawing(self, drawing: brindle.Drawing, opacity: float = 1) -> None:
        """The drawing as it is painted."""
        x, y = self.at((0, 0))
        faint = f' opacity="{opacity:g}"' if opacity < 1 else ""
        self.lines += [f'<g transform="translate({number(x)} {number(y)}) scale({number(self.scale)} '
                       f'{number(-self.scale)})"{faint}>', *svg_of(drawing), "</g>"]

    def tag(self, place: Place, text: str, dx: float = 0, dy: float = 0, colour: str = "#333333") -> None:
        """A word in the middle over a place."""
        self.text(place, text, dx, dy + 3.5, colour, "middle", SMALL)

    def direction(self, stroke: brindle.DrawingVectorStroke, colour: str = GREY, share: float = 0.5) -> None:
        """An arrow on the stroke, at a share of its way, from its tail to its head."""
        path = stroke.bezier_path
        before, after = (path.evaluate(share * path.bezier_count + step) for step in (-0.02, 0.02))
        (x1, y1), (x2, y2) = coordinates(before), coordinates(after)
        length = ((x2 - x1) ** 2 + (y2 - y1) ** 2) ** 0.5
        step = 5 / self.scale / length
        self.arrow((x1, y1), (x2 + (x2 - x1) * step, y2 + (y2 - y1) * step), colour, 1)

    def joints(self, layer: brindle.DrawingVectorLayer) -> None:
        """A dot at each joint, with the number of ends that meet there; free ends are rings."""
        seen: list[tuple[str, str]] = []
        for joint in layer.joints:
            place = number(joint.position.x), number(joint.position.y)
            if place in seen:
                continue
            seen.append(place)
            (self.ring if joint.degree == 1 else self.dot)(joint.position, BLUE if joint.degree == 1 else RED, 4)
            if joint.degree > 1:
                self.tag(joint.position, str(joint.degree), 0, -12, RED)

    def keys(self, stroke: brindle.DrawingVectorStroke) -> None:
        """The thickness keys of a stroke, each as a line across it."""
        path = stroke.bezier_path
        self.path(path, "#ffffff", 1, dash="4 3")
        for key in stroke.thickness.path:
            x, y = at_length(path, key.position)
            (x1, y1), (x2, y2) = (at_length(path, min(max(key.position + step, 0.0), 1.0)) for step in (-0.01, 0.01))
            length = math.dist((x1, y1), (x2, y2))
            left = (y1 - y2) / length, (x2 - x1) / length
            ends = [(x + left[0] * width, y + left[1] * width) for width in (key.left_thickness, -key.right_thickness)]
            self.line(ends[0], ends[1], RED, 1)
            for end in ends:
                self.dot(end, RED, 3)
