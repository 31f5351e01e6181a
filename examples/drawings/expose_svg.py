"""Draws an SVG picture into a project, exposes it, and makes a PNG of what the scene shows of it.

    ./run examples/drawings/expose_svg.py PROJECT cat.png                       the cat that lies beside this script
    ./run examples/drawings/expose_svg.py PROJECT house.png --svg house.svg --size 1920x1080
    ./run examples/drawings/expose_svg.py PROJECT cat.png --frames 5-12         exposed on some frames only

The picture becomes a drawing of a new element, which a new drawing column shows; element, column, node and palette are
named by the SVG file, or by --name. A project folder that isn't there is made. All of it is one undo entry, and a project
that can't have all of it is left as it is. What a drawing can't have of the SVG is told, a line for each kind.
"""

import argparse
import pathlib
import re

import brindle
from brindle import render

CAT = pathlib.Path(__file__).with_name("cat.svg")


class Refused(Exception):
    """Tells in one sentence why a project is left alone."""


def expose(app: brindle.Application, svg: pathlib.Path, name: str, first: int, last: int | None) -> tuple[
        brindle.Node, list[str]]:
    """The node that shows the picture from one frame to another, or to the end of the scene; what isn't carried over."""
    scene, project = app.scene, app.project
    last = scene.frame_count if last is None else last
    if not 1 <= first <= last <= scene.frame_count:
        raise Refused(f"The scene has the frames 1 to {scene.frame_count}, not {first} to {last}.")
    with project.history.bracket("Expose SVG"):
        column = scene.columns.create("DRAWING", name)  # with an element and a node of this name
        if not isinstance(column, brindle.ElementColumn) or column.element is None:
            raise Refused(f'The project can have no column and element "{name}".')
        palette = project.palettes.create("Colour", name)
        palette.clear()
        made = column.element.drawings.create("1")
        drawing = made.initialize() if isinstance(made, brindle.ElementDrawing) else None
        if drawing is None:
            raise Refused(f'The element "{name}" can have no vector drawing.')
        told = brindle.import_svg(svg, drawing["line"], palette)
        column[first:last + 1] = ["1"] * (last + 1 - first)
        if last < scene.frame_count:
            column[last + 1] = None  # The drawing would hold up to the end of the scene.
    return column.linked_nodes[0], told


def frame_range(text: str) -> tuple[int, int]:
    found = re.fullmatch("([0-9]{1,6})-([0-9]{1,6})", text)
    if found is None:
        raise argparse.ArgumentTypeError(f'"{text}" is not a range of frames, as 5-12')
    return int(found[1]), int(found[2])


def size(text: str) -> tuple[int, int]:
    found = re.fullmatch("([0-9]{1,5})x([0-9]{1,5})", text)
    if found is None:
        raise argparse.ArgumentTypeError(f'"{text}" is not a size in pixels, as 1920x1080')
    return int(found[1]), int(found[2])


def main() -> None:
    parser = argparse.ArgumentParser(prog="expose_svg", description="Exposes an SVG picture, and draws what is seen.")
    parser.add_argument("project", type=pathlib.Path, help="the project's folder; made where there is none")
    parser.add_argument("picture", type=pathlib.Path, help="the PNG file to write")
    parser.add_argument("--svg", type=pathlib.Path, default=CAT, help="the SVG file (the cat beside this script)")
    parser.add_argument("--name", help="the name of element, column, node and palette; without it, the file's")
    parser.add_argument("--frames", type=frame_range, default=(1, None), help="the frames, as 5-12; without it, all")
    parser.add_argument("--size", type=size, help="of the PNG in pixels, as 1920x1080; without it, the project's")
    given = parser.parse_args()
    try:
        opened = brindle.open(given.project) if given.project.exists() else brindle.create(given.project)
        with opened as app:
            node, told = expose(app, given.svg, given.name or given.svg.stem, *given.frames)
            render.cel(node, given.frames[0], given.size).write(given.picture)
            app.save()
            for line in told:
                print(line)
            print(f"{node.path} shows {given.svg.name} from frame {given.frames[0]} on; {given.picture} is frame "
                  f"{given.frames[0]}")
    except (brindle.Error, Refused, OSError) as error:
        raise SystemExit(f"expose_svg: {error}")


if __name__ == "__main__":
    main()
