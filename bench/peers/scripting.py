"""What a script's operations cost in programs that have Python: each runs bench/peers/scripts/in_<program>.py."""

import json
import pathlib
import shutil
import statistics
import subprocess
import tempfile
import time
from dataclasses import dataclass

import table

from .tools import NOT_INSTALLED, PYTHON, first_line

SCRIPTS = pathlib.Path(__file__).resolve().parent / "scripts"
FREECAD = "/usr/lib/freecad-python3/lib"
LONGEST = 400  # seconds of one program
STARTS = 5
NOW = "import time; print(time.monotonic())"


@dataclass(frozen=True)
class Program:
    name: str
    start: tuple  # a command that prints the time of its first line of Python
    version: tuple  # a command whose first line names it
    blender: bool = False

    def missing(self):
        """Why it can't be measured, else an empty text."""
        there = shutil.which(self.start[0]) and (
            self.blender or subprocess.run(self.start, stdin=subprocess.DEVNULL, capture_output=True).returncode == 0)
        return "" if there else NOT_INSTALLED

    def command(self, script, *arguments):
        if self.blender:
            return ["blender", "-b", "--factory-startup", "--python-exit-code", "1", "-P", script, "--", *arguments]
        return [PYTHON, script, *arguments]


def of_python(name, modules, version):
    return Program(name, (PYTHON, "-c", f"{modules}; {NOW}"), (PYTHON, "-c", f"{modules}; print({version})"))


PROGRAMS = {
    "brindle": of_python("brindle", "import brindle", "brindle.__version__"),
    "blender": Program("Blender", ("blender", "-b", "--factory-startup", "--python-expr", NOW), ("blender", "--version"), True),
    "freecad": of_python("FreeCAD", f"import sys; sys.path.append('{FREECAD}'); import FreeCAD", "'.'.join(FreeCAD.Version()[:3])"),
    "pyqt": of_python("PyQt", "import PyQt6.QtCore", "PyQt6.QtCore.PYQT_VERSION_STR"),
}

# What is done, and what we mean to reach, in seconds.
ROWS = (
    ("integer", "read an integer property", 80e-9),
    ("text", "read a string property", 150e-9),
    ("object", "read an object property", 200e-9),
    ("find", "find by name among 10,000", 0.5e-6),
    ("chain", "chain scene, node, attribute, value", 1.2e-6),
    ("write", "write with its own undo entry", 2e-6),
    ("write_many", "the same with 10,000 objects", 2e-6),
    ("create", "create and link 10,000", 0.2),
    ("keys", "10,000 keys one by one, a key", 2e-6),
    ("keys_at_once", "10,000 keys in one call, a key", 200e-9),
    ("evaluate", "evaluate a curve of 10,000 keys", 0.3e-6),
    ("iterate", "iterate 10,000 by name, an object", 400e-9),
    ("undo", "undo one step of 10,000 writes", 10e-3),
    ("save", "save 10,000 objects", 50e-3),
    ("open", "open them", 150e-3),
    ("start", "start to the first line of a script", 80e-3),
)
WIDTHS = (38, 11)


def measure(names, environment, progress):
    """What each program took and did, or why there is nothing; `environment` is what all of them run in."""
    found = {}
    for name in names:
        program = PROGRAMS[name]
        progress(f"scripts: {program.name}")
        found[program.name] = operations(name, program, environment)
    for _ in range(STARTS):
        for name in names:
            told = found[PROGRAMS[name].name]
            if "seconds" in told:
                told["seconds"].setdefault("start", []).append(started(PROGRAMS[name], environment))
    return found


def operations(name, program, environment):
    if reason := program.missing():
        return {"skipped": reason}
    with tempfile.TemporaryDirectory(prefix="brindle-scripts-") as folder:
        result = pathlib.Path(folder) / "result.json"
        try:
            done = subprocess.run(program.command(str(SCRIPTS / f"in_{name}.py"), str(result), folder), env=environment,
                                  stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=LONGEST)
        except subprocess.TimeoutExpired:
            return {"skipped": f"it took longer than {LONGEST} s"}
        if done.returncode or not result.exists():
            said = [line for line in done.stderr.splitlines() if line.strip()]
            return {"skipped": f"its script failed with exit code {done.returncode}: {said[-1] if said else 'it told nothing'}"}
        return json.loads(result.read_text()) | {"version": first_line(list(program.version))}


def started(program, environment):
    begin = time.monotonic()
    done = subprocess.run(program.start, env=environment, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=True)
    times = [float(line) for line in done.stdout.splitlines() if line.replace(".", "", 1).isdigit()]
    return times[-1] - begin


def text(found):
    """The table, and under it what each program did."""
    there = {name: told for name, told in found.items() if "seconds" in told}

    def line(title, cells, tail=""):
        return f"{title:<{WIDTHS[0]}}{''.join(f'{cell:>{WIDTHS[1]}}' for cell in cells)}{tail}".rstrip()

    lines = [line("what a script does", there, f"{'our aim':>14}")]
    for key, title, aim in ROWS:
        taken = {name: statistics.median(told["seconds"][key]) for name, told in there.items() if key in told["seconds"]}
        reached = "" if "brindle" not in taken else f"  {'met' if taken['brindle'] <= aim else '---'}"
        lines.append(line(title, (table.duration(taken[name]) if name in taken else "-" for name in there),
                          f"{table.duration(aim):>14}{reached}"))
    lines += [f"{name}: skipped: {told['skipped']}" for name, told in found.items() if "skipped" in told]
    for name, told in there.items():
        lines += ["", f"{name} ({told['version']}):"]
        lines += [f"    {title + ':':<{WIDTHS[0]}}{told['code'][key]}" for key, title, _ in ROWS if key in told["code"]]
    return "\n".join(lines) + "\n"
