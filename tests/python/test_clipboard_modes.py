"""What each option of a paste does: to drawings, palettes, columns and keyframes, as a script sees it."""

import pathlib

import brindle
import pytest

import character
import support

SPECIAL = {"use_paste_special": True}
# The pictures of the source and of the target, by their drawings' names.
GIVEN, HAD = 0, 100


@pytest.fixture
def hero(app, tmp_path):
    """The source: at frame 13 it shows a drawing that the target has not."""
    hero = character.make_character(app, tmp_path, "Hero", GIVEN)
    column = app.scene.columns["Hero"]
    column.element.drawings.create("4").import_file(character.picture(tmp_path, "Hero-4", GIVEN + 4))
    column[13] = "4"
    return hero


@pytest.fixture
def twin(app, hero, tmp_path):
    """The target, with parts of the same names and drawings of its own."""
    twin = character.make_character(app, tmp_path, "Twin", HAD)
    app.project.history.clear()
    return twin


@pytest.fixture
def over(app, folder, hero, twin):
    """Pastes the parts of the source over those of the target, and checks that this is undone and redone exactly."""

    def run(*, at=1, count=0, first=0, frames=0, plain=False, **options):
        copy = app.clipboard.copy(list(hero.nodes), first, frames)
        history = app.project.history
        history.clear()
        before = character.saved(app, folder)
        app.clipboard.paste(copy, list(twin.nodes), at, count, options if plain else {**SPECIAL, **options})
        assert history.list() == ["Pasting Script-Object."]
        after = character.saved(app, folder)
        for _ in range(2):
            history.undo(1)
            assert character.saved(app, folder) == before
            history.redo(1)
            assert character.saved(app, folder) == after

    return run


def grey(shade, tmp_path):
    return character.picture(tmp_path, "shade", shade).read_bytes()


@pytest.fixture
def pictures(app, tmp_path):
    """The shades of the drawings of an element at their present versions, by name."""
    shades = {grey(shade, tmp_path): shade for shade in range(256)}

    def read(element):
        app.save()
        return {drawing.name: shades[pathlib.Path(drawing.path).read_bytes()] for drawing in element.drawings}

    return read


