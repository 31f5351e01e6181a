"""Projects that earlier versions of the application saved: each opens with all that is in it.

tests/data/projects has one of each format version, as the application of its time wrote it; they are never changed.
"""

import pathlib
import shutil

import brindle
import pytest

import support

SAMPLES = support.ROOT / "tests" / "data" / "projects"
CURRENT = "v3"


@pytest.fixture
def sample(tmp_path):
    """A copy of the sample of a version."""

    def copy(version):
        return shutil.copytree(SAMPLES / version, tmp_path / version)

    return copy


def test_there_is_a_sample_of_every_version(app, folder):
    assert sorted(path.name for path in SAMPLES.iterdir()) == ["v1", "v2", "v3"]
    for version in SAMPLES.iterdir():
        for content in support.files(version).values():
            assert f'"version": {version.name[1:]},'.encode() in content
    assert f'"version": {CURRENT[1:]},'.encode() in support.files(folder)["project.json"], "the current one is new"


def check_walk(scene):
    """What all samples have in the scene "Walk"."""
    nodes = scene.nodes
    assert [node.path for node in nodes] == [
        "Top/Display", "Top/Composite", "Top/Body", "Top/Arm", "Top/Main d'œuvre", "Top/Hand",
        "Top/Hand/Finger", "Top/Hand/Multi-Port-In", "Top/Drawing", "Top/Paper", "Top/Camera", "Top/Soft", "Top/Film"]
    assert [node.type for node in nodes][5:8] == ["GROUP", "PEG", "MULTIPORT_IN"]
    links = {node.path: node.ports_in[0].source_node.path for node in nodes
             if node.type not in ("MULTIPORT_IN", "COLOR_CARD") and len(node.ports_in) and node.ports_in[0].linked}
    assert links == {"Top/Display": "Top/Composite", "Top/Arm": "Top/Body", "Top/Hand": "Top/Arm",
                     "Top/Hand/Finger": "Top/Hand/Multi-Port-In",
                     "Top/Drawing": "Top/Main d'œuvre", "Top/Camera": "Top/Body", "Top/Soft": "Top/Paper"}
    assert [port.source_node.name for port in nodes["Top/Composite"].ports_in if port.linked] == ["Drawing", "Paper"]
    assert [nodes["Top/Body"].position.x, nodes["Top/Body"].position.y] == [40, -80]
    assert [node.name for node in nodes if not node.enabled] == ["Main d'œuvre"]

    angle = nodes["Top/Arm"].attributes["angle"]
    column = angle.column
    assert column.keyframe_list() == [1, 12, 24, 30, 48]
    assert [point.value for point in column.control_points] == [0.0, 30.5, -15.25, 2.5, 0.0]
    point = column.control_points.list()[3]
    assert (point.handle_left_x, point.handle_left_y, point.handle_right_x, point.handle_right_y,
            point.continuity) == (28, 2, 33, 3, "CORNER")
    assert (column.hold_start, column.hold_stop, column.hold_step) == (1, 12, 2)
    body = nodes["Top/Body"].attributes["position.x"]
    assert (body.value(1), body.value(48), body.column.get_entry(24.5)) == (-3.0, 3.0, 0.0)
    assert nodes["Top/Drawing"].attributes["opacity"].value(20) == 50.0
    assert nodes["Top/Film"].attributes["path"].localvalue() == "frames/walk-####.png"
    assert nodes["Top/Paper"].attributes["colour.red"].localvalue() == 200
    assert nodes["Top/Main d'œuvre"].attributes["position.y"].localvalue() == 0.1


def check_run(scene):
    assert (scene.name, scene.framerate, scene.frame_count) == ("Run, slow", 30.0, 60)
    assert [node.path for node in scene.nodes] == ["Top/Display", "Top/Composite", "Top/Run"]
    assert scene.nodes["Top/Run"].attributes["angle"].column.keyframe_list() == [1, 30]


def test_version_1_opens_with_all_that_is_in_it(sample):
    folder = sample("v1")
    with brindle.open(folder) as app:
        walk, run = app.scenes
        assert (walk.name, walk.framerate, walk.frame_count, walk.frame_start, walk.frame_stop) == ("Walk", 25.0, 48, 3, 40)
        check_walk(walk)
        check_run(run)
        assert not app.project.dirty and app.project.history.size_total == 0
    assert support.files(folder) == support.files(SAMPLES / "v1"), "opening changes nothing"


