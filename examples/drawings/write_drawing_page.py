#!/usr/bin/python3
"""Writes the pictures of docs/drawings.md with the module itself.

    PYTHONPATH=build/dev/python examples/drawings/write_drawing_page.py           writes what has changed
    PYTHONPATH=build/dev/python examples/drawings/write_drawing_page.py --check   tells whether all is up to date
"""

import math
import pathlib
import sys
import tempfile

import brindle

from desk import SOLID, Desk, curve, curves, new_layer, straight, strokes_of
from sheet import Sheet

from canvas import BLUE, GREEN, GREY, ORANGE, RED, picture
from write_page import IMAGES, bring_up_to_date


def arts(desk: Desk) -> str:
    """An apple in four art layers, each by itself and all of them."""
    body = curves((0, 38), (24, 62), (74, 50), (72, 4), (70, -42), (34, -78), (0, -62), (-34, -78), (-70, -42), (-72, 4),
                  (-74, 50), (-24, 62), (0, 38))
    leaf = curves((4, 56), (10, 84), (38, 88), (56, 80), (46, 56), (22, 50), (4, 56))
    stalk = curves((0, 38), (-2, 52), (-6, 64), (-14, 76))
    parts: dict[str, list[tuple[brindle.BezierPath, str | None, float | None]]] = {
        "underlay": [(brindle.BezierPath.create_oval(6, -70, 86, 14), "Shade", None)],
        "colour": [(body, "Coat", None), (leaf, "Leaf", None)],
        "line": [(body, None, 4), (leaf, None, 3), (stalk, None, 6)],
        "overlay": [(curves((-52, 12), (-52, 34), (-38, 42), (-26, 40), (-38, 34), (-42, 26), (-42, 10), (-44, 6),
                            (-50, 6), (-52, 12)), "Light", None)],
    }
    panels = []
    for name in (*parts, None):
        drawing = desk.drawing()
        for art, shapes in parts.items():
            if name not in (None, art):
                continue
            with brindle.DrawingAccess.editing(drawing[art]) as access:
                for path, paint, thickness in shapes:
                    layer = new_layer(access)
                    stroke, = strokes_of(access, layer, [path], desk.line(thickness) if thickness else None)
                    if paint is not None:
                        inner = [contour for contour in (stroke.contour_left, stroke.contour_right)
                                 if contour is not None and not contour.clockwise]
                        access.contour_set_colour(inner, desk.ids[paint])
        panel = Sheet(f'drawing["{name}"]' if name else "drawing", width=150)
        panel.drawing(drawing)
        panels.append(panel)
    return picture(*panels)


def three_strokes(desk: Desk) -> tuple[brindle.Drawing, brindle.DrawingVectorLayer, list[brindle.DrawingVectorStroke]]:
    drawing = desk.drawing()
    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        layer = new_layer(access)
        strokes = strokes_of(access, layer, [curves((-100, -20), (-70, 20), (-40, 10), (0, 0)),
                                             curves((0, 0), (30, 10), (50, 60), (90, 60)),
                                             curves((0, 0), (20, -30), (60, -60), (100, -50))], desk.line())
    return drawing, layer, strokes


def joints(desk: Desk) -> str:
    """A stroke with its sides; a joint with the ends that meet there; the order in which it gives them."""
    drawing = desk.drawing()
    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        stroke, = strokes_of(access, new_layer(access),
                             [curves((-90, -30), (-40, 60), (30, -70), (90, 40))], desk.line())
    one = Sheet("stroke", "From its tail to its head;\nleft and right as seen on the way.")
    one.drawing(drawing)
    one.controls(stroke.bezier_path, BLUE)
    one.direction(stroke, RED)
    one.tag(stroke.tail.position, "tail", 0, 14)
    one.tag(stroke.head.position, "head", 0, -14)
    one.tag((-18, 28), "left")
    one.tag((14, -32), "right")

    drawing, layer, strokes = three_strokes(desk)
    two = Sheet("layer.joints", "Where ends meet there is one joint, here\nof degree 3; free ends have one, too.")
    two.drawing(drawing)
    for each in strokes:
        two.direction(each)
    two.joints(layer)

    three = Sheet("joint.left()", "The same joint from the next end,\ncounterclockwise; right() goes back.")
    three.drawing(drawing, 0.35)
    joint = strokes[1].tail
    angles = []
    for index in range(joint.degree):
        tangent = joint.tangent
        three.arrow((0, 0), (tangent.x * 42, tangent.y * 42), RED, 2)
        names = ("joint", ".left()", ".left().left()")
        three.tag((tangent.x * 42, tangent.y * 42), names[index], *((4, -12), (-14, -12), (44, 2))[index])
        angles.append(math.atan2(tangent.y, tangent.x))
        joint = joint.left()
    assert joint == strokes[1].tail and angles == sorted(angles, key=lambda angle: (angle - angles[0]) % math.tau)
    return picture(one, two, three)


