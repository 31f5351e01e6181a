"""Palettes: what they say of themselves, the colours on them, and what every change of them keeps to."""

import inspect

import brindle
import pytest

import palettes as shared
import support

BLACK = ("Default", "solid_colour", [(0.0, (0.0, 0.0, 0.0, 255.0))])
RANGE = "Index is out of range."
TAKEN = "Color ID already exists on list, to insert with this ID, enable the duplicate option."


@pytest.fixture
def palettes(app):
    return app.project.palettes


@pytest.fixture
def palette(app, palettes):
    """Three colours: Skin, Hair and Sky, a gradient."""
    made = palettes.create("Colour", "Hero")
    made.clear()
    made.create_solid_colour("Skin", [255, 217, 184])
    made.create_solid_colour("Hair", [80, 40, 10, 128])
    made.create_linear_gradient_colour("Sky", [0, 0, 255], 0, [255, 255, 255, 0], 100)
    app.project.history.clear()
    return made


@pytest.fixture
def other(app, palettes):
    made = palettes.create("Colour", "Other")
    made.clear()
    made.create_solid_colour("Coat", [1, 2, 3])
    app.project.history.clear()
    return made


@pytest.fixture
def picture(tmp_path):
    path = tmp_path / "wood grain.png"
    path.write_bytes(shared.png(8, 4))
    return path


@pytest.fixture
def changes(app, folder):
    return lambda action, label: shared.check_change(app, folder, action, label)


@pytest.fixture
def refuses(app, folder):
    return lambda action, message, error=None: shared.check_refusal(app, folder, action, message, error)


# --- What it is -----------------------------------------------------------------------------------------------------

def test_a_palette_tells_of_itself(folder, palettes, palette):
    assert palette.path == str(folder / "palette-library" / "Hero.plt")
    assert (palette.name, palette.type, palette.location, palette.element_id) == ("Hero", "Colour", "SCENE", -1)
    assert (palette.valid, palette.loaded, palette.found, palette.locked) == (True, True, True, False)
    assert len(palette.id) == 16 and int(palette.id, 16) > 0
    assert palette.element() is None
    assert palette.palette_list().id == palettes.id
    assert str(palette) == f"Palette({palette.path}) [3]"
    assert repr(palette) == '<brindle.Palette: "Hero", 3 colours>'


def test_colours_are_shown_as_an_animator_reads_them(palette, picture):
    palette.create_radial_gradient_colour("Cheek", [255, 128, 128], 12.5, [255, 128, 128, 0], 100)
    palette.create_texture("Wood", picture, tiled=True)
    assert [repr(colour) for colour in palette] == [
        '<brindle.PaletteColour: "Skin", solid #ffd9b8>',
        '<brindle.PaletteColour: "Hair", solid #50280a80>',
        '<brindle.PaletteColour: "Sky", linear gradient, #0000ff at 0%, #ffffff00 at 100%>',
        '<brindle.PaletteColour: "Cheek", radial gradient, #ff8080 at 12.5%, #ff808000 at 100%>',
        '<brindle.PaletteTexture: "Wood", texture of 8 x 4 pixels, tiled>']
    assert repr(palette) == '<brindle.Palette: "Hero", 4 colours, 1 texture>'


def test_a_palette_that_is_not_read_yet_tells_its_content(app, folder, palette):
    app.save()
    with brindle.open(folder) as again:
        assert repr(again.project.palettes["Hero"]) == '<brindle.Palette: "Hero", 3 colours>'


@pytest.mark.parametrize("text, type_, written", [
    ("Pencil Texture", 1, "Pencil Texture"), ("pencil texture", 1, "Pencil Texture"), ("COLOUR", 0, "Colour"),
    ("color", 0, "Colour"), ("Color", 0, "Colour"), ("colours", 2, ""), ("", 2, "")])
def test_types_are_read_in_any_case_of_letters(text, type_, written):
    assert brindle.Palette.get_type_from_string(text) == type_
    assert brindle.Palette.get_string_from_type(type_) == written


def test_other_types_have_no_text():
    assert [brindle.Palette.get_string_from_type(type_) for type_ in (-1, 2, 8)] == ["", "", ""]


