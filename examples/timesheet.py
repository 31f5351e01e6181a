"""Writes the exposure sheet of a scene as CSV, and reads it back.

    ./run examples/timesheet.py write PROJECT sheet.csv
    ./run examples/timesheet.py read PROJECT sheet.csv      changes the project in its folder, in one undo entry

The first line has "Frame" and the paths of the nodes that show a drawing or timing column; each line behind it a frame and
the drawing that each of them exposes there. An empty cell exposes nothing. A drawing that the element doesn't have is made.
What was written, and read into the same project, is written again byte for byte.
"""

import argparse
import csv
import io
import pathlib

import brindle

Sheet = brindle.ElementColumn | brindle.DrawingTimingColumn


class Refused(Exception):
    """Tells in one sentence why a file or a project is left alone."""


def sheets(scene: brindle.Scene) -> dict[str, Sheet]:
    """The columns of drawings by the paths of their nodes."""
    found: dict[str, Sheet] = {}
    for node in scene.nodes:
        attribute = node.attributes["drawing"]
        column = attribute.column if isinstance(attribute, brindle.DrawingAttribute) else None
        if isinstance(column, (brindle.ElementColumn, brindle.DrawingTimingColumn)):
            found[node.path] = column
    return found


def cells(column: Sheet, count: int) -> list[str]:
    """The name in each cell."""
    names = [entry.name if isinstance(entry, brindle.ElementDrawing) else entry or "" for entry in column[1:count + 1]]
    return names + [""] * (count - len(names))


def table(scene: brindle.Scene) -> str:
    columns = sheets(scene)
    out = io.StringIO()
    writer = csv.writer(out, lineterminator="\n")
    writer.writerow(["Frame", *columns])
    filled = [cells(column, scene.frame_count) for column in columns.values()]
    for frame in range(1, scene.frame_count + 1):
        writer.writerow([frame, *(names[frame - 1] for names in filled)])
    return out.getvalue()


def fill(scene: brindle.Scene, path: pathlib.Path) -> int:
    """Exposes what a file says; the number of columns that it has."""
    with path.open(newline="", encoding="utf-8-sig") as file:
        rows = list(csv.reader(file))
    if not rows or rows[0][:1] != ["Frame"]:
        raise Refused(f'"{path}" does not begin with "Frame" and the paths of nodes.')
    columns = sheets(scene)
    for name in rows[0][1:]:
        if name not in columns:
            raise Refused(f'No column of drawings is shown by a node "{name}".')
    for number, row in enumerate(rows[1:], 2):
        if len(row) != len(rows[0]) or row[0] != str(number - 1):
            raise Refused(f'Line {number} of "{path}" is not that of frame {number - 1} with {len(rows[0]) - 1} cells.')
    if len(rows) - 1 > scene.frame_count:
        raise Refused(f'"{path}" has {len(rows) - 1} frames, and the scene has {scene.frame_count}.')
    if len(rows) > 1:
        for place, name in enumerate(rows[0][1:], 1):
            columns[name][1:len(rows)] = [row[place] for row in rows[1:]]
    return len(rows[0]) - 1


def main() -> None:
    parser = argparse.ArgumentParser(prog="timesheet", description="Writes an exposure sheet as CSV, and reads it back.")
    parser.add_argument("way", choices=["write", "read"], help="write the sheet to the file, or read it from there")
    parser.add_argument("project", type=pathlib.Path, help="the project's folder")
    parser.add_argument("file", type=pathlib.Path, help="the CSV file")
    parser.add_argument("--scene", help="the scene's name; without it, the first one")
    given = parser.parse_args()
    try:
        with brindle.open(given.project, read_only=given.way == "write") as app:
            chosen = [scene for scene in app.scenes if given.scene in (None, scene.name)]
            if not chosen:
                raise Refused(f'The project has no scene "{given.scene}".')
            scene = chosen[0]
            if given.way == "write":
                given.file.write_text(table(scene), encoding="utf-8", newline="")
                count = len(sheets(scene))
            else:
                with app.project.history.bracket("Read Timing Sheet"):
                    count = fill(scene, given.file)
                app.save()
            print(f"{count} columns of {scene.frame_count} frames")
    except (brindle.Error, Refused, OSError, UnicodeError, csv.Error) as error:
        raise SystemExit(f"timesheet: {error}")


if __name__ == "__main__":
    main()
