"""The example retime.py: a project at another frame rate keeps its timing."""

import shutil

import brindle
import pytest

import support

SCRIPT = support.ROOT / "examples" / "retime.py"
KEYS = ((1, 0.0), (7, 4.0), (13, -30.5), (25, 12.25), (48, 3.0))


@pytest.fixture
def project(tmp_path):
    """48 frames at 24 fps, played from 5 to 40, with curves in a group, with handles, a constant piece and a hold."""
    folder = tmp_path / "walk"
    with brindle.create(folder) as app:
        scene = app.scene
        scene.frame_count, scene.frame_start, scene.frame_stop = 48, 5, 40
        arm = scene.nodes.create("PEG", "Arm").attributes["angle"]
        for frame, value in KEYS:
            arm.set_value(frame, value)
        arm.column.create_point(13, -30.5, 10, -31, 16, -29, False, "SMOOTH")
        arm.column.create_point(25, 12.25, 22, 12, 30, 13, True, "CORNER")
        scene.nodes.create("GROUP", "Rig")
        hand = scene.nodes.create("PEG", "Top/Rig/Hand").attributes["position.x"]
        hand.set_value(3, 1.0)
        hand.set_value(60, 2.0)  # Behind the last frame.
        hand.column.hold_start, hand.column.hold_stop, hand.column.hold_step = 9, 24, 2
        app.save()
    return folder


def retime(*arguments):
    done = support.run_command("run", SCRIPT, *arguments)
    return done.returncode, done.stdout.splitlines(), done.stderr


def curve(app, path, attribute):
    return app.scene.nodes[path].attributes[attribute]


def points(column):
    return [(point.frame, point.value, point.handle_left_x, point.handle_left_y, point.handle_right_x,
             point.handle_right_y, point.const_segment, point.continuity) for point in column.control_points]


def scaled(points, factor):
    def moment(frame):
        return 1 + (frame - 1) * factor

    return [(moment(frame), value, moment(left), left_y, moment(right), right_y, *rest)
            for frame, value, left, left_y, right, right_y, *rest in points]


def test_twice_the_rate_has_the_same_values_at_the_same_moments(project):
    with brindle.open(project) as app:
        arm, hand = curve(app, "Top/Arm", "angle"), curve(app, "Top/Rig/Hand", "position.x")
        before = points(arm.column), points(hand.column)
        values = [arm.column.get_entry(1 + step / 2) for step in range(95)]
    assert retime(project, "--fps", 48)[::2] == (0, "")
    with brindle.open(project) as app:
        scene = app.scene
        assert (scene.framerate, scene.frame_count, scene.frame_start, scene.frame_stop) == (48.0, 96, 9, 80)
        arm, hand = curve(app, "Top/Arm", "angle"), curve(app, "Top/Rig/Hand", "position.x")
        assert points(arm.column) == scaled(before[0], 2) and points(hand.column) == scaled(before[1], 2)
        assert (hand.column.hold_start, hand.column.hold_stop, hand.column.hold_step) == (17, 48, 2)
        assert [arm.column.get_entry(1 + step) for step in range(95)] == pytest.approx(values, abs=1e-9)


def test_half_the_rate_takes_the_keys_along_before_the_scene_gets_shorter(project):
    assert retime(project, "--fps", 12)[0] == 0
    with brindle.open(project) as app:
        scene = app.scene
        assert (scene.framerate, scene.frame_count, scene.frame_start, scene.frame_stop) == (12.0, 24, 3, 20)
        arm, hand = curve(app, "Top/Arm", "angle").column, curve(app, "Top/Rig/Hand", "position.x").column
        assert [(point.frame, point.value) for point in arm.control_points] == [
            (1, 0.0), (4, 4.0), (7, -30.5), (13, 12.25), (24, 3.0)]
        assert hand.keyframe_list() == [2, 31]


def test_there_and_back_is_the_same_project(project):
    before = support.files(project)
    assert retime(project, "--fps", 48)[0] == 0
    assert support.files(project) != before
    assert retime(project, "--fps", 24)[0] == 0
    after = support.files(project)
    assert after.keys() == before.keys() and after["scenes/Scene-1.json"] == before["scenes/Scene-1.json"]
    assert b'"lastChange": "Retime to 24 fps"' in after["project.json"]


def test_the_table_tells_before_and_after(project):
    code, lines, error = retime(project, "--fps", 30)
    assert (code, error) == (0, "")
    assert [line.split() for line in lines] == [
        ["Scene", '"Scene-1"', "before", "after"],
        ["frame", "rate", "24", "fps", "30", "fps"],
        ["frames", "48", "60"],
        ["length", "2.000", "s", "2.000", "s"],
        ["played", "5", "to", "40", "6", "to", "50"],
        ["Top/Arm:", "angle", "1", "7", "13", "25", "48", "1", "9", "16", "31", "60"],
        ["Top/Rig/Hand:", "position.x", "3", "60", "4", "75"],
        [], ["Saved", str(project)]]
    assert len({line.index(word) for line, word in zip(lines[:2], ("before", "24"))}) == 1, "columns stand in line"


