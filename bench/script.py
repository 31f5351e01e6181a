#!/usr/bin/python3
"""What a script's operations cost, as JSON on standard output: seconds an operation, a list of rounds for each name.

    PYTHONPATH=build/dev/python:build/dev/bench bench/script.py

bench/run.py runs it and prints the table. Operations on a number of nodes or keys are named "create/10000" and are in
seconds an item. Processor time, so that what else runs on the machine counts little; saving, opening and starting are
on the wall clock.
"""

import bisect
import json
import math
import os
import pathlib
import subprocess
import sys
import tempfile
import time

import brindle

import columns
import drawings
import elements
import exposures
import javascript
import lists
import operations
import palettes
import pictures
from floors import objects
from measure import Samples, silence

SIZES = (1_000, 10_000, 100_000)
REPETITIONS = {1_000: 7, 10_000: 5, 100_000: 3}

samples = Samples()


def short_operations(folder):
    """Operations whose cost has nothing to do with the size of the project, with the floors in the same rounds."""
    with brindle.create(folder) as app:
        samples.in_turn(objects.STATEMENTS | operations.STATEMENTS, objects.NAMES | operations.names(app))
        samples.in_turn(javascript.STATEMENTS, javascript.names(app))


def create_nodes(scene, count):
    """Pegs, each linked to the one before."""
    create = scene.nodes.create
    previous = create("PEG", "N0")
    for index in range(1, count):
        node = create("PEG", f"N{index}")
        node.ports_in[0].link(previous)
        previous = node


def build(app, size, repetitions):
    """Leaves the project with so many nodes."""
    history = app.project.history
    for _ in range(repetitions):
        history.clear()
        history.begin("nodes")
        with samples.timed(f"create/{size}", size):
            create_nodes(app.scene, size)
        history.end()
        with samples.timed(f"undo create/{size}", size):
            history.undo(1)
        with samples.timed(f"floor create/{size}", size):
            plain = objects.make_plain(size)
        with samples.timed(f"floor undo create/{size}", size):
            while plain:
                plain.popitem()
    history.redo(1)


def write(app, size, repetitions):
    """A value of each node, as one undo entry, and taken back."""
    history = app.project.history
    places = [node.position for node in app.scene.nodes]
    plain = list(objects.make_plain(len(places)).values())
    for _ in range(repetitions):
        history.clear()
        history.begin("writes")
        with samples.timed(f"write/{size}", size):
            for place in places:
                place.x = 7
        history.end()
        with samples.timed(f"undo write/{size}", size):
            history.undo(1)
        with samples.timed(f"floor write/{size}", size):
            for node in plain:
                node.x = 7
        with samples.timed(f"floor undo write/{size}", size):
            for node in plain:
                node.x = 0
    history.clear()


def search(app, size):
    """Operations that have to cost the same in every project."""
    scene = app.scene
    names = dict(objects.NAMES, scene=scene, nodes=scene.nodes, history=app.project.history, path=f"Top/N{size // 2}")
    names["angle"] = names["nodes"][names["path"]].attributes["angle"]
    samples.in_turn({
        f"find/{size}": ("nodes[path]", 1),
        f"chain/{size}": ("scene.nodes[path].attributes['position.x'].value(10)", 1),
        f"set_value/{size}": ("angle.set_value(10, 1.5); angle.set_value(10, 2.5)", 2, "history.clear()"),
        **objects.statements_at(size, "floor subscript", "floor chain", "floor set_value"),
    }, names, rounds=5)
    names["history"].clear()


def iterate(app, size, repetitions):
    nodes = app.scene.nodes
    wrapper = objects.NAMES["wrapper"]
    for _ in range(repetitions):
        with samples.timed(f"iterate/{size}", size):
            for node in nodes:
                node.name
        with samples.timed(f"floor iterate/{size}", size):
            for _ in range(size):
                wrapper.child.text


