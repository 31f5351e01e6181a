"""Colours, gradients and textures of a palette: what they say, and what every change of them keeps to."""

import copy
import pickle

import brindle
import pytest

import palettes as shared
import support

NOT_SOLID = "Unable to get/set this property on an object which is not a solid color."
RANGE = "Index is out of range."
INF, NAN = float("inf"), float("nan")


@pytest.fixture
def palette(app):
    made = app.project.palettes.create("Colour", "Hero")
    made.clear()
    return made


@pytest.fixture
def solid(app, palette):
    made = palette.create_solid_colour("Skin", [255, 128, 0, 200])
    app.project.history.clear()
    return made


@pytest.fixture
def gradient(app, palette):
    made = palette.create_linear_gradient_colour("Sky", [0, 0, 255], 0, [255, 255, 255, 0], 100)
    app.project.history.clear()
    return made


@pytest.fixture
def texture(app, palette, tmp_path):
    path = tmp_path / "wood.png"
    path.write_bytes(shared.png(8, 4))
    made = palette.create_texture("Wood", path)
    app.project.history.clear()
    return made


@pytest.fixture
def changes(app, folder):
    return lambda action, label: shared.check_change(app, folder, action, label)


@pytest.fixture
def refuses(app, folder):
    return lambda action, message, error=None: shared.check_refusal(app, folder, action, message, error)


def gradient_position(position, colour=(255, 0, 0)):
    return brindle.PaletteGradientPosition(position, list(colour))


# --- Every colour ---------------------------------------------------------------------------------------------------

def test_colours_tell_of_themselves(palette, solid, gradient, texture):
    assert [colour.base_type for colour in palette] == ["Colour", "Colour", "Texture"]
    assert [str(colour) for colour in palette] == [
        "PaletteColour(solid_colour) [1]", "PaletteColour(linear_gradient) [2]", "PaletteTexture(Wood)"]
    assert len({colour.id for colour in palette}) == 3 and all(len(colour.id) == 16 for colour in palette)
    for colour in (solid, gradient, texture):
        assert colour.valid and colour and isinstance(colour, brindle.PaletteBaseColour)
        assert colour.palette().id == palette.id
        assert colour.palette_list().id == palette.palette_list().id


@pytest.mark.parametrize("kind, label", [("solid", "Set Colour Name"), ("gradient", "Set Colour Name"),
                                         ("texture", "Set Texture Name")])
def test_a_colour_is_renamed(kind, label, solid, gradient, texture, changes):
    colour = {"solid": solid, "gradient": gradient, "texture": texture}[kind]
    changes(lambda: setattr(colour, "name", "New \u00e9\n"), label)
    assert colour.name == "New \u00e9\n"
    changes(lambda: setattr(colour, "name", ""), label)
    assert colour.name == "Default"


def test_two_wrappers_of_a_colour_see_each_other_s_changes(app, palette, solid):
    again = palette[0]
    again.r = 7
    assert solid.r == 7
    app.project.history.undo()
    assert (solid.r, again.r) == (255, 255)


def test_a_colour_that_undo_takes_off_and_redo_puts_back_is_the_same_one(app, palette):
    made = palette.create_solid_colour("x", [1, 2, 3])
    app.project.history.undo()
    assert made.valid and made.name == "x"
    assert support.message_of(lambda: setattr(made, "r", 9)) == "Object isn't currently inserted on any palette."
    app.project.history.redo()
    made.r = 9
    assert palette[made.id].r == 9


def test_a_clone_s_colours_are_its_own(app, palette, solid):
    clone = app.project.palettes.clone(palette)
    assert clone[0].id == solid.id and clone[0].palette().id == clone.id
    clone[0].r = 1
    assert (solid.r, clone[0].r, palette[0].r) == (255, 1, 255)
    popped = palette.pop(0)
    assert popped.r == 255 and support.message_of(popped.palette) == "Object isn't currently inserted on any palette."


# --- A solid colour -------------------------------------------------------------------------------------------------