def test_the_type_can_be_changed(palette, changes, app):
    changes(lambda: setattr(palette, "type", "pencil texture"), "Set Palette Type")
    assert palette.type == "Pencil Texture"
    changes(lambda: setattr(palette, "type", "color"), "Set Palette Type")
    app.project.history.clear()
    palette.type = "Colour"
    assert app.project.history.list() == []


def test_an_unknown_type_is_refused(palette, refuses):
    refuses(lambda: setattr(palette, "type", "x"),
            "Unkown palette type: x. Available types are: Colour, Pencil Texture")


def test_a_palette_is_renamed_and_its_file_keeps_its_name(palette, palettes, changes, app):
    changes(lambda: setattr(palette, "name", "Villain"), "Rename Palette")
    assert palette.name == "Villain" and palette.path.endswith("/Hero.plt")
    assert palettes["Villain"].id == palette.id and palettes["Hero"] is None
    changes(lambda: setattr(palette, "name", ""), "Rename Palette")
    assert palette.name == "Default"
    app.project.history.clear()
    palette.name = ""
    assert app.project.history.list() == []


def test_the_lock_is_this_process_s_until_it_is_released(palette):
    palette.release()
    palette.lock()
    assert palette.locked
    palette.lock()
    assert palette.locked and palette.copy().locked
    palette.release()
    assert not palette.locked


def test_what_a_write_does_without_the_lock_is_said():
    for cls in (brindle.Palette, brindle.PaletteColour, brindle.PaletteTexture, brindle.PaletteList):
        text = " ".join(inspect.getdoc(cls).split())
        assert "needs no lock" in text and "another process holds it, the change is refused" in text


def test_a_palette_that_somebody_else_holds_cannot_be_changed(app, folder, palette, other):
    changes = (lambda: setattr(palette[0], "r", 1), lambda: palette[2].add([1, 1, 1], 50), lambda: palette.pop(),
               lambda: setattr(palette, "name", "x"), lambda: palette.create_solid_colour("x"), palette.clear,
               lambda: other.acquire(palette[0]))
    with shared.held_elsewhere(palette, folder / "palette-library" / "Hero.plt.lock"):
        for change in changes:
            message = support.message_of(change)
            assert message.startswith("The palette Hero is locked by ") and " on another-machine (" in message
        assert support.message_of(palette.lock) == "Unable to lock Palette." and not palette.locked
        assert app.project.history.list() == [] and palette.colour_names() == ["Skin", "Hair", "Sky"]
    palette[0].r = 1
    palette.lock()


# --- Finding colours ------------------------------------------------------------------------------------------------

def test_colours_are_found_by_index_id_and_name(palette):
    skin = palette[0]
    assert skin.name == "Skin" and palette.get(0).id == skin.id
    assert palette[skin.id].name == "Skin" and palette[skin.id.upper()].name == "Skin"
    assert palette["Hair"].id == palette[1].id and palette.get("Sky").type == "linear_gradient"
    assert palette.get("no such name") is None and palette.get("0" * 16) is None
    assert len(palette) == palette.size() == 3
    assert palette.colour_names() == [colour.name for colour in palette] == [c.name for c in palette.list()]
    assert [colour.name for colour in palette[0:2]] == ["Skin", "Hair"]


def test_the_first_of_a_name_is_found_and_an_id_goes_ahead_of_a_name(palette):
    first = palette.create_solid_colour("Twin", [1, 1, 1])
    second = palette.create_solid_colour("Twin", [2, 2, 2])
    assert palette["Twin"].id == first.id
    first.name = second.id
    assert palette[second.id].r == 2


@pytest.mark.parametrize("index", [-1, 3, 2**31 - 1])
def test_an_index_beyond_the_colours_is_refused(palette, index):
    assert support.message_of(palette.get, index) == RANGE
    assert support.message_of(lambda: palette[index]) == RANGE


def test_a_palette_contains_its_colours(palette, other):
    assert palette[0] in palette and palette.contains(palette[2])
    assert other[0] not in palette and None not in palette and 1 not in palette and palette not in palette


def test_a_loop_keeps_its_place_while_colours_come_and_go(palette):
    names = []
    for colour in palette:
        names.append(colour.name)
        if colour.name == "Skin":
            palette.remove(palette["Sky"])
    assert names == ["Skin", "Hair"]


