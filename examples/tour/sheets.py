"""Reads the two sheets that an animator has: the model sheet with the parts and pivots, and the timing sheet."""

import csv
import json
import pathlib
from dataclasses import dataclass


@dataclass
class Part:
    name: str
    parent: str | None
    pivot: tuple[float, float]  # in fields, y upwards
    drawing: str | None
    depth: int  # levels below the root part
    column: int  # place from left to right in the node view


@dataclass
class Key:
    part: str
    attribute: str  # "angle", "position.x", ...
    frame: int
    value: float


def read_rig(path: pathlib.Path) -> list[Part]:
    """The parts, each behind its parent."""
    parts: dict[str, Part] = {}
    leaves = 0
    entries = json.loads(path.read_text())["parts"]
    parents = {entry["parent"] for entry in entries}
    for entry in entries:
        parent = parts.get(entry["parent"])
        if entry["parent"] and not parent:
            raise SystemExit(f"{path}: {entry['name']} stands ahead of its parent {entry['parent']}")
        x, y = entry["pivot"]
        parts[entry["name"]] = Part(entry["name"], entry["parent"], (x, y), entry["drawing"],
                                    parent.depth + 1 if parent else 0, leaves)
        if entry["name"] not in parents:
            leaves += 1
    return list(parts.values())


def read_walk(path: pathlib.Path) -> list[Key]:
    """The keys of the timing sheet: a line a frame, a column an attribute, an empty cell where there is no key."""
    with open(path, newline="") as sheet:
        keys = []
        for line in csv.DictReader(sheet):
            for heading, cell in line.items():
                if heading in ("frame", "pose") or cell == "":
                    continue
                part, attribute = heading.split(".", 1)
                keys.append(Key(part, attribute, int(line["frame"]), float(cell)))
    return keys
