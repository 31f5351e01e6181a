"""Pictures to look at: drawings, nodes that show them, and pixels of what they show."""

import tempfile

import brindle
import numpy
from brindle import render

import palettes

# A picture of 192 x 144 pixels spans the field chart of a project from its lower to its upper edge: 12 units of 1200/12
# of a drawing are 6 pixels high, and the middle of a drawing is the corner of four pixels.
SIZE = 192, 144
MIDDLE = 96, 72
UNITS = 2 * 1200 / 144  # Of a drawing, on a pixel's side.

NO_LINE = brindle.DrawingVectorLineStyle()
WHITE, CLEAR = (255, 255, 255, 255), (0, 0, 0, 0)


def rectangle(left, bottom, right, top):
    """A rectangle in pixels from the middle of the picture, y up, as a path of a drawing."""
    return brindle.BezierPath.create_rectangle(*(UNITS * side for side in (left, bottom, right, top)))


def path(*points):
    """A path of straight lines through points in pixels from the middle, y up."""
    made = brindle.BezierPath()
    for start, end in zip(points, points[1:]):
        line = brindle.Bezier()
        line.degree = 1
        line[0], line[1] = ([UNITS * number for number in point] for point in (start, end))
        made.bezier_append(line)
    return made


class Stage:
    """A project whose nodes show drawings."""

    def __init__(self, app):
        self.app, self.scene, self.nodes = app, app.scene, app.scene.nodes
        self.palette = app.project.palettes.create("Colour", "Paints")

    def colour(self, *rgba):
        """The id of a new colour."""
        return self.palette.create_solid_colour(f"Colour {len(self.palette)}", list(rgba)).id

    def texture(self, name, rows, tiled=False):
        """The id of a new texture of rows of colours."""
        with tempfile.NamedTemporaryFile(suffix=".png") as file:
            file.write(palettes.png_of_rows(len(rows[0]), [bytes(channel for pixel in row for channel in pixel) for row in rows]))
            file.flush()
            return self.palette.create_texture(name, file.name, -1, tiled).id

    def read(self, name, frames=60):
        """A node with a new drawing on its first frames; gives the node and the drawing."""
        column = self.scene.columns.create("DRAWING", name, {"createNode": False})
        column.element = self.app.elements.create(f"{name} drawings")
        drawing = column.element.drawings.create("1").initialize()
        node = self.nodes.create("READ", name)
        node.attributes["drawing.element"].link(column)
        column[1:61] = ["1" if frame <= frames else None for frame in range(1, 61)]
        return node, drawing

    @staticmethod
    def strokes(drawing, strokes, art="line", layer=None):
        """Adds strokes, given as maps, to a layer, by default a new one. Gives the layer."""
        with brindle.DrawingAccess.editing(drawing[art]) as access:
            layer = layer or access.vector_layer_create("PEN_LAYER")
            access.stroke_create(strokes, layer)
        return layer

    def fill(self, drawing, shape, paint, art="line", layer=None):
        """Adds a shape without a line that is painted inside, whichever way it runs. Gives the layer."""
        sides = {"colour_left": paint, "colour_right": paint}
        return self.strokes(drawing, [{"path": shape, "line_style": NO_LINE} | sides], art, layer)

    def line(self, drawing, shape, colour, thickness, art="line", layer=None, kind="THICK_LINESTYLE", **styles):
        """Adds a stroke with a line whose thickness is in pixels, and more properties of its style. Gives the layer."""
        style = brindle.DrawingVectorLineStyle()
        style.type, style.colour_id, style.thickness = kind, colour, UNITS * thickness
        for name, value in styles.items():
            setattr(style, name, value)
        return self.strokes(drawing, [{"path": shape, "line_style": style}], art, layer)

    def cells(self, drawing, corner, count, paint):
        """Adds cells that share their edges; a corner is given in pixels by its column and its row."""
        edges = []
        for row in range(count + 1):
            for column in range(count + 1):
                for end, left, right in (((column + 1, row), row < count, row > 0),
                                         ((column, row + 1), column > 0, column < count)):
                    if max(end) <= count:
                        edge = {"path": path(corner(column, row), corner(*end)), "line_style": NO_LINE}
                        edges.append(edge | ({"colour_left": paint} if left else {}) |
                                     ({"colour_right": paint} if right else {}))
        return self.strokes(drawing, edges)

    def shape(self, name, shape, *rgba):
        """A node that shows one painted shape."""
        node, drawing = self.read(name)
        self.fill(drawing, shape, self.colour(*rgba))
        return node

    def card(self, name, red, green, blue, alpha=255):
        node = self.nodes.create("COLOR_CARD", name)
        for channel, value in zip(("red", "green", "blue", "alpha"), (red, green, blue, alpha)):
            node.attributes[f"colour.{channel}"].set_localvalue(value)
        return node

    def node(self, kind, name, *sources):
        """A node that is fed by others, port by port; None leaves a port without a link."""
        node = self.nodes.create(kind, name)
        for place, source in enumerate(sources):
            port = node.ports_in[place] if place < len(node.ports_in) else node.ports_in.create()
            if source:
                port.link(source)
        return node


def pixels(node, frame=1, size=SIZE, **options):
    """What a node shows, as an array of height x width x 4."""
    return numpy.array(numpy.asarray(render.cel(node, frame, size, **options)))


def box(array):
    """The sides of what isn't transparent: left, top, right, bottom, in pixels; the last two beyond it."""
    rows, columns = array[:, :, 3].nonzero()
    return columns.min(), rows.min(), columns.max() + 1, rows.max() + 1


def at(array, x, y):
    """The colour of a pixel, x to the right and y up from the middle."""
    return tuple(int(channel) for channel in array[MIDDLE[1] - 1 - y, MIDDLE[0] + x])