# --- New colours ----------------------------------------------------------------------------------------------------

def test_a_solid_colour_is_created(palette, changes):
    made = changes(lambda: palette.create_solid_colour("Eyes", [1, 2, 3, 4]), "Create Palette Color")
    assert type(made) is brindle.PaletteColour
    assert shared.seen(palette[3]) == ("Eyes", "solid_colour", [(0.0, (1.0, 2.0, 3.0, 4.0))])
    assert palette[made.id].name == made.name == "Eyes"


def test_without_a_name_and_a_colour_it_is_a_black_default_at_the_end(palette, changes):
    made = changes(lambda: palette.create_solid_colour("", None, -1), "Create Palette Color")
    assert shared.seen(made) == BLACK and palette[3].id == made.id


@pytest.mark.parametrize("value, rgba", [
    ([1, 2, 3], (1, 2, 3, 255)), ([1, 2, 3, 4], (1, 2, 3, 4)), ([1, 2], (0, 0, 0, 255)),
    (brindle.Colour(9, 8, 7, 6), (9, 8, 7, 6)), (5, (0, 0, 0, 255)), ("#ff0000", (0, 0, 0, 0)),
    (brindle.PaletteGradientPosition(30, [4, 3, 2, 1]), (4, 3, 2, 1))])
def test_colours_are_read_as_everywhere(palette, value, rgba):
    assert shared.seen(palette.create_solid_colour("x", value))[2] == [(0.0, rgba)]


@pytest.mark.parametrize("value", [{}, {"r": 1}, brindle.Point2d(), brindle.Matrix()])
def test_what_is_no_colour_is_refused(palette, refuses, value):
    refuses(lambda: palette.create_solid_colour("x", value), "Unsupported colour type.")
    refuses(lambda: palette.create_linear_gradient_colour("x", value, 0, [1, 2, 3], 1), "Unsupported colour type.")


def test_a_colour_is_created_at_an_index(palette, changes):
    changes(lambda: palette.create_solid_colour("First", [1, 1, 1], 0), "Create Palette Color")
    changes(lambda: palette.create_solid_colour("Third", index=2), "Create Palette Color")
    assert palette.colour_names() == ["First", "Skin", "Third", "Hair", "Sky"]


@pytest.mark.parametrize("index", [3, -2, 100])
def test_only_minus_one_appends(palette, refuses, picture, index):
    refuses(lambda: palette.create_solid_colour("A", [1, 2, 3], index), RANGE)
    refuses(lambda: palette.create_linear_gradient_colour("A", [1, 2, 3], 0, [1, 2, 3], 1, index), RANGE)
    refuses(lambda: palette.create_radial_gradient_colour("A", [1, 2, 3], 0, [1, 2, 3], 1, index), RANGE)
    refuses(lambda: palette.create_texture("A", picture, index), RANGE)


def test_an_empty_palette_takes_no_index(palette, refuses):
    palette.clear()
    refuses(lambda: palette.create_solid_colour("A", [1, 2, 3], 0), RANGE)


@pytest.mark.parametrize("method, type_", [("create_linear_gradient_colour", "linear_gradient"),
                                           ("create_radial_gradient_colour", "radial_gradient")])
def test_a_gradient_is_created(palette, changes, method, type_):
    made = changes(lambda: getattr(palette, method)("", [255, 0, 0], 75, [0, 0, 255, 9], 25), "Create Palette Color")
    assert shared.seen(made) == ("Default", type_, [(25.0, (0, 0, 255, 9)), (75.0, (255, 0, 0, 255))])
    held = getattr(palette, method)("Held", None, -20, [1, 1, 1], 1000, 0)
    assert shared.seen(held) == ("Held", type_, [(0.0, (0, 0, 0, 255)), (100.0, (1, 1, 1, 255))])
    assert palette[0].id == held.id


def test_a_place_that_is_no_number_is_refused(palette, refuses):
    refuses(lambda: palette.create_linear_gradient_colour("x", [1, 2, 3], float("nan"), [1, 2, 3], 0),
            "Invalid argument at index 2.")
    refuses(lambda: palette.create_radial_gradient_colour("x", [1, 2, 3], 0, [1, 2, 3], float("nan")),
            "Invalid argument at index 4.")


