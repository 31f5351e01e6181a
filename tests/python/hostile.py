"""Calls everything that a script can reach with everything that a script can pass.

    hostile.py FOLDER REPORT SHARE [MEMBERS]

The project is made in FOLDER. Before each call its text goes to the file REPORT, so that it is known which one ended
the process. Of the calls with several odd arguments one in SHARE is made; of the members one in MEMBERS is called.
Listed on standard output, a line each: what comes out of a call beside the errors of the contract, and calls that
failed and changed the undo list.
"""

import contextlib
import decimal
import gc
import os
import pathlib
import random
import re
import shutil
import sys

import brindle
import support

ALLOWED = (brindle.Error, TypeError, ValueError, OverflowError, AttributeError, MemoryError, RecursionError)
# They end the project, or the test's hold on the threads.
LEFT_OUT = {"close", "__exit__", "thread_lock", "thread_unlock"}
SPECIAL = ("__len__", "__getitem__", "__setitem__", "__delitem__", "__contains__", "__call__", "__eq__", "__ne__",
           "__lt__", "__hash__", "__iter__", "__str__", "__repr__", "__bool__", "__dir__", "__enter__")


class BadIndex:
    def __index__(self):
        return "no number"

    def __float__(self):
        return "no number"

    def __fspath__(self):
        return 7

    def __repr__(self):
        return "BadIndex()"


class Raising:
    def __index__(self):
        raise ValueError("index")

    __float__ = __fspath__ = __str__ = __index__
    __eq__ = __hash__ = None

    def __repr__(self):
        return "Raising()"


class OddText(str):
    pass


class OddNumber(int):
    pass


class OddPath(pathlib.PurePosixPath):
    def __fspath__(self):
        return b"bytes"


def nested(depth, kind=list):
    value = []
    for _ in range(depth):
        value = {"a": value} if kind is dict else kind([value])
    return value


def endless():
    value = [1]
    value.append(value)
    return value


NUMBERS = (None, True, False, 0, 1, 2, -1, 7, 2**31 - 1, 2**31, -2**31 - 1, 2**32, 2**53 + 1, 2**63, -2**63, 2**64,
           10**300, 10**400, 0.0, 1.5, -0.0, 10.0, float("nan"), float("inf"), -float("inf"), 1e308, -1e308, 5e-324,
           3e9)
TEXTS = ("", "x", "10", "-1", "a\0b", "\U0001f600", "\ud800", "\udfff\ud800", "Top", "Top/Sample-Peg", "Sample-Peg",
         "/", "//", "Top/", "ä" * 1000, "%1 %2 %n", "SMOOTH", "peg", "PEG", "GROUP", "1e999", "true", " \n\t", "..",
         "angle", "position.x", "ATV-0001", "colour", "error", "a." * 5000, "a/" * 5000)
LISTS = ([], (), {}, [[]], [None], ["a"], ["a", "\ud800"], [1, 2], (1, 2, 3), [1, 2, 3, 4], ["1", 2], [1, "x"],
         [[1, 2], 3],
         [float("nan"), float("inf")], [2**70], {"x": 1, "y": 2}, {1: 2}, {"\ud800": 1}, {"name": "x"}, {"name": None},
         {"name": ["(", "["], "type": 3}, {"frame": 1, "value": 2}, ["("], [object()], [[object()]], list(range(1000)),
         nested(100), nested(10_000), nested(10_000, tuple), nested(10_000, dict), endless())
PATTERNS = (re.compile("Sample"), re.compile(""), re.compile(b"x"), re.compile("(a*)*b"), re.compile("\ud800"))
OTHERS = (b"bytes", bytearray(b"x"), 1j, decimal.Decimal("NaN"), ..., NotImplemented, object(), repr, len, type,
          brindle.Node, brindle, lambda *a: a, range(3), slice(None), slice(0, 10**30, 2), slice(3, 0, -1), slice("a"),
          {1}, iter([1]), memoryview(b"x"), OddText("x"), OddNumber(3), BadIndex(), Raising(), OddPath("x"),
          pathlib.Path("x"), pathlib.Path("a\0b"))


def dead_objects(app):
    """One object of each class whose engine object is gone."""
    samples = support.samples(app)
    nodes = [node for node in app.scene.nodes if node.name.startswith("Sample")]
    app.scene.nodes.remove(nodes, True)
    return [sample for name, sample in samples.items() if name not in KEPT]


KEPT = {"application", "clipboard", "copy object", "locked block", "project", "resolution", "named resolution", "history", "bracket", "scenes",
        "scene", "aspect", "units", "center", "unit converter", "metadata", "metadata pair", "nodes of the scene", "copied nodes", "display",
        "composite", "dynamic in-ports", "palette lists", "palettes", "palette", "solid colour", "gradient", "texture", *support.VALUES}


