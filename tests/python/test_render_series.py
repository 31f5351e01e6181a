"""Pictures one after the other: what is remembered between them, series of frames, and the threads that draw them."""

import os
import shutil
import threading

import brindle
import numpy
import pytest
from brindle import render

import support
from pictures import SIZE, UNITS, Stage, at, path, pixels, rectangle

RED, BLUE = (255, 0, 0, 255), (0, 0, 255, 255)


# --- What is remembered -------------------------------------------------------------------------------------------------

def test_a_picture_follows_each_change_and_its_undo(stage):
    node, drawing = stage.read("Follows")
    colour = stage.palette.create_solid_colour("Skin", [255, 0, 0, 255])
    layer = stage.fill(drawing, rectangle(0, 0, 20, 20), colour.id)
    pixels(node)
    first = pixels(node)
    history = stage.app.project.history
    changes = (lambda: setattr(colour, "colour", [0, 0, 255]),
               lambda: stage.fill(drawing, rectangle(30, 0, 50, 20), colour.id, layer=layer),
               lambda: node.attributes["position.x"].set_localvalue(2))
    for change in changes:
        before = pixels(node)
        change()
        after = pixels(node)
        assert (after != before).any()
        history.undo(1)
        assert (pixels(node) == before).all()
        history.redo(1)
        assert (pixels(node) == after).all()
    assert (pixels(node) != first).any()


def test_a_picture_of_another_size_is_another_picture(stage):
    card = stage.card("Card", *RED)
    for size in ((8, 4), (8, 4), (8, 4), (20, 10), (8, 4)):
        assert pixels(card, size=size).shape == (size[1], size[0], 4)
        assert (pixels(card, size=size) == RED).all()


def test_pictures_are_the_same_bytes_on_any_number_of_threads(stage, square):
    blur = stage.node("BLUR", "Blur", square)
    blur.attributes["radius"].set_localvalue(30)
    both = stage.node("COMPOSITE", "Both", stage.card("Card", 9, 99, 200, 77), square, blur)
    peg = stage.nodes.create("PEG", "Peg")
    square.ports_in[0].link(peg)
    for frame, value in ((1, 0.0), (11, 77.0)):
        peg.attributes["angle"].set_value(frame, value)

    def series(**options):
        made = {}
        render.frames(stage.scene, lambda frame, cel: made.update({frame: numpy.asarray(cel).tobytes()}), range(1, 12),
                      node=both, size=SIZE, **options)
        return made

    one = series(threads=1)
    assert series(threads=2) == one and series(threads=7) == one
    assert {frame: pixels(both, frame).tobytes() for frame in range(11, 0, -1)} == one


def test_drawings_over_each_other_are_the_same_bytes_on_any_number_of_threads(stage):
    """Threads share the rows of a picture: areas, cells, lines and gradients go on beyond a row as they would."""
    nodes = []
    sky = stage.palette.create_linear_gradient_colour("Sky", [0, 0, 0, 90], 0, [200, 100, 50], 100)
    shade = brindle.DrawingVectorColour(sky.id)
    shade.colour_matrix = brindle.Matrix([60 * UNITS, 20, 0, 0, -20, 60 * UNITS, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1])
    for index in range(9):
        node, drawing = stage.read(f"Drawing{index}")
        nodes.append(node)
        colour = stage.colour(25 * index, 200 - 20 * index, 90, 120 + 15 * index)
        if index % 3 == 0:
            stage.cells(drawing, lambda column, row: (-50 + 19.7 * column + row, -43.4 + 17.9 * row - 2 * column), 5, colour)
        else:
            stage.fill(drawing, path((-70 + 9 * index, -60.3), (55.1, -50 + index), (61 - 3 * index, 66.7), (-70 + 9 * index, -60.3)),
                       shade if index % 3 == 1 else colour)
        stage.line(drawing, path((-90, 7.3 * index - 40), (10, 60 - 9 * index), (90, 5)), colour, 3.3)
        peg = stage.nodes.create("PEG", f"Peg{index}")
        node.ports_in[0].link(peg)
        peg.attributes["angle"].set_localvalue(11.0 * index)
    all_of_them = stage.node("COMPOSITE", "All", *nodes)
    one = pixels(all_of_them, size=(768, 576), threads=1)
    assert len(numpy.unique(one.reshape(-1, 4), axis=0)) > 1000
    for threads in (2, 3, 8):
        assert (pixels(all_of_them, size=(768, 576), threads=threads) == one).all()
    nodes[4].ports_in[0].source_node.attributes["angle"].set_value(2, 45.0)  # The lower ones are remembered then.
    later = pixels(all_of_them, 2, size=(768, 576), threads=2)
    assert (later == pixels(all_of_them, 2, size=(768, 576), threads=1)).all() and (later != one).any()


def test_a_long_series_takes_no_more_memory(stage, square):
    peg = stage.nodes.create("PEG", "Peg")
    square.ports_in[0].link(peg)
    for frame, value in ((1, 0.0), (60, 360.0)):
        peg.attributes["angle"].set_value(frame, value)
    blur = stage.node("BLUR", "Blur", square)
    blur.attributes["radius"].set_localvalue(20)
    both = stage.node("COMPOSITE", "Both", stage.card("Card", *BLUE), blur)

    def resident(frames):
        render.frames(stage.scene, lambda frame, cel: None, frames, node=both, size=(640, 480), threads=2)
        with open("/proc/self/statm") as file:
            return int(file.read().split()[1]) * os.sysconf("SC_PAGESIZE") / 2**20

    first = resident(range(1, 29))
    assert resident(range(29, 61)) - first < 10, "MiB"


