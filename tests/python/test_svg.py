"""Pictures as SVG files: into drawings and out of them."""

import re
import subprocess
import xml.etree.ElementTree as ElementTree

import brindle
import pytest

from support import COMMAND, ROOT, files

CAT = ROOT / "examples" / "drawings" / "cat.svg"
SVG = "{http://www.w3.org/2000/svg}"


def svg(content, view="0 0 24 24"):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" viewBox="{view}">'
            f"{content}</svg>")


@pytest.fixture
def drawing(app):
    return app.elements.create("Arm").drawings.create("1").initialize()


@pytest.fixture
def palette(app):
    return app.project.palette_lists[0].create("Colour", "Svg")


@pytest.fixture
def draw(tmp_path, drawing, palette):
    """Draws the content of an SVG picture of 24 x 24 pixels, each of which is 100 units of the drawing."""

    def function(content, view="0 0 24 24"):
        path = tmp_path / "picture.svg"
        path.write_text(svg(content, view))
        return brindle.import_svg(path, drawing["line"], palette)

    return function


def strokes_of(drawing):
    return [stroke for layer in drawing["line"] for stroke in layer.strokes]


def corners_of(path):
    return sorted({(round(point.x, 6), round(point.y, 6)) for curve in path for point in (curve.start, curve.end)})


def colour_of(palette, colour):
    return palette[colour.colour_id] if colour else None


def test_a_square_lies_in_the_middle_with_y_up(drawing, draw):
    assert draw('<rect x="12" y="6" width="6" height="6" fill="red"/>') == []
    (stroke,) = strokes_of(drawing)
    box = stroke.bounding_box
    assert (box.x, box.y, box.width, box.height) == pytest.approx((0, 0, 600, 600))


def test_an_area_is_painted_at_its_inner_side_alone(drawing, draw, palette):
    draw('<rect x="12" y="6" width="6" height="6" fill="#ff8000"/>')
    (stroke,) = strokes_of(drawing)
    sides = [colour_of(palette, side) for side in (stroke.colour_left, stroke.colour_right)]
    assert [side.name for side in sides if side] == ["#ff8000"]
    inner = [contour for contour in drawing["line"][0].contours if contour.colour_inside]
    assert len(inner) == 1 and inner[0].contains(stroke.bezier_path)


def test_a_hole_stays_empty(drawing, draw):
    draw('<path fill-rule="evenodd" fill="blue" d="M2 2H22V22H2Z M8 8H16V16H8Z"/>')
    outer, hole = sorted(strokes_of(drawing), key=lambda stroke: stroke.bounding_box.width, reverse=True)
    art = drawing["line"]
    painted = [bool(c.colour_inside) for c in art.find_containing_contour((0, 0))]
    assert painted and not painted[0]
    assert bool(outer.colour_left) != bool(outer.colour_right)
    assert bool(hole.colour_left) != bool(hole.colour_right)


@pytest.mark.parametrize("rule, filled", [("evenodd", False), ("nonzero", True)])
def test_the_rule_decides_about_parts_that_run_the_same_way(drawing, draw, rule, filled):
    draw(f'<path fill-rule="{rule}" fill="blue" d="M2 2H22V22H2Z M8 8H16V16H8Z"/>')
    inner = min(strokes_of(drawing), key=lambda stroke: stroke.bounding_box.width)
    assert (bool(inner.colour_left) and bool(inner.colour_right)) == filled


def test_a_line_has_width_ends_and_colour(drawing, draw, palette):
    draw('<path d="M2 12H22" fill="none" stroke="#102030" stroke-width="0.5" stroke-linecap="round"/>')
    (stroke,) = strokes_of(drawing)
    style = stroke.line_style
    assert style.type == "Thick_Linestyle" and style.thickness == pytest.approx(50)
    assert palette[style.colour_id].name == "#102030"
    assert (stroke.tip_type_from, stroke.tip_type_to) == ("Round", "Round")
    assert not stroke.colour_left and not stroke.colour_right


def test_an_open_area_is_closed_by_a_line_that_is_not_drawn(drawing, draw):
    draw('<path d="M2 2H22V22" fill="red" stroke="black"/>')
    types = sorted(stroke.line_style.type for stroke in strokes_of(drawing))
    assert types == ["No_Linestyle", "Thick_Linestyle"]
    assert [c for c in drawing["line"][0].contours if c.colour_inside and not c.degenerate]


def test_transforms_reach_points_and_widths(drawing, draw):
    draw('<g transform="translate(12 12) scale(2)"><path d="M0 0H3" stroke="red" stroke-width="1"/></g>')
    (stroke,) = strokes_of(drawing)
    assert stroke.bounding_box.width == pytest.approx(600)
    assert stroke.line_style.thickness == pytest.approx(200)


def test_gradients_keep_their_colours_and_their_place(drawing, draw, palette):
    draw('<defs><linearGradient id="g" gradientUnits="userSpaceOnUse" x1="2" y1="12" x2="22" y2="12">'
         '<stop offset="0" stop-color="red"/><stop offset="1" stop-color="blue" stop-opacity="0.5"/>'
         '</linearGradient></defs><rect x="2" y="2" width="20" height="20" fill="url(#g)"/>')
    (stroke,) = strokes_of(drawing)
    colour = stroke.colour_left or stroke.colour_right
    entry = palette[colour.colour_id]
    assert entry.type == "linear_gradient" and len(entry) == 2 and entry[1].a == 128
    start, end = (colour.colour_matrix.apply(brindle.Point2d(x, 0)) for x in (0, 1))
    assert (start.x, start.y, end.x, end.y) == pytest.approx((-1000, 0, 1000, 0))


