"""What has gone from the project says so at its next use, for ever, however it went."""

import ast

import brindle
import pytest

import support

UNEXPECTED = "An unexpected error has occurred."
# What belongs to the session, or to the person.
SESSION = {"javascript", "javascript object", "javascript script", "preferences", "preference", "actions", "about",
           "metrics", "views", "tools", "selection"}
# What lies in no project.
PICTURES = {"cel", "empty cel", "node data"}
KEPT_BY_CLOSING = {"application", "copy object", "drawing access", "enum option", "locked block", *SESSION, *PICTURES,
                   *support.VALUES}
# What a drawing shows goes with its element; an undo brings that back, and what was not used meanwhile.
DRAWN = {"content", "art layer", "layer of strokes", "text layer", "picture layer", "strokes", "stroke", "contours",
         "contour", "joints", "joint", "drawing block"}
KEPT = {"project", "resolution", "named resolution", "history", "bracket", "scenes", "aspect", "units", "center",
        "unit converter", "metadata", "metadata pair", "scene", "clipboard", "columns", "nodes of the scene", "copied nodes",
        "display", "composite", "dynamic in-ports", "palette lists", "palettes", "palette", "solid colour", "gradient",
        "texture", "elements", "element", "drawings", "drawing", *DRAWN, *KEPT_BY_CLOSING}
