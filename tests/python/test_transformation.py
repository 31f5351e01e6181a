"""Transformations that a script makes: they belong to no port."""

import copy
import math
import pickle

import brindle
import pytest
from brindle import Matrix, Point3d, Transformation, Vector3d

import support


@pytest.fixture
def transformation():
    made = Transformation()
    made.translate(1, 2, 3)
    return made


def moved(x, y, z):
    matrix = Matrix()
    matrix.translate(x, y, z)
    return matrix


def test_a_new_one_is_the_identity_and_not_valid():
    made = Transformation()
    assert (made.valid, made.depth, made.deformation_valid, made.deformation) == (False, 0, False, None)
    assert made.matrix == Matrix()
    assert made.origin == Point3d()
    assert str(made) == "Transformation()"


def test_it_is_valid_once_anything_was_set():
    made = Transformation()
    made.matrix = Matrix()
    assert made.valid
    made.reset()
    assert not made.valid


def test_steps_are_added_from_the_right(transformation):
    matrix = moved(1, 2, 3)
    for step in (lambda m: m.scale(2, 3, 4), lambda m: m.rotate_degrees(30), lambda m: m.rotate_degrees(40, [1, 0, 0]),
                 lambda m: m.rotate_radians(1, axis=Vector3d(0, 1, 0)), lambda m: m.skew(10),
                 lambda m: m.translate([5, 6, 7]), lambda m: m.multiply([8, 9])):
        step(transformation)
        step(matrix)
    assert [transformation.matrix[i] for i in range(16)] == pytest.approx([matrix[i] for i in range(16)])
    assert transformation.origin == transformation.matrix.origin


def test_add_takes_a_transformation_or_what_multiply_takes(transformation):
    transformation.add(transformation)
    assert transformation.matrix == moved(2, 4, 6)
    transformation.add([1, 1])
    assert transformation.origin == Point3d(3, 5, 6)


def test_the_inverse_is_a_new_matrix(transformation):
    assert transformation.matrix_inversed() == moved(-1, -2, -3)
    assert transformation.matrix_with_deformation() == moved(1, 2, 3)
    transformation.scale(0, 1, 1)
    assert support.message_of(transformation.matrix_inversed) == "Matrix cannot be inverted."


def test_bad_arguments_leave_it_as_it_is(transformation):
    before = copy.copy(transformation)
    assert support.message_of(transformation.translate, None) == "Failed to identify vector argument."
    assert support.message_of(transformation.scale, 1, math.nan, 1) == "Invalid argument at index 1."
    assert support.message_of(transformation.skew, math.inf) == "Invalid argument at index 0."
    assert transformation == before


def test_resetting_deformations_that_are_not_there_changes_nothing(transformation):
    transformation.deformation_reset()
    assert transformation.matrix == moved(1, 2, 3)


@pytest.mark.parametrize("make", [copy.copy, copy.deepcopy, lambda value: pickle.loads(pickle.dumps(value))],
                         ids=["copy", "deepcopy", "pickle"])
def test_it_is_copied_and_stored_whole(transformation, make):
    transformation.depth = -7
    again = make(transformation)
    assert again == transformation
    assert (again.depth, again.valid) == (-7, True)
    again.depth = 3
    assert transformation.depth == -7
    assert not make(Transformation()).valid


@pytest.mark.parametrize("state", [(), (1.0, 0, True), (1.0, 0, True) + ("a",) * 16, ("1", 0, True) + (1.0,) * 16])
def test_a_stored_one_that_was_tampered_with_is_refused(state):
    rebuild = Transformation().__reduce__()[0]
    with pytest.raises((brindle.Error, TypeError)):
        rebuild(Transformation, state)


def test_a_deformation_is_got_and_not_made():
    with pytest.raises(TypeError):
        brindle.Deformation()
