"""Columns: the value at a frame of each kind, and a list of many columns."""

import math

import brindle

SIZE = 10_000
KEYS = 20


FORMULA = 'value("BEZIER") * 2 + value("EASE", frame - 3)'


def keyed(columns):
    """A column of each kind with keys, by the name under which it is evaluated."""
    bezier, ease, velocity, path, turn = (columns.create(kind, kind) for kind in (
        "BEZIER", "EASE", "VELOBASED", "3D_PATH", "QUATERNION_PATH"))
    for key in range(KEYS):
        frame, value = 1 + 3 * key, 10 * math.sin(key)
        bezier[frame] = value
        ease[frame] = value
        velocity.create_point(frame, key * key)
        path.create_point(frame, value, 10 * math.cos(key), key)
        turn.create_point(frame, 9 * key, 5 * value, 30)
    expression = columns.create("EXPR", "EXPR")
    expression.text = FORMULA
    return {"expression": expression, "bezier": bezier, "ease": ease, "velocity": velocity, "path": path, "turn": turn}


def measure(samples, root):
    with brindle.create(f"{root}/columns") as app:
        columns, history = app.scene.columns, app.project.history
        names = keyed(columns)
        # All coordinates at two frames in turn: the path is evaluated anew for each frame.
        for kind in ("path", "turn"):
            names |= {f"{kind}1": names[kind].get_entry(17), f"{kind}2": names[kind].get_entry(32)}
        samples.in_turn({
            "evaluate bezier": ("bezier.get_entry(17)", 1),
            "evaluate ease": ("ease.get_entry(17)", 1),
            "evaluate velocity": ("velocity.get_entry(17)", 1),
            "evaluate expression": ("expression.get_entry(17)", 1),
            "evaluate path": ("path1.x; path1.y; path1.z; path2.x; path2.y; path2.z", 6),
            "evaluate rotation": ("turn1.x; turn1.y; turn1.z; turn2.x; turn2.y; turn2.z", 6),
        }, names)
        del names
        for _ in range(5):
            history.clear()
            history.begin("columns")
            with samples.timed("columns create"):
                create = columns.create
                for index in range(SIZE):
                    create("BEZIER", f"C{index}")
            history.end()
            with samples.timed("columns undo"):
                history.undo(1)
        history.redo(1)
        samples.in_turn({"column by name": ("columns[name]", 1)}, {"columns": columns, "name": f"C{SIZE // 2}"})
