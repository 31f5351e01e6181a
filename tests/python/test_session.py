"""Getting in: create, open, application, the context manager, one project at a time."""

import os
import pathlib

import brindle
import pytest

import support


def test_create_gives_the_application_that_is_open(folder):
    assert brindle.application() is None
    app = brindle.create(folder)
    assert isinstance(app, brindle.Application) and brindle.application() is app
    app.close()
    assert brindle.application() is None


def test_the_application_leads_to_the_project(app):
    assert (type(app.project), type(app.scenes), type(app.scene)) == (brindle.Project, brindle.SceneList, brindle.Scene)
    assert app.scene == app.scenes[0]


@pytest.mark.parametrize("kind", [str, pathlib.Path, pathlib.PurePosixPath, os.path.relpath])
def test_a_path_may_be_of_any_form(folder, kind):
    brindle.create(kind(folder)).close()
    with brindle.open(kind(folder)) as app:
        assert app.scene.name == "Scene-1"
    assert sorted(support.files(folder)) == ["project.json", "scenes/Scene-1.json"]


def test_a_path_is_found_although_the_script_changes_its_folder_later(folder, tmp_path, monkeypatch):
    folder.parent.mkdir(exist_ok=True)
    monkeypatch.chdir(folder.parent)
    with brindle.create("here") as app:
        monkeypatch.chdir(tmp_path)
        app.scene.nodes.create("PEG", "Arm")
        app.save()
    with brindle.open(folder.parent / "here") as app:
        assert "Top/Arm" in app.scene.nodes


@pytest.mark.parametrize("name", ["a b", "ä", "日本", "\U0001f600", "%1", "a'\"b", "-x", "a\nb"])
def test_a_folder_may_have_any_name(folder, name):
    path = folder / name
    with brindle.create(path) as app:
        app.save()
    with brindle.open(path) as app:
        assert app.scene.frame_count == 60


def test_a_context_closes_at_its_end_and_saves_nothing(folder):
    brindle.create(folder).close()
    before = support.files(folder)
    with brindle.open(folder) as app:
        node = app.scene.nodes.create("PEG", "Arm")
    assert brindle.application() is None
    assert support.message_of(lambda: app.scene) == support.GONE and not node.valid
    assert support.files(folder) == before


@pytest.mark.parametrize("error", [KeyError("x"), ValueError(), brindle.Error("mine"), SystemExit(3),
                                   KeyboardInterrupt()], ids=repr)
def test_a_context_lets_a_failure_pass_and_closes(folder, error):
    with pytest.raises(type(error)) as failure:
        with brindle.create(folder) as app:
            app.scene.nodes.create("PEG", "Arm")
            raise error
    assert failure.value is error
    assert brindle.application() is None


def test_a_context_whose_project_was_closed_inside_ends_quietly(folder):
    with brindle.create(folder) as app:
        app.close()
    assert brindle.application() is None


def test_a_context_of_a_closed_project_does_not_begin(folder):
    app = brindle.create(folder)
    app.close()
    with pytest.raises(brindle.Error):
        with app:
            pass


def test_closing_twice_is_once(app):
    app.close()
    app.close()
    assert brindle.application() is None


def test_opening_a_second_project_closes_the_first(folder):
    first = brindle.create(folder)
    scene = first.scene
    second = brindle.create(folder.with_name("second"))
    assert brindle.application() is second
    for call in (lambda: first.scene, first.save, lambda: scene.name):
        assert support.message_of(call) == support.GONE
    first.close()
    assert brindle.application() is second and second.scene.name == "Scene-1"
    second.close()


def test_a_second_project_that_cannot_be_opened_leaves_the_first(app, scene):
    with pytest.raises(brindle.Error):
        brindle.open("/nowhere")
    assert brindle.application() is app and scene.name == "Scene-1"


def test_opening_the_open_project_again_reads_what_is_on_disk(app, folder, scene):
    scene.frame_count = 12
    again = brindle.open(folder)
    assert again.scene.frame_count == 60
    assert support.message_of(lambda: scene.frame_count) == support.GONE


def test_save_with_a_path_is_save_as(app, folder, scene):
    before = support.files(folder)
    scene.frame_count = 12
    app.save(folder.with_name("copy"))
    assert support.files(folder) == before and not app.project.dirty
    app.save()
    assert support.files(folder) == before
    with brindle.open(folder.with_name("copy")) as copy:
        assert copy.scene.frame_count == 12


def test_the_log_goes_to_standard_error(folder):
    done = support.run_python("""
import brindle, sys
app = brindle.create(sys.argv[1])
app.trace("a trace")
app.log("a line")
app.log("an error", "Error")
app.log("a detail", "debug")
app.error("another error ä")
app.process_one_event()
""", folder)
    assert (done.returncode, done.stdout) == (0, "")
    for text in ("a trace", "a line", "an error", "another error ä"):
        assert text in done.stderr


def test_importing_opens_nothing_and_is_quiet():
    done = support.run_python("import brindle; print(brindle.application(), brindle._live_objects())")
    assert (done.stdout, done.stderr) == ("None 0\n", "")


def test_a_thread_that_has_ended_may_have_opened_the_project(folder):
    done = support.run_python("""
import sys, threading
def work():
    import brindle
    app = brindle.create(sys.argv[1])
    print(app.scene.name)
thread = threading.Thread(target=work)
thread.start()
thread.join()
import brindle
print(brindle.application().scene.frame_count)
""", folder)
    assert (done.returncode, done.stdout, done.stderr) == (0, "Scene-1\n60\n", "")
