"""A layer of 10,000 strokes of four curves: made one by one and by a description, undone, read, painted, saved."""

import time

import brindle

SIZE = 10_000
SMALL = 100
DRAWINGS = 1_000
COLOUR = "0123456789abcdef"


def circle(index):
    return brindle.BezierPath.create_circle(index % 100 * 10, index // 100 * 10, 4)


def style():
    line = brindle.DrawingVectorLineStyle()
    line.type, line.colour_id, line.thickness = "THICK_LINESTYLE", COLOUR, 2
    return line


def described(count):
    line = style()
    return {"strokes": [{"path": circle(index), "line_style": line, "colour_left": COLOUR} for index in range(count)]}


def make_many(root):
    """A project of 1,000 drawings of 200 strokes."""
    with brindle.create(f"{root}/drawings") as app:
        names = [str(number) for number in range(DRAWINGS)]
        drawings = app.elements.create("Many").drawings
        drawings.create(names)
        description = described(200)
        for name in names:
            with brindle.DrawingAccess.editing(drawings[name].initialize()["line"]) as access:
                access.vector_layers_create(description)
        app.save()


def measure(samples, root):
    with brindle.create(f"{root}/drawing") as app:
        history = app.project.history
        drawings = app.elements.create("Arm").drawings
        art = drawings.create("1").initialize()["line"]
        paths, line, description = [circle(index) for index in range(SIZE)], style(), described(SIZE)
        access = brindle.DrawingAccess()
        for index in range(3):
            with samples.timed("strokes one by one"):
                with access.editing(art):
                    layer = access.vector_layer_create("PEN_LAYER")
                    for path in paths:
                        access.stroke_create(path, layer, line, "LEFT", COLOUR)
            with samples.timed("strokes undo"):
                history.undo()
            with samples.timed("strokes described"):
                with access.editing(art):
                    layer, = access.vector_layers_create(description)
            with samples.timed("strokes topology"):
                layer.contours.size()
            for _ in range(5):
                with samples.timed("strokes with boxes", SIZE):
                    for stroke in layer.strokes:
                        stroke.bounding_box
            with samples.timed("drawing save", clock=time.perf_counter):
                app.save()
            if index < 2:
                history.undo()
        small = drawings.create("2").initialize()["line"]
        with access.editing(small):
            layer, = access.vector_layers_create(described(SMALL))
        stroke = layer.strokes[0]
        samples.in_turn({"stroke colour": ("stroke.colour_left = first; stroke.colour_left = second", 2,
                                           "history.clear()")},
                        {"stroke": stroke, "first": COLOUR, "second": "AUTO", "history": history})
        app.save()
    for _ in range(3):
        with brindle.open(f"{root}/drawing") as app, samples.timed("drawing open", clock=time.perf_counter):
            len(app.elements["Arm"].drawings["1"].drawing["line"])
    make_many(root)
    for index in range(3):
        with samples.timed("drawings of strokes open", clock=time.perf_counter):
            app = brindle.open(f"{root}/drawings")
        with app:
            app.elements["Many"].drawings[str(index)].drawing["line"].add("PEN_LAYER")
            with samples.timed("drawings of strokes save", clock=time.perf_counter):
                app.save()
