"""The tables of docs/geometry.md: what each reader makes of the values that a script may pass."""

import pathlib
import tempfile
from collections.abc import Callable, Mapping, Sequence
from typing import Any

import brindle

POSITIONS = ["[1, 2]", "[1, 2, 3]", "[1, 2, 3, 4]", "5", "Point2d(1, 2)", "Vector3d(1, 2, 3)", "Matrix([3, 1])",
             "[Point2d(1, 1), Vector2d(1, 0)]", "[Point2d(1, 1), 10]", "['a', 1]", "[1, 'a']", "[[1, 2], [3, 4]]", "[]",
             "'5'", "None", "node.position", "node", "Colour()"]
ROWS_OF_POSITIONS = ["[1, 2]", "[[1, 2], [3, 4]]", "[Point2d(1, 2), [3, 4], 5]", "[[[1, 2], [3, 4]], [[5, 6]]]",
                     "[[], [1, 2]]", "[1, [3, 4]]", "[]", "[[1, 2], 'a']"]
RECTANGLES = ["[[1, 2], [5, 4]]", "[Point2d(1, 2), Point2d(5, 4), Point2d(3, 9)]", "[[3, 3]]", "[]", "Point2d(3, 4)",
              "AllocatedRect2D(4, 3, 2, 1)", "[1, 2]", "node.position", "[node]"]
MATRICES = ["2", "0.0005", "[3, 1]", "[1, 2, 3]", "[1, 0, 0, 1, 1, 0, 3, 0, 1]",
            "[2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 5, 5, 0, 1]", "[0] * 16", "[1]", "[1, 2, 3, 4, 5]", "Point2d(1, 2)",
            "[Point2d(1, 2)]", "[turn, 3, 1]", "[3, 1, turn]", "'2'", "'a'", "None", "node"]
COLOURS = ["Colour(1, 2, 3)", "[200, 60, 40]", "[200, 60, 40, 128]", "[1, 2, 3, 4, 5]", "[300, -1, 0, 255]", "[1, 2]",
           "'red'", "'#ff0000'", "'1,2,3'", "'12,34,56,78'", "5", "node", "None", "Point2d(1, 2)"]
CURVES = ["[a, b, c]", "[a, b, c, d]", "[a, b, c, d, a, b, c, d]", "[curve, curve, curve]",
          "[curve, curve, curve, curve]", "[curve, a, b, c]", "[a, b, c, d, curve]", "[1, 2, 3, 4, 5, 6]", "a", "curve",
          "path", "[]", "'x'"]


def outcome(call: Callable[[], object]) -> str:
    try:
        return f"`{call()}`"
    except (brindle.Error, TypeError) as failure:
        return f"fails: {failure}"


def spelled(point: "brindle.Point2d | brindle.Node_Coordinates") -> str:
    return f"({point.x:g}, {point.y:g})"


def lenient(value: Any) -> str:
    return spelled(brindle.Point2d(value))


def first_point(value: object) -> str:
    curve = brindle.Bezier()
    curve[0] = value
    return spelled(curve[0])


class Place:
    """Where a node is put by a value, from (0, 0)."""

    def __init__(self, node: brindle.Node) -> None:
        self.node = node

    def __call__(self, value: Any) -> str:
        self.node.position = [0, 0, 0]
        self.node.position = value
        return spelled(self.node.position)


def row_of_points(value: object) -> str:
    """The points that a path takes when it is written from its first point on."""
    path = brindle.BezierPath.create_rectangle()
    path.erase(1, 4)
    path[0] = value
    return " ".join(map(spelled, path))


def axes(matrix: brindle.Matrix) -> str:
    rows = ((place.x, place.y, place.z) for place in (matrix.axis_x, matrix.axis_y, matrix.origin))
    return " ".join("(" + ", ".join(f"{round(value, 3) + 0.0:g}" for value in row) + ")" for row in rows)


def control_points(curve: brindle.Bezier | brindle.BezierPath) -> str:
    return " ".join(map(spelled, curve)) or "no curve"


def table(heads: Sequence[str], values: Sequence[str], names: Mapping[str, object],
          *calls: Callable[[Any], object]) -> str:
    lines = ["| " + " | ".join(heads) + " |", "|---" * len(heads) + "|"]
    for text in values:
        results = [outcome(lambda: call(eval(text, dict(names)))) for call in calls]
        lines.append(f"| `{text}` | " + " | ".join(results) + " |")
    return "\n".join(lines)


def tables() -> dict[str, str]:
    """The text of each table, by the name of its place on the page."""
    turn = brindle.Matrix()
    turn.rotate_degrees(90)
    curve = brindle.Bezier()
    curve[0] = [[9, 9], [8, 8], [7, 7]]
    names: dict[str, object] = {name: getattr(brindle, name) for name in dir(brindle) if name[0].isupper()}
    names |= {"turn": turn, "curve": curve, "a": [1, 2], "b": [3, 4], "c": [5, 6], "d": [7, 8],
              "path": brindle.BezierPath.create_rectangle(0, 0, 2, 1)}
    with tempfile.TemporaryDirectory() as folder, brindle.create(pathlib.Path(folder) / "project") as app:
        node = app.scene.nodes.create("PEG", "Arm")
        node.position = [140, 60]
        names["node"] = node
        other = app.scene.nodes.create("PEG", "Leg")
        return {
            "positions": table(("value", "`Point2d(value)`", "`node.position = value`", "`curve[0] = value`"), POSITIONS,
                               names, lenient, Place(other), first_point),
            "rows": table(("value", "points"), ROWS_OF_POSITIONS, names, row_of_points),
            "rectangles": table(("value", "`AllocatedRect2D(value)`"), RECTANGLES, names, brindle.AllocatedRect2D),
            "matrices": table(("value", "x axis, y axis and origin of `Matrix(value)`"), MATRICES, names,
                              lambda value: axes(brindle.Matrix(value))),
            "colours": table(("value", "`Colour(value)`"), COLOURS, names, brindle.Colour),
            "curves": table(("value", "`Bezier(value)`", "`BezierPath(value, 2)`"), CURVES, names,
                            lambda value: control_points(brindle.Bezier(value)),
                            lambda value: control_points(brindle.BezierPath(value, 2))),
        }