class Sweep:
    def __init__(self, folder, report, share, members):
        self.random = random.Random(share)
        self.share = share
        self.members = members
        self.plain = [*NUMBERS, *TEXTS, *LISTS, *PATTERNS, *OTHERS]
        self.lists = [(value, list(value)) for value in self.plain if isinstance(value, list)]
        self.texts = {id(value): text_of(value) for value in self.plain}
        self.folder = pathlib.Path(folder)
        self.report = os.open(report, os.O_WRONLY | os.O_CREAT | os.O_TRUNC)
        self.begin()

    def begin(self):
        """A new project with one object of each class, alive, and one of each, dead."""
        shutil.rmtree(self.folder, ignore_errors=True)
        self.app = brindle.create(self.folder, discard=True)
        self.history = self.app.project.history
        self.dead = dead_objects(self.app)
        self.samples = support.samples(self.app)
        self.steps = self.history.size_executed

    def restore(self):
        """Takes back what a call did; where that can't be, begins anew."""
        self.history.cancel()
        done = self.history.size_executed
        if done > self.steps:
            self.history.undo(done - self.steps)
        elif done < self.steps:
            self.begin()

    def restore_objects(self):
        self.restore()
        for value, items in self.lists:  # A call may have added points to it.
            value[:] = items
        if any("no longer valid" in repr(sample) for sample in self.samples.values()):
            self.begin()

    def attempt(self, text, call):
        os.pwrite(self.report, text.encode("utf-8", "replace")[:1000].ljust(1000), 0)
        before = self.sizes()
        try:
            result = call()
        except ALLOWED as error:
            if self.sizes() != before:
                print(f"{text}: {error} -- and the undo list has changed")
            return
        except BaseException as error:  # noqa: BLE001: everything else is a finding
            print(f"{text}: {type(error).__name__}: {error}")
            return
        with contextlib.suppress(*ALLOWED):
            repr(result)  # The result must be usable as well.

    def short(self, value):
        return self.texts.get(id(value)) or text_of(value)

    def sizes(self):
        return self.history.size_executed, self.history.size_total, self.history.current

    def values(self):
        yield from self.plain
        yield from self.samples.values()
        yield [self.samples["peg"]]
        yield [self.samples["peg"], 0]
        yield [self.samples["in-port"], 0]
        yield from self.dead
        yield self.dead

    def run(self):
        for name in list(self.samples):
            cls = type(self.samples[name])
            members = [member for member in dir(cls) if not member.startswith("__")]
            members += [member for member in SPECIAL if any(member in base.__dict__ for base in cls.__mro__[:-1])]
            members += [prefix + m for m in members for prefix in ("get_", "set_") if hasattr(cls, prefix + m)]
            for member in dict.fromkeys(members):
                if member not in LEFT_OUT and self.random.randrange(self.members) == 0:
                    self.sweep_member(name, member)
                    self.restore_objects()
        for name, cls in vars(brindle).items():
            if isinstance(cls, type) and not issubclass(cls, BaseException):
                for value in self.values():
                    self.attempt(f"brindle.{name}({self.short(value)})", lambda: cls(value))
                    self.attempt(f"brindle.{name}({self.short(value)}, 1)", lambda: cls(value, 1))

    def sweep_member(self, name, member):
        text = f"{name}.{member}"
        sample = self.samples[name]
        self.attempt(text, lambda: getattr(sample, member))
        self.attempt(f"del {text}", lambda: delattr(sample, member))
        try:
            value = getattr(sample, member)
        except (brindle.Error, AttributeError):
            value = None
        is_method = callable(value) and not isinstance(value, brindle.BaseObject)
        for odd in self.values():
            self.attempt(f"{text} = {self.short(odd)}", lambda: setattr(self.samples[name], member, odd))
            self.restore()
            if not is_method:
                continue
            for arguments in ((odd,), (odd, odd), (1, odd), (odd, 1), ("PEG", odd), (odd, True, "peg"), (1, odd, odd),
                              (1, 1.0, odd, 1.0, 1.0, 1.0, odd, "SMOOTH"), (odd, 1, 1, 1, 1, 1, True, odd)):
                if len(arguments) > 1 and self.random.randrange(self.share):
                    continue
                shown = ", ".join(map(self.short, arguments))
                self.attempt(f"{text}({shown})", lambda: getattr(self.samples[name], member)(*arguments))
            self.restore()
        if is_method:
            self.attempt(f"{text}()", lambda: getattr(self.samples[name], member)())
            self.attempt(f"{text}(nothing=1)", lambda: getattr(self.samples[name], member)(nothing=1))
            self.attempt(f"{text}(100 arguments)", lambda: getattr(self.samples[name], member)(*range(100)))


def text_of(value):
    try:
        text = repr(value).replace("\n", " ")
    except (RecursionError, *ALLOWED):
        text = f"a {type(value).__name__}"
    return text if len(text) < 80 else text[:77] + "..."


def main(folder, report, share, members=1):
    # Standard output is for the findings alone: keyframe_create() tells its frames there.
    sys.stdout = os.fdopen(os.dup(1), "w")
    os.dup2(os.open(os.devnull, os.O_WRONLY), 1)
    sweep = Sweep(folder, report, share, members)
    sweep.run()
    sweep.app.close()
    samples = sweep.samples
    del sweep
    gc.collect()
    for sample in samples.values():
        repr(sample)
    del samples, sample
    print(f"{brindle._live_objects()} objects left")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], *map(int, sys.argv[3:]))
