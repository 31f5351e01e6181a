"""Templates: they are made, told by the command line, pasted in other projects, and refused where they are damaged."""

import json
import pathlib
import shutil

import brindle
import pytest

import character
import support

NO_TEMPLATE = "Invalid template file provided to copy."
NOT_PASTED = "Failed to paste the template."
ACTION_NOT_PASTED = "Failed to paste the action-template."


@pytest.fixture
def library(tmp_path):
    return tmp_path / "library"


@pytest.fixture
def hero(app, tmp_path):
    return character.make_character(app, tmp_path)


@pytest.fixture
def template(app, hero, library):
    """The path of a template of the character."""
    return library / app.clipboard.create_template(app.clipboard.copy(hero), "Hero", library)


@pytest.fixture
def other(template, folder):
    """Another project, open; the one that the template comes from is closed and gone."""
    brindle.application().close()
    shutil.rmtree(folder)
    with brindle.create(folder.with_name("other")) as app:
        yield app


@pytest.fixture
def unchanged(app, folder):
    """The saved form and the undo list, asked again and again."""
    return lambda: (character.saved(app, folder), app.project.history.list(), app.project.history.size_total)


class TestMaking:
    def test_it_is_a_folder_with_its_ending(self, app, hero, library, unchanged):
        before = unchanged()
        copy = app.clipboard.copy(hero)
        assert app.clipboard.create_template(copy, "Hero", library) == "Hero.tpl"
        assert app.clipboard.create_template(copy, "", library) == "New Template.tpl"
        assert app.clipboard.create_template(copy, "Other.tpl", library) == "Other.tpl"
        assert sorted(path.name for path in library.iterdir()) == ["Hero.tpl", "New Template.tpl", "Other.tpl"]
        assert unchanged() == before, "a template is no change of the project"

    def test_a_name_that_is_taken_gets_a_number(self, app, hero, library):
        copy = app.clipboard.copy(hero)
        first = app.clipboard.create_template(copy, "Hero", library)
        before = support.files(library / first)
        again = app.clipboard.create_template(copy, "Hero", library)
        assert again not in (first, "") and again.endswith(".tpl") and (library / again).is_dir()
        assert support.files(library / first) == before

    @pytest.mark.parametrize("name", ["a/b", "..", "../x", "/x", "a\0b", "x" * 300, " ", ".", "con\n"], ids=repr)
    def test_odd_names_stay_in_the_folder(self, app, hero, library, name):
        library.mkdir()
        made = app.clipboard.create_template(app.clipboard.copy(hero), name, library)
        if made:
            assert [path.name for path in library.iterdir()] == [made]
            assert type(app.clipboard.copy_from_template(library / made)) is brindle.CopyObject
        else:
            assert not list(library.iterdir())
        assert [path.name for path in library.parent.iterdir() if path.suffix == ".tpl"] == []

    def test_where_nothing_can_be_written_nothing_is_left(self, app, hero, tmp_path, unchanged):
        copy, before = app.clipboard.copy(hero), unchanged()
        (tmp_path / "file").write_text("mine")
        kept = support.files(tmp_path)
        for folder in ("", tmp_path / "file", tmp_path / "file" / "below", "/proc/nowhere"):
            assert app.clipboard.create_template(copy, "Hero", folder) == ""
        assert support.files(tmp_path) == kept and unchanged() == before

    def test_without_a_selection_there_is_none(self, app, hero, library, unchanged):
        before = unchanged()
        assert app.clipboard.create_selection_template("Hero", library) == ""
        assert not library.exists() and unchanged() == before

    def test_it_is_made_of_the_selected_nodes(self, app, hero, template, library):
        app.clipboard.paste_action_template(template, 1, hero)  # It selects what it pastes over.
        for options in (None, brindle.CopyOptions(), {"include_default_camera_name": False}):
            made = app.clipboard.create_selection_template("Selected", library, options)
            assert made.endswith(".tpl")
            copied, = app.clipboard.paste_new_nodes(app.clipboard.copy_from_template(library / made), "Top")
            assert len(copied.nodes) == 3

    def test_it_names_the_default_camera_where_that_is_asked_for(self, app, scene, hero, library):
        copy = app.clipboard.copy(hero)
        scene.camera = scene.nodes.create("CAMERA", "Film")
        for asked, told in ((False, "none"), (True, "Film"), (False, "none")):
            made = app.clipboard.create_template(copy, "Camera", library, asked)
            lines = support.run_command("info", library / made).stdout.splitlines()
            assert f"Default camera: {told}" in lines

    def test_the_source_may_be_gone(self, app, scene, hero, library):
        copy = app.clipboard.copy(hero)
        scene.nodes.remove(hero, True)
        app.elements.remove("Hero", True)
        made = app.clipboard.create_template(copy, "Hero", library)
        copied, = app.clipboard.paste_new_nodes(app.clipboard.copy_from_template(library / made), "Top")
        assert [drawing.name for drawing in character.cell_of(copied.nodes["Drawing"]).element.drawings] == ["1", "2", "3"]