NODES = {"peg", "camera", "display", "read", "group", "composite", "multi-port in", "multi-port out"}
HANDLES = {"subselections", "subselection"}
# Members that still answer after the object is gone, because they don't ask the project.
ANSWERS = {
    ("project", "str"): "'Brindle Base Project'",
    ("project", "history"): "<brindle.History, no longer valid>",
    ("project", "resolution"): "<brindle.ProjectResolution, no longer valid>",
    ("named resolution", "name"): "'PAL'",
    ("named resolution", "x"): UNEXPECTED, ("named resolution", "y"): UNEXPECTED,
    ("named resolution", "fov"): UNEXPECTED, ("named resolution", "framerate"): UNEXPECTED,
    ("named resolution", "projection"): UNEXPECTED, ("named resolution", "str"): UNEXPECTED,
    ("history", "bracket"): "<brindle.Bracket: Bracket(x)>", ("bracket", "str"): "'Bracket(Sample)'",
    ("unit converter", "str"): "'SceneUnitConverter()'",
    ("scene", "sounds"): "Sounds are not yet supported in the Python DOM.",
    ("history", "set"): "Unable to set a value in the history.",
    (None, "position"): "<brindle.Node_Coordinates, no longer valid>",
    (None, "data"): "View and tool data is not currently supported.",
    ("scene", "metadata"): support.GONE, (None, "metadata"): "<brindle.MetaDataHandler, no longer valid>",
    (None, "subselections"): "<brindle.NodeSubselectionList, no longer valid>",
    ("backdrop", "str"): "'Backdrop()'", ("clipboard", "str"): "'Clipboard()'",
    ("backdrop", "match"): "Invalid argument at index 0.",
    ("fixed in-ports", "dynamic"): "False", ("fixed out-ports", "dynamic"): "False",
    ("dynamic in-ports", "dynamic"): "True", ("dynamic out-ports", "dynamic"): "True",
    (None, "unlink of an attribute"): "False", (None, "link of an attribute"): "False",
    (None, "get_current_index"): "1",
    ("element", "str"): "'Element(1)'",
    ("element", "format_list"): "['PNG', 'JPEG', 'TIFF', 'TGA', 'BMP', 'EXR', 'PSD']",
    ("control point", "value="): "NOT YET IMPLEMENTED", ("ease point", "value="): "NOT YET IMPLEMENTED",
    ("texture", "size"): "0", ("texture", "__len__"): "0", ("texture", "list"): "[]",
    ("texture", "get"): "Unable to retrieve item in container.",
    ("texture", "__getitem__"): "Unable to retrieve item in container.",
    ("palette", "get_string_from_type"): "'Colour'", ("palette", "get_type_from_string"): "0",
    ("palette lists", "get_string_from_location_type"): "'SCENE'",
    ("palette lists", "get_location_type_from_string"): "83",
    (None, "get_string_from_colour_type"): "'solid_colour'", (None, "get_colour_type_from_string"): "0",
    ("joint", "position"): support.GONE,
    ("content", "str"): "'Drawing()'", ("art layer", "str"): "'DrawingVectorArtLayer()'",
    ("layer of strokes", "str"): "'DrawingVectorLayer()'", ("text layer", "str"): "'DrawingTextLayer()'",
    ("picture layer", "str"): "'DrawingBitmapLayer()'", ("strokes", "str"): "'DrawingVectorStrokeList()'",
    ("stroke", "str"): "'DrawingVectorStroke()'", ("contours", "str"): "'DrawingVectorContourList()'",
    ("contour", "str"): "'DrawingVectorContour()'", ("joints", "str"): "'DrawingVectorJointList()'",
    ("joint", "str"): "'DrawingVectorJoint()'", ("drawing block", "str"): "'DrawingEditing()'",
    ("control points", "get"): "Unable to retrieve item in container.",
    ("control points", "__getitem__"): "Unable to retrieve item in container.",
}
LISTS = {
    "scenes": "Unable to set the scene list.", "nodes of the scene": "The node list cannot be set.",
    "copied nodes": "The node list cannot be set.",
    "nodes of a group": "The node list cannot be set.", "fixed in-ports": "Port lists cannot be set.",
    "dynamic in-ports": "Port lists cannot be set.", "fixed out-ports": "Port lists cannot be set.",
    "dynamic out-ports": "Port lists cannot be set.", "cables": "Cable lists cannot be set.",
    "flat cables": "Flat Cable lists cannot be set.", "attributes": "Attribute List cannot be set.",
    "backdrops": "Unable to set item in container.", "subselections": "Unable to set item in container.",
    "subattributes": "Attribute List cannot be set.", "copied attributes": "Attribute List cannot be set.",
    "control points": "Unable to set item in container.", "texture": "Unable to set item in container.",
    "palette lists": "Palette lists cannot be set, object is read only.", "elements": "Unable to set the Element List",
    "contours": "Unable to set contours -- use Drawing Access instead.",
    "joints": "Unable to set joints -- use Drawing Access instead.",
    "drawings": "Unable to set a Element Drawing List", "columns": "Column Lists cannot be set.",
}
UNTOUCHED = {"objectName", "copy", "valid", "close", "__exit__", "save", "save_as"}

