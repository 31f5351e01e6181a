"""A model of the undo list beside the project, for random programs.

After each step the undo list is as the model has it, and outside of brackets the project's saved form is the one that
belongs to the present place in the list: so undo and redo are exact at every step, and not at the ends alone.
"""

import pathlib
import tempfile

import brindle
from hypothesis import strategies as st
from hypothesis.stateful import RuleBasedStateMachine, invariant, precondition, rule

import support

NAME = st.sampled_from(["Arm", "Leg", "Arm_1", "a b", "x/y", "ä", "\U0001f600", "", "Top", "%1", "A" * 60])


def pick(items, index):
    items = list(items)
    return items[index % len(items)] if items else None


class UndoModel(RuleBasedStateMachine):
    def __init__(self):
        super().__init__()
        self.parent = tempfile.TemporaryDirectory(dir=support.MEMORY)
        self.folder = pathlib.Path(self.parent.name) / "project"
        self.app = self.make_project()
        self.begin_anew()

    def make_project(self):
        """The project that a program begins with, open, with nothing in the undo list."""
        app = brindle.create(self.folder)
        support.samples(app)
        app.project.history.clear()
        return app

    def begin_anew(self):
        self.scene = self.app.scene
        self.history = self.app.project.history
        self.labels = []
        self.states = [self.saved()]
        self.done = 0
        self.bracket = None
        self.depth = 0
        self.pending = False

    def teardown(self):
        try:
            while self.depth:
                self.end()
            last = self.saved()
            self.history.undo(len(self.labels) + 1)
            assert self.saved() == self.states[0], "undoing all"
            self.history.redo(len(self.labels) + 1)
            assert self.saved() == self.states[-1], "redoing all"
            if self.done == len(self.labels):
                assert self.saved() == last
            self.app.save_as(self.folder.with_name("other"))
            assert support.files(self.folder.with_name("other")) == self.states[-1]
        finally:
            self.app.close()
            self.parent.cleanup()

    # The model.

    def saved(self):
        return support.saved(self.app, self.folder)

    def do(self, label, call):
        """Runs a change. When it has run a command, the entry has that label; when not, nothing has changed."""
        before = self.saved()
        try:
            call()
            failed = False
        except brindle.Error:
            failed = True
        ran = self.app.project.dirty
        assert not (failed and ran), "a change that failed has left a command"
        if not ran:
            assert self.saved() == before, "there is a change without a command"
        elif self.bracket is not None:
            self.pending = True
        else:
            self.push(label)

    def push(self, label):
        del self.labels[self.done:], self.states[self.done + 1:]
        self.labels.append(label)
        self.states.append(self.saved())
        self.done += 1

    def opened(self, name):
        self.depth += 1
        if self.bracket is None:
            self.bracket, self.pending = name, False

    def closed(self):
        self.depth -= 1
        if self.depth == 0:
            name, self.bracket = self.bracket, None
            if self.pending:
                self.push(name)

    def cancelled(self):
        self.depth, self.bracket = 0, None

    @invariant()
    def the_undo_list_is_as_expected(self):
        assert self.history.list() == self.labels[:self.done]
        assert self.history.size_executed == self.done
        assert self.history.size_unexecuted == len(self.labels) - self.done
        assert self.history.current == ("NONE" if self.bracket is None else self.bracket)
        if self.bracket is None:
            assert self.saved() == self.states[self.done]

    # The objects that the rules change.

    def nodes(self):
        return self.scene.nodes.list()

    def node(self, index):
        return pick(self.nodes(), index)

    def groups(self):
        return [self.scene.top, *(node for node in self.nodes() if isinstance(node, brindle.GroupNode))]

    def ports(self, inside):
        for node in self.nodes():
            if node.type != ("MULTIPORT_IN" if inside else "MULTIPORT_OUT"):
                yield from (node.ports_in if inside else node.ports_out).list()

    def cable(self, index):
        return pick([cable for port in self.ports(False) for cable in port.cables], index)

    def attributes(self, kind=None):
        """The attributes of a class, at all levels; all of them without one."""

        def at_and_below(attributes):
            for attribute in attributes:
                yield attribute
                yield from at_and_below(attribute.subattributes or [])

        for node in self.nodes():
            yield from (each for each in at_and_below(node.attributes) if kind is None or type(each) is kind)

    def column(self, index):
        found = {}
        for attribute in self.attributes(brindle.DoubleAttribute):
            column = attribute.column
            if column is not None:
                found[column.name] = column
        return pick(found.values(), index)

    # The history and the folder.

    @rule(count=st.integers(0, 8))
    def undo(self, count):
        self.history.undo(count)
        if self.bracket is None:
            self.done = max(0, self.done - count)

    @rule(count=st.integers(0, 8))
    def redo(self, count):
        self.history.redo(count)
        if self.bracket is None:
            self.done = min(len(self.labels), self.done + count)

    @rule(name=NAME)
    def begin(self, name):
        self.history.begin(name)
        self.opened(name)

    @precondition(lambda self: self.depth)
    @rule()
    def end(self):
        self.history.end()
        self.closed()

    @precondition(lambda self: self.depth)
    @rule()
    def cancel(self):
        self.history.cancel()
        self.cancelled()

    @precondition(lambda self: not self.depth)
    @rule()
    def open_again(self):
        state = self.states[self.done]
        assert self.saved() == state
        self.app = brindle.open(self.folder)
        self.begin_anew()
        assert self.states == [state], "what was opened is saved as it was"
