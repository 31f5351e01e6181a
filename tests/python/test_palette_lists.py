"""Palette lists, their files, and the list of the lists."""

import os
import pathlib
import shutil

import brindle
import pytest

import palettes as shared
import support

RANGE = "Index is out of range."
UNFOUND = "Unable to find given palette."
READ_ONLY = "Palette lists cannot be set, object is read only."
END = 2**32 - 1


@pytest.fixture
def lists(app):
    return app.project.palette_lists


@pytest.fixture
def palettes(app):
    """The palettes Hero and Villain, of a colour each, and Props."""
    made = app.project.palettes
    for name in ("Hero", "Villain", "Props"):
        made.create("Colour", name)[0].name = name + " skin"
    app.project.history.clear()
    return made


@pytest.fixture
def library(folder):
    return folder / "palette-library"


@pytest.fixture
def changes(app, folder):
    return lambda action, label: shared.check_change(app, folder, action, label)


@pytest.fixture
def refuses(app, folder):
    return lambda action, message, error=None: shared.check_refusal(app, folder, action, message, error)


def palette_files(library):
    return sorted(path.name for path in library.glob("*.plt"))


def aside(library):
    deleted = library / ".deleted"
    return sorted(path.name for path in deleted.iterdir()) if deleted.exists() else []


# --- What a list is -------------------------------------------------------------------------------------------------

def test_a_list_tells_of_itself(app, folder, palettes):
    assert (palettes.path, palettes.type, palettes.element_id) == (str(folder), "SCENE", -1)
    assert (palettes.valid, palettes.loaded, palettes.locked) == (True, True, False)
    assert len(palettes.id) == 16 and palettes.id == app.project.palettes.id
    assert palettes.element() is None
    assert str(palettes) == f"PaletteList({folder}) [3]"


def test_a_new_project_has_one_list_without_palettes(app, lists):
    assert len(app.project.palettes) == 0 and app.project.palettes.list() == []
    assert len(lists) == 1 and str(lists) == "PaletteListList() [1]"
    assert app.project.history.list() == [] and not app.project.dirty


def test_a_list_is_locked_until_it_is_released(palettes):
    palettes.release()
    palettes.lock()
    palettes.lock()
    assert palettes.locked
    palettes.release()
    assert not palettes.locked


def test_a_list_that_somebody_else_holds_cannot_be_changed(app, library, palettes):
    changes = (lambda: palettes.create("Colour", "x"), lambda: palettes.remove(0), lambda: palettes.reorder(0, 1),
               lambda: palettes.clone(palettes[0]), palettes.clear)
    with shared.held_elsewhere(palettes, library / "palette-list.json.lock"):
        for change in changes:
            message = support.message_of(change)
            assert message.startswith(f"The palette list {palettes.path} is locked by ")
        assert support.message_of(palettes.lock) == "Unable to lock PaletteList."
        assert app.project.history.list() == [] and len(palettes) == 3 and aside(library) == []
    palettes.remove(0)


def test_palettes_are_found_by_index_id_name_and_path(library, palettes):
    hero = palettes[0]
    assert [palette.name for palette in palettes] == palettes.palette_names() == ["Hero", "Villain", "Props"]
    assert palettes[-1].name == palettes.get(2).name == "Props" and palettes[hero.id].name == "Hero"
    assert palettes["Villain"].id == palettes[1].id and palettes["nobody"] is None
    assert palettes.find("Props").id == palettes[2].id and palettes.find("nobody") is None
    assert palettes.find(str(library / "Hero.plt"), by_path=True).id == hero.id
    assert palettes.find("Hero", True) is None and palettes.find(str(library / "Hero.plt")) is None
    for index in (3, -4):
        assert support.message_of(palettes.get, index) == RANGE
    assert hero in palettes and None not in palettes and palettes not in palettes and 0 not in palettes
    assert hero.palette_list().id == palettes.id


def test_the_palette_of_a_colour_is_found(palettes):
    colour = palettes[1][0]
    assert palettes.palette_containing_colour(colour).name == "Villain"
    for odd in (None, palettes[0], "x", 1, palettes[0].pop()):
        assert palettes.palette_containing_colour(odd) is None