ARGUMENTS = {
    "get": (0,), "set": (0, None), "create": ("PEG",), "find": ("x",), "undo": (1,),
    "redo": (1,), "begin": ("x",), "bracket": ("x",), "frame_insert": (1, 1), "frame_remove": (1, 1),
    "to_field": (1,), "to_ogl": (1,), "link": ("x",), "match": (None,), "set_element": (1,), "insert": (None,), "value": (1,), "set_value": (1, 1),
    "set_localvalue": (1,), "reset_value": (1,), "offset_value": (1, 1), "get_text_value": (1,),
    "set_text_value": (1, "1"), "create_dynamic_attr": ("x", "INT"), "remove_dynamic_attr": ("x",),
    "get_entry": (1,), "set_entry": (1, 1), "scale": (1,), "keyframe_create": (1,),
    "remove_point": (1,), "convert_to_separate": ("BEZIER_FITTER",), "set_value_axis": (1, 0),
    "keyframe_remove": (1,), "keyframe_exists": (1,), "keyframe_clear": (1, 2),
    "create_solid_colour": ("x",), "create_linear_gradient_colour": ("x", [0, 0, 0], 0, [1, 1, 1], 1),
    "create_radial_gradient_colour": ("x", [0, 0, 0], 0, [1, 1, 1], 1), "create_texture": ("x", "y"),
    "matrix": (1,), "pivot": (1,), "rotation": (1,), "skew": (1,), "translation": (1,), "transformation": (1,),
    "set_matrix": (1, 2), "set_pivot": (1, 2), "set_rotation": (1, 2), "set_scale": (1, 2), "set_skew": (1, 2),
    "set_translation": (1, 2), "apply_matrix": (1, 2), "apply_rotation": (1, 2), "apply_scale": (1, 2),
    "apply_skew": (1, 2), "apply_translation": (1, 2),
    "append": (None,), "acquire": (None,), "reorder": (None, 0), "interpolate": (1,), "add": ([0, 0, 0],),
    "change_texture": ("x",), "clone": (None,), "duplicate": (None,), "palette_containing_colour": (None,),
    "move_palette_up": (None,), "move_palette_down": (None,), "element_palette_list": (None,),
    "find_folder": ("scene",), "find_palette": ("scene", "x"), "find_texture": ("scene", "x"),
    "list_palettes": ("scene",), "get_string_from_type": (0,), "get_type_from_string": ("colour",),
    "get_string_from_location_type": (83,), "get_location_type_from_string": ("scene",),
    "get_string_from_colour_type": (0,), "get_colour_type_from_string": ("solid",),
    "create_point": (1, 1, 1, 1, 1, 1), "save_as": ("x",), "create_metadata_pair_at_idx": (0,), "move_to": ("x",), "move": ("x",),
    "import_file": ("x",),
}

OTHER_ARGUMENTS = {("palette", "insert"): (None, 0), ("palettes", "create"): ("Colour", "x"),
                   ("clipboard", "copy_from_template"): ("x",), ("clipboard", "paste"): (None, "x"),
                   ("clipboard", "create_selection_template"): ("x", "x"),
                   ("clipboard", "create_template"): (None, "x", "x"),
                   ("clipboard", "paste_template"): ("x", 1), ("clipboard", "paste_new_nodes"): (None, "x"),
                   ("clipboard", "paste_template_into_group"): ("x", 1, "x"),
                   ("clipboard", "paste_action_template"): ("x", 1, "x"),
                   ("element", "duplicate"): ("x",), ("drawing", "duplicate"): ("x",), ("elements", "contains"): ("x",),
                   ("drawings", "contains"): ("x",),
                   ("columns", "linked_nodes"): ("x",), ("columns", "linked_attributes"): ("x",),
                   ("velocity column", "create_point"): (1, 1), ("velocity of a path", "create_point"): (1, 1)}
REMOVED = {brindle.SceneList: (None,), brindle.CableList: (None,), brindle.FlatCableList: (None,),
           brindle.MultiPortList: (0,), brindle.MultiInPortList: (0,), brindle.ControlPointList: (1,),
           brindle.Palette: (None,), brindle.PaletteList: (None,), brindle.PaletteListList: (None,)}


def required(form):
    """A value for each argument that a form of a method must be given."""
    given = ast.parse(f"def method{form}: ...").body[0].args
    count = len(given.args) - len(given.defaults)
    return tuple({"str": "x", "float": 1.0}.get(ast.unparse(argument.annotation), 1) for argument in given.args[:count])


