"""What pictures of nodes cost, without the encoding unless it is said: shapes that turn, lines, and a drawing that is held."""

import itertools
import math
import os
import random
import tempfile
import time

import brindle
from brindle import render

SIZE = 1920, 1080
UNITS = 2400 / SIZE[1]  # Of a drawing, on a pixel's side.
SHAPES, LINES, FRAMES = 200, 500, 10
ART = 10  # Shapes and lines each, of the drawing that is held.


def path(points):
    """Cubics through points at each third of a list; in pixels from the middle of the picture."""
    made = brindle.BezierPath()
    for start in range(0, len(points) - 3, 3):
        curve = brindle.Bezier()
        for place, (x, y) in enumerate(points[start:start + 4]):
            curve[place] = [UNITS * x, UNITS * y]
        made.bezier_append(curve)
    return made


def blob(chance, radius, x=0, y=0):
    """A closed shape of eight cubics."""
    radii = [radius * chance.uniform(0.7, 1.3) for _ in range(24)]
    points = [(x + r * math.cos(step * math.pi / 12), y + r * math.sin(step * math.pi / 12)) for step, r in enumerate(radii)]
    return path([*points, points[0]])


def wave(chance):
    """A line of six cubics."""
    x, y = chance.uniform(-800, 600), chance.uniform(-450, 450)
    return path([(x + 12 * step, y + chance.uniform(-30, 30)) for step in range(19)])


class Stage:
    """A scene whose nodes show drawings."""

    def __init__(self, app):
        self.app, self.scene = app, app.scene
        self.palette = app.project.palettes.create("Colour", "Paints")
        self.no_line = brindle.DrawingVectorLineStyle()

    def colour(self, chance, alpha=255):
        return self.palette.create_solid_colour("", [chance.randrange(256) for _ in range(3)] + [alpha], -1).id

    def thick(self, chance, colour=None):
        style = brindle.DrawingVectorLineStyle()
        style.type, style.colour_id, style.thickness = "THICK_LINESTYLE", colour or self.colour(chance), 10 * UNITS
        return style

    def keys(self, chance):
        return brindle.DrawingVectorThicknessPath(
            [[step / 3, *(UNITS * chance.uniform(1, 12) / 2 for _ in range(2))] for step in range(4)])

    def painted(self, shape, colour):
        return {"path": shape, "line_style": self.no_line, "colour_left": colour, "colour_right": colour}

    def read(self, name, strokes, thickness=()):
        """A node that shows one drawing on all frames."""
        column = self.scene.columns.create("DRAWING", name, {"createNode": False})
        column.element = self.app.elements.create(f"{name} drawings")
        drawing = column.element.drawings.create("1").initialize()
        with brindle.DrawingAccess.editing(drawing["line"]) as access:
            layer = access.vector_layer_create("PEN_LAYER")
            access.stroke_create(strokes, layer)
            for stroke, keys in zip(layer.strokes, thickness):
                access.stroke_set_thickness(stroke, keys)
        column[1] = "1"
        node = self.scene.nodes.create("READ", name)
        node.attributes["drawing.element"].link(column)
        return node

    def moved(self, node, attribute, first, last):
        """Puts a node below a peg of which an attribute runs from a value to another over 100 frames."""
        peg = self.scene.nodes.create("PEG", f"{node.name}-Peg")
        node.ports_in[0].link(peg)
        for frame, value in ((1, first), (100, last)):
            peg.attributes[attribute].set_value(frame, value)
        return peg

    def shapes(self, chance):
        """Shapes that turn, every second one translucent; each has a node and a peg."""
        composite = self.scene.nodes["Top/Composite"]
        for index in range(SHAPES):
            colour = self.colour(chance, 156 if index % 2 else 255)
            node = self.read(f"Shape{index}", [self.painted(blob(chance, chance.uniform(20, 160)), colour)])
            peg = self.moved(node, "angle", 0.0, -356.4 if index % 3 == 0 else 356.4)
            peg.attributes["position.x"].set_localvalue(chance.uniform(-11, 11))
            peg.attributes["position.y"].set_localvalue(chance.uniform(-10, 10))
            (composite.ports_in[index] if index < len(composite.ports_in) else composite.ports_in.create()).link(node)
        return composite


def shown(frames, node, **options):
    render.frames(node.parent_scene(), lambda frame, cel: None, frames, node=node, **options)


def series(samples, name, node, clock=time.process_time, repetitions=3, draw=shown, **options):
    """Times frames of a node, each of them drawn for the first time."""
    frames = itertools.count(2)
    render.cel(node, 1, SIZE)
    for _ in range(repetitions):
        with samples.timed(name, FRAMES, clock):
            draw(list(itertools.islice(frames, FRAMES)), node=node, size=SIZE, **options)


def measure(samples, root):
    chance = random.Random(7)
    with brindle.create(f"{root}/pictures") as app:
        app.scene.frame_count = 100
        stage = Stage(app)
        node = stage.shapes(chance)
        series(samples, "picture turning shapes", node, threads=1)
        with tempfile.TemporaryDirectory() as folder:
            series(samples, "picture files", node, time.perf_counter, threads=2,
                   draw=lambda frames, **options: render.write(app.scene, f"{folder}/%04d.png", frames, **options))
            series(samples, "picture deep files", node, time.perf_counter, threads=2,
                   draw=lambda frames, **options: render.write(app.scene, f"{folder}/%04d.png", frames, depth=16, **options))
            series(samples, "picture files by callback", node, time.perf_counter, threads=2, draw=lambda frames, **options:
                   render.frames(app.scene, lambda frame, cel: cel.write(f"{folder}/{frame}.png"), frames, **options))

        lines = stage.read("Lines", [{"path": wave(chance), "line_style": stage.thick(chance)} for _ in range(LINES)],
                           [stage.keys(chance) for _ in range(LINES)])
        stage.moved(lines, "angle", 0.0, 360.0)
        series(samples, "picture turning lines", lines, threads=1)
        dusk = stage.palette.create_linear_gradient_colour("Dusk", [250, 230, 40], 0, [90, 20, 180], 100).id
        ribbons = stage.read("Ribbons", [{"path": wave(chance), "line_style": stage.thick(chance, dusk)} for _ in range(LINES)],
                             [stage.keys(chance) for _ in range(LINES)])
        stage.moved(ribbons, "angle", 0.0, 360.0)
        series(samples, "picture turning gradients", ribbons, threads=1)

        places = [(chance.uniform(-700, 700), chance.uniform(-400, 400)) for _ in range(ART)]
        held = stage.read("Held", [
            *(stage.painted(blob(chance, 60, x, y), stage.colour(chance)) for x, y in places),
            *({"path": wave(chance), "line_style": stage.thick(chance)} for _ in range(ART))])
        ground = stage.read("Ground", [stage.painted(blob(chance, 500), stage.colour(chance))])
        show = app.scene.nodes.create("COMPOSITE", "Show")
        show.ports_in[0].link(ground)
        show.ports_in.create().link(held)
        series(samples, "picture nothing moves", show, threads=1)
        stage.moved(held, "position.x", -3.0, 3.0)
        series(samples, "picture held drawing", show, threads=1)