# --- New palettes ---------------------------------------------------------------------------------------------------

def test_a_palette_is_created_and_exists_at_once(library, palettes, changes):
    def create():
        made = palettes.create("pencil texture", "Lines")
        assert (library / "Lines.plt").is_file()
        return made

    made = changes(create, "Create Palette")
    assert (made.name, made.type, made.path) == ("Lines", "Pencil Texture", str(library / "Lines.plt"))
    assert [shared.seen(colour) for colour in made] == [
        ("Default", "solid_colour", [(0.0, (0.0, 0.0, 0.0, 255.0))])]
    assert palettes[-1].id == made.id


def test_a_palette_is_created_at_an_index(palettes, changes, refuses):
    changes(lambda: palettes.create("Colour", "First", False, 0), "Create Palette")
    changes(lambda: palettes.create("Colour", "Last", index=END), "Create Palette")
    assert palettes.palette_names() == ["First", "Hero", "Villain", "Props", "Last"]
    refuses(lambda: palettes.create("Colour", "x", False, 5), RANGE)


def test_without_a_name_a_file_is_chosen(library, palettes, changes):
    assert [changes(lambda: palettes.create("Colour", ""), "Create Palette").name for _ in range(2)] == [
        "Palette", "Palette_1"]
    assert {"Palette.plt", "Palette_1.plt"} < set(palette_files(library))


def test_a_palette_is_created_in_another_folder(tmp_path, app, folder, palettes):
    made = palettes.create("Colour", "Shared", path=str(tmp_path / "studio"))
    assert made.path == str(tmp_path / "studio" / "Shared.plt") and made.location == "EXTERNAL"
    app.project.history.undo()
    assert not os.path.exists(tmp_path / "studio" / "Shared.plt")
    app.project.history.redo()
    app.save()
    app.close()
    with brindle.open(folder) as opened:
        assert opened.project.palettes["Shared"].path == str(tmp_path / "studio" / "Shared.plt")


def test_another_folder_starts_in_the_list_s_own(library, palettes):
    made = palettes.create("Colour", "Sub", path="deeper")
    assert made.path == str(library / "deeper" / "Sub.plt") and made.location == "SCENE"


def test_a_name_that_is_taken_is_refused(palettes, refuses):
    refuses(lambda: palettes.create("Colour", "Hero"),
            "Failed to create the new palette with name: Hero, it already exists in file path.")


def test_a_file_that_no_list_knows_takes_its_name_too(library, palettes, refuses):
    (library / "Stray.plt").write_bytes((library / "Hero.plt").read_bytes())
    refuses(lambda: palettes.create("Colour", "Stray"),
            "Failed to create the new palette with name: Stray, it already exists in file path.")


def test_what_is_overwritten_is_put_aside(library, palettes, changes):
    stray = (library / "Hero.plt").read_bytes()
    (library / "Stray.plt").write_bytes(stray)
    changes(lambda: palettes.create("Colour", "Stray", True), "Create Palette")
    assert (library / ".deleted" / "Stray.plt").read_bytes() == stray
    old = palettes["Hero"].id
    made = changes(lambda: palettes.create("Colour", "Hero", True, 1), "Create Palette")
    assert made.id != old and palettes.palette_names() == ["Hero", "Villain", "Props", "Stray"]
    assert palettes[old] is None


def test_an_unknown_type_is_refused(palettes, refuses):
    refuses(lambda: palettes.create("x", "y"), "Failed to create the new palette. Unkown palette type: x. "
                                               "Available types are: Colour, Pencil Texture")


def test_a_name_becomes_a_file_s_name(library, palettes):
    made = palettes.create("Colour", "../a/b")
    assert made.name == "../a/b" and os.path.dirname(made.path) == str(library) and os.path.exists(made.path)


@pytest.mark.skipif(os.geteuid() == 0, reason="the superuser may write everywhere")
def test_a_folder_that_cannot_be_written_is_named(tmp_path, app, palettes):
    tmp_path.chmod(0o500)
    message = support.message_of(lambda: palettes.create("Colour", "x", path=str(tmp_path)))
    assert str(tmp_path) in message and len(palettes) == 3 and app.project.history.list() == []


