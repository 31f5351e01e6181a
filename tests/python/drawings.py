"""Drawings to work on: their making, and what a test says of them."""

import brindle

STEP = "Drawing Modified with Python"
NO_SESSION = "No drawing is currently being modified."
NO_ACCESS = "There is no active drawing access."
OTHER_DRAWING = "A different drawing is already being modified."
UNEXPECTED = "An unexpected error has occurred."
OUT_OF_RANGE = "Index is out of range."
NO_ART = "Unexpected argument - a valid art-layer was not provided."
NO_TARGET = "Invalid target layer or stroke specified."
NO_LAYER = "Invalid target layer specified."
NO_STROKE = "Invalid stroke specified."
NO_PATH = "Invalid bezier path specified."
RED, GREEN = "00000000000000aa", "00000000000000bb"
# What is no drawing, layer or stroke.
NOTHING = (None, 7, "x", [], {}, [None], brindle.Point2d())


def invalid(index):
    return f"Invalid argument at index {index}."


def new_drawing(app, name="1"):
    """An empty drawing of the element "Arm". Its making stands in the history no more."""
    element = app.elements["Arm"] or app.elements.create("Arm")
    drawing = element.drawings.create(name).initialize()
    app.project.history.clear()
    return drawing


def end(access, history):
    """Ends the session; gives the labels of the undo list."""
    access.vector_end_operations()
    return history.list()


def line(*points):
    """An open path of straight lines."""
    path = brindle.BezierPath()
    for first, second in zip(points, points[1:]):
        curve = brindle.Bezier()
        curve.degree = 1
        curve[0], curve[1] = first, second
        path.bezier_append(curve)
    return path


def square(size=10, x=0, y=0):
    return brindle.BezierPath.create_rectangle(x, y, x + size, y + size)


def thick(colour=RED, thickness=4):
    style = brindle.DrawingVectorLineStyle()
    style.type, style.colour_id, style.thickness = "THICK_LINESTYLE", colour, thickness
    return style


def box(rectangle):
    """The sides of a rectangle, rounded to what matters: left, bottom, right, top."""
    sides = rectangle.x, rectangle.y, rectangle.x + rectangle.width, rectangle.y + rectangle.height
    return tuple(round(side, 6) for side in sides)


def content(drawing):
    """What the layers of a drawing hold, by art layer: of each its type and the boxes of its strokes."""
    def layer(each):
        strokes = each.strokes if isinstance(each, brindle.DrawingVectorLayer) else ()
        return each.type, tuple((stroke.unique_id, box(stroke.bounding_box)) for stroke in strokes)
    return [[layer(each) for each in art] for art in drawing]
