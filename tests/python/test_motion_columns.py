"""Columns of eases, velocities, 3D paths and rotations, as a script sees them."""

import math

import brindle
import pytest

import support


@pytest.fixture
def make(scene, history):
    def made(type_, name="Made"):
        column = scene.columns.create(type_, name)
        history.clear()
        return column
    return made


@pytest.fixture
def ease(make, history):
    ease = make("EASE")
    ease.create_point(1, 0, 0, 0, 4, 180)
    ease.create_point(21, 10, 5, 0, 0, 180)
    history.clear()
    return ease


@pytest.fixture
def path(make, history):
    path = make("3D_PATH")
    path.create_point(1, 0, 0, 0)
    path.create_point(20, 10, 5, -2, 0.5, -0.25, 0.125)
    path.create_point(40, 12, -5, 4)
    history.clear()
    return path


@pytest.fixture
def velocity(make, history):
    velocity = make("VELOBASED")
    velocity.create_point(1, 0)
    velocity.create_point(11, 5)
    history.clear()
    return velocity


def place(value):
    return value.x, value.y, value.z


def refused(call, sentence, state):
    before = state()
    with pytest.raises(brindle.Error) as failure:
        call()
    assert str(failure.value) == sentence
    assert state() == before


# Eases.


def test_an_ease_column_says_what_it_is(ease):
    assert str(ease) == 'EaseColumn("Made")'
    assert ease.tension_ease == 0
    assert str(ease[7]) == 'EaseColumnValue("Made", 7)'
    point = ease.control_points.list()[0]
    assert type(point) is brindle.EaseControlPoint
    assert str(point) == 'EaseControlPoint( "Made", 1 )'
    assert (point.frame, point.value, point.ease_out, point.continuity, point.const_segment) == (1, 0, 4, "CORNER", False)


def test_ease_angles_are_taken_in_degrees_and_read_as_slopes(ease, history):
    ease.create_point(5, 1, 2, 45, 3, 225)
    assert history.list() == ["Set Ease Point Made"]
    assert math.isclose(ease[5].ease_in_angle, 1) and math.isclose(ease[5].ease_out_angle, 1)
    ease.create_point(1, 1, 1, 100, 1, 100, False, "CORNER")
    assert math.isclose(ease[1].ease_in_angle, math.tan(math.radians(85)))
    assert math.isclose(ease[1].ease_out_angle, math.tan(math.radians(100)))


def test_points_written_one_by_one_have_what_they_were_given(make):
    rows = [(10, 2, 3, 10, 4, 200), (1, 5, 1, 0, 6, 100), (30, 0, 2, 45, 1, 260), (20, 1, 1, 1, 1, 181)]
    ease = make("EASE")
    for row in rows:
        ease.create_point(*row)
    for frame, value, ease_in, angle_in, ease_out, angle_out in rows:
        key = ease[frame]
        assert (key.value, key.ease_in, key.ease_out) == (value, ease_in, ease_out)
        assert math.isclose(key.ease_in_angle, math.tan(math.radians(angle_in)))
        assert math.isclose(key.ease_out_angle, math.tan(math.radians(angle_out)), abs_tol=1e-12)


@pytest.mark.parametrize("member, value, label", [
    ("ease_in", 2.5, "Set ease-in on Made"), ("ease_out", 2.5, "Set ease-out on Made"),
    ("ease_in_angle", 0.5, "Set angle ease-in on Made"), ("ease_out_angle", 0.5, "Set angle ease-out on Made"),
    ("const_segment", True, "Set Constant Segment on Made"), ("continuity", "STRAIGHT", "Set Constant Segment on Made"),
    ("value", 3.0, "Set Ease Point Made"),
])
def test_what_an_ease_key_takes(ease, history, state, member, value, label):
    before = state()
    setattr(ease[21], member, value)
    assert getattr(ease[21], member) == value
    assert history.list() == [label]
    setattr(ease[21], member, value)
    assert history.list() == [label], "the same again changes nothing"
    history.undo(1)
    assert state().saved == before.saved