def test_version_1_gets_what_a_new_project_has_beside(sample, app):
    def settings(project, scene):
        size = project.resolution
        return (size.x, size.y, size.default_name, size.default_FOV, scene.colorspace, scene.aspect.x, scene.aspect.y,
                scene.units.x, scene.units.y, scene.units.z, scene.center.x, scene.center.y, scene.display_name,
                scene.camera, scene.vector_texture_pixel_density, scene.bitmap_texture_pixel_density)

    new = settings(app.project, app.scene)
    with brindle.open(sample("v1")) as old:
        for scene in old.scenes:
            assert settings(old.project, scene) == new


@pytest.mark.parametrize("version", ["v1", "v2"])
def test_an_older_version_is_saved_in_the_current_one_and_has_all_of_it(sample, version):
    folder = sample(version)
    with brindle.open(folder) as app:
        first = support.saved(app, folder)
    assert all(f'"version": {CURRENT[1:]},'.encode() in content for content in first.values())
    assert first.keys() == support.files(SAMPLES / version).keys()
    with brindle.open(folder) as app:
        check_walk(app.scene)
        check_run(list(app.scenes)[1])
        assert support.saved(app, folder) == first


def test_version_1_is_as_it_was_while_it_is_read_only(sample):
    folder = sample("v1")
    with brindle.open(folder, read_only=True) as app:
        check_walk(app.scene)
    assert support.files(folder) == support.files(SAMPLES / "v1")


def check_second_version(walk, run):
    """What the samples have since version 2."""
    size = brindle.application().project.resolution
    assert (size.x, size.y, size.default_name) == (720, 500, "")
    assert (walk.frame_count, walk.frame_start, walk.frame_stop, walk.framerate) == (50, 3, 40, 25.0)
    assert walk.colorspace == "Display P3"
    assert (walk.aspect.x, walk.units.x, walk.units.y, walk.units.z) == (3.0, 16, 24, 8)
    assert (walk.center.x, walk.center.y) == (3, -2)
    assert (walk.camera_path, walk.display_name) == ("Top/Camera", "Display")
    assert (run.camera_path, run.display) == ("NONE", None)
    check_walk(walk)
    check_run(run)


def test_version_2_opens_with_all_that_is_in_it(sample):
    folder = sample("v2")
    with brindle.open(folder) as app:
        check_second_version(*app.scenes)
        assert not len(app.scene.metadata)
        assert not app.project.dirty
    assert support.files(folder) == support.files(SAMPLES / "v2"), "opening changes nothing"


def test_the_current_version_opens_with_all_that_is_in_it_and_is_saved_as_it_stands(sample):
    folder = sample(CURRENT)
    with brindle.open(folder) as app:
        walk, run = app.scenes
        check_second_version(walk, run)
        assert walk.metadata.map() == {"shot": "SQ010_0040", "takes": 3, "seconds": 2.5, "approved": True,
                                       "Note: \"main\" d'œuvre": "two\nlines"}
        assert (walk.metadata["shot"].creator, walk.metadata["shot"].version) == ("breakdown", "1.2")
        assert support.saved(app, folder) == support.files(SAMPLES / CURRENT)
        app.scene.frame_count = 70
        assert support.saved(app, folder) != support.files(SAMPLES / CURRENT)
        app.project.history.undo(1)
        assert support.saved(app, folder) == support.files(SAMPLES / CURRENT)


def test_info_tells_what_is_in_the_samples():
    lines = {version: support.run_command("info", SAMPLES / version).stdout.splitlines() for version in ("v1", "v2")}
    scenes = 'Scene "Walk": {} frames (3 to 40) at 25 fps, 13 nodes, 3 columns, {} markers'
    second = 'Scene "Run, slow": 60 frames (1 to 60) at 30 fps, 3 nodes, 1 column, 0 markers'
    assert lines["v1"][:7] == [f"Project: {SAMPLES}/v1", "Resolution: HD_1080, 1920 x 1080", "Colour space: sRGB",
                               scenes.format(48, 0), second,
                               "All 2 scenes: 108 frames, 16 nodes, 4 columns, 0 markers", "Last change: none"]
    assert lines["v2"][1] == "Resolution: 720 x 500" and lines["v2"][3:5] == [scenes.format(50, 2), second]
    assert lines["v2"][6] == "Last change: Set Number of Frames"
    assert not any(path.name == support.LOCK for path in pathlib.Path(SAMPLES).rglob("*"))
