"""What a project's settings, frames and keys must become, worked out without the application."""

import math
from dataclasses import dataclass, field, replace

MOST_FRAMES = 1_000_000
STANDARD_FOV = 41.112
NAMED = {"HD_1080": (1920, 1080), "HD_720": (1280, 720), "PAL": (720, 576), "DCI_2K": (2048, 1080)}


@dataclass(frozen=True)
class Timing:
    """A scene's frames, and the keyframes of a curve in it."""

    count: int
    start: int
    stop: int
    rate: float
    keys: tuple[int, ...]
    camera: str | None = None
    display: str | None = None

    def shifted(self, at, delta):
        """Behind an insertion behind a frame, or a removal of frames behind it; None where that can't be done."""
        if not (0 <= at <= self.count and delta >= 1 - self.count and self.count + delta <= MOST_FRAMES):
            return None
        if delta < 0 and at == self.count:
            at += delta
        end = at - min(delta, 0)
        if end > self.count:
            return None
        count = self.count + delta

        def behind(frame):
            return frame + delta if frame > end else frame

        start = behind(self.start) if not at < self.start <= end else at + 1
        stop = behind(self.stop) if not at < self.stop <= end else at
        if start > stop:
            start = stop = min(max(at, 1), count)
        return replace(self, count=count, start=1 if self.start == 1 else start,
                       stop=count if self.stop == self.count else stop,
                       keys=tuple(behind(key) for key in self.keys if not at < key <= end))


@dataclass(frozen=True)
class Settings:
    """All of a project that the random programs change."""

    size: tuple[int, int] = (1920, 1080)
    name: str = "HD_1080"
    fov: float = STANDARD_FOV
    colour_space: str = "sRGB"
    ratio: tuple[int, int] = (4, 3)
    chart: tuple[float, float, float] = (12.0, 12.0, 12.0)
    center: tuple[int, int] = (0, 0)
    vector: float = 1.0
    bitmap: float = 1.0
    scenes: tuple[Timing, ...] = field(default=())

    def with_scene(self, index, timing):
        scenes = list(self.scenes)
        scenes[index] = timing
        return replace(self, scenes=tuple(scenes))

    def with_size(self, axis, pixels):
        """The values that are there already leave the name."""
        size = (pixels, self.size[1]) if axis == "x" else (self.size[0], pixels)
        return replace(self, size=size, name=self.name if size == self.size else "")

    def aspect(self):
        return self.ratio[0] / (2 * self.chart[0]), self.ratio[1] / (2 * self.chart[1])

    def units(self):
        return int(2 * self.chart[0]), int(2 * self.chart[1]), int(self.chart[2])

    def density(self, factor):
        """Pixels of a texture for one field up the chart."""

        def half(fov):
            return math.tan(math.radians(fov) / 2)

        return self.size[1] * half(STANDARD_FOV) / (2 * half(self.fov)) / self.chart[1] * factor
