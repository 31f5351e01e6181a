"""Drawings to be shown: an element with a palette, and strokes that are made with few words."""

from collections.abc import Iterable

import brindle

SOLID = {"Ink": [52, 58, 70], "Coat": [214, 84, 62], "Leaf": [104, 160, 92], "Shade": [196, 202, 212],
         "Light": [255, 226, 190], "Sky": [126, 178, 224], "Sand": [240, 200, 120]}


class Desk:
    """Drawings of one element, and the palette that they are painted from."""

    def __init__(self, app: brindle.Application) -> None:
        element = app.elements.create("Page")
        assert isinstance(element, brindle.Element)
        self.drawings = element.drawings
        palette = app.project.palettes.create("Colour", "Page")
        palette.clear()
        self.ids = {name: palette.create_solid_colour(name, channels).id for name, channels in SOLID.items()}

    def drawing(self) -> brindle.Drawing:
        made = self.drawings.create(str(len(self.drawings) + 1))
        assert isinstance(made, brindle.ElementDrawing)
        drawing = made.initialize()
        assert drawing is not None
        return drawing

    def line(self, thickness: float = 3, colour: str = "Ink") -> brindle.DrawingVectorLineStyle:
        style = brindle.DrawingVectorLineStyle()
        style.type, style.colour_id, style.thickness = "Thick_Linestyle", self.ids[colour], thickness
        return style


def new_layer(access: brindle.DrawingAccess) -> brindle.DrawingVectorLayer:
    layer = access.vector_layer_create("PEN_LAYER")
    assert isinstance(layer, brindle.DrawingVectorLayer)
    return layer


def strokes_of(access: brindle.DrawingAccess, layer: brindle.DrawingVectorLayer, paths: list[brindle.BezierPath],
               style: brindle.DrawingVectorLineStyle | None) -> list[brindle.DrawingVectorStroke]:
    """New strokes with a line and without paint."""
    described: list[dict[str, object]] = [{"path": path} for path in paths]
    if style is not None:
        for each in described:
            each["line_style"] = style
    made = access.stroke_create(described, layer)
    assert isinstance(made, list)
    return made


def curves(*points: Iterable[float]) -> brindle.BezierPath:
    """A path of cubic curves: a point, and for each curve its two handles and its end."""
    path = brindle.BezierPath()
    for first in range(0, len(points) - 1, 3):
        path.bezier_append(curve(points[first:first + 4]))
    return path


def curve(points: Iterable[Iterable[float]]) -> brindle.Bezier:
    made = brindle.Bezier()
    for index, point in enumerate(points):
        made[index] = point
    return made


def straight(start: Iterable[float], end: Iterable[float]) -> brindle.BezierPath:
    (x1, y1), (x2, y2) = start, end
    return curves((x1, y1), *(((x1 * (3 - i) + x2 * i) / 3, (y1 * (3 - i) + y2 * i) / 3) for i in (1, 2)), (x2, y2))
