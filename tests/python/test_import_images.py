"""The example import_images.py: a folder of numbered images becomes an element, a column and a node."""

import brindle
import pytest

import support

EXAMPLE = support.ROOT / "examples" / "import_images.py"


@pytest.fixture
def walk(tmp_path):
    with brindle.create(tmp_path / "walk") as app:
        app.save()
    return tmp_path / "walk"


def folder_of(path, *names):
    path.mkdir()
    for grey, name in enumerate(names):
        (path / name).write_bytes(support.png(grey))
    return path


@pytest.fixture
def scans(tmp_path):
    """Three images, of which the last one by its number is the first by its letters; and a file that is none."""
    folder = folder_of(tmp_path / "Arm", "a-10.png", "a-8.png", "a-9.png")
    (folder / "notes 1.txt").write_text("x")
    return folder


def run(*arguments):
    done = support.run_command("run", EXAMPLE, *arguments)
    return done.returncode, done.stdout, done.stderr


def exposed(column, count):
    return [column.get_entry(frame) for frame in range(1, count + 1)]


def test_an_image_a_frame_in_the_order_of_the_numbers(walk, scans):
    assert run(walk, scans) == (0, "3 images on frames 1 to 3 of Top/Arm\n", "")
    with brindle.open(walk) as app:
        drawing = app.scene.nodes["Top/Arm"].attributes["drawing"]
        assert exposed(drawing.column, 5) == ["8", "9", "10", "", ""]
        assert (drawing.element_name, drawing.element.pixmap_format) == ("Arm", "PNG")
    folder = walk / "elements" / "Arm"
    assert {path.name: path.read_bytes() for path in folder.iterdir()} == {
        "10.png": support.png(0), "8.png": support.png(1), "9.png": support.png(2)}


def test_an_import_is_one_entry_that_undo_takes_back_from_the_disk(walk, scans, monkeypatch):
    monkeypatch.syspath_prepend(EXAMPLE.parent)
    import import_images as example
    with brindle.open(walk) as app:
        history, before = app.project.history, support.saved(app, walk)
        with history.bracket("Import Images"):
            example.make_room(app.scene, 90, True)
            node = example.import_images(app.scene, "Arm", *example.numbered_images(scans), 1, 30)
            example.link_to_composite(app.scene, node, "Top/Composite")
        assert history.list() == ["Import Images"]
        after = support.saved(app, walk)
        history.undo()
        assert support.saved(app, walk) == before
        history.redo()
        assert support.saved(app, walk) == after != before


def test_held_named_linked_and_in_a_longer_scene(walk, scans):
    assert run(walk, scans, "--hold", "2", "--start", "57", "--name", "Hand", "--composite", "Top/Composite",
               "--lengthen") == (0, "3 images on frames 57 to 62 of Top/Hand\n", "")
    with brindle.open(walk) as app:
        column = app.scene.columns["Hand"]
        assert app.scene.frame_count == 62
        assert exposed(column, 62)[55:] == ["", "8", "8", "9", "9", "10", "10"]
        sources = [port.source_node for port in app.scene.nodes["Top/Composite"].ports_in]
        assert app.scene.nodes["Top/Hand"] in sources


@pytest.mark.parametrize("names, message", [
    ([], '"{folder}" has no numbered images.'),
    (["a.png", "1.txt"], '"{folder}" has no numbered images.'),
    (["a1.png", "b2.png"], '"{folder}/a1.png" and "b2.png" are not images of one sequence.'),
    (["1.jpg", "2.png"], '"{folder}/1.jpg" and "2.png" are not images of one sequence.'),
    (["01.png", "1.png"], '"{folder}/01.png" and "1.png" have the same number.'),
    ([f"{number}.png" for number in range(61)],
     "The images end at frame 61, and the scene has 60; --lengthen makes it longer.")])
def test_a_folder_without_sense_leaves_the_project_alone(walk, tmp_path, names, message):
    folder = folder_of(tmp_path / "Leg", *names)
    before = support.files(walk)
    assert run(walk, folder) == (1, "", f"import_images: {message.format(folder=folder)}\n")
    assert support.files(walk) == before


@pytest.mark.parametrize("arguments, message", [
    (["--scene", "No"], 'The project has no scene "No".'),
    (["--composite", "Top/No"], 'The scene has no composite "Top/No".'),
    (["--composite", "Top/Display"], 'The scene has no composite "Top/Display".')])
def test_what_the_project_has_not_is_told(walk, scans, arguments, message):
    before = support.files(walk)
    assert run(walk, scans, *arguments) == (1, "", f"import_images: {message}\n")
    assert support.files(walk) == before


def test_a_second_import_and_a_damaged_image_change_nothing(walk, scans):
    assert run(walk, scans)[0] == 0
    before = support.files(walk)
    assert run(walk, scans) == (1, "", "import_images: Column with name Arm already exists.\n")
    (scans / "a-9.png").write_bytes(support.png()[:-1])
    code, out, error = run(walk, scans, "--name", "Other")
    assert (code, out) == (1, "") and f"{scans}/a-9.png" in error and error.count("\n") == 1
    assert support.files(walk) == before


@pytest.mark.parametrize("option", ["--hold", "--start"])
def test_frames_count_from_one(walk, scans, option):
    code, _, error = run(walk, scans, option, "0")
    assert code == 2 and error.endswith(f'argument {option}: "0" is not a number of frames from 1 on\n')


def test_help_tells_the_arguments():
    code, out, error = run("--help")
    assert code == 0 and not error and out.startswith("usage: import_images ")
