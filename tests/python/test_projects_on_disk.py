"""Project folders that can't be opened, made or saved: one sentence that names file and place, and nothing is lost."""

import json
import os
import shutil

import brindle
import pytest

import support

SCENE = "scenes/Scene-1.json"


@pytest.fixture
def saved_folder(folder):
    """A project on disk that isn't open."""
    with brindle.create(folder) as app:
        support.samples(app)
        app.save()
    return folder


@pytest.fixture
def other(saved_folder):
    """Another project, open, which no failure may touch; checked at the end of the test."""
    path = saved_folder.with_name("other")
    app = brindle.create(path)
    node = app.scene.nodes.create("PEG", "Untouched")
    before = support.files(path)
    yield app
    assert brindle.application() is app
    assert node.valid and node.path == "Top/Untouched"
    assert app.project.history.list() == ["Add Untouched"] and app.project.dirty
    assert support.files(path) == before
    app.save()
    app.close()
    with brindle.open(path) as again:
        assert "Top/Untouched" in again.scene.nodes


def open_error(path):
    message = support.message_of(brindle.open, path)
    assert message.startswith("Cannot open the project: ") and message.endswith(".") and "\n" not in message
    return message.removeprefix("Cannot open the project: ")


def refused_paths(parent):
    (parent / "file").write_text("x")
    (parent / "empty").mkdir()
    os.mkfifo(parent / "pipe")
    (parent / "link").symlink_to("link")
    at = f'"{parent}/'
    return {
        "open": {
            "file": f'{at}file" is a file, not a folder.', "pipe": f'{at}pipe" is a file, not a folder.',
            "empty": f'{at}empty" holds no project.', "nowhere": f'{at}nowhere" does not exist.',
            "nowhere/deep": f'{at}nowhere/deep" does not exist.', "file/deep": f'{at}file/deep" does not exist.',
            "link": f'{at}link" cannot be read: too many levels of symbolic links.',
            "x" * 300: f'{at}{"x" * 300}" cannot be read: file name too long.',
            "a\0b": "the path has a character that no path can have.",
        },
        "create": {
            "file": f'{at}file" is a file, not a folder.', "pipe": f'{at}pipe" is a file, not a folder.',
            "file/deep": f'{at}file" is a file, not a folder.',
            "link": f'{at}link" cannot be read: too many levels of symbolic links.',
            "x" * 300: f'{at}{"x" * 300}" cannot be read: file name too long.',
            "a\0b": "the path has a character that no path can have.",
        },
    }


@pytest.mark.parametrize("verb", ["open", "create"])
def test_a_path_that_leads_to_no_project_is_refused_with_its_sentence(other, tmp_path, verb):
    for name, sentence in refused_paths(tmp_path)[verb].items():
        message = support.message_of(getattr(brindle, verb), f"{tmp_path}/{name}")
        assert message == f"Cannot {verb} the project: {sentence}"
    assert sorted(path.name for path in tmp_path.iterdir()) == ["empty", "file", "link", "pipe"]


@pytest.mark.parametrize("verb", ["open", "create"])
def test_an_empty_path_is_refused(other, verb):
    assert support.message_of(getattr(brindle, verb), "") == f"Cannot {verb} the project: the path is empty."


def test_a_folder_that_holds_a_project_is_not_made_again(other, saved_folder):
    before = support.files(saved_folder)
    message = support.message_of(brindle.create, saved_folder)
    assert message == f'Cannot create the project: "{saved_folder}" already holds a project.'
    assert support.files(saved_folder) == before


def test_a_project_that_could_not_be_made_leaves_no_folders(other, tmp_path):
    (tmp_path / "file").write_text("x")
    with pytest.raises(brindle.Error):
        brindle.create(tmp_path / "file" / "a" / "b")
    assert [path.name for path in tmp_path.iterdir()] == ["file"]


def test_a_project_is_made_in_new_folders_and_in_an_empty_one(tmp_path):
    (tmp_path / "empty").mkdir()
    for path in (tmp_path / "a" / "b" / "c", tmp_path / "empty"):
        brindle.create(path).close()
        assert sorted(support.files(path)) == ["project.json", SCENE]


