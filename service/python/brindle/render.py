"""Pictures of what nodes show: frames of a scene as an animator sees them.

    import brindle
    from brindle import render

    app = brindle.open("walk-cycle", read_only=True)
    render.cel(app.scene.display, 12).write("frame.png")
    render.write(app.scene, "frames/%04d.png")

A picture shows the field chart through the scene's camera. It is a `Cel`: `numpy.asarray(cel)` shows its pixels, and a
notebook shows it as it is.
"""

from __future__ import annotations

import collections
import concurrent.futures
import contextlib
import os
import re
import warnings
from collections.abc import Callable, Iterable
from typing import TypeVar

import brindle
from brindle import _brindle  # type: ignore[attr-defined]

__all__ = ["RenderWarning", "cel", "frames", "write"]

_PLACE = re.compile(r"%%|%[0-9]{0,3}d")  # In the path of a frame's file.
_Result = TypeVar("_Result")


class RenderWarning(UserWarning):
    """Something that can't be shown, as a texture that is gone; the picture is without it."""


def cel(node: brindle.Node | None, frame: float, size: tuple[int, int] | None = None, *,
        threads: int | None = None) -> brindle.Cel:
    """The picture of a node at a frame, as a `Cel`.

    `size` is the width and the height in pixels; None stands for the project's resolution. `threads` share the work,
    one for each processor by default; the pixels are the same for any number. Raises `brindle.Error` for a node that
    shows no picture, a frame outside of the scene, and a size that no picture can have.
    """
    job = _brindle._prepare_rendering(node, frame, size)
    _warn(job, 3)
    return _picture(job, threads or os.cpu_count() or 1)


def frames(scene: brindle.Scene, callback: Callable[[int, brindle.Cel], object], frames: Iterable[int] | None = None, *,
           node: brindle.Node | None = None, size: tuple[int, int] | None = None, threads: int | None = None) -> int:
    """Draws frames of a scene, and calls `callback(frame, cel)` for each, in their order.

    `frames` are the frames' numbers; None stands for those from the scene's start to its stop frame. `node` is what is
    drawn, by default the scene's display. So many `threads` work on frames side by side, one for each processor by
    default, while the callback handles those before. A callback that gives False, or raises, stops the rest. Gives the
    number of frames that the callback was called for. Raises `brindle.Error` for a node of another scene, and as
    `cel` does.
    """
    if not callable(callback):
        raise TypeError(f"The callback of frames() can't be called: it is of the type {type(callback).__name__}")
    done = 0

    def work(job: object, frame: int) -> brindle.Cel:
        return _picture(job, 1)

    def hand_over(frame: int, picture: brindle.Cel) -> bool:
        nonlocal done
        done += 1
        return callback(frame, picture) is not False

    _series(scene, frames, node, size, threads, work, hand_over)
    return done


def write(scene: brindle.Scene, pattern: str | os.PathLike[str], frames: Iterable[int] | None = None, *,
          node: brindle.Node | None = None, size: tuple[int, int] | None = None, threads: int | None = None,
          depth: int = 8) -> list[str]:
    """Draws frames of a scene, and writes each of them as a file.

    In the path `pattern`, "%d" or "%04d" stands for the frame's number; the ending says the format. `depth` is 8 or 16
    bits a channel, where the format leaves that open. `frames`, `node`, `size` and `threads` are those of
    `brindle.render.frames`; each thread writes what it has drawn, so this is quicker than a callback that writes. Gives
    the paths of the files, in the order of the frames. The first frame that can't be drawn or written stops the rest and
    raises `brindle.Error`.
    """
    text = os.fspath(pattern)
    if sum(place != "%%" for place in _PLACE.findall(text)) != 1 or "%" in _PLACE.sub("", text):
        raise brindle.Error(f"The path \"{text}\" has no place for the number of a frame, as \"frames/%04d.png\" has.")
    if depth not in (8, 16):
        raise brindle.Error(f"A picture has 8 or 16 bits a channel, not {depth}.")
    paths: list[str] = []

    def work(job: object, frame: int) -> str:
        path = text % frame
        with contextlib.suppress(OSError):  # Then the file can't be written either, which is told.
            os.makedirs(os.path.dirname(path), exist_ok=True)
        _brindle._write_job(job, path, depth)
        return path

    def hand_over(frame: int, path: str) -> bool:
        paths.append(path)
        return True

    _series(scene, frames, node, size, threads, work, hand_over)
    return paths


def _series(scene: brindle.Scene, frames: Iterable[int] | None, node: brindle.Node | None, size: tuple[int, int] | None,
            threads: int | None, work: Callable[[object, int], _Result],
            hand_over: Callable[[int, _Result], bool]) -> None:
    """Calls `work(job, frame)` for each frame on `threads` threads, and `hand_over(frame, result)` in their order.

    Stops when `hand_over` gives False, and when one of them raises.
    """
    if node is None:
        node = scene.display
    elif node.parent_scene() != scene:
        raise brindle.Error(f"The node {node.path} isn't in the scene {scene.name}.")
    if frames is None:
        frames = range(scene.frame_start, scene.frame_stop + 1)
    threads = max(threads or os.cpu_count() or 1, 1)
    waiting: collections.deque[tuple[int, concurrent.futures.Future[_Result]]] = collections.deque()
    with concurrent.futures.ThreadPoolExecutor(threads, "brindle-render") as pool:
        def next_is_done() -> bool:
            frame, result = waiting.popleft()
            return hand_over(frame, result.result())

        try:
            for frame in frames:
                job = _brindle._prepare_rendering(node, frame, size)
                _warn(job, 4)
                waiting.append((frame, pool.submit(work, job, frame)))
                if len(waiting) > threads and not next_is_done():
                    return
            while waiting and next_is_done():
                pass
        finally:
            for _, result in waiting:
                result.cancel()


def _picture(job: object, threads: int) -> brindle.Cel:
    picture: brindle.Cel = _brindle._render_job(job, threads)
    return picture


def _warn(job: object, stacklevel: int) -> None:
    for remark in _brindle._remarks_of_job(job):
        warnings.warn(remark, RenderWarning, stacklevel=stacklevel)
