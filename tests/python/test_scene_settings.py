"""The settings of a scene and of its project as a script sees them: what they do, their labels, how they are refused."""

import copy
import pickle

import brindle
import pytest

import support

NAN, INF = float("nan"), float("inf")
VECTOR = "Edit Default Vector Drawings Texture Pixel Density Scene Settings"
BITMAP = "Edit Default Bitmap Drawings Texture Pixel Density Scene Settings"


def sets(owner, name, value):
    return lambda r: setattr(r[owner], name, value)


def reads(owner, *names):
    return lambda r: tuple(getattr(r[owner], name) for name in names)


def camera(value):
    """Writes the camera, with what the rig gives for a name in angle brackets."""
    return lambda r: setattr(r["scene"], "camera", r[value[1:-1]] if str(value).startswith("<") else value)


EDITS = {
    "aspect.x": (sets("aspect", "x", 0.5), ["Set X Units Aspect Ratio"], reads("aspect", "x", "y"), (0.5, 0.125)),
    "aspect.y": (sets("aspect", "y", 0.5), ["Set Y Units Aspect Ratio"], reads("aspect", "y"), (0.5,)),
    "aspect.x of a whole number": (sets("aspect", "x", 2), ["Set X Units Aspect Ratio"], reads("aspect", "x"), (2.0,)),
    "units.x": (sets("units", "x", 12), ["Set Number of X Units"], reads("units", "x", "y", "z"), (12, 24, 12)),
    "units.y": (sets("units", "y", 13), ["Set Number of Y Units"], reads("units", "x", "y", "z"), (24, 13, 12)),
    "units.z": (sets("units", "z", 7), ["Set Number of Z Units"], reads("units", "x", "y", "z"), (24, 24, 7)),
    "center.x": (sets("center", "x", -3), ["Set X Coordinate at Center"], reads("center", "x", "y"), (-3, 0)),
    "center.y": (sets("center", "y", 3), ["Set X Coordinate at Center"], reads("center", "x", "y"), (0, 3)),
    "colorspace": (sets("scene", "colorspace", "ACEScg"), ["Set Working Colour Space"], reads("scene", "colorspace"),
                   ("ACEScg",)),
    "colorspace of now": (sets("scene", "colorspace", "sRGB"), [], reads("scene", "colorspace"), ("sRGB",)),
    "vector density": (sets("scene", "vector_texture_pixel_density", 90), [VECTOR],
                       lambda r: round(r["scene"].vector_texture_pixel_density, 6), 90.0),
    "bitmap density": (sets("scene", "bitmap_texture_pixel_density", 22.5), [BITMAP],
                       lambda r: round(r["scene"].bitmap_texture_pixel_density, 6), 22.5),
    "a camera": (camera("<camera>"), ["Setting Top/Sample-Camera as camera."], reads("scene", "camera_path"),
                 ("Top/Sample-Camera",)),
    "a camera by path": (camera("Top/Sample-Camera"), ["Setting Top/Sample-Camera as camera."],
                         lambda r: r["scene"].camera == r["camera"], True),
    "a camera by camera_path": (sets("scene", "camera_path", "Top/Sample-Camera"),
                                ["Setting Top/Sample-Camera as camera."], lambda r: str(r["scene"].camera),
                                "CameraNode(Top/Sample-Camera)"),
    "a camera among others": (lambda r: setattr(r["scene"], "camera", [r["peg"], "Top/Nobody", r["camera"]]),
                              ["Setting Top/Sample-Camera as camera."], reads("scene", "camera_path"),
                              ("Top/Sample-Camera",)),
    "no camera where none is": (camera(None), [], reads("scene", "camera", "camera_path"), (None, "NONE")),
    "the display of now": (sets("scene", "display", "Top/Display"), [], reads("scene", "display_name"), ("Display",)),
    "no display": (sets("scene", "display", None), ["Unsetting default display."],
                   reads("scene", "display", "display_name"), (None, None)),
    "no display by its name": (sets("scene", "display_name", ""), ["Unsetting default display."],
                               reads("scene", "display_name", "display_names"), (None, ["Display"])),
    "resolution.x": (sets("resolution", "x", 1000), ["Set X Resolution."], reads("resolution", "x", "y", "default_name"),
                     (1000, 1080, "")),
    "resolution.y": (sets("resolution", "y", 1000), ["Set Y Resolution."], reads("resolution", "x", "y", "default_name"),
                     (1920, 1000, "")),
    "resolution.default_name": (sets("resolution", "default_name", "PAL"), ["Set Default Resolution Name"],
                                reads("resolution", "x", "y", "default_name"), (720, 576, "PAL")),
}

