"""A random program over elements, their drawings and files, checked by the model of the undo list at each step."""

import brindle
from hypothesis import strategies as st
from hypothesis.stateful import rule

import support
from drawings import GREEN, RED, STEP, square, thick
from undomodel import NAME, UndoModel, pick

INDEX = st.integers(0, 1000)
SOME_NAMES = st.one_of(NAME, st.lists(st.sampled_from(["1", "2", "a", "A", "x/y", "x_y", "ä", "..", "", "b\n"]), max_size=4))
FORM = st.sampled_from([("PNG", ""), ("TIFF", "BVG"), ("PNG", "PNT"), ("nope", "")])


def new_layer(content):
    """A layer with a square, as one undo step."""
    with brindle.DrawingAccess.editing(content["line"]) as access:
        access.vector_layers_create({"strokes": [{"path": square(), "line_style": thick(), "colour_left": GREEN}]})


class ElementMachine(UndoModel):
    def make_project(self):
        app = brindle.create(self.folder)
        self.pictures = [self.folder.with_name(f"{n}.png") for n in range(3)]
        for n, picture in enumerate(self.pictures):
            picture.write_bytes(support.png(n))
        drawings = app.elements.create("Arm", vector_type="").drawings
        for name, picture in zip("12", self.pictures):
            drawings.create(name).import_file(picture)
        for drawing in app.elements.create("Line").drawings.create(["1", "A", "a"]):
            if drawing.name != "a":
                new_layer(drawing.initialize())
        app.project.history.clear()
        return app

    def element(self, index):
        return pick(self.app.elements, index)

    def drawing(self, index):
        return pick([drawing for element in self.app.elements for drawing in element.drawings], index)

    # Elements.

    @rule(names=SOME_NAMES, form=FORM, scan=st.sampled_from(["color", "BW", "nope"]), chart=st.sampled_from([12, 0, 7.5]))
    def create_elements(self, names, form, scan, chart):
        several = isinstance(names, list) and len(set(names)) > 1
        self.do("Creating element." if several else "Creating elements.",
                lambda: self.app.elements.create(names, scan, chart, *form))

    @rule(indexes=st.lists(INDEX, min_size=1, max_size=2), files=st.booleans())
    def remove_elements(self, indexes, files):
        elements = [element for element in map(self.element, indexes) if element]
        self.do("", lambda: self.app.elements.remove(elements, files))

    @rule(index=INDEX, name=NAME)
    def rename_element(self, index, name):
        if element := self.element(index):
            self.do("Renaming Element", lambda: setattr(element, "name", name))

    @rule(index=INDEX, field=st.sampled_from([
        ("field_chart", 16.0, "field-chart."), ("field_chart", -1.0, "field-chart."),
        ("pixmap_format", "TIFF", "pixmap format."), ("vector_type", "BVG", "vector-type."),
        ("scan_type", "GRAY_SCALE", "scan-type."), ("scan_type", "nope", "scan-type.")]))
    def change_element(self, index, field):
        name, value, label = field
        if element := self.element(index):
            self.do(f"Changing element {label}", lambda: setattr(element, name, value))

    @rule(index=INDEX, opacity=st.sampled_from([0, 33.4, 100, 101, -1]))
    def opacity(self, index, opacity):
        if element := self.element(index):
            self.do("Change drawing opacity.", lambda: setattr(element, "opacity", opacity))

    @rule(index=INDEX, name=NAME)
    def duplicate_element(self, index, name):
        if element := self.element(index):
            self.do("Duplicating Element", lambda: element.duplicate(name))

    # Drawings.

    @rule(index=INDEX, what=st.sampled_from(["draw", "move", "clear", "paint", "copy", "fail"]), art=st.integers(0, 3))
    def draw(self, index, what, art):
        drawing = self.drawing(index)
        content = drawing and drawing.drawing
        if not content:
            return

        def paint():
            for stroke in [stroke for layer in content["line"] for stroke in layer.strokes][:1]:
                stroke.colour_right = GREEN if stroke.colour_right is None else RED

        def fail():
            with brindle.DrawingAccess.editing(content["line"]):
                new_layer(content)
                raise brindle.Error("the block fails")

        self.do(STEP, {"draw": lambda: new_layer(content), "move": lambda: content["line"].translate((1, 0)),
                       "clear": content["line"].clear, "copy": lambda: content.set(art, content["line"]),
                       "paint": paint, "fail": fail}[what])

    @rule(index=INDEX, place=st.sampled_from([None, (1, 2), (3, 4)]))
    def pivot(self, index, place):
        drawing = self.drawing(index)
        content = drawing and drawing.drawing
        if content:
            self.do("Change Drawing Pivot" if place else "Remove Drawing Pivot", lambda: setattr(content, "pivot", place))

    @rule(index=INDEX, names=SOME_NAMES)
    def create_drawings(self, index, names):
        if element := self.element(index):
            self.do("Adding drawings.", lambda: element.drawings.create(names))

    @rule(index=INDEX, count=st.integers(1, 3))
    def remove_drawings(self, index, count):
        if element := self.element(index):
            self.do("Removing drawings.", lambda: element.drawings.remove(list(element.drawings)[-count:]))

    @rule(index=INDEX, name=NAME)
    def rename_drawing(self, index, name):
        if drawing := self.drawing(index):
            self.do(f"Renaming Drawing from {drawing.name} to {name}", lambda: setattr(drawing, "name", name))

    @rule(index=INDEX, version=st.integers(0, 4))
    def version(self, index, version):
        if drawing := self.drawing(index):
            self.do("Change drawing versions.", lambda: setattr(drawing, "version", version))

    @rule(index=INDEX, factor=st.sampled_from([1.0, 0.5, 0.0, 1e-9]))
    def scale_factor(self, index, factor):
        if drawing := self.drawing(index):
            self.do("Change drawing scale-factor.", lambda: setattr(drawing, "scale_factor", factor))

    @rule(index=INDEX, name=NAME)
    def duplicate_drawing(self, index, name):
        if drawing := self.drawing(index):
            self.do("Duplicating a drawing in an element.", lambda: drawing.duplicate(name))

    @rule(index=INDEX, picture=st.integers(0, 2))
    def import_drawing(self, index, picture):
        if drawing := self.drawing(index):
            self.do("Import Drawing", lambda: drawing.import_file(self.pictures[picture]))
