"""The types that the module tells: they are those of what it gives, and tools can read them."""

import collections.abc
import inspect
import os
import pathlib
import subprocess
import typing

import brindle
import pytest

import support

CLASSES = {entry["name"]: entry for entry in brindle._describe()}
ALIASES = {alias["name"]: alias["type"] for entry in CLASSES.values() for alias in entry["aliases"]}
NAMES = {"Any": object, "Item": object, "Self": object, "Sequence": collections.abc.Sequence, "Literal": typing.Literal,
         "Callable": collections.abc.Callable, "PathLike": os.PathLike, **vars(brindle)}
EXAMPLES = sorted((support.ROOT / "examples").rglob("*.py"))


def type_of(text):
    """The type in a text of a signature."""
    for name, meaning in ALIASES.items():
        text = text.replace(name, f"({meaning})")
    return eval(text.replace("PortList[OutPort]", "PortList"), dict(NAMES))


def is_of(value, expected):
    """Whether a value is of a type, its items included."""
    origin, arguments = typing.get_origin(expected), typing.get_args(expected)
    if origin is None:
        return expected is None and value is None or isinstance(value, (float, int) if expected is float else expected)
    if origin is list:
        return isinstance(value, list) and all(is_of(item, arguments[0]) for item in value)
    if origin is dict:
        return isinstance(value, dict) and all(is_of(item, arguments[1]) for item in value.values())
    return any(is_of(value, argument) for argument in arguments)


def members(kind):
    return [(cls, item) for cls, entry in CLASSES.items() for item in entry[kind]]


def test_stubs_and_examples_pass_mypy(tmp_path):
    environment = {**os.environ, "MYPYPATH": ":".join(
        str(support.ROOT / folder) for folder in ("service/python", "examples/tour", "examples/geometry", "examples/palettes",
                                            "examples/animation", "examples/drawings"))}
    done = subprocess.run([support.PYTHON, "-m", "mypy", "--strict", "--cache-dir", tmp_path,
                           support.ROOT / "service/python/brindle/__init__.pyi", *EXAMPLES],
                          capture_output=True, text=True, cwd=support.ROOT, env=environment)
    assert done.returncode == 0, done.stdout + done.stderr


def test_a_script_with_mistakes_is_told_of_them(tmp_path):
    script = tmp_path / "script.py"
    script.write_text("""import brindle

with brindle.open("walk") as app:
    app.scene.frame_count = "many"
    node = app.scene.nodes["Top/Arm"]
    node.attributes["angle"].set_value(1, 2.5)
    node.nmae = "Leg"
    node.ports_out[0].link(node)
    app.scene.camera = "Top/Camera"
    reveal_type(app.scene.camera)
    reveal_type(app.scene.nodes[1:3])
    reveal_type(brindle.BezierPath()[0].x)
    reveal_type(node.get_position())
    reveal_type(node.copy())
""")
    done = subprocess.run([support.PYTHON, "-m", "mypy", "--strict", "--cache-dir", tmp_path, script],
                          capture_output=True, text=True, cwd=tmp_path,
                          env={**os.environ, "MYPYPATH": str(support.ROOT / "service/python")})
    lines = [line.partition(": ")[2] for line in done.stdout.splitlines()[:-1]]
    assert lines == [
        'error: Incompatible types in assignment (expression has type "str", variable has type "int")  [assignment]',
        'error: "Node" has no attribute "nmae"  [attr-defined]',
        'note: Revealed type is "Union[brindle.CameraNode, None]"',
        'note: Revealed type is "builtins.list[brindle.Node]"',
        'note: Revealed type is "builtins.float"',
        'note: Revealed type is "brindle.Node_Coordinates"',
        'note: Revealed type is "brindle.Node"',
    ]


def test_the_package_says_that_it_has_types():
    assert (pathlib.Path(brindle.__file__).resolve().parent / "py.typed").exists()


def test_what_a_property_gives_is_of_its_type(samples):
    for sample in samples.values():
        for cls in type(sample).__mro__:
            for item in CLASSES.get(cls.__name__, {"properties": []})["properties"]:
                try:
                    value = getattr(sample, item["name"])
                except brindle.Error:
                    continue
                assert is_of(value, type_of(item["type"])), (sample, item["name"], item["type"], value)


def test_the_items_of_a_list_are_of_its_type(samples):
    for sample in samples.values():
        entry = CLASSES[type(sample).__name__]
        line = [CLASSES[cls.__name__] for cls in type(sample).__mro__ if cls.__name__ in CLASSES]
        kind = next((one["items"] for one in line if one["items"]), "")
        if "__iter__" in entry["operators"]:
            assert kind, entry["name"]
            assert all(is_of(item, type_of(kind)) for item in sample), entry["name"]


@pytest.mark.parametrize("cls, item", members("methods"), ids=lambda value: value["name"] if type(value) is dict else value)
def test_a_method_has_a_signature(cls, item):
    function = getattr(getattr(brindle, cls), item["name"])
    names = list(inspect.signature(function).parameters)
    assert names[:1] == ([] if item["static"] else ["self"]) or item["static"]
    for form in item["forms"]:
        arguments = [part.partition(":")[0] for part in split(form)]
        assert names[0 if item["static"] else 1:][:len(arguments)] in (arguments, ["args", "kwargs"], ["args"]), form