def contours(desk: Desk) -> str:
    """Two areas with a common edge: whose sides have which colour, and how contours run."""
    drawing = desk.drawing()
    paths = [curves((0, 60), (0, 30), (10, -20), (0, -60)),
             curves((0, -60), (60, -60), (95, -30), (95, 0), (95, 40), (50, 60), (0, 60)),
             curves((0, 60), (-50, 60), (-95, 40), (-95, 0), (-95, -30), (-60, -60), (0, -60))]
    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        layer = new_layer(access)
        strokes = strokes_of(access, layer, paths, desk.line())
    edge = strokes[0]
    bare = Sheet("layer.contours", "Each area has one, counterclockwise;\nthe outline has one, clockwise.")
    bare.drawing(drawing, 0.35)
    for contour in layer.contours:
        box = contour.bounding_box
        middle = (box.x + box.width / 2, box.y + box.height / 2)
        if contour.clockwise:
            turn(bare, (0, 0), 108, 72, GREY, True)
            bare.tag((0, 80), "clockwise", 0, 0, GREY)
        else:
            turn(bare, middle, box.width * 0.3, box.height * 0.3, RED, False)

    sides = Sheet('stroke.colour_left = "…"', "Each side of a stroke has its colour:\nan edge between two areas has two.")
    sides.drawing(drawing, 0.35)
    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        for contour in layer.contours:
            if not contour.clockwise:
                is_left = edge.contour_left == contour
                access.contour_set_colour(contour, desk.ids["Sky" if is_left else "Sand"])
    paints = {desk.ids[name]: "#" + "".join(f"{channel:02x}" for channel in SOLID[name]) for name in ("Sky", "Sand")}
    for stroke in strokes:
        sides.direction(stroke, GREY)
        for share in (0.2, 0.35, 0.65, 0.8):
            path = stroke.bezier_path
            point, after = (path.evaluate(share * path.bezier_count + step) for step in (0, 0.01))
            x, y = after.x - point.x, after.y - point.y
            length = (x * x + y * y) ** 0.5
            for colour, turned in ((stroke.colour_left, 1), (stroke.colour_right, -1)):
                if colour:
                    place = point.x - y / length * 7 * turned, point.y + x / length * 7 * turned
                    sides.dot(place, paints[colour.colour_id], 4)

    full = Sheet(".contour_set_colour(contour, id)", "It sets all sides of a contour at once.\nA picture fills it.")
    full.drawing(drawing)
    for contour in layer.contours:
        if contour.colour_inside:
            box = contour.bounding_box
            full.tag((box.x + box.width / 2, 0), "colour_inside")
    return picture(bare, sides, full)


def turn(panel: Sheet, middle: tuple[float, float], rx: float, ry: float, colour: str, clockwise: bool) -> None:
    """An arrow round a place."""
    path = brindle.BezierPath.create_oval(*middle, rx, ry).truncate(0.2, 3.7)  # of its four curves
    if clockwise != path.polygon_clockwise:
        path.reverse()
    panel.path(path, colour, 1.2)
    end = path.bezier_count
    panel.arrow(path.evaluate(end - 0.05), path.evaluate(end), colour, 1.2)


KEYS = [[0.0, 2.0], [0.4, 14.0], [1.0, 4.0]]
WAVE = ((-100, -30), (-50, 80), (40, -90), (100, 30))


