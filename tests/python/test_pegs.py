"""Pegs, cameras and displays: the transformation of a peg, its parts, and how it goes down the graph."""

import math

import brindle
import pytest

import support


@pytest.fixture
def peg(app):
    peg = app.scene.nodes.create("PEG", "Peg")
    app.project.history.clear()
    return peg


def labels(app):
    return app.project.history.list()


def cells(matrix):
    return [matrix.get(index) for index in range(16)]


def close(matrix, *others):
    """Whether a matrix is the product of others."""
    product = brindle.Matrix()
    for other in others:
        product.multiply(other)
    return cells(matrix) == pytest.approx(cells(product), abs=1e-9)


def numbers(point):
    return [point.x, point.y, point.z]


def move(app, x, y, z=0.0):
    """A move by fields, in OpenGL units."""
    matrix = brindle.Matrix()
    matrix.translate(*numbers(app.scene.unit_converter.to_ogl(brindle.Point3d(x, y, z))))
    return matrix


def turn(degrees, axis=(0, 0, 1)):
    matrix = brindle.Matrix()
    matrix.rotate_degrees(degrees, brindle.Vector3d(*axis))
    return matrix


def lean(degrees):
    matrix = brindle.Matrix()
    matrix.skew(degrees)
    return matrix


def factors(x, y, z=1.0):
    matrix = brindle.Matrix()
    matrix.scale(x, y, z)
    return matrix


def set_all(peg, full):
    attributes = peg.attributes
    attributes["full_transform"].set_localvalue(full)
    attributes["position"].set_localvalue([3, 4, 5])
    attributes["scale"].set_localvalue([2, 0.5, 3])
    attributes["rotation"].set_localvalue([20, -30, 40])
    attributes["angle"].set_localvalue(30)
    attributes["skew"].set_localvalue(10)
    attributes["pivot"].set_localvalue([1, -2, 0.5])


def test_the_parts_make_the_matrix_in_the_plane(app, peg):
    set_all(peg, False)
    assert close(peg.matrix(1), move(app, 3, 4, 5), move(app, 1, -2, 0.5), turn(30), lean(10), factors(2, 0.5),
                 move(app, -1, 2, -0.5))
    assert (numbers(peg.rotation(1)), numbers(peg.scale(1))) == ([0, 0, 30], [2, 0.5, 1])


def test_the_parts_make_the_matrix_in_space(app, peg):
    set_all(peg, True)
    assert close(peg.matrix(1), move(app, 3, 4, 5), move(app, 1, -2, 0.5), turn(40), turn(-30, (0, 1, 0)),
                 turn(20, (1, 0, 0)), lean(10), factors(2, 0.5, 3), move(app, -1, 2, -0.5))
    assert (numbers(peg.rotation(1)), numbers(peg.scale(1))) == ([20, -30, 40], [2, 0.5, 3])
    assert (peg.skew(1), numbers(peg.translation(1)), numbers(peg.pivot(1)), numbers(peg.pivot(1, True))) == (
        10, [3, 4, 5], [1, -2, 0.5], [1, -2, 0.5])


def test_transformations_multiply_down_the_graph_and_through_groups(app, peg):
    nodes = app.scene.nodes
    group = nodes.create("GROUP", "Group")
    inner = nodes.create("PEG", "Top/Group/Inner")
    read = nodes.create("READ", "Top/Group/Drawing")
    group.ports_in.create("peg").link(peg)
    inner.ports_in[0].link(group.multi_port_in.ports_out[0])
    read.ports_in[0].link(inner)
    group.multi_port_out.ports_in.create(0, "image").link(read)
    peg.attributes["position.x"].set_localvalue(6)
    inner.attributes["angle"].set_localvalue(90)
    read.attributes["scale.y"].set_localvalue(3)
    whole = [move(app, 6, 0), turn(90), factors(1, 3)]
    assert close(inner.matrix(1), *whole[:2])
    assert close(read.ports_out[0].transformation(1).matrix, *whole)
    assert close(group.ports_out[0].transformation(1).matrix, *whole), "that of the node inside which feeds the port"
    assert read.ports_out[0].transformation(1).valid
    inner.enabled = False
    assert close(read.ports_out[0].transformation(1).matrix, whole[0], whole[2]), "a disabled peg lets through"