class TestDrawings:
    OWN = {"1": HAD + 1, "2": HAD + 2, "3": HAD + 3}

    @pytest.mark.parametrize("mode, pictures_after, shown", [
        ("ALWAYS_CREATE", {**OWN, "1_1": GIVEN + 1, "2_1": GIVEN + 2, "4": GIVEN + 4}, ("1_1", "2_1", "4")),
        ("ALWAYS_CREATE_AND_VERSION_IF_NECESSARY",
         {"1": GIVEN + 1, "2": GIVEN + 2, "3": HAD + 3, "4": GIVEN + 4}, ("1", "2", "4")),
        ("ONLY_CREATE_IF_DOES_NOT_EXIST", {**OWN, "4": GIVEN + 4}, ("1", "2", "4")),
        ("ONLY_CREATE_IF_DOES_NOT_EXIST_AND_MERGE", {**OWN, "4": GIVEN + 4}, ("1", "2", "4")),
        ("OVERWRITE", {"1": GIVEN + 1, "2": GIVEN + 2, "3": HAD + 3, "4": GIVEN + 4}, ("1", "2", "4")),
        ("REPLACE_EXISTING", {"1": GIVEN + 1, "2": GIVEN + 2, "3": HAD + 3, "4": GIVEN + 4}, ("1", "2", "4")),
        ("NEVER_CREATE", OWN, ("1", "2", "")),
        ("SHARE", {**OWN, "4": GIVEN + 4}, ("1", "2", "4")),
    ])
    def test_over_an_element_that_has_some(self, app, over, pictures, mode, pictures_after, shown):
        over(drawing_file_mode=mode, full_transfer=False)
        column = app.scene.columns["Twin"]
        assert column.element.name == "Twin"
        assert tuple(column.get_entry(frame) for frame in (1, 7, 13)) == shown
        assert pictures(column.element) == pictures_after

    def test_a_new_version_leaves_the_old_one_beside_it(self, app, over, twin, pictures):
        element = app.scene.columns["Twin"].element
        over(drawing_file_mode="ALWAYS_CREATE_AND_VERSION_IF_NECESSARY")
        assert [drawing.version for drawing in element.drawings][:2] == [2, 2]
        element.drawings["1"].version = 1
        assert pictures(element)["1"] == HAD + 1

    def test_versions_that_are_missing_are_merged(self, app, hero, over, twin, pictures, tmp_path):
        given = app.scene.columns["Hero"].element.drawings["1"]
        given.version = 2
        given.import_file(character.picture(tmp_path, "second", 50))
        over(drawing_file_mode="ONLY_CREATE_IF_DOES_NOT_EXIST_AND_MERGE")
        element = app.scene.columns["Twin"].element
        assert pictures(element)["1"] == HAD + 1
        element.drawings["1"].version = 2
        assert pictures(element)["1"] == 50

    def test_the_preference_speaks_for_a_plain_paste(self, app, over):
        preferences = app.preferences
        element = app.scene.columns["Twin"].element
        over(plain=True)
        assert [drawing.name for drawing in element.drawings] == ["1", "2", "3", "4"]
        preferences["LIBRARY_PASTE_CREATE_NEW_DRAWING"] = True
        try:
            over(plain=True, drawing_file_mode="NEVER_CREATE")
        finally:
            preferences["LIBRARY_PASTE_CREATE_NEW_DRAWING"] = False
        assert "1_1" in [drawing.name for drawing in element.drawings]

    @pytest.mark.parametrize("action, cells, pivot", [("DO_NOTHING", "111111222222333333", 2.5),
                                                      ("ADD_OR_REMOVE_EXPOSURE", "111111222222444444", 2.5)])
    def test_exposures_stay_where_the_action_says_so(self, app, over, action, cells, pivot, twin):
        over(drawing_action=action, drawing_file_mode="ONLY_CREATE_IF_DOES_NOT_EXIST")
        assert character.cells(app.scene.columns["Twin"], 18) == cells
        assert twin.nodes["Arm"].attributes["angle"].value(12) == 60.0

    def test_only_the_pivots_of_drawings_are_updated(self, app, hero, over, twin):
        hero.nodes["Drawing"].attributes["pivot.x"].set_localvalue(4.0)
        hero.nodes["Drawing"].attributes["opacity"].set_localvalue(50.0)
        over(drawing_action="UPDATE_PIVOT")
        attributes = twin.nodes["Drawing"].attributes
        assert attributes["pivot.x"].localvalue() == 4.0
        assert attributes["opacity"].localvalue() != 50.0
        assert character.cells(app.scene.columns["Twin"], 18) == "1" * 6 + "2" * 6 + "3" * 6

    def test_the_last_drawing_holds_on_unless_it_is_not_extended(self, app, over):
        over(first=1, frames=14, count=14, drawing_file_mode="ONLY_CREATE_IF_DOES_NOT_EXIST")
        assert character.cells(app.scene.columns["Twin"]) == "1" * 6 + "2" * 6 + "4" * 48
        app.project.history.undo(1)
        over(first=1, frames=14, count=14, drawing_file_mode="ONLY_CREATE_IF_DOES_NOT_EXIST", drawing_extend_exposure=False)
        assert character.cells(app.scene.columns["Twin"]) == "1" * 6 + "2" * 6 + "4" * 2 + "3" * 46

    def test_without_substitution_only_empty_cells_are_filled(self, app, over, twin):
        app.scene.columns["Twin"].clear(9, 6)
        assert character.cells(app.scene.columns["Twin"], 18) == "11111122......3333"
        over(drawing_file_mode="ONLY_CREATE_IF_DOES_NOT_EXIST", drawing_substitution=False)
        assert character.cells(app.scene.columns["Twin"], 18) == "111111222222443333"

    @pytest.mark.parametrize("mode", ["ALWAYS_CREATE", "ONLY_CREATE_IF_DOES_NOT_EXIST", "OVERWRITE", "REPLACE_EXISTING",
                                      "ALWAYS_CREATE_AND_VERSION_IF_NECESSARY",
                                      "ONLY_CREATE_IF_DOES_NOT_EXIST_AND_MERGE"])
    def test_new_nodes_get_an_element_of_their_own(self, app, hero, pictures, mode):
        copied, = app.clipboard.paste_new_nodes(app.clipboard.copy(hero), "Top", {**SPECIAL, "drawing_file_mode": mode})
        element = character.cell_of(copied.nodes["Drawing"]).element
        assert element.name != "Hero"
        assert pictures(element) == {"1": GIVEN + 1, "2": GIVEN + 2, "3": GIVEN + 3, "4": GIVEN + 4}

    @pytest.mark.parametrize("mode", ["SHARE", "NEVER_CREATE"])
    def test_new_nodes_show_the_element_that_is_there(self, app, hero, mode):
        before = len(app.elements)
        copied, = app.clipboard.paste_new_nodes(app.clipboard.copy(hero), "Top", {**SPECIAL, "drawing_file_mode": mode})
        column = character.cell_of(copied.nodes["Drawing"])
        assert (column.element.name, len(app.elements)) == ("Hero", before)
        assert character.cells(column) == character.cells(app.scene.columns["Hero"])

    def test_drawings_that_are_not_shown_stay_behind_without_a_full_transfer(self, app, hero, pictures):
        copied, = app.clipboard.paste_new_nodes(app.clipboard.copy(hero), "Top", {**SPECIAL, "full_transfer": False})
        assert set(pictures(character.cell_of(copied.nodes["Drawing"]).element)) == {"1", "2", "4"}

    def test_timings_become_drawing_columns(self, app, scene, hero):
        node = hero.nodes["Drawing"]
        timing = scene.columns.create("TIMING", "Mouth")
        timing[1], timing[5] = "1", "2"
        node.attributes["drawing.timing"].link(timing)
        node.attributes["drawing.element_mode"].set_localvalue(False)
        copy = app.clipboard.copy(hero)
        for mode, type_ in (("ELEMENT_AS_ELEMENT_AND_TIMING_AS_TIMING", "TIMING"), ("ALL_DRWGS_AS_ELEMENTS", "DRAWING")):
            copied, = app.clipboard.paste_new_nodes(copy, "Top", {**SPECIAL, "element_timing_column_mode": mode})
            column = character.cell_of(copied.nodes["Drawing"])
            assert column.type == type_
            assert character.cells(column, 8) == "11112222"


