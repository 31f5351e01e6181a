"""What the value of a column at a frame costs, with the column in hand."""

import json
import pathlib

import brindle

FORMULA = 'value("X") * 2 + value("Y", frame - 3)'


def make(folder):
    """A project with two animated attributes, and a third one that an expression of them drives."""
    with brindle.create(folder) as app:
        for name in ("X", "Y", "Sum"):
            angle = app.scene.nodes.create("PEG", name).attributes["angle"]
            angle.set_value(1, 0.0)
            angle.set_value(20, 5.0)
            angle.column.name = name
        app.save()
    file = next(pathlib.Path(folder, "scenes").iterdir())
    scene = json.loads(file.read_text())
    at = [column["name"] for column in scene["columns"]].index("Sum")
    scene["columns"][at] = {"name": "Sum", "type": "EXPR", "expression": FORMULA}
    file.write_text(json.dumps(scene))


def measure(samples, root):
    folder = f"{root}/columns"
    make(folder)
    with brindle.open(folder) as app:
        column = app.scene.nodes["Top/Sum"].attributes["angle"].column
        samples.in_turn({"evaluate expression": ("column.get_entry(10)", 1)}, {"column": column})
