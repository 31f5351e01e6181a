"""The programs that draw the scenes: what each is given, and the commands that make it draw.

All commands run in the folder of a scene, and write their pictures into "out" in it.
"""

import functools
import json
import os
import pathlib
import shutil
import subprocess
from dataclasses import dataclass, field

from . import blender, flat, scenes, svg, synfig

PEERS = pathlib.Path(__file__).resolve().parent
PYTHON = "/usr/bin/python3"
SIZE = [str(side) for side in scenes.SIZE]
NOT_INSTALLED = "it isn't installed: scripts/setup.sh --peers"


@dataclass
class Stage:
    """A scene with what has been made for it so far."""
    scene: scenes.Scene
    folder: pathlib.Path
    build: pathlib.Path
    outlines: dict = field(default_factory=dict)

    @functools.cached_property
    def flat(self):
        return flat.Writer(self.scene, self.outlines)

    @functools.cached_property
    def svg(self):
        return svg.Writer(self.scene, self.outlines)

    def text(self, name, make):
        """Writes a file that isn't there yet."""
        file = self.folder / name
        if not file.exists():
            file.write_text(make())

    def flat_file(self, frames):
        """A file with so many frames; gives its name."""
        name = f"{frames}.scene"
        self.text(name, lambda: self.flat.text(range(1, frames + 1)))
        return name

    def svg_files(self, frames):
        for frame in range(1, frames + 1):
            self.text(f"{frame}.svg", lambda: self.svg.text(frame))


class Tool:
    name = ""
    program = ""  # that has to be there
    threads = True  # whether it can be told how many
    cheap = ""  # what it does instead of PNG files, where it can
    whole = False  # whether it is measured in all ways, whatever that takes
    note = ""

    def missing(self, build):
        """Why it can't be measured at all, else an empty text."""
        return "" if shutil.which(self.program) else NOT_INSTALLED

    def cannot(self, scene):
        """Why it can't draw a scene, else an empty text."""
        return ""

    def version(self, build):
        return first_line([self.program, "--version"])

    def prepare(self, stage, frames):
        """Makes what the command for so many frames needs."""

    def command(self, stage, frames, threads, png):
        raise NotImplementedError

    def picture(self, frame):
        """The file of a frame in the folder "out"."""
        return f"{frame}.png"


def first_line(command):
    done = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True)
    return next((line for text in (done.stdout, done.stderr) for line in text.strip().splitlines()), "an unknown version")


class Ours(Tool):
    name = "brindle"
    whole = True
    cheap = "frames that nobody writes"

    def missing(self, build):
        return "" if (build / "bin" / "brindle").exists() else "it isn't built"

    def version(self, build):
        return first_line([str(build / "bin" / "brindle"), "--version"])

    def command(self, stage, frames, threads, png):
        if png:
            return [str(stage.build / "bin" / "brindle"), "render", "project", "--frames", f"1-{frames}", "--size", "x".join(SIZE),
                    "--out", "out/%d.png", "--threads", str(threads)]
        return [PYTHON, str(PEERS / "ours_frames.py"), "project", str(frames), *SIZE, str(threads)]


class Rsvg(Tool):
    name, program = "rsvg-convert", "rsvg-convert"
    note = "a process a frame, so many at a time"

    def prepare(self, stage, frames):
        stage.svg_files(frames)

    def command(self, stage, frames, threads, png):
        return ["sh", "-c", f"seq {frames} | xargs -P {threads} -I% rsvg-convert -w {SIZE[0]} -h {SIZE[1]} -o out/%.png %.svg"]


class Inkscape(Tool):
    name, program = "Inkscape", "inkscape"
    threads = False
    cheap = "PNG files of compression 0"

    def prepare(self, stage, frames):
        stage.svg_files(frames)
        for png in (True, False):
            level = "" if png else "export-png-compression:0; "
            stage.text(f"{frames}-{png:d}.actions", lambda: "".join(
                f"file-open:{frame}.svg; export-filename:out/{frame}.png; export-width:{SIZE[0]}; export-height:{SIZE[1]}; {level}"
                "export-do; file-close\n" for frame in range(1, frames + 1)) + "quit\n")

    def command(self, stage, frames, threads, png):
        return ["sh", "-c", f"inkscape --shell < {frames}-{png:d}.actions"]


