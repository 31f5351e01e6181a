"""A random program that copies and pastes, checked by the model of the undo list at each step."""

import brindle
from hypothesis import strategies as st
from hypothesis.stateful import precondition, rule

import character
from undomodel import UndoModel, pick

INDEX = st.integers(0, 1000)
FRAME = st.integers(-2, 70)
COUNT = st.integers(-1, 70)
OPTIONS = st.fixed_dictionaries({}, optional={
    "use_paste_special": st.just(True),
    **{flag: st.booleans() for flag in (
        "extend_scene", "create_new_column", "add_remove_motion_keyframe", "add_remove_velocity_keyframe",
        "add_remove_angle_keyframe", "add_remove_skew_keyframe", "add_remove_scaling_keyframe",
        "force_beginning_end_keyframe", "offset_keyframes", "replace_expression_columns", "tv_preserve_name",
        "match_node_name", "full_transfer", "camera_name_transfer", "drawing_extend_exposure", "drawing_substitution")},
    "start_frame_src": st.integers(-1, 30), "num_frame_src": st.integers(-1, 70),
    "drawing_action": st.sampled_from(["ADD_OR_REMOVE_EXPOSURE", "UPDATE_PIVOT", "DO_NOTHING"]),
    "drawing_file_mode": st.sampled_from([
        "NEVER_CREATE", "SHARE", "OVERWRITE", "ONLY_CREATE_IF_DOES_NOT_EXIST", "ONLY_CREATE_IF_DOES_NOT_EXIST_AND_MERGE",
        "ALWAYS_CREATE", "ALWAYS_CREATE_AND_VERSION_IF_NECESSARY", "REPLACE_EXISTING"]),
    "color_palette_mode": st.sampled_from([
        "DO_NOTHING", "REUSE_PALETTES", "COPY_AND_OVERWRITE_EXISTING_PALETTES", "COPY_AND_CREATE_NEW_PALETTES",
        "COPY_AND_CREATE_NEW_PALETTES_IN_ELEMENT_FOLDER", "COPY_PALETTE_AND_MERGE_COLOURS",
        "COPY_PALETTE_AND_UPDATE_COLOURS", "LINK_TO_ORIGINAL", "COPY_SCENE_PALETTE_AND_MERGE_COLOURS",
        "COPY_SCENE_PALETTE_AND_UPDATE_COLOURS"]),
    "element_timing_column_mode": st.sampled_from(["ELEMENT_AS_ELEMENT_AND_TIMING_AS_TIMING", "ALL_DRWGS_AS_ELEMENTS"]),
})


class ClipboardMachine(UndoModel):
    def make_project(self):
        """One with two characters."""
        app = brindle.create(self.folder)
        for shade, name in enumerate(("Hero", "Twin")):
            character.make_character(app, self.folder.parent, name, 100 * shade)
        self.copies = [app.clipboard.copy("Top/Hero")]
        self.templates = [self.folder.parent / app.clipboard.create_template(self.copies[0], "Hero", self.folder.parent)]
        return app

    def saved(self):
        return character.saved(self.app, self.folder)

    @property
    def clipboard(self):
        return self.scene.clipboard

    def some(self, indexes):
        return [node for index in indexes if (node := self.node(index)) is not None]

    @rule(indexes=st.lists(INDEX, min_size=1, max_size=3), start=FRAME, count=COUNT)
    def copy(self, indexes, start, count):
        before = self.saved()
        try:
            self.copies = [*self.copies[-3:], self.clipboard.copy(self.some(indexes), start, count)]
        except brindle.Error as error:
            assert str(error) == "Failed to copy from template."
        assert self.saved() == before

    @precondition(lambda self: len(self.scene.nodes) < 60)
    @rule(which=INDEX, into=INDEX, options=OPTIONS)
    def paste_new_nodes(self, which, into, options):
        copy, group = pick(self.copies, which), pick(self.groups(), into)
        self.do("Paste Nodes from Copy Object", lambda: self.clipboard.paste_new_nodes(copy, group, options))

    @rule(which=INDEX, indexes=st.lists(INDEX, min_size=1, max_size=3), start=FRAME, count=COUNT, options=OPTIONS)
    def paste(self, which, indexes, start, count, options):
        copy, nodes = pick(self.copies, which), self.some(indexes)
        self.do("Pasting Script-Object.", lambda: self.clipboard.paste(copy, nodes, start, count, options))

    @rule(which=INDEX)
    def make_template(self, which):
        made = self.clipboard.create_template(pick(self.copies, which), "Made", self.folder.parent)
        assert made.startswith("Made")
        self.templates = [*self.templates[-3:], self.folder.parent / made]

    @precondition(lambda self: len(self.scene.nodes) < 60)
    @rule(which=INDEX, frame=FRAME, into=INDEX, options=OPTIONS)
    def paste_template_into_group(self, which, frame, into, options):
        path, group = pick(self.templates, which), pick(self.groups(), into)
        self.do("Pasting Template.", lambda: self.clipboard.paste_template_into_group(path, frame, group, options))

    @rule(which=INDEX, frame=FRAME, column=INDEX, options=OPTIONS)
    def paste_template(self, which, frame, column, options):
        path, target = pick(self.templates, which), pick(self.scene.columns.list(), column)
        self.do("Pasting Template.", lambda: self.clipboard.paste_template(path, frame, target, options))

    @rule(which=INDEX, frame=FRAME, indexes=st.lists(INDEX, max_size=3), options=OPTIONS,
          kinds=st.tuples(st.booleans(), st.booleans(), st.booleans()))
    def paste_action(self, which, frame, indexes, options, kinds):
        path, nodes, action = pick(self.templates, which), self.some(indexes), brindle.PasteActionOptions(*kinds)
        self.do("Pasting Action-Template.",
                lambda: self.clipboard.paste_action_template(path, frame, nodes, action, options))

    # What else happens to the nodes, the drawings and the palettes.

    @precondition(lambda self: len(self.scene.nodes) > 5)
    @rule(index=INDEX, columns=st.booleans())
    def remove(self, index, columns):
        node = self.node(index)
        self.do("Delete Nodes", lambda: self.scene.nodes.remove(node, columns))

    @rule(index=INDEX, frame=st.integers(1, 60), value=st.integers(-90, 90))
    def set_key(self, index, frame, value):
        if attribute := pick(self.attributes(brindle.DoubleAttribute), index):
            self.do("Set Attribute Value", lambda: attribute.set_value(frame, float(value)))

    @rule(index=INDEX, frame=st.integers(1, 60), name=st.sampled_from(["1", "3", "new"]))
    def expose(self, index, frame, name):
        if column := pick([each for each in self.scene.columns.list() if isinstance(each, brindle.ElementColumn)], index):
            self.do("Setting drawing(s) in drawing column.", lambda: column.set(frame, name))

    @rule(index=INDEX, name=st.sampled_from(["Hero", "Other"]))
    def rename_node(self, index, name):
        if node := self.node(index):
            self.do(f"Rename {node.name} to {name}", lambda: setattr(node, "name", name))

    @rule(index=INDEX, hue=st.integers(0, 359))
    def recolour(self, index, hue):
        if colour := pick([colour for palette in self.app.project.palettes for colour in palette], index):
            self.do("Set Colour Property", lambda: setattr(colour, "colour", brindle.Colour.from_hsl(hue, 50, 50, 255)))
