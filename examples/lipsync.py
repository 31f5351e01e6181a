"""Puts mouth shapes on the exposure sheet: a switch file, as lip-sync programs write it, becomes exposures with holds.

    ./run examples/lipsync.py PROJECT Top/Mouth talk.dat             changes the project in its folder
    ./run examples/lipsync.py PROJECT Top/Mouth talk.dat --start 25  the file's first frame is frame 25 of the scene

A line of a switch file has a frame and a shape ("12 etc"), which holds up to the next line; a line with a word alone is
a heading and is passed over, as is what stands behind a "#". The drawings are those of the node's drawing column, named by
the shapes; --shapes gives them other names ("etc=closed"). One undo entry makes all of it.
"""

import argparse
import pathlib

import brindle


class Refused(Exception):
    """Tells in one sentence why a file or a project is left alone."""


def read_switches(path: pathlib.Path) -> list[tuple[int, str]]:
    """The frames and shapes of a file, by frame."""
    switches: dict[int, str] = {}
    for number, line in enumerate(path.read_text(encoding="utf-8-sig").splitlines(), 1):
        words = line.partition("#")[0].split()
        if len(words) < 2:
            continue
        if len(words) > 2 or not words[0].isascii() or not words[0].isdigit():
            raise Refused(f'Line {number} of "{path}" is not a frame and a shape: "{line.strip()}".')
        switches[int(words[0])] = words[1]
    if not switches:
        raise Refused(f'"{path}" has no line with a frame and a shape.')
    return sorted(switches.items())


def exposures(switches: list[tuple[int, str]], start: int, count: int) -> list[str]:
    """A shape for each frame from `start` up to the end of a scene of `count` frames."""
    first = switches[0][0]
    shapes: list[str] = []
    for (frame, shape), (behind, _) in zip(switches, [*switches[1:], (first + count, "")]):
        shapes += [shape] * (behind - frame)
    return shapes[:max(0, count - start + 1)]


def drawing_column(app: brindle.Application, path: str) -> brindle.ElementColumn:
    node = app.scene.nodes[path]
    if node is None:
        raise Refused(f'The scene has no node "{path}".')
    attribute = node.attributes["drawing"]
    column = attribute.column if isinstance(attribute, brindle.DrawingAttribute) else None
    if not isinstance(column, brindle.ElementColumn):
        raise Refused(f'The node "{path}" shows no drawing column.')
    return column


def renamed(text: str) -> tuple[str, str]:
    shape, _, name = text.partition("=")
    if not shape or not name:
        raise argparse.ArgumentTypeError('a shape has another name in the form "etc=closed"')
    return shape, name


def main() -> None:
    parser = argparse.ArgumentParser(prog="lipsync", description="Puts the mouth shapes of a switch file on the sheet.")
    parser.add_argument("project", type=pathlib.Path, help="the project's folder")
    parser.add_argument("node", help="the path of the node that shows the mouth: Top/Mouth")
    parser.add_argument("switches", type=pathlib.Path, help="the file with a frame and a shape a line")
    parser.add_argument("--start", type=int, default=1, help="the frame of the scene for the first line (1)")
    parser.add_argument("--shapes", type=renamed, nargs="*", default=[], help="names of drawings: etc=closed")
    given = parser.parse_args()
    try:
        switches = read_switches(given.switches)
        names = dict(given.shapes)
        with brindle.open(given.project) as app:
            column = drawing_column(app, given.node)
            if not 1 <= given.start <= app.scene.frame_count:
                raise Refused(f"Frame {given.start} is not in the scene, which has {app.scene.frame_count} frames.")
            shapes = [names.get(shape, shape) for shape in exposures(switches, given.start, app.scene.frame_count)]
            column[given.start:given.start + len(shapes)] = shapes
            app.save()
        print(f"{column_text(shapes)} on frames {given.start} to {given.start + len(shapes) - 1} of {given.node}")
    except (brindle.Error, Refused, OSError, UnicodeError) as error:
        raise SystemExit(f"lipsync: {error}")


def column_text(shapes: list[str]) -> str:
    changes = sum(1 for one, other in zip([None, *shapes], shapes) if one != other)
    return f"{changes} exposures of {len(set(shapes))} shapes"


if __name__ == "__main__":
    main()
