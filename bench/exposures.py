"""What exposures cost: one at a frame, a slice of them, and a sheet of 100 columns of 1,000 frames."""

import json
import pathlib
import time

import brindle

FRAMES = 1_000
COLUMNS = 100


def make(folder, columns, keys):
    """A project with read nodes, each showing a drawing column of one element; a key exposure every few frames."""
    with brindle.create(folder) as app:
        app.scene.frame_count = FRAMES
        app.elements.create("Arm").drawings.create([str(number) for number in range(1, keys + 1)])
        for index in range(columns):
            app.scene.nodes.create("READ", f"R{index}")
        app.save()
    file = next(pathlib.Path(folder, "scenes").iterdir())
    scene = json.loads(file.read_text())
    scene["columns"] = [{"name": f"C{index}", "type": "DRAWING", "element": 1,
                         "exposures": [[1 + frame, str(1 + frame % keys)] for frame in range(FRAMES)]}
                        for index in range(columns)]
    for node in scene["nodes"]:
        if node["type"] == "READ":
            node["columns"] = {"drawing.element": "C" + node["name"][1:]}
    file.write_text(json.dumps(scene))


def measure(samples, root):
    one = f"{root}/exposures"
    make(one, 1, 12)
    with brindle.open(one) as app:
        column = app.scene.nodes["Top/R0"].attributes["drawing"].column
        samples.in_turn({
            "exposure": ("column[500]", 1),
            "expose": ("column[500] = '1'; column[500] = '2'", 2, "history.clear()"),
            "exposure slice": (f"column[1:{FRAMES + 1}]", 1),
        }, {"column": column, "history": app.project.history})
    many = f"{root}/sheet"
    make(many, COLUMNS, 12)
    for index in range(5):
        with samples.timed("sheet open", clock=time.perf_counter):
            app = brindle.open(many)
        with app:
            app.scene.nodes["Top/R0"].attributes["drawing"].column[500] = str(1 + index)
            with samples.timed("sheet save", clock=time.perf_counter):
                app.save()
