"""What the tests of the Python module share: a project of their own for each, and the sample objects of every class."""

import os
import pathlib
import tempfile

# The preferences of these tests are nobody's: they begin with a person who never set any.
_config = tempfile.TemporaryDirectory()
os.environ["XDG_CONFIG_HOME"] = _config.name

import brindle
import hypothesis
import hypothesis.configuration
import pytest

import drawings
import support

# Hypothesis writes its database outside the source tree.
hypothesis.configuration.set_hypothesis_home_dir(pathlib.Path(tempfile.gettempdir()) / "brindle-hypothesis")
# How long an example takes depends on what else the machine does, and on the sanitizers.
hypothesis.settings.register_profile("brindle", deadline=None, max_examples=100 if support.DEEP else 40,
                                     suppress_health_check=[hypothesis.HealthCheck.too_slow])
hypothesis.settings.load_profile("brindle")


@pytest.fixture(autouse=True)
def nothing_left_open():
    """A test that fails in the middle leaves its project open, with changes that the next one may not drop."""
    yield
    if brindle.application():
        brindle.application().close()


@pytest.fixture
def folder():
    """Where the test's project is: in memory, where that can be, since every save waits for the disk."""
    with tempfile.TemporaryDirectory(dir=support.MEMORY) as parent:
        yield pathlib.Path(parent) / "project"


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
def project(tmp_path):
    """The folder of a project on disk that isn't open."""
    folder = tmp_path / "walk"
    with brindle.create(folder) as application:
        support.samples(application)
        application.save()
    return folder


@pytest.fixture
def rig(app):
    """One of each to work on, with nothing in the history."""
    made = support.samples(app)
    app.project.history.clear()
    return made


@pytest.fixture
def stage(app):
    """A new project whose nodes show drawings."""
    import pictures  # It needs numpy, which the other tests do without.

    return pictures.Stage(app)


@pytest.fixture
def square(stage):
    """A red square between 10 and 30 pixels to the right of the middle and above it."""
    import pictures

    return stage.shape("Square", pictures.rectangle(10, 10, 30, 30), 255, 0, 0, 255)


@pytest.fixture
def drawing(app):
    """An empty drawing."""
    return drawings.new_drawing(app)


@pytest.fixture
def art(drawing):
    """Its art layer of lines."""
    return drawing["line"]


@pytest.fixture
def access(app):
    """A way to edit. A test may leave its session open: the project's end ends it."""
    return brindle.DrawingAccess()


@pytest.fixture
def session(access, art):
    """The same, with a session on the art layer of lines."""
    access.vector_begin_operations(art)
    return access


@pytest.fixture
def layer(session):
    """A layer of strokes that the session has made."""
    return session.vector_layer_create("PEN_LAYER")


@pytest.fixture
def stroke(session, layer):
    """A square in it."""
    return session.stroke_create(drawings.square(), layer, drawings.thick(), "LEFT", drawings.GREEN)


@pytest.fixture
def edit(app, folder, rig):
    """Runs a change and checks all that every change keeps to: its labels, undo, redo, and what it has done."""

    def run(action, labels, effect, value):
        history = app.project.history
        before = support.saved(app, folder)
        action(rig)
        assert history.list() == labels
        assert repr(effect(rig)) == repr(value)
        after = support.saved(app, folder)
        for _ in range(2):
            history.undo(len(labels))
            assert (history.size_executed, history.size_unexecuted) == (0, len(labels))
            assert support.saved(app, folder) == before
            history.redo(len(labels))
            assert history.list() == labels
            assert support.saved(app, folder) == after

    return run


@pytest.fixture
def refuse(rig, state):
    """Runs a change that fails, and checks that nothing has changed."""

    def run(action, message):
        before = state()
        assert support.message_of(action, rig) == message
        assert state() == before

    return run


@pytest.fixture
def small_disk(tmp_path):
    """A file system with room for little more than a project; only root can make one."""
    folder = tmp_path / "disk"
    folder.mkdir()
    if support.run("mount", "-t", "tmpfs", "-o", "size=96k", "none", folder).returncode:
        pytest.skip("no file system can be mounted here")
    yield folder
    support.run("umount", folder)
