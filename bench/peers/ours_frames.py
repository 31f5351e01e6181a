"""Draws frames of a project of ours and writes none of them: what `brindle render` does ahead of the encoding.

    ours_frames.py PROJECT FRAMES WIDTH HEIGHT THREADS
"""

import sys

import brindle
from brindle import render


def main():
    project, *numbers = sys.argv[1:]
    count, width, height, threads = map(int, numbers)
    with brindle.open(project, read_only=True) as app:
        render.frames(app.scene, lambda frame, cel: None, range(1, count + 1), size=(width, height), threads=threads)


if __name__ == "__main__":
    main()
