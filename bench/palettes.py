"""A palette of many colours: finding, going through, making, undoing, saving and loading them; one channel of one."""

import os
import pathlib
import time

import brindle

SIZE = 10_000


def fill(palette, size):
    create = palette.create_solid_colour
    for index in range(size):
        create(f"Colour {index}", [index % 256, index // 256, 7])


def measure(samples, root, repetitions=5):
    folder = f"{root}/palettes"
    app = brindle.create(folder)
    history = app.project.history
    palette = app.project.palettes.create("Colour", "Many")
    palette.clear()
    for _ in range(repetitions):
        history.clear()
        with samples.timed("palette create"):
            with history.bracket("colours"):
                fill(palette, SIZE)
        with samples.timed("palette undo"):
            history.undo()
    history.redo()
    history.clear()
    middle = palette[SIZE // 2]
    names = {"palette": palette, "id": middle.id, "last": f"Colour {SIZE - 1}", "colour": middle, "history": history}
    samples.in_turn({
        "palette by id": ("palette[id]", 1),
        "palette by name": ("palette[last]", 1),
        "palette channel": ("colour.r = 7; colour.r = 8", 2, "history.clear()"),
    }, names)
    history.clear()
    for _ in range(repetitions):
        with samples.timed("palette iterate", SIZE):
            for colour in palette:
                colour.name
    for _ in range(repetitions):
        middle.r = (middle.r + 1) % 256
        with samples.timed("palette save", clock=time.perf_counter):
            app.save()
        content = pathlib.Path(palette.path).read_bytes()
        with samples.timed("floor palette save", clock=time.perf_counter):
            with open(f"{folder}.copy", "wb") as copy:
                copy.write(content)
                copy.flush()
                os.fsync(copy.fileno())
    del palette, middle, names
    app.close()
    for _ in range(repetitions):
        with brindle.open(folder) as app:
            palettes = app.project.palettes
            with samples.timed("palette load", clock=time.perf_counter):
                len(palettes["Many"])