NOT_AT_0 = "Invalid argument at index 0."
NO_CAMERA = "Unable to identyify specified camera node."
NO_DISPLAY = "Unable to identyify specified display node."
NONE_OF_THE_KIND = "No valid camera node specified."
NO_COLOURS = "Failed to set the colour space."
NO_SIZE = "Failed to set resolution."
NO_NAME = "Named-resolution cannot be found."


def not_written(kind):
    return f"Failed to write the property (Argument Type {kind})"


REFUSALS = {
    "an aspect that is no number": (sets("aspect", "x", NAN), support.not_finite("x")),
    "an aspect without end": (sets("aspect", "y", INF), support.not_finite("y")),
    "an aspect beyond measure": (sets("aspect", "x", 1e300), NOT_AT_0),
    "an aspect of text": (sets("aspect", "x", "wide"), not_written("QString")),
    "an aspect of nothing": (sets("aspect", "x", None), not_written("NoneType")),
    "units beyond 32 bits": (sets("units", "x", 2**40), not_written("qlonglong")),
    "units of text": (sets("units", "z", "x"), not_written("QString")),
    "units of a list": (sets("units", "y", [1]), not_written("QVariantList")),
    "a center that is no number": (sets("center", "x", NAN), support.not_finite("x")),
    "a center of nothing": (sets("center", "y", None), not_written("NoneType")),
    "an unknown colour space": (sets("scene", "colorspace", "srgb"), NO_COLOURS),
    "an empty colour space": (sets("scene", "colorspace", ""), NO_COLOURS),
    "no colour space": (sets("scene", "colorspace", None), not_written("NoneType")),
    "a density that is no number": (sets("scene", "vector_texture_pixel_density", NAN),
                                    support.not_finite("vector_texture_pixel_density")),
    "a density without end": (sets("scene", "bitmap_texture_pixel_density", -INF),
                              support.not_finite("bitmap_texture_pixel_density")),
    "a density of text": (sets("scene", "bitmap_texture_pixel_density", "x"), not_written("QString")),
    "a camera that is not there": (camera("Top/Nobody"), NO_CAMERA),
    "a camera by its name alone": (camera("Sample-Camera"), NO_CAMERA),
    "a camera of an empty list": (camera([]), NO_CAMERA),
    "a camera of a dict": (camera({"path": "Top/Sample-Camera"}), NO_CAMERA),
    "a camera of a scene": (camera("<scene>"), NO_CAMERA),
    "a camera of a point": (camera("<point 2d>"), NO_CAMERA),
    "a peg as a camera": (camera("<peg>"), NONE_OF_THE_KIND),
    "a display as a camera": (camera("<display>"), NONE_OF_THE_KIND),
    "the root group as a camera": (camera("Top"), NONE_OF_THE_KIND),
    "a camera beyond the list": (camera(500), "Index is out of range."),
    "a camera before the list": (camera(-1), "Index is out of range."),
    "a camera_path that is not there": (sets("scene", "camera_path", "x"), NO_CAMERA),
    "a display that is not there": (sets("scene", "display", "Top/Nobody"), NO_DISPLAY),
    "a peg as a display": (lambda r: setattr(r["scene"], "display", r["peg"]), NONE_OF_THE_KIND),
    "a camera as a display by name": (sets("scene", "display_name", "Top/Sample-Camera"), NONE_OF_THE_KIND),
    "a width of 0": (sets("resolution", "x", 0), NO_SIZE),
    "a width below 0": (sets("resolution", "x", -1), NO_SIZE),
    "a width beyond measure": (sets("resolution", "x", 2**31 - 1), NO_SIZE),
    "a width beyond 32 bits": (sets("resolution", "x", 2**31), not_written("qlonglong")),
    "a height beyond measure": (sets("resolution", "y", 10**6), NO_SIZE),
    "a height that is no number": (sets("resolution", "y", NAN), support.not_finite("y")),
    "a resolution without a name": (sets("resolution", "default_name", ""), NO_NAME),
    "a resolution of an unknown name": (sets("resolution", "default_name", "pal"), NO_NAME),
    "a field of view": (sets("resolution", "default_FOV", 50.0), "Property is read-only."),
    "names of resolutions": (sets("resolution", "names", {}), "Property is read-only."),
    "a named width": (sets("named resolution", "x", 5), "Property is read-only."),
    "colour spaces": (sets("scene", "colorspaces", []), "Property is read-only."),
    "displays": (sets("scene", "displays", []), "Property is read-only."),
    "a unit converter": (sets("scene", "unit_converter", None), "Property is read-only."),
}


