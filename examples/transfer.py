"""Transfers the animation of one chain of pegs to another, as one undo entry.

    ./run examples/transfer.py PROJECT Top/Arm Top/Leg                      the whole scene, to the same frames
    ./run examples/transfer.py PROJECT Top/Arm Top/Leg --frames 1 24 --to 49
    ./run examples/transfer.py PROJECT Top/Arm Top/Leg --offset 3 -1 0 --out DIR

A chain begins with the peg that is named and goes on through the peg below it, as long as there is exactly one. The
first peg of one chain gives to the first of the other, and so on: the keyframes of position, scale, rotation, angle and
skew over the frames, with their handles, come to stand where the stretch begins in the other chain, in place of the
keyframes that it has there. At both ends a keyframe holds what was shown. What isn't animated stays as it is.

With --offset all positions of the first peg are moved by that many fields.
"""

import argparse
import pathlib
from dataclasses import dataclass

import brindle

PARTS = ("position.x", "position.y", "position.z", "scale.x", "scale.y", "scale.z", "rotation.x", "rotation.y",
         "rotation.z", "angle", "skew")


@dataclass
class Key:
    """A keyframe with all that it has."""

    frame: float
    value: float
    left: tuple[float, float]
    right: tuple[float, float]
    constant: bool
    continuity: str

    def moved(self, frames: float, value: float) -> "Key":
        left, right = ((x + frames, y + value) for x, y in (self.left, self.right))
        return Key(self.frame + frames, self.value + value, left, right, self.constant, self.continuity)


@dataclass
class Stretch:
    """The frames that are taken, and the frame that the first of them goes to."""

    first: int
    last: int
    to: int

    @property
    def shift(self) -> int:
        return self.to - self.first


def peg_at(scene: brindle.Scene, path: str) -> brindle.PegNode:
    node = scene.nodes[path]
    if not isinstance(node, brindle.PegNode):
        raise SystemExit(f'transfer: there is no peg "{path}" in the scene "{scene.name}".')
    return node


def chain_of(peg: brindle.PegNode) -> list[brindle.PegNode]:
    """The peg, and those below it up to the first fork."""
    chain = [peg]
    while True:
        below = [node for node in chain[-1].ports_out[0].destination_nodes_flat if isinstance(node, brindle.PegNode)]
        if len(below) != 1:
            return chain
        chain.append(below[0])


def number_at(peg: brindle.PegNode, part: str) -> brindle.DoubleAttribute:
    attribute = peg.attributes[part]
    assert isinstance(attribute, brindle.DoubleAttribute)
    return attribute


def read_keys(attribute: brindle.DoubleAttribute, stretch: Stretch, history: brindle.History) -> list[Key]:
    """The keyframes over the stretch, one at each end of it. The project stays as it is."""
    column = attribute.column
    if not isinstance(column, brindle.BezierColumn):  # Another kind of curve is followed frame by frame.
        return [Key(frame, value, (frame - 1 / 3, value), (frame + 1 / 3, value), False, "CORNER")
                for frame in range(stretch.first, stretch.last + 1) for value in [attribute.value(frame)]]
    history.begin("Reading a curve")
    try:
        for frame in (stretch.first, stretch.last):  # Its own value cuts the curve and leaves its shape.
            attribute.set_value(frame, attribute.value(frame))
        return [Key(point.frame, point.value, (point.handle_left_x, point.handle_left_y),
                    (point.handle_right_x, point.handle_right_y), point.const_segment, point.continuity)
                for point in column.control_points if stretch.first <= point.frame <= stretch.last]
    finally:
        history.cancel()


