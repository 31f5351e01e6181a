#!/usr/bin/python3
"""Draws the pictures of docs/animation.md with the columns of a project. The code above a picture is what was run.

    PYTHONPATH=build/dev/python examples/animation/write_animation_page.py           writes what has changed
    PYTHONPATH=build/dev/python examples/animation/write_animation_page.py --check   tells whether all is up to date
"""

import pathlib
import sys
import tempfile
from typing import Any

import brindle

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "geometry"))

from canvas import BLUE, GREEN, GREY, ORANGE, Panel, path_through, picture  # noqa: E402
from graph import FRAME, HANDLE, KEY, Graph  # noqa: E402
from write_page import IMAGES, bring_up_to_date  # noqa: E402

FRAMES, FRAME_TICKS = (1, 25), (1, 7, 13, 19, 25)
SWING = "column[1] = 0\ncolumn[13] = 6\ncolumn[25] = 2"


def made(columns: brindle.ColumnList, kind: str, *steps: str) -> Any:
    """A new column on which some code was run."""
    column = columns.create(kind, "")
    for step in steps:
        exec(step, {"column": column, "velocity": getattr(column, "velocity_column", None)})
    return column


def over_time(title: str, caption: str, low: int = 0, high: int = 8) -> Graph:
    ticks = tuple(range(low, high + 1, 2))
    return Graph(title, FRAMES, (low, high), (FRAME_TICKS, ticks), ("frame", "degrees"), caption)


def keys(columns: brindle.ColumnList) -> str:
    """Keyframes and their handles."""
    moved = "key = column[13]\nkey.handle_left_x = 3\nkey.handle_left_y = 8"
    cut = "column.keyframe_create(7)"
    panels: list[Panel] = []
    for title, steps, caption in ((SWING, [SWING], "Flat handles, a third of the\nway to the next keyframe."),
                                  (moved, [SWING, moved], "A handle draws the curve\ntowards it."),
                                  (cut, [SWING, moved, cut], "A keyframe that is made on the\ncurve leaves its shape.")):
        column = made(columns, "BEZIER", *steps)
        graph = over_time(title, caption)
        graph.values(column.get_entry)
        graph.keys(column)
        graph.legend(KEY, HANDLE)
        panels.append(graph)
    return picture(*panels)


def by_frame(graph: Graph, column: Any) -> Graph:
    """The graph with a column's curve, its value at each frame, and its keyframes."""
    graph.values(column.get_entry)
    graph.each_frame(column.get_entry)
    for point in column.control_points:
        graph.dot((point.frame, point.value), BLUE, 4)
    graph.legend(KEY, FRAME)
    return graph


def holds(columns: brindle.ColumnList) -> str:
    """Values that stay."""
    constant = "column[1].const_segment = True"
    held = "column.hold_start = 5\ncolumn.hold_stop = 20\ncolumn.hold_step = 4"
    panels: list[Panel] = []
    for title, steps, caption in (
            (SWING, [SWING], "A value at each frame."),
            (constant, [SWING, constant], "The first keyframe keeps its value\nup to the next one."),
            (held, [SWING, held], "Each value lasts four frames,\nfrom frame 5 to frame 20.")):
        column = made(columns, "BEZIER", *steps)
        graph = over_time(title, caption)
        panels.append(by_frame(graph, column))
    return picture(*panels)


def eases(columns: brindle.ColumnList) -> str:
    """Ways out of a keyframe and into the next one."""
    panels: list[Panel] = []
    for (way_out, way_in), caption in (
            (("0, 180", "0, 0"), "Without eases the way is straight."),
            (("12, 180", "6, 0"), "It leaves over 12 frames and\ncomes in over 6."),
            (("8, 160", "8, -20"), "Angles give it slopes: it swings\nback, and beyond.")):
        code = f"column.create_point(\n  1, 0, 0, 0, {way_out})\ncolumn.create_point(\n  25, 6, {way_in}, 0, 180)"
        column = made(columns, "EASE", code)
        graph = over_time(code, caption, -2)
        panels.append(by_frame(graph, column))
    return picture(*panels)


FLIGHT = "column.create_point(1, 0, 0, 0)\ncolumn.create_point(13, 8, 6, 0)\ncolumn.create_point(25, 16, 0, 0)"