@pytest.mark.parametrize("member, value, sentence", [
    ("ease_in", 1, "Ease-in can only be set on a keyframe."), ("ease_out", 1, "Ease-out can only be set on a keyframe."),
    ("ease_in_angle", 1, "Angle Ease-in can only be set on a keyframe."),
    ("ease_out_angle", 1, "Angle Ease-out can only be set on a keyframe."),
    ("const_segment", True, "Constant Segment can only be set on a keyframe."),
    ("continuity", "CORNER", "Constant Segment can only be set on a keyframe."),
])
def test_between_ease_keys_it_is_refused(ease, state, member, value, sentence):
    refused(lambda: setattr(ease[7], member, value), sentence, state)


def test_ease_values_that_are_refused(ease, state):
    for call, sentence in (
            (lambda: ease.create_point(1, 1, 1, 1, 1, 1, False, "smooth"), "Invalid continuity value smooth"),
            (lambda: ease.create_point(1, 1, 1, 1, 1, 1, False, "corner"), "Invalid continuity value corner"),
            (lambda: ease.create_point(1, math.nan, 1, 1, 1, 1), "Invalid argument at index 1."),
            (lambda: ease.create_point(1, 1, 1, 1, 1, math.inf), "Invalid argument at index 5."),
            (lambda: setattr(ease[1], "continuity", "SMOOTH"),
             "Invalid continuity value SMOOTH. Accepted values are : STRAIGHT, CORNER "),
            (lambda: setattr(ease[1], "value", "much"), "Invalid type set on column value."),
            (lambda: setattr(ease[1], "ease_in", math.nan), support.not_finite("ease_in")),
            (lambda: setattr(ease.control_points.list()[0], "value", 1), "NOT YET IMPLEMENTED")):
        refused(call, sentence, state)


def test_ease_keyframes_come_and_go(ease, history):
    assert type(ease.keyframe_create(11)) is brindle.EaseControlPoint
    assert ease[11].key and ease[15].keyframe_previous.frame == 11 and ease[15].keyframe_next.frame == 21
    assert ease[0].keyframe_previous is None and ease[0].keyframe_next is None and ease[0].continuity == "UNKNOWN"
    history.clear()
    ease[11].key = False
    ease[12].key = True
    assert history.list() == ["Remove Ease Point Made", "Set Ease Point Made"]
    assert ease.keyframe_list() == [1, 12, 21]
    ease[5] = 3.0
    assert ease.get_entry(5) == 3.0
    ease[6] = ease[21]
    assert ease[6].value == 10


# Velocities.


def test_a_velocity_column_says_what_it_is(velocity):
    assert str(velocity) == "VeloBasedColumn(Made)"
    assert str(velocity[3]) == 'VeloBasedColumnValue("Made", 3)'
    point = velocity.control_points.list()[1]
    assert str(point) == 'EaseControlPoint( "Made", 11 )'
    assert velocity.get_entry(6) == 2.5


def test_velocity_labels(velocity, history):
    velocity.create_point(21, 7)
    velocity[21] = 8
    velocity[31].key = True
    velocity[31].key = False
    velocity.control_points.list()[0].value = 1
    assert history.list() == ["Create Velocity Point", "Set Velo Based Point Made", "Set Velo-Based Point Made",
                              "Remove Ease Point Made", "Set Velocity Point"]
    assert velocity.get_entry(1) == 1


def test_a_frame_near_a_velocity_point_finds_it(velocity):
    assert velocity.keyframe_create(1.05).frame == 1.05
    velocity.keyframe_remove(1.05)
    assert velocity.keyframe_create([]) == []