def test_a_solid_colour_reads_as_a_colour_does(solid):
    plain = brindle.Colour(255, 128, 0, 200)
    for name in ("r", "g", "b", "a", "h", "s", "l", "hex"):
        assert getattr(solid, name) == getattr(plain, name), name
    assert solid.colour == plain and type(solid.colour) is brindle.Colour
    assert solid.type == "solid_colour" and len(solid) == 1


@pytest.mark.parametrize("name, value", [
    ("r", 10), ("r", 300.0), ("g", -1), ("b", 12.9), ("a", 0), ("h", 180), ("h", -90.0), ("s", 50), ("s", 150),
    ("l", 25), ("l", -1), ("hex", "#80ff0000"), ("hex", "red"), ("hex", "#123")])
def test_a_solid_colour_is_written_as_a_colour_is(solid, changes, name, value):
    plain = brindle.Colour(255, 128, 0, 200)
    setattr(plain, name, value)
    changes(lambda: setattr(solid, name, value), "Set Colour Value")
    assert solid.colour == plain


@pytest.mark.parametrize("name, value, message", [
    ("hex", "nonsense", "Unable to convert from hexadecimal colour value"),
    ("h", INF, support.not_finite("h")), ("r", NAN, support.not_finite("r")), ("s", NAN, support.not_finite("s"))])
def test_a_value_that_is_none_is_refused(solid, refuses, name, value, message):
    refuses(lambda: setattr(solid, name, value), message)


@pytest.mark.parametrize("value, rgba", [
    ([1, 2, 3], (1, 2, 3, 255)), ([1, 2, 3, 4], (1, 2, 3, 4)), (brindle.Colour(4, 3, 2, 1), (4, 3, 2, 1)),
    (brindle.PaletteGradientPosition(50, [9, 8, 7]), (9, 8, 7, 255)), ("any text", (0, 0, 0, 0)), (7, (0, 0, 0, 255))])
def test_the_whole_colour_is_written(solid, changes, value, rgba):
    changes(lambda: setattr(solid, "colour", value), "Set Colour Property")
    assert (solid.r, solid.g, solid.b, solid.a) == rgba


def test_a_node_s_colour_can_be_taken(app, solid, changes):
    node = app.scene.nodes.create("PEG", "A")
    changes(lambda: setattr(solid, "colour", node), "Set Colour Property")


def test_what_is_no_colour_is_refused(solid, refuses):
    for odd in (None, brindle.Point2d(), solid):
        refuses(lambda: setattr(solid, "colour", odd), "Invalid argument type.")
    refuses(lambda: setattr(solid, "colour", {}), "Unsupported colour type.")


@pytest.mark.parametrize("name, value", [("r", 1), ("g", 1), ("b", 1), ("a", 1), ("h", 1), ("s", 1), ("l", 1),
                                         ("hex", "red"), ("colour", [1, 2, 3])])
def test_a_gradient_has_no_single_colour(gradient, refuses, name, value):
    assert support.message_of(lambda: getattr(gradient, name)) == NOT_SOLID
    refuses(lambda: setattr(gradient, name, value), NOT_SOLID)


# --- The type -------------------------------------------------------------------------------------------------------

@pytest.mark.parametrize("text, type_", [
    ("linear", "linear_gradient"), ("Linear_Gradient", "linear_gradient"), ("RADIAL", "radial_gradient"),
    ("radial_gradient", "radial_gradient"), ("solid", "solid_colour"), ("Solid_Colour", "solid_colour")])
def test_the_type_is_written_in_any_case_of_letters(solid, changes, text, type_):
    solid.type = "radial" if type_ == "linear_gradient" else "linear"
    changes(lambda: setattr(solid, "type", text), "Set Colour Value")
    assert solid.type == type_


