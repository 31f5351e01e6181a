"""The pictures of docs/geometry.md, each a function that gives the text of an SVG file."""

import itertools
import math

import brindle

from canvas import BLUE, CODE, GREEN, GREY, ORANGE, RED, Panel, path_of, path_through, picture

HUMP = [[0, 0], [1, 6], [7, 8], [10, 1]]
WAVE = [[0, 0], [4, 9], [6, -9], [10, 2]]


def curve_of(points: list[list[int]]) -> brindle.Bezier:
    curve = brindle.Bezier()
    curve.degree = len(points) - 1
    for index, point in enumerate(points):
        curve[index] = point
    return curve


def points() -> str:
    """How the lenient reader adds up a list."""
    plain = Panel("Point2d([4, 2])", (-1, -1, 7, 6), "numbers are x, y, z in turn")
    plain.arrow((0, 0), (4, 2), BLUE)
    plain.dot(brindle.Point2d([4, 2]), RED, 4)
    plain.text((4, 2), "(4, 2)")

    added = Panel("Point2d([Point2d(3, 1),\n         Vector2d(1, 3)])", (-1, -1, 7, 6), "points and vectors add up")
    added.arrow((0, 0), (3, 1), BLUE)
    added.arrow((3, 1), (4, 4), GREEN)
    added.dot(brindle.Point2d([brindle.Point2d(3, 1), brindle.Vector2d(1, 3)]), RED, 4)
    added.text((4, 4), "(4, 4)")

    turn = brindle.Matrix()
    turn.rotate_degrees(60)
    turned = Panel("Point2d([Point2d(4, 1), turn,\n         Vector2d(2, 0)])", (-1, -1, 7, 6),
                   "a matrix acts on what stands\nahead of it")
    ahead = brindle.Point2d([brindle.Point2d(4, 1), turn])
    turned.arrow((0, 0), (4, 1), BLUE)
    turned.line((0, 0), ahead, BLUE, 1, "3 3")
    arc = [brindle.Point2d([brindle.Point2d(4, 1), rotation(angle)]) for angle in range(0, 61, 3)]
    turned.path(path_through(arc), ORANGE, 1.2, dash="3 3")
    total = brindle.Point2d([brindle.Point2d(4, 1), turn, brindle.Vector2d(2, 0)])
    turned.arrow(ahead, total, GREEN)
    turned.dot(total, RED, 4)
    turned.text(total, f"({total.x:.2f}, {total.y:.2f})", dx=-30, dy=-8)
    return picture(plain, added, turned)


def rotation(degrees: float) -> brindle.Matrix:
    matrix = brindle.Matrix()
    matrix.rotate_degrees(degrees)
    return matrix


def frame(panel: Panel, rectangle: brindle.AllocatedRect2D, colour: str, width: float = 2, dash: str = "") -> None:
    panel.path(brindle.BezierPath.create_rectangle(rectangle.x, rectangle.y, rectangle.x + rectangle.width,
                                                   rectangle.y + rectangle.height), colour, width, dash=dash)


def rectangle() -> str:
    box = (-1, -1, 11, 8)
    places = [[2, 1], [7, 3], [4, 5]]
    read = brindle.AllocatedRect2D(places)
    about = Panel("r = AllocatedRect2D(\n    [[2, 1], [7, 3], [4, 5]])", box, "about all positions in the list")
    frame(about, read, BLUE)
    for place in places:
        about.dot(place, RED, 3.5)
    about.text((read.x, read.y), "x, y", dx=-4, dy=14)
    about.text((4.5, read.y), "width", dx=0, dy=-8, anchor="middle")
    about.text((read.x, 3), "height", dx=5, dy=4)

    grown = read.copy()
    grown.add([10, 7])
    added = Panel("r.add([10, 7])", box, "grows to hold a position\nor a rectangle")
    frame(added, read, GREY, 1.2, "4 3")
    frame(added, grown, BLUE)
    added.dot((10, 7), RED, 3.5)

    wider = read.copy()
    wider.expand(2, 1, 1, 0)
    expanded = Panel("r.expand(2, 1, 1, 0)", box, "left, bottom, right, top,\neach outwards")
    frame(expanded, read, GREY, 1.2, "4 3")
    frame(expanded, wider, BLUE)
    expanded.arrow((2, 3), (0, 3), RED)
    expanded.arrow((4.5, 1), (4.5, 0), RED)
    expanded.arrow((7, 3), (8, 3), RED)
    return picture(about, added, expanded)


FLAG = [[0, 0], [0, 3], [2, 2.25], [0, 1.5]]


def flag(panel: Panel, matrix: brindle.Matrix, colour: str, dash: str = "") -> None:
    """A flag on its pole, as a matrix moves it, with where the matrix puts the axes."""
    shape = path_through(FLAG)
    shape.multiply(matrix)
    panel.path(shape, colour, 2, fill=colour + "33", dash=dash)
    panel.dot(shape[0], colour, 3)