def keys(app, size, repetitions):
    """Keys one by one on one attribute, in one call on another column, and taken back; each as one undo entry."""
    app.scene.frame_count = size
    history = app.project.history
    frames = list(range(1, size + 1))
    wrapper = objects.NAMES["wrapper"]
    for _ in range(repetitions):
        history.clear()
        angle = app.scene.nodes["Top/N0"].attributes["angle"]
        history.begin("keys")
        with samples.timed(f"keys one by one/{size}", size):
            for frame in frames:
                angle.set_value(frame, frame % 97)
        history.end()
        with samples.timed(f"undo keys/{size}", size):
            history.undo(1)
        plain = []
        with samples.timed(f"floor keys one by one/{size}", size):
            for frame in frames:
                bisect.insort(plain, (frame, frame % 97))
        plain = {}
        with samples.timed(f"floor undo keys/{size}", size):
            for frame in frames:
                plain[frame] = None

        skew = app.scene.nodes["Top/N0"].attributes["skew"]
        skew.set_value(1, 1.0)
        with silence(), samples.timed(f"keys in one call/{size}", size):
            skew.column.keyframe_create(frames)
        with samples.timed(f"floor keys in one call/{size}", size):
            [wrapper.child for _ in frames]
        history.undo(2)


def evaluate(app, size):
    """A curve whose keys stand on every other frame, between two of them."""
    app.scene.frame_count = 2 * size
    angle = app.scene.nodes["Top/N0"].attributes["angle"]
    app.project.history.begin("keys")
    for key in range(size):
        angle.set_value(1 + 2 * key, key % 97)
    app.project.history.end()
    samples.in_turn({f"evaluate/{size}": (f"angle.value({size})", 1), **objects.statements_at(size, "floor value")},
                    dict(objects.NAMES, angle=angle), rounds=5)


def fits(repetitions=9):
    """A path through the points of a hand-drawn line."""
    points = [[x * 0.5, 40 * math.sin(x / 40) + 0.3 * math.sin(7 * x)] for x in range(1000)]
    for _ in range(repetitions):
        with samples.timed("fit/1000", 1000):
            brindle.BezierPath.create_bezier_fit(points)


def largest_file(folder):
    return max((file for file in pathlib.Path(folder).rglob("*") if file.is_file()), key=lambda file: file.stat().st_size)


def save_and_open(app, folder, size, repetitions, keyed=""):
    """Leaves the project closed. The floors: the same bytes written by Python, and read by its JSON module."""
    for _ in range(repetitions):
        with samples.timed(f"save{keyed}/{size}", size, time.perf_counter):
            app.save()
        content = largest_file(folder).read_bytes()
        with samples.timed(f"floor save{keyed}/{size}", size, time.perf_counter):
            with open(f"{folder}.copy", "wb") as copy:
                copy.write(content)
                copy.flush()
                os.fsync(copy.fileno())
        app.close()
        with samples.timed(f"open{keyed}/{size}", size, time.perf_counter):
            app = brindle.open(folder)
        with samples.timed(f"floor open{keyed}/{size}", size, time.perf_counter):
            json.loads(pathlib.Path(f"{folder}.copy").read_text())
    app.close()


def key_each(app, folder, size, repetitions):
    """Linked nodes with an animated value each, saved and opened."""
    app.project.history.begin("keyed nodes")
    create_nodes(app.scene, size)
    nodes = app.scene.nodes
    for index in range(size):
        nodes[f"Top/N{index}"].attributes["angle"].set_value(10, index + 0.5)
    app.project.history.end()
    save_and_open(app, folder, size, repetitions, " keyed")


def start(repetitions=9):
    for _ in range(repetitions):
        for name, code in (("import", "import brindle"), ("floor import", "pass")):
            with samples.timed(name, clock=time.perf_counter):
                subprocess.run([sys.executable, "-c", code], check=True)


def main():
    with tempfile.TemporaryDirectory(prefix="brindle-bench-") as root:
        short_operations(f"{root}/short")
        fits()
        palettes.measure(samples, root)
        columns.measure(samples, root)
        lists.measure(samples, root)
        drawings.measure(samples, root)
        elements.measure(samples, root)
        pictures.measure(samples, root)
        exposures.measure(samples, root)
        with brindle.create(f"{root}/10") as app:
            create_nodes(app.scene, 10)
            search(app, 10)
        for size in SIZES:
            repetitions = REPETITIONS[size]
            app = brindle.create(f"{root}/{size}")
            build(app, size, repetitions)
            search(app, size)
            iterate(app, size, repetitions)
            write(app, size, repetitions)
            save_and_open(app, f"{root}/{size}", size, repetitions)
            with brindle.create(f"{root}/keys{size}") as app:
                create_nodes(app.scene, 1)
                keys(app, size, repetitions)
                evaluate(app, size)
        key_each(brindle.create(f"{root}/keyed"), f"{root}/keyed", 10_000, REPETITIONS[10_000])
    start()
    javascript.first_engine(samples)
    json.dump(samples.seconds, sys.stdout)


if __name__ == "__main__":
    main()
