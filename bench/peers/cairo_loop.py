"""Draws the frames of a scene by cairo: what a script of this one rasteriser would do.

    cairo_loop.py SCENE THREADS [FOLDER]        all frames; as PNG files where there is a folder
    cairo_loop.py --version

bench/peers/flat.py describes the scene's file.
"""

import concurrent.futures
import re
import sys

import cairo

STEP = re.compile("([MLCZ])([^MLCZ]*)")


def path_of(data):
    context = cairo.Context(cairo.ImageSurface(cairo.FORMAT_A8, 1, 1))
    act = {"M": context.move_to, "L": context.line_to, "C": context.curve_to, "Z": context.close_path}
    for step, numbers in STEP.findall(data):
        act[step](*map(float, numbers.split()))
    return context.copy_path()


def read(file):
    """The size, and of each frame the fills: path, matrix and colour."""
    paths, frames, size = [], [], None
    for line in file:
        word, _, rest = line.rstrip().partition(" ")
        if word == "size":
            size = tuple(map(int, rest.split()))
        elif word == "path":
            paths.append(path_of(rest))
        elif word == "frame":
            frames.append([])
        elif word == "fill":
            number, *values = rest.split()
            frames[-1].append((paths[int(number)], cairo.Matrix(*map(float, values[:6])),
                               [int(channel) / 255 for channel in values[6:]]))
        elif word != "draw":
            raise SystemExit(f"cairo_loop: can't draw {line.rstrip()}")
    return size, frames


def draw(size, fills, file):
    surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, *size)
    context = cairo.Context(surface)
    for path, matrix, colour in fills:
        context.set_matrix(matrix)
        context.append_path(path)
        context.set_source_rgba(*colour)
        context.fill()
    if file:
        surface.write_to_png(file)


def main():
    if sys.argv[1] == "--version":
        print(f"cairo {cairo.cairo_version_string()}, python3-cairo {cairo.version}")
        return
    file, threads, *folder = sys.argv[1:]
    with open(file) as lines:
        size, frames = read(lines)
    with concurrent.futures.ThreadPoolExecutor(int(threads)) as pool:
        for done in [pool.submit(draw, size, fills, folder and f"{folder[0]}/{number}.png")
                     for number, fills in enumerate(frames, 1)]:
            done.result()


if __name__ == "__main__":
    main()