def calls(name, sample):
    """Everything that a script can do with an object, under a name."""
    for entry in brindle._describe():
        if not isinstance(sample, getattr(brindle, entry["name"])):
            continue
        for member in entry["properties"]:
            if member["name"] not in UNTOUCHED:
                yield member["name"], lambda m=member: getattr(sample, m["name"])
                if member["writable"]:
                    value = {"bool": True, "int": 2, "float": 2.0, "str": "x"}.get(member["type"], 1)
                    yield member["name"] + "=", lambda m=member, v=value: setattr(sample, m["name"], v)
        for member in entry["methods"]:
            if member["name"] not in UNTOUCHED:
                arguments = ARGUMENTS.get(member["name"]) or required(member["forms"][0])
                if name == "text attribute" and member["name"].startswith("set_"):
                    arguments = arguments[:-1] + ("x",)
                if name == "history" and member["name"] == "set":
                    arguments = (0, "x")
                if (name, member["name"]) in OTHER_ARGUMENTS:
                    arguments = OTHER_ARGUMENTS[name, member["name"]]
                if isinstance(sample, brindle.OutPort) and member["name"] == "unlink":
                    arguments = ("x",)
                if member["name"] in ("contains", "remove"):
                    arguments = REMOVED.get(type(sample), ("x",))
                suffix = " of an attribute" if isinstance(sample,
                                                          brindle.Attribute) and "link" in member["name"] else ""
                yield member["name"] + suffix, lambda m=member, a=arguments: getattr(sample, m["name"])(*a)
    yield "str", lambda: str(sample)
    for operator, call in (("__len__", lambda: len(sample)), ("__getitem__", lambda: sample[0]),
                           ("__iter__", lambda: list(sample)), ("__call__", lambda: sample("0"))):
        if hasattr(type(sample), operator) and not (operator == "__call__" and not callable(sample)):
            yield operator, call


def outcome(call):
    """The sentence of a failure, or the text of a result."""
    try:
        return repr(call())
    except brindle.Error as failure:
        return str(failure)


def expected(name, call):
    for key in ((name, call), (None, call)):
        if key in ANSWERS:
            return ANSWERS[key]
    if call in ("set", "__setitem__") and name in LISTS:
        return LISTS[name]
    return support.NODE_GONE if name in NODES | HANDLES else support.GONE


def gone_by_removing(app):
    app.scene.nodes.remove(sample_nodes(app), True)
    app.scene.columns.remove([column.name for column in app.scene.columns.list()])


def gone_by_removing_and_undoing(app):
    gone_by_removing(app)
    app.project.history.undo(2)
    assert sample_nodes(app)


def gone_by_undoing(app):
    app.project.history.undo(1000)


def gone_by_undoing_and_redoing(app):
    app.project.history.undo(1000)
    app.project.history.redo(1000)
    assert sample_nodes(app)


def gone_by_closing(app):
    app.close()


def gone_by_opening_another(app, folder):
    brindle.create(folder.with_name("another"), discard=True)


def gone_by_opening_again(app, folder):
    app.save()
    brindle.open(folder)


def sample_nodes(app):
    return [node for node in app.scene.nodes if node.name.startswith("Sample")]


WAYS = [gone_by_removing, gone_by_removing_and_undoing, gone_by_undoing, gone_by_undoing_and_redoing, gone_by_closing]
OTHER_PROJECTS = [gone_by_opening_another, gone_by_opening_again]


def check(samples, kept):
    for name, sample in samples.items():
        if name in kept:
            continue
        for _ in range(2):  # For ever: the next use says the same.
            for call, action in calls(name, sample):
                assert outcome(action) == expected(name, call), f"{name}.{call}"
        if (name, "str") not in ANSWERS:
            assert repr(sample) == f"<brindle.{type(sample).__name__}, no longer valid>"
        if name in NODES:
            assert sample.valid is False
        copied = sample.copy()
        assert type(copied) is type(sample)
        if name != "project":
            assert outcome(lambda: str(copied)) == expected(name, "str")


@pytest.mark.parametrize("go", WAYS)
def test_what_is_gone_says_so_at_every_use(app, samples, go):
    go(app)
    check(samples, KEPT_BY_CLOSING if go is gone_by_closing else KEPT)


@pytest.mark.parametrize("go", OTHER_PROJECTS)
def test_what_another_project_had_is_gone_when_one_is_opened(app, folder, samples, go):
    go(app, folder)
    check(samples, KEPT_BY_CLOSING)