def split(form):
    """The arguments in a form: "(a: dict[str, int], b: int = 0) -> None"."""
    depth, parts = 0, [""]
    for character in form[1:form.rindex(") -> ") if ") -> " in form else -1]:
        depth += (character in "[(") - (character in "])")
        if character == "," and depth == 0:
            parts.append("")
        else:
            parts[-1] += character
    return [part.strip() for part in parts if part.strip()]


@pytest.mark.parametrize("cls, item", members("properties"), ids=lambda value: value["name"] if type(value) is dict else value)
def test_an_accessor_has_a_signature(cls, item, samples):
    if not item["accessors"]:
        return
    for name in {f"get_{item['name']}", item["getter"]} - {""}:
        function = vars(getattr(brindle, cls))[name]
        if type(function).__name__ == "Accessor":
            assert str(inspect.signature(function)) == "(self, /)"
    if item["writable"]:
        for name in {f"set_{item['name']}", item["setter"]} - {""}:
            function = vars(getattr(brindle, cls))[name]
            if type(function).__name__ == "Accessor":
                assert str(inspect.signature(function)) == "(self, value, /)"


@pytest.mark.parametrize("function, signature", [
    (brindle.create, "(path, discard=False)"),
    (brindle.Node.move_to, "(self, /, target, x=0, y=0)"),
    (brindle.Colour.from_hsl, "(h, s, l, a)"),
    (brindle.BezierColumn.create_point, "(self, /, frame, value, handle_left_x, handle_left_y, handle_right_x, "
                                        "handle_right_y, const_segment=False, continuity='CORNER')"),
    (brindle.Application.log, "(self, /, message, level=Ellipsis)"),
    (brindle.NodeList.create, "(self, /, *args, **kwargs)"),
    (brindle.FrameOptions, "(ripple_markers=True, extend_exposure=False)"),
    (brindle.Application.__exit__, "(self, /, type, value, traceback)"),
])
def test_a_signature(function, signature):
    assert str(inspect.signature(function)) == signature


def test_a_bound_accessor_has_the_signature_of_its_call(scene):
    assert str(inspect.signature(scene.set_frame_count)) == "(value, /)"
    assert str(inspect.signature(scene.get_frame_count)) == "()"


@pytest.mark.parametrize("cls", [name for name, entry in CLASSES.items() if entry["constructors"]])
def test_a_class_that_can_be_made_has_a_signature(cls):
    assert inspect.signature(getattr(brindle, cls))


# The C++ functions behind properties of another name, in snake case.
ACCESSORS = [
    ("InPort", "source", "get_src", "set_src"), ("InPort", "source_node", "get_src_node", "set_src_node"),
    ("InPort", "source_flat", "get_src_flat", None), ("OutPort", "destinations", "get_dst", None),
    ("Port", "id", "get_port_id", None), ("Port", "node", "get_wrapped_node", None),
    ("Port", "inport", "get_is_inport", None), ("Attribute", "type", "get_type_name", None),
    ("KeyframeableColumn", "control_point_size", "number_of_points", None),
    ("KeyframeableColumn", "hold_start", "get_hold_start_frame", "set_hold_start_frame"),
    ("Matrix", "axis_x", "get_x_axis", "set_x_axis"), ("ProjectResolution", "default_FOV", "get_default_fov", None),
]


@pytest.mark.parametrize("cls, name, getter, setter", ACCESSORS)
def test_an_accessor_exists_under_its_own_name(samples, cls, name, getter, setter):
    item = next(item for item in CLASSES[cls]["properties"] if item["name"] == name)
    assert (item["getter"], item["setter"] or None) == (getter, setter)
    (sample, *_) = [sample for sample in samples.values() if isinstance(sample, getattr(brindle, cls))]
    assert repr(getattr(sample, getter)()) == repr(getattr(sample, name))
    assert getattr(sample, getter).__name__ == getter
    assert setter is None or callable(getattr(sample, setter))


def test_a_setter_under_its_own_name_writes(samples, scene):
    scene.nodes.create("PEG", "Source")
    port = scene.nodes.create("PEG", "Target").ports_in[0]
    port.set_src("Top/Source")
    assert port.get_src_node() == scene.nodes["Top/Source"]


def test_a_list_with_names_tells_a_completer_its_keys(samples, scene):
    assert set(scene.nodes._ipython_key_completions_()) == {node.path for node in scene.nodes}
    attributes = samples["peg"].attributes
    keys = attributes._ipython_key_completions_()
    assert {"position", "position.x", "angle"} <= set(keys)
    assert [attributes[key].full_keyword for key in keys] == keys
    assert brindle.application().scenes._ipython_key_completions_() == [scene.name]


def test_the_version_is_the_builds():
    text = (support.ROOT / "CMakeLists.txt").read_text()
    assert f"VERSION {brindle.__version__} " in text


def test_the_reference_tells_the_c_plus_plus_side():
    page = (support.ROOT / "docs/reference.md").read_text()
    for entry in CLASSES.values():
        assert f"`{entry['class']}`, `{entry['place'].partition(':')[0]}`" in page
