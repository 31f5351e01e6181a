"""What each of the scripts beside this one does in a program's Python: times operations and writes what it found.

    <script> RESULT FOLDER

RESULT gets JSON: "seconds", a list for each operation, and "code", what was done. Short operations are timed in turn, long
ones once a repetition; processor time, but saving and opening on the wall clock.
"""

import json
import pathlib
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2]))

from measure import Samples, silence  # noqa: E402, F401

COUNT = 10_000
ROUNDS = 3


def parent_of(index):
    """The number of the object that one is linked to, in a tree where each has ten."""
    return (index - 1) // 10


class Report:
    def __init__(self):
        self.samples = Samples()
        self.code = {}
        self.result, self.folder = sys.argv[-2:]

    def short(self, names, **statements):
        """Times statements, by the operation's key: a code, or a code and one that runs ahead."""
        told = {key: (code,) if isinstance(code, str) else code for key, code in statements.items()}
        self.samples.in_turn({key: (code, 1, *ahead) for key, (code, *ahead) in told.items()}, names, ROUNDS)
        self.code |= {key: code for key, (code, *_) in told.items()}

    def long(self, key, code, items=1, clock=time.process_time):
        """Times a block; `code` says what it does."""
        self.code[key] = code
        return self.samples.timed(key, items, clock)

    def save(self, key, code):
        return self.long(key, code, clock=time.perf_counter)

    def write(self):
        with open(self.result, "w") as file:
            json.dump({"seconds": self.samples.seconds, "code": self.code}, file)
