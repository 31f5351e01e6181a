"""The clipboard: copies, new nodes made of them, and what it says to what it can't do."""

import pathlib

import brindle
import pytest

import character
import support

NO_NODES = "Unable to identify any nodes to copy."
NO_TARGETS = "Unable to identify any target nodes to paste upon."
NO_COPY = "Invalid copy object provided."
NO_GROUP = "Failed to identify target group."
NO_COLUMN = "Invalid column specified."
NOT_COPIED = "Failed to copy from template."
NO_TEMPLATE = "Invalid template file provided to copy."
OTHER_COPY_OPTIONS = "Invalid Copy_Options object provided in options argument."
OTHER_ACTION_OPTIONS = "Invalid Paste_Action_Options object provided in options argument."
NOWHERE = "/no/such/template.tpl"


@pytest.fixture
def hero(app, tmp_path):
    return character.make_character(app, tmp_path)


@pytest.fixture
def clipboard(app):
    return app.clipboard


@pytest.fixture
def paste(app, folder):
    """Runs a paste and checks its label, its undo and its redo, to the byte. Gives the new nodes."""

    def run(label, call, *arguments, **named):
        history = app.project.history
        history.clear()
        before = character.saved(app, folder)
        paths = [node.path for node in call(*arguments, **named)]
        assert history.list() == [label]
        after = character.saved(app, folder)
        assert after != before
        for _ in range(2):
            history.undo(1)
            assert character.saved(app, folder) == before
            history.redo(1)
            assert character.saved(app, folder) == after
        return [app.scene.nodes[path] for path in paths]

    return run


@pytest.fixture
def new_nodes(clipboard, paste, scene):
    """Pastes new nodes into the root group."""

    def run(copy, group=None, options=None):
        return paste("Paste Nodes from Copy Object", clipboard.paste_new_nodes, copy, group or scene.top, options)

    return run


@pytest.fixture
def refuse(app, folder):
    """Runs a call that fails with a sentence, and checks that nothing has changed in the project and on disk."""

    def run(message, call, *arguments, error=brindle.Error):
        before = character.saved(app, folder), app.project.history.list(), app.project.history.size_total
        assert support.message_of(call, *arguments, error=error) == message
        assert (character.saved(app, folder), app.project.history.list(), app.project.history.size_total) == before

    return run