def test_groups_and_shapes_that_meet_have_layers_of_their_own(drawing, draw):
    apart = '<rect x="1" y="1" width="2" height="2"/><rect x="5" y="1" width="2" height="2"/>'
    draw(f'<g>{apart}</g><g><rect x="10" y="1" width="4" height="4"/><rect x="12" y="1" width="4" height="4"/></g>')
    assert [len(layer.strokes) for layer in drawing["line"]] == [2, 1, 1]


def test_equal_colours_are_one_entry(draw, palette):
    before = len(palette)
    draw('<rect width="2" height="2" fill="red"/><circle cx="9" cy="9" r="2" fill="#f00"/>')
    assert len(palette) == before + 1


def test_what_a_drawing_cannot_have_is_told(draw):
    told = draw('<text>Hi</text><image href="x.png"/><rect width="2" height="2" clip-path="url(#c)"/>'
                '<path d="M0 0H9" stroke="red" stroke-dasharray="1 2"/>')
    assert len(told) == 4 and all(line.endswith(".") for line in told)


def test_it_is_one_undo_entry_which_takes_back_the_colours_too(history, drawing, draw, palette):
    colours = len(palette)
    draw('<rect width="2" height="2" fill="red"/>')
    assert history.list()[-1] == "Import SVG"
    history.undo()
    assert len(drawing["line"]) == 0 and len(palette) == colours
    history.redo()
    assert len(strokes_of(drawing)) == 1 and len(palette) == colours + 1


def levels_of_use():
    """Each level uses the one below ten times."""
    groups = "".join(f'<g id="a{i}">' + f'<use xlink:href="#a{i - 1}"/>' * 10 + "</g>" for i in range(1, 9))
    return f'<defs><g id="a0"><rect width="1" height="1"/></g>{groups}</defs><use xlink:href="#a8"/>'


NO_PICTURES = {
    "nothing": "",
    "no XML": "no picture",
    "cut off": "<svg",
    "another language": "<html/>",
    "a use of itself": svg('<g id="a"><use xlink:href="#a"/></g>'),
    "too deep": svg("<g>" * 300 + "</g>" * 300),
    "too many shapes": svg(levels_of_use()),
}


@pytest.mark.parametrize("text", NO_PICTURES.values(), ids=NO_PICTURES)
def test_what_is_no_picture_changes_nothing(tmp_path, app, drawing, palette, text):
    path = tmp_path / "bad.svg"
    path.write_text(text)
    colours = len(palette)
    with pytest.raises(brindle.Error, match=re.escape(str(path))):
        brindle.import_svg(path, drawing["line"], palette)
    assert len(drawing["line"]) == 0 and len(palette) == colours


def test_wrong_arguments_are_one_sentence(tmp_path, drawing, palette):
    with pytest.raises(brindle.Error, match="can't be read"):
        brindle.import_svg(tmp_path / "missing.svg", drawing["line"], palette)
    with pytest.raises(brindle.Error, match="a valid art-layer was not provided"):
        brindle.import_svg(CAT, drawing, palette)
    with pytest.raises(brindle.Error, match="a valid palette was not provided"):
        brindle.import_svg(CAT, drawing["line"], None)
    with pytest.raises(brindle.Error, match="can't be written"):
        brindle.export_svg(tmp_path / "no folder" / "x.svg", drawing)


def test_a_drawing_made_elsewhere_comes_in_whole_and_out_again(tmp_path, drawing, palette):
    told = brindle.import_svg(CAT, drawing["line"], palette)
    assert told == ["Square ends of lines are flat."]
    shapes = ElementTree.parse(CAT).getroot().findall(f".//{SVG}path")
    assert len(shapes) > 200 and len(strokes_of(drawing)) >= len(shapes)

    out = tmp_path / "cat.svg"
    assert brindle.export_svg(out, drawing) == []
    again = drawing["overlay"]
    assert brindle.import_svg(out, again, palette) == []
    # Lines reach beyond the field chart, so the picture shows a little more, and comes back a little smaller.
    box, copy = drawing["line"].bounding_box, again.bounding_box
    scale = copy.height / box.height
    assert 0.998 < scale < 1
    assert (copy.x, copy.y, copy.width) == pytest.approx((box.x * scale, box.y * scale, box.width * scale))


@pytest.fixture
def project(folder):
    """A project on disk that nobody has open."""
    brindle.create(folder).close()
    return folder


def test_the_command_draws_and_writes(tmp_path, project):
    call = [COMMAND, "drawing"]
    made = subprocess.run([*call, "import", CAT, project, "Pets", "Cat"], capture_output=True, text=True)
    assert made.returncode == 0 and "Pets" in made.stdout and "Square ends" in made.stdout
    again = subprocess.run([*call, "import", CAT, project, "Pets", "Cat"], capture_output=True, text=True)
    assert again.returncode == 1 and 'has a drawing "Cat" already' in again.stderr
    out = tmp_path / "out.svg"
    written = subprocess.run([*call, "export", out, project, "Pets", "Cat"], capture_output=True, text=True)
    assert written.returncode == 0 and ElementTree.parse(out).getroot().tag == f"{SVG}svg"
    missing = subprocess.run([*call, "export", out, project, "Pets", "Dog"], capture_output=True, text=True)
    assert missing.returncode == 1 and 'no drawing "Dog"' in missing.stderr


def test_a_picture_that_can_t_be_read_leaves_the_project_as_it_was(tmp_path, project):
    bad = tmp_path / "bad.svg"
    bad.write_text("<svg")
    before = files(project)
    done = subprocess.run([COMMAND, "drawing", "import", bad, project, "Pets", "Cat"], capture_output=True, text=True)
    assert done.returncode == 1 and "bad.svg" in done.stderr
    assert files(project) == before