def test_a_folder_that_is_a_file_is_named(tmp_path, app, palettes, state):
    (tmp_path / "file").write_text("")
    before = state()
    message = support.message_of(lambda: palettes.create("Colour", "x", path=str(tmp_path / "file")))
    assert str(tmp_path / "file") in message and len(palettes) == 3 and state() == before


# --- Copies ---------------------------------------------------------------------------------------------------------

@pytest.mark.parametrize("method, suffix, label", [("clone", "-clone", "Cloned Palette"),
                                                   ("duplicate", "-copy", "Duplicate Palette")])
def test_a_palette_is_copied(library, palettes, changes, method, suffix, label):
    hero = palettes["Hero"]
    hero.create_linear_gradient_colour("Sky", [0, 0, 255], 0, [255, 255, 255], 100)
    copied = changes(lambda: getattr(palettes, method)(hero), label)
    assert copied.name == f"Hero{suffix}" and palettes[-1].id == copied.id != hero.id
    assert [shared.seen(colour) for colour in copied] == [shared.seen(colour) for colour in hero]
    same = [one.id == other.id for one, other in zip(copied, hero)]
    assert same == [method == "clone"] * 2
    assert changes(lambda: getattr(palettes, method)(hero, ""), label).name == f"Hero{suffix}_1"
    assert changes(lambda: getattr(palettes, method)(hero, "Night"), label).name == "Night"
    assert changes(lambda: getattr(palettes, method)(hero, "Night"), label).name == "Night"
    assert all(os.path.exists(palette.path) for palette in palettes)
    assert len({palette.path for palette in palettes}) == len(palettes)


def test_copies_take_their_textures_along(tmp_path, palettes):
    (tmp_path / "wood.png").write_bytes(shared.png(8, 4))
    palettes["Hero"].create_texture("Wood", tmp_path / "wood.png")
    for method in (palettes.clone, palettes.duplicate):
        copied = method(palettes["Hero"])
        assert os.listdir(copied.path.removesuffix(".plt") + "_textures") == [f"{copied['Wood'].id}.png"]


def test_what_is_no_palette_of_the_list_is_not_copied(palettes, refuses):
    for method in (palettes.clone, palettes.duplicate):
        for odd in (None, palettes, palettes[0][0]):
            refuses(lambda: method(odd), "Failed to clone palette.")
    gone = palettes[0]
    palettes.remove(0)
    refuses(lambda: palettes.clone(gone), "Palette is no longer valid.")


def test_a_palette_is_set_only_from_another_list(palettes, refuses):
    refuses(lambda: palettes.set(0, palettes[1]),
            "Palette ID already exists on the list, use the clone or duplicate options instead.")
    refuses(lambda: palettes.set(0, None), "Invalid input palette object.")
    for index in (3, -4):
        refuses(lambda: palettes.set(index, palettes[0]), RANGE)


# --- Removing -------------------------------------------------------------------------------------------------------

@pytest.mark.parametrize("told", [lambda palette: palette, lambda palette: 1, lambda palette: palette.id,
                                  lambda palette: palette.path, lambda palette: 1.0],
                         ids=["itself", "index", "id", "path", "number"])
def test_a_palette_is_removed_and_its_file_put_aside(app, library, palettes, changes, told):
    app.save()
    content = (library / "Villain.plt").read_bytes()
    changes(lambda: palettes.remove(told(palettes[1])), "Remove Palette")
    assert palettes.palette_names() == ["Hero", "Props"] and palette_files(library) == ["Hero.plt", "Props.plt"]
    assert (library / ".deleted" / "Villain.plt").read_bytes() == content


def test_what_is_no_palette_of_the_list_is_not_removed(palettes, refuses):
    for odd in (None, 3, -1, "nobody", "", "Hero", palettes, [], {}, palettes[0][0]):
        refuses(lambda: palettes.remove(odd), UNFOUND)


def test_textures_go_along_and_come_back(tmp_path, app, library, palettes, changes):
    (tmp_path / "wood.png").write_bytes(shared.png(8, 4))
    palettes["Hero"].create_texture("Wood", tmp_path / "wood.png")
    app.save()
    changes(lambda: palettes.remove(0), "Remove Palette")
    assert aside(library) == ["Hero.plt", "Hero_textures"] and not (library / "Hero_textures").exists()
    app.project.history.undo()
    assert aside(library) == [] and len(list((library / "Hero_textures").iterdir())) == 1


