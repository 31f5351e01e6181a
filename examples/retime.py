"""Changes the frame rate of a project and keeps its timing: what happens at a second still happens at that second.

    ./run examples/retime.py PROJECT --fps 30              changes the project in its folder
    ./run examples/retime.py PROJECT --fps 30 --out DIR    leaves it alone and makes another one

In all scenes the number of frames, the range that is played, keyframes and holds are scaled, as one undo entry. Keyframes
come to stand on whole frames, the nearest ones, those of the scene on frames that it still has; with --exact they may
stand between two. How many frames a hold's step lasts stays, and so do scene markers.
"""

import argparse
import math
import pathlib
from dataclasses import dataclass

import brindle

MOST_FRAMES = 1_000_000  # The most that a scene can have.
LAST_HOLD = 2**31 - 1  # The highest frame that a hold may end at.


@dataclass
class Key:
    """A keyframe with all that it has."""

    frame: float
    value: float
    left: tuple[float, float]
    right: tuple[float, float]
    constant: bool
    continuity: str


@dataclass
class Curve:
    """A column of a scene, named by what it drives first, and its keyframes as they were and will be."""

    title: str
    column: brindle.BezierColumn
    before: list[Key]
    after: list[Key]


class Stretch:
    """From a frame to the one that the same moment has at another rate. Frame 1 is the beginning."""

    def __init__(self, factor: float, exact: bool, count: int) -> None:
        self.factor = factor
        self.exact = exact
        self.count = count
        self.new_count = self.last(count)

    def moment(self, frame: float) -> float:
        return 1 + (frame - 1) * self.factor

    def frame(self, frame: float) -> int:
        return math.floor(self.moment(frame) + 0.5)

    def last(self, frame: int) -> int:
        """For a frame that is the last one of something: what follows begins behind it."""
        return max(1, self.frame(frame + 1) - 1)

    def key(self, key: Key) -> Key:
        frame = self.moment(key.frame)
        if not self.exact:
            frame = self.frame(key.frame)
            if key.frame <= self.count:  # The last pose stays in sight, also where it would be rounded out of it.
                frame = min(frame, self.new_count)
        left, right = ((frame + (x - key.frame) * self.factor, y) for x, y in (key.left, key.right))
        return Key(frame, key.value, left, right, key.constant, key.continuity)


def read_keys(column: brindle.BezierColumn) -> list[Key]:
    return [Key(point.frame, point.value, (point.handle_left_x, point.handle_left_y),
                (point.handle_right_x, point.handle_right_y), point.const_segment, point.continuity)
            for point in column.control_points]


def read_curves(scene: brindle.Scene, stretch: Stretch) -> list[Curve]:
    """Each curve of the scene once."""
    curves: dict[str, Curve] = {}
    for node in scene.nodes:
        for attribute in node.attributes:
            for part in [attribute, *(attribute.subattributes or [])]:
                name = part.column_name
                column = part.column
                if name and name not in curves and isinstance(column, brindle.BezierColumn):
                    keys = read_keys(column)
                    curves[name] = Curve(f"{node.path}: {part.full_keyword}", column, keys,
                                         [stretch.key(key) for key in keys])
    return list(curves.values())


def require_apart(curve: Curve, exact: bool) -> None:
    for one, two in zip(curve.after, curve.after[1:]):
        if one.frame >= two.frame:
            hint = "" if exact else "; --exact keeps them apart"
            raise SystemExit(f"retime: two keyframes of {curve.title} would stand at frame {two.frame:g}{hint}.")


def set_range(scene: brindle.Scene, fps: float, stretch: Stretch) -> None:
    start, stop = stretch.frame(scene.frame_start), stretch.last(scene.frame_stop)
    scene.frame_count = stretch.new_count
    scene.frame_start = 1
    scene.frame_stop = min(stop, stretch.new_count)
    scene.frame_start = min(start, scene.frame_stop)
    scene.framerate = fps


def set_curve(curve: Curve, stretch: Stretch) -> None:
    # A key holds the handles of its neighbours within bounds: once all stand where they belong, all handles fit.
    for _ in range(2):
        for key in curve.after:
            curve.column.create_point(key.frame, key.value, *key.left, *key.right, key.constant, key.continuity)
    start, stop = (min(frame, LAST_HOLD) for frame in (stretch.frame(curve.column.hold_start),
                                                       stretch.last(curve.column.hold_stop)))
    if (start, stop) != (curve.column.hold_start, curve.column.hold_stop):
        curve.column.hold_start, curve.column.hold_stop = start, stop


def timing(scene: brindle.Scene) -> dict[str, str]:
    """The lines of the table about a scene, by what they say."""
    return {
        "frame rate": f"{scene.framerate:g} fps",
        "frames": str(scene.frame_count),
        "length": f"{scene.frame_count / scene.framerate:.3f} s",
        "played": f"{scene.frame_start} to {scene.frame_stop}",
    }


def frames(keys: list[Key]) -> str:
    shown = [f"{key.frame:g}" for key in keys]
    return " ".join(shown if len(shown) <= 8 else [*shown[:4], "...", *shown[-2:]]) or "no keys"


def retime(scene: brindle.Scene, fps: float, exact: bool) -> list[tuple[str, str, str]]:
    """Scales a scene. Gives the lines of its table: what, before, after."""
    factor = fps / scene.framerate
    if scene.frame_count * factor > MOST_FRAMES:
        raise SystemExit(f'retime: scene "{scene.name}" would have more than {MOST_FRAMES:,} frames.')
    stretch = Stretch(factor, exact, scene.frame_count)
    curves = read_curves(scene, stretch)
    for curve in curves:
        require_apart(curve, exact)
    before = timing(scene)
    # A scene that gets shorter takes along what lies on its last frames: the keys come back behind that.
    for curve in curves:
        curve.column.control_points.remove([key.frame for key in curve.before])
    set_range(scene, fps, stretch)
    for curve in curves:
        set_curve(curve, stretch)
    after = timing(scene)
    return [*((what, before[what], after[what]) for what in before),
            *((curve.title, frames(curve.before), frames(read_keys(curve.column))) for curve in curves)]


def print_table(title: str, lines: list[tuple[str, str, str]]) -> None:
    lines = [(title, "before", "after"), *lines]
    first, second, _ = (max(map(len, cells)) for cells in zip(*lines))
    for what, before, after in lines:
        print(f"{what:{first}}  {before:{second}}  {after}".rstrip())
    print()


def rate(text: str) -> float:
    fps = float(text)
    if not 0 < fps <= 1000:
        raise argparse.ArgumentTypeError("a frame rate is above 0 and at most 1000")
    return fps


def main() -> None:
    parser = argparse.ArgumentParser(prog="retime", description="Changes the frame rate of a project, keeps its timing.")
    parser.add_argument("project", type=pathlib.Path, help="the project's folder")
    parser.add_argument("--fps", type=rate, required=True, help="the new frame rate")
    parser.add_argument("--out", type=pathlib.Path, help="where to save; without it, the project itself is changed")
    parser.add_argument("--exact", action="store_true", help="lets keyframes stand between two frames")
    given = parser.parse_args()

    try:
        with brindle.open(given.project, read_only=given.out is not None) as app:
            with app.project.history.bracket(f"Retime to {given.fps:g} fps"):
                tables = {scene.name: retime(scene, given.fps, given.exact) for scene in app.scenes}
            app.save(given.out)
        for name, lines in tables.items():
            print_table(f'Scene "{name}"', lines)
        print(f"Saved {given.out or given.project}")
    except brindle.Error as error:
        raise SystemExit(f"retime: {error}")


if __name__ == "__main__":
    main()