def test_a_texture_is_created(folder, palette, changes, picture):
    made = changes(lambda: palette.create_texture("Wood", picture, 1, True), "Create Texture Color")
    assert type(made) is brindle.PaletteTexture and shared.seen(made) == ("Wood", 8, 4, True)
    assert palette.colour_names() == ["Skin", "Wood", "Hair", "Sky"]
    kept = folder / "palette-library" / "Hero_textures" / f"{made.id}.png"
    assert kept.read_bytes() == picture.read_bytes()
    assert shared.seen(palette.create_texture("", picture)) == ("wood grain", 8, 4, False)


def test_a_texture_without_a_file_or_a_picture_is_refused(palette, refuses, tmp_path):
    refuses(lambda: palette.create_texture("x", tmp_path / "none.png"), "Unable to open given texture file location")
    refuses(lambda: palette.create_texture("x", tmp_path), "Unable to open given texture file location")
    text = tmp_path / "text.png"
    text.write_text("no picture")
    refuses(lambda: palette.create_texture("x", text), f'The file "{text}" is no image, or too large for a texture.')


def test_a_texture_of_one_pixel_is_one_and_a_huge_one_is_refused(palette, refuses, tmp_path):
    small, large = tmp_path / "small.png", tmp_path / "large.png"
    small.write_bytes(shared.png(1, 1))
    large.write_bytes(shared.png(30_000, 1))
    assert shared.seen(palette.create_texture("Dot", small)) == ("Dot", 1, 1, False)
    refuses(lambda: palette.create_texture("x", large), f'The file "{large}" is no image, or too large for a texture.')


# --- Colours of other palettes --------------------------------------------------------------------------------------

def test_a_colour_is_appended_under_its_own_id(palette, other, changes):
    coat = other[0]
    made = changes(lambda: palette.append(coat), "Append Palette Color")
    assert palette[3].id == made.id == coat.id and shared.seen(made) == shared.seen(other[0])
    assert coat.palette().id == palette.id and other[0].palette().id == other.id


def test_the_same_colour_is_appended_as_a_duplicate_only(palette, changes, refuses):
    refuses(lambda: palette.append(palette[0]), TAKEN)
    refuses(lambda: palette.insert(palette[0], 0), TAKEN)
    made = changes(lambda: palette.append(palette[0], True), "Append Palette Color")
    assert made.id != palette[0].id and shared.seen(made) == shared.seen(palette[0])
    made = changes(lambda: palette.insert(palette[0], 0, duplicate=True), "Insert Palette Color")
    assert palette.colour_names() == ["Skin", "Skin", "Hair", "Sky", "Skin"] and palette[0].id == made.id


def test_a_colour_is_inserted_up_to_the_size(palette, other, changes, refuses):
    for index in (-1, 4, 100):
        refuses(lambda: palette.insert(other[0], index), RANGE)
    changes(lambda: palette.insert(other[0], 3), "Insert Palette Color")
    assert palette.colour_names() == ["Skin", "Hair", "Sky", "Coat"]


@pytest.mark.parametrize("odd", [None, brindle.Colour(1, 2, 3), brindle.Point2d()])
def test_only_colours_of_palettes_are_taken(palette, refuses, odd):
    refuses(lambda: palette.append(odd), "Invalid input palette object.")
    refuses(lambda: palette.insert(odd, 0), "Invalid input palette object.")
    refuses(lambda: palette.acquire(odd), "Could not acquire input palette color object.")
    refuses(lambda: palette.set(0, odd), "Invalid input palette colour object.")
    refuses(lambda: palette.remove(odd), "Unable to find given colour.")
    refuses(lambda: palette.reorder(odd, 0), "Unable to find given colour.")


def test_a_texture_goes_along_with_its_picture(folder, palette, other, changes, picture):
    wood = other.create_texture("Wood", picture)
    made = changes(lambda: palette.append(wood), "Append Palette Color")
    assert shared.seen(made) == ("Wood", 8, 4, False)
    assert (folder / "palette-library" / "Hero_textures" / f"{made.id}.png").read_bytes() == picture.read_bytes()