class TestPalettes:
    """The copy has the palette "Hero" with Skin and Hair; the project that it is pasted in may have it, changed."""

    @pytest.fixture
    def copy(self, app, scene, hero):
        app.project.palettes[0].create_solid_colour("Hair", [10, 20, 30])
        return app.clipboard.copy(hero)

    @pytest.fixture
    def elsewhere(self, app, copy, folder):
        """Another project, which has none of it."""
        app.save()
        app.close()
        with brindle.create(folder.with_name("other")) as other:
            yield other

    @pytest.fixture
    def present(self, elsewhere, copy):
        """The same, which has the palette without Hair and with another Skin."""
        elsewhere.clipboard.paste_new_nodes(copy, "Top")
        palette = elsewhere.project.palettes[0]
        palette[0].colour = [1, 2, 3]
        palette.remove(palette[1])
        return elsewhere

    @staticmethod
    def paste(app, copy, mode):
        history = app.project.history
        history.clear()
        return app.clipboard.paste_new_nodes(copy, "Top", {**SPECIAL, "color_palette_mode": mode})

    @staticmethod
    def told(palettes):
        return [(palette.name, [(colour.name, [colour.r, colour.g, colour.b]) for colour in palette])
                for palette in palettes]

    WHOLE = ("Hero", [("Skin", [200, 150, 100]), ("Hair", [10, 20, 30])])
    CHANGED = ("Hero", [("Skin", [1, 2, 3])])

    @pytest.mark.parametrize("mode, palettes", [
        ("DO_NOTHING", [CHANGED]),
        ("REUSE_PALETTES", [CHANGED]),
        ("LINK_TO_ORIGINAL", [CHANGED]),
        ("COPY_AND_OVERWRITE_EXISTING_PALETTES", [WHOLE]),
        ("COPY_AND_CREATE_NEW_PALETTES", [CHANGED, WHOLE]),
        ("COPY_AND_CREATE_NEW_PALETTES_IN_ELEMENT_FOLDER", [CHANGED]),
        ("COPY_PALETTE_AND_MERGE_COLOURS", [("Hero", [("Skin", [1, 2, 3]), ("Hair", [10, 20, 30])])]),
        ("COPY_PALETTE_AND_UPDATE_COLOURS", [WHOLE]),
        ("COPY_SCENE_PALETTE_AND_MERGE_COLOURS", [("Hero", [("Skin", [1, 2, 3]), ("Hair", [10, 20, 30])])]),
        ("COPY_SCENE_PALETTE_AND_UPDATE_COLOURS", [WHOLE]),
    ])
    def test_where_the_project_has_it(self, present, copy, mode, palettes):
        before = self.told(present.project.palettes)
        self.paste(present, copy, mode)
        assert self.told(present.project.palettes) == palettes
        present.project.history.undo(1)
        assert self.told(present.project.palettes) == before == [self.CHANGED]
        present.project.history.redo(1)
        assert self.told(present.project.palettes) == palettes

    @pytest.mark.parametrize("mode", ["REUSE_PALETTES", "COPY_AND_OVERWRITE_EXISTING_PALETTES",
                                      "COPY_AND_CREATE_NEW_PALETTES", "COPY_PALETTE_AND_MERGE_COLOURS",
                                      "COPY_PALETTE_AND_UPDATE_COLOURS", "COPY_SCENE_PALETTE_AND_MERGE_COLOURS",
                                      "COPY_SCENE_PALETTE_AND_UPDATE_COLOURS"])
    def test_where_the_project_lacks_it(self, elsewhere, copy, folder, mode):
        self.paste(elsewhere, copy, mode)
        assert self.told(elsewhere.project.palettes) == [self.WHOLE]
        elsewhere.save()
        elsewhere.close()
        with brindle.open(folder.with_name("other")) as again:
            assert self.told(again.project.palettes) == [self.WHOLE]

    def test_none_is_pasted_where_none_is_to_be(self, elsewhere, copy):
        self.paste(elsewhere, copy, "DO_NOTHING")
        assert len(elsewhere.project.palettes) == 0

    def test_a_link_leads_to_the_original_file(self, elsewhere, copy, folder):
        self.paste(elsewhere, copy, "LINK_TO_ORIGINAL")
        palette = elsewhere.project.palettes[0]
        assert pathlib.Path(palette.path).is_relative_to(folder)
        assert self.told([palette]) == [self.WHOLE]
        elsewhere.project.history.undo(1)
        assert len(elsewhere.project.palettes) == 0
        assert list(folder.rglob("*.plt")), "the original stays"

    def test_new_ones_keep_the_ids_of_their_colours(self, present, copy):
        ids = [colour.id for colour in present.project.palettes[0]]
        self.paste(present, copy, "COPY_AND_CREATE_NEW_PALETTES")
        old, new = present.project.palettes
        assert new.id != old.id and [colour.id for colour in new][:1] == ids

    def test_an_undo_takes_the_lists_of_new_elements_back(self, present, copy, folder):
        other = folder.with_name("other")
        before = character.saved(present, other)
        self.paste(present, copy, "COPY_AND_CREATE_NEW_PALETTES_IN_ELEMENT_FOLDER")
        after = character.saved(present, other)
        for _ in range(2):
            present.project.history.undo(1)
            assert character.saved(present, other) == before
            present.project.history.redo(1)
            assert character.saved(present, other) == after

    def test_new_ones_lie_in_the_folders_of_new_elements(self, present, copy):
        copied, = self.paste(present, copy, "COPY_AND_CREATE_NEW_PALETTES_IN_ELEMENT_FOLDER")
        element = character.cell_of(copied.nodes["Drawing"]).element
        lists = present.project.palette_lists
        assert self.told(lists.element_palette_list(element)) == [self.WHOLE]