@pytest.mark.parametrize("go", WAYS)
def test_what_is_gone_can_be_passed_and_changes_nothing(app, folder, go):
    samples = support.samples(app)
    go(app)
    if go is gone_by_closing:
        app = brindle.open(folder)
    node = app.scene.nodes.create("PEG", "Alive")
    before = support.saved_content(app, folder)
    angle = node.attributes["angle"]
    for name, dead in samples.items():
        if name in KEPT:
            continue
        for call in (lambda: node.ports_in[0].link(dead), lambda: node.ports_out[0].link(dead),
                     lambda: node.ports_out[0].link([dead, 0]), lambda: setattr(node, "position", dead),
                     lambda: angle.link(dead),
                     lambda: app.scene.nodes.remove(dead), lambda: app.scene.nodes.remove([dead]),
                     lambda: app.scene.nodes.create("PEG", dead, "x"), lambda: node.ports_out[0].cables.contains(dead),
                     lambda: dead in node.attributes, lambda: dead == node, lambda: node == dead,
                     lambda: app.scenes.contains(dead)):
            outcome(call)
    assert support.saved_content(app, folder) == before
    assert node.valid


def test_a_project_that_is_open_again_is_a_new_one(app, folder):
    node = app.scene.nodes.create("PEG", "Arm")
    app.save()
    again = brindle.open(folder)
    assert node.valid is False
    assert again.scene.nodes["Top/Arm"].valid is True
    assert again is brindle.application() is not app
    assert support.message_of(lambda: app.scene) == support.GONE
    app.close()  # A closed application has nothing to close.
    assert again.scene.nodes["Top/Arm"].valid is True


def test_a_rename_keeps_every_object_of_a_node_alive(scene, peg):
    again = scene.nodes["Top/Arm"]
    angle, port = peg.attributes["angle"], peg.ports_in[0]
    peg.name = "Leg"
    assert again.name == "Leg" and again.valid
    assert angle.node().path == port.node.path == "Top/Leg"


def test_a_keyframe_that_is_removed_takes_its_control_point_with_it(column, history):
    point = column.keyframe_create(5)
    assert point.frame == 5.0
    column.keyframe_remove(5)
    assert support.message_of(lambda: point.value) == support.GONE
    column.keyframe_create(5)
    assert support.message_of(lambda: point.value) == support.GONE
    history.undo(2)
    assert column.keyframe_exists(5)
    assert support.message_of(lambda: point.value) == support.GONE
    assert column.control_points.list()[1].frame == 5.0


def test_a_column_that_is_undone_is_gone_and_its_attribute_is_not(peg, history):
    angle = peg.attributes["angle"]
    angle.set_value(1, 2.0)
    column = angle.column
    history.undo()
    assert support.message_of(lambda: column.name) == support.GONE
    assert angle.column is None and angle.value(1) == 0.0
    history.redo()
    assert support.message_of(lambda: column.name) == support.GONE
    assert angle.column.keyframe_list() == [1]


def test_a_cable_that_is_cut_says_that_its_ends_are_apart(samples):
    cable = samples["cable"]
    cable.unlink()
    for read in ("source", "source_node", "destination", "destination_node", "source_flat", "source_flat_node"):
        assert support.message_of(lambda: getattr(cable, read)) == support.APART
    assert support.message_of(cable.unlink) == support.APART
    assert support.message_of(lambda: samples["flat cable"].source) == support.APART


def test_a_cable_that_is_linked_again_is_whole_again(samples, history):
    samples["cable"].unlink()
    history.undo()
    assert samples["cable"].source_node == samples["peg"]


def test_a_removed_port_is_gone_and_the_others_go_on(scene):
    ports = scene.nodes["Top/Composite"].ports_in
    first, second = ports.create(), ports.create()
    ports.remove(first)
    assert support.message_of(lambda: first.type) == support.GONE
    assert second.index == 1 and second.type == "IMAGE"