def test_a_colour_is_acquired_from_another_palette_of_the_list(palette, other, changes):
    coat = other[0]
    changes(lambda: palette.acquire(coat), "Acquire Palette Color")
    assert palette.colour_names() == ["Skin", "Hair", "Sky", "Coat"] and len(other) == 0
    assert coat.palette().id == palette.id and palette[3].id == coat.id


def test_an_acquired_colour_comes_back_to_its_place(app, palette, other):
    other.acquire(palette[1])
    assert palette.colour_names() == ["Skin", "Sky"]
    app.project.history.undo()
    assert palette.colour_names() == ["Skin", "Hair", "Sky"] and other.colour_names() == ["Coat"]


def test_a_palette_s_own_colour_is_not_acquired(palette, refuses):
    refuses(lambda: palette.acquire(palette[0]), "Palette colour object already owned by this palette.")


def test_a_colour_that_no_palette_has_is_not_acquired(app, palette, other):
    coat = other.pop()
    app.project.history.clear()
    palette.acquire(coat)
    assert len(palette) == 3 and app.project.history.list() == []


def test_a_colour_whose_id_is_there_already_is_not_acquired(palettes, palette, refuses):
    clone = palettes.clone(palette)
    refuses(lambda: clone.acquire(clone[0]), "Failed to change the palette Hero-clone.")


def test_a_colour_is_set_in_the_place_of_another(palette, other, changes, refuses):
    coat = other[0]
    changes(lambda: palette.set(1, coat), "Set Palette")
    assert palette.colour_names() == ["Skin", "Coat", "Sky"] and palette[1].id == coat.id
    for index in (-1, 3):
        refuses(lambda: palette.set(index, coat), RANGE)


def test_a_palette_s_own_colour_is_set_under_a_new_id(palette, changes):
    def assign():
        palette[2] = palette[0]

    changes(assign, "Set Palette")
    assert palette.colour_names() == ["Skin", "Hair", "Skin"] and palette[2].id != palette[0].id


# --- Fewer colours, another order -----------------------------------------------------------------------------------

def test_a_colour_is_popped_and_can_still_be_read(palette, changes):
    made = changes(lambda: palette.pop(), "Pop Palette Color")
    assert made.name == "Sky" and made.valid and palette.colour_names() == ["Skin", "Hair"]
    assert support.message_of(made.palette) == "Object isn't currently inserted on any palette."
    assert support.message_of(made.palette_list) == "Object isn't currently inserted on any palettelist."
    assert support.message_of(made.clear) == "Object isn't currently inserted on any palette."
    assert changes(lambda: palette.pop(0), "Pop Palette Color").name == "Skin"
    assert palette.append(made).name == "Sky" and made.palette().id == palette.id


def test_a_popped_colour_is_on_its_palette_again_after_undo(app, palette):
    sky = palette.pop(2)
    app.project.history.undo()
    assert sky.palette().id == palette.id
    sky.name = "Heaven"
    assert palette[2].name == "Heaven"


def test_a_popped_texture_is_a_texture(palette, picture):
    palette.create_texture("Wood", picture)
    assert shared.seen(palette.pop()) == ("Wood", 8, 4, False)


@pytest.mark.parametrize("index", [-2, 3, 100])
def test_a_pop_beyond_the_colours_is_refused(palette, refuses, index):
    refuses(lambda: palette.pop(index), RANGE)


def test_an_empty_palette_has_nothing_to_pop_or_clear(palette, refuses):
    palette.clear()
    refuses(lambda: palette.pop(-1), RANGE)
    refuses(lambda: palette.pop(0), RANGE)
    refuses(palette.clear, "Unable to clear colours.")


def test_a_colour_is_removed_by_its_id(palette, other, changes, refuses):
    hair = palette[1]
    changes(lambda: palette.remove(hair), "Remove Palette Color")
    assert palette.colour_names() == ["Skin", "Sky"]
    refuses(lambda: palette.remove(hair), "Unable to find given colour.")
    refuses(lambda: palette.remove(other[0]), "Unable to find given colour.")


