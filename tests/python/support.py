"""Helpers of the tests: a project's saved form, sample objects, processes of their own."""

import collections
import os
import pathlib
import struct
import subprocess
import zlib

import brindle

ROOT = pathlib.Path(__file__).resolve().parents[2]
COMMAND = os.environ["BRINDLE_BIN"]
PYTHON = "/usr/bin/python3"
SANITIZED = "libasan" in os.environ.get("LD_PRELOAD", "")
# More examples of everything that is tried with random ones.
DEEP = bool(os.environ.get("BRINDLE_TEST_DEEP"))

MEMORY = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None

LOCK = ".brindle-lock"
# What an undo can bring back, while the project is open.
REMOVED = ".brindle-removed"

GONE = "Object is no longer valid."
NODE_GONE = "Node is no longer valid. Node may have been moved or deleted."
APART = "These ports are no longer connected."


def not_finite(name):
    """What the write of a property says to infinity, and to what is no number."""
    return f"The property {name} takes finite numbers only."


State = collections.namedtuple("State", "saved labels total")

# How a script makes one of each value class, which no project owns; and its repr.
VALUES = {
    "point 2d": (lambda: brindle.Point2d(1, 2), "Point2d(1, 2)"),
    "point 3d": (lambda: brindle.Point3d(1, 2, 3), "Point3d(1, 2, 3)"),
    "vector 2d": (lambda: brindle.Vector2d(1, 2), "Vector2d(1, 2)"),
    "vector 3d": (lambda: brindle.Vector3d(1, 2, 3), "Vector3d(1, 2, 3)"),
    "size": (lambda: brindle.Rect2D(1, 2), "Rect2D(1, 2)"),
    "whole size": (lambda: brindle.Rect2DI(1, 2), "Rect2DI(1, 2)"),
    "rectangle": (lambda: brindle.AllocatedRect2D(1, 2, 3, 4), "AllocatedRect2D(1, 2, 3, 4)"),
    "whole rectangle": (lambda: brindle.AllocatedRect2DI(1, 2, 3, 4), "AllocatedRect2DI(1, 2, 3, 4)"),
    "colour": (lambda: brindle.Colour(1, 2, 3, 4), "Colour(1, 2, 3, 4)"),
    "gradient position": (lambda: brindle.PaletteGradientPosition(12.5, [1, 2, 3]),
                          "PaletteGradientPosition(12.5, [1, 2, 3, 255])"),
    "transformation": (lambda: brindle.Transformation(), "<brindle.Transformation: not set, depth 0>"),
    "copy options": (lambda: brindle.CopyOptions({"num_frame_src": 5}), "CopyOptions({'num_frame_src': 5})"),
    "paste options": (lambda: brindle.PasteOptions(), "PasteOptions()"),
    "paste action options": (lambda: brindle.PasteActionOptions(), "PasteActionOptions()"),
    "node visit options": (lambda: brindle.NodeVisitOptions({"top_count": 3}), "NodeVisitOptions({'top_count': 3})"),
    "playback options": (lambda: brindle.PlaybackOptions(), "PlaybackOptions()"),
    "report options": (lambda: brindle.ReportOptions(), "ReportOptions()"),
    "frame options": (lambda: brindle.FrameOptions(True, False), None),
    "matrix": (lambda: brindle.Matrix(2), "Matrix([2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1])"),
    "function": (lambda: brindle.PythonFunction(lambda: None), None),
    "bezier": (lambda: brindle.Bezier([[0, 0], [0, 10], [10, 10], [10, 0]]),
               "<brindle.Bezier: (0, 0) [0, 10] [10, 10] (0, 0)>"),
    "bezier path": (lambda: brindle.BezierPath.create_rectangle(),
                    "<brindle.BezierPath: (0, 0) (1, 0) (1, 1) (0, 1) (0, 0)>"),
    "vector colour": (lambda: brindle.DrawingVectorColour("0123456789abcdef"),
                      "<brindle.DrawingVectorColour: 0123456789abcdef>"),
    "line style": (lambda: brindle.DrawingVectorLineStyle(),
                   "<brindle.DrawingVectorLineStyle: No_Linestyle, 0, 0000000000000000>"),
    "thickness": (lambda: brindle.DrawingVectorThickness(), "<brindle.DrawingVectorThickness: no path>"),
    "thickness path": (lambda: brindle.DrawingVectorThicknessPath([[0, 1], [1, 2]]),
                       "<brindle.DrawingVectorThicknessPath: 2 keys>"),
    "thickness key": (lambda: brindle.DrawingVectorThicknessPathPoint(0.5, 2),
                      "DrawingVectorThicknessPathPoint(0.5, 2)"),
}


