"""How many of the processor's instructions an operation takes from Python, as callgrind counts them.

An operation is done in a loop of two lengths. The difference of the two counts, without the loop's own, is what the
operation costs: the same on every machine, whatever else runs on it.
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

LENGTHS = (500, 1500)
FILES = 2 * len(LENGTHS)  # that callgrind writes for an operation: before each loop and behind it

BENCH = pathlib.Path(__file__).resolve().parent


def counts(files):
    """The instructions in each file's own part of the run."""
    for file in files:
        yield int(re.search(r"^summary: (\d+)", file.read_text(), re.MULTILINE)[1])


def each(loops):
    """Instructions for one turn of a loop, of the counts of a short and a long one."""
    return (loops[1] - loops[0]) / (LENGTHS[1] - LENGTHS[0])


def measure(build, names):
    """Instructions of each of the operations in `names`."""
    valgrind = shutil.which("valgrind")
    if not valgrind:
        raise SystemExit("bench: counting instructions needs valgrind: scripts/setup.sh --instructions")
    names = ["loop", *names]
    with tempfile.TemporaryDirectory(prefix="brindle-bench-") as folder:
        environment = dict(os.environ, PYTHONPATH=f"{build / 'python'}{os.pathsep}{build / 'bench'}", PYTHONHASHSEED="0",
                           QT_HASH_SEED="0", QT_QPA_PLATFORM="offscreen")
        done = subprocess.run(
            [valgrind, "--tool=callgrind", "--dump-before=getppid", f"--callgrind-out-file={folder}/out",
             sys.executable, str(BENCH / "counted.py"), *names],
            env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        if done.returncode:
            raise SystemExit(done.stderr)
        found = list(counts(pathlib.Path(folder) / f"out.{number}" for number in range(1, FILES * len(names) + 1)))
    turns = [each(found[place + 1:place + FILES:2]) for place in range(0, len(found), FILES)]
    times = json.loads(done.stdout)
    return {name: (turn - turns[0]) / times[name] for name, turn in zip(names[1:], turns[1:])}