def test_palettes_of_one_name_are_kept_aside_under_several(library, palettes):
    palettes.remove(0)
    for _ in range(2):
        palettes.create("Colour", "Hero")
        palettes.remove(palettes["Hero"])
    assert aside(library) == ["Hero.plt", "Hero_1.plt", "Hero_2.plt"]


def test_undo_of_all_of_it_brings_the_right_file_back(app, library, palettes):
    content = (library / "Hero.plt").read_bytes()
    palettes.remove(0)
    palettes.create("Colour", "Hero")
    palettes.remove(palettes["Hero"])
    app.project.history.undo(3)
    assert (library / "Hero.plt").read_bytes() == content and palettes.palette_names() == ["Hero", "Villain", "Props"]


def test_a_move_that_fails_leaves_the_palette_on_the_list(library, palettes, refuses):
    (library / ".deleted").write_text("in the way")
    message = support.message_of(lambda: palettes.remove(0))
    assert message.startswith("Failed to move the palette ") and str(library / "Hero.plt") in message
    refuses(lambda: palettes.remove(0), message)
    refuses(palettes.clear, support.message_of(palettes.clear))
    assert palettes[0].valid and palettes[0].name == "Hero"


def test_an_undo_that_finds_a_file_in_its_way_says_so_and_can_be_repeated(app, library, palettes):
    palettes.remove(0)
    (library / "Hero.plt").write_text("somebody else's")
    message = support.message_of(app.project.history.undo)
    assert message.startswith("Failed to move the palette ") and str(library / "Hero.plt") in message
    assert len(palettes) == 2 and app.project.history.list() == ["Remove Palette"]
    assert (library / "Hero.plt").read_text() == "somebody else's" and aside(library) == ["Hero.plt"]
    (library / "Hero.plt").unlink()
    app.project.history.undo()
    assert palettes.palette_names() == ["Hero", "Villain", "Props"] and aside(library) == []


def test_all_palettes_are_removed_and_come_back_in_their_order(app, library, palettes, changes):
    ids = [palette.id for palette in palettes]
    changes(palettes.clear, "Clear Palette List")
    assert len(palettes) == 0 and palette_files(library) == []
    app.project.history.undo()
    assert [palette.id for palette in palettes] == ids
    app.project.history.redo()
    app.project.history.clear()
    palettes.clear()
    assert app.project.history.list() == []


def test_a_removed_palette_is_back_when_the_removal_was_not_saved(app, folder, library, palettes):
    app.save()
    content = shared.files(app, folder)
    palettes.clear()
    app.close()
    with brindle.open(folder) as opened:
        assert opened.project.palettes.palette_names() == ["Hero", "Villain", "Props"]
        assert [len(palette) for palette in opened.project.palettes] == [1, 1, 1]
        assert {name: data for name, data in support.files(folder).items() if "/.deleted/" not in name} == content


def test_the_order_and_the_ids_come_back(app, folder, palettes):
    palettes.reorder(2, 0)
    told = [(palette.id, palette.name) for palette in palettes]
    list_id = palettes.id
    app.save()
    app.close()
    with brindle.open(folder) as opened:
        again = opened.project.palettes
        assert [(palette.id, palette.name) for palette in again] == told and again.id == list_id


# --- The order ------------------------------------------------------------------------------------------------------

@pytest.mark.parametrize("told, index, order", [
    (0, 2, ["Villain", "Props", "Hero"]), (2, 0, ["Props", "Hero", "Villain"]), (1, -1, ["Hero", "Props", "Villain"]),
    (0, 0, ["Hero", "Villain", "Props"])])
def test_a_palette_is_moved_to_an_index(palettes, changes, told, index, order):
    changes(lambda: palettes.reorder(told, index), "Reorder Palette")
    assert palettes.palette_names() == order


def test_a_palette_is_moved_however_it_is_told(palettes):
    palettes.reorder(palettes["Props"], 0)
    palettes.reorder(palettes["Villain"].id, 0)
    assert palettes.palette_names() == ["Villain", "Props", "Hero"]


