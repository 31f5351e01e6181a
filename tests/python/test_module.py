"""What the module offers, and under which names."""

import inspect
import re
import subprocess

import brindle
import pytest

import support
from test_metrics import OPTIONS as METRICS_OPTIONS
from test_paste_options import FIELDS as OPTIONS

CLASSES = brindle._describe()
NAMES = [entry["name"] for entry in CLASSES]
PROPERTIES = [(c["name"], p["name"]) for c in CLASSES for p in c["properties"]]
METHODS = [(c["name"], m["name"]) for c in CLASSES for m in c["methods"]]

# Names of C++ members and properties, and the script's name for each.
SNAKE_CASE = [
    ("Column", "n_frames"), ("Column", "get_entry"), ("Column", "set_entry"), ("Column", "reset_iterator"),
    ("KeyframeableColumn", "keyframe_create"), ("KeyframeableColumn", "keyframe_exists"),
    ("BezierColumn", "create_point"), ("DoubleAttribute", "set_value"), ("DoubleAttribute", "set_localvalue"),
    ("DoubleAttribute", "reset_localvalue"), ("Attribute", "get_text_value"), ("Attribute", "set_text_value"),
    ("Node", "parent_scene"), ("Node", "parent_group"), ("Application", "process_one_event"),
    ("Application", "save_as"), ("Application", "thread_lock"), ("Scene", "frame_count"),
    ("GroupNode", "multi_port_in"), ("Scene", "frame_insert"), ("Scene", "frame_remove"),
    ("SceneUnitConverter", "to_field"), ("SceneUnitConverter", "to_ogl"), ("Colour", "from_hsl"),
    ("InPort", "source_node_flat"), ("BezierColumnValue", "handle_left_x"), ("History", "size_unexecuted"),
]

# Public members of value classes: plain attributes, without accessors.
MEMBERS = {
    "Point2d": ("x", "y"), "Point3d": ("x", "y", "z"), "Rect2D": ("width", "height"), "Rect2DI": ("width", "height"),
    "AllocatedRect2D": ("x", "y"), "AllocatedRect2DI": ("x", "y"), "FrameOptions": ("ripple_markers", "extend_exposure"),
    "PaletteGradientPosition": ("position",), **OPTIONS,
    **{kind.__name__: tuple(fields) for kind, fields in METRICS_OPTIONS.items()},
}

# Classes that hold nothing yet, and that nothing gives.
BODILESS = {"Sound", "Waypoint", "RenderHandler", "Composition", "CompositionLayer", "AttributeLayer", "NodeLayer",
            "SoundLayer", "DrawingCompLayer", "GroupLayer", "CompositionList"}

# Accessors that stay in the listing of an object, by class.
VISIBLE_ACCESSORS = {"Attribute": {"set_value"}, "Column": {"set_entry", "get_entry"}, "Matrix": {"get_inverse"},
                     "PegNode": {"set_translation", "set_rotation", "set_scale", "set_skew", "set_pivot",
                                 "set_matrix"}}


@pytest.mark.parametrize("name", NAMES)
def test_a_class_has_its_own_name_in_the_module(name):
    assert getattr(brindle, name).__name__ == name
    assert getattr(brindle, name).__module__ == "brindle"


@pytest.mark.parametrize("name", NAMES)
def test_a_class_tells_what_it_is(name):
    assert getattr(brindle, name).__doc__.endswith(".")


@pytest.mark.parametrize("entry", CLASSES, ids=NAMES)
def test_a_class_derives_from_the_class_it_names(entry):
    cls = getattr(brindle, entry["name"])
    assert cls.__base__.__name__ == entry["base"].removeprefix("brindle.")
    assert issubclass(cls, brindle.BaseObject)


@pytest.mark.parametrize("cls, name", PROPERTIES, ids=".".join)
def test_a_property_has_a_line_of_documentation(cls, name):
    text = getattr(brindle, cls).__dict__[name].__doc__
    assert text and text.endswith(".") and "\n" not in text


