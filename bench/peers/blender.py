"""A scene for Blender: what bench/peers/blender_build.py makes Grease Pencil objects of."""

from . import lines, scenes

UNIT = 100.0  # pixels on a side of Blender's unit; its y runs up
STEPS = 16  # of a curve: its strokes have straight pieces


def points(places):
    return [[round(x / UNIT, 6), round(-y / UNIT, 6)] for x, y in places]


def strokes(art, outlines):
    match art:
        case scenes.Fill(path, colour):
            curves = [path[start:start + 4] for start in range(0, len(path) - 1, 3)]
            yield {"points": points(lines.point(curve, step / STEPS) for curve in curves for step in range(STEPS)),
                   "colour": colour, "widths": None}
        case scenes.Cells(cells=cells):
            for cell in cells:
                yield from strokes(cell, outlines)
        case scenes.Line(colour=colour):
            middle = lines.middle(outlines[art])
            yield {"points": points((x, y) for x, y, _ in middle), "colour": colour,
                   "widths": [round(width / UNIT, 6) for *_, width in middle]}


def tree(item, outlines):
    match item:
        case scenes.Moved(motion, child):
            ends = [motion.at(frame) for frame in (1, scenes.MOST_FRAMES)]
            return {"ends": [[x / UNIT, -y / UNIT, -angle] for x, y, angle in ends], "children": [tree(child, outlines)]}
        case scenes.Stack(children):
            return {"children": [tree(child, outlines) for child in children]}
        case scenes.Drawing(name, arts):
            return {"name": name, "strokes": [stroke for art in arts for stroke in strokes(art, outlines)]}


def description(scene, outlines):
    return {"size": scenes.SIZE, "unit": UNIT, "frames": scenes.MOST_FRAMES, "root": tree(scene.seen(), outlines)}