def test_velocity_values_that_are_refused(velocity, state):
    refused(lambda: setattr(velocity.control_points.list()[0], "value", "fast"),
            "Invalid value type, expected a number value.", state)
    refused(lambda: velocity.create_point(math.nan, 1), "Invalid argument at index 0.", state)
    refused(lambda: setattr(velocity[1], "value", None), "Invalid type set on column value.", state)


# Paths.


def test_a_path_says_what_it_is(path):
    assert str(path) == 'Path3DColumn("Made")'
    assert str(path[7]) == 'Path3DColumnValue("Made", 7)'
    assert str(path[7].value) == 'Path3DXYZColumnValue("Made", 7)'
    point = path.control_points.list()[1]
    assert str(point) == 'Path3DControlPoint( "Made", 20 )'
    assert str(point.value) == "Path3DControlPointValue( 10, 5, -2 )"
    assert path.keyframe_list() == [1, 20, 40]
    assert path.control_point_size == len(path.control_points) == 3


def test_a_path_is_read_at_every_frame(path):
    assert place(path[20].value) == place(path.get_entry(20)) == (10, 5, -2)
    assert place(path[-5].value) == (0, 0, 0) and place(path[99].value) == (12, -5, 4)
    assert (path[30].tension, path[30].continuity, path[30].bias) == (0.5, -0.25, 0.125)
    with pytest.raises(brindle.Error, match="^An unexpected error has occurred.$"):
        path[0].tension


@pytest.mark.parametrize("member, value, label", [
    ("tension", -1.0, "Setting tension on Made"), ("continuity", 1.0, "Setting continuity on Made"),
    ("bias", 0.75, "Setting bias on Made"), ("const_segment", True, "Setting const-segment on Made"),
])
def test_what_a_path_key_takes(path, history, state, member, value, label, capfd):
    before = state()
    setattr(path[20], member, value)
    assert getattr(path[20], member) == value
    assert history.list() == [label]
    assert getattr(path.control_points.list()[1], member) == value
    history.undo(1)
    assert state().saved == before.saved


@pytest.mark.parametrize("name", ["Tension", "Continuity", "Bias"])
def test_parameters_have_a_range_and_need_a_keyframe(path, state, name):
    member = name.lower()
    for value in (1.01, -2, math.nan):
        refused(lambda: setattr(path[20], member, value), f"{name} must be between -1.0 and 1.0.", state)
        refused(lambda: setattr(path[21], member, value), f"{name} can only be set on a keyframe.", state)
    refused(lambda: setattr(path[21], "const_segment", True), "Const-segment can only be set on a keyframe.", state)


def test_a_position_in_any_form_makes_a_keyframe(path, history, state):
    before = state()
    path[10] = [1, 2, 3]
    assert history.list() == ["Add 3D Path Key Frame"]
    assert place(path[10].value) == (1, 2, 3) and path[10].key
    path[10].value = brindle.Point3d(4, 5, 6)
    assert place(path[10].value) == (4, 5, 6)
    path[10].set_value_axis(1.0, 1)
    assert place(path[10].value) == (4, 1, 6)
    path[10].value.z = 9
    assert place(path[10].value) == (4, 1, 9)
    path.set_entry(10, 7)
    assert place(path[10].value) == (7, 7, 7)
    history.undo(10)
    assert state().saved == before.saved
    between = place(path[30].value)
    path[30].value.y = 100
    assert place(path[30].value) == (between[0], 100, between[2])
    assert path[30].value.value == brindle.Point3d(between[0], 100, between[2])
    path[35] = path[40]
    assert place(path[35].value) == (12, -5, 4), "another frame gives its place"