class TestPasting:
    def test_it_brings_all_that_was_copied(self, other, template):
        pictures = {path.name: path.read_bytes() for path in template.rglob("*.png")}
        other.clipboard.paste_template_into_group(template, 1, "Top")
        assert other.project.history.list() == ["Pasting Template."]
        hero = other.scene.nodes["Top/Hero"]
        assert [node.name for node in hero.nodes] == ["Arm", "Hand", "Drawing"]
        assert hero.nodes["Hand"].metadata["Role"].value == "left"
        other.save()
        element = character.cell_of(hero.nodes["Drawing"]).element
        assert {pathlib.Path(d.path).name: pathlib.Path(d.path).read_bytes() for d in element.drawings} == pictures
        assert [palette.name for palette in other.project.palettes if palette.name == "Hero"] == ["Hero"]

    def test_it_comes_at_a_frame(self, other, template):
        other.clipboard.paste_template_into_group(template, 11, "Top", {"use_paste_special": True, "extend_scene": True})
        hero = other.scene.nodes["Top/Hero"]
        angle = hero.nodes["Arm"].attributes["angle"]
        assert [round(angle.value(frame), 6) for frame in (11, 22, 34)] == [0, 60, -20]
        assert character.cells(character.cell_of(hero.nodes["Drawing"]), 30) == "." * 10 + "1" * 6 + "2" * 6 + "3" * 8
        assert other.scene.frame_count == 70

    def test_it_is_one_entry_that_undoes_and_redoes_exactly(self, other, template):
        folder = template.parents[1] / "saved"
        other.save(folder)
        before = character.saved(other, folder)
        other.clipboard.paste_template_into_group(template, 1, "Top")
        after = character.saved(other, folder)
        for _ in range(2):
            other.project.history.undo(1)
            assert character.saved(other, folder) == before
            other.project.history.redo(1)
            assert character.saved(other, folder) == after

    def test_a_copy_of_it_needs_its_folder_no_longer(self, other, template):
        copy = other.clipboard.copy_from_template(template, 3, 4)
        shutil.rmtree(template)
        hero, = other.clipboard.paste_new_nodes(copy, "Top")
        assert character.cells(character.cell_of(hero.nodes["Drawing"]), 4) == "1111"
        other.save()
        assert [drawing.file_exists for drawing in character.cell_of(hero.nodes["Drawing"]).element.drawings] == [True] * 3

    def test_a_project_is_a_template_too(self, app, hero, tmp_path, folder):
        app.save()
        app.close()
        with brindle.create(tmp_path / "third") as third:
            third.clipboard.paste_template_into_group(folder, 1, "Top")
            assert third.scene.nodes["Top/Hero"].nodes["Arm"].attributes["angle"].value(12) == 60.0

    def test_an_action_goes_to_nodes_of_the_same_names(self, other, template, tmp_path):
        twin = character.make_character(other, tmp_path, "Twin", shade=100)
        twin.nodes["Hand"].name = "Foot"
        for frame, angle in character.ANGLES:
            twin.nodes["Arm"].attributes["angle"].set_value(frame, 5.0)
        other.clipboard.paste_action_template(template, 1, list(twin.nodes))
        assert other.project.history.list()[-1] == "Pasting Action-Template."
        assert twin.nodes["Arm"].attributes["angle"].value(12) == 60.0
        assert twin.nodes["Foot"].attributes["pivot.x"].localvalue() == 2.5
        assert not any(node.name.startswith("Hero") for node in other.scene.nodes)

    def test_columns_take_those_of_a_template(self, other, template, tmp_path):
        twin = character.make_character(other, tmp_path, "Twin", shade=100)
        angle = twin.nodes["Arm"].attributes["angle"]
        angle.column.keyframe_clear(1, 60)
        other.clipboard.paste_template(template, 1, angle.column)
        assert other.project.history.list()[-1] == "Pasting Template."
        assert [angle.value(frame) for frame in (1, 12, 24)] == [0.0, 60.0, -20.0]