def matrix() -> str:
    """The forms that a matrix is read from, by what they do to a flag."""
    box = (-1, -1, 9, 7)
    turn = rotation(30)
    forms: list[tuple[str, brindle.MatrixLike, str]] = [
        ("Matrix([3, 1])", [3, 1], "2 numbers: a move"),
        ("Matrix(2)", 2, "a number: a scale"),
        ("Matrix([1, 0, 0,\n        1, 1, 0,\n        3, 0, 1])", [1, 0, 0, 1, 1, 0, 3, 0, 1],
         "9 numbers: x axis, y axis, origin"),
        ("Matrix([turn, 3, 1])", [turn, 3, 1], "a move by the numbers,\nthen the matrices in order"),
    ]
    panels = []
    for title, value, caption in forms:
        panel = Panel(title, box, caption, 210)
        flag(panel, brindle.Matrix(), GREY, "4 3")
        flag(panel, brindle.Matrix(value), BLUE)
        panels.append(panel)
    return picture(*panels)


def composition() -> str:
    """The step that is added last acts first on a point."""
    box = (-3, -1, 9, 8)
    panels = []
    for steps, caption in (((("translate", (5, 1, 0)), ("rotate_degrees", (45,))),
                            "The flag turns about its own foot,\nthen moves: the last step acts first."),
                           ((("rotate_degrees", (45,)), ("translate", (5, 1, 0))),
                            "The flag moves, and all of that\nturns about (0, 0).")):
        composed = brindle.Matrix()
        title = "m = Matrix()"
        for name, arguments in steps:
            getattr(composed, name)(*arguments)
            title += f"\nm.{name}({', '.join(map(str, arguments))})"
        last = brindle.Matrix()
        getattr(last, steps[1][0])(*steps[1][1])
        panel = Panel(title, box, caption, 300)
        flag(panel, brindle.Matrix(), GREY, "4 3")
        flag(panel, last, ORANGE, "4 3")
        flag(panel, composed, BLUE)
        panel.text((0, 0), "1", dx=7, dy=15, colour=GREY)
        panel.text(last.origin, "2", dx=-12, dy=12, colour=ORANGE)
        panel.text(composed.origin, "3", dx=8, dy=12, colour=BLUE)
        panels.append(panel)
    return picture(*panels)


COLOURS = ["[200, 60, 40]", "[200, 60, 40, 255]", "[40, 120, 60, 128]", "'red'", "'10,20,30,40'", "5",
           "Colour.from_hsl(210, 60, 45, 100)"]


def colours() -> str:
    """What the reader of colours makes of each form, before squares that show where it isn't opaque."""
    panel = Panel("Colour(value)", (0, 0, 30, 2 * len(COLOURS) + 1), "", 520)
    panel.lines.clear()
    for row, text in enumerate(reversed(COLOURS)):
        colour = brindle.Colour(eval(text, {"Colour": brindle.Colour}))
        bottom = 2 * row + 0.8
        for column, line in itertools.product(range(8), range(3)):
            if (column + line) % 2:
                left, low = 1 + column / 2, bottom + line / 2
                panel.area((left, low), (left + 0.5, low + 0.5), "#d4d4d4")
        panel.area((1, bottom), (5, bottom + 1.5), f"#{int(colour.r):02x}{int(colour.g):02x}{int(colour.b):02x}",
                   colour.a / 255, "#999999")
        panel.text((6, bottom + 0.5), text, dx=0, dy=0, font=CODE)
        panel.text((20.3, bottom + 0.5), str(colour), dx=0, dy=0, font=CODE)
    return picture(panel)


def curves() -> str:
    """What becomes of a list of points, and of a list of curves."""
    box = (-1, -1, 12, 9)
    three = Panel("Bezier([p0, p1, p2])", box, "not more points than the degree:\nno curve, so the default one")
    four = Panel("Bezier([p0, p1, p2, p3])", box, "three of the four points; the last\ncontrol point stays (0, 0)")
    points = [[2, 1], [1, 7], [7, 8], [10, 4]]
    for panel, count in ((three, 3), (four, 4)):
        for index, point in enumerate(points[:count]):
            panel.ring(point, GREY, 6)
            panel.text(point, f"p{index}", dx=8, dy=-5, colour=GREY)
        read = path_of(brindle.Bezier(points[:count]))
        panel.path(read, BLUE)
        panel.controls(read, BLUE)
    whole = Panel("curve = Bezier()\nfor i in range(4): curve[i] = p[i]", box, "each point in its place:\nthe curve of all four")
    path = path_of(curve_of(points))
    whole.path(path, BLUE)
    whole.controls(path, BLUE)
    for index, point in enumerate(points):
        whole.text(point, f"p{index}", dx=8, dy=-5, colour=GREY)
    return picture(three, four, whole)