def test_what_is_no_palette_of_the_list_is_not_moved(palettes, refuses):
    for odd in (None, 3, "Hero", palettes[0].path):
        refuses(lambda: palettes.reorder(odd, 0), UNFOUND)
    for index in (3, -4):
        refuses(lambda: palettes.reorder(0, index), RANGE)


def test_a_palette_is_moved_by_a_step(palettes, changes, refuses):
    changes(lambda: palettes.move_palette_up(palettes["Hero"]), "Reorder Palette")
    changes(lambda: palettes.move_palette_down(palettes["Props"]), "Reorder Palette")
    assert palettes.palette_names() == ["Villain", "Props", "Hero"]
    refuses(lambda: palettes.move_palette_down(palettes[0]), "Unable to move palette further down.")
    refuses(lambda: palettes.move_palette_up(palettes[-1]), "Unable to move palette further up.")
    for odd in (None, 0, "Hero", palettes):
        refuses(lambda: palettes.move_palette_up(odd), UNFOUND)
        refuses(lambda: palettes.move_palette_down(odd), UNFOUND)


# --- The list of the lists ------------------------------------------------------------------------------------------

def test_the_lists_are_found_by_index_and_id(app, lists, palettes):
    assert lists[0].id == lists.project_palettes().id == palettes.id
    assert lists[palettes.id].id == palettes.id and lists.get("x") is None
    assert [one.id for one in lists] == [one.id for one in lists.list()] == [palettes.id]
    assert palettes in lists and None not in lists and lists not in lists
    for index in (1, -1):
        assert support.message_of(lists.get, index) == RANGE


def test_a_list_of_lists_cannot_be_set(lists, palettes, refuses):
    for value in (None, palettes):
        refuses(lambda: lists.set(0, value), READ_ONLY)
        refuses(lambda: lists.__setitem__(0, value), READ_ONLY)


@pytest.mark.parametrize("text, number, name", [
    ("ENVIRONMENT", 86, "ENVIRONMENT"), ("job", 74, "JOB"), ("Scene", 83, "SCENE"), ("element", 69, "ELEMENT"),
    ("EXTERNAL", 88, "EXTERNAL"), ("backup", 66, "BACKUP"), ("nonsense", 66, "BACKUP"), ("", 66, "BACKUP")])
def test_places_have_names_and_numbers(text, number, name):
    lists = brindle.PaletteListList
    assert lists.get_location_type_from_string(text) == number
    assert lists.get_string_from_location_type(number) == name


def test_other_numbers_of_places():
    names = brindle.PaletteListList.get_string_from_location_type
    assert [names(number) for number in (79, 0, -1, 1000)] == ["ELEMENT", "BACKUP", "BACKUP", "BACKUP"]


def test_the_folders_of_places(folder, lists):
    assert lists.find_folder("scene") == str(folder / "palette-library")
    assert lists.find_folder("environment").endswith("environment") and lists.find_folder("Job").endswith("job")
    for odd in ("external", "backup", "nonsense", None, 5, []):
        assert lists.find_folder(odd) == ""


def test_palettes_are_found_at_places(folder, lists, palettes, library):
    hero = palettes["Hero"]
    assert lists.find_palette("scene", "Hero").id == hero.id
    assert lists.find_palette(palettes["Props"], "Hero").id == hero.id
    (library / "Stray.plt").write_bytes((library / "Hero.plt").read_bytes())
    for place, name in (("scene", "nobody"), ("scene", "Stray"), ("job", "Hero"), ("nonsense", "Hero"), (None, "Hero"),
                        (5, "Hero")):
        assert lists.find_palette(place, name) is None
    assert [palette.name for palette in lists.list_palettes("scene")] == ["Hero", "Props", "Villain"]
    assert lists.list_palettes("job") == lists.list_palettes("nonsense") == lists.list_palettes(None) == []


def test_the_palette_of_a_texture_s_file_is_found(tmp_path, app, lists, palettes):
    (tmp_path / "wood.png").write_bytes(shared.png(8, 4))
    wood = palettes["Villain"].create_texture("Wood", tmp_path / "wood.png")
    app.save()
    name = wood.id + ".png"
    assert lists.find_texture("scene", name).name == lists.find_texture(palettes["Villain"], name).name == "Villain"
    for place, wanted in (("scene", "x.png"), (palettes["Hero"], name), ("job", name), (None, name)):
        assert lists.find_texture(place, wanted) is None