@pytest.mark.parametrize("name, index, order", [
    ("Skin", 2, ["Hair", "Sky", "Skin"]), ("Skin", 1, ["Hair", "Skin", "Sky"]), ("Sky", 0, ["Sky", "Skin", "Hair"]),
    ("Skin", -1, ["Hair", "Sky", "Skin"]), ("Hair", 1, ["Skin", "Hair", "Sky"])])
def test_a_colour_is_moved_to_an_index(palette, changes, name, index, order):
    changes(lambda: palette.reorder(palette[name], index), "Reorder Palette Color")
    assert palette.colour_names() == order


def test_a_place_beyond_the_colours_is_refused(palette, other, refuses):
    for index in (-2, 3):
        refuses(lambda: palette.reorder(palette[0], index), RANGE)
    refuses(lambda: palette.reorder(other[0], 0), "Unable to find given colour.")


def test_all_colours_are_cleared(palette, changes):
    changes(palette.clear, "Clear Palette Colors")
    assert len(palette) == 0 and palette.list() == [] and palette.colour_names() == []


# --- Saving and closing ---------------------------------------------------------------------------------------------

def test_a_palette_comes_back_as_it_was_saved(app, folder, palette, picture):
    palette.create_radial_gradient_colour("Cheek", [255, 128, 128], 12.5, [255, 128, 128, 0], 100)
    palette.create_texture("Wood", picture, tiled=True)
    palette.name, palette.type = 'A "quoted"\nname', "Pencil Texture"
    before = [(colour.id, shared.seen(colour)) for colour in palette]
    told = palette.id, palette.name, palette.type, palette.path
    app.save()
    app.close()
    with brindle.open(folder) as opened:
        again = opened.project.palettes[told[1]]
        assert (again.id, again.name, again.type, again.path) == told
        assert [(colour.id, shared.seen(colour)) for colour in again] == before


@pytest.mark.parametrize("damage, found", [(lambda file: file.unlink(), False),
                                           (lambda file: file.write_bytes(file.read_bytes()[:-5]), True)],
                         ids=["missing", "cut short"])
def test_a_palette_whose_file_cannot_be_read_is_empty(app, folder, palette, damage, found):
    app.save()
    app.close()
    damage(folder / "palette-library" / "Hero.plt")
    with brindle.open(folder) as opened:
        again = opened.project.palettes[0]
        assert (len(again), again.valid, again.loaded, again.found) == (0, True, True, found)
        assert again.name == "Hero"


def test_a_change_is_undone_across_a_save(app, folder, palette):
    history = app.project.history
    app.save()
    before = shared.files(app, folder)
    palette[0].r = 1
    app.save()
    palette.pop(1)
    app.save()
    history.undo(2)
    assert shared.files(app, folder) == before


def test_after_the_project_is_closed_a_palette_says_so(app, palette):
    skin = palette[0]
    loop = iter(palette)
    app.close()
    assert not palette.valid and not skin.valid
    for call in (lambda: palette.name, lambda: len(palette), lambda: palette.pop(), palette.lock, lambda: next(loop),
                 lambda: skin.name, lambda: skin.id, lambda: setattr(skin, "r", 1), lambda: str(palette),
                 lambda: skin.palette()):
        assert support.message_of(call) == support.GONE
    assert repr(palette) == "<brindle.Palette, no longer valid>"


def test_a_removed_palette_says_so_and_comes_back(app, palettes, palette):
    palettes.remove(palette)
    assert not palette.valid
    assert support.message_of(lambda: palette.name) == "Palette is no longer valid."
    app.project.history.undo()
    assert palette.valid and palette.colour_names() == ["Skin", "Hair", "Sky"]


@pytest.mark.parametrize("call", [
    lambda p: p.create_solid_colour(1), lambda p: p.create_solid_colour("x", [1, 2, 3], "0"), lambda p: p.get([]),
    lambda p: p.create_texture("x", 1), lambda p: p.pop("0"), lambda p: p.append(1), lambda p: p.append("x"),
    lambda p: p.reorder(p[0], "x"), lambda p: p.clear(1)])
def test_values_of_other_types_are_refused(palette, state, call):
    before = state()
    with pytest.raises(TypeError):
        call(palette)
    assert state() == before