@pytest.mark.parametrize("name", EDITS)
def test_a_setting_is_changed_undone_and_redone(edit, name):
    edit(*EDITS[name])


@pytest.mark.parametrize("name", REFUSALS)
def test_a_refusal_has_its_sentence_and_changes_nothing(refuse, name):
    refuse(*REFUSALS[name])


@pytest.mark.parametrize("setting, values", [
    ("aspect.x", (0, -1.0)), ("aspect.y", (0, -1.0)), ("units.x", (0, -1, 2**31 - 1)), ("units.z", (0, -5)),
    ("vector_texture_pixel_density", (0, -1.0)), ("bitmap_texture_pixel_density", (0, -1.0)),
])
def test_what_the_project_does_not_take_changes_nothing(scene, state, setting, values):
    before = state()
    *path, name = setting.split(".")
    owner = getattr(scene, path[0]) if path else scene
    for value in values:
        setattr(owner, name, value)
    assert state() == before


@pytest.mark.parametrize("value", [None, "", "0", "false", False, 0, 0.0])
def test_what_is_not_true_unsets_the_camera(scene, history, value):
    scene.nodes.create("CAMERA", "Eye")
    scene.camera = "Top/Eye"
    history.clear()
    scene.camera = value
    assert scene.camera is None and scene.camera_path == "NONE"
    assert history.list() == ["Unsetting default camera."]
    scene.camera = value
    assert len(history) == 1


def test_a_camera_that_is_read_is_the_node(scene, history):
    eye = scene.nodes.create("CAMERA", "Eye")
    scene.camera = eye
    assert type(scene.camera) is brindle.CameraNode and scene.camera == eye
    scene.camera = scene.camera
    assert history.list() == ["Add Eye", "Setting Top/Eye as camera."]
    eye.name = "%1 Auge"
    assert scene.camera_path == "Top/%1 Auge"


def test_the_first_of_several_cameras_is_set(scene):
    cameras = [scene.nodes.create("CAMERA", name) for name in "ABCDEF"]
    for named in (cameras, cameras[::-1], cameras[3:] + cameras[:3]):
        scene.camera = ["Top/Display", *named]
        assert scene.camera == named[0]


def test_a_camera_that_goes_is_unset_and_comes_back_by_undo(scene, history):
    eye = scene.nodes.create("CAMERA", "Eye")
    scene.camera = eye
    held = scene.camera
    scene.nodes.remove(eye)
    assert scene.camera is None
    assert support.message_of(lambda: held.path) == support.NODE_GONE
    history.undo()
    assert scene.camera_path == "Top/Eye"


