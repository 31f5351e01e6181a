"""Reads what an animator has: the model sheet with the parts and pivots, the timing sheet and the exposure sheet."""

import csv
import json
import pathlib
from collections.abc import Iterator
from dataclasses import dataclass


@dataclass
class Part:
    name: str
    parent: str | None
    pivot: tuple[float, float]  # in fields, y upwards
    drawing: str | None  # the element that the part shows
    layer: int  # place from back to front
    depth: int  # levels below the root part
    column: int  # place from left to right in the node view


@dataclass
class Key:
    part: str
    attribute: str  # "angle", "position.x", ...
    frame: int
    value: float


@dataclass
class Exposure:
    element: str
    frame: int
    drawing: str


def read_rig(path: pathlib.Path) -> list[Part]:
    """The parts, each behind its parent."""
    parts: dict[str, Part] = {}
    leaves = 0
    rig = json.loads(path.read_text())
    entries, layers = rig["parts"], rig["back to front"]
    parents = {entry["parent"] for entry in entries}
    for entry in entries:
        parent = parts.get(entry["parent"])
        if entry["parent"] and not parent:
            raise SystemExit(f"{path}: {entry['name']} stands ahead of its parent {entry['parent']}")
        x, y = entry["pivot"]
        parts[entry["name"]] = Part(entry["name"], entry["parent"], (x, y), entry["drawing"],
                                    layers.index(entry["name"]) if entry["drawing"] else -1,
                                    parent.depth + 1 if parent else 0, leaves)
        if entry["name"] not in parents:
            leaves += 1
    return list(parts.values())


def read_walk(path: pathlib.Path) -> list[Key]:
    """The keys of the timing sheet: a column an attribute, an empty cell where there is no key."""
    keys = []
    for frame, heading, cell in cells(path):
        part, attribute = heading.split(".", 1)
        keys.append(Key(part, attribute, frame, float(cell)))
    return keys


def read_exposures(path: pathlib.Path) -> list[Exposure]:
    """The exposures by their frames: a column an element, an empty cell where the drawing ahead holds on."""
    return [Exposure(heading, frame, cell) for frame, heading, cell in cells(path)]


def cells(path: pathlib.Path) -> Iterator[tuple[int, str, str]]:
    """The filled cells of a sheet with a line a frame: frame, heading and text. The names of the poses are no cells."""
    with open(path, newline="") as sheet:
        for line in csv.DictReader(sheet):
            for heading, cell in line.items():
                if heading not in ("frame", "pose") and cell != "":
                    yield int(line["frame"]), heading, cell
