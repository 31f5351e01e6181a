"""Pictures of nodes: what a person sees of drawings, pegs, the camera and the nodes that put pictures together."""

import os
import subprocess

import brindle
import numpy
import pytest
from brindle import render

import palettes
import support
from pictures import CLEAR, NO_LINE, SIZE, UNITS, at, box, path, pixels, rectangle

RED, BLUE = (255, 0, 0, 255), (0, 0, 255, 255)


# --- Drawings -----------------------------------------------------------------------------------------------------------

def test_a_drawing_lies_where_its_coordinates_say(square):
    shown = pixels(square)
    assert shown.shape == (SIZE[1], SIZE[0], 4) and shown.dtype == numpy.uint8
    assert box(shown) == (106, 42, 126, 62)
    assert at(shown, 20, 20) == RED and at(shown, 9, 20) == CLEAR
    assert (shown[42:62, 106:126] == RED).all()


def test_it_grows_with_the_picture(square):
    assert box(pixels(square, size=(384, 288))) == (212, 84, 252, 124)


def test_without_a_size_a_picture_has_the_resolution_of_the_project(stage, square):
    cel = render.cel(square, 1)
    assert memoryview(cel).shape == (stage.app.project.resolution.y, stage.app.project.resolution.x, 4)


def test_a_cel_shows_itself_in_a_notebook(square):
    assert render.cel(square, 1, SIZE)._repr_png_().startswith(b"\x89PNG")


def test_art_layers_come_over_each_other(stage):
    node, drawing = stage.read("Four")
    for step, art in enumerate(("overlay", "line", "colour", "underlay")):
        stage.fill(drawing, rectangle(0, 0, 40, 10 * (step + 1)), stage.colour(50 * step, 0, 0), art)
    shown = pixels(node)
    assert [at(shown, 5, y)[0] for y in (5, 15, 25, 35)] == [0, 50, 100, 150]


def test_a_line_lies_over_the_areas_of_its_layer(stage):
    node, drawing = stage.read("Line")
    layer = stage.line(drawing, path((-20, 10), (20, 10)), stage.colour(*BLUE), 4)
    stage.fill(drawing, rectangle(-10, 0, 10, 20), stage.colour(*RED), layer=layer)
    shown = pixels(node)
    assert (at(shown, 0, 10), at(shown, 0, 5), at(shown, 15, 9)) == (BLUE, RED, BLUE)
    assert at(shown, 0, 13) == RED and at(shown, 15, 13) == CLEAR


@pytest.mark.parametrize("factor", [1, 3])
def test_a_hair_line_is_one_pixel_wide_at_any_size(stage, factor):
    node, drawing = stage.read("Hair")
    stage.line(drawing, path((-20, 0), (20, 0)), stage.colour(*RED), 9, kind="HAIR_LINESTYLE")
    shown = pixels(node, size=(SIZE[0] * factor, SIZE[1] * factor))
    assert int(shown[:, 96 * factor, 3].astype(int).sum()) == pytest.approx(255, abs=4)


def test_an_island_in_an_area_is_painted_once(stage):
    node, drawing = stage.read("Ring")
    layer = stage.fill(drawing, rectangle(0, 0, 40, 40), stage.colour(255, 0, 0, 128))
    stage.fill(drawing, rectangle(10, 10, 30, 30), stage.colour(0, 0, 255, 128), layer=layer)
    shown = pixels(node)
    assert at(shown, 5, 5) == (255, 0, 0, 128)
    assert at(shown, 20, 20) == (0, 0, 255, 128)


