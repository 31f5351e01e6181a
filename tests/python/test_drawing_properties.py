"""Random edits of a drawing: what is always true of its strokes, contours and joints, and of undo and redo."""

import tempfile

import brindle
from hypothesis import settings
from hypothesis import strategies as st
from hypothesis.stateful import RuleBasedStateMachine, initialize, invariant, precondition, rule, run_state_machine_as_test

import support
from drawings import GREEN, RED, STEP, content, line, new_drawing, square, thick

PLACE = st.tuples(st.integers(-3, 3), st.integers(-3, 3)).map(lambda place: (10.0 * place[0], 10.0 * place[1]))
INDEX = st.integers(0, 100)
COLOUR = st.sampled_from([RED, GREEN, "ERASER", "AUTO"])
SIDE = st.sampled_from(["LEFT", "right"])


def pick(items, index):
    return items[index % len(items)] if items else None


class EditedDrawing(RuleBasedStateMachine):
    """Each rule is one edit: one undo step, or nothing where it changed nothing or failed."""

    @initialize()
    def make(self):
        self.place = tempfile.TemporaryDirectory(dir=support.MEMORY)
        self.folder = f"{self.place.name}/project"
        self.app = brindle.create(self.folder)
        self.drawing = new_drawing(self.app)
        self.history = self.app.project.history
        with brindle.DrawingAccess.editing(self.drawing["line"]) as access:
            layer = access.vector_layer_create("PEN_LAYER")
            access.stroke_create(square(), layer, thick(), "LEFT", GREEN)
        self.history.clear()
        self.states = [self.state()]

    def teardown(self):
        self.app.close()
        self.place.cleanup()

    def state(self):
        return support.saved_content(self.app, self.folder)

    def art(self, index):
        return self.drawing[index % 4]

    def layers(self):
        return [layer for art in self.drawing for layer in art]

    def strokes(self):
        return [stroke for layer in self.layers() for stroke in layer.strokes]

    def edit(self, call):
        """Runs an edit, and says what it did to the undo list."""
        steps = self.history.size_executed
        try:
            call()
        except brindle.Error:
            assert self.history.size_executed == steps
        state = self.state()
        if self.history.size_executed == steps:
            assert state == self.states[steps]
        else:
            assert self.history.list()[steps:steps + 1] == [STEP] and self.history.size_executed == steps + 1
            self.states[steps + 1:] = [state]

    def in_session(self, call):
        art = self.art(0)
        with brindle.DrawingAccess.editing(art) as access:
            call(access)

    @rule(index=INDEX, type_=st.sampled_from(["PEN_LAYER", "PAINT_LAYER", "BRUSH_LAYER"]))
    def add_layer(self, index, type_):
        self.edit(lambda: self.art(index).add(type_))

    @rule(index=INDEX, places=st.lists(PLACE, min_size=2, max_size=4), colour=COLOUR, side=SIDE)
    def add_line(self, index, places, colour, side):
        if layer := pick(self.layers(), index):
            self.edit(lambda: self.in_session(
                lambda access: access.stroke_create(line(*places), layer, thick(), side, colour)))

    @rule(index=INDEX, place=PLACE, size=st.sampled_from([10, 20, 30]), colour=COLOUR)
    def add_square(self, index, place, size, colour):
        if layer := pick(self.layers(), index):
            self.edit(lambda: self.in_session(
                lambda access: access.stroke_create(square(size, *place), layer, thick(), "LEFT", colour)))

    @rule(index=INDEX, to=INDEX, what=st.sampled_from(["copy", "move", "erase"]))
    def stroke(self, index, to, what):
        stroke, layer = pick(self.strokes(), index), pick(self.layers(), to)
        if stroke:
            arguments = (stroke,) if what == "erase" else (stroke, layer)
            self.edit(lambda: self.in_session(lambda access: getattr(access, f"stroke_{what}")(*arguments)))

    @rule(index=INDEX, colour=COLOUR, side=SIDE)
    def paint(self, index, colour, side):
        if stroke := pick(self.strokes(), index):
            self.edit(lambda: self.in_session(lambda access: access.stroke_set_color(stroke, colour, side)))

    @rule(index=INDEX, colour=COLOUR, outside=st.booleans())
    def paint_contour(self, index, colour, outside):
        if stroke := pick(self.strokes(), index):
            self.edit(lambda: self.in_session(
                lambda access: access.contour_set_colour(stroke.contour_left, colour, outside)))

    @rule(index=INDEX, places=st.lists(PLACE, min_size=2, max_size=3))
    def bend(self, index, places):
        if stroke := pick(self.strokes(), index):
            self.edit(lambda: setattr(stroke, "bezier_path", line(*places)))

    @rule(index=INDEX, to=INDEX, what=st.sampled_from(["move", "erase", "copy"]))
    def layer(self, index, to, what):
        layer, target = pick(self.layers(), index), pick(self.layers(), to)
        if layer:
            arguments = (layer,) if what == "erase" else (layer, target)
            self.edit(lambda: self.in_session(lambda access: getattr(access, f"vector_layer_{what}")(*arguments)))

    @rule(index=INDEX, to=INDEX, what=st.sampled_from(["set", "add", "clear", "transform"]))
    def whole_art_layer(self, index, to, what):
        if len(self.strokes()) < 12:
            art = self.art(index)
            self.edit({"set": lambda: self.drawing.set(index % 4, self.art(to)), "add": lambda: art.add(self.art(to)),
                       "clear": art.clear, "transform": lambda: art.translate((10, 0))}[what])

    @rule(index=INDEX)
    def fail_in_the_middle(self, index):
        """An exception takes all of a block back."""
        def call():
            with brindle.DrawingAccess.editing(self.art(index)) as access:
                layer = access.vector_layer_create("PEN_LAYER")
                access.stroke_create(square(), layer, thick(), "LEFT", GREEN)
                if strokes := self.strokes():
                    access.stroke_erase(strokes)
                raise brindle.Error("the block fails")
        before = self.history.size_unexecuted
        self.edit(call)
        assert self.history.size_unexecuted == before

    @precondition(lambda self: self.history.size_executed)
    @rule(count=st.integers(1, 20))
    def undo_and_redo(self, count):
        count = min(count, self.history.size_executed)
        done = self.history.size_executed
        self.history.undo(count)
        assert self.state() == self.states[done - count]
        self.history.redo(count)
        assert self.state() == self.states[done]

    @precondition(lambda self: self.history.size_executed)
    @rule()
    def undo(self):
        self.history.undo()
        assert self.state() == self.states[self.history.size_executed]

    @invariant()
    def sides_are_in_one_contour_each(self):
        for layer in self.layers():
            named = {}
            for contour in layer.contours:
                for stroke in contour.strokes:
                    named.setdefault(stroke.unique_id, []).append(contour.unique_id)
            for stroke in layer.strokes:
                if stroke.degenerate:
                    assert stroke.unique_id not in named and stroke.contour_left is None
                    continue
                sides = [stroke.contour_left, stroke.contour_right]
                assert sorted({side.unique_id for side in sides}) == sorted(set(named[stroke.unique_id]))
                for side in sides:
                    assert stroke in side.strokes and side.relationship(side) == "Same"

    @invariant()
    def joints_hold_each_end_once(self):
        for layer in self.layers():
            ends = 2 * sum(not stroke.degenerate for stroke in layer.strokes)
            assert sum(joint.degree for joint in layer.joints) == ends
            for joint in layer.joints:
                around = [joint.left()]
                while len(around) < joint.degree:
                    around.append(around[-1].left())
                assert around[-1].stroke() == joint.stroke() and around[-1].extremity == joint.extremity
                assert all(end.right().left().position == end.position == joint.position for end in around)

    @invariant()
    def contours_know_their_places(self):
        for layer in self.layers():
            for contour in layer.contours:
                parent = contour.contour_parent()
                assert contour.top_level == (parent is None)
                if parent:
                    assert contour.unique_id in [child.unique_id for child in parent.contours_children]
                    assert parent.relationship(contour) == "Contains"
                    assert contour.relationship(parent) == "Contained_In"

    @invariant()
    def boxes_hold_their_strokes(self):
        for layer in self.layers():
            whole = layer.bounding_box
            for stroke in layer.strokes:
                box = stroke.bounding_box
                assert whole.x <= box.x and whole.y <= box.y
                assert box.x + box.width <= whole.x + whole.width + 1e-9
                assert box.y + box.height <= whole.y + whole.height + 1e-9


def test_random_edits_undo_and_redo():
    run_state_machine_as_test(EditedDrawing, settings=settings(stateful_step_count=30))


def test_everything_undone_is_the_project_as_it_was(app, folder, history):
    drawing = new_drawing(app)
    before = support.saved(app, folder)
    with brindle.DrawingAccess.editing(drawing["line"]) as access:
        access.vector_layers_create({"strokes": [{"path": square(size), "type": "PEN_LAYER"} for size in range(1, 9)]})
    drawing["colour"] = drawing["line"]
    drawing["line"].translate((3, 4))
    drawing["overlay"].add(list(drawing["line"]))
    middle = content(drawing)
    history.undo(4)
    assert support.saved(app, folder) == before and drawing.empty
    history.redo(4)
    assert content(drawing) == middle
    history.undo(4)
    assert support.saved(app, folder) == before
