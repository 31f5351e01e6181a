"""Random programs over all that the stubs name, with values that act while they are read.

    surface.py FOLDER REPORT SEED PROGRAMS STEPS [EACH]

Each program takes objects of a new project, and those that its calls give, and reads, writes and calls their members with
values of the types that the stubs give, and with others. Some values act when the call reads them: they undo, remove a
node, close a bracket, call something else, raise. At the end of a program, undoing everything gives the project's first
saved form to the byte, and redoing it the last one; with EACH so after each step. The calls of the present program
stand in the file REPORT. What doesn't hold is listed on standard output.
"""

import ast
import contextlib
import gc
import os
import pathlib
import random
import shutil
import sys

import brindle
import hostile
from brindle import render
import support

ALLOWED = (*hostile.ALLOWED, StopIteration, LookupError)
# They end the project, lead out of its folder, stop the process, or take away the list that is looked at.
LEFT_OUT = {"close", "save", "save_as", "__exit__", "thread_lock", "thread_unlock", "clear_history", "run_on_main",
            "process_one_event"}


class Stubs:
    """What the stubs say: the members of every class with the types of their parameters."""

    def __init__(self):
        text = pathlib.Path(brindle.__file__).with_name("__init__.pyi").read_text()
        self.aliases, self.members = {}, {}
        for node in ast.parse(text).body:
            if isinstance(node, ast.AnnAssign) and node.value:
                self.aliases[node.target.id] = node.value
            elif isinstance(node, ast.ClassDef) and hasattr(brindle, node.name):
                self.members[node.name] = list(self.of_class(node))

    def of_class(self, node):
        for item in node.body:
            if isinstance(item, ast.AnnAssign) and isinstance(item.annotation, ast.Subscript) \
                    and ast.unparse(item.annotation.value) == "_Property":
                yield "get", item.target.id, ()
                yield "set", item.target.id, (item.annotation.slice.elts[1],)
            elif isinstance(item, ast.FunctionDef):
                marks = [ast.unparse(mark) for mark in item.decorator_list]
                parameters = [*item.args.posonlyargs, *item.args.args][0 if "staticmethod" in marks else 1:]
                kind = "get" if "property" in marks else "set" if any(".setter" in m for m in marks) else "call"
                yield kind, item.name, tuple(each.annotation for each in parameters)

    def of(self, cls):
        for base in cls.__mro__:
            yield from self.members.get(base.__name__, ())


class Actor:
    """A value of every protocol, each of which does something first."""

    def __init__(self, program, gives):
        self.program, self.gives = program, gives

    def act(self, *_):
        self.program.act()
        return self.gives

    __index__ = __float__ = __fspath__ = __call__ = __len__ = __getitem__ = __enter__ = __bool__ = act

    def __str__(self):
        return str(self.act())

    def __iter__(self):
        yield self.act()
        yield self.act()

    def __eq__(self, other):
        return bool(self.act())

    def __hash__(self):
        self.act()
        return 1

    def __repr__(self):
        return f"Actor({self.gives!r:.30})"

    def __del__(self):
        with contextlib.suppress(*ALLOWED):
            self.program.act()


class OddText(str):
    def __str__(self):
        raise ValueError("text")

    __len__ = __hash__ = __iter__ = __str__
    __eq__ = lambda self, other: self.__str__()


HOSTILE = [*hostile.NUMBERS, *hostile.TEXTS, *hostile.LISTS, *hostile.PATTERNS, *hostile.OTHERS, OddText("odd"), "a" * 10_000_000]
WORDS = ["Top", "Top/Sample-Peg", "Sample-Peg", "Top/Sample-Group", "Sample-Group", "PEG", "READ", "GROUP", "COMPOSITE",
         "peg", "image", "position", "position.x", "angle", "1", "2", "new", "Sample-EASE", "Sample-DRAWING", "DOUBLE",
         "BEZIER", "SMOOTH", "LINE", "line", "PEN_LAYER", "TEXT_LAYER", "LEFT", "PNG", "Colour", "Sample-Data", "a b"]


VALUES = tuple({type(make()) for make, _ in support.VALUES.values()})
NODE, FRAME = (ast.parse(text, mode="eval").body for text in ("Node | None", "int | float"))


