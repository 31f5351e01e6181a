"""A random program over everything that a script can change, checked by the model of the undo list at each step."""

import brindle
from hypothesis import strategies as st
from hypothesis.stateful import precondition, rule

import support
from exposuresheet import project_with_sheet
from undomodel import NAME, UndoModel, pick

INDEX = st.integers(0, 1000)
FRAME = st.integers(-3, 70)
NUMBER = st.one_of(st.integers(-5, 5).map(float), st.floats(-1e6, 1e6), st.sampled_from([0.0, -0.0, 1e-300, 1e15]))
TYPE = st.sampled_from(["PEG", "PEG", "READ", "CAMERA", "DISPLAY", "COMPOSITE", "WRITE", "GROUP", "GROUP", "COLOR_CARD",
                        "BLUR", "CUTTER", "MULTIPORT_IN", "MULTIPORT_OUT", "NOTHING"])
DRAWING = st.sampled_from(["a", "b", "12", "", "x/y"])
PORT = st.sampled_from([None, "image", "peg"])
SOME_FRAMES = st.one_of(FRAME, st.lists(FRAME, max_size=4), st.floats(0, 60).map(lambda frame: round(frame, 2)))


class UndoMachine(UndoModel):
    def make_project(self):
        """One with drawing columns and a timing column beside the samples."""
        app = brindle.open(project_with_sheet(self.folder))
        support.samples(app)
        app.project.history.clear()
        return app

    def sheet(self, kind, index):
        """A column of drawings, or none."""
        return pick([attribute.column for attribute in self.attributes(kind) if attribute.column is not None], index)

    # The scene.

    @rule(count=st.integers(-1, 90))
    def frame_count(self, count):
        self.do("Set Number of Frames", lambda: setattr(self.scene, "frame_count", count))

    @rule(frame=st.integers(0, 70), first=st.booleans())
    def frame_range(self, frame, first):
        name = "frame_start" if first else "frame_stop"
        self.do(f"Set {'Start' if first else 'Stop'} Frame", lambda: setattr(self.scene, name, frame))

    @rule(rate=st.sampled_from([12, 24, 23.976, 0, -1, 1e-9]))
    def framerate(self, rate):
        self.do("Set Frame Rate", lambda: setattr(self.scene, "framerate", rate))

    @rule(key=NAME, value=st.one_of(st.none(), st.booleans(), st.integers(-9, 9), NUMBER, NAME, st.just([1])))
    def metadata(self, key, value):
        self.do(f"Set Scene Metadata :{key}", lambda: self.scene.metadata.set(key, value))

    @rule(index=INDEX, key=NAME, value=st.one_of(st.none(), st.booleans(), st.integers(-9, 9), NUMBER, NAME, st.just([1])))
    def node_metadata(self, index, key, value):
        if node := self.node(index):
            self.do(f"Set Node Metadata :{key}", lambda: node.metadata.set(key, value))

    @rule(index=INDEX, field=st.sampled_from(["creator", "version"]), text=NAME)
    def metadata_field(self, index, field, text):
        if pair := pick(self.scene.metadata.list(), index):
            self.do(f"Set Scene Metadata :{pair.key}", lambda: setattr(pair, field, text))

    # Exposures.

    @rule(index=INDEX, frame=FRAME, names=st.one_of(DRAWING, st.lists(DRAWING, max_size=5)))
    def expose(self, index, frame, names):
        if column := self.sheet(brindle.ElementAttribute, index):
            self.do("Setting drawing(s) in drawing column.", lambda: column.set(frame, names))

    @rule(index=INDEX, first=FRAME, last=FRAME, edit=st.sampled_from([
        ("key_exposure_add", "Add Key Exposures"), ("key_exposure_remove", "Remove Key Exposures"),
        ("key_exposure_remove_duplicate", "Remove Duplicate Key Exposures"), ("drawing_delete", "Delete Drawings")]))
    def exposure_range(self, index, first, last, edit):
        if column := self.sheet(brindle.ElementAttribute, index):
            self.do(edit[1], lambda: getattr(column, edit[0])({"from": first, "to": last}))

    @rule(index=INDEX, frame=FRAME, count=st.integers(0, 9), flag=st.booleans())
    def exposure_edit(self, index, frame, count, flag):
        if column := self.sheet(brindle.ElementAttribute, index):
            self.do("Clearing drawing frames.", lambda: column.clear(frame, count, flag))
            self.do("Fill Empty Cells", lambda: column.fill_empty(frame, frame + count))
            self.do("Duplicate Drawing", lambda: column.drawing_duplicate(frame))
            self.do("Generate Drawing", lambda: column.generate(frame, flag))

    @rule(index=INDEX, frame=FRAME, count=st.integers(-1, 9), prefix=DRAWING, flag=st.booleans())
    def line_test(self, index, frame, count, prefix, flag):
        if column := self.sheet(brindle.TimingAttribute, index):
            self.do("Line Test Fill", lambda: column.line_test_fill(frame, frame + count, prefix or "LT", flag))

    @rule(index=INDEX, to=INDEX)
    def shown_element(self, index, to):
        if column := self.sheet(brindle.ElementAttribute, index):
            element = pick(self.app.elements.list(), to)
            self.do("Modifying Drawing's element.", lambda: setattr(column, "element", element or -1))

    # Nodes.

    @rule(type_=TYPE, name=NAME, index=INDEX)
    def create_node(self, type_, name, index):
        group = pick(self.groups(), index)
        name = name.rpartition("/")[2]
        self.do(f"Add {name}", lambda: self.scene.nodes.create(type_, group, name))

    @precondition(lambda self: len(self.scene.nodes) > 8)
    @rule(indexes=st.lists(INDEX, min_size=1, max_size=2), columns=st.booleans(), bridge=st.booleans())
    def remove_nodes(self, indexes, columns, bridge):
        nodes = [node for node in map(self.node, indexes) if node]
        self.do("Delete Nodes", lambda: self.scene.nodes.remove(nodes, columns, bridge))

    @rule(index=INDEX, name=NAME)
    def rename_node(self, index, name):
        if node := self.node(index):
            self.do(f"Rename {node.name} to {name}", lambda: setattr(node, "name", name))

    @rule(index=INDEX, place=st.lists(st.integers(-500, 500), min_size=1, max_size=3))
    def position(self, index, place):
        if node := self.node(index):
            self.do(f"Set X position of {node.name}", lambda: setattr(node, "position", place))

    @rule(index=INDEX, axis=st.sampled_from("xyz"), value=st.integers(-2, 500))
    def coordinate(self, index, axis, value):
        if node := self.node(index):
            self.do(f"Set {axis.upper()} position of {node.name}", lambda: setattr(node.position, axis, value))

    @rule(index=INDEX, enabled=st.booleans())
    def enabled(self, index, enabled):
        if node := self.node(index):
            self.do(f"Enable {node.name}", lambda: setattr(node, "enabled", enabled))

    @rule(index=INDEX, what=st.sampled_from(["cached", "locked", "thumbnail_timeline"]), on=st.booleans())
    def mark(self, index, what, on):
        if node := self.node(index):
            label = {"cached": f"Cache {node.name}", "locked": f"{'Lock' if on else 'Unlock'} {node.name}",
                     "thumbnail_timeline": f"{'Show' if on else 'Hide'} Thumbnail"}[what]
            self.do(label, lambda: setattr(node, what, on))

    @rule(index=INDEX, value=st.lists(st.integers(-5, 300), min_size=3, max_size=4),
          what=st.sampled_from(["colour", "r", "g", "b", "hex", "reset"]))
    def node_colour(self, index, value, what):
        if node := self.node(index):
            label, call = {
                "colour": (f"Set color position of {node.name}", lambda: setattr(node, "colour", value)),
                "hex": ("Set Node Color", lambda: setattr(node.colour, "hex", "#0a0b0c" if value[0] else "nothing")),
                "reset": ("Reset Node Color", lambda: node.colour.reset()),
            }.get(what, ("Set Node Color", lambda: setattr(node.colour, what, value[0])))
            self.do(label, call)

    @rule(index=INDEX)
    def explode(self, index):
        group = pick(self.groups()[1:], index)
        if group is not None:
            self.do("Explode Group", group.explode)

    @rule(index=INDEX, kind=st.sampled_from([brindle.CameraNode, brindle.DisplayNode]), active=st.booleans())
    def active(self, index, kind, active):
        node = pick((node for node in self.nodes() if isinstance(node, kind)), index)
        if node is not None:
            what = "camera" if kind is brindle.CameraNode else "display"
            unset = "unsetting" if kind is brindle.CameraNode else "Unsetting"
            label = f"Setting {node.path} as default {what}." if active else f"{unset} default {what}."
            self.do(label, lambda: setattr(node, "active", active))

    @rule(index=INDEX, frame=FRAME, value=st.lists(NUMBER, min_size=1, max_size=3),
          range_=st.lists(FRAME, min_size=1, max_size=2),
          what=st.sampled_from(["pivot", "rotation", "scale", "translation"]), add=st.booleans(), flag=st.booleans())
    def peg_part(self, index, frame, value, range_, what, add, flag):
        peg = pick((node for node in self.nodes() if isinstance(node, brindle.PegNode)), index)
        if peg is not None and add and what != "pivot":
            self.do(f"Changing peg {what}.", lambda: getattr(peg, f"apply_{what}")(range_, value))
        elif peg is not None:
            self.do(f"Changing peg {what}.", lambda: getattr(peg, f"set_{what}")(frame, value, flag))

    @rule(index=INDEX, frame=FRAME, parts=st.lists(st.integers(-9, 9), min_size=4, max_size=4), add=st.booleans())
    def peg_matrix(self, index, frame, parts, add):
        peg = pick((node for node in self.nodes() if isinstance(node, brindle.PegNode)), index)
        if peg is not None:
            matrix = brindle.Matrix(parts[:2])
            matrix.rotate_degrees(parts[2])
            matrix.scale(parts[3] / 3, 1.5, 1)
            self.do("Applying matrix to peg transformation.",
                    lambda: peg.apply_matrix([frame, frame + 5], matrix) if add else peg.set_matrix(frame, matrix))

    @rule(index=INDEX, inside=st.sampled_from(["multi_port_in", "multi_port_out"]))
    def multi_port(self, index, inside):
        group = pick(self.groups()[1:], index)
        if group is not None:
            self.do("Add Multi-Port-In" if inside == "multi_port_in" else "Add Multi-Port-Out",
                    lambda: getattr(group, inside))

    # Links.

    @rule(source=INDEX, other=INDEX, form=st.sampled_from(["node", "path", "port", "node and index", "path and index"]),
          backwards=st.booleans(), place=st.integers(0, 2))
    def link(self, source, other, form, backwards, place):
        port = pick(self.ports(backwards), source)
        node = self.node(other)
        if port is None or node is None:
            return
        value = {"node": node, "path": node.path, "node and index": [node, place], "path and index": [node.path, place],
                 "port": pick(self.ports(not backwards), other)}[form]
        self.do("Connecting ports.", lambda: port.link(value))

    @rule(source=INDEX, other=INDEX, whole=st.booleans())
    def link_by_property(self, source, other, whole):
        port, feeding = pick(self.ports(True), other), pick(self.ports(False), source)
        if port is not None and feeding is not None:
            self.do("Connecting ports.", lambda: setattr(port, "source", feeding) if whole
                    else setattr(port, "source_node", feeding.node))

    @rule(index=INDEX)
    def unlink_in_port(self, index):
        port = pick(self.ports(True), index)
        if port is not None:
            self.do("Unlink Port", port.unlink)

    @rule(index=INDEX, which=INDEX, form=st.sampled_from(["port", "node", "index", "path", "paths"]))
    def unlink_out_port(self, index, which, form):
        port = pick((port for port in self.ports(False) if port.destinations), index)
        if port is None:
            return
        other = pick(port.destinations, which)
        label, value = {"port": ("Unlink Port", other), "index": ("Unlink Port", which % len(port.destinations)),
                        "node": ("Unlinking ports.", other.node), "path": ("Disconnecting ports.", other.node.path),
                        "paths": ("Disconnecting ports.", [other.node.name])}[form]
        self.do(label, lambda: port.unlink(value))

    @rule(index=INDEX, other=INDEX, what=st.sampled_from(["source", "source_node", "destination", "destination_node",
                                                          "insert", "unlink"]))
    def change_cable(self, index, other, what):
        cable, node = self.cable(index), self.node(other)
        if cable is None:
            return
        label = {"source": "Connecting ports.", "destination": "Changing the cable's destination node.",
                 "insert": "Inserting a node.", "unlink": "Unlink Port"}.get(what, "Changing the cable's source node.")
        call = {"insert": lambda: cable.insert(node), "unlink": cable.unlink}.get(what,
                                                                                  lambda: setattr(cable, what, node))
        self.do(label, call)

    @rule(index=INDEX, place=st.integers(0, 3), type_=PORT, side=st.sampled_from(["in", "out"]))
    def create_port(self, index, place, type_, side):
        node = self.node(index)
        if node is None or node.type == {"in": "MULTIPORT_IN", "out": "MULTIPORT_OUT"}[side]:
            return
        ports = node.ports_in if side == "in" else node.ports_out
        if ports.dynamic:
            in_label = "Add inport to the node." if node.type == "GROUP" else "Add in-port node."
            label = in_label if side == "in" else "Add out-port to the node."
            self.do(label, lambda: ports.create(place, type_))

    @rule(index=INDEX, place=st.integers(0, 3), side=st.sampled_from(["in", "out"]))
    def remove_port(self, index, place, side):
        node = self.node(index)
        if node is None or node.type == {"in": "MULTIPORT_IN", "out": "MULTIPORT_OUT"}[side]:
            return
        ports = node.ports_in if side == "in" else node.ports_out
        if ports.dynamic:
            self.do(f"Remove {side}-port node.", lambda: ports.remove(place))

    # Attributes.

    @rule(index=INDEX, frame=FRAME, value=NUMBER,
          what=st.sampled_from(["value", "local", "reset", "reset local", "text"]))
    def number(self, index, frame, value, what):
        attribute = pick(self.attributes(brindle.DoubleAttribute), index)
        if attribute is None:
            return
        label, call = {
            "value": ("Set Attribute Value", lambda: attribute.set_value(frame, value)),
            "local": ("Set Attribute local value.", lambda: attribute.set_localvalue(value)),
            "reset": ("Set Attribute Value", lambda: attribute.reset_value(frame)),
            "reset local": ("Set Attribute local value.", attribute.reset_localvalue),
            "text": (f"Set {attribute.keyword} of {attribute.node().name}",
                     lambda: attribute.set_text_value(frame, repr(value))),
        }[what]
        self.do(label, call)

    @rule(index=INDEX, range_=st.one_of(FRAME, st.lists(FRAME, min_size=1, max_size=2)), delta=NUMBER)
    def offset(self, index, range_, delta):
        attribute = pick(self.attributes(brindle.DoubleAttribute), index)
        if attribute is not None:
            self.do("Set Attribute Value", lambda: attribute.offset_value(range_, delta))

    @rule(index=INDEX, frame=FRAME, value=st.integers(-10, 300), what=st.sampled_from(["value", "local", "offset"]))
    def whole_number(self, index, frame, value, what):
        attribute = pick(self.attributes(brindle.IntAttribute), index)
        if attribute is not None:
            label, call = {
                "value": ("Set Attribute Value", lambda: attribute.set_value(frame, value)),
                "local": ("Set Attribute local value.", lambda: attribute.set_localvalue(value)),
                "offset": ("Offset Attribute Value", lambda: attribute.offset_value([frame, frame + 5], value)),
            }[what]
            self.do(label, call)

    @rule(index=INDEX, frame=FRAME, value=st.booleans(), local=st.booleans())
    def flag(self, index, frame, value, local):
        attribute = pick(self.attributes(brindle.BoolAttribute), index)
        if attribute is not None and local:
            self.do("Set Attribute local value.", lambda: attribute.set_localvalue(value))
        elif attribute is not None:
            self.do("Set Attribute Value", lambda: attribute.set_value(frame, value))

    @rule(index=INDEX, frame=FRAME, value=NAME, local=st.booleans())
    def text(self, index, frame, value, local):
        attribute = pick(self.attributes(brindle.TextAttribute), index)
        if attribute is not None and local:
            self.do("Set Attribute local value.", lambda: attribute.set_localvalue(value))
        elif attribute is not None:
            self.do("Set Attribute Value", lambda: attribute.set_value(frame, value))

    @rule(index=INDEX, frame=FRAME, value=st.lists(NUMBER, min_size=1, max_size=3),
          what=st.sampled_from(["value", "local", "offset", "reset", "reset local"]), flat=st.booleans())
    def place(self, index, frame, value, what, flat):
        attribute = pick(self.attributes(brindle.Position2DAttribute if flat else brindle.Position3DAttribute), index)
        if attribute is not None:
            label, call = {
                "value": ("Set Attribute local value.", lambda: attribute.set_value(frame, value)),
                "local": ("Set Attribute local value.", lambda: attribute.set_localvalue(value)),
                "offset": ("Set Attribute local value.", lambda: attribute.offset_value([frame, frame + 9], value)),
                "reset": ("Resetting local value.", lambda: attribute.reset_value(frame)),
                "reset local": ("Resetting local value.", attribute.reset_localvalue),
            }[what]
            self.do(label, call)

    @rule(index=INDEX, frame=FRAME, value=st.lists(st.integers(-20, 300), min_size=3, max_size=4),
          what=st.sampled_from(["value", "local", "offset"]))
    def colour(self, index, frame, value, what):
        attribute = pick(self.attributes(brindle.ColourAttribute), index)
        if attribute is not None:
            label, call = {
                "value": ("Set Attribute value.", lambda: attribute.set_value(frame, value)),
                "local": ("Set Attribute local value.", lambda: attribute.set_localvalue(value)),
                "offset": ("Offset Attribute value.", lambda: attribute.offset_value([frame, frame + 9], value)),
            }[what]
            self.do(label, call)

    @rule(index=INDEX, choice=st.one_of(st.integers(-1, 12), st.sampled_from(["NORMAL", "PNG", "SCREEN", "3"])))
    def choose(self, index, choice):
        attribute = pick(self.attributes(brindle.EnumAttribute), index)
        if attribute is not None:
            self.do("Set Attribute local value.", lambda: attribute.set_value(1, choice))

    @rule(index=INDEX, name=st.sampled_from(["take", "meta.take", "meta.place", "meta.a.b", "angle", "position.x", "",
                                             "ä.%1"]),
          type_=st.sampled_from(["INT", "double", "BOOL", "STRING", "POSITION_2D", "POSITION_3D", "COLOUR",
                                 "DYNAMIC_GROUP", "NOTHING"]),
          title=NAME, linkable=st.booleans())
    def create_attribute(self, index, name, type_, title, linkable):
        if node := self.node(index):
            self.do("Create Dynamic Attribute",
                    lambda: node.attributes.create_dynamic_attr(name, type_, title, linkable))

    @rule(index=INDEX, which=INDEX, by_name=st.booleans())
    def remove_attribute(self, index, which, by_name):
        attribute = pick((each for each in self.attributes() if each.dynamic or which % 7 == 0), index)
        if attribute is not None:
            value = attribute.full_keyword if by_name else attribute
            self.do("Remove Dynamic Attribute", lambda: attribute.node().attributes.remove_dynamic_attr(value))

    # Columns.

    @rule(index=INDEX, which=INDEX, form=st.sampled_from(["object", "name", "column_name", "link"]))
    def link_column(self, index, which, form):
        attribute, column = pick(self.attributes(brindle.DoubleAttribute), index), self.column(which)
        if attribute is None or column is None:
            return
        name = column.name
        call = {"object": lambda: setattr(attribute, "column", column),
                "name": lambda: setattr(attribute, "column", name),
                "column_name": lambda: setattr(attribute, "column_name", name),
                "link": lambda: attribute.link(column)}[form]
        self.do(f"Linking {attribute.keyword} of {attribute.node().name} to {name}", call)

    @rule(index=INDEX, form=st.sampled_from(["None", "text", "column_name", "unlink"]))
    def unlink_column(self, index, form):
        attribute = pick((a for a in self.attributes(brindle.DoubleAttribute) if a.column_name), index)
        if attribute is not None:
            call = {"None": lambda: setattr(attribute, "column", None),
                    "text": lambda: setattr(attribute, "column", ""),
                    "column_name": lambda: setattr(attribute, "column_name", ""), "unlink": attribute.unlink}[form]
            self.do(f"Unlinking {attribute.keyword} of {attribute.node().name}", call)

    @rule(index=INDEX, name=NAME)
    def rename_column(self, index, name):
        column = self.column(index)
        if column is not None:
            self.do(f"Rename {column.name} to {name}", lambda: setattr(column, "name", name))

    @rule(index=INDEX, anonymous=st.booleans())
    def anonymous(self, index, anonymous):
        column = self.column(index)
        if column is not None:
            self.do("Setting column anonymous." if anonymous else "Setting column as not anonymous.",
                    lambda: setattr(column, "anonymous", anonymous))

    @rule(index=INDEX, frames=SOME_FRAMES, create=st.booleans(), through_points=st.booleans())
    def keyframes(self, index, frames, create, through_points):
        column = self.column(index)
        if column is None:
            return
        count = len(frames) if isinstance(frames, list) else 1
        if through_points:
            verb = "Create" if create else "Remove"
            label = f"{verb} {count} keyframes." if count < 2 else ("Create a keyframe." if create
                                                                    else "Remove keyframe.")
            points = column.control_points
            self.do(label, lambda: (points.create if create else points.remove)(frames))
        else:
            verb = "Setting" if create else "Removing"
            label = f"{verb} {count} keyframes." if count < 2 else f"{verb} a keyframe."
            self.do(label, lambda: (column.keyframe_create if create else column.keyframe_remove)(frames))

    @rule(index=INDEX, start=FRAME, end=FRAME)
    def keyframe_clear(self, index, start, end):
        column = self.column(index)
        if column is not None:
            self.do("", lambda: column.keyframe_clear(start, end))

    @rule(index=INDEX, frame=FRAME, numbers=st.tuples(*[NUMBER] * 5), const=st.booleans(),
          continuity=st.sampled_from(["CORNER", "straight", "Smooth", "round"]))
    def create_point(self, index, frame, numbers, const, continuity):
        column = self.column(index)
        if column is not None:
            self.do(f"Set Bezier Point {column.display_name}",
                    lambda: column.create_point(frame, *numbers, const, continuity))

    @rule(index=INDEX, frame=FRAME, number=NUMBER,
          what=st.sampled_from(["value", "handle_left_x", "handle_left_y", "handle_right_x", "handle_right_y"]))
    def value_object_number(self, index, frame, number, what):
        self.change_value_object(index, frame, what, number)

    @rule(index=INDEX, frame=FRAME, what=st.sampled_from(["key", "const_segment"]), value=st.booleans())
    def value_object_flag(self, index, frame, what, value):
        self.change_value_object(index, frame, what, value)

    @rule(index=INDEX, frame=FRAME, value=st.sampled_from(["CORNER", "STRAIGHT", "SMOOTH", "smooth"]))
    def value_object_continuity(self, index, frame, value):
        self.change_value_object(index, frame, "continuity", value)

    def change_value_object(self, index, frame, what, value):
        column = self.column(index)
        if column is None:
            return
        frames = column.keyframe_list()
        frame = pick(frames, frame) if frame % 3 and frames else frame  # Two of three meet a keyframe.
        start = {"value": "Set Bezier Point", "key": "Set Bezier Point" if value is True else "Remove Bezier Point",
                 "const_segment": "Set Constant Segment on", "continuity": "Set Constant Segment on"}.get(
                     what, f"Set {what[7:].split('_')[0]} handle on")
        self.do(f"{start} {column.display_name}", lambda: setattr(column[frame], what, value))

    @rule(index=INDEX, frame=FRAME, number=NUMBER)
    def entry(self, index, frame, number):
        column = self.column(index)
        if column is not None:
            self.do(f"Set Bezier Point {column.display_name}", lambda: column.__setitem__(frame, number))

    @rule(index=INDEX, factor=st.sampled_from([2.0, -1.0, 0.0, 1.0, 0.1]))
    def scale(self, index, factor):
        column = self.column(index)
        if column is not None:
            self.do("", lambda: column.scale(factor))

    @rule(index=INDEX, what=st.sampled_from(["start", "stop", "step"]), value=st.integers(-2, 70))
    def hold(self, index, what, value):
        column = self.column(index)
        if column is not None:
            label = f"Set {what.capitalize()} {'for' if what == 'step' else 'Frame for'} Hold"
            self.do(label, lambda: setattr(column, f"hold_{what}", value))
