"""A scene as a Synfig canvas, whose movements are animated transformations of groups."""

import math
import xml.etree.ElementTree as ElementTree

from . import lines, scenes

UNIT = 60.0  # pixels on a side of Synfig's unit; its y runs up, and its angles counter-clockwise
OVER, CUT = 0, 21  # blend methods; CUT shows the layer only where something lies below it, and hides that
BELL = 3  # a type of blur
DEVIATION = 0.5  # the standard deviation of such a blur of size 1


def number(value):
    return f"{value:.10f}"


def child(parent, tag, **attributes):
    return ElementTree.SubElement(parent, tag, {name: str(value) for name, value in attributes.items()})


def real(parent, value, tag="real"):
    child(parent, tag, value=number(value))


def vector(parent, x, y):
    made = child(parent, "vector")
    child(made, "x").text = number(x)
    child(made, "y").text = number(y)


def place(parent, point):
    vector(parent, point[0] / UNIT, -point[1] / UNIT)


def parameter(layer, name):
    return child(layer, "param", name=name)


def integer(layer, name, value):
    child(parameter(layer, name), "integer", value=value)


def layer(parent, kind, version, blend=OVER):
    made = child(parent, "layer", type=kind, active="true", version=version)
    real(parameter(made, "amount"), 1.0)
    integer(made, "blend_method", blend)
    return made


def paint(made, colour):
    channels = child(parameter(made, "color"), "color")
    for name, value in zip("rgba", colour):
        child(channels, name).text = number(value / 255)


def tangent(parent, start, end):
    """Three times the way to a handle."""
    made = child(parent, "radial_composite", type="vector")
    x, y = 3 * (end[0] - start[0]) / UNIT, -3 * (end[1] - start[1]) / UNIT
    real(child(made, "radius"), math.hypot(x, y))
    real(child(made, "theta"), math.degrees(math.atan2(y, x)), "angle")


def spline(made, points, closed):
    """`points` are (handle before, point, handle behind, thickness)."""
    line = child(parameter(made, "bline"), "bline", type="bline_point", loop="true" if closed else "false")
    for before, point, behind, thickness in points:
        entry = child(child(line, "entry"), "composite", type="bline_point")
        place(child(entry, "point"), point)
        real(child(entry, "width"), thickness)
        real(child(entry, "origin"), 0.5)
        for name in ("split", "split_radius", "split_angle"):
            child(child(entry, name), "bool", value="true")
        tangent(child(entry, "t1"), before, point)
        tangent(child(entry, "t2"), point, behind)


def region(parent, fill):
    made = layer(parent, "region", "0.1")
    paint(made, fill.colour)
    points = fill.points[:-1]
    spline(made, [(points[start - 1], points[start], points[start + 1], 1.0) for start in range(0, len(points), 3)], True)


def outline(parent, line):
    """As thick on both sides as the line is in all: Synfig knows one thickness at a point."""
    made = layer(parent, "outline", "0.3")
    paint(made, line.colour)
    points = line.points
    widths = lines.thicknesses(line)
    handles = [points[0], *points, points[-1]]
    spline(made, [(handles[start], handles[start + 1], handles[start + 2], width)
                  for start, width in zip(range(0, len(points), 3), widths)], False)
    real(parameter(made, "width"), 1 / UNIT)
    child(parameter(made, "homogeneous_width"), "bool", value="false")


def group(parent, items, motion=None, blend=OVER):
    made = layer(parent, "group", "0.3", blend)
    if motion:
        transform(parameter(made, "transformation"), motion)
    canvas = child(parameter(made, "canvas"), "canvas")
    for item in items:
        write(canvas, item)


def transform(parent, motion):
    made = child(parent, "composite", type="transformation")
    places = [motion.at(frame) for frame in (1, scenes.MOST_FRAMES)]
    values = (("offset", "vector", [lambda to, x=x, y=y: place(to, (x, y)) for x, y, _ in places]),
              ("angle", "angle", [lambda to, angle=angle: real(to, -angle, "angle") for *_, angle in places]))
    for name, kind, ends in values:
        run = child(child(made, name), "animated", type=kind)
        for frame, end in zip((0, scenes.MOST_FRAMES - 1), ends):
            end(child(run, "waypoint", time=f"{frame}f", before="linear", after="linear"))
    real(child(made, "skew_angle"), 0.0, "angle")
    vector(child(made, "scale"), 1.0, 1.0)


def write(parent, item):
    match item:
        case scenes.Fill():
            region(parent, item)
        case scenes.Line():
            outline(parent, item)
        case scenes.Cells(cells=cells):
            for cell in cells:
                region(parent, cell)
        case scenes.Drawing(_, arts):
            for art in arts:
                write(parent, art)
        case scenes.Moved(motion, moved):
            group(parent, [moved], motion)
        case scenes.Stack(children):
            for part in children:
                write(parent, part)
        case scenes.Cut(matte, image):
            made = layer(parent, "group", "0.3")
            canvas = child(parameter(made, "canvas"), "canvas")
            group(canvas, [matte])
            group(canvas, [image], blend=CUT)
        case scenes.Blurred(radius, blurred):
            made = layer(parent, "group", "0.3")
            canvas = child(parameter(made, "canvas"), "canvas")
            write(canvas, blurred)
            soft = layer(canvas, "blur", "0.3", blend=1)
            size = radius / 2 / DEVIATION / UNIT
            vector(parameter(soft, "size"), size, size)
            integer(soft, "type", BELL)


def text(scene):
    width, height = (side / 2 / UNIT for side in scenes.SIZE)
    # A gamma of 1 mixes colours by their numbers, as the others do.
    canvas = ElementTree.Element("canvas", {
        "version": "1.2", "width": str(scenes.WIDTH), "height": str(scenes.HEIGHT), "antialias": "1", "fps": "24",
        "view-box": f"{-width} {height} {width} {-height}", "begin-time": "0f", "end-time": f"{scenes.MOST_FRAMES - 1}f",
        "bgcolor": "0 0 0 0", "gamma-r": "1.0", "gamma-g": "1.0", "gamma-b": "1.0"})
    write(canvas, scene.seen())
    return '<?xml version="1.0" encoding="UTF-8"?>\n' + ElementTree.tostring(canvas, encoding="unicode") + "\n"
