"""`brindle render`: frames of a scene as image files and movies."""

import os
import shutil
import signal
import subprocess
import time

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
    assert brindle.Cel.read(tmp_path / "f3.png").compare_exr(brindle.Cel.read(tmp_path / "f2.png"))
    again = render("--out", "f%d.png", "--resume")
    assert (again.returncode, again.stderr) == (0, "All frames are there.\n")


def test_write_nodes_say_where_without_out(render, project, tmp_path):
    done = render()
    assert done.returncode == 0 and done.stderr.startswith("The frames go to frames/%04d.png.\n")
    assert len(names(tmp_path / "frames")) == 4
    with brindle.open(project) as app:
        app.scene.nodes["Top/Out"].attributes["path"].set_value(1, "frames/final-")
        app.save()
    assert render().returncode == 0
    assert names(project / "frames") == [f"final-{frame:04d}.png" for frame in range(1, 5)]


@pytest.mark.parametrize("path, format, file", [
    ("out/a", "JPEG", "out/a0002.jpg"), ("out/a.%d", "BMP", "out/a.2.bmp"), ("out/a.png", "JPEG", "out/a0002.png"),
    ("out/a%03d.exr", "PNG", "out/a002.exr"), ("out/50%.v1", "PNG", "out/50%.v10002.png"), ("a", "PPM", "a0002.ppm"),
    ("a", "TIFF", "a0002.tiff"), ("a", "EXR", "a0002.exr")])
def test_a_write_node_says_the_form_of_its_files(render, project, path, format, file):
    with brindle.open(project) as app:
        attributes = app.scene.nodes["Top/Out"].attributes
        attributes["path"].set_value(1, path)
        attributes["format"].set_localvalue(format)
        app.save()
    assert render("--frames", 2).returncode == 0
    pixels = memoryview(brindle.Cel.read(project / file)).tobytes()
    assert abs(pixels[0] - 255) < 3 and max(pixels[1:3]) < 3


def test_write_nodes_that_meet_in_their_files_are_told(render, project):
    with brindle.open(project) as app:
        nodes = app.scene.nodes
        second = nodes.create("WRITE", "Second")
        second.ports_in[0].link(nodes["Top/Red"])
        for node in (nodes["Top/Out"], second):
            node.attributes["path"].set_value(1, "final")
        app.save()
    done = render()
    assert done.returncode == 2 and done.stderr == (
        f'brindle: The nodes "Top/Out" and "Top/Second" write the same files, "{project}/final%04d.png".\n')
    with brindle.open(project) as app:
        app.scene.nodes["Top/Second"].enabled = False
        app.save()
    assert render().returncode == 0


def test_a_channel_has_8_bits_or_16(render, tmp_path):
    for depth, arguments in ((8, ()), (8, ("--depth", 8)), (16, ("--depth", 16))):
        assert render("--out", "f%d.png", "--frames", 1, *arguments).returncode == 0
        file = (tmp_path / "f1.png").read_bytes()
        assert file[24] == depth
        for key, text in ((b"Software", b"brindle"), (b"Scene", b"Scene-1"), (b"Node", b"Top/Show"), (b"Frame", b"1")):
            assert b"iTXt" + key + 5 * b"\0" + text in file


def test_pictures_of_one_and_of_two_threads_are_the_same_bytes(render, tmp_path):
    assert render("--out", "one/%d.png", "--threads", 1).returncode == 0
    assert render("--out", "two/%d.png", "--threads", 2).returncode == 0
    for name in names(tmp_path / "one"):
        assert (tmp_path / "one" / name).read_bytes() == (tmp_path / "two" / name).read_bytes()


def test_a_frame_that_fails_is_one_line_and_the_others_go_on(render, tmp_path):
    (tmp_path / "f2.png").mkdir()
    done = render("--out", "f%d.png")
    assert done.returncode == 1 and done.stderr.count("can't be written") == 1
    assert "Frame 2: The picture f2.png can't be written: It is a folder.\n" in done.stderr
    assert done.stderr.endswith("brindle: 1 of 4 frames failed.\n")
    assert {"f1.png", "f3.png", "f4.png"} <= set(names(tmp_path))


def test_a_disk_that_is_full_is_a_line_a_frame(render, small_disk):
    filler = small_disk / "filler"
    filler.write_bytes(b"x" * os.statvfs(small_disk).f_bsize * os.statvfs(small_disk).f_bavail)
    done = render("--out", f"{small_disk}/f%d.png")
    assert done.returncode == 1 and names(small_disk) == ["filler"]
    lines = [line for line in done.stderr.splitlines() if "can't be written" in line]
    assert lines == [f"Frame {frame}: The picture {small_disk}/f{frame}.png can't be written: No space left on device."
                     for frame in range(1, 5)]
    filler.unlink()
    assert render("--out", f"{small_disk}/f%d.png", "--resume").returncode == 0 and len(names(small_disk)) == 4


def test_a_folder_that_cannot_be_made_is_told(render, tmp_path):
    (tmp_path / "file").write_text("")
    done = render("--out", "file/%d.png", "--frames", 1)
    assert done.returncode == 1
    assert f"Frame 1: The folder {tmp_path}/file can't be made: Not a directory.\n" in done.stderr


@pytest.mark.parametrize("number", [signal.SIGINT, signal.SIGTERM])
def test_a_run_that_is_stopped_leaves_whole_files(project, tmp_path, number):
    with brindle.open(project) as app:
        app.scene.frame_count = app.scene.frame_stop = 5000
        app.save()
    process = subprocess.Popen([COMMAND, "render", project, "--size", "64x64", "--out", "f%04d.png"], cwd=tmp_path,
                               stderr=subprocess.PIPE, text=True)
    while not (tmp_path / "f0001.png").exists() and process.poll() is None:
        time.sleep(0.001)
    process.send_signal(number)
    _, told = process.communicate()
    assert process.returncode == 128 + number
    drawn = len(list(tmp_path.glob("f*.png")))
    assert 0 < drawn < 5000 and told.endswith(f"brindle: Stopped: {drawn} of 5000 frames are drawn.\n")
    assert len(names(tmp_path)) == drawn, "no file that isn't whole"


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
    (("--out", ""), "--out needs the pattern of a path"),
    (("--frames", "", "--out", "%d.png"), "--frames needs a list"),
    (("--out", "f%d.xyz"), '"f%d.xyz" is in no format that pictures can be written in.'),
    (("--out", "f%d"), '"f%d" is in no format that pictures can be written in.'),
    (("--out", "f%d.psd"), '"f%d.psd" is in no format that pictures can be written in.'),
    (("--scene", "", "--out", "%d.png"), "--scene needs the name"),
    (("--node", "Top"), 'The node "Top" shows no picture.'),
    (("--out", "%d.png", "--depth", "12"), 'A channel has 8 or 16 bits, not "12".'),
    (("--movie", "walk.avi"), "The movie walk.avi has to be"),
    (("--out", "%d.png", "another"), "Usage: brindle render [--scene S]"),
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