def test_what_a_path_refuses(path, state):
    for call, sentence in (
            (lambda: path.remove_point(0), "Invalid Point Index."), (lambda: path.remove_point(3), "Invalid Point Index."),
            (lambda: path.remove_point(-1), "Invalid Point Index."),
            (lambda: path[5].set_value_axis("up", 1), "Invalid argument, expected a number value."),
            (lambda: path[5].set_value_axis(1, 3), "Invalid argument at index 1."),
            (lambda: path[5].set_value_axis(math.nan, 1), "Invalid argument at index 0."),
            (lambda: setattr(path[5].value, "x", math.inf), support.not_finite("x")),
            (lambda: path.create_point(5, 1, 2, math.nan), "Invalid argument at index 3."),
            (lambda: path.create_point(5, 1, 2, 3, 2), "Tension must be between -1.0 and 1.0."),
            (lambda: path.create_point(1e12, 1, 2, 3), "Unable to create point."),
            (lambda: path.convert_to_separate("LINES"),
             "Invalid conversion LINES. Accepted values are : TRANSFORM_MATRIX, BEZIER_FITTER")):
        refused(call, sentence, state)


def test_path_keyframes_come_and_go(path, history, state):
    before = state()
    path[30].key = True
    path[20].key = False
    assert history.list() == ["Add Path Control Point", "Remove Path Control Point"]
    assert path.keyframe_list() == [1, 30, 40]
    assert path[35].keyframe_previous.frame == 30 and path[35].keyframe_next.frame == 40
    assert type(path.keyframe_create(5)) is brindle.Path3DControlPoint
    path.keyframe_clear(1, 10)
    assert path.keyframe_list() == [30, 40]
    history.undo(10)
    assert state().saved == before.saved


def test_control_points_of_a_path(path, history):
    point = path.control_points.list()[1]
    assert (point.frame, point.keyframe) == (20, True)
    point.value = [1, 1, 1]
    point.x, point.y, point.z = 2, 3, 4
    point.tension, point.bias = 0.25, -0.5
    point.const_segment = True
    assert place(point.value) == place(path[20].value) == (2, 3, 4)
    assert (point.tension, point.continuity, point.bias, point.const_segment) == (0.25, -0.25, -0.5, True)
    assert history.list() == ["Set 3D Path Point XYZ", *["Set 3D Path Point X"] * 3, "Set 3D Path Point tension",
                              "Set 3D Path Point bias", "Set 3D Path Point constant segment"]
    path.create_point(10, 0, 0, 0)
    assert point.x == 2, "it is the third one now"
    point.value.x = 8
    assert path[20].value.x == 8
    path.velocity_column.keyframe_remove(20)
    assert not point.keyframe
    with pytest.raises(brindle.Error, match="^Control point is not a keyframe. Only keyframes can be set to constant "
                                            "segment.$"):
        point.const_segment = True
    path.remove_point(2)
    with pytest.raises(brindle.Error, match="^Object is no longer valid.$"):
        point.x


def test_removing_a_point_trims_what_is_not_reached(path, history):
    path.velocity_column.keyframe_remove(20)
    history.clear()
    path.remove_point(2)
    assert history.list() == ["Remove 3D Path Point"]
    assert path.keyframe_list() == [1], "the second point was on the way to the third one alone"
    assert len(path.control_points.list()) == 1


def test_the_velocity_tells_the_place(path):
    velocity = path.velocity_column
    assert [velocity.get_entry(frame) for frame in (1, 20, 40)] == [0, 1, 2]
    velocity[10] = 1.0
    assert place(path[10].value) == (10, 5, -2)
    assert path.keyframe_list() == [1, 10, 20, 40]
    assert path.hold_step == velocity.hold_step == 1
    path.hold_step = 4
    assert velocity.hold_step == 4