class TestSentences:
    def test_the_scene_and_the_application_give_it(self, app, scene):
        assert str(app.clipboard) == str(scene.clipboard) == "Clipboard()"
        assert type(app.clipboard) is type(scene.clipboard) is type(app.clipboard.copy()) is brindle.Clipboard
        assert dir(app.clipboard) == dir(app.clipboard.copy()) == []
        assert {"copy", "paste", "create_template"} <= set(dir(brindle.Clipboard))
        with pytest.raises(TypeError, match="got from the project, not made"):
            brindle.Clipboard()

    @pytest.mark.parametrize("nodes", [[], None, "Top/Leg", ["Top/Leg"], {}, [[]]], ids=repr)
    def test_copying_needs_nodes_ahead_of_options(self, hero, clipboard, refuse, nodes):
        refuse(NO_NODES, clipboard.copy, nodes)
        refuse(NO_NODES, clipboard.copy, nodes, brindle.PasteOptions())
        refuse(NO_NODES, clipboard.copy, nodes, 1, 5, brindle.PasteOptions())

    def test_options_of_another_class_are_refused(self, hero, clipboard, refuse):
        refuse(OTHER_COPY_OPTIONS, clipboard.copy, hero, brindle.PasteOptions())
        refuse(OTHER_COPY_OPTIONS, clipboard.copy, hero, 1, 5, hero)
        refuse(OTHER_COPY_OPTIONS, clipboard.create_selection_template, "x", "/tmp", hero)
        making = brindle.PasteOptions({"create_new_column": True})
        refuse(OTHER_ACTION_OPTIONS, clipboard.paste_action_template, NOWHERE, 1, [], making, making)

    def test_nodes_that_are_gone_are_none(self, scene, hero, clipboard, refuse):
        arm = hero.nodes["Arm"]
        scene.nodes.remove(hero)
        refuse(NO_NODES, clipboard.copy, [arm, hero])

    def test_the_root_group_is_not_copied(self, scene, clipboard, refuse):
        refuse(NOT_COPIED, clipboard.copy, scene.top)

    @pytest.mark.parametrize("frames", [(61, 5), (1000, 1), (2**31 - 1, 2**31 - 1), (-5, 3), (5, -3)], ids=repr)
    def test_frames_that_the_scene_has_not_are_not_copied(self, hero, clipboard, refuse, frames):
        refuse(NOT_COPIED, clipboard.copy, hero, *frames)

    def test_what_was_copied_is_asked_for_first(self, clipboard, refuse):
        for other in (None, brindle.CopyOptions(), clipboard):
            refuse(NO_COPY, clipboard.paste, other, [])
            refuse(NO_COPY, clipboard.paste_new_nodes, other, [])
            refuse(NO_COPY, clipboard.create_template, other, "x", "/tmp")

    def test_a_paste_needs_a_target(self, scene, hero, clipboard, refuse):
        copy = clipboard.copy(hero)
        refuse(NO_TARGETS, clipboard.paste, copy, [])
        refuse(NO_TARGETS, clipboard.paste, copy, "Top/Leg")
        refuse(NO_NODES, clipboard.paste_new_nodes, copy, None)
        refuse(NO_GROUP, clipboard.paste_new_nodes, copy, hero.nodes["Arm"])
        refuse(NO_GROUP, clipboard.paste_template_into_group, NOWHERE, 1, None)
        refuse(NO_GROUP, clipboard.paste_template_into_group, NOWHERE, 1, hero.nodes["Arm"])
        scene.nodes.remove(hero)
        refuse(NO_NODES, clipboard.paste_new_nodes, copy, hero)
        refuse(NO_TARGETS, clipboard.paste, copy, hero)

    def test_an_index_beyond_the_end_says_so(self, clipboard, refuse):
        refuse("Index is out of range.", clipboard.copy, 100)

    def test_templates_that_are_not_there(self, hero, clipboard, refuse):
        making = {"create_new_column": True}
        refuse(NO_TEMPLATE, clipboard.copy_from_template, NOWHERE)
        refuse(NO_COLUMN, clipboard.paste_template, NOWHERE, 1)
        refuse(NO_COLUMN, clipboard.paste_template, NOWHERE, 1, "Nothing")
        refuse("Failed to find column by name: Nothing", clipboard.paste_template, NOWHERE, 1, ["Hero", "Nothing"])
        refuse("Failed to paste the template.", clipboard.paste_template, NOWHERE, 1, "Hero")
        refuse("Failed to paste the template.", clipboard.paste_template, NOWHERE, 1, None, making)
        refuse("Failed to paste the template.", clipboard.paste_template_into_group, NOWHERE, 1, hero)
        refuse(NO_COLUMN, clipboard.paste_action_template, NOWHERE, 1, [])
        refuse("Failed to paste the action-template.", clipboard.paste_action_template, NOWHERE, 1, [], None, making)
        refuse("Failed to paste the action-template.", clipboard.paste_action_template, NOWHERE, 1, hero)

    @pytest.mark.parametrize("arguments", [("Top/Hero", 5.5), ("Top/Hero", "x"), ("Top/Hero", 1, 2, 3), ("Top/Hero", [])],
                             ids=repr)
    def test_other_arguments_are_type_errors(self, hero, clipboard, arguments):
        with pytest.raises(TypeError):
            clipboard.copy(*arguments)

    def test_words_outside_of_a_mode_change_nothing(self, scene, hero, clipboard, refuse):
        copy = clipboard.copy(hero)
        message = "Invalid option : UPDATE_PIVOTS \n Valid options include: DO_NOTHING,  ADD_OR_REMOVE_EXPOSURE,  UPDATE_PIVOT "
        refuse(message, clipboard.paste_new_nodes, copy, scene.top, {"drawing_action": "update_pivots"})