@pytest.mark.parametrize("file", ["project.json", SCENE])
def test_a_file_that_is_cut_off_anywhere_is_damaged_at_a_place(other, saved_folder, file):
    path = saved_folder / file
    whole = path.read_bytes()
    end = len(whole.rstrip())
    for size in {*range(0, end, max(1, end // 200)), end - 1}:
        path.write_bytes(whole[:size])
        before = support.files(saved_folder)
        message = open_error(saved_folder)
        if size:
            assert message.startswith(f'"{path}" is damaged at line '), size
        else:
            assert message == f'"{path}" is empty.'
        assert support.files(saved_folder) == before
    path.write_bytes(whole)


GARBAGE = {
    "zeros": (b"\0" * 100, ", column 2: illegal value."), "no text": (b"\xff\xfe\xfd", ", column 2: illegal value."),
    "a picture": (b"\x89PNG\r\n\x1a\n", ""), "markup": (b"<xml/>", ""), "a text": (b'"' * 1000, ""),
    "a list": (b"[]", ", column 1: it is not an object."), "null": (b"null", ""), "noise": (os.urandom(5000), ""),
    "an empty object": (b"{}", ': the file has no field "format".'),
    "another format": (b'{"format": "x", "version": 1}', ": format is not \"%s\"."),
    "no version": (b'{"format": "%s"}', ': the file has no field "version".'),
    "numbers in texts": (b'{"format": 5, "version": "x"}', ": format is not a text."),
    "endless objects": (b"{" * 100_000, ""), "endless lists": (b"[" * 100_000, ""),
    "endless depth": (b'{"a":' * 100_000, ""),
}


@pytest.mark.parametrize("name", GARBAGE)
@pytest.mark.parametrize("file, format_", [("project.json", "brindle-project"), (SCENE, "brindle-scene")])
def test_a_file_of_garbage_is_damaged(other, saved_folder, file, format_, name):
    content, ending = GARBAGE[name]
    content = content.replace(b"%s", format_.encode())
    (saved_folder / file).write_bytes(content)
    message = open_error(saved_folder)
    assert message.startswith(f'"{saved_folder / file}" is damaged at line ')
    assert message.endswith(ending.replace("%s", format_))
    assert (saved_folder / file).read_bytes() == content


@pytest.mark.parametrize("file", ["project.json", SCENE])
@pytest.mark.parametrize("version", [4, 5, 2**31 - 1])
def test_a_newer_file_names_its_version(other, saved_folder, file, version):
    path = saved_folder / file
    path.write_text(path.read_text().replace('"version": 3', f'"version": {version}'))
    sentence = f'"{path}" has format version {version}, and this version of the application reads versions up to 3.'
    assert open_error(saved_folder) == sentence


@pytest.mark.parametrize("version", ["0", "-1", '"1"', "1.5", "2147483648", "null", "[1]"])
def test_a_version_that_is_none_is_damage(other, saved_folder, version):
    path = saved_folder / SCENE
    path.write_text(path.read_text().replace('"version": 3', f'"version": {version}'))
    assert open_error(saved_folder).startswith(f'"{path}" is damaged at line 3: version is not a whole number')


def test_a_missing_file_is_named(other, saved_folder):
    (saved_folder / SCENE).unlink()
    assert open_error(saved_folder) == f'"{saved_folder / SCENE}" is missing.'
    (saved_folder / "project.json").unlink()
    assert open_error(saved_folder) == f'"{saved_folder}" holds no project.'


@pytest.mark.parametrize("file", ["project.json", SCENE])
def test_a_folder_in_place_of_a_file_is_refused(other, saved_folder, file):
    (saved_folder / file).unlink()
    (saved_folder / file).mkdir()
    assert open_error(saved_folder) == f'"{saved_folder / file}" is not a file.'


@pytest.mark.parametrize("name, shown", [
    ("a\0b", r"a\u0000b"), ("a\nb", r"a\nb"), ("\x1b[31m", r"\u001b[31m"),
    ("x" * 10_000, "x" * 2500 + " ... " + "x" * (2500 - len(" is an unknown field"))),
], ids=["null character", "line break", "escape sequence", "long"])
def test_a_field_of_any_name_is_told_whole_and_on_one_line(other, saved_folder, name, shown):
    path = saved_folder / "project.json"
    path.write_text(json.dumps({**json.loads(path.read_text()), name: 1}))
    assert open_error(saved_folder) == f'"{path}" is damaged at line 1: {shown} is an unknown field.'


@pytest.mark.parametrize("make", [os.mkfifo, os.mkdir, lambda path: path.symlink_to("elsewhere")])
def test_what_stands_in_place_of_the_lock_keeps_nobody_waiting(other, saved_folder, make):
    lock = saved_folder / support.LOCK
    make(lock)
    assert open_error(saved_folder) == f'"{lock}" is in the way: it is not a file; it can be opened read-only.'


def test_a_working_directory_that_is_gone_is_the_start_of_no_path(folder):
    script = """if True:
        import os, brindle
        os.makedirs("gone")
        os.chdir("gone")
        os.rmdir("../gone")
        for call in (brindle.create, brindle.open):
            try:
                call("../walk")
            except brindle.Error as error:
                print(error)
    """
    folder.mkdir()
    done = support.run_python(script, cwd=folder)
    assert (done.stdout.splitlines(), done.stderr) == ([
        f'Cannot {what} the project: "../walk" starts at the working directory, which is gone.'
        for what in ("create", "open")], "")
    assert os.listdir(folder) == []


def test_a_scene_outside_of_the_folder_is_not_read(other, saved_folder):
    path = saved_folder / "project.json"
    for name in ("../other/scenes/Scene-1.json", "/etc/passwd", "scenes/../project.json", "scenes/", ""):
        path.write_text(path.read_text().replace(SCENE, name))
        assert open_error(saved_folder).startswith(f'"{path}" is damaged at line ')
        path.write_text(json.dumps({"format": "brindle-project", "version": 1, "scenes": [SCENE]}))


def test_every_value_of_a_file_may_be_another_one(folder, tmp_path):
    """Each value of the files in turn becomes one of another kind: it opens, or it is damaged at a place."""
    done = support.run(support.PYTHON, support.ROOT / "tests/python/damage.py", folder.with_name("damaged"),
                       tmp_path / "report",
                       timeout=600)
    last = (tmp_path / "report").read_text(errors="replace").strip()
    assert done.returncode == 0, f"the process ended with {done.returncode} at {last}\n{done.stderr[-2000:]}"
    assert done.stdout == "", done.stdout[:3000]


def test_saving_as_refuses_what_create_refuses(app, folder, scene, peg, tmp_path):
    (tmp_path / "file").write_text("x")
    brindle_files = support.files(folder)
    for path, sentence in (("file", "is a file, not a folder."), (folder, "already holds a project.")):
        message = support.message_of(app.save_as, tmp_path / path)
        assert message == f'Cannot save the project: "{tmp_path / path}" {sentence}'
    assert support.message_of(app.save_as, "") == "Cannot save the project: the path is empty."
    assert support.files(folder) == brindle_files and app.project.dirty
    app.save()
    assert b"Arm" in support.files(folder)[SCENE]


def test_saving_as_goes_on_in_the_other_folder(app, folder, scene, tmp_path):
    before = support.files(folder)
    scene.nodes.create("PEG", "Arm")
    app.save_as(tmp_path / "copy")
    assert support.files(folder) == before
    scene.nodes.create("PEG", "Leg")
    app.save()
    assert support.files(folder) == before
    app.close()
    with brindle.open(tmp_path / "copy") as again:
        assert [node.name for node in again.scene.nodes][2:] == ["Arm", "Leg"]


def test_a_folder_that_has_gone_is_not_saved_into_and_the_project_can_be_saved_elsewhere(app, folder, peg, tmp_path):
    shutil.rmtree(folder)
    assert support.message_of(app.save) == f'Cannot save the project: "{folder}" does not exist.'
    assert peg.valid
    app.save_as(tmp_path / "rescued")
    assert b"Arm" in support.files(tmp_path / "rescued")[SCENE]


@pytest.mark.parametrize("hit", ["project.json", SCENE])
def test_a_damaged_folder_is_saved_over_from_the_project_that_is_open(app, folder, peg, hit):
    (folder / hit).write_bytes(b"garbage")
    app.save()
    app.close()
    with brindle.open(folder) as again:
        assert "Top/Arm" in again.scene.nodes


@pytest.mark.parametrize("hit", ["project.json", SCENE])
def test_a_folder_in_place_of_a_file_is_not_saved_over(app, folder, peg, hit):
    (folder / hit).unlink()
    (folder / hit).mkdir()
    (folder / hit / "precious").write_text("x")
    before = support.files(folder)
    message = support.message_of(app.save)
    assert message == f'Cannot save the project: "{folder / hit}" cannot be written: is a directory.'
    assert support.files(folder) == before and peg.valid and app.project.dirty


def test_files_that_are_not_the_projects_stay(app, folder, peg):
    (folder / "notes.txt").write_text("mine")
    (folder / "scenes" / "old.json").write_text("mine, too")
    app.save()
    assert support.files(folder)["notes.txt"] == b"mine" and support.files(folder)["scenes/old.json"] == b"mine, too"


def test_saving_twice_writes_the_same_bytes(app, folder, samples):
    first = support.saved(app, folder)
    times = {path: (folder / path).stat().st_mtime_ns for path in first}
    assert support.saved(app, folder) == first
    assert {path: (folder / path).stat().st_mtime_ns for path in first} == times


def test_a_project_that_is_opened_and_saved_is_the_same(saved_folder):
    before = support.files(saved_folder)
    with brindle.open(saved_folder) as app:
        assert support.saved(app, saved_folder) == before
        app.save_as(saved_folder.with_name("copy"))
    assert support.files(saved_folder.with_name("copy")) == before