def test_a_solid_colour_becomes_a_gradient_and_a_gradient_its_first_colour(solid, gradient):
    solid.type = "linear"
    assert shared.seen(solid)[2] == [(0.0, (255, 128, 0, 200)), (100.0, (255, 128, 0, 0))]
    gradient.type = "radial"
    assert shared.seen(gradient)[1:] == ("radial_gradient", [(0.0, (0, 0, 255, 255)), (100.0, (255, 255, 255, 0))])
    gradient.type = "solid"
    assert shared.seen(gradient)[1:] == ("solid_colour", [(0.0, (0, 0, 255, 255))])


def test_an_unknown_type_is_refused(solid, refuses):
    for text in ("", "conical", "solid colour"):
        refuses(lambda: setattr(solid, "type", text), "Unknown type given.")


def test_the_texts_of_types():
    types = brindle.PaletteColour
    texts = ("solid", "LINEAR_gradient", "radial", "x")
    assert [types.get_colour_type_from_string(text) for text in texts] == [0, 1, 2, -1]
    assert [types.get_string_from_colour_type(number) for number in (0, 1, 2, 3, -1)] == [
        "solid_colour", "linear_gradient", "radial_gradient", "", ""]


# --- A gradient -----------------------------------------------------------------------------------------------------

def test_a_colour_is_added_at_its_place(gradient, changes):
    made = changes(lambda: gradient.add([255, 0, 0], 25), "Add Colour")
    assert type(made) is brindle.PaletteGradientPosition
    assert shared.marker(made) == shared.marker(gradient[1]) == (25.0, (255, 0, 0, 255)) and len(gradient) == 3


@pytest.mark.parametrize("colour, position, place", [
    ([1, 1, 1], 150, 100.0), ([1, 1, 1], -3, 0.0), ([1, 1, 1], None, 0.0), (gradient_position(40), None, 40.0),
    (gradient_position(40), 60, 60.0), ([1, 1, 1], "30", 30.0), ([1, 1, 1], [], 0.0)])
def test_places_are_held_and_have_a_default(gradient, colour, position, place):
    gradient.clear()
    assert gradient.add(colour, position).position == place


def test_a_taken_place_is_refused(gradient, refuses):
    gradient.add([1, 1, 1], 50)
    refuses(lambda: gradient.add([2, 2, 2], 50), "A color already exists at the given percentage.")
    refuses(lambda: gradient.add([2, 2, 2]), "A color already exists at the given percentage.")


def test_a_ninth_colour_is_refused(gradient, refuses):
    for place in (10, 20, 30, 40, 50, 60):
        gradient.add([1, 1, 1], place)
    assert len(gradient) == 8
    for place in (70, 60):
        refuses(lambda: gradient.add([2, 2, 2], place), "Unable to create colour, object is at maximum capacity")


def test_a_solid_colour_takes_no_other(solid, refuses):
    for arguments in (([1, 1, 1], 50), ([1, 1, 1], NAN), (None, object)):
        refuses(lambda: solid.add(*arguments), "Unable to add colours to a solid color type.")


def test_what_is_no_colour_or_no_place_is_not_added(gradient, refuses):
    refuses(lambda: gradient.add(None, 50), "Unsupported colour type.")
    refuses(lambda: gradient.add(brindle.Point2d(), 50), "Unsupported colour type.")
    refuses(lambda: gradient.add([1, 1, 1], NAN), "Invalid argument at index 1.")


def test_colours_are_read_by_index(gradient):
    assert [shared.marker(position) for position in gradient.list()] == shared.seen(gradient)[2]
    assert shared.marker(gradient[-1]) == shared.marker(gradient.get("1")) == (100.0, (255, 255, 255, 0))
    assert gradient.get("x") is None and gradient.get("") is None
    for index in (2, -3):
        assert support.message_of(gradient.get, index) == RANGE
    assert support.message_of(gradient.get, "7") == RANGE


def test_what_is_read_is_a_value(gradient):
    position = gradient[0]
    position.colour, position.position = [9, 9, 9], 50
    assert shared.marker(gradient[0]) == (0.0, (0, 0, 255, 255))


