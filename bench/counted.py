#!/usr/bin/python3
"""Short operations in loops of two lengths, for a count of the processor's instructions.

    bench/counted.py NAME...

bench/instructions.py runs it under callgrind, which writes a file of its counts at each mark: one with all that went
before a loop, and one with the loop. What is printed, as JSON, is how often one turn of each loop does its operation.
"""

import gc
import json
import os
import sys
import tempfile

import brindle

import operations
from instructions import LENGTHS

WARM_UP = 200  # times an operation is done before it is counted: what it remembers is in place


def mark():
    """Calls the function of the C library that callgrind has been told to write at; nothing else here calls it."""
    os.getppid()


def run_loops(names, code, _, setup="pass"):
    space = dict(names)
    lines = "\n        ".join(code.split("; "))
    exec(f"from itertools import repeat\ndef loop(number):\n    for _ in repeat(None, number):\n        {lines}\n", space)
    loop = space["loop"]
    loop(WARM_UP)
    for number in LENGTHS:
        exec(setup, space)
        mark()
        loop(number)
        mark()


def main():
    with tempfile.TemporaryDirectory(prefix="brindle-bench-") as root, brindle.create(f"{root}/counted") as app:
        names = operations.names(app)
        gc.disable()
        for name in sys.argv[1:]:
            run_loops(names, *operations.STATEMENTS[name])
    json.dump({name: operations.STATEMENTS[name][1] for name in sys.argv[1:]}, sys.stdout)


if __name__ == "__main__":
    main()
