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
    again = brindle.open(folder, discard=True)
    assert again.scene.frame_count == 60
    assert support.message_of(lambda: scene.frame_count) == support.GONE


DISCARD = {
    "open": lambda folder, **more: brindle.open(folder.with_name("second"), **more),
    "open read-only": lambda folder, **more: brindle.open(folder.with_name("second"), read_only=True, **more),
    "create": lambda folder, **more: brindle.create(folder.with_name("third"), **more),
    "open again": lambda folder, **more: brindle.open(folder, **more),
}


@pytest.mark.parametrize("way", DISCARD)
def test_unsaved_changes_are_dropped_only_where_that_is_said(folder, way):
    brindle.create(folder.with_name("second")).close()
    app = brindle.create(folder)
    node = app.scene.nodes.create("PEG", "Arm")
    what = way.split()[0]
    sentence = (f'Cannot {what} the project: "{folder}" has unsaved changes; save or close it first, or discard them '
                f"with brindle.{what}(path, discard=True).")
    for more in ({}, {"discard": False}):
        with pytest.raises(brindle.Error) as failure:
            DISCARD[way](folder, **more)
        assert str(failure.value) == sentence
    assert brindle.application() is app and node.valid and app.project.history.list() == ["Add Arm"]
    assert not folder.with_name("third").exists()
    other = DISCARD[way](folder, discard=True)
    assert brindle.application() is other and not node.valid and "Top/Arm" not in other.scene.nodes
    other.close()


@pytest.mark.parametrize("settle", ["save", "undo", "close"])
def test_what_is_saved_undone_or_closed_is_no_hindrance(folder, settle):
    app = brindle.create(folder)
    app.scene.nodes.create("PEG", "Arm")
    {"save": app.save, "undo": lambda: app.project.history.undo(1), "close": app.close}[settle]()
    with brindle.create(folder.with_name("second")):
        assert brindle.application() is not app


def test_a_change_inside_a_bracket_is_an_unsaved_one(app, folder):
    with app.project.history.bracket("Several"):
        app.scene.frame_count = 12
        assert "has unsaved changes" in support.message_of(brindle.create, folder.with_name("second"))


def test_a_context_ends_as_it_is_told_whatever_is_unsaved(folder):
    with brindle.create(folder) as app:
        app.scene.nodes.create("PEG", "Arm")
    assert brindle.application() is None


def test_the_project_with_unsaved_changes_is_named_on_one_line(folder):
    strange = folder.with_name("a\nb")
    with brindle.create(strange) as app:
        app.scene.frame_count = 12
        assert f'"{folder.parent}/a\\nb" has unsaved' in support.message_of(brindle.create, folder)
        assert support.message_of(brindle.open, folder) == f'Cannot open the project: "{folder}" does not exist.'


@pytest.mark.parametrize("value", ["yes", None, 1.5, []])
def test_discard_is_a_flag(app, folder, value):
    for call in (brindle.open, brindle.create):
        with pytest.raises(TypeError):
            call(folder.with_name("second"), discard=value)
    assert brindle.application() is app


@pytest.mark.parametrize("way", ["itself", "slash", "relative", "link", "dots", "path"])
def test_saving_to_its_own_folder_is_a_save(app, folder, scene, monkeypatch, way):
    os.symlink(folder, folder.with_name("link"))
    monkeypatch.chdir(folder.parent)
    scene.frame_count = 12
    app.save({"itself": str(folder), "slash": f"{folder}/", "relative": folder.name, "path": folder,
              "link": folder.with_name("link"), "dots": f"{folder}/../{folder.name}/."}[way])
    assert not app.project.dirty and sorted(os.listdir(folder)) == [support.LOCK, "project.json", "scenes"]
    app.close()
    with brindle.open(folder, read_only=True) as again:
        assert again.scene.frame_count == 12
        assert support.message_of(again.save, folder) == (
            f'Cannot save the project: "{folder}" already holds a project.')


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