def create_circle() -> str:
    panels = []
    for arcs, caption in ((2, "two curves: 2 % off the circle"), (4, "four curves: 0.03 % off;\nclockwise from the top"),
                          (8, "eight curves: 0.0004 % off")):
        circle = brindle.BezierPath.create_circle(0, 0, 4, arcs)
        panel = Panel(f"create_circle(0, 0, 4, {arcs})", (-6, -6, 6, 6), caption)
        panel.path(circle, BLUE)
        panel.controls(circle, GREY)
        panel.dot(circle.evaluate(0), RED, 4)
        panel.text(circle.evaluate(0), "start", dx=0, dy=-9, anchor="middle")
        ahead = circle.truncate(arcs / 16, arcs)
        place, way = ahead.evaluate(0), ahead.from_tangent
        panel.arrow(place, (place.x + way.x * 0.3, place.y + way.y * 0.3), RED)
        panels.append(panel)
    return picture(*panels)


def create_bezier_fit() -> str:
    box = (-6, -34, 106, 54)
    wave = [[i * 2, 25 * math.sin(i / 5) + (6 if i % 2 else 5) + i / 4] for i in range(51)]
    opened = Panel("create_bezier_fit(points)", box, "curves that stay within 1\nof every point")
    one = Panel("create_bezier_fit(points,\n                  one_bezier=True)", box, "one cubic from end to end,\nin the directions of its ends")
    ring = [[50 + (30 + 8 * math.cos(3 * a)) * math.cos(a), 10 + (30 + 8 * math.cos(3 * a)) * math.sin(a)]
            for a in (i * math.tau / 40 for i in range(40))]
    closed = Panel("create_bezier_fit(points,\n                  closed=True)", box, "closed, and smooth where it closes")
    for panel, points, arguments in ((opened, wave, ()), (one, wave, (False, True)), (closed, ring, (True,))):
        for point in points:
            panel.dot(point, ORANGE, 2)
        fit = brindle.BezierPath.create_bezier_fit(points, *arguments)
        panel.path(fit, BLUE, 1.5)
        for index, control in enumerate(fit):
            if fit.point_on_curve(index):
                panel.ring(control, BLUE, 3.5)
    return picture(opened, one, closed)


def split() -> str:
    box = (-1, -1, 11, 9)
    before = Panel("curve", box, "its control points and handles")
    hump = path_of(curve_of(HUMP))
    before.path(hump, BLUE)
    before.controls(hump, BLUE)
    cut = curve_of(HUMP)
    behind = cut.split(0.4)
    after = Panel("behind = curve.split(0.4)", box, "curve keeps the first part (blue),\nbehind is the second (red)")
    for part, colour in ((cut, BLUE), (behind, RED)):
        drawn = path_of(part)
        after.path(drawn, colour)
        after.controls(drawn, colour)
    after.text(behind[0], "0.4", dx=-26, dy=-2)
    longer = brindle.BezierPath.create_circle(5, 4, 3.5)
    rest = longer.split(2.5)
    path = Panel("path = create_circle(5, 4, 3.5)\nrest = path.split(2.5)", box,
                 "on a path: two curves and a half,\nand the rest")
    path.path(longer, BLUE)
    path.path(rest, RED)
    for drawn, colour in ((longer, BLUE), (rest, RED)):
        for index, point in enumerate(drawn):
            if drawn.point_on_curve(index):
                path.dot(point, colour, 3)
    path.text(rest[0], "2.5", dx=-7, dy=14, anchor="end")
    path.text(longer[0], "0", dx=0, dy=-8, anchor="middle")
    return picture(before, after, path)


def closest_point() -> str:
    box = (-2, -5, 13, 8)
    near = Panel("t = curve.closest_point(point)\ncurve.evaluate(t)", box, "the nearest point of each,\nand its parameter", 300)
    wave = curve_of(WAVE)
    near.curve(wave, BLUE)
    along = Panel("t = path.closest_point(point)", box, "on a path the parameter tells\nthe curve, and the place on it", 300)
    outline = brindle.BezierPath.create_rectangle(1, -3, 11, 6)
    along.path(outline, BLUE)
    panels: list[tuple[Panel, brindle.Bezier | brindle.BezierPath, dict[tuple[float, float], tuple[int, int]]]]
    # A point, and where beside its nearest point there is room for the parameter, in pixels.
    panels = [(near, wave, {(0, 5): (-21, 5), (3.5, -3): (20, -2), (5.4, 5.5): (21, 3), (11, -3.5): (21, 2),
                            (12, 5): (20, 8)}),
              (along, outline, {(6, 0): (0, 18), (12.5, 3): (-20, 4), (3, 7.5): (0, 20), (-1, -4): (18, -10)})]
    for panel, curve, places in panels:
        for place, (dx, dy) in places.items():
            parameter = curve.closest_point(place)
            nearest = curve.evaluate(parameter)
            panel.line(place, nearest, ORANGE, 1.2, "4 3")
            panel.dot(place, RED, 3.5)
            panel.dot(nearest, BLUE, 3.5)
            panel.text(nearest, f"{parameter:.2f}", dx, dy, anchor="middle")
    return picture(near, along)


PICTURES = (points, rectangle, matrix, colours, curves, composition, create_circle, create_bezier_fit, split,
            closest_point)