# --- Series of frames ---------------------------------------------------------------------------------------------------

def test_frames_come_in_order_from_the_start_to_the_stop_of_the_scene(stage):
    stage.scene.frame_start, stage.scene.frame_stop = 3, 6
    stage.scene.display = stage.node("DISPLAY", "Show", stage.card("Card", *RED))
    came = []
    assert render.frames(stage.scene, lambda frame, cel: came.append((frame, memoryview(cel).shape)), size=(8, 4)) == 4
    assert came == [(frame, (4, 8, 4)) for frame in (3, 4, 5, 6)]


def test_a_callback_that_gives_false_or_raises_stops_the_rest(stage):
    card = stage.card("Card", *RED)
    came = []
    assert render.frames(stage.scene, lambda frame, cel: came.append(frame) or frame < 4, node=card, size=(8, 4)) == 4
    assert came == [1, 2, 3, 4]

    def broken(frame, cel):
        raise KeyError(frame)

    with pytest.raises(KeyError):
        render.frames(stage.scene, broken, node=card, size=(8, 4))


@pytest.mark.parametrize("depth", [8, 16])
def test_frames_are_written_as_files_on_the_threads_that_draw(stage, square, tmp_path, depth):
    peg = stage.nodes.create("PEG", "Peg")
    square.ports_in[0].link(peg)
    for frame, value in ((1, 0.0), (11, 77.0)):
        peg.attributes["angle"].set_value(frame, value)
    paths = render.write(stage.scene, tmp_path / "new" / "100%%-%03d.png", (11, 3, 7), node=square, size=SIZE, depth=depth)
    assert paths == [str(tmp_path / "new" / f"100%-{frame:03}.png") for frame in (11, 3, 7)]
    for name, frame in zip(paths, (11, 3, 7)):
        with open(name, "rb") as file:
            assert file.read(25)[24] == depth
        assert (numpy.asarray(brindle.Cel.read(name)) == pixels(square, frame)).all()


@pytest.mark.parametrize("pattern", ["frame.png", "%d-%d.png", "%s.png", "%04x.png", "%d%", ""])
def test_a_path_without_a_place_for_the_frame(stage, square, pattern):
    with pytest.raises(brindle.Error) as failure:
        render.write(stage.scene, pattern, [1], node=square, size=SIZE)
    assert str(failure.value) == (f'The path "{pattern}" has no place for the number of a frame, as "frames/%04d.png" has.')


def test_a_file_that_cannot_be_written_stops_the_rest(stage, square, tmp_path):
    (tmp_path / "2.png").mkdir()
    with pytest.raises(brindle.Error, match="/2.png can't be written: It is a folder.$"):
        render.write(stage.scene, tmp_path / "%d.png", range(1, 60), node=square, size=SIZE, threads=2)
    assert (tmp_path / "1.png").is_file() and not (tmp_path / "59.png").exists()


def test_a_depth_that_no_picture_has(stage, square, tmp_path):
    with pytest.raises(brindle.Error, match="A picture has 8 or 16 bits a channel, not 12."):
        render.write(stage.scene, tmp_path / "%d.png", [1], node=square, size=SIZE, depth=12)


def test_a_series_is_of_one_scene(tmp_path):
    shutil.copytree(support.ROOT / "tests" / "data" / "projects" / "v3", tmp_path / "two")
    with brindle.open(tmp_path / "two") as app:
        one, other = app.scenes[0], app.scenes[1]
        with pytest.raises(brindle.Error, match=f"^The node Top/Card isn't in the scene {other.name}.$"):
            render.frames(other, lambda frame, cel: None, [1], node=one.nodes.create("COLOR_CARD", "Card"), size=(8, 4))
        with pytest.raises(TypeError, match="can't be called: it is of the type int"):
            render.frames(one, 5, [1], size=(8, 4))
        app.close()


@pytest.mark.parametrize("threads", [-3, 0, None, 1000000])
def test_any_number_of_threads_will_do(stage, threads):
    card = stage.card("Card", *RED)
    assert render.frames(stage.scene, lambda frame, cel: None, [2, 1], node=card, size=(8, 4), threads=threads) == 2
    assert at(pixels(card, threads=threads), 0, 0) == RED


def test_other_threads_run_while_a_picture_is_drawn(stage, square):
    blur = stage.node("BLUR", "Blur", square)
    blur.attributes["radius"].set_localvalue(50)
    steps, done = 0, threading.Event()

    def count():
        nonlocal steps
        while not done.is_set():
            steps += 1

    counter = threading.Thread(target=count)
    counter.start()
    before = steps
    render.cel(blur, 1, (4000, 3000), threads=1)
    during = steps - before
    done.set()
    counter.join()
    assert during > 1000


def test_the_project_may_close_while_pictures_are_kept(folder):
    with brindle.create(folder) as app:
        cel = render.cel(Stage(app).card("Card", *RED), 1, (4, 4))
    assert numpy.asarray(cel)[0, 0].tolist() == list(RED)
