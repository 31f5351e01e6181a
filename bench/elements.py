"""An element of many drawings: making, undoing, finding and listing them; saving and opening the project."""

import time

import brindle

SIZE = 10_000


def measure(samples, root, repetitions=5):
    folder = f"{root}/elements"
    app = brindle.create(folder)
    history = app.project.history
    drawings = app.elements.create("Many", vector_type="").drawings
    names = [str(number) for number in range(SIZE)]
    for _ in range(repetitions):
        history.clear()
        with samples.timed("drawings create"):
            drawings.create(names)
        with samples.timed("drawings undo"):
            history.undo()
    drawings.create(names)
    history.clear()
    samples.in_turn({"drawing by name": ("drawings[middle]", 1)}, {"drawings": drawings, "middle": str(SIZE // 2)})
    for _ in range(repetitions):
        with samples.timed("drawings list"):
            drawings.list()
    for _ in range(repetitions):
        drawings[0].scale_factor += 1
        with samples.timed("drawings save", clock=time.perf_counter):
            app.save()
    app.close()
    for _ in range(repetitions):
        with samples.timed("drawings open", clock=time.perf_counter):
            app = brindle.open(folder)
        app.close()