def keys(desk: Desk) -> str:
    """Thickness keys; one whose edges differ; and one path of keys that two strokes share."""
    even = brindle.DrawingVectorThicknessPath(KEYS)
    uneven = even.clone()
    key = uneven[1]
    key.right_thickness = 2
    uneven[1] = key
    panels = []
    for title, caption, thickness in (
            ("path = DrawingVectorThicknessPath(\n  [[0, 2], [0.4, 14], [1, 4]])",
             "A key says how far the edges lie from\nthe path, left and right.", even),
            ("key.right_thickness = 2", "Left and right are free of each other.", uneven)):
        drawing = desk.drawing()
        with brindle.DrawingAccess.editing(drawing["line"]) as access:
            stroke, = strokes_of(access, new_layer(access), [curves(*WAVE)], desk.line())
            access.stroke_set_thickness(stroke, thickness)
        panel = Sheet(title, caption)
        panel.drawing(drawing)
        panel.keys(stroke)
        panels.append(panel)

    drawing = desk.drawing()
    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        layer = new_layer(access)
        parts = strokes_of(access, layer, [curves(*WAVE).truncate(0, 0.55), curves(*WAVE).truncate(0.55, 1)], desk.line())
        access.stroke_set_thickness(parts, even)
    panel = Sheet(".stroke_set_thickness(\n  [a, b], path)",
                  "Two strokes with one path of keys: each\nhas its part, and both are one line.")
    panel.drawing(drawing)
    for name, part, shift in zip("ab", parts, (34, -34)):
        panel.path(part.bezier_path, "#ffffff", 1, dash="4 3")
        start, stop = part.thickness.start_position, part.thickness.stop_position
        panel.tag(part.bezier_path.evaluate(0.5), f"{name}: {start:.2f} to {stop:.2f}", 0, shift)
    panel.joints(layer)
    return picture(*panels, panel)


def tips(desk: Desk) -> str:
    """The forms of a line's ends."""
    def end(thickness: brindle.DrawingVectorThicknessPath | None, kind: str) -> brindle.Drawing:
        drawing = desk.drawing()
        with brindle.DrawingAccess.editing(drawing["line"]) as access:
            stroke, = strokes_of(access, new_layer(access),
                                 [straight((-70, -20), (50, 20))], desk.line(36))
            if thickness is not None:
                access.stroke_set_thickness(stroke, thickness)
            for which in ("from", "to"):
                access.stroke_set_tip_type(stroke, which, kind)
            if kind == "bevel":
                for side in ("LEFT", "RIGHT"):
                    access.stroke_set_tip_tangent(stroke, side, "to", -0.5)
        return drawing

    drawn = brindle.DrawingVectorThicknessPath([[0, 18], [1, 18]])
    drawn.tip_to_bezier = curve(((0, 1), (3.6, 0.6), (0.4, -0.5), (0, -1)))
    panels = []
    for title, thickness, kind in (('"round"', None, "round"), ('"flat"', None, "flat"), ('"bevel"', None, "bevel"),
                                   (".tip_to_bezier = curve", drawn, "flat")):
        panel = Sheet(title, width=190, box=(-120, -60, 120, 60))
        panel.drawing(end(thickness, kind))
        panel.line((-70, -20), (50, 20), "#ffffff", 1, "4 3")
        panels.append(panel)
    return picture(*panels)


def cut(desk: Desk) -> str:
    """Two circles that cross: as they are drawn, cut, and filled."""
    drawing = desk.drawing()
    circles = [brindle.BezierPath.create_circle(x, 0, 62, 4) for x in (-38, 38)]
    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        layer = new_layer(access)
        strokes_of(access, layer, circles, desk.line())
    before = Sheet("layer.strokes, layer.joints", f"{len(layer.strokes)} strokes that cross know nothing of\n"
                                                   "each other: no joint where they do.")
    before.drawing(drawing)
    before.joints(layer)

    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        cuts = access.vector_layer_cut(layer)
    after = Sheet(f".vector_layer_cut(layer)  # {cuts}", f"{len(layer.strokes)} strokes and joints between them;\n"
                                                              "what they enclose are contours now.")
    after.drawing(drawing)
    for stroke, colour in zip(layer.strokes, (BLUE, RED, GREEN, ORANGE, GREY, "#7a4fb0")):
        after.path(stroke.bezier_path, colour, 3)
    after.joints(layer)

    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        (contour, *_) = drawing["line"].find_containing_contour((0, 0))
        access.contour_set_colour(contour, desk.ids["Sand"])
    filled = Sheet(".contour_set_colour(contour, id)", "The area that the circles share is one of\nthem, and can be painted.")
    filled.drawing(drawing)
    return picture(before, after, filled)


def draw_all() -> dict[str, str]:
    drawn = {}
    for draw in (arts, joints, contours, keys, tips, cut):
        with tempfile.TemporaryDirectory() as folder, brindle.create(pathlib.Path(folder) / "page") as app:
            drawn[draw.__name__] = draw(Desk(app))
    return drawn


def main() -> int:
    written = {IMAGES / "drawings" / f"{name}.svg": text for name, text in draw_all().items()}
    return bring_up_to_date(written, "examples/drawings/write_drawing_page.py")


if __name__ == "__main__":
    sys.exit(main())