class Program:
    def __init__(self, folder, report, stubs, seed):
        self.random, self.stubs, self.folder = random.Random(seed), stubs, pathlib.Path(folder)
        self.report, self.at, self.log, self.depth = report, 0, [], 0
        self.is_acting = False
        shutil.rmtree(self.folder, ignore_errors=True)
        self.app = brindle.create(self.folder, discard=True)
        self.dead = hostile.dead_objects(self.app) if self.random.random() < 0.5 else []
        self.samples = support.samples(self.app)
        self.pool = list(self.samples.values())
        self.history = self.app.project.history
        self.history.clear()
        self.first = self.saved()
        self.may_close = self.random.random() < 0.25
        self.is_over = False

    def saved(self):
        """The saved form; but for locks, and for palettes that wait for the save of the list that lacks them."""
        return {name: content for name, content in support.saved(self.app, self.folder).items()
                if not name.endswith(".lock") and "/.deleted/" not in name}

    def note(self, text):
        self.log.append("  " * self.depth + text)
        self.at += os.pwrite(self.report, (text[:300] + "\n").encode("utf-8", "replace"), self.at)

    # Values.

    def pick(self, items):
        return self.random.choice(items)

    def value(self, annotation, depth=0):
        chance = self.random.random()
        if chance < 0.08:
            return self.pick(HOSTILE)
        if chance < 0.12:
            return Actor(self, self.pick(HOSTILE + self.pool))
        if chance < 0.15 and self.dead:
            return self.pick(self.dead)
        if chance < 0.18:
            return self.pick(self.pool)
        if isinstance(annotation, ast.BinOp):
            return self.value(annotation.left if self.random.random() < 0.5 else annotation.right, depth)
        if isinstance(annotation, ast.Subscript):
            kind, inner = ast.unparse(annotation.value), annotation.slice
            if kind == "Literal":
                return ast.literal_eval(self.pick(inner.elts) if isinstance(inner, ast.Tuple) else inner)
            if kind == "Callable":
                return self.function()
            if kind == "dict":
                return {self.pick(WORDS): self.value(inner.elts[1], depth + 1) for _ in range(self.random.randrange(3))}
            count = self.random.randrange(4) if depth < 3 else 0
            inner = self.pick(inner.elts) if isinstance(inner, ast.Tuple) else inner
            return [self.value(inner, depth + 1) for _ in range(count)]
        if isinstance(annotation, ast.Constant):
            return annotation.value
        name = annotation.id if isinstance(annotation, ast.Name) else "object"
        if name in self.stubs.aliases:
            return self.value(self.stubs.aliases[name], depth)
        if name == "int":
            return self.pick([0, 1, 1, 2, 3, 5, 10, 20, 60, -1])
        if name == "float":
            return self.pick([0.0, 1.0, 0.5, 10.0, -3.25, 100.0, 24.0])
        if name == "str":
            return self.pick(WORDS)
        if name == "bool":
            return self.random.random() < 0.5
        if isinstance(cls := getattr(brindle, name, None), type):
            if found := [each for each in self.pool if isinstance(each, cls)]:
                return self.pick(found)
        return self.pick([*WORDS, 1, 2.0, None, [1, 2], self.pick(self.pool), self.pick(self.pool)])

    def function(self):
        def run(*arguments):
            self.act()
            return self.pick([None, True, 1, "x", *arguments])
        return run

    def act(self):
        """What a value does while a call reads it, or when it goes."""
        if self.is_acting or self.is_over:
            return
        self.is_acting = True
        self.depth += 1
        try:
            action = self.random.randrange(12)
            if action < 2:
                self.history.undo(self.random.randrange(1, 4))
            elif action < 4:
                self.history.redo(self.random.randrange(1, 4))
            elif action == 4:
                self.app.scene.nodes.remove(self.pick(self.app.scene.nodes.list()))
            elif action == 5:
                raise self.pick([ValueError("actor"), brindle.Error("actor"), MemoryError(), KeyboardInterrupt()])
            elif action == 6:
                gc.collect()
            elif action == 7:
                self.app.elements.remove(self.pick(list(self.app.elements)), True)
            elif action == 8 and self.may_close and self.random.random() < 0.3:
                self.is_over = True
                self.app.close()
            else:
                self.step()
        finally:
            self.is_acting = False
            self.depth -= 1

    # Calls.

    def step(self):
        if self.random.random() < 0.03:
            self.render()
            return
        target = self.pick(self.pool)
        if isinstance(target, VALUES) and self.random.random() < 0.7:
            target = self.pick(self.pool)  # What belongs to the project comes more often.
        members = [member for member in self.stubs.of(type(target)) if member[1] not in LEFT_OUT]
        if not members:
            return
        wanted = self.pick(["get", "set", "set", "call", "call", "call"])
        kind, name, parameters = self.pick([member for member in members if member[0] == wanted] or members)
        if name == "clear" and isinstance(target, brindle.History):
            return
        if name == "__init__":
            values = [self.value(each) for each in parameters]
            self.attempt(f"{type(target).__name__}", lambda: type(target)(*values), values)
            return
        shown = next((key for key, each in self.samples.items() if each is target), type(target).__name__)
        text = f"{shown}.{name}"
        if kind == "get":
            self.attempt(text, lambda: getattr(target, name), ())
        elif kind == "set":
            value = self.value(parameters[0])
            self.attempt(f"{text} =", lambda: setattr(target, name, value), [value])
        else:
            if name == "create" and isinstance(target, brindle.ElementDrawingList):
                parameters = parameters[:1]  # The others say that there is a file, without which no save succeeds.
            count = len(parameters) if self.random.random() < 0.7 else self.random.randrange(len(parameters) + 1)
            values = [self.value(each) for each in parameters[:count]]
            self.attempt(text, lambda: getattr(target, name)(*values), values)

    def render(self):
        """Pictures, with a callback that acts between them."""
        node, frame = self.value(NODE), self.value(FRAME)
        if self.random.random() < 0.5:
            self.attempt("render.cel", lambda: render.cel(node, frame, size=(16, 9)), [node, frame])
        else:
            self.attempt("render.frames", lambda: render.frames(
                self.app.scene, lambda number, cel: (self.keep(cel), self.act()), range(1, 6), node=node, size=(16, 9),
                threads=self.pick([None, 1, 2, 3])), [node])

    def attempt(self, text, call, values):
        self.note(f"{text}({', '.join(map(shown, values))})")
        try:
            result = call()
        except (*ALLOWED, KeyboardInterrupt) as error:
            self.note(f"# {type(error).__name__}: {str(error)[:120]}")
            return
        except BaseException as error:  # noqa: BLE001: everything else is a finding
            print(f"{text}: {type(error).__name__}: {error}")
            return
        self.keep(result)

    def keep(self, result):
        results = result[:3] if isinstance(result, (list, tuple)) else [result]
        for each in results:
            if isinstance(each, brindle.BaseObject):
                if len(self.pool) < 400:
                    self.pool.append(each)
                else:
                    self.pool[self.random.randrange(len(self.samples), 400)] = each

    # The check.

    def finish(self):
        for _ in range(2):
            with contextlib.suppress(brindle.Error):
                brindle.DrawingAccess().vector_end_operations(False)
        self.history.cancel()

    def check(self):
        """Undoes and redoes all; gives a text that tells what is not exact, empty where all is."""
        self.finish()
        done, total = self.history.size_executed, self.history.size_total
        last = self.saved()
        self.history.undo(done + 1)
        if difference := differing(self.first, self.saved()):
            return f"undoing {done} gives {difference}"
        self.history.redo(done)
        if difference := differing(last, self.saved()):
            return f"redoing {done} gives {difference}"
        if (self.history.size_executed, self.history.size_total) != (done, total):
            return "the undo list has another size"
        return ""

    def run(self, steps, each):
        for _ in range(steps):
            with contextlib.suppress(*ALLOWED, KeyboardInterrupt):
                self.step()
            if self.is_over:
                return ""
            if each and (wrong := self.check()):
                break
        else:
            wrong = self.check()
        return wrong