def test_every_change_above_is_seen_below(app, peg):
    nodes = app.scene.nodes
    below, other = nodes.create("PEG", "Below"), nodes.create("PEG", "Other")
    below.ports_in[0].link(peg)
    history = app.project.history

    def x():
        return below.matrix(5).origin.x

    assert x() == 0
    peg.attributes["position.x"].set_value(5, 12)
    there = x()
    assert there > 0
    history.undo(1)
    assert x() == 0
    history.redo(1)
    assert x() == there
    peg.attributes["position.x"].column[5].value = 6
    assert x() == pytest.approx(there / 2)
    app.scene.units.x *= 2
    assert x() == pytest.approx(there / 4), "the field chart"
    below.ports_in[0].link(other)
    assert x() == 0
    history.undo(1)
    assert x() == pytest.approx(there / 4)
    app.scene.frame_insert(1, 3)
    peg.attributes["position.x"].column = None
    assert x() == 0
    nodes.remove(peg)
    assert x() == 0 and not below.ports_in[0].linked


SETTERS = {
    "translation": (lambda peg: peg.set_translation(5, [1, 2, 3]), "Changing peg translation.",
                    lambda peg: numbers(peg.translation(5)), [1, 2, 3]),
    "scale": (lambda peg: peg.set_scale(5, [2, 3]), "Changing peg scale.", lambda peg: numbers(peg.scale(5)),
              [2, 3, 1]),
    "rotation by a number": (lambda peg: peg.set_rotation(5, 30), "Changing peg rotation.",
                             lambda peg: numbers(peg.rotation(5)), [0, 0, 30]),
    "rotation by three": (lambda peg: peg.set_rotation(5, brindle.Vector3d(1, 2, 30)), "Changing peg rotation.",
                          lambda peg: peg.attributes["angle"].value(5), 30),
    "skew": (lambda peg: peg.set_skew(5, 7), "Changing peg skew.", lambda peg: peg.skew(5), 7),
    "pivot": (lambda peg: peg.set_pivot(5, [1, 2, 3]), "Changing peg pivot.", lambda peg: numbers(peg.pivot(1)),
              [1, 2, 3]),
    "apply_translation": (lambda peg: peg.apply_translation([5, 10], [1, 2, 3]), "Changing peg translation.",
                          lambda peg: [numbers(peg.translation(f)) for f in (5, 10, 11)],
                          [[1, 2, 3], [1, 2, 3], [0, 0, 0]]),
    "apply_scale": (lambda peg: peg.apply_scale(0, [2, 3]), "Changing peg scale.", lambda peg: numbers(peg.scale(5)),
                    [2, 3, 1]),
    "apply_rotation": (lambda peg: peg.apply_rotation(0, 30), "Changing peg rotation.",
                       lambda peg: peg.attributes["angle"].localvalue(), 30),
    "apply_skew": (lambda peg: peg.apply_skew(0, 4), "Changing peg skew.", lambda peg: peg.skew(1), 4),
}


@pytest.mark.parametrize("call, label, read, value", SETTERS.values(), ids=SETTERS)
def test_each_part_is_set(app, folder, peg, call, label, read, value):
    before = support.saved(app, folder)
    call(peg)
    assert (labels(app), read(peg)) == ([label], value)
    after = support.saved(app, folder)
    app.project.history.undo(1)
    assert support.saved(app, folder) == before
    app.project.history.redo(1)
    assert support.saved(app, folder) == after