def test_a_gradient_contains_colours_at_their_places(gradient):
    assert gradient[1] in gradient and gradient_position(0, (0, 0, 255)) in gradient and [0, 0, 255] in gradient
    assert gradient_position(1, (0, 0, 255)) not in gradient and [255, 255, 255, 0] not in gradient
    for odd in (None, brindle.Colour(0, 0, 255), brindle.Point2d(), gradient):
        assert odd not in gradient


def test_a_colour_is_popped_from_a_gradient(gradient, changes, refuses):
    gradient.add([1, 1, 1], 50)
    assert shared.marker(changes(lambda: gradient.pop(1), "Pop Colour")) == (50.0, (1, 1, 1, 255))
    assert shared.marker(changes(gradient.pop, "Pop Colour")) == (100.0, (255, 255, 255, 0))
    for index in (1, -2):
        refuses(lambda: gradient.pop(index), RANGE)


def test_a_colour_is_removed_from_a_gradient(gradient, changes, refuses):
    gradient.add([0, 0, 255], 50)
    changes(lambda: gradient.remove(gradient_position(50, (0, 0, 255))), "Remove Colour")
    assert [position.position for position in gradient] == [0, 100]
    changes(lambda: gradient.remove([255, 255, 255, 0]), "Remove Colour")
    changes(lambda: gradient.remove(brindle.Colour(0, 0, 255)), "Remove Colour")
    assert len(gradient) == 0
    refuses(lambda: gradient.remove([0, 0, 255]), "Unable to find colour to remove.")
    refuses(lambda: gradient.remove(gradient_position(0)), "Unable to find colour to remove.")
    refuses(lambda: gradient.remove(None), "Unsupported colour type.")


def test_a_colour_is_set_at_an_index(gradient, changes, refuses):
    def assign():
        gradient[-1] = gradient_position(30, (1, 2, 3))

    changes(assign, "Set Colour")
    assert shared.seen(gradient)[2] == [(0.0, (0, 0, 255, 255)), (30.0, (1, 2, 3, 255))]
    for odd in (None, brindle.Colour(1, 2, 3)):
        refuses(lambda: gradient.set(0, odd), "Invalid argument type.")
    refuses(lambda: gradient.set(2, gradient_position(1)), RANGE)


def test_a_gradient_is_cleared(gradient, solid, changes):
    changes(gradient.clear, "Clear Colours")
    assert gradient.list() == [] and gradient.interpolate(50).colour == brindle.Colour()
    changes(solid.clear, "Clear Colours")
    assert len(solid) == 0 and solid.hex == "#ff000000"
    changes(lambda: setattr(solid, "r", 5), "Set Colour Value")
    assert shared.seen(solid)[2] == [(0.0, (5, 0, 0, 255))]


@pytest.mark.parametrize("place, rgba", [(0, (0, 0, 255, 255)), (50, (128, 128, 255, 128)), (100, (255, 255, 255, 0)),
                                         (200, (255, 255, 255, 0)), (-1, (0, 0, 255, 255))])
def test_a_gradient_is_mixed_at_a_place(app, gradient, place, rgba):
    mixed = gradient.interpolate(place)
    assert shared.marker(mixed) == (min(max(place, 0), 100), rgba) and app.project.history.list() == []
    assert support.message_of(gradient.interpolate, NAN) == "Invalid argument at index 0."


# --- A colour at a place --------------------------------------------------------------------------------------------

def test_a_place_is_shown_with_two_digits():
    position = brindle.PaletteGradientPosition(12.5, [1, 2, 3, 4])
    assert str(position) == "PaletteGradientPosition(Position = 12.50%, Colour(1,2,3,4))"
    assert repr(position) == "PaletteGradientPosition(12.5, [1, 2, 3, 4])"


