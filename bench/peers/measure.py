"""Times the programs on a scene, in turn, and looks at their pictures."""

import hashlib
import json
import pathlib
import shutil
import statistics
import subprocess
import sys
import time
from dataclasses import dataclass, field

from . import tools

TIMED = pathlib.Path(__file__).resolve().parent / "timed.py"
LONGEST = 300  # seconds of one command
SHOWN = 3  # the frame whose picture is compared
# Frames and repetitions, from the most exact to the quickest.
LEVELS = ((100, 5), (50, 5), (30, 5), (20, 5), (20, 3), (10, 3), (5, 3), (3, 3), (3, 2), (3, 1))
SLOW = 2  # a tool that needs more than so many times its share of the time is left with the figures of its first runs


@dataclass(frozen=True)
class Way:
    """How frames are drawn."""
    threads: int
    png: bool = True


ONE, TWO, RASTER = Way(1), Way(2), Way(1, png=False)


class Failed(Exception):
    pass


@dataclass
class Record:
    """What a tool took on a scene: lists of seconds, by the way and the number of frames."""
    tool: tools.Tool
    seconds: dict = field(default_factory=dict)
    processor: dict = field(default_factory=dict)
    memory: int = 0
    pictures: list = field(default_factory=list)  # checksums of one frame, by runs
    picture: bytes = b""  # that frame's file
    frames: int = SHOWN
    repetitions: int = 1
    commands: dict = field(default_factory=dict)  # by the way
    failure: str = ""
    nearness: object = None

    def ways(self):
        yield TWO
        if self.tool.threads:
            yield ONE
        if self.tool.cheap:
            yield RASTER

    def each(self, way, samples=None):
        """Seconds a frame, from the difference of a long and a short run; None where they weren't measured."""
        samples = self.seconds if samples is None else samples
        short, long = (samples.get((way, frames)) for frames in (shorter(self.frames), self.frames))
        if not short or not long:
            return None
        return statistics.median((b - a) / (self.frames - shorter(self.frames)) for a, b in zip(short, long))

    def same(self):
        """Whether all runs wrote the same bytes, on one thread and on two; None where there was one run."""
        return len(set(self.pictures)) == 1 if len(self.pictures) > 1 else None

    def first(self):
        """Seconds from the start to the first file."""
        found = self.seconds.get((TWO, 1))
        return statistics.median(found) if found else None


def shorter(frames):
    """About a tenth of the frames, odd where they are odd, so that two threads are as busy at the end of both runs."""
    short = max(1, frames // 10)
    return short + (frames - short) % 2


class Bench:
    """Runs tools on a scene."""

    def __init__(self, stage):
        self.stage = stage
        self.environment = tools.environment(stage.build, stage.folder)

    def run(self, record, way, frames):
        tool, stage = record.tool, self.stage
        tool.prepare(stage, frames)
        out, result, errors = stage.folder / "out", stage.folder / "result.json", stage.folder / "errors.txt"
        shutil.rmtree(out, ignore_errors=True)
        out.mkdir()
        command = tool.command(stage, frames, way.threads, way.png)
        record.commands[way] = command
        with open(errors, "w") as told:
            subprocess.run([sys.executable, "-I", "-S", str(TIMED), str(result), str(LONGEST), *command], cwd=stage.folder,
                           env=self.environment, stdin=subprocess.DEVNULL, stdout=told, stderr=told, check=True)
        took = json.loads(result.read_text())
        if took["code"]:
            raise Failed(f"exit code {took['code']}: {last_line(errors)}")
        record.seconds.setdefault((way, frames), []).append(took["seconds"])
        record.processor.setdefault((way, frames), []).append(took["processor"])
        record.memory = max(record.memory, took["memory"])
        if way.png:
            self.look(record, out, frames, errors)

    @staticmethod
    def look(record, out, frames, errors):
        """Keeps the picture of one frame."""
        last = out / record.tool.picture(frames)
        if frames < SHOWN:
            return
        if not last.exists():
            raise Failed(f"it wrote no {last.name}: {last_line(errors)}")
        record.picture = (out / record.tool.picture(SHOWN)).read_bytes()
        record.pictures.append(hashlib.sha256(record.picture).hexdigest())

    def measure(self, records, seconds, told=lambda text: None):
        """Measures in about so many seconds."""
        start = time.monotonic()
        for record in records:
            told(record.tool.name)
            self.attempt(record, ((TWO, 1), (TWO, SHOWN)))
        well = [record for record in records if not record.failure]
        share = (seconds - (time.monotonic() - start)) / max(len(well), 1)
        quick = [record for record in well if record.tool.whole or cost(record, *LEVELS[-1]) < SLOW * share]
        for record in quick:
            record.frames, record.repetitions = next((level for level in LEVELS if cost(record, *level) < share), LEVELS[-1])
            record.seconds.clear()  # the first run read its files from the disk
            record.processor.clear()
        for repetition in range(LEVELS[0][1]):
            for record in quick if repetition % 2 == 0 else quick[::-1]:
                if repetition < record.repetitions:
                    self.attempt(record, runs(record))

    def attempt(self, record, wanted):
        try:
            for way, frames in wanted:
                if not record.failure:
                    self.run(record, way, frames)
        except (Failed, OSError, subprocess.CalledProcessError) as failure:
            record.failure = str(failure)


def runs(record):
    """The runs of one repetition."""
    wanted = dict.fromkeys([(TWO, 1)])
    for way in record.ways():
        wanted |= dict.fromkeys([(way, shorter(record.frames)), (way, record.frames)])
    return list(wanted)


def cost(record, frames, repetitions):
    """The seconds that measuring takes at most, estimated from the first runs."""
    first, more = record.seconds[TWO, 1][0], record.seconds[TWO, SHOWN][0]
    each = max((more - first) / (SHOWN - 1), 0.0)
    start = max(first - each, 0.0)
    whole = first
    for way in record.ways():
        # At most one frame a thread is drawn at a time; encoding is about as much as drawing.
        whole += 2 * start + (frames + shorter(frames)) * each * (2 if way == ONE else 1)
    return repetitions * whole


def last_line(file):
    lines = [line for line in file.read_text(errors="replace").splitlines() if line.strip()]
    return lines[-1].strip() if lines else "it told nothing"
