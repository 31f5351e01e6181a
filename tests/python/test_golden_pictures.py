"""Pictures beside those that were found right: of node types, blend modes, paints, lines and tips.

A picture may differ from the one in tests/render/golden by 2 of 255 in any channel, and by 1 in one pixel of a hundred. Of one
that fails, the picture, the expected one and their difference, eight times as strong, are left in build/pictures.
BRINDLE_WRITE_PAGES=1 writes those in tests/render/golden anew.
"""

import math
import os

import brindle
import numpy
import pytest
from brindle import render

import palettes
import support
from pictures import UNITS, Stage, path, rectangle

GOLDEN = support.ROOT / "tests" / "render" / "golden"
FAILED = support.ROOT / "build" / "pictures"
SIZE = 144, 108  # Two thirds of pictures.SIZE: a pixel here is one and a half there.
MOST, MOST_PIXELS = 2, 0.01
MODES = ("NORMAL", "MULTIPLY", "SCREEN", "OVERLAY", "DARKEN", "LIGHTEN", "ADD", "DIFFERENCE", "EXCLUSION", "SOFT_LIGHT",
         "HARD_LIGHT")

# Two courses of bricks, the lower one lighter; and alpha that grows to the right, twice as fast in every second row.
BRICKS = [[(200, 70 + 20 * row, 40, 255) if (column + row // 4 * 4) % 8 and row % 4 else (250, 240, 220, 255)
           for column in range(16)] for row in range(8)]
FADE = [[(0, 0, 0, min(255, 36 * column * (1 + row % 2))) for column in range(8)] for row in range(4)]


def matrix(width, height, x=0, y=0, angle=0):
    """From the unit square to a rectangle in pixels, turned about its lower left corner."""
    turn = math.radians(angle)
    right, up = (math.cos(turn), math.sin(turn)), (-math.sin(turn), math.cos(turn))
    return brindle.Matrix([UNITS * width * right[0], UNITS * width * right[1], 0, 0,
                           UNITS * height * up[0], UNITS * height * up[1], 0, 0, 0, 0, 1, 0, UNITS * x, UNITS * y, 0, 1])


def circle(x, y, radius):
    return brindle.BezierPath.create_circle(UNITS * x, UNITS * y, UNITS * radius)


def curve(*points):
    """One curve from the first point to the last."""
    made, bezier = brindle.BezierPath(), brindle.Bezier()
    for place, (x, y) in enumerate(points):
        bezier[place] = [UNITS * x, UNITS * y]
    made.bezier_append(bezier)
    return made


def wave():
    """One curve to the right, up and down again."""
    return curve((-60, -35), (-20, 70), (20, -90), (60, 15))


def figure(stage):
    """A node with a face of three colours and a line, off the middle."""
    node, drawing = stage.read("Figure")
    stage.fill(drawing, circle(10, 5, 45), stage.colour(240, 190, 150), "colour")
    stage.fill(drawing, circle(-5, 15, 8), stage.colour(40, 70, 160), "colour")
    stage.fill(drawing, rectangle(5, -25, 45, -15), stage.colour(200, 30, 50, 160), "overlay")
    stage.line(drawing, circle(10, 5, 45), stage.colour(60, 30, 20), 5)
    return node


def peg(stage):
    node, peg = figure(stage), stage.nodes.create("PEG", "Peg")
    node.ports_in[0].link(peg)
    for name, value in (("position.x", -3), ("position.y", 2), ("scale.x", 1.2), ("scale.y", 0.6), ("angle", 30), ("skew", 20)):
        peg.attributes[name].set_localvalue(value)
    return node


def camera(stage):
    camera = stage.nodes.create("CAMERA", "Camera")
    stage.scene.camera = camera
    for name, value in (("position.x", 2), ("scale.x", 1.6), ("scale.y", 1.6), ("angle", -25)):
        camera.attributes[name].set_localvalue(value)
    return figure(stage)


def composite(stage):
    ground = stage.card("Ground", 120, 160, 110)
    return stage.node("COMPOSITE", "All", ground, figure(stage), stage.shape("Box", rectangle(-60, -50, 10, -10), 30, 30, 90, 128))


def cutter(stage, inverted=False):
    node = stage.node("CUTTER", "Cut", stage.shape("Matte", circle(30, 0, 35), 0, 0, 0, 200), figure(stage))
    node.attributes["inverted"].set_localvalue(inverted)
    return node


def blur(stage):
    node = stage.node("BLUR", "Soft", figure(stage))
    node.attributes["radius"].set_localvalue(100)
    return node


def group(stage):
    group = stage.nodes.create("GROUP", "Group")
    inside = group.nodes.create("COMPOSITE", "Inside")
    group.ports_in.create("image").link(figure(stage))
    card = stage.card("Card", 250, 240, 200)
    group.ports_in.create("image").link(card)
    for place, port in enumerate(reversed(list(group.multi_port_in.ports_out))):
        (inside.ports_in[place] if place < len(inside.ports_in) else inside.ports_in.create()).link(port)
    group.multi_port_out.ports_in.create("image").link(inside)
    return stage.node("DISPLAY", "End", group.ports_out[0])


def mode(name):
    def make(stage):
        ramp, drawing = stage.read("Ramp")
        colours = stage.palette.create_linear_gradient_colour("Ramp", [20, 60, 240], 0, [250, 220, 30], 100)
        paint = brindle.DrawingVectorColour(colours.id)
        paint.colour_matrix = matrix(190, 1, -95)
        stage.fill(drawing, rectangle(-95, -71, 95, 71), paint)
        above = stage.node("COMPOSITE", "Above", stage.shape("Left", circle(-25, 0, 45), 230, 80, 60),
                           stage.shape("Right", circle(30, 10, 45), 60, 180, 120, 150))
        node = stage.node("COMPOSITE", "Mode", ramp, above)
        node.attributes["mode"].set_localvalue(name)
        return node
    return make


def tip(kind):
    """Lines whose ends have a form: of one thickness, and of a thickness that grows and differs from side to side."""
    def make(stage):
        node, drawing = stage.read("Tips")
        colour = stage.colour(20, 20, 60, 200)
        layer = stage.line(drawing, path((-60, 40), (60, 50)), colour, 14)
        stage.line(drawing, wave(), colour, 14, layer=layer)
        keys = brindle.DrawingVectorThicknessPath([[0, 2 * UNITS, 4 * UNITS], [0.5, 12 * UNITS, 3 * UNITS],
                                                   [1, 6 * UNITS, 9 * UNITS]])
        with brindle.DrawingAccess.editing(drawing["line"]) as access:
            strokes = list(layer.strokes)
            for end in ("from", "to"):
                access.stroke_set_tip_type(strokes, end, kind)
            access.stroke_set_thickness(strokes[1:], keys)
        return node
    return make


def hair(stage):
    node, drawing = stage.read("Hair")
    stage.line(drawing, wave(), stage.colour(20, 20, 60), 9, kind="HAIR_LINESTYLE")
    return node


def gradient(form):
    def make(stage):
        node, drawing = stage.read("Gradient")
        colours = getattr(stage.palette, f"create_{form}_gradient_colour")("Sky", [250, 230, 40], 0, [180, 20, 90, 128], 80)
        paint = brindle.DrawingVectorColour(colours.id)
        paint.colour_matrix = matrix(70, 40, -10, 5)
        stage.fill(drawing, circle(0, 0, 60), paint)
        return node
    return make


def texture(tiled):
    def make(stage):
        bricks = stage.texture("Bricks", BRICKS, tiled)
        node, drawing = stage.read("Texture")
        paint = brindle.DrawingVectorColour(bricks)
        paint.texture_id = bricks
        paint.texture_matrix = matrix(50, 40, -30, -10, 20)
        stage.fill(drawing, circle(0, 0, 60), paint)
        return node
    return make


def along(colour, **styles):
    """Lines whose colours follow them: round corners, over themselves, and with a thickness that changes."""
    def make(stage):
        ids = {
            "bricks": stage.texture("Bricks", BRICKS), "fade": stage.texture("Fade", FADE),
            "dusk": stage.palette.create_linear_gradient_colour("Dusk", [250, 230, 40], 0, [90, 20, 180], 100).id,
            "tube": stage.palette.create_radial_gradient_colour("Tube", [240, 250, 255], 0, [20, 60, 160, 200], 90).id,
            "green": stage.colour(30, 90, 60)}
        if "opacity_colour_id" in styles:
            styles["opacity_colour_id"] = ids["fade"]
        node, drawing = stage.read("Lines")
        layer = None
        for shape in (path((-75, 55), (-20, 55), (-60, 15), (-75, 30)), curve((0, 5), (130, 85), (-50, 85), (75, 5)),
                      curve((-70, -45), (-20, 40), (20, -90), (75, -25))):
            layer = stage.line(drawing, shape, ids[colour], 14, layer=layer, **styles)
        keys = brindle.DrawingVectorThicknessPath([[0, 3 * UNITS, 3 * UNITS], [0.5, 12 * UNITS, 5 * UNITS],
                                                   [1, 6 * UNITS, 9 * UNITS]])
        with brindle.DrawingAccess.editing(drawing["line"]) as access:
            access.stroke_set_thickness(list(layer.strokes)[2:], keys)
        return node
    return make


def cells(stage):
    node, drawing = stage.read("Cells")
    stage.cells(drawing, lambda column, row: (-60 + 20 * column + 4 * row, -50 + 16 * row - 3 * column), 6,
                stage.colour(40, 160, 90, 170))
    return node


def crossed(stage):
    node, drawing = stage.read("Crossed")
    layer = stage.fill(drawing, circle(-15, 0, 50), stage.colour(220, 60, 40, 160))
    stage.fill(drawing, circle(30, 10, 35), stage.colour(40, 60, 220, 160), layer=layer)
    stage.fill(drawing, circle(-30, 0, 12), stage.colour(250, 250, 90, 160), layer=layer)
    return node


def disabled(stage):
    node = blur(stage)
    node.enabled = False
    return node


PICTURES = {
    "read": figure, "peg": peg, "camera": camera, "composite": composite, "cutter": cutter,
    "cutter-inverted": lambda stage: cutter(stage, True), "color-card": lambda stage: stage.card("Card", 200, 120, 40, 180),
    "blur": blur, "group": group, "disabled": disabled,
    "write": lambda stage: stage.node("WRITE", "Out", figure(stage)),
    "display": lambda stage: stage.node("DISPLAY", "Show", figure(stage)),
    **{f"mode-{name.lower()}": mode(name) for name in MODES},
    **{f"tip-{kind}": tip(kind) for kind in ("round", "flat", "bevel")}, "hair": hair,
    "gradient-linear": gradient("linear"), "gradient-radial": gradient("radial"),
    "texture": texture(False), "texture-tiled": texture(True),
    "line-linear": along("dusk"), "line-radial": along("tube"), "line-texture": along("bricks"),
    "line-texture-tiled": along("bricks", texture_tiled=True, texture_scaling=[1, 0.5], texture_wrap_at_tip=True),
    "line-opacity": along("green", opacity_colour_id="fade", texture_wrap_at_tip=True),
    "line-opacity-tiled": along("dusk", opacity_colour_id="fade", opacity_texture_tiled=True,
                                opacity_texture_scaling=[3, -1], opacity_texture_offset=[0.5, 0]),
    "cells": cells, "crossed": crossed,
}


def write(path, array):
    """Writes pixels as a PNG file."""
    height, width, _ = array.shape
    rows = [array[row].tobytes() for row in range(height)]
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(palettes.png_of_rows(width, rows))


def difference(is_, expected):
    """Why two pictures count as different; None where they don't."""
    if is_.shape != expected.shape:
        return f"it has {is_.shape[1]} x {is_.shape[0]} pixels instead of {expected.shape[1]} x {expected.shape[0]}"
    off = numpy.abs(is_.astype(int) - expected.astype(int)).max(axis=2)
    share = (off > 0).mean()
    if off.max() <= MOST and share <= MOST_PIXELS:
        return None
    return f"{share:.1%} of its pixels differ, by up to {off.max()} of 255"


@pytest.mark.parametrize("name", PICTURES)
def test_it_looks_as_it_did(app, name):
    cel = render.cel(PICTURES[name](Stage(app)), 1, SIZE)
    if os.environ.get("BRINDLE_WRITE_PAGES"):
        cel.write(str(GOLDEN / f"{name}.png"))
        return
    is_ = numpy.asarray(cel)
    expected = numpy.asarray(brindle.Cel.read(str(GOLDEN / f"{name}.png")))
    reason = difference(is_, expected)
    if reason:
        write(FAILED / f"{name}.png", is_)
        write(FAILED / f"{name}-expected.png", expected)
        if is_.shape == expected.shape:
            off = numpy.minimum(8 * numpy.abs(is_.astype(int) - expected.astype(int)), 255).astype(numpy.uint8)
            off[:, :, 3] = 255
            write(FAILED / f"{name}-difference.png", off)
    assert reason is None, f"{name}: {reason}; see {FAILED}"


def test_every_picture_is_of_use():
    assert {path.stem for path in GOLDEN.glob("*.png")} == set(PICTURES)


def test_a_picture_that_differs_is_told():
    grey = numpy.full((10, 10, 4), 100, dtype=numpy.uint8)
    almost = grey.copy()
    almost[0, 0] += 2
    assert difference(almost, grey) is None
    assert "2.0% of its pixels differ, by up to 2" in difference(numpy.maximum(almost, almost.transpose(1, 0, 2)[::-1]), grey)
    almost[0, 0, 0] = 104
    assert "by up to 4" in difference(almost, grey)
    assert "instead of" in difference(grey[:5], grey)