def test_areas_with_a_common_edge_leave_no_seam(stage):
    """Cells on edges that lie between pixels: the ground is seen nowhere inside."""
    node, drawing = stage.read("Cells")
    stage.cells(drawing, lambda column, row: (10.3 + 9.7 * column + row, 4.6 + 8.9 * row - 2 * column), 4,
                stage.colour(40, 160, 90))
    shown = pixels(node)
    inside = shown[SIZE[1] // 2 - 32:SIZE[1] // 2 - 6, SIZE[0] // 2 + 16:SIZE[0] // 2 + 48]
    assert (numpy.abs(inside.astype(int) - (40, 160, 90, 255)) <= 1).all()


def test_areas_that_cross_are_laid_over_each_other(stage):
    node, drawing = stage.read("Crossed")
    layer = stage.fill(drawing, rectangle(0, 0, 40, 30), stage.colour(255, 0, 0, 128))
    stage.fill(drawing, rectangle(20, 10, 50, 20), stage.colour(0, 0, 255, 128), layer=layer)
    shown = pixels(node)
    assert at(shown, 5, 5) == (255, 0, 0, 128) and at(shown, 45, 15) == (0, 0, 255, 128)
    assert at(shown, 30, 15) == pytest.approx((85, 0, 170, 192), abs=2), "the smaller one is on top"


def test_a_gradient_runs_through_its_matrix(stage):
    node, drawing = stage.read("Gradient")
    sky = stage.palette.create_linear_gradient_colour("Sky", [0, 0, 0], 0, [200, 100, 50], 100)
    colour = brindle.DrawingVectorColour(sky.id)
    colour.colour_matrix = brindle.Matrix([60 * UNITS, 0, 0, 0, 0, 60 * UNITS, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1])
    stage.fill(drawing, rectangle(0, 0, 60, 20), colour)
    shown = pixels(node)
    assert at(shown, 30, 10) == pytest.approx((100, 50, 25, 255), abs=3)
    assert at(shown, 0, 10)[0] < 4 and at(shown, 59, 10)[0] > 195


def test_every_8_bit_colour_of_a_palette_comes_out_of_a_file_as_it_is(stage, tmp_path):
    """All values of each channel, opaque and half transparent, in files of 8 and of 16 bits."""
    node, drawing = stage.read("Colours")
    colours = [(i, 255 - i, i * 7 % 256, alpha) for i in range(256) for alpha in (255, 128)]
    places = [(6 * (k % 32) - 96, 9 * (k // 32) - 72) for k in range(len(colours))]
    stage.strokes(drawing, [
        {"path": rectangle(x, y, x + 6, y + 9), "line_style": NO_LINE, "colour_left": colour, "colour_right": colour}
        for (x, y), colour in zip(places, (stage.colour(*rgba) for rgba in colours))])
    cel = render.cel(node, 1, SIZE)
    cel.write(tmp_path / "16.png")
    cel.write(tmp_path / "8.png", "PIXMAP_RGBA8")
    cel.write(tmp_path / "float.exr", "", "depth=float")
    for shown in (cel, *(brindle.Cel.read(tmp_path / name) for name in ("16.png", "8.png", "float.exr"))):
        assert [at(numpy.asarray(shown), x + 3, y + 4) for x, y in places] == colours


def test_a_colour_that_no_palette_has_paints_nothing_and_is_told_once(stage):
    node, drawing = stage.read("Lost")
    layer = stage.fill(drawing, rectangle(0, 0, 10, 10), "00000000000000aa")
    stage.fill(drawing, rectangle(20, 0, 30, 10), "00000000000000aa", layer=layer)
    with pytest.warns(render.RenderWarning) as told:
        assert not pixels(node).any()
    assert [str(each.message) for each in told] == [
        "No palette has the colour 00000000000000aa; nothing is painted with it."]


def test_a_texture_paints_and_one_that_is_gone_is_told(folder, stage, tmp_path):
    (tmp_path / "blue.png").write_bytes(palettes.png(2, 2, BLUE))
    node, drawing = stage.read("Wood")
    wood = stage.palette.create_texture("Wood", str(tmp_path / "blue.png"), -1, True)
    stage.fill(drawing, rectangle(0, 0, 10, 10), wood.id)
    assert at(pixels(node), 5, 5) == BLUE
    stage.app.save()
    stage.app.close()
    (file,) = folder.glob("palette-library/*_textures/*.png")
    file.unlink()
    with brindle.open(folder) as app, pytest.warns(render.RenderWarning) as told:
        assert not pixels(app.scene.nodes["Top/Wood"]).any()
    assert [str(each.message) for each in told] == [
        'The picture of the texture "Wood" is gone; nothing is painted with it.']


@pytest.fixture
def scan(stage, tmp_path):
    """A node that shows a red picture of 4 x 4 pixels."""
    (tmp_path / "red.png").write_bytes(palettes.png(4, 4, RED))
    column = stage.scene.columns.create("DRAWING", "Scan", {"createNode": False})
    column.element.vector_type = ""
    column.element.drawings.create("1").import_file(str(tmp_path / "red.png"))
    column[1] = "1"
    node = stage.nodes.create("READ", "Scan")
    node.attributes["drawing.element"].link(column)
    return node


def test_pictures_of_pixels_are_as_high_as_the_field_chart(scan):
    shown = pixels(scan)
    assert box(shown) == (24, 0, 168, 144)
    assert at(shown, 0, 0) == RED


def test_a_picture_that_another_program_writes_anew_is_read_anew(folder, stage, scan):
    stage.app.save()
    assert at(pixels(scan), 0, 0) == at(pixels(scan), 0, 0) == RED
    (file,) = (folder / "elements" / "Scan").iterdir()
    file.write_bytes(palettes.png(6, 6, BLUE))
    assert at(pixels(scan), 0, 0) == BLUE
    file.unlink()
    with pytest.warns(render.RenderWarning):
        assert not pixels(scan).any()


def test_a_picture_whose_file_is_gone_is_told_and_left_out(folder, stage, square, scan):
    both = stage.node("COMPOSITE", "Both", scan, square)
    stage.app.save()
    (file,) = (folder / "elements" / "Scan").iterdir()
    file.unlink()
    with pytest.warns(render.RenderWarning, match='drawing "1"') as told:
        assert (pixels(both) == pixels(square)).all()
    assert len(told) == 1


# --- Nodes --------------------------------------------------------------------------------------------------------------

def test_exposures_opacity_and_visibility_of_a_read_node(stage):
    node, drawing = stage.read("Held", frames=4)
    stage.fill(drawing, rectangle(0, 0, 20, 20), stage.colour(*RED))
    assert at(pixels(node, 4), 5, 5) == RED and not pixels(node, 5).any()
    node.attributes["opacity"].set_localvalue(50)
    assert at(pixels(node), 5, 5) == (255, 0, 0, 128)
    node.attributes["visible"].set_localvalue(False)
    assert not pixels(node).any()


def test_a_read_node_shows_what_its_timing_says(stage):
    node, drawing = stage.read("Mouth")
    stage.fill(drawing, rectangle(0, 0, 20, 20), stage.colour(*RED))
    element = node.attributes["drawing"].element
    stage.fill(element.drawings.create("open").initialize(), rectangle(0, 0, 20, 20), stage.colour(*BLUE))
    node.attributes["drawing.timing"].link(stage.scene.columns.create("TIMING", "Talk"))
    shown = node.attributes["drawing"]
    shown.element_mode = False
    shown.set_value(1, "open")
    shown.set_value(3, "1")
    assert [at(pixels(node, frame), 5, 5) for frame in (1, 2, 3)] == [BLUE, BLUE, RED]
    shown.element_mode = True
    assert at(pixels(node), 5, 5) == RED


def test_pegs_move_scale_and_turn_what_hangs_on_them(stage, square):
    peg, above = stage.nodes.create("PEG", "Peg"), stage.nodes.create("PEG", "Above")
    square.ports_in[0].link(peg)
    peg.ports_in[0].link(above)
    peg.attributes["position.y"].set_localvalue(-1)
    assert box(pixels(square)) == (106, 48, 126, 68)
    above.attributes["scale.x"].set_localvalue(2)
    above.attributes["scale.y"].set_localvalue(2)
    assert box(pixels(square)) == (116, 24, 156, 64)
    peg.enabled = False
    assert box(pixels(square)) == (116, 12, 156, 52)
    above.attributes["scale.x"].set_localvalue(1)
    above.attributes["scale.y"].set_localvalue(1)
    above.attributes["angle"].set_localvalue(90)
    assert box(pixels(square)) == (66, 42, 86, 62)


def test_an_animated_peg_moves_from_frame_to_frame(stage, square):
    peg = stage.nodes.create("PEG", "Peg")
    square.ports_in[0].link(peg)
    for frame, value in ((1, 0.0), (11, 5.0)):
        peg.attributes["position.y"].set_value(frame, value)
    assert box(pixels(square, 1))[1] - box(pixels(square, 11))[1] == 30


def test_the_camera_sees_less_where_it_is_scaled_down(stage, square):
    camera = stage.nodes.create("CAMERA", "Camera")
    stage.scene.camera = camera
    camera.attributes["position.y"].set_localvalue(1)
    assert box(pixels(square)) == (106, 48, 126, 68)
    camera.attributes["position.y"].set_localvalue(0)
    camera.attributes["scale.x"].set_localvalue(0.5)
    camera.attributes["scale.y"].set_localvalue(0.5)
    assert box(pixels(square)) == (116, 12, 156, 52)
    camera.attributes["scale.x"].set_localvalue(0)
    assert not pixels(square).any()


def test_a_composite_lays_pictures_in_the_order_of_its_ports(stage, square):
    card = stage.card("Card", 0, 0, 255)
    over = stage.node("COMPOSITE", "Over", card, None, square)
    assert (at(pixels(over), 20, 20), at(pixels(over), 5, 5)) == (RED, BLUE)
    under = stage.node("COMPOSITE", "Under", square, card)
    assert at(pixels(under), 20, 20) == BLUE


def test_pictures_in_one_composite_and_in_two_are_alike(stage):
    """However drawings come together: each over the one before, or one composite over another."""
    first, second, third = (stage.shape(f"Shape {place}", rectangle(10 * place - 30.4, -20.3, 10 * place + 15, 5 * place),
                                        80 * place, 200, 40, 100) for place in range(3))
    one = stage.node("COMPOSITE", "One", first, second, third)
    upper = stage.node("COMPOSITE", "Upper", second, third)
    two = stage.node("COMPOSITE", "Two", first, upper)
    assert (numpy.abs(pixels(one).astype(int) - pixels(two)) <= 1).all()
    assert box(pixels(one)) == box(pixels(two))


MIXES = {
    "NORMAL": (200, 50, 100), "MULTIPLY": (78, 39, 59), "SCREEN": (222, 211, 191), "OVERLAY": (156, 167, 127),
    "DARKEN": (100, 50, 100), "LIGHTEN": (200, 200, 150), "ADD": (255, 250, 250), "DIFFERENCE": (100, 150, 50),
    "EXCLUSION": (143, 172, 132), "SOFT_LIGHT": (134, 174, 137), "HARD_LIGHT": (188, 78, 118),
}


@pytest.mark.parametrize("mode", MIXES)
def test_modes_of_a_composite(stage, mode):
    both = stage.node("COMPOSITE", "Both", stage.card("Low", 100, 200, 150), stage.card("High", 200, 50, 100))
    both.attributes["mode"].set_localvalue(mode)
    assert at(pixels(both), 0, 0) == pytest.approx((*MIXES[mode], 255), abs=1)


def test_a_cutter_keeps_what_lies_under_its_matte_or_what_does_not(stage, square):
    matte = stage.shape("Matte", rectangle(20, 0, 60, 60), 0, 0, 0, 128)
    cutter = stage.node("CUTTER", "Cutter", matte, square)
    shown = pixels(cutter)
    assert (at(shown, 15, 20), at(shown, 25, 20), at(shown, 50, 50)) == (CLEAR, (255, 0, 0, 128), CLEAR)
    cutter.attributes["inverted"].set_localvalue(True)
    shown = pixels(cutter)
    assert (at(shown, 15, 20), at(shown, 25, 20), at(shown, 50, 50)) == (RED, (255, 0, 0, 127), CLEAR)


def test_a_cutter_without_a_matte_shows_nothing_or_all(stage, square):
    cutter = stage.node("CUTTER", "Cutter", None, square)
    assert not pixels(cutter).any()
    cutter.attributes["inverted"].set_localvalue(True)
    assert (pixels(cutter) == pixels(square)).all()


def test_a_blur_keeps_the_amount_and_spreads_it_evenly(stage, square):
    blur = stage.node("BLUR", "Blur", square)
    assert (pixels(blur) == pixels(square)).all()
    height = stage.app.project.resolution.y
    blur.attributes["radius"].set_localvalue(8 * height / SIZE[1])
    sharp, soft = pixels(square)[:, :, 3].astype(int), pixels(blur)[:, :, 3].astype(int)
    assert soft.sum() == pytest.approx(sharp.sum(), rel=0.01)
    assert (soft[32:72] == soft[71:31:-1]).all()
    assert 110 < soft[52, 106] < 145, "half of it at the edge"


@pytest.mark.parametrize("kind", ["DISPLAY", "WRITE"])
def test_nodes_that_let_their_picture_through(stage, square, kind):
    assert (pixels(stage.node(kind, "Through", square)) == pixels(square)).all()


@pytest.mark.parametrize("kind", ["COMPOSITE", "BLUR", "CUTTER", "DISPLAY", "WRITE"])
def test_a_disabled_node_lets_its_picture_through(stage, square, kind):
    node = stage.node(kind, "Off", *([None, square] if kind == "CUTTER" else [square]))
    if kind == "BLUR":
        node.attributes["radius"].set_localvalue(100)
    node.enabled = False
    assert (pixels(node) == pixels(square)).all()


def test_a_disabled_drawing_shows_nothing(square):
    square.enabled = False
    assert not pixels(square).any()


def test_a_group_shows_what_is_linked_inside(stage, square):
    group = stage.nodes.create("GROUP", "Group")
    inside = group.nodes.create("BLUR", "Inside")
    display = stage.nodes.create("DISPLAY", "End")
    group.ports_in.create("image").link(square)
    inside.ports_in[0].link(group.multi_port_in.ports_out[0])
    group.multi_port_out.ports_in.create("image").link(inside)
    display.ports_in[0].link(group.ports_out[0])
    inside.attributes["radius"].set_localvalue(100)
    assert (pixels(display) == pixels(inside)).all() and (pixels(group) == pixels(inside)).all()
    assert (pixels(display) != pixels(square)).any()
    group.enabled = False
    assert (pixels(display) == pixels(square)).all()


def test_a_node_that_is_fed_by_nothing_shows_nothing(stage):
    for kind in ("COMPOSITE", "BLUR", "CUTTER", "DISPLAY", "WRITE", "READ"):
        assert not pixels(stage.nodes.create(kind, f"Bare {kind}")).any()


# --- What can't be drawn ------------------------------------------------------------------------------------------------

@pytest.mark.parametrize("frame, sentence", [
    (0, "The scene has no frame 0; its frames are 1 to 60."),
    (61, "The scene has no frame 61; its frames are 1 to 60."),
    (float("nan"), "The scene has no frame nan; its frames are 1 to 60."),
])
def test_a_frame_that_the_scene_does_not_have(square, frame, sentence):
    with pytest.raises(brindle.Error) as failure:
        render.cel(square, frame, SIZE)
    assert str(failure.value) == sentence


@pytest.mark.parametrize("size", [(0, 0), (0, 10), (10, 0), (-1, 5), (100000, 10), (10, 100000)])
def test_a_size_that_no_picture_can_have(square, size):
    with pytest.raises(brindle.Error) as failure:
        render.cel(square, 1, size)
    assert str(failure.value) == f"A picture can't have {size[0]} x {size[1]} pixels; its sides have 1 to 32768."


@pytest.mark.parametrize("size", [(10,), (10, 20, 30), "big", 7, ("a", "b"), (None, None)])
def test_a_size_that_is_none(square, size):
    with pytest.raises(brindle.Error) as failure:
        render.cel(square, 1, size)
    assert str(failure.value) == "The size of a picture is its width and its height in pixels."


def test_a_node_without_a_picture(stage):
    with pytest.raises(brindle.Error) as failure:
        render.cel(stage.nodes.create("PEG", "Peg"), 1, SIZE)
    assert str(failure.value) == 'The node "Top/Peg" shows no picture.'


@pytest.mark.parametrize("node", [None, 7, "Top/Composite"])
def test_something_that_is_no_node(stage, node):
    with pytest.raises(brindle.Error):
        render.cel(node, 1, SIZE)


def test_a_node_that_is_gone(stage):
    card = stage.card("Card", *RED)
    stage.app.project.history.undo(len(stage.app.project.history.list()))
    with pytest.raises(brindle.Error) as failure:
        render.cel(card, 1, SIZE)
    assert str(failure.value) == support.GONE


@pytest.mark.parametrize("first", [
    "app.javascript.eval('1 + 1')",
    "from PyQt6.QtCore import QCoreApplication; QCoreApplication([])",
], ids=["a script engine", "an application"])
def test_pictures_are_drawn_when_qt_has_come_and_gone(folder, first):
    if "PyQt6" in first:
        pytest.importorskip("PyQt6")
    done = support.run_python(f"""if True:
        import sys, brindle
        with brindle.create(sys.argv[1]) as app:
            {first}
        with brindle.create(sys.argv[1] + "2") as app:
            print(brindle.render.cel(app.scene.nodes.create("COLOR_CARD", "Card"), 1, (4, 4)))
        """, folder)
    assert (done.returncode, done.stdout) == (0, "Cel(4, 4)\n"), done.stderr


def test_importing_the_package_loads_no_library_that_draws():
    code = ("import brindle\n"
            "print([line for line in open('/proc/self/maps') if 'Render' in line or 'OpenColorIO' in line\n"
            "       or 'OpenEXR' in line or 'OpenImageIO' in line])")
    done = subprocess.run([support.PYTHON, "-c", code], capture_output=True, text=True, env=os.environ, check=True)
    assert done.stdout.strip() == "[]"