def broken(template):
    """Copies of a template that are none, by what is wrong with them."""
    def file(path):
        shutil.rmtree(path)
        path.write_text("{}")

    def edited(name, change):
        def edit(path):
            document = json.loads((path / name).read_text())
            change(document)
            (path / name).write_text(json.dumps(document))
        return edit

    scene = next(iter(template.glob("scenes/*"))).relative_to(template)
    return {
        "a file": file,
        "an empty folder": lambda path: (shutil.rmtree(path), path.mkdir()),
        "nothing": shutil.rmtree,
        "without its scene": lambda path: (path / scene).unlink(),
        "with no scenes": edited("project.json", lambda document: document.update(scenes=[])),
        "of a newer version": edited("project.json", lambda document: document.update(version=1000)),
        "with a newer scene": edited(scene, lambda document: document.update(version=1000)),
        "of another format": edited("project.json", lambda document: document.update(format="other")),
        "without its elements": lambda path: (path / "elements.json").unlink(),
        "a folder for a file": lambda path: ((path / "project.json").unlink(), (path / "project.json").mkdir()),
        "a link to itself": lambda path: (shutil.rmtree(path), path.symlink_to(path)),
        "an unreadable scene": lambda path: (path / scene).write_bytes(b"\xff\xfe\0"),
    }


NAMES = ["a file", "an empty folder", "nothing", "without its scene", "with no scenes", "of a newer version",
         "with a newer scene", "of another format", "without its elements", "a folder for a file", "a link to itself",
         "an unreadable scene"]


class TestDamage:
    @pytest.mark.parametrize("name", NAMES)
    def test_one_that_is_none_is_refused(self, app, hero, template, unchanged, name):
        breaks = broken(template)
        assert list(breaks) == NAMES
        breaks[name](template)
        before, kept = unchanged(), sorted(path.name for path in template.parent.rglob("*"))
        clipboard, making = app.clipboard, {"create_new_column": True}
        assert support.message_of(clipboard.copy_from_template, template) == NO_TEMPLATE
        assert support.message_of(clipboard.paste_template_into_group, template, 1, hero) == NOT_PASTED
        assert support.message_of(clipboard.paste_template, template, 1, "Hero-Angle") == NOT_PASTED
        assert support.message_of(clipboard.paste_action_template, template, 1, hero) == ACTION_NOT_PASTED
        loaded = support.message_of(clipboard.paste_template, template, 1, None, making)
        assert loaded in (NOT_PASTED, "Invalid paste node provided.")
        assert unchanged() == before
        assert sorted(path.name for path in template.parent.rglob("*")) == kept

    def test_one_that_is_cut_off_anywhere_is_refused(self, app, library, unchanged):
        peg = app.scene.nodes.create("PEG", "Arm")
        peg.attributes["angle"].set_value(1, 2.0)
        made = library / app.clipboard.create_template(app.clipboard.copy(peg), "Arm", library)
        before = unchanged()
        for path in [made / "project.json", *made.glob("scenes/*")]:
            whole = path.read_bytes()
            for length in range(len(whole.rstrip())):
                path.write_bytes(whole[:length])
                assert support.message_of(app.clipboard.copy_from_template, made) == NO_TEMPLATE, (path.name, length)
            path.write_bytes(whole)
        assert type(app.clipboard.copy_from_template(made)) is brindle.CopyObject
        assert unchanged() == before

    def test_a_picture_that_is_missing_is_refused(self, app, hero, template, unchanged):
        next(template.rglob("*.png")).unlink()
        before = unchanged()
        assert support.message_of(app.clipboard.copy_from_template, template) == NO_TEMPLATE
        assert support.message_of(app.clipboard.paste_template_into_group, template, 1, "Top") == NOT_PASTED
        assert unchanged() == before

    def test_one_that_another_process_has_open_is_read(self, app, hero, template):
        (template / support.LOCK).write_text("someone")
        assert type(app.clipboard.copy_from_template(template)) is brindle.CopyObject
        assert (template / support.LOCK).read_text() == "someone"


class TestInfo:
    def test_info_tells_what_is_in_it(self, hero, template):
        before = support.files(template)
        size = sum(map(len, before.values()))
        done = support.run_command("info", template)
        assert (done.returncode, done.stderr) == (0, "")
        assert done.stdout.splitlines() == [
            f"Template: {template}",
            "Frames: 60 at 24 fps",
            "Nodes: 4 in all, 2 columns",
            "  Hero (GROUP)",
            "Default camera: none",
            "Elements: 1 with 3 drawings",
            "Palettes: Hero",
            f"Size: {size / 1024:.2f} KiB in {len(before)} files",
        ]
        assert support.files(template) == before

    def test_info_of_a_damaged_one_is_one_line(self, hero, template):
        (template / "project.json").write_text("{")
        done = support.run_command("info", template)
        assert (done.returncode, done.stdout, done.stderr.count("\n")) == (1, "", 1)
        assert f'"{template}/project.json" is damaged at line 1' in done.stderr