class TestNewNodes:
    def test_a_group_comes_with_all_that_is_in_it(self, app, scene, hero, clipboard, new_nodes):
        copied, = new_nodes(clipboard.copy(hero))
        assert (copied.path, type(copied)) == ("Top/Hero_1", brindle.GroupNode)
        arm, hand, drawing = (copied.nodes[name] for name in ("Arm", "Hand", "Drawing"))
        assert (hand.ports_in[0].source_node, drawing.ports_in[0].source_node) == (arm, hand)
        assert character.curve(arm.attributes["angle"]) == character.curve(hero.nodes["Arm"].attributes["angle"])
        assert hand.attributes["pivot.x"].localvalue() == 2.5
        assert hand.attributes["Strength"].localvalue() == 0.75
        assert hand.metadata["Role"].value == "left"
        assert (hand.position.x, hand.position.y) == (40, 80)
        assert [backdrop.title for backdrop in copied.backdrops] == ["The arm of Hero"]
        column = character.cell_of(drawing)
        assert character.cells(column) == character.cells(scene.columns["Hero"])
        assert column != scene.columns["Hero"]

    def test_columns_and_elements_are_the_copys_own(self, app, scene, hero, clipboard, new_nodes):
        copied, = new_nodes(clipboard.copy(hero))
        angle = copied.nodes["Arm"].attributes["angle"]
        angle.set_value(12, 0.0)
        assert hero.nodes["Arm"].attributes["angle"].value(12) == 60.0
        mine, other = character.cell_of(copied.nodes["Drawing"]).element, scene.columns["Hero"].element
        assert mine.id != other.id and mine.name != other.name
        assert [drawing.name for drawing in mine.drawings] == [drawing.name for drawing in other.drawings]
        app.save()
        for one, another in zip(mine.drawings, other.drawings):
            assert pathlib.Path(one.path).read_bytes() == pathlib.Path(another.path).read_bytes()
            assert one.path != another.path

    def test_names_get_numbers_where_they_are_taken(self, scene, hero, clipboard, new_nodes):
        copy = clipboard.copy(hero)
        names = [new_nodes(copy)[0].name for _ in range(3)]
        assert names == ["Hero_1", "Hero_2", "Hero_3"]
        inner = new_nodes(clipboard.copy(hero.nodes["Arm"]), hero)
        assert [node.path for node in inner] == ["Top/Hero/Arm_1"]

    def test_cables_among_the_copied_nodes_stay(self, scene, hero, clipboard, new_nodes):
        arm, hand = new_nodes(clipboard.copy([hero.nodes["Arm"], hero.nodes["Hand"]]))
        assert (arm.path, hand.path) == ("Top/Arm", "Top/Hand")
        assert hand.ports_in[0].source_node == arm
        alone, = new_nodes(clipboard.copy(hero.nodes["Hand"]))
        assert alone.ports_in[0].source_node is None, "what fed it was not copied"

    def test_a_node_that_is_named_twice_is_copied_once(self, hero, clipboard, new_nodes):
        assert len(new_nodes(clipboard.copy([hero, "Top/Hero", [hero]]))) == 1
        assert len(new_nodes(clipboard.copy([hero, hero.nodes["Arm"]]))) == 1, "it is in the group"

    def test_the_source_may_change_or_go(self, app, scene, hero, clipboard, new_nodes):
        before = character.curve(hero.nodes["Arm"].attributes["angle"])
        copy = clipboard.copy(hero)
        hero.nodes["Arm"].attributes["angle"].set_value(12, -5.0)
        scene.columns["Hero"].element.drawings["1"].name = "other"
        scene.nodes.remove(hero, True)
        app.elements.remove("Hero", True)
        copied, = new_nodes(copy)
        assert copied.name == "Hero"
        assert character.curve(copied.nodes["Arm"].attributes["angle"]) == before
        assert [d.name for d in character.cell_of(copied.nodes["Drawing"]).element.drawings] == ["1", "2", "3"]

    def test_a_copy_outlives_its_project(self, app, folder, hero, clipboard, tmp_path):
        copy = clipboard.copy(hero)
        before = character.curve(hero.nodes["Arm"].attributes["angle"])
        pictures = [character.picture(tmp_path, "again", int(pose)).read_bytes() for _, pose in character.POSES]
        app.close()
        with brindle.create(folder.with_name("other")) as other:
            copied, = other.clipboard.paste_new_nodes(copy, other.scene.top)
            assert character.curve(copied.nodes["Arm"].attributes["angle"]) == before
            other.save()
            element = character.cell_of(copied.nodes["Drawing"]).element
            assert [pathlib.Path(drawing.path).read_bytes() for drawing in element.drawings] == pictures
            assert "Hero" in [palette.name for palette in other.project.palettes]
        with brindle.open(folder.with_name("other")) as other:
            copied = other.scene.nodes["Top/Hero"]
            assert character.curve(copied.nodes["Arm"].attributes["angle"]) == before
            assert [drawing.file_exists for drawing in character.cell_of(copied.nodes["Drawing"]).element.drawings] == [True] * 3

    def test_a_copy_of_a_copy_object_is_the_same(self, hero, clipboard, new_nodes):
        copy = clipboard.copy(hero)
        again = copy.copy()
        del copy
        assert (str(again), [node.name for node in new_nodes(again)]) == ("CopyObject()", ["Hero_1"])

    def test_a_stretch_of_frames_begins_at_the_first_frame(self, hero, clipboard, new_nodes):
        given = hero.nodes["Arm"].attributes["angle"]
        expected = [round(given.value(frame), 6) for frame in range(5, 21)]
        copied, = new_nodes(clipboard.copy(hero, 5, 16))
        angle = copied.nodes["Arm"].attributes["angle"]
        assert character.curve(angle, 1, 16) == expected, "the ends hold what was shown there"
        assert character.cells(character.cell_of(copied.nodes["Drawing"]), 16) == "1122222233333333"

    def test_frames_come_from_options_too(self, scene, hero, clipboard, new_nodes):
        given = hero.nodes["Arm"].attributes["angle"]
        scene.frame_start = 7
        for options, first, count in (({"start_frame_src": 5, "num_frame_src": 4}, 5, 4),
                                      ({"start_frame_src": 0, "num_frame_src": 4}, 7, 4),
                                      (brindle.CopyOptions({"start_frame_src": 5}), 5, 56)):
            copied, = new_nodes(clipboard.copy(hero, options))
            angle = copied.nodes["Arm"].attributes["angle"]
            assert character.curve(angle, 1, count) == character.curve(given, first, first + count - 1)
        copied, = new_nodes(clipboard.copy(hero, 0, 3))
        assert character.curve(copied.nodes["Arm"].attributes["angle"], 1, 3) == character.curve(given, 7, 9)

    def test_new_nodes_go_into_a_group(self, scene, hero, clipboard, new_nodes):
        inner = scene.nodes.create("GROUP", "Top/Hero/Inner")
        arm, = new_nodes(clipboard.copy(hero.nodes["Arm"]), [hero.nodes["Hand"], "Top/Hero/Inner", hero])
        assert arm.path == "Top/Hero/Inner/Arm", "the first group among the nodes"
        whole, = new_nodes(clipboard.copy(hero), inner)
        assert whole.path == "Top/Hero/Inner/Hero" and len(whole.nodes) == 4

    def test_the_number_of_frames_is_written_into_the_options(self, hero, scene, clipboard):
        options = brindle.PasteOptions({"start_frame_src": 0})
        scene.frame_start = 4
        clipboard.paste_new_nodes(clipboard.copy(hero, 1, 24), scene.top, options)
        assert (options.start_frame_src, options.num_frame_src) == (4, 24)

    def test_nothing_of_a_failed_paste_is_left(self, app, folder, scene, hero, clipboard, refuse):
        copy = clipboard.copy(hero)
        group = scene.nodes.create("GROUP", "Gone")
        scene.nodes.remove(group)
        refuse(NO_NODES, clipboard.paste_new_nodes, copy, group)
        assert sorted(path.name for path in (folder / "elements").iterdir()) == ["Hero"]