class Blender(Tool):
    name, program = "Blender", "blender"
    cheap = "raw Targa files"
    note = "Grease Pencil by Workbench; it mixes colours as light; lines are as thick on both sides"

    def cannot(self, scene):
        return "" if flat.plain(scene.root) else "Grease Pencil masks and blurs drawings, not pictures of several"

    def prepare(self, stage, frames):
        if (stage.folder / "scene.blend").exists():
            return
        stage.text("blender.json", lambda: json.dumps(blender.description(stage.scene, stage.outlines)))
        done = subprocess.run(
            [self.program, "-b", "--factory-startup", "--python-exit-code", "1", "-P", str(PEERS / "blender_build.py"), "--",
             "blender.json", "scene.blend"], cwd=stage.folder, stdin=subprocess.DEVNULL, capture_output=True, text=True)
        if done.returncode:
            raise OSError(f"its scene can't be made: {done.stderr.strip().splitlines()[-1:]}")

    def command(self, stage, frames, threads, png):
        return ["blender", "-b", "scene.blend", "-o", "//out/####", "-F", "PNG" if png else "RAWTGA", "-t", str(threads),
                "-s", "1", "-e", str(frames), "-a"]

    def picture(self, frame):
        return f"{frame:04}.png"


class Synfig(Tool):
    name, program = "Synfig", "synfig"
    cheap = "its target that writes nothing"
    note = "lines are its own, as thick on both sides"

    def prepare(self, stage, frames):
        stage.text("scene.sif", lambda: synfig.text(stage.scene))

    def command(self, stage, frames, threads, png):
        target = ["-t", "png", "-o", "out/f.png"] if png else ["-t", "null"]
        return ["synfig", "-i", "scene.sif", *target, "-w", SIZE[0], "-h", SIZE[1], "--begin-time", "0f", "--end-time",
                f"{frames - 1}f", "-T", str(threads), "-q"]

    def picture(self, frame):
        return f"f.{frame - 1:04}.png"


class Loop(Tool):
    """A rasteriser alone, fed with what is to be filled."""
    cheap = "frames that nobody writes"

    def cannot(self, scene):
        return "" if flat.plain(scene.root) else "a rasteriser alone has no cutter and no blur"

    def prepare(self, stage, frames):
        stage.flat_file(frames)


class Cairo(Loop):
    name = "cairo from Python"

    def missing(self, build):
        there = subprocess.run([PYTHON, "-c", "import cairo"], stderr=subprocess.DEVNULL).returncode == 0
        return "" if there else NOT_INSTALLED

    def version(self, build):
        return first_line([PYTHON, str(PEERS / "cairo_loop.py"), "--version"])

    def command(self, stage, frames, threads, png):
        return [PYTHON, str(PEERS / "cairo_loop.py"), f"{frames}.scene", str(threads), *(["out"] if png else [])]


class Painter(Loop):
    def __init__(self, bits):
        self.bits = bits
        self.name = f"Qt's painter, {bits} bits"

    def missing(self, build):
        return "" if (build / "bin" / "brindle_peers").exists() else "its program isn't built"

    def version(self, build):
        return first_line([str(build / "bin" / "brindle_peers"), "--version"])

    def command(self, stage, frames, threads, png):
        return [str(stage.build / "bin" / "brindle_peers"), "qt", f"{frames}.scene", str(self.bits), str(threads),
                *(["out"] if png else [])]


ALL = {"brindle": Ours(), "rsvg": Rsvg(), "inkscape": Inkscape(), "blender": Blender(), "synfig": Synfig(), "cairo": Cairo(),
       "qt8": Painter(8), "qt16": Painter(16)}


def environment(build, folder):
    # Blender looks for its file where PWD says that it is.
    return dict(os.environ, PYTHONPATH=str(build / "python"), PYTHONDONTWRITEBYTECODE="1", QT_QPA_PLATFORM="offscreen",
                PWD=str(folder))