def flight(title: str, caption: str, column: brindle.Path3DColumn) -> Graph:
    """A path as one sees it along z: where it leads, and where it is at each frame."""
    graph = Graph(title, (-2, 18), (-4, 12), ((0, 4, 8, 12, 16), (-4, 0, 4, 8, 12)), ("x (fields)", "y (fields)"),
                  caption, 254, 226)  # The same scale on both axes.
    places = [column.get_entry(1 + step / 4) for step in range(24 * 4 + 1)]
    graph.path(path_through([(place.x, place.y) for place in places]), GREY, 1.5)
    for place in places[::4]:
        graph.dot((place.x, place.y), ORANGE, 2)
    for frame in column.keyframe_list():
        place = column.get_entry(frame)
        graph.dot((place.x, place.y), BLUE, 4)
        graph.text((place.x, place.y), f"{frame}", 0, -9, BLUE, "middle")
    graph.legend(KEY, FRAME)
    return graph


def paths(columns: brindle.ColumnList) -> str:
    """Shapes of a path."""
    panels: list[Panel] = []
    for member, value, caption in (("", 0, "Round through its keyframes."), ("tension", 1, "Straight at the keyframe."),
                                   ("continuity", 1, "A corner, and a bend on both sides."),
                                   ("bias", 1, "The bend lies behind the keyframe.")):
        title = f"column[13].{member} = {value}" if member else FLIGHT
        column = made(columns, "3D_PATH", FLIGHT, *([title] if member else []))
        panels.append(flight(title, caption, column))
    return picture(*panels)


def velocities(columns: brindle.ColumnList) -> str:
    """The same path at two paces."""
    panels: list[Panel] = []
    early = "velocity = column.velocity_column\nvelocity[5] = 0.75"
    for title, steps, captions in (
            (FLIGHT, [FLIGHT], ("The velocity: how many control\npoints lie behind.", "An even pace.")),
            (early, [FLIGHT, early], ("At frame 5, three quarters of the\nway to the second point.",
                                      "Fast at first, then slow."))):
        column = made(columns, "3D_PATH", *steps)
        velocity = column.velocity_column
        graph = Graph(title, FRAMES, (0, 2), (FRAME_TICKS, (0, 0.5, 1, 1.5, 2)), ("frame", "place"), captions[0], 250,
                      226)
        graph.values(velocity.get_entry, GREEN)
        graph.each_frame(velocity.get_entry)
        for point in velocity.control_points:
            graph.dot((point.frame, point.value), GREEN, 4)
        graph.legend(("dot", GREEN, "velocity point"), FRAME)
        panels += [graph, flight("", captions[1], column)]
    return picture(*panels)


def expressions(columns: brindle.ColumnList) -> str:
    """A column, and columns that are computed from it."""
    wave = made(columns, "BEZIER", SWING)
    wave.name = "Wave"
    panels: list[Panel] = []
    for text, caption in (('value("Wave", frame - 6)', "Six frames later."),
                          ('value("Wave") / 2', "Half as much."),
                          ('value("Wave") + sin(frame)', "With a sine; angles are in radians.")):
        column = made(columns, "EXPR")
        column.text = text
        graph = over_time(f"column.text = \\\n  '{text}'", caption)
        graph.values(wave.get_entry, GREY, "4 3")
        graph.values(column.get_entry, ORANGE)
        for point in wave.control_points:
            graph.dot((point.frame, point.value), GREY, 4)
        graph.legend(("dot", GREY, 'keyframe of "Wave"'), ("small", ORANGE, "expression"))
        panels.append(graph)
    return picture(*panels)


def draw_all() -> dict[str, str]:
    drawn = {}
    for draw in (keys, holds, eases, paths, velocities, expressions):
        with tempfile.TemporaryDirectory() as folder, brindle.create(pathlib.Path(folder) / "page") as app:
            drawn[draw.__name__] = draw(app.scene.columns)
    return drawn


def main() -> int:
    written = {IMAGES / "animation" / f"{name}.svg": text for name, text in draw_all().items()}
    return bring_up_to_date(written, "examples/animation/write_animation_page.py")


if __name__ == "__main__":
    sys.exit(main())
