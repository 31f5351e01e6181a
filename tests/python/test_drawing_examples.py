"""The example expose_svg.py: an SVG picture becomes an exposed drawing, and a PNG of what is seen."""

import brindle
import pytest

import support

EXAMPLE = support.ROOT / "examples" / "drawings" / "expose_svg.py"
DOT = '<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 40 30"><circle cx="20" cy="15" r="6" fill="#ff8000"/></svg>'


def run(*arguments):
    done = support.run_command("run", EXAMPLE, *arguments)
    return done.returncode, done.stdout, done.stderr


def pixel(path, x, y):
    """In parts of the width and the height, from the upper left."""
    pixels = memoryview(brindle.Cel.read(path))
    height, width, _ = pixels.shape
    return tuple(pixels[int(y * (height - 1)), int(x * (width - 1)), channel] for channel in range(4))


@pytest.fixture
def dot(tmp_path):
    (tmp_path / "dot.svg").write_text(DOT)
    return tmp_path / "dot.svg"


def test_the_cat_is_exposed_and_seen(tmp_path):
    code, out, error = run(tmp_path / "cat", tmp_path / "cat.png", "--size", "320x240")
    assert (code, error) == (0, "") and "Square ends of lines are flat.\nTop/cat shows cat.svg from frame 1 on" in out
    pixels = memoryview(brindle.Cel.read(tmp_path / "cat.png"))
    assert pixels.shape == (240, 320, 4)
    assert len({bytes(pixels.tobytes()[i:i + 4]) for i in range(0, pixels.nbytes, 64)}) > 100
    with brindle.open(tmp_path / "cat") as app:
        column = app.scene.nodes["Top/cat"].attributes["drawing"].column
        assert {column.get_entry(frame) for frame in range(1, app.scene.frame_count + 1)} == {"1"}
        drawing = app.elements["cat"].drawings["1"].drawing
        assert sum(len(layer.strokes) for layer in drawing["line"]) > 200


def test_a_picture_is_put_on_some_frames_of_a_project(tmp_path, dot):
    with brindle.create(tmp_path / "walk") as app:
        app.save()
    code, _, error = run(tmp_path / "walk", tmp_path / "dot.png", "--svg", dot, "--name", "Sun", "--frames", "5-8",
                         "--size", "40x30")
    assert (code, error) == (0, "")
    assert pixel(tmp_path / "dot.png", 0.5, 0.5) == (255, 128, 0, 255) and pixel(tmp_path / "dot.png", 0.1, 0.5)[3] == 0
    with brindle.open(tmp_path / "walk") as app:
        column = app.scene.nodes["Top/Sun"].attributes["drawing"].column
        assert [column.get_entry(frame) for frame in (4, 5, 8, 9)] == ["", "1", "1", ""]
        assert [colour.name for colour in app.project.palettes["Sun"]] == ["#ff8000"]


@pytest.mark.parametrize("options, sentence", [
    (("--frames", "0-3"), "The scene has the frames 1 to 60, not 0 to 3."),
    (("--frames", "50-61"), "The scene has the frames 1 to 60, not 50 to 61."),
    (("--svg", "missing.svg"), "missing.svg"),
    (("--size", "0x9"), "A picture can't have 0 x 9 pixels"),
])
def test_what_can_not_be_done_leaves_the_project_as_it_is(tmp_path, dot, options, sentence):
    with brindle.create(tmp_path / "walk") as app:
        app.save()
    before = support.files(tmp_path / "walk")
    code, out, error = run(tmp_path / "walk", tmp_path / "dot.png", "--svg", dot, *options)
    assert (code, out) == (1, "") and sentence in error and error.count("\n") == 1 and "expose_svg: " in error
    after = support.files(tmp_path / "walk")  # A palette's file that was taken back lies among the removed ones.
    assert {path: text for path, text in after.items() if ".deleted" not in path} == before
    assert not (tmp_path / "dot.png").exists()


def test_help_names_the_arguments():
    code, out, _ = run("--help")
    assert code == 0 and all(word in out for word in ("project", "picture", "--svg", "--frames", "--size"))