def shown(value):
    return hostile.text_of(value)[:60]


def differing(before, after):
    """Which files differ, and in what."""
    found = []
    for name in sorted({*before, *after}):
        old, new = before.get(name), after.get(name)
        if old == new:
            continue
        if old is None or new is None:
            found.append(f"{name} {'more' if old is None else 'less'}")
            continue
        lines = [line for line in zip(old.splitlines(), new.splitlines()) if line[0] != line[1]]
        found.append(f"{name} changed: {lines[0] if lines else 'length'}"[:300])
    return "; ".join(found)


def main(folder, report, seed, programs, steps, each=False):
    sys.stdout = os.fdopen(os.dup(1), "w", buffering=1)
    os.dup2(os.open(os.devnull, os.O_WRONLY), 1)
    os.chdir(pathlib.Path(folder).parent)
    sys.unraisablehook = lambda _: None  # An Actor may raise in its __del__.
    stubs = Stubs()
    for number in range(seed, seed + programs):
        with open(report, "wb", 0) as file:
            program = Program(folder, file.fileno(), stubs, number)
            try:
                wrong = program.run(steps, each)
            except brindle.Error as error:
                wrong = f"the project can't be saved: {error}"
            if wrong:
                print(f"program {number}, {len(program.log)} calls: {wrong}")
                if each:
                    print("\n".join(program.log[-12:]))
            program.is_over = True
            program.app.close()
            program.pool.clear()
            gc.collect()
            for sample in program.samples.values():
                repr(sample)
            del program


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], *map(int, sys.argv[3:]))