def test_the_display_tells_three_cases_apart(scene):
    assert (str(scene.display), scene.display_name) == ("DisplayNode(Top/Display)", "Display")
    scene.display = None
    assert (scene.display, scene.display_name) == (None, None)
    scene.nodes.remove("Top/Display")
    assert (scene.display, scene.display_name, scene.displays, scene.display_names) == (None, "", [], [])


def test_all_displays_are_listed(scene):
    scene.nodes.create("GROUP", "Wall")
    scene.nodes.create("DISPLAY", "Top/Wall/Left")
    scene.nodes.create("DISPLAY", "Right")
    assert scene.display_names == ["Display", "Left", "Right"]
    assert [display.path for display in scene.displays] == ["Top/Display", "Top/Wall/Left", "Top/Right"]
    assert {type(display) for display in scene.displays} == {brindle.DisplayNode}
    scene.display = scene.displays[1]
    assert scene.display_name == "Left"


def test_every_colour_space_that_is_listed_can_be_set(scene):
    assert "sRGB" in scene.colorspaces and len(set(scene.colorspaces)) == len(scene.colorspaces) > 10
    for name in scene.colorspaces:
        scene.colorspace = name
        assert scene.colorspace == name


def test_every_resolution_that_has_a_name_can_be_chosen(app):
    resolution = app.project.resolution
    names = resolution.names
    assert type(names) is dict and "HD_1080" in names and len(names) > 10
    for name, row in names.items():
        assert (row.name, type(row)) == (name, brindle.ProjectNamedResolution)
        resolution.default_name = name
        assert (resolution.x, resolution.y, resolution.default_name) == (row.x, row.y, name)
        assert row.fov > 0 and row.framerate > 0 and row.projection == "Perspective"


def test_the_texts_of_the_settings(scene, app):
    assert str(scene.aspect) == "SceneAspect(0.166667, 0.125)"
    assert str(scene.units) == "SceneUnits(24, 24, 12)"
    assert str(scene.center) == "SceneCenter(0, 0)"
    assert str(scene.unit_converter) == "SceneUnitConverter()"
    assert str(app.project.resolution) == "ProjectResoluion(1920,1080,41.112)"
    assert str(app.project.resolution.names["PAL"]) == "ProjectNamedResolution(PAL,720,576,41.112,25)"


def test_a_view_of_the_settings_follows_them(scene, history):
    units = scene.units
    scene.units.x = 10
    assert units.x == 10
    history.undo()
    assert units.x == 24


def test_all_settings_are_saved(app, folder):
    scene, resolution = app.scene, app.project.resolution
    scene.nodes.create("CAMERA", "Eye")
    scene.framerate, scene.frame_start, scene.frame_stop = 12.5, 5, 40
    scene.units.x, scene.units.z, scene.aspect.y, scene.center.y = 15, 7, 0.5, -4
    scene.colorspace, scene.camera, scene.display = "ACEScg", "Top/Eye", None
    scene.vector_texture_pixel_density = 33.3
    resolution.x = 1234
    texts = [str(thing) for thing in (scene.units, scene.aspect, scene.center, resolution)]
    density = scene.vector_texture_pixel_density
    before = support.saved(app, folder)
    app.close()
    again = brindle.open(folder)
    scene, resolution = again.scene, again.project.resolution
    assert [str(thing) for thing in (scene.units, scene.aspect, scene.center, resolution)] == texts
    assert (scene.framerate, scene.frame_start, scene.frame_stop) == (12.5, 5, 40)
    assert (scene.colorspace, scene.camera_path, scene.display_name) == ("ACEScg", "Top/Eye", None)
    assert scene.vector_texture_pixel_density == density
    assert support.saved(again, folder) == before


# Converting points and coordinates.

def test_a_point_comes_back_as_its_kind(scene):
    converter = scene.unit_converter
    for point in (brindle.Point2d(6, -3), brindle.Point3d(6, -3, 2)):
        there = converter.to_ogl(point)
        assert type(there) is type(point)
        back = converter.to_field(there)
        assert (round(back.x, 9), round(back.y, 9)) == (6.0, -3.0)