class TestKeyframes:
    @pytest.mark.parametrize("flag, keyword", [
        ("add_remove_motion_keyframe", "position.x"), ("add_remove_angle_keyframe", "angle"),
        ("add_remove_skew_keyframe", "skew"), ("add_remove_scaling_keyframe", "scale.y")])
    def test_each_flag_keeps_its_attributes_out(self, hero, twin, over, flag, keyword):
        for number, name in enumerate(("position.x", "angle", "skew", "scale.y")):
            hero.nodes["Arm"].attributes[name].set_value(20, 30.0 + number)
            twin.nodes["Arm"].attributes[name].set_value(20, 7.0)
        over(**{flag: False})
        values = {name: twin.nodes["Arm"].attributes[name].value(20) for name in ("position.x", "angle", "skew", "scale.y")}
        assert values == {"position.x": 30.0, "angle": 31.0, "skew": 32.0, "scale.y": 33.0, keyword: 7.0}

    def test_velocities_are_kept_out(self, app, scene, hero, twin, over):
        column = scene.columns.create("VELOBASED", "Speed")
        column.create_point(1, 0)
        column.create_point(20, 8)
        hero.nodes["Arm"].attributes["skew"].link(column)
        over(add_remove_velocity_keyframe=False)
        assert twin.nodes["Arm"].attributes["skew"].column is None
        over()
        assert twin.nodes["Arm"].attributes["skew"].column.type == "VELOBASED"

    def test_frames_come_at_a_frame_and_the_ends_hold(self, hero, twin, over):
        given, taken = (node.nodes["Arm"].attributes["angle"] for node in (hero, twin))
        taken.set_value(1, 5.0)
        taken.set_value(60, 45.0)
        before = character.curve(taken)
        over(first=5, frames=10, at=31, count=10)
        after = character.curve(taken)
        assert after[30:40] == character.curve(given, 5, 14)
        assert after[:30] == before[:30] and after[40:] == before[40:], "what lies outside shows what it showed"

    def test_without_keys_at_the_ends_there_are_those_of_the_copy_alone(self, hero, twin, over):
        taken = twin.nodes["Arm"].attributes["angle"]
        over(at=31, count=24, frames=24, force_beginning_end_keyframe=False)
        assert taken.column.keyframe_list() == [1, 12, 24, 31, 42, 54]

    def test_an_offset_goes_on_from_what_is_there(self, hero, twin, over):
        given, taken = (node.nodes["Arm"].attributes["angle"] for node in (hero, twin))
        for frame, _ in character.ANGLES:
            taken.set_value(frame, 100.0)
        over(frames=24, count=24, offset_keyframes=True)
        assert character.curve(taken, 1, 24) == [round(value + 100, 6) for value in character.curve(given, 1, 24)]

    def test_a_column_that_computes_its_values_gives_way_or_stays(self, scene, hero, twin, over):
        taken = twin.nodes["Arm"].attributes["angle"]
        expression = scene.columns.create("EXPR", "Formula")
        expression.text = "frame * 2"
        taken.link(expression)
        over(replace_expression_columns=False)
        assert taken.column.name == "Formula"
        over()
        assert taken.column.type == "BEZIER" and taken.value(12) == 60.0

    def test_new_columns_take_the_place_of_those_that_are_there(self, scene, hero, twin, over):
        taken = twin.nodes["Arm"].attributes["angle"]
        before = taken.column
        over(create_new_column=True)
        assert taken.column.name not in (before.name, "Hero-Angle")
        assert before.name in [column.name for column in scene.columns]
        assert taken.value(12) == 60.0

    def test_columns_keep_their_names_where_that_is_asked_for(self, scene, hero, twin, folder, app):
        hero.nodes["Arm"].attributes["skew"].set_value(5, 2.0)
        anonymous = hero.nodes["Arm"].attributes["skew"].column.name
        copy = app.clipboard.copy(hero)
        app.save()
        app.close()
        with brindle.create(folder.with_name("other")) as other:
            for keeps in (True, False):
                copied, = other.clipboard.paste_new_nodes(copy, "Top", {**SPECIAL, "tv_preserve_name": keeps})
                name = copied.nodes["Arm"].attributes["skew"].column.name
                assert (name == anonymous) == keeps
                other.project.history.undo(1)

    def test_nodes_are_paired_by_their_types_where_names_do_not_count(self, hero, twin, app):
        other = twin.nodes["Hand"].attributes["angle"]
        copy = app.clipboard.copy(hero.nodes["Arm"])
        app.clipboard.paste(copy, [twin.nodes["Hand"]], 1, 0, {**SPECIAL, "match_node_name": False})
        assert other.value(12) == 60.0
        app.clipboard.paste(app.clipboard.copy(hero.nodes["Hand"]), list(twin.nodes), 1, 0, SPECIAL)
        assert other.value(12) == 0.0, "Hand has no keys of its own"
        assert twin.nodes["Arm"].attributes["angle"].value(12) == 60.0

    def test_local_values_go_along_with_a_full_transfer(self, hero, twin, over):
        strength, pivot = (twin.nodes["Hand"].attributes[name] for name in ("Strength", "pivot.x"))
        for full, expected in ((False, (0.0, 0.0)), (True, (0.75, 2.5))):
            strength.set_localvalue(0.0)
            pivot.set_localvalue(0.0)
            over(full_transfer=full)
            assert (strength.localvalue(), pivot.localvalue()) == expected


