"""What the tests of the Python module share: a project of their own for each, and the sample objects of every class."""

import pathlib

import brindle
import pytest

import support


@pytest.fixture
def folder(tmp_path):
    """Where the test's project is."""
    return tmp_path / "project"


@pytest.fixture
def app(folder):
    """A new project, open; closed at the end of the test."""
    with brindle.create(folder) as application:
        yield application


@pytest.fixture
def scene(app):
    return app.scene


@pytest.fixture
def history(app):
    return app.project.history


@pytest.fixture
def peg(scene):
    """A node to work on. Its making stands in the history no more."""
    node = scene.nodes.create("PEG", "Arm")
    scene.nodes.create("PEG", "Body")
    brindle.application().project.history.clear()
    return node


@pytest.fixture
def column(peg):
    """A curve with keys at 1, 10 and 20, driving Arm's angle."""
    angle = peg.attributes["angle"]
    for frame, value in ((1, 0.0), (10, 9.0), (20, -5.0)):
        angle.set_value(frame, value)
    brindle.application().project.history.clear()
    return angle.column


@pytest.fixture
def state(app, folder):
    """Asked again and again: the saved form and the undo list, which a failure must leave as they are."""
    return lambda: support.State(support.saved(app, folder), app.project.history.list(),
                                 app.project.history.size_total)


@pytest.fixture
def samples(app):
    return support.samples(app)


@pytest.fixture
def no_permission():
    """Tests of permissions start processes as nobody, which only root can."""
    import os

    if os.geteuid() != 0:
        pytest.skip("only root can become nobody")