@pytest.mark.parametrize("cls, name", METHODS, ids=".".join)
def test_a_method_has_its_signature_and_a_line_of_documentation(cls, name):
    signature, text = getattr(getattr(brindle, cls), name).__doc__.split("\n\n", 1)
    for line in signature.splitlines():
        assert re.fullmatch(rf"{name}\(.*\) -> [A-Za-z0-9_\[\]., |]+", line)
    assert text.endswith(".")


@pytest.mark.parametrize("cls, name", PROPERTIES + METHODS, ids=".".join)
def test_names_are_in_snake_case(cls, name):
    if name not in ("objectName", "default_FOV", "cel3D"):  # Qt's own, and those that have their capitals.
        assert re.fullmatch(r"_*[a-z0-9]+(_[a-z0-9]+)*_*", name)


@pytest.mark.parametrize("cls, name", SNAKE_CASE, ids=".".join)
def test_a_member_has_its_name_in_snake_case(cls, name):
    assert name in dir(getattr(brindle, cls))


@pytest.mark.parametrize("name", ["create", "open", "application"])
def test_a_function_of_the_module_is_documented(name):
    assert inspect.getdoc(getattr(brindle, name)).startswith(f"{name}(")


def test_failures_are_runtime_errors():
    assert brindle.Error.__mro__[:2] == (brindle.Error, RuntimeError)
    assert issubclass(brindle.ArgumentError, (brindle.Error, TypeError))


def test_a_star_import_brings_the_public_names_only():
    names = {}
    exec("from brindle import *", names)
    public = set(NAMES) | {"Error", "ArgumentError", "create", "open", "application"}
    assert {name for name in names if name != "__builtins__"} >= public
    assert not [name for name in names if name.startswith("_") and name != "__builtins__"]


def test_the_part_that_is_loaded_at_its_first_use_is_listed():
    done = support.run_python("import brindle, sys; print('render' in dir(brindle), 'brindle.render' in sys.modules)")
    assert (done.returncode, done.stdout) == (0, "True False\n"), done.stderr


def test_stubs_and_reference_are_up_to_date():
    done = subprocess.run([support.PYTHON, support.ROOT / "scripts/generate_reference.py", "--check"],
                          capture_output=True, text=True)
    assert done.returncode == 0, f"{done.stdout}{done.stderr}\nscripts/generate_reference.py writes them anew"


def test_stubs_are_valid_python():
    stubs = support.ROOT / "service/python/brindle/__init__.pyi"
    compile(stubs.read_text(), str(stubs), "exec")


def test_every_class_has_a_sample_in_these_tests(samples):
    shown = {base.__name__ for sample in samples.values() for base in type(sample).__mro__}
    # Bases of lists that no project gives, nodes that come as plain nodes, and what needs a node that deforms.
    never = {"Deformation", "ReadNode", "MultiPortNode", "MultiPortInNode", "MultiPortOutNode", "View",
             "ViewList", "Tool", *BODILESS}
    assert set(NAMES) - shown == never


def hides(sample, name):
    """The place on a path is shown as its coordinates alone, and a clipboard lists nothing."""
    return (isinstance(sample, brindle.Path3DXYZColumnValue) and name in ("frame", "value")
            or isinstance(sample, brindle.Clipboard))


def test_dir_lists_the_properties_and_methods_of_an_object(samples):
    for sample in samples.values():
        listed = set(dir(sample))
        for cls in type(sample).__mro__:
            for entry in CLASSES:
                if entry["name"] == cls.__name__:
                    for member in entry["properties"] + entry["methods"]:
                        name = member["name"]
                        if not name.startswith(("get_", "set_")):
                            assert (name in listed) != hides(sample, name), (sample, name)


def test_dir_leaves_accessors_out_but_for_the_ones_that_belong_to_a_class(samples):
    for sample in samples.values():
        shown = {name for name in dir(sample) if name.startswith(("get_", "set_"))}
        expected = set()
        for base, names in VISIBLE_ACCESSORS.items():
            if isinstance(sample, getattr(brindle, base)):
                expected |= {name for name in names if hasattr(sample, name)}
        assert shown == expected, sample


def test_dir_lists_what_python_gives_every_object(samples):
    for sample in samples.values():
        for name in ("__class__", "__doc__", "__repr__"):
            assert (name in dir(sample)) != hides(sample, name), (sample, name)


