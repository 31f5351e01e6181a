"""Lines whose colours follow them: gradients, textures, and textures that thin them."""

import brindle
import numpy
import pytest
from brindle import render

from pictures import CLEAR, UNITS, WHITE, at, path, pixels

RED, GREEN, BLUE = (255, 0, 0, 255), (0, 255, 0, 255), (0, 0, 255, 255)


def quarters(stage):
    """The id of a texture: red and blue above, green and white below."""
    return stage.texture("Quarters", [[RED] * 8 + [BLUE] * 8] * 4 + [[GREEN] * 8 + [WHITE] * 8] * 4)


@pytest.mark.parametrize("styles, colours", [
    ({}, (RED, RED, BLUE, BLUE, GREEN, GREEN, WHITE, WHITE)),
    ({"texture_scaling": [0.5, 1]}, (RED, BLUE, CLEAR, CLEAR, GREEN, WHITE, CLEAR, CLEAR)),
    ({"texture_scaling": [-1, -1]}, (WHITE, WHITE, GREEN, GREEN, BLUE, BLUE, RED, RED)),
    ({"texture_offset": [0.5, 0]}, (CLEAR, CLEAR, RED, RED, CLEAR, CLEAR, GREEN, GREEN)),
    ({"texture_offset": [0, 0.5]}, (GREEN, GREEN, WHITE, WHITE, CLEAR, CLEAR, CLEAR, CLEAR)),
    # It is twice as long as it is high, and the line eight times as long as it is wide.
    ({"texture_tiled": True}, (BLUE, RED, RED, RED, WHITE, GREEN, GREEN, GREEN)),
    ({"texture_tiled": True, "texture_scaling": [2, 1]}, (RED, BLUE, RED, BLUE, GREEN, WHITE, GREEN, WHITE)),
])
def test_a_texture_follows_a_line(stage, styles, colours):
    node, drawing = stage.read("Ribbon")
    stage.line(drawing, path((-40, 0), (40, 0)), quarters(stage), 10, **styles)
    shown = pixels(node)
    found = tuple(at(shown, x, y) for y in (2, -3) for x in (-25, -14, 6, 25))
    assert found == colours


def test_a_texture_turns_with_the_line_and_narrows_with_it(stage):
    node, drawing = stage.read("Ribbon")
    layer = stage.line(drawing, path((0, -40), (0, 40)), quarters(stage), 20)
    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        access.stroke_set_thickness(list(layer.strokes), brindle.DrawingVectorThicknessPath([[0, 0, 0], [1, 10 * UNITS, 10 * UNITS]]))
    shown = pixels(node)
    assert [at(shown, x, -20) for x in (-2, 1)] == [RED, GREEN], "upwards, the left edge is on the left"
    assert [at(shown, x, 20) for x in (-6, -2, 1, 5)] == [BLUE, BLUE, WHITE, WHITE]


@pytest.mark.parametrize("covers, colours", [(False, (RED, RED, RED, BLUE)), (True, (RED, RED, BLUE, BLUE))])
def test_tips_show_the_ends_of_a_texture_or_count_to_the_line(stage, covers, colours):
    node, drawing = stage.read("Ribbon")
    layer = stage.line(drawing, path((-20, 0), (20, 0)), quarters(stage), 40, texture_wrap_at_tip=covers)
    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        access.stroke_set_tip_type(list(layer.strokes), "to", "flat")
    shown = pixels(node)  # From -40 to 20.
    assert tuple(at(shown, x, 3) for x in (-35, -15, -5, 15)) == colours


def test_a_gradient_follows_a_line(stage):
    node, drawing = stage.read("Ribbon")
    linear = stage.palette.create_linear_gradient_colour("Along", [0, 0, 0], 0, [200, 100, 50], 100).id
    radial = stage.palette.create_radial_gradient_colour("Across", [200, 100, 50], 0, [0, 0, 0], 100).id
    stage.line(drawing, path((-40, 30), (40, 30)), linear, 10)
    stage.line(drawing, path((-40, -30), (40, -30)), radial, 20)
    shown = pixels(node)
    assert [at(shown, x, 30)[0] for x in (-40, 0, 39)] == pytest.approx([1, 101, 199], abs=3)
    assert at(shown, 44, 30)[:3] == (200, 100, 50), "the tip goes on as the end"
    assert [at(shown, 0, -30 + y)[0] for y in (0, 5, -6, 9)] == pytest.approx([190, 90, 90, 10], abs=3)


def test_an_opacity_texture_thins_a_line(stage):
    node, drawing = stage.read("Ribbon")
    fade = stage.texture("Fade", [[(0, 0, 0, 0)] * 4 + [(9, 9, 9, 128)] * 4 + [(0, 0, 0, 255)] * 8])
    stage.line(drawing, path((-40, 0), (40, 0)), stage.colour(*RED), 10, opacity_colour_id=fade)
    shown = pixels(node)
    assert [at(shown, x, 0) for x in (-30, -10, 10, 42)] == [CLEAR, RED[:3] + (128,), RED, RED]


@pytest.mark.parametrize("opacity, told", [
    ("00000000000000aa", "No palette has the colour 00000000000000aa; nothing is painted with it."),
    ("Plain", 'The colour "Colour 1" is no texture; no line is thinned by it.')])
def test_a_line_without_its_opacity_texture_is_whole(stage, opacity, told):
    node, drawing = stage.read("Ribbon")
    plain = stage.colour(*RED)
    stage.line(drawing, path((-40, 0), (40, 0)), plain, 10, opacity_colour_id=plain if opacity == "Plain" else opacity)
    with pytest.warns(render.RenderWarning) as warnings:
        assert at(pixels(node), 0, 0) == RED
    assert [str(each.message) for each in warnings] == [told]


def test_lines_with_textures_are_the_same_wherever_they_are_cut_off(stage):
    """A picture of a part of the scene has the pixels of the whole one; lines of no length and no width show no harm."""
    node, drawing = stage.read("Ribbon")
    texture = quarters(stage)
    layer = stage.line(drawing, path((-140, -90), (20, 10), (30, -100)), texture, 12)
    for shape, width in ((path((0, 0), (0, 0)), 10), (path((0, 0), (10, 0)), 0), (path((-1e7, 3), (1e7, 5)), 2)):
        stage.line(drawing, shape, texture, width, layer=layer)
    stage.line(drawing, path((-40, 40), (40, 40)), texture, 9, kind="HAIR_LINESTYLE", layer=layer)
    whole = pixels(node)
    assert whole.any()
    peg = stage.nodes.create("PEG", "Peg")
    node.ports_in[0].link(peg)
    peg.attributes["position.y"].set_localvalue(2)
    moved = pixels(node)
    differs = numpy.abs(moved[:-12].astype(int) - whole[12:]).max(axis=2) > 2
    assert differs.sum() <= 2, "where two parts of the line are equally near"