def test_in_space_all_three_angles_and_factors_are_set(peg):
    peg.attributes["full_transform"].set_localvalue(True)
    peg.set_rotation(1, [10, 20, 30])
    peg.set_scale(1, [2, 3, 4])
    assert (numbers(peg.rotation(1)), numbers(peg.scale(1))) == ([10, 20, 30], [2, 3, 4])
    peg.set_rotation(1, 90)
    assert numbers(peg.rotation(1)) == [10, 20, 90]
    peg.apply_rotation(1, [1, 1, 1])
    peg.apply_scale(1, [2, 2, 2])
    assert (numbers(peg.rotation(1)), numbers(peg.scale(1))) == ([11, 21, 91], [4, 6, 8])


@pytest.mark.parametrize("full", [False, True])
def test_a_matrix_is_taken_apart_and_comes_back(app, folder, peg, full):
    peg.attributes["full_transform"].set_localvalue(full)
    peg.attributes["pivot"].set_localvalue([2, 1, 0])
    app.project.history.clear()
    before = support.saved(app, folder)
    matrix = brindle.Matrix()
    for part in (move(app, 3, -2), turn(35), lean(20) if full else brindle.Matrix(), factors(1.5, 0.75)):
        matrix.multiply(part)
    peg.set_matrix(7, matrix)
    assert labels(app) == ["Applying matrix to peg transformation."]
    assert close(peg.matrix(7), matrix)
    written = ["position.x", "position.y", "position.z", "scale.x", "scale.y", "skew",
               *(["rotation.x", "rotation.y", "rotation.z", "scale.z"] if full else ["angle"])]
    for path in written:
        assert peg.attributes[path].column.keyframe_list() == [7], path
    assert peg.skew(7) == pytest.approx(20 if full else 0)
    app.project.history.undo(1)
    assert support.saved(app, folder) == before


def test_a_matrix_is_added_over_a_range(app, folder, peg):
    matrix = brindle.Matrix()
    for part in (move(app, 2, 1), turn(15), factors(2, 2)):
        matrix.multiply(part)
    before = support.saved(app, folder)
    peg.apply_matrix([5, 10], matrix)
    assert labels(app) == ["Applying matrix to peg transformation."]
    for frame, inside in ((4, False), (5, True), (10, True), (11, False)):
        assert close(peg.matrix(frame), matrix if inside else brindle.Matrix()), frame
    app.project.history.undo(1)
    assert support.saved(app, folder) == before


def test_the_pivot_keeps_its_place_for_the_drawings_below(app, peg):
    read = app.scene.nodes.create("READ", "Drawing")
    read.ports_in[0].link(peg)
    peg.set_pivot(1, [4, 6, 0], True)
    assert numbers(peg.pivot(1)) == [4, 6, 0], "the drawing adds nothing"
    read.attributes["position.x"].set_localvalue(1)
    read.attributes["scale.y"].set_localvalue(2)
    read.attributes["pivot.x"].set_localvalue(0.5)
    peg.set_pivot(1, [4, 6, 0], True)
    assert numbers(peg.pivot(1)) == pytest.approx([2.5, 3, 0])
    read.attributes["scale.y"].set_localvalue(0)
    peg.set_pivot(1, [4, 6, 0], True)
    assert numbers(peg.pivot(1)) == pytest.approx([3.5, 6, 0]), "a collapsed drawing takes off its pivot alone"


UNEXPECTED = "An unexpected error has occurred."
INDEX = "Invalid argument at index 1."

