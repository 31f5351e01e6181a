"""Puts a wiggle along the 3D path of a peg, as one undo entry.

    ./run examples/wiggle.py PROJECT Top/Fish                               four waves over the whole path
    ./run examples/wiggle.py PROJECT Top/Fish --amplitude 0.5 --waves 6
    ./run examples/wiggle.py PROJECT Top/Fish --length 12 --frames 10 60 --out DIR

The peg goes on along its path and swings from side to side of it, in the plane of x and y, by as many fields as the
amplitude says: to the left of its way first. The swing is a sine. It is 0 at both ends of the stretch: there the peg is
where it was. Just outside the path bends a little, so that it stays smooth.

Each wave gets four keyframes: as it leaves the path, at its peak, where it crosses and at its trough. Keyframes that
the path has within the stretch are moved along. Where the path holds its place, the peg swings about that place.
"""

import argparse
import math
import pathlib
from dataclasses import dataclass

import brindle

QUARTERS = 4  # of a wave, each with a keyframe


@dataclass
class Place:
    x: float
    y: float
    z: float


@dataclass
class Wave:
    """A sine over a stretch of frames, in fields."""

    first: int
    last: int
    count: int
    amplitude: float

    def at(self, frame: float) -> float:
        return self.amplitude * math.sin(2 * math.pi * self.count * (frame - self.first) / (self.last - self.first))

    def quarters(self) -> set[int]:
        """The frames nearest to the quarters of the waves."""
        steps = QUARTERS * self.count
        return {round(self.first + (self.last - self.first) * step / steps) for step in range(steps + 1)}


def path_of(scene: brindle.Scene, peg: str) -> brindle.Path3DColumn:
    node = scene.nodes[peg]
    if not isinstance(node, brindle.PegNode):
        raise SystemExit(f'wiggle: there is no peg "{peg}" in the scene "{scene.name}".')
    column = node.attributes["position"].column
    if not isinstance(column, brindle.Path3DColumn) or not column.keyframe_list():
        raise SystemExit(f"wiggle: the position of {peg} follows no 3D path.")
    return column


def place_at(path: brindle.Path3DColumn, frame: float) -> Place:
    entry = path.get_entry(frame)
    return Place(entry.x, entry.y, entry.z)


def sides(path: brindle.Path3DColumn, frames: list[int]) -> dict[int, tuple[float, float]]:
    """The direction to the left of the way at each frame, of length 1. Where the peg stands, that of its way before."""
    found: dict[int, tuple[float, float]] = {}
    side: tuple[float, float] | None = None
    for frame in frames:
        before, behind = place_at(path, frame - 0.5), place_at(path, frame + 0.5)
        x, y = behind.x - before.x, behind.y - before.y
        length = math.hypot(x, y)
        if length > 1e-9:
            side = (-y / length, x / length)
            for earlier in frames if not found else ():  # It stood up to here.
                if earlier < frame:
                    found[earlier] = side
        if side:
            found[frame] = side
    return {frame: found.get(frame, (0.0, 1.0)) for frame in frames}  # A path that never moves swings up and down.


def wiggle(path: brindle.Path3DColumn, wave: Wave, history: brindle.History) -> int:
    """Gives the number of keyframes that were set."""
    own = {frame for frame in path.keyframe_list() if wave.first <= frame <= wave.last}
    frames = sorted(own | wave.quarters())
    left = sides(path, frames)
    places = {frame: place_at(path, frame) for frame in frames}
    with history.bracket("Wiggle"):
        for frame, place in places.items():
            (x, y), swing = left[frame], wave.at(frame)
            path[frame] = brindle.Point3d(place.x + swing * x, place.y + swing * y, place.z)
        for frame in frames[:-1]:
            if path[frame].const_segment:  # It held the place up to the next keyframe.
                path[frame].const_segment = False
    return len(frames)


def wave_over(scene: brindle.Scene, path: brindle.Path3DColumn, given: argparse.Namespace) -> Wave:
    keys = path.keyframe_list()
    first, last = given.frames or (max(keys[0], 1), min(keys[-1], scene.frame_count))
    if not 1 <= first <= last <= scene.frame_count:
        raise SystemExit(f"wiggle: the frames are not a stretch of the scene's {scene.frame_count}.")
    count = given.waves or (max(1, round((last - first) / given.length)) if given.length else 4)
    if last - first < QUARTERS * count:
        raise SystemExit(f"wiggle: {last - first} frames are too few for {count} waves: each takes {QUARTERS} or more.")
    return Wave(first, last, count, given.amplitude)


def scene_of(app: brindle.Application, name: str | None) -> brindle.Scene:
    if name is None:
        return app.scene
    for scene in app.scenes:
        if scene.name == name:
            return scene
    raise SystemExit(f'wiggle: the project has no scene "{name}".')


def fields(text: str) -> float:
    value = float(text)
    if not math.isfinite(value):
        raise argparse.ArgumentTypeError("an amplitude is a finite number")
    return value


def waves(text: str) -> int:
    value = int(text)
    if not 1 <= value <= 1_000_000:
        raise argparse.ArgumentTypeError("there is 1 wave or more")
    return value


def frames(text: str) -> float:
    value = float(text)
    if not QUARTERS <= value < math.inf:
        raise argparse.ArgumentTypeError(f"a wave takes {QUARTERS} frames or more")
    return value


def main() -> None:
    parser = argparse.ArgumentParser(prog="wiggle", description="Puts a wiggle along the 3D path of a peg.")
    parser.add_argument("project", type=pathlib.Path, help="the project's folder")
    parser.add_argument("peg", help="the path of the peg: Top/Fish")
    parser.add_argument("--amplitude", type=fields, default=1.0, metavar="FIELDS",
                        help="how far it swings to each side; below 0, to the right first; without it, 1")
    size = parser.add_mutually_exclusive_group()
    size.add_argument("--waves", type=waves, metavar="COUNT", help="how many waves; without it, 4")
    size.add_argument("--length", type=frames, metavar="FRAMES",
                      help="how many frames a wave takes, about: the waves are made to fit")
    parser.add_argument("--frames", type=int, nargs=2, metavar=("FIRST", "LAST"),
                        help="where it wiggles; without it, from the path's first keyframe to its last one")
    parser.add_argument("--scene", help="the name of the scene; without it, the first one")
    parser.add_argument("--out", type=pathlib.Path, help="where to save; without it, the project itself is changed")
    given = parser.parse_args()

    try:
        with brindle.open(given.project, read_only=given.out is not None) as app:
            scene = scene_of(app, given.scene)
            path = path_of(scene, given.peg)
            wave = wave_over(scene, path, given)
            count = wiggle(path, wave, app.project.history)
            app.save(given.out)
        print(f"{given.peg}: {wave.count} waves over the frames {wave.first} to {wave.last}, {count} keyframes")
        print(f"Saved {given.out or given.project}")
    except brindle.Error as error:
        raise SystemExit(f"wiggle: {error}")


if __name__ == "__main__":
    main()
