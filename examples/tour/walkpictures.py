"""Draws the walk: one sheet of frames, and an animated picture where ffmpeg is there to make it."""

import pathlib
import shutil
import subprocess
from collections.abc import Iterator

import brindle
from brindle import render

SIZE = 480, 270
SHEET = 4, 3  # frames across and down
GAP = 8  # between them, in pixels


def draw_walk(scene: brindle.Scene, folder: pathlib.Path) -> Iterator[pathlib.Path]:
    """Makes walk.png, frames of the walk side by side, and walk.gif; gives each once it is there."""
    frames: list[bytes] = []
    render.frames(scene, lambda frame, cel: frames.append(pixels_of(cel)), size=SIZE)
    ffmpeg = shutil.which("ffmpeg")
    if not ffmpeg:
        print("  no pictures: the program ffmpeg, which puts frames together, isn't installed")
        return
    shown = frames[::len(frames) // (SHEET[0] * SHEET[1])][:SHEET[0] * SHEET[1]]
    sheet, walk = folder / "walk.png", folder / "walk.gif"
    run(ffmpeg, shown, ["-vf", f"tile={SHEET[0]}x{SHEET[1]}:padding={GAP}:color=white", "-frames:v", "1", sheet], scene.framerate)
    yield sheet
    run(ffmpeg, frames, ["-filter_complex", "split[a][b];[a]palettegen[p];[b][p]paletteuse", "-loop", "0", walk],
        scene.framerate)
    yield walk


def pixels_of(cel: brindle.Cel) -> bytes:
    """Red, green, blue and alpha of each pixel, row by row."""
    return memoryview(cel).tobytes()  # type: ignore[arg-type]  # Python 3.11 has no type for what has a buffer.


def run(ffmpeg: str, frames: list[bytes], what: list[object], rate: float) -> None:
    subprocess.run([ffmpeg, "-v", "error", "-f", "rawvideo", "-pix_fmt", "rgba", "-s", f"{SIZE[0]}x{SIZE[1]}",
                    "-framerate", str(rate), "-i", "-", *map(str, what), "-y"], input=b"".join(frames), check=True)