def test_dir_lists_what_a_script_puts_on_an_object():
    class Own(brindle.Point2d):
        def get_label(self):
            return "hidden like other accessors"

    own = Own()
    for name in ("label", "\ud800", "a\0b", "a", "", "get_more"):
        setattr(own, name, 1)
    assert {"label", "\ud800", "a\0b", "a", "", "x"} <= set(dir(own))
    assert not {"get_label", "get_more"} & set(dir(own))
    assert dir(own).count("a") == dir(own).count("x") == 1


def test_the_module_is_loaded_once_in_a_process(folder):
    done = support.run_python('''
import importlib.machinery, importlib.util, sys
import brindle
import brindle._brindle as module
app = brindle.create(sys.argv[1])
scene = app.scene
loader = importlib.machinery.ExtensionFileLoader("other._brindle", module.__file__)
spec = importlib.util.spec_from_loader(loader.name, loader)
try:
    importlib.util.module_from_spec(spec)
except ImportError as error:
    print(error)
for name in [name for name in sys.modules if name.startswith("brindle")]:
    del sys.modules[name]
del brindle, module
import brindle
print(brindle.application() is app, type(scene) is brindle.Scene, brindle.application().scene == scene)
''', folder)
    assert (done.stdout, done.stderr) == ("brindle can be loaded once in a process.\nTrue True True\n", "")


def test_a_getter_stands_behind_each_property(samples):
    for sample in samples.values():
        for name in properties_of(sample):
            try:
                value = getattr(sample, name)
            except brindle.Error as failure:
                assert str(failure) == support.message_of(getattr(sample, f"get_{name}"))
                continue
            assert repr(getattr(sample, f"get_{name}")()) == repr(value)


def test_an_accessor_tells_its_name_as_a_method_does(scene):
    cls = brindle.Scene
    assert (scene.get_frame_count.__name__, cls.set_frame_count.__name__) == ("get_frame_count", "set_frame_count")
    assert scene.set_frame_count.__qualname__ == cls.set_frame_count.__qualname__ == "Scene.set_frame_count"
    assert cls.get_objectName.__qualname__ == "BaseObject.get_objectName"
    assert scene.get_frame_count.__doc__ == "Gives the property frame_count."
    assert repr(cls.get_frame_count) == "<method 'get_frame_count' of 'brindle.Scene' objects>"
    assert repr(scene.set_frame_count) == "<bound method set_frame_count of 'brindle.Scene' object>"


def test_a_setter_stands_behind_each_property_that_can_be_written(samples):
    for sample in samples.values():
        for cls in type(sample).__mro__:
            for entry in CLASSES:
                if entry["name"] == cls.__name__:
                    for member in entry["properties"]:
                        has = hasattr(sample, f"set_{member['name']}")
                        is_member = member["name"] in MEMBERS.get(entry["name"], ())
                        is_method = any(method["name"] == f"set_{member['name']}" for method in entry["methods"])
                        assert has == (member["writable"] and not is_member or is_method), (sample, member["name"])


def test_a_setter_does_what_writing_the_property_does(scene, history):
    scene.set_frame_count(12)
    assert scene.frame_count == 12
    assert scene.get_frame_count() == 12


@pytest.mark.parametrize("call, message", [
    (lambda s: s.get_frame_count(1), "get_frame_count() takes no arguments"),
    (lambda s: s.set_frame_count(), "set_frame_count() takes one argument, by its place"),
    (lambda s: s.set_frame_count(1, 2), "set_frame_count() takes one argument, by its place"),
    (lambda s: s.set_frame_count(value=1), "set_frame_count() takes one argument, by its place"),
    (lambda s: type(s).get_frame_count(), "get_frame_count() needs an object"),
])
def test_an_accessor_refuses_a_wrong_number_of_arguments(scene, call, message):
    assert support.message_of(call, scene, error=TypeError) == message


def properties_of(sample):
    cls = type(sample)
    return [name for name in dir(cls) if hasattr(cls, f"get_{name}") and not callable(getattr(cls, name))]