def files(folder):
    """Every file under a folder with its content, but for what is there only while the project is open."""
    folder = pathlib.Path(folder)
    return {str(path.relative_to(folder)): path.read_bytes() for path in sorted(folder.rglob("*"))
            if path.is_file() and path.name != LOCK and path.parent.name != REMOVED}


def png(grey=0):
    """A picture of one pixel."""
    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 1, 1, 8, 0, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(bytes([0, grey]))) + chunk(b"IEND", b""))


def saved(app, folder):
    """The saved form of the open project, byte for byte."""
    app.save()
    return files(folder)


def saved_content(app, folder):
    """The same without the label of the last change, which a change without effect leaves behind."""
    form = saved(app, folder)
    lines = form["project.json"].splitlines(keepends=True)
    return {**form, "project.json": b"".join(line for line in lines if b'"lastChange"' not in line)}


def samples(app):
    """One live object of each class that a script can get, under a name that says where it comes from."""
    scene = app.scene
    nodes = scene.nodes
    peg = nodes.create("PEG", "Sample-Peg")
    child = nodes.create("PEG", "Sample-Child")
    camera = nodes.create("CAMERA", "Sample-Camera")
    read = nodes.create("READ", "Sample-Read")
    write = nodes.create("WRITE", "Sample-Write")
    card = nodes.create("COLOR_CARD", "Sample-Card")
    group = nodes.create("GROUP", "Sample-Group")
    inner = nodes.create("PEG", "Top/Sample-Group/Sample-Inner")
    cable = child.ports_in[0].link(peg)
    angle = peg.attributes["angle"]
    for frame, value in ((1, 0.0), (10, 9.0), (20, -5.0)):
        angle.set_value(frame, value)
    column = angle.column
    columns = scene.columns

    def sample_column(type_, *point):
        made = columns[f"Sample-{type_}"] or columns.create(type_, f"Sample-{type_}")
        made.create_point(1, *point)
        return made

    ease, velocity = sample_column("EASE", 0, 0, 0, 0, 0), sample_column("VELOBASED", 0)
    expression = columns["Sample-EXPR"] or columns.create("EXPR", "Sample-EXPR")
    path, turn = sample_column("3D_PATH", 1, 2, 3), sample_column("QUATERNION_PATH", 1, 2, 3)
    composite = nodes["Top/Composite"]
    scene.metadata["Sample-Data"] = "text"
    element = app.elements.create("Sample-Element" + "-again" * len(app.elements))
    drawing = element.drawings.create("1")
    content = drawing.initialize()
    with brindle.DrawingAccess.editing(content["line"]) as access:
        layer, text, picture = (access.vector_layer_create(type_) for type_ in ("PEN_LAYER", "TEXT_LAYER", "BITMAP_LAYER"))
        stroke, = access.stroke_create([{"path": brindle.BezierPath.create_circle(0, 0, 10)}], layer)
    for type_ in ("DRAWING", "TIMING"):
        if columns[f"Sample-{type_}"] is None:
            columns.create(type_, f"Sample-{type_}")
    exposures, timing = columns["Sample-DRAWING"], columns["Sample-TIMING"]
    peg.metadata["Sample-Data"] = 7
    into_group = group.ports_in.create("peg")
    into_group.link(peg)
    inner.ports_in[0].link(group.multi_port_in.ports_out[0])
    outside = peg.ports_out[0]
    palettes = app.project.palettes
    palette = palettes.create("Colour", "")
    gradient = palette.create_linear_gradient_colour("Sample-Gradient", [255, 0, 0], 0, [0, 0, 255], 100)
    texture = palette.create_texture("Sample-Texture", ROOT / "tests/data/texture.png")
    return {
        "application": app,
        "javascript": app.javascript,
        "javascript object": app.javascript.eval("({list: [1, 2], call: function() { return 1 }})"),
        "javascript script": app.javascript.load_string("var number = 1"),
        "preferences": app.preferences,
        "preference": app.preferences["SP_CONSTANT_SEGMENT"],
        "actions": app.actions,
        "about": app.about,
        "metrics": app.metrics,
        "views": app.views,
        "tools": app.tools,
        "selection": app.selection,
        "project": app.project,
        "resolution": app.project.resolution,
        "named resolution": app.project.resolution.names["PAL"],
        "history": app.project.history,
        "bracket": app.project.history.bracket("Sample"),
        "scenes": app.scenes,
        "scene": scene,
        "aspect": scene.aspect,
        "units": scene.units,
        "center": scene.center,
        "unit converter": scene.unit_converter,
        "metadata": scene.metadata,
        "metadata pair": scene.metadata["Sample-Data"],
        "metadata of a node": peg.metadata,
        "metadata pair of a node": peg.metadata["Sample-Data"],
        "nodes of the scene": nodes,
        "nodes of a group": group.nodes,
        "copied nodes": nodes.copy(),
        "peg": peg,
        "camera": camera,
        "display": nodes["Top/Display"],
        "read": read,
        "group": group,
        "composite": composite,
        "backdrops": group.backdrops,
        "backdrop": group.backdrops.create("Sample-Backdrop"),
        "subselections": peg.subselections,
        "subselection": peg.subselections[0],
        "multi-port in": group.multi_port_in,
        "multi-port out": group.multi_port_out,
        "coordinates": peg.position,
        "node colour": peg.colour,
        "fixed in-ports": peg.ports_in,
        "dynamic in-ports": composite.ports_in,
        "fixed out-ports": peg.ports_out,
        "dynamic out-ports": group.ports_out,
        "in-port": child.ports_in[0],
        "out-port": outside,
        "port of a group": into_group,
        "cable": cable,
        "cables": outside.cables,
        "flat cable": outside.cables_flat[0],
        "flat cables": outside.cables_flat,
        "attributes": peg.attributes,
        "subattributes": peg.attributes["position"].subattributes,
        "copied attributes": peg.attributes.copy(),
        "attribute": peg.attributes["pivot"],
        "attribute group": peg.attributes.create_dynamic_attr("Sample-Group", "DYNAMIC_GROUP"),
        "position attribute": peg.attributes["position"],
        "flat position attribute": peg.attributes.create_dynamic_attr("Sample-Place", "POSITION_2D", "", True),
        "cel": brindle.Cel.read(ROOT / "tests/data/texture.png"),
        "empty cel": brindle.Cel(),
        "node data": brindle.NodeDataHandler("READ"),
        "colour attribute": card.attributes["colour"],
        "enum attribute": write.attributes["format"],
        "enum option": write.attributes["format"].options[1],
        "double attribute": angle,
        "bool attribute": read.attributes["visible"],
        "int attribute": card.attributes["colour.red"],
        "text attribute": write.attributes["path"],
        "drawing attribute": read.attributes["drawing"],
        "element attribute": read.attributes["drawing.element"],
        "timing attribute": read.attributes["drawing.timing"],
        "exposures": exposures,
        "timing column": timing,
        "column": column,
        "column value": column[5],
        "keyframe": column[10],
        "control point": column.control_points.list()[1],
        "control points": column.control_points,
        "palette lists": app.project.palette_lists,
        "palettes": palettes,
        "palette": palette,
        "solid colour": palette[0],
        "gradient": gradient,
        "texture": texture,
        "elements": app.elements,
        "element": element,
        "drawings": element.drawings,
        "drawing": drawing,
        "clipboard": app.clipboard,
        "copy object": app.clipboard.copy(peg),
        "content": content,
        "art layer": content["line"],
        "layer of strokes": layer,
        "text layer": text,
        "picture layer": picture,
        "strokes": layer.strokes,
        "stroke": stroke,
        "contours": layer.contours,
        "contour": layer.contours[0],
        "joints": layer.joints,
        "joint": layer.joints[0],
        "drawing access": access,
        "drawing block": access.editing(content["line"]),
        "columns": columns,
        "ease column": ease,
        "ease value": ease[1],
        "ease point": ease.control_points.list()[0],
        "velocity column": velocity,
        "velocity value": velocity[1],
        "velocity point": velocity.control_points.list()[0],
        "path column": path,
        "velocity of a path": path.velocity_column,
        "path value": path[1],
        "path position": path[1].value,
        "path point": path.control_points.list()[0],
        "position of a path point": path.control_points.list()[0].value,
        "rotation column": turn,
        "expression column": expression,
        "locked block": app.locked(),
        **{name: make() for name, (make, _) in VALUES.items()},
    }


def run(*arguments, timeout=120, **options):
    """Runs a program in a process of its own."""
    texts = [each if isinstance(each, bytes) else str(each) for each in arguments]
    return subprocess.run(texts, capture_output=True, text=True, errors="replace", timeout=timeout,
                          **options)


def run_python(script, *arguments, **options):
    """Runs a Python script, given as text."""
    return run(PYTHON, "-c", script, *arguments, **options)


def run_command(*arguments, **options):
    """Runs the command line."""
    return run(COMMAND, *arguments, **options)


def no_option(command, name):
    """What a command says about an option that it doesn't have."""
    return (f'brindle: There is no option "{name}"; brindle {command} --help lists them. '
            'A name that begins with "-" stands behind "--".\n')


def message_of(call, *arguments, error=brindle.Error):
    """The sentence of the failure of a call; it is a failure of the test when the call succeeds."""
    try:
        result = call(*arguments)
    except error as failure:
        return str(failure)
    raise AssertionError(f"no failure: the call gave {result!r}")