def test_out_leaves_the_project_alone(project, tmp_path):
    before = support.files(project)
    with brindle.open(project):  # It may even be open elsewhere.
        code, lines, error = retime(project, "--fps", 60, "--out", tmp_path / "smooth")
    assert (code, lines[-1], error) == (0, f"Saved {tmp_path / 'smooth'}", "")
    assert support.files(project) == before
    with brindle.open(tmp_path / "smooth") as app:
        assert (app.scene.framerate, app.scene.frame_count) == (60.0, 120)


def test_all_scenes_are_scaled_each_by_its_own_rate(tmp_path):
    folder = shutil.copytree(support.ROOT / "tests" / "data" / "projects" / "v2", tmp_path / "two")
    code, lines, error = retime(folder, "--fps", 50)
    assert (code, error) == (0, "")
    with brindle.open(folder) as app:
        walk, run = app.scenes
        assert (walk.framerate, walk.frame_count, run.framerate, run.frame_count) == (50.0, 100, 50.0, 100)
        assert walk.nodes["Top/Arm"].attributes["angle"].column.keyframe_list() == [1, 23, 47, 59, 95]
        assert run.nodes["Top/Run"].attributes["angle"].column.keyframe_list() == [1, 49]
    assert [line for line in lines if line.startswith("Scene")] == [
        line for line in lines if line.split()[-2:] == ["before", "after"]]


def test_keys_that_would_meet_are_refused_and_kept_apart_exactly(project):
    before = support.files(project)
    code, lines, error = retime(project, "--fps", 2)
    assert (code, lines) == (1, []) and error.count("\n") == 1
    assert error.startswith("retime: two keyframes of Top/Arm: angle would stand at frame ")
    assert error.endswith("; --exact keeps them apart.\n")
    assert support.files(project) == before
    assert retime(project, "--fps", 2, "--exact")[0] == 0
    with brindle.open(project) as app:
        frames = [point.frame for point in curve(app, "Top/Arm", "angle").column.control_points]
        assert frames == pytest.approx([1 + (frame - 1) / 12 for frame, _ in KEYS])


@pytest.mark.parametrize("fps", [12, 12.5, 7, 23.976, 30000 / 1001])
def test_the_last_pose_stays_in_the_scene(project, fps):
    assert retime(project, "--fps", fps)[0] == 0
    with brindle.open(project) as app:
        scene, arm = app.scene, curve(app, "Top/Arm", "angle")
        assert max(arm.column.keyframe_list()) <= scene.frame_count
        assert arm.value(scene.frame_count) == 3.0


def test_keys_that_no_place_is_between_are_refused_without_advice(project):
    with brindle.open(project) as app:
        app.scene.framerate = 1e300
        app.save()
    code, lines, error = retime(project, "--fps", 24, "--exact")
    assert (code, lines) == (1, [])
    assert error == "retime: two keyframes of Top/Arm: angle would stand at frame 1.\n"


@pytest.mark.parametrize("rate", [1e-300, 5e-324, 1e-5])
def test_a_scene_that_would_be_too_long_is_told_and_left_alone(project, rate):
    with brindle.open(project) as app:
        app.scene.framerate = rate
        app.save()
    before = support.files(project)
    assert retime(project, "--fps", 24) == (1, [], 'retime: scene "Scene-1" would have more than 1,000,000 frames.\n')
    assert support.files(project) == before


def test_a_hold_of_all_frames_stays_one(project):
    with brindle.open(project) as app:
        curve(app, "Top/Rig/Hand", "position.x").column.hold_stop = 2**31 - 1
        app.save()
    assert retime(project, "--fps", 48)[0] == 0
    with brindle.open(project) as app:
        assert curve(app, "Top/Rig/Hand", "position.x").column.hold_stop == 2**31 - 1


@pytest.mark.parametrize("arguments, code, said", [
    ((), 2, "usage: retime"), (("walk",), 2, "--fps"), (("walk", "--fps", "fast"), 2, "invalid rate value: 'fast'"),
    (("walk", "--fps", "0"), 2, "a frame rate is above 0"), (("walk", "--fps", "-5"), 2, "usage: retime"),
    (("walk", "--fps", "nan"), 2, "a frame rate is above 0"), (("walk", "--fps", "inf"), 2, "a frame rate is above 0"),
    (("/nowhere", "--fps", "30"), 1, 'retime: Cannot open the project: "/nowhere" does not exist.'),
])
def test_what_does_not_fit_is_told(arguments, code, said):
    done = retime(*arguments)
    assert done[0] == code and said in done[2] and "Traceback" not in done[2]


def test_a_folder_that_holds_a_project_is_not_overwritten(project):
    before = support.files(project)
    code, lines, error = retime(project, "--fps", 30, "--out", project)
    assert (code, error) == (1, f'retime: Cannot save the project: "{project}" already holds a project.\n')
    assert support.files(project) == before