class TestScene:
    def test_what_lies_beyond_the_end_is_left_out_unless_the_scene_is_extended(self, scene, twin, over):
        taken = twin.nodes["Arm"].attributes["angle"]
        over(at=50, frames=24, count=24)
        assert scene.frame_count == 60
        over(at=50, frames=24, count=24, extend_scene=True)
        assert scene.frame_count == 73
        assert [round(taken.value(frame), 6) for frame in (50, 61, 73)] == [0, 60, -20]

    def test_a_paste_beyond_the_end_is_refused(self, app, folder, hero, twin):
        copy = app.clipboard.copy(list(hero.nodes))
        before = character.saved(app, folder), app.project.history.list()
        for at, count in ((61, 5), (2**31 - 1, 1), (-3, 5), (1, -5)):
            message = support.message_of(app.clipboard.paste, copy, list(twin.nodes), at, count)
            assert message == "Failed to paste."
        assert (character.saved(app, folder), app.project.history.list()) == before

    def test_nodes_of_another_scene_take_nothing(self, app, folder, hero):
        app.save()
        app.close()
        character.add_scene(folder, "Other")
        with brindle.open(folder) as app:
            copy = app.clipboard.copy("Top/Hero")
            other = app.scenes[1]
            arm = other.nodes.create("PEG", "Arm")
            before = character.saved(app, folder), app.project.history.list()
            assert support.message_of(app.clipboard.paste, copy, arm) == "Failed to paste."
            assert support.message_of(app.clipboard.paste_new_nodes, copy, other.top) == "Failed to paste."
            assert support.message_of(app.clipboard.copy, arm) == "Failed to copy from template."
            assert (character.saved(app, folder), app.project.history.list()) == before
            other.clipboard.paste_new_nodes(copy, "Top")
            assert [node.path for node in other.nodes if node.type == "GROUP"] == ["Top/Hero"]
            assert len(app.scene.nodes) == 6

    def test_nothing_that_fits_is_nothing_pasted(self, app, scene, folder, hero):
        card = scene.nodes.create("COLOR_CARD", "Card")
        copy = app.clipboard.copy(hero)
        before = character.saved(app, folder), app.project.history.list()
        assert support.message_of(app.clipboard.paste, copy, card) == "Failed to paste."
        assert (character.saved(app, folder), app.project.history.list()) == before

    def test_the_camera_of_a_template_becomes_the_default_one(self, app, scene, hero, tmp_path):
        camera = scene.nodes.create("CAMERA", "Film")
        scene.camera = camera
        clipboard = app.clipboard
        made = tmp_path / clipboard.create_template(clipboard.copy([hero, camera]), "Rig", tmp_path, True)
        scene.camera = None
        for transfers, expected in ((False, "NONE"), (True, "Top/Film_1")):
            clipboard.paste_template_into_group(made, 1, "Top", {**SPECIAL, "camera_name_transfer": transfers})
            assert scene.camera_path == expected
            app.project.history.undo(1)

    @pytest.mark.parametrize("options, taken", [
        (None, {"Soft", "Mix", "Body", "Arm"}), ({"effects": False}, {"Mix", "Body", "Arm"}),
        ({"composites": False}, {"Soft", "Body", "Arm"}), ({"groups": False}, {"Soft", "Mix", "Arm"}),
        (brindle.PasteActionOptions(False, False, False), {"Arm"})], ids=repr)
    def test_an_action_goes_to_the_kinds_of_nodes_that_its_options_say(self, app, scene, tmp_path, options, taken):
        nodes = [scene.nodes.create(*row) for row in (("BLUR", "Soft"), ("COMPOSITE", "Mix"), ("GROUP", "Body"),
                                                      ("PEG", "Arm"))]
        for node in nodes:
            node.attributes.create_dynamic_attr("Mark", "INT")
            node.attributes["Mark"].set_localvalue(5)
        clipboard = app.clipboard
        made = tmp_path / clipboard.create_template(clipboard.copy(nodes), "Action", tmp_path)
        for node in nodes:
            node.attributes["Mark"].set_localvalue(0)
        clipboard.paste_action_template(made, 1, nodes, options)
        assert {node.name for node in nodes if node.attributes["Mark"].localvalue() == 5} == taken