class TestFiles:
    """The folder "modelling" of a project, and the folders "scan" of its elements, which a copy may take along."""

    @pytest.fixture
    def files(self, app, folder, hero):
        app.save()
        model, scan = folder / "modelling/arm/arm.obj", folder / "elements/Hero/scan/0001.tif"
        for path in (model, scan):
            path.parent.mkdir(parents=True)
            path.write_bytes(path.name.encode())
        return {str(path.relative_to(folder)): path.read_bytes() for path in (model, scan)}

    @pytest.mark.parametrize("options, model, scan", [
        (None, False, False), (brindle.CopyOptions(), True, True), ({"add_scan_files": False}, True, False),
        ({"add_modelling_dir": False}, False, True)], ids=repr)
    def test_they_go_along_as_the_options_say(self, app, hero, clipboard, files, tmp_path, options, model, scan):
        copies = [clipboard.copy(hero, options), clipboard.copy(hero, 1, 60, options)]
        for copy in copies:
            made = tmp_path / clipboard.create_template(copy, "Hero", tmp_path)
            taken = [name for name in files if (made / name).exists()]
            assert taken == [name for name, goes in zip(files, (model, scan)) if goes]
            assert all((made / name).read_bytes() == files[name] for name in taken)

    def test_a_paste_brings_them_and_its_undo_takes_them_back(self, app, folder, hero, clipboard, files):
        copy = clipboard.copy(hero, brindle.CopyOptions())
        app.close()
        other = folder.with_name("other")
        with brindle.create(other) as app:
            before = character.saved(app, other)
            app.clipboard.paste_new_nodes(copy, "Top")
            after = character.saved(app, other)
            assert {name: after.get(name) for name in files} == files
            app.project.history.undo(1)
            assert character.saved(app, other) == before
            app.project.history.redo(1)
            assert character.saved(app, other) == after