@pytest.mark.parametrize("value, point", [
    ([12, 12, 12], (4 / 3, 1, 1)), ((12, 12), (4 / 3, 1, 0)), ([], (0, 0, 0)), (12, (4 / 3, 1, 1)), ("x", (0, 0, 0)),
    (None, (0, 0, 0)), ({"x": 1}, (0, 0, 0)), ([12, [1]], (4 / 3, 0, 0)),
])
def test_what_a_point_is_read_from_gives_a_point_in_space(scene, value, point):
    converted = scene.unit_converter.to_ogl(value)
    assert type(converted) is brindle.Point3d
    assert (converted.x, converted.y, converted.z) == pytest.approx(point)


@pytest.mark.parametrize("make", [
    lambda s: brindle.Vector3d(1, 2, 3), lambda s: brindle.Vector2d(1, 2), lambda s: s, lambda s: s.units,
    lambda s: s.unit_converter, lambda s: s.nodes[0], lambda s: s.nodes[0].position, lambda s: brindle.Matrix([1, 2]),
])
def test_a_vector_and_other_objects_are_no_points(scene, make):
    for convert in (scene.unit_converter.to_field, scene.unit_converter.to_ogl):
        assert support.message_of(convert, make(scene)) == "Unable to convert the point."


def test_a_coordinate_takes_the_factor_of_its_axis(scene):
    converter = scene.unit_converter
    for axis, factor in (("x", 1 / 9), ("y", 1 / 12), ("z", 1 / 12)):
        for name in (axis, axis.upper()):
            assert converter.to_ogl(1.0, name) == pytest.approx(factor)
            assert converter.to_field(1, name) == pytest.approx(1 / factor)
    for axis in ("w", "", "xy", " x", "0"):
        for convert in (converter.to_field, converter.to_ogl):
            assert support.message_of(convert, 1.0, axis) == "Invalid axis provided -- only X,Y,Z is allowed."


@pytest.mark.parametrize("arguments", [(), (1, 2), (1, None), ("1", "x"), (1, "x", 2), (None, "x")])
def test_a_conversion_of_something_else_is_a_type_error(scene, arguments):
    with pytest.raises(TypeError):
        scene.unit_converter.to_field(*arguments)


def test_numbers_that_are_not_finite_stay_so(scene):
    converter = scene.unit_converter
    assert converter.to_ogl(INF, "x") == INF and converter.to_ogl(NAN, "x") != converter.to_ogl(NAN, "x")
    assert converter.to_field(brindle.Point2d(-INF, 1)).x == -INF


def test_frame_options_are_plain_values():
    options = brindle.FrameOptions()
    assert (options.ripple_markers, options.extend_exposure) == (True, False)
    options = brindle.FrameOptions(extend_exposure=True, ripple_markers=False)
    assert str(options) == repr(options) == "FrameOptions(False, True)"
    other = options.copy()
    other.ripple_markers = True
    assert (options.ripple_markers, other.ripple_markers, other.extend_exposure) == (False, True, True)
    for again in (copy.copy(options), copy.deepcopy(options), pickle.loads(pickle.dumps(options))):
        assert str(again) == "FrameOptions(False, True)"
    for call in (lambda: brindle.FrameOptions("x"), lambda: brindle.FrameOptions(True, None),
                 lambda: brindle.FrameOptions(True, True, True), lambda: setattr(options, "ripple_markers", "x")):
        with pytest.raises(TypeError):
            call()


@pytest.mark.parametrize("cls", ["Sound", "Waypoint", "RenderHandler", "Composition", "CompositionLayer", "NodeLayer",
                                 "CompositionList", "Bracket", "ProjectResolution", "ProjectNamedResolution",
                                 "SceneAspect", "SceneUnits", "SceneCenter", "SceneUnitConverter"])
def test_a_script_makes_none_of_these_itself(cls):
    with pytest.raises(TypeError, match="got from the project, not made"):
        getattr(brindle, cls)()
