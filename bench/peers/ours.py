"""A scene as a project of ours, and the outlines that our lines have."""

import re
import tempfile
import xml.etree.ElementTree as ElementTree

import brindle

from . import scenes

UNITS = 2400 / scenes.HEIGHT  # of a drawing, on a pixel's side
FIELD = scenes.HEIGHT / 24 * 4 / 3, scenes.HEIGHT / 24  # pixels


def path(points, units=UNITS):
    made = brindle.BezierPath()
    for start in range(0, len(points) - 3, 3):
        curve = brindle.Bezier()
        for place, (x, y) in enumerate(points[start:start + 4]):
            curve[place] = [units * x, -units * y]
        made.bezier_append(curve)
    return made


def draw_line(access, line, colour, units=UNITS):
    """A line in a layer of its own."""
    layer = access.vector_layer_create("PEN_LAYER")
    style = brindle.DrawingVectorLineStyle()
    style.type, style.colour_id, style.thickness = "THICK_LINESTYLE", colour, 10 * units
    access.stroke_create([{"path": path(line.points, units), "line_style": style}], layer)
    access.stroke_set_thickness(layer.strokes[0], brindle.DrawingVectorThicknessPath(
        [[place, units * left, units * right] for place, left, right in line.keys]))


class Stage:
    """A project that shows a scene."""

    def __init__(self, app, scene):
        self.app, self.scene, self.nodes = app, app.scene, app.scene.nodes
        self.scene.frame_count = scenes.MOST_FRAMES
        app.project.resolution.x, app.project.resolution.y = scenes.SIZE
        self.palette = app.project.palettes.create("Colour", "Paints")
        self.colours = {}
        if scene.camera:
            camera = self.nodes.create("CAMERA", "Camera")
            self.move(camera, scene.camera)
            self.scene.camera = camera
        self.feed(self.nodes["Top/Composite"], self.shown(scene.root, None))

    def colour(self, rgba):
        if rgba not in self.colours:
            name = f"Colour {len(self.colours)}"
            self.colours[rgba] = self.palette.create_solid_colour(name, list(rgba), -1).id
        return self.colours[rgba]

    def shown(self, item, peg):
        """The nodes that show an item below a peg, the lowest first."""
        match item:
            case scenes.Drawing():
                node = self.read(item)
                if peg:
                    node.ports_in[0].link(peg)
                return [node]
            case scenes.Moved(motion, child):
                moved = self.nodes.create("PEG", "Peg")
                if peg:
                    moved.ports_in[0].link(peg)
                self.move(moved, motion)
                return self.shown(child, moved)
            case scenes.Stack(children):
                return [node for child in children for node in self.shown(child, peg)]
            case scenes.Cut(matte, image):
                return [self.feed(self.nodes.create("CUTTER", "Cutter"),
                                  [self.one(self.shown(matte, peg)), self.one(self.shown(image, peg))])]
            case scenes.Blurred(radius, child):
                node = self.nodes.create("BLUR", "Blur")
                node.attributes["radius"].set_localvalue(radius)
                return [self.feed(node, [self.one(self.shown(child, peg))])]

    def one(self, nodes):
        return nodes[0] if len(nodes) == 1 else self.feed(self.nodes.create("COMPOSITE", "Composite"), nodes)

    @staticmethod
    def feed(node, shown):
        for place, one in enumerate(shown):
            (node.ports_in[place] if place < len(node.ports_in) else node.ports_in.create()).link(one)
        return node

    @staticmethod
    def move(node, motion):
        for name, start, step in (("position.x", motion.x / FIELD[0], motion.dx / FIELD[0]),
                                  ("position.y", -motion.y / FIELD[1], -motion.dy / FIELD[1]),
                                  ("angle", 0.0, -motion.turn)):
            if not step:
                node.attributes[name].set_localvalue(start)
                continue
            node.attributes[name].set_value(1, start)
            last = scenes.MOST_FRAMES
            end, third = start + (last - 1) * step, (last - 1) / 3  # of the way: handles there make the curve a straight line
            column = node.attributes[name].column
            column.create_point(1, start, 1, start, 1 + third, start + third * step)
            column.create_point(last, end, last - third, end - third * step, last, end)

    def read(self, item):
        column = self.scene.columns.create("DRAWING", item.name, {"createNode": False})
        column.element = self.app.elements.create(f"{item.name} drawings")
        drawing = column.element.drawings.create("1").initialize()
        with brindle.DrawingAccess.editing(drawing["line"]) as access:
            for art in item.arts:
                self.draw(access, art)
        column[1] = "1"
        node = self.nodes.create("READ", item.name)
        node.attributes["drawing.element"].link(column)
        return node

    def draw(self, access, art):
        """An art in a layer of its own."""
        if isinstance(art, scenes.Line):
            draw_line(access, art, self.colour(art.colour))
            return
        layer = access.vector_layer_create("PEN_LAYER")
        style = brindle.DrawingVectorLineStyle()
        match art:
            case scenes.Fill(points, rgba):
                colour = self.colour(rgba)
                access.stroke_create([{"path": path(points), "line_style": style, "colour_left": colour,
                                       "colour_right": colour}], layer)
            case scenes.Cells(edges, cells):
                colours = [self.colour(cell.colour) for cell in cells]
                access.stroke_create([
                    {"path": path(points), "line_style": style, **{
                        side: colours[number] for side, number in (("colour_left", left), ("colour_right", right))
                        if number is not None}}
                    for points, left, right in edges], layer)


def write(scene, folder):
    """Saves the scene as a project in a folder that isn't there yet."""
    with brindle.create(folder) as app:
        Stage(app, scene)
        app.save()


def outlines(scene, finer=1):
    """The outline of each line of a scene as SVG has it: polygons of points in pixels, to be filled as one, non-zero.

    Their tolerance is a quarter of a unit of a drawing, a ninth of a pixel, divided by `finer`.
    """
    found = [art for item in scenes.walk(scene.root) if isinstance(item, scenes.Drawing) for art in item.arts
             if isinstance(art, scenes.Line)]
    if not found:
        return {}
    units = UNITS * finer
    with tempfile.TemporaryDirectory(prefix="brindle-peers-") as folder, brindle.create(f"{folder}/lines") as app:
        colour = app.project.palettes.create("Colour", "Paints").create_solid_colour("Black", [0, 0, 0, 255], -1).id
        drawing = app.elements.create("Lines").drawings.create("1").initialize()
        with brindle.DrawingAccess.editing(drawing["line"]) as access:
            for line in found:
                draw_line(access, line, colour, units)
        brindle.export_svg(f"{folder}/lines.svg", drawing)
        shapes = [element for element in ElementTree.parse(f"{folder}/lines.svg").iter() if element.tag.endswith("path")]
    if len(shapes) != len(found):
        raise ValueError(f"{len(shapes)} shapes are written for {len(found)} lines")
    return {line: polygons(shape.get("d"), units) for line, shape in zip(found, shapes)}


def polygons(data, units):
    """The polygons of an SVG path without curves as points in pixels; `units` of the path are the side of a pixel."""
    if set(re.findall("[A-Za-z]", data)) - set("MLZe"):
        raise ValueError("an outline has curves")
    return tuple(tuple((float(x) / units, -float(y) / units) for x, y in re.findall(r"(\S+) ([^\sMLZ]+)", part))
                 for part in re.split("[MZ]", data.replace("L", " ")) if part)
