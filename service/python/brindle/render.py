"""Pictures of what nodes show: frames of a scene as an animator sees them.

    import brindle
    from brindle import render

    app = brindle.open("walk-cycle", read_only=True)
    render.cel(app.scene.display, 12).write("frame.png")
    render.frames(app.scene, lambda frame, cel: cel.write(f"frames/{frame:04d}.png"))

A picture shows the field chart through the scene's camera. It is a `Cel`: `numpy.asarray(cel)` shows its pixels, and a
notebook shows it as it is.
"""

from __future__ import annotations

import collections
import concurrent.futures
import os
import warnings
from collections.abc import Callable, Iterable

import brindle
from brindle import _brindle  # type: ignore[attr-defined]

__all__ = ["RenderWarning", "cel", "frames"]


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
    _warn(job)
    picture: brindle.Cel = _brindle._render_job(job, threads or os.cpu_count() or 1)
    return picture


def frames(scene: brindle.Scene, callback: Callable[[int, brindle.Cel], object], frames: Iterable[int] | None = None, *,
           node: brindle.Node | None = None, size: tuple[int, int] | None = None, threads: int | None = None) -> int:
    """Draws frames of a scene, and calls `callback(frame, cel)` for each, in their order.

    `frames` are the frames' numbers; None stands for those from the scene's start to its stop frame. `node` is what is
    drawn, by default the scene's display. So many `threads` work on frames side by side, one for each processor by
    default, while the callback handles those before. A callback that gives False, or raises, stops the rest. Gives the
    number of frames that the callback was called for.
    """
    if node is None:
        node = scene.display
    if frames is None:
        frames = range(scene.frame_start, scene.frame_stop + 1)
    threads = max(threads or os.cpu_count() or 1, 1)
    waiting: collections.deque[tuple[int, concurrent.futures.Future[brindle.Cel]]] = collections.deque()
    done = 0
    with concurrent.futures.ThreadPoolExecutor(threads, "brindle-render") as pool:
        def hand_over() -> bool:
            nonlocal done
            frame, picture = waiting.popleft()
            done += 1
            return callback(frame, picture.result()) is not False

        try:
            for frame in frames:
                job = _brindle._prepare_rendering(node, frame, size)
                _warn(job)
                waiting.append((frame, pool.submit(_brindle._render_job, job, 1)))
                if len(waiting) > threads and not hand_over():
                    return done
            while waiting:
                if not hand_over():
                    break
        finally:
            for _, picture in waiting:
                picture.cancel()
    return done


def _warn(job: object) -> None:
    for remark in _brindle._remarks_of_job(job):
        warnings.warn(remark, RenderWarning, stacklevel=3)