REFUSALS = {
    "skew by a text": (lambda peg: peg.set_skew(1, "7"),
                       "Unable to identify argument type - a number-value is required."),
    "skew without end": (lambda peg: peg.set_skew(1, math.inf), INDEX),
    "rotation that is no number": (lambda peg: peg.set_rotation(1, math.nan), INDEX),
    "rotation of no numbers": (lambda peg: peg.set_rotation(1, [0, math.nan, 0]), INDEX),
    "scale without end": (lambda peg: peg.set_scale(1, [math.inf, 1]), INDEX),
    "translation without end": (lambda peg: peg.set_translation(1, [1, math.inf]), INDEX),
    "pivot without end": (lambda peg: peg.set_pivot(1, [1, math.inf]), INDEX),
    "adding no number": (lambda peg: peg.apply_skew(1, math.nan), INDEX),
    "adding a way without end": (lambda peg: peg.apply_translation([1, 2], [math.inf]), INDEX),
    "adding over no range": (lambda peg: peg.apply_scale([], [1, 1]), "Invalid range specififed."),
    "a matrix that is a text": (lambda peg: peg.set_matrix(1, "x"), UNEXPECTED),
    "a matrix that is nothing": (lambda peg: peg.set_matrix(1, None), UNEXPECTED),
    "a matrix that is a node": (lambda peg: peg.apply_matrix([1, 2], peg), UNEXPECTED),
    "a matrix without end": (lambda peg: peg.set_matrix(1, [math.inf] * 16), INDEX),
}


@pytest.mark.parametrize("call, sentence", REFUSALS.values(), ids=REFUSALS)
def test_what_is_refused_changes_nothing(app, folder, peg, call, sentence):
    before, entries = support.saved(app, folder), labels(app)
    with pytest.raises(brindle.Error) as failure:
        call(peg)
    assert str(failure.value) == sentence
    assert (support.saved(app, folder), labels(app)) == (before, entries)


def test_the_transformation_of_another_port_is_refused(app):
    group = app.scene.nodes.create("GROUP", "Group")
    out = group.ports_out.create("image")
    with pytest.raises(brindle.Error, match=r"^An unexpected error has occurred\.$"):
        out.transformation(1)
    assert group.multi_port_out
    with pytest.raises(brindle.Error, match=r"^Failed to find corresponding port\.$"):
        out.transformation(1)
    peg = app.scene.nodes.create("PEG", "Top/Group/Peg")
    inside = group.ports_in.create("peg") and group.multi_port_in
    group.ports_in.create("peg")
    with pytest.raises(brindle.Error, match=r"^Output transformation is only supported on the first output port\.$"):
        inside.ports_out[1].transformation(1)
    assert peg.ports_out[0].transformation(1).valid


# Cameras and displays.

def test_a_camera_is_made_the_default_one_and_unmade(app, folder):
    camera = app.scene.nodes.create("CAMERA", "Camera")
    app.project.history.clear()
    before = support.saved(app, folder)
    camera.active = False
    assert (camera.active, labels(app)) == (False, [])
    camera.active = True
    camera.active = True
    assert camera.active and app.scene.camera == camera
    assert labels(app) == ["Setting Top/Camera as default camera."]
    camera.active = False
    assert labels(app)[1:] == ["unsetting default camera."]
    app.project.history.undo(1)
    assert camera.active
    app.project.history.undo(1)
    assert support.saved(app, folder) == before


def test_a_display_is_made_the_default_one_and_unmade(app, folder):
    first, second = app.scene.nodes["Top/Display"], app.scene.nodes.create("DISPLAY", "Second")
    app.project.history.clear()
    before = support.saved(app, folder)
    assert first.active and not second.active
    second.active = True
    assert second.active and not first.active
    second.active = False
    assert labels(app) == ["Setting Top/Second as default display.", "Unsetting default display."]
    app.project.history.undo(2)
    assert support.saved(app, folder) == before and first.active


def test_the_matrix_of_a_camera_is_that_of_its_peg(app, peg):
    camera = app.scene.nodes.create("CAMERA", "Camera")
    assert camera.matrix(1).identity
    camera.ports_in[0].link(peg)
    peg.attributes["angle"].set_localvalue(30)
    camera.attributes["angle"].set_localvalue(7)
    assert close(camera.matrix(1), turn(30))
