"""`brindle render`: frames of a scene as image files and movies."""

import os
import shutil
import subprocess

import brindle
import pytest

from support import COMMAND

needs_ffmpeg = pytest.mark.skipif(not shutil.which("ffmpeg"), reason="ffmpeg is not installed")


@pytest.fixture
def project(folder):
    """A project on disk that nobody has open: a red card of four frames, shown by the display "Top/Show"."""
    with brindle.create(folder) as app:
        scene = app.scene
        scene.frame_count = 4
        card = scene.nodes.create("COLOR_CARD", "Red")
        for channel, value in (("green", 0), ("blue", 0)):
            card.attributes[f"colour.{channel}"].set_value(1, value)
        show = scene.nodes.create("DISPLAY", "Show")
        show.ports_in[0].link(card)
        scene.display = show
        write = scene.nodes.create("WRITE", "Out")
        write.ports_in[0].link(card)
        app.save()
    return folder


@pytest.fixture
def render(project, tmp_path):
    def function(*arguments, **environment):
        return subprocess.run([COMMAND, "render", project, "--size", "16x8", *map(str, arguments)], cwd=tmp_path,
                              capture_output=True, text=True, env=os.environ | environment)

    return function


def names(folder):
    return sorted(path.name for path in folder.iterdir())


def test_all_frames_are_written_under_their_numbers(render, tmp_path):
    done = render("--out", "frames/%04d.png")
    assert done.returncode == 0 and "4 of 4 frames (100 %)" in done.stderr
    assert names(tmp_path / "frames") == ["0001.png", "0002.png", "0003.png", "0004.png"]
    picture = brindle.Cel.read(tmp_path / "frames" / "0003.png")
    pixels = memoryview(picture)
    assert pixels.shape == (8, 16, 4) and pixels.tobytes()[:4] == b"\xff\x00\x00\xff"


def test_frames_are_those_of_the_list(render, tmp_path):
    assert render("--out", "f%d.png", "--frames", "4-3,1").returncode == 0
    assert names(tmp_path) == ["f1.png", "f3.png", "f4.png"]


def test_resuming_draws_what_is_missing_or_broken_alone(render, tmp_path):
    assert render("--out", "f%d.png").returncode == 0
    (tmp_path / "f2.png").unlink()
    (tmp_path / "f3.png").write_bytes((tmp_path / "f3.png").read_bytes()[:40])
    whole = (tmp_path / "f1.png").stat().st_mtime_ns
    done = render("--out", "f%d.png", "--resume")
    assert done.returncode == 0 and "2 of 2 frames" in done.stderr
    assert (tmp_path / "f1.png").stat().st_mtime_ns == whole
    assert (tmp_path / "f3.png").read_bytes() == (tmp_path / "f2.png").read_bytes()


def test_write_nodes_say_where_without_out(render, project, tmp_path):
    assert "no WRITE node with a path" in render().stderr
    with brindle.open(project) as app:
        app.scene.nodes["Top/Out"].attributes["path"].set_value(1, "frames/final-")
        app.save()
    assert render().returncode == 0
    assert names(project / "frames") == [f"final-{frame:04d}.png" for frame in range(1, 5)]


def test_pictures_of_one_and_of_two_threads_are_the_same_bytes(render, tmp_path):
    assert render("--out", "one/%d.png", "--threads", 1).returncode == 0
    assert render("--out", "two/%d.png", "--threads", 2).returncode == 0
    for name in names(tmp_path / "one"):
        assert (tmp_path / "one" / name).read_bytes() == (tmp_path / "two" / name).read_bytes()


def test_a_frame_that_fails_is_one_line_and_the_others_go_on(render, tmp_path):
    (tmp_path / "f2.png").mkdir()
    done = render("--out", "f%d.png")
    assert done.returncode == 1 and done.stderr.count("Frame 2:") == 1 and "1 of 4 frames failed." in done.stderr
    assert {"f1.png", "f3.png", "f4.png"} <= set(names(tmp_path))


@needs_ffmpeg
@pytest.mark.parametrize("name", ["walk.mp4", "walk.gif", "walk.apng"])
def test_movies_are_whole_files(render, tmp_path, name):
    assert render("--movie", name).returncode == 0
    assert names(tmp_path) == [name] and (tmp_path / name).stat().st_size > 100


def test_without_ffmpeg_it_says_so(render, tmp_path):
    done = render("--movie", "walk.gif", PATH="/nowhere")
    assert done.returncode == 1 and "Movies need the program ffmpeg" in done.stderr
    assert names(tmp_path) == []


@pytest.mark.parametrize("arguments, sentence", [
    (("--out", "f.png"), "no place for the number"),
    (("--out", "%s%d.png"), "no place for the number"),
    (("--out", "%d.png", "--frames", "1-5"), "The scene has no frame 5"),
    (("--out", "%d.png", "--frames", "one"), "no list of frames"),
    (("--out", "%d.png", "--scene", "Nobody"), 'no scene "Nobody"'),
    (("--out", "%d.png", "--node", "Top/Nobody"), 'no node "Top/Nobody"'),
    (("--out", "%d.png", "--size", "0x100"), 'the size "0x100"'),
    (("--out", "%d.png", "--size", "100000x8"), 'the size "100000x8"'),
    (("--out", "%d.png", "--threads", "0"), "from 1 to 256"),
    (("--movie", "walk.gif", "--resume"), "don't go together"),
])
def test_bad_use_is_one_sentence_and_exit_code_2(render, tmp_path, arguments, sentence):
    done = render(*arguments)
    assert done.returncode == 2 and sentence in done.stderr and done.stderr.count("\n") == 1
    assert names(tmp_path) == []