@pytest.mark.parametrize("arguments, marker", [
    (([1, 2, 3],), (0, (1, 2, 3, 255))), ((12.5, [1, 2, 3]), (12.5, (1, 2, 3, 255))),
    ((500, [1, 2, 3, 4]), (100, (1, 2, 3, 4))), ((-1, "x"), (0, (0, 0, 0, 0))),
    ((brindle.Colour(9, 8, 7, 6),), (0, (9, 8, 7, 6))),
    ((gradient_position(30),), (30, (255, 0, 0, 255))), ((60, gradient_position(30)), (60, (255, 0, 0, 255))),
    ((gradient_position(30), 7), (30, (255, 0, 0, 255))), ((50, [1, 2, 3], 7), (50, (1, 2, 3, 255))),
    ((5,), (0, (0, 0, 0, 255)))])
def test_a_place_is_made_of_many_forms(arguments, marker):
    made = brindle.PaletteGradientPosition(*arguments)
    assert shared.marker(made) == marker and isinstance(made, brindle.Colour)


def test_a_place_is_a_value():
    position = brindle.PaletteGradientPosition(12.5, [1, 2, 3, 4])
    for same in (position.copy(), copy.copy(position), copy.deepcopy(position), pickle.loads(pickle.dumps(position)),
                 eval(repr(position), vars(brindle))):
        assert shared.marker(same) == (12.5, (1, 2, 3, 4)) and same is not position
    position.r = 9
    position.colour = gradient_position(80, (5, 6, 7))
    assert shared.marker(position) == (12.5, (5, 6, 7, 255))
    assert support.message_of(setattr, position, "colour", None) == "Unsupported colour type."
    assert support.message_of(brindle.PaletteGradientPosition, NAN, [1, 2, 3]) == "Invalid argument at index 0."


# --- A texture ------------------------------------------------------------------------------------------------------

def test_a_texture_is_tiled(app, texture, changes):
    changes(lambda: setattr(texture, "tiled", True), "Set Tiled")
    app.project.history.clear()
    texture.tiled = True
    assert texture.tiled and app.project.history.list() == []


@pytest.mark.parametrize("name, label, size", [("width", "Set Width", (20, 4)), ("height", "Set Height", (8, 20))])
def test_a_texture_is_resized(app, texture, changes, name, label, size):
    changes(lambda: setattr(texture, name, 20), label)
    assert (texture.width, texture.height) == size
    app.project.history.clear()
    setattr(texture, name, 20)
    assert app.project.history.list() == []


@pytest.mark.parametrize("side", [0, 30_000, 2**32 - 1])
def test_a_size_that_no_texture_has_is_refused(texture, refuses, side):
    refuses(lambda: setattr(texture, "width", side), f"A texture can't be {side} x 4 pixels large.")
    refuses(lambda: setattr(texture, "height", side), f"A texture can't be 8 x {side} pixels large.")


def test_a_texture_takes_another_picture(texture, changes, refuses, tmp_path):
    path = tmp_path / "new.png"
    path.write_bytes(shared.png(3, 5, (0, 255, 0, 255)))
    changes(lambda: texture.change_texture(path), "Change Texture")
    assert shared.seen(texture) == ("Wood", 3, 5, False)
    refuses(lambda: texture.change_texture(tmp_path / "none.png"), "Unable to change texture.")
    refuses(lambda: texture.change_texture(tmp_path), "Unable to change texture.")
    path.write_text("no picture")
    refuses(lambda: texture.change_texture(path), "Unable to change texture.")


def test_a_texture_whose_picture_is_gone_stays(app, folder, palette, texture):
    app.save()
    app.close()
    (folder / "palette-library" / "Hero_textures" / f"{texture_id(folder)}.png").unlink()
    with brindle.open(folder) as opened:
        again = opened.project.palettes["Hero"][0]
        assert shared.seen(again) == ("Wood", 0, 0, False)
        assert repr(again) == '<brindle.PaletteTexture: "Wood", texture without a picture>'
        assert support.message_of(setattr, again, "width", 3) == "The picture of the texture Wood is missing."


def texture_id(folder):
    [picture] = (folder / "palette-library" / "Hero_textures").iterdir()
    return picture.stem