# --- Elements -------------------------------------------------------------------------------------------------------

@pytest.fixture
def arm(app, palettes):
    """An element with a palette list of its own, a copy of the project's."""
    app.save()
    element = app.elements.create("Arm")
    library = pathlib.Path(element.folder_complete) / "palette-library"
    shutil.copytree(pathlib.Path(palettes.path) / "palette-library", library)
    app.project.history.clear()
    return element


def test_an_element_s_list_is_found(lists, arm, palettes):
    assert len(lists) == 2
    found = lists.element_palette_list(arm)
    assert (found.type, found.element_id, found.path) == ("ELEMENT", arm.id, arm.folder_complete)
    assert found.element().id == arm.id and found.id == lists[1].id
    assert found in lists and lists.get(found.id).id == found.id
    for odd in (None, "Arm", arm.id, palettes):
        assert lists.element_palette_list(odd) is None


def test_a_palette_of_another_list_is_set_as_a_copy_with_new_colours(lists, arm, palettes, changes):
    sleeves = lists.element_palette_list(arm)
    palettes.remove(palettes["Hero"])
    changes(lambda: palettes.set(-1, sleeves["Hero"]), "Set Palette")
    assert palettes.palette_names() == ["Villain", "Hero"]
    assert shared.seen(palettes[1][0]) == shared.seen(sleeves["Hero"][0])
    assert palettes[1].id != sleeves["Hero"].id and palettes[1][0].id != sleeves["Hero"][0].id


def test_an_element_without_palettes_has_no_list(app, lists):
    assert lists.element_palette_list(app.elements.create("Leg")) is None


def test_palettes_of_an_element_s_folder_tell_so(app, lists, palettes, changes):
    arm = app.elements.create("Arm")
    folder = lists.find_folder(arm)
    assert folder == f"{arm.folder_complete}/palette-library"
    sleeve = changes(lambda: palettes.create("Colour", "Sleeve", path=folder), "Create Palette")
    assert (sleeve.location, sleeve.element_id, sleeve.element().id) == ("ELEMENT", arm.id, arm.id)
    assert lists.find_palette(arm, "Sleeve").id == lists.find_palette(sleeve, "Sleeve").id == sleeve.id
    assert lists.find_palette(arm, "Hero") is None
    assert [palette.name for palette in lists.list_palettes(arm)] == ["Sleeve"]
    sleeve.name = "Cuff"
    assert sleeve.element_id == arm.id


def test_an_element_that_is_gone_is_refused(app, lists):
    arm = app.elements.create("Arm")
    app.project.history.undo()
    for call in (lists.element_palette_list, lists.find_folder, lists.list_palettes,
                 lambda element: lists.find_palette(element, "x"), lambda element: lists.find_texture(element, "x")):
        with pytest.raises(brindle.Error):
            call(arm)


# --- The end --------------------------------------------------------------------------------------------------------

def test_after_the_project_is_closed_the_lists_say_so(app, lists, palettes):
    app.close()
    assert not palettes.valid
    for call in (lambda: len(palettes), lambda: palettes[0], lambda: palettes.path, palettes.clear, palettes.lock,
                 lambda: palettes.create("Colour", "x"), lambda: len(lists), lists.project_palettes,
                 lambda: lists.find_folder("scene"), lambda: str(lists), lambda: str(palettes), lambda: lists[0]):
        assert support.message_of(call) == support.GONE


def test_a_read_only_project_s_palettes_change_in_memory_only(app, folder, palettes):
    app.save()
    app.close()
    before = support.files(folder)
    with brindle.open(folder, read_only=True) as opened:
        again = opened.project.palettes
        again.create("Colour", "New")
        again.remove(0)
        again[0][0].r = 5
        assert again.palette_names() == ["Villain", "Props", "New"]
        opened.project.history.undo(3)
        assert again.palette_names() == ["Hero", "Villain", "Props"]
        assert support.files(folder) == before