@pytest.mark.parametrize("word, tolerance", [("TRANSFORM_MATRIX", 0), ("BEZIER_FITTER", 0.01)])
@pytest.mark.parametrize("type_", ["3D_PATH", "QUATERNION_PATH"])
def test_three_beziers_agree_with_the_path_at_every_frame(scene, make, history, state, word, tolerance, type_):
    path = make(type_)
    for frame, *numbers in ((3, 0, 0, 0), (17, 10, 5, -2), (30, 10, 5, -2), (41, -12, 30, 4), (55, 3, 1, 1)):
        path.create_point(frame, *numbers, 0.2, -0.3, 0.4)
    path[41].const_segment = True
    history.clear()
    before = state()
    made = path.convert_to_separate(word)
    assert history.list() == ["Create Separate beziers"]
    assert [column.name for column in made] == ["Made X", "Made Y", "Made Z"]
    assert [column.name for column in scene.columns] == ["Made", "Made X", "Made Y", "Made Z"]
    for frame in range(1, scene.frame_count + 1):
        for column, number in zip(made, place(path.get_entry(frame))):
            assert abs(column.get_entry(frame) - number) <= tolerance, frame
    history.undo(1)
    assert state().saved == before.saved


# Rotations.


def test_a_quaternion_column_is_a_path_of_rotations(make):
    turn = make("QUATERNION_PATH")
    assert str(turn) == "QuaternionColumn(Made)" and isinstance(turn, brindle.Path3DColumn)
    turn.create_point(1, 0, 0, 10)
    turn.create_point(11, 0, 0, 350)
    assert turn.get_entry(11).z == 350
    assert abs(turn.get_entry(6).z) < 1e-6, "the shorter way round"
    assert abs(turn.get_entry(1 + 10 / 4).z - 5) < 1e-6
    assert [type(point) for point in turn.control_points] == [brindle.Path3DControlPoint] * 2
    turn.remove_point(1)
    assert turn.keyframe_list() == [1]


# Paths that drive a position, and paths as positions.


def test_a_position_is_where_its_path_is(scene, peg, path, history, state):
    position = peg.attributes["position"]
    position.column = path
    assert position.column == path or position.column.name == path.name
    for frame in (1, 9, 20, 33, 40, 60):
        value = position.value(frame)
        assert (value.x, value.y, value.z) == place(path.get_entry(frame))
    matrix = peg.matrix(33)
    moved = scene.unit_converter.to_ogl(position.value(33))
    assert abs(matrix.origin.x - moved.x) < 1e-9 and abs(matrix.origin.y - moved.y) < 1e-9
    history.clear()
    before = state()
    position.set_value(30, [1, 2, 3])
    assert path[30].key and place(path.get_entry(30)) == (1, 2, 3)
    history.undo(1)
    assert state().saved == before.saved
    path[20].value = [7, 8, 9]
    assert place(position.value(20)) == (7, 8, 9)
    position.column = None
    assert place(position.value(20)) == (0, 0, 0)


def test_a_point_is_read_of_a_path_and_of_its_control_points(path):
    points = path.control_points.list()
    point = points[1]
    for value in (point, path[20], path[20].value):
        assert brindle.Point3d.from_qvariant(value) == brindle.Point3d(10, 5, -2)
        assert brindle.Vector3d.from_qvariant(value).y == 5
    assert brindle.Point2d.from_qvariant(point) == brindle.Point2d(10, 5)
    path[40].value = point
    assert place(path[40].value) == (10, 5, -2)
    points[0].value = points[1].value
    assert place(path[1].value) == (10, 5, -2)


def test_a_place_on_a_path_is_a_plain_object_of_three_coordinates(path):
    shown = [name for name in dir(path[20].value) if not name.startswith("_")]
    assert {"x", "y", "z"} <= set(shown) and not {"frame", "value"} & set(shown)


def test_a_conversion_covers_the_path_outside_of_the_scene(scene, path):
    path.create_point(-7, 3, 3, 3)
    path.create_point(90, -30, 20, 10)
    for word in ("TRANSFORM_MATRIX", "BEZIER_FITTER"):
        made = path.convert_to_separate(word)
        for frame in range(-10, 100):
            for column, number in zip(made, place(path.get_entry(frame))):
                assert abs(column.get_entry(frame) - number) <= 0.01, (word, frame)