def write_keys(attribute: brindle.DoubleAttribute, keys: list[Key]) -> None:
    if attribute.column is None:
        attribute.set_value(int(keys[0].frame), keys[0].value)
    column = attribute.column
    if not isinstance(column, brindle.BezierColumn):
        raise SystemExit(f"transfer: {attribute.node().path}: {attribute.full_keyword} is driven by a column without "
                         "handles.")
    first, last = keys[0].frame, keys[-1].frame
    column.control_points.remove([point.frame for point in column.control_points if first <= point.frame <= last])
    # A key holds the handles of its neighbours within bounds: once all stand where they belong, all handles fit.
    for _ in range(2):
        for key in keys:
            column.create_point(key.frame, key.value, *key.left, *key.right, key.constant, key.continuity)


def transfer(source: list[brindle.PegNode], target: list[brindle.PegNode], stretch: Stretch,
             offset: dict[str, float], history: brindle.History) -> list[str]:
    """Gives a line for each curve that was written."""
    curves = {}
    for place, (giving, taking) in enumerate(zip(source, target)):
        for part in PARTS:
            attribute = number_at(giving, part)
            if attribute.column is None:
                continue
            by = offset.get(part, 0.0) if place == 0 else 0.0
            keys = [key.moved(stretch.shift, by) for key in read_keys(attribute, stretch, history)]
            curves[taking.path, part] = (number_at(taking, part), keys)
    with history.bracket("Transfer Animation"):
        for attribute, keys in curves.values():
            write_keys(attribute, keys)
    return [f"{path}: {part}: {len(keys)} keys" for (path, part), (_, keys) in curves.items()]


def stretch_of(scene: brindle.Scene, frames: list[int] | None, to: int | None) -> Stretch:
    first, last = frames or (1, scene.frame_count)
    if not 1 <= first <= last <= scene.frame_count:
        raise SystemExit(f"transfer: the frames are not a stretch of the scene's {scene.frame_count}.")
    stretch = Stretch(first, last, first if to is None else to)
    if stretch.to < 1:
        raise SystemExit("transfer: frames count from 1.")
    return stretch


def scene_of(app: brindle.Application, name: str | None) -> brindle.Scene:
    if name is None:
        return app.scene
    for scene in app.scenes:
        if scene.name == name:
            return scene
    raise SystemExit(f'transfer: the project has no scene "{name}".')


def main() -> None:
    parser = argparse.ArgumentParser(prog="transfer",
                                     description="Transfers the animation of one chain of pegs to another.")
    parser.add_argument("project", type=pathlib.Path, help="the project's folder")
    parser.add_argument("source", help="the path of the first peg that gives: Top/Arm")
    parser.add_argument("target", help="the path of the first peg that takes")
    parser.add_argument("--scene", help="the name of the scene; without it, the first one")
    parser.add_argument("--frames", type=int, nargs=2, metavar=("FIRST", "LAST"), help="the frames that are taken")
    parser.add_argument("--to", type=int, metavar="FRAME", help="the frame that the first one goes to")
    parser.add_argument("--offset", type=float, nargs=3, default=(0.0, 0.0, 0.0), metavar=("X", "Y", "Z"),
                        help="how many fields the first peg's positions are moved by")
    parser.add_argument("--out", type=pathlib.Path, help="where to save; without it, the project itself is changed")
    given = parser.parse_args()

    try:
        with brindle.open(given.project, read_only=given.out is not None) as app:
            scene = scene_of(app, given.scene)
            stretch = stretch_of(scene, given.frames, given.to)
            source, target = (chain_of(peg_at(scene, path)) for path in (given.source, given.target))
            if len(target) < len(source):
                raise SystemExit(f"transfer: the chain of {given.source} has {len(source)} pegs, that of "
                                 f"{given.target} only {len(target)}.")
            offset = dict(zip(("position.x", "position.y", "position.z"), given.offset))
            lines = transfer(source, target, stretch, offset, app.project.history)
            app.save(given.out)
        print("\n".join(lines or ["Nothing is animated."]))
        print(f"Saved {given.out or given.project}")
    except brindle.Error as error:
        raise SystemExit(f"transfer: {error}")


if __name__ == "__main__":
    main()
