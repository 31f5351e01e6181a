"""What strokes cost a script: to go through those of a layer, and to paint one of them."""

import brindle

STROKES = 10_000
FEW = 100


def curves(count):
    """Paths of four cubics each, apart from each other."""
    wave = brindle.BezierPath()
    for index in range(4):
        curve = brindle.Bezier()
        for place, point in enumerate(([0, 0], [1, 2], [2, -2], [3, 0])):
            curve[place] = [point[0] + 3 * index, point[1]]
        wave.bezier_append(curve)
    for index in range(count):
        path = brindle.BezierPath(wave)
        path.multiply([20 * (index % 100), 10 * (index // 100)])
        yield path


def layer_of(app, name, count):
    """A layer with so many strokes in a drawing of its own."""
    element = app.elements["Arm"] or app.elements.create("Arm")
    layer = element.drawings.create(name).initialize()["line"].add("PEN_LAYER")
    with brindle.DrawingAccess.editing(layer.drawing()["line"]) as access:
        access.stroke_create(list(curves(count)), layer, brindle.DrawingVectorLineStyle(), "LEFT", "00000000000000aa")
    app.project.history.clear()
    return layer


def measure(samples, root):
    with brindle.create(f"{root}/strokes") as app:
        layer = layer_of(app, "many", STROKES)
        for _ in range(5):
            with samples.timed("strokes iterate", STROKES):
                for stroke in layer.strokes:
                    stroke.bounding_box
        stroke = layer_of(app, "few", FEW).strokes[50]
        samples.in_turn({
            "stroke colour": ("stroke.colour_left = red; stroke.colour_left = blue", 2, "history.clear()"),
            "stroke colour read": ("stroke.colour_left", 1),
        }, {"stroke": stroke, "history": app.project.history, "red": brindle.DrawingVectorColour("00000000000000aa"),
            "blue": brindle.DrawingVectorColour("00000000000000bb")})
