"""How near a picture is to what it should be."""

import math
import pathlib
import subprocess
from dataclasses import dataclass

import numpy

from . import scenes

SEAM = 2 / 255  # by how much the opacity of a pixel well inside may be off


@dataclass(frozen=True)
class Nearness:
    psnr: float  # decibels, of premultiplied red, green, blue and alpha; infinite for an equal picture
    worst: float  # of any channel of any pixel, of 255
    seams: int | None = None  # pixels whose opacity is off, where all of them should have one


def read(content):
    """The pixels of a PNG file as ffmpeg reads them, premultiplied, 0 to 1."""
    done = subprocess.run(["ffmpeg", "-v", "error", "-f", "png_pipe", "-i", "-", "-f", "rawvideo", "-pix_fmt", "rgba64le", "-"],
                          input=content, stdout=subprocess.PIPE, check=True)
    pixels = numpy.frombuffer(done.stdout, "<u2").astype(numpy.float32) / 65535
    if pixels.size != scenes.WIDTH * scenes.HEIGHT * 4:
        raise ValueError(f"the file is no picture of {scenes.WIDTH} x {scenes.HEIGHT}")
    pixels = pixels.reshape(scenes.HEIGHT, scenes.WIDTH, 4)
    pixels[..., :3] *= pixels[..., 3:]
    return pixels


def reference(program, flat, folder):
    """The pixels of the last frame of a scene in its flat form, of 16 x 16 samples each."""
    told, file = (pathlib.Path(folder) / name for name in ("reference.scene", "reference.raw"))
    told.write_text(flat)
    subprocess.run([str(program), "reference", str(told), str(file)], check=True)
    return numpy.fromfile(file, "<f4").reshape(scenes.HEIGHT, scenes.WIDTH, 4)


def compared(pixels, expected, opacity=None):
    """`opacity`, 0 to 255, is that of every pixel that is covered whole, where seams are counted."""
    difference = numpy.abs(pixels - expected)
    error = float(numpy.mean(numpy.square(difference, dtype=numpy.float64)))
    seams = None
    if opacity is not None:
        inside = numpy.abs(expected[..., 3] - opacity / 255) < 1e-4
        seams = int(numpy.count_nonzero(inside & (difference[..., 3] > SEAM)))
    return Nearness(-10 * math.log10(error) if error else math.inf, float(difference.max()) * 255, seams)
