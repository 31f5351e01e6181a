"""A random program over columns of every kind, checked by the model of the undo list at each step."""

import brindle
from hypothesis import strategies as st
from hypothesis.stateful import rule

from undomodel import NAME, UndoModel, pick

KINDS = ["DRAWING", "SOUND", "3D_PATH", "BEZIER", "EASE", "EXPR", "TIMING", "VELOBASED", "QUATERNION_PATH", "ANNOTATION",
         "FILE_LIBRARY"]
INDEX = st.integers(0, 1000)
FRAME = st.integers(-3, 70)
NUMBER = st.one_of(st.integers(-5, 5).map(float), st.floats(-1e6, 1e6), st.sampled_from([0.0, -0.0, 1e-300]))
SHARE = st.sampled_from([-1.0, -0.25, 0.0, 0.5, 1.0, 2.0])
PLACE = st.lists(NUMBER, min_size=3, max_size=3)
KEYED = (brindle.EaseColumn, brindle.VeloBasedColumn, brindle.Path3DColumn)


class ColumnMachine(UndoModel):
    def make_project(self):
        app = brindle.create(self.folder)
        for name in ("Body", "Arm"):
            app.scene.nodes.create("PEG", name)
        for kind in KINDS:
            app.scene.columns.create(kind, kind)
        app.project.history.clear()
        return app

    def one(self, index, *kinds):
        """A column of one of these classes."""
        columns = self.scene.columns.list()
        return pick([column for column in columns if not kinds or isinstance(column, kinds)], index)

    def at(self, column, frame):
        """The value object at a frame, two of three times at a keyframe."""
        frames = column.keyframe_list()
        return column[pick(frames, frame) if frame % 3 and frames else frame]

    # The list.

    @rule(kind=st.sampled_from([*KINDS, "NOTHING"]), name=NAME, node=st.booleans())
    def create(self, kind, name, node):
        self.do("Add Column", lambda: self.scene.columns.create(kind, name, {"createNode": node}))

    @rule(indexes=st.lists(INDEX, min_size=1, max_size=2, unique=True))
    def remove(self, indexes):
        names = list({column.name for column in map(self.one, indexes) if column})
        self.do("Removing columns" if len(names) < 2 else "Removing column", lambda: self.scene.columns.remove(names))

    @rule(index=INDEX, name=NAME)
    def rename(self, index, name):
        if column := self.one(index):
            self.do(f"Rename {column.name} to {name}", lambda: setattr(column, "name", name))

    @rule(index=INDEX, which=INDEX)
    def link(self, index, which):
        attribute = pick([each for each in self.attributes() if each.linkable], index)
        if column := self.one(which):
            self.do(f"Linking {attribute.keyword} of {attribute.node().name} to {column.name}",
                    lambda: setattr(attribute, "column", column))

    @rule(index=INDEX)
    def unlink(self, index):
        attribute = pick([each for each in self.attributes() if each.linkable and each.column_name], index)
        if attribute is not None:
            self.do(f"Unlinking {attribute.keyword} of {attribute.node().name}", attribute.unlink)

    # What every column has.

    @rule(index=INDEX, frame=FRAME, text=st.sampled_from(["", "1", "2.5", "a", "-3", "x/y", "\u8155"]))
    def cell(self, index, frame, text):
        if column := self.one(index):
            own = {brindle.BezierColumn: "Set Bezier Point ", brindle.EaseColumn: "Set Ease Point ",
                   brindle.VeloBasedColumn: "Set Velo Based Point "}.get(type(column))
            label = own + column.display_name if own else (
                "Add 3D Path Key Frame" if isinstance(column, brindle.Path3DColumn) else "Set Xsheet Entry")
            self.do(label, lambda: column.set_entry(frame, text))

    @rule(at=FRAME, count=st.integers(0, 9), insert=st.booleans())
    def frames(self, at, count, insert):
        scene = self.scene
        self.do("Set Number of Frames" if insert else "Remove Frames",
                lambda: (scene.frame_insert if insert else scene.frame_remove)(at, count))

    # Columns with keyframes.

    @rule(index=INDEX, frames=st.lists(FRAME, max_size=3), create=st.booleans())
    def keyframes(self, index, frames, create):
        if column := self.one(index, *KEYED):
            verb = "Setting" if create else "Removing"
            label = f"{verb} {len(frames)} keyframes." if len(frames) < 2 else f"{verb} a keyframe."
            self.do(label, lambda: (column.keyframe_create if create else column.keyframe_remove)(frames))

    @rule(index=INDEX, what=st.sampled_from(["start", "stop", "step"]), value=st.integers(-2, 70))
    def hold(self, index, what, value):
        if column := self.one(index, *KEYED):
            label = f"Set {what.capitalize()} {'for' if what == 'step' else 'Frame for'} Hold"
            self.do(label, lambda: setattr(column, f"hold_{what}", value))

    @rule(index=INDEX, factor=st.sampled_from([2.0, -1.0, 0.0, 0.1]), second=st.integers(0, 4))
    def scale(self, index, factor, second):
        if column := self.one(index, *KEYED):
            self.do("", lambda: column.scale(factor, second))

    @rule(index=INDEX, frame=FRAME, numbers=st.lists(NUMBER, min_size=5, max_size=5), const=st.booleans(),
          continuity=st.sampled_from(["CORNER", "STRAIGHT", "smooth"]))
    def ease_point(self, index, frame, numbers, const, continuity):
        if column := self.one(index, brindle.EaseColumn):
            self.do(f"Set Ease Point {column.display_name}",
                    lambda: column.create_point(frame, *numbers, const, continuity))

    @rule(index=INDEX, frame=FRAME, number=NUMBER, what=st.sampled_from([
        ("value", "Set Ease Point"), ("ease_in", "Set ease-in on"), ("ease_out", "Set ease-out on"),
        ("ease_in_angle", "Set angle ease-in on"), ("ease_out_angle", "Set angle ease-out on")]))
    def ease_value(self, index, frame, number, what):
        if column := self.one(index, brindle.EaseColumn):
            self.do(f"{what[1]} {column.display_name}", lambda: setattr(self.at(column, frame), what[0], number))

    @rule(index=INDEX, frame=FRAME, number=NUMBER, point=st.booleans())
    def velocity(self, index, frame, number, point):
        if column := self.one(index, brindle.VeloBasedColumn):
            if point:
                self.do("Create Velocity Point", lambda: column.create_point(frame, number))
            else:
                self.do(f"Set Velo Based Point {column.display_name}",
                        lambda: setattr(self.at(column, frame), "value", number))

    @rule(index=INDEX, frame=FRAME, key=st.booleans())
    def key(self, index, frame, key):
        if column := self.one(index, *KEYED):
            start = {brindle.EaseColumn: ("Remove Ease Point ", "Set Ease Point "),
                     brindle.VeloBasedColumn: ("Remove Ease Point ", "Set Velo-Based Point ")}.get(type(column))
            label = start[key] + column.display_name if start else f"{'Add' if key else 'Remove'} Path Control Point"
            self.do(label, lambda: setattr(self.at(column, frame), "key", key))

    @rule(index=INDEX, frame=FRAME, place=PLACE, parameters=st.lists(SHARE, min_size=3, max_size=3))
    def path_point(self, index, frame, place, parameters):
        if column := self.one(index, brindle.Path3DColumn):
            self.do("Add 3D Path Key Frame", lambda: column.create_point(frame, *place, *parameters))

    @rule(index=INDEX, frame=FRAME, place=PLACE, axis=st.integers(-1, 3))
    def path_value(self, index, frame, place, axis):
        if column := self.one(index, brindle.Path3DColumn):
            value = place if axis < 0 else place[0]
            self.do("Add 3D Path Key Frame", lambda: self.at(column, frame).set_value_axis(value, axis))

    @rule(index=INDEX, frame=FRAME, what=st.sampled_from(["tension", "continuity", "bias", "const_segment"]), value=SHARE)
    def path_parameter(self, index, frame, what, value):
        if column := self.one(index, brindle.Path3DColumn):
            given = value > 0 if what == "const_segment" else value
            self.do(f"Setting {what.replace('_', '-')} on {column.display_name}",
                    lambda: setattr(self.at(column, frame), what, given))

    @rule(index=INDEX, which=st.integers(-1, 9), place=PLACE, remove=st.booleans())
    def control_point(self, index, which, place, remove):
        column = self.one(index, brindle.Path3DColumn)
        if column is None:
            return
        points = column.control_points.list()
        if remove:
            self.do("Remove 3D Path Point", lambda: column.remove_point(which))
        elif points:
            self.do("Set 3D Path Point XYZ", lambda: setattr(pick(points, which), "value", place))

    @rule(index=INDEX, word=st.sampled_from(["TRANSFORM_MATRIX", "BEZIER_FITTER"]))
    def convert(self, index, word):
        if column := self.one(index, brindle.Path3DColumn):
            self.do("Create Separate beziers", lambda: column.convert_to_separate(word))

    # Expressions.

    @rule(index=INDEX, which=INDEX, form=st.sampled_from(["frame * 2", "", "1 +", 'value("{}")', 'value("{}", frame - 1) / 3']))
    def expression(self, index, which, form):
        if column := self.one(index, brindle.ExpressionColumn):
            name = self.one(which).name.replace("\\", "\\\\").replace('"', '\\"')
            self.do("Set Expression Value", lambda: setattr(column, "text", form.format(name)))
