"""Functions of a script that native code holds and calls: conversion, failures, references."""

import functools
import gc
import sys
import traceback
import types
import weakref

import brindle
import pytest

import support

NO_FUNCTION = "Expected a Python Function."
NO_OBJECT = "No Python object is available."
IN_A_PLAIN_INTERPRETER = "Unable to use run_on_main() in an external Python interpreter."


class Callable:
    def __init__(self, result=None):
        self.result = result
        self.calls = []

    def __call__(self, *arguments):
        self.calls.append(arguments)
        return self.result


@pytest.mark.parametrize("make", [
    lambda calls: lambda: calls.append(1), lambda calls: type("C", (), {"__call__": lambda self: calls.append(1)})(),
    lambda calls: functools.partial(calls.append, 1), lambda calls: brindle.PythonFunction(lambda: calls.append(1)),
], ids=["a lambda", "an object with __call__", "a partial", "a wrapper"])
def test_every_callable_is_a_function(app, make):
    calls = []
    app.run_function(make(calls))
    assert calls == [1]


def test_a_class_is_a_function_whose_result_need_have_a_form(app):
    assert app.run_function(dict) is None
    assert brindle.PythonFunction(int).call(["12"]) == 12


@pytest.mark.parametrize("value", [None, 3, "print", [print], {"f": print}], ids=repr)
def test_what_is_no_function_is_refused(app, value):
    assert support.message_of(app.run_function, value) == NO_FUNCTION
    assert support.message_of(app.run_on_main, value) == IN_A_PLAIN_INTERPRETER


def test_an_object_that_is_no_function_is_refused(app):
    assert support.message_of(app.run_function, app.scene) == NO_FUNCTION
    assert support.message_of(brindle.PythonFunction, app.scene) == "Invalid argument at index 0."
    with pytest.raises(TypeError):
        app.run_function(bytes(3))


@pytest.mark.parametrize("error", [
    KeyError("x"), ValueError(), brindle.Error("mine"), SystemExit(3), KeyboardInterrupt(), StopIteration(4),
    type("Own", (Exception,), {})("own"), type("Base", (BaseException,), {})()], ids=repr)
def test_an_exception_comes_back_through_native_code_as_itself(app, error):
    def inner():
        raise error

    def outer():
        inner()

    with pytest.raises(type(error)) as failure:
        app.run_function(outer)
    assert failure.value is error
    places = [place.name for place in traceback.extract_tb(failure.value.__traceback__)]
    assert places[-2:] == ["outer", "inner"]


def test_a_cause_and_a_note_stay_with_the_exception(app):
    def fail():
        try:
            1 / 0
        except ZeroDivisionError as cause:
            error = ValueError("outer")
            error.add_note("a note")
            raise error from cause

    with pytest.raises(ValueError) as failure:
        app.run_function(fail)
    assert isinstance(failure.value.__cause__, ZeroDivisionError) and failure.value.__notes__ == ["a note"]


def test_an_exception_goes_through_several_calls_in_each_other(app):
    error = LookupError("deep")

    def fail(depth):
        if depth == 0:
            raise error
        app.run_function(lambda: fail(depth - 1))

    with pytest.raises(LookupError) as failure:
        fail(20)
    assert failure.value is error


def test_calls_without_end_are_stopped(app):
    def again():
        app.run_function(again)

    with pytest.raises(RecursionError):
        again()
    assert app.scene.name == "Scene-1"


def test_a_wrapper_calls_with_arguments_and_gives_the_result(app):
    function = brindle.PythonFunction(lambda *arguments: list(arguments))
    assert str(function) == "PythonFunction()"
    assert function.call() == [] and function.call(None) == []
    assert function.call([1, 2.5, "x", None, [True]]) == [1, 2.5, "x", None, [True]]
    assert function.call(["a", "b"]) == ["a", "b"]
    assert function.call(("a",)) == ["a"]
    for wrong in (3, "text", {"a": 1}):
        assert support.message_of(function.call, wrong) == "Invalid argument at index 0."
    with pytest.raises(TypeError):
        function.call([object()])
    assert function.copy().call([7]) == [7]


def test_a_wrapper_may_hold_no_function(app):
    for empty in (brindle.PythonFunction(), brindle.PythonFunction(None), brindle.PythonFunction().copy()):
        assert empty.get() is None and str(empty) == "PythonFunction()"
        assert support.message_of(empty.call) == NO_OBJECT
        assert support.message_of(empty.call, [1]) == NO_OBJECT
        assert support.message_of(app.run_function, empty) == NO_OBJECT


def test_a_wrapper_takes_another_function(app):
    first, second = Callable(1), Callable(2)
    counts = sys.getrefcount(first), sys.getrefcount(second)
    function = brindle.PythonFunction()
    for _ in range(2):
        function.set(first)
        assert function.get() is first and function.call() == 1
        assert (sys.getrefcount(first), sys.getrefcount(second)) == (counts[0] + 1, counts[1])
    function.set(brindle.PythonFunction(second))
    assert function.get() is second and function.call() == 2
    assert (sys.getrefcount(first), sys.getrefcount(second)) == (counts[0], counts[1] + 1)
    for wrong in (3, "print", [print], app.scene, app.scene.nodes):
        assert support.message_of(function.set, wrong) == "Invalid argument at index 0."
    with pytest.raises(TypeError):
        function.set(object())
    assert function.get() is second
    function.set(function)
    assert function.get() is second
    function.set(None)
    assert function.get() is None
    assert (sys.getrefcount(first), sys.getrefcount(second)) == counts
    assert support.message_of(function.call) == NO_OBJECT


def test_a_function_that_empties_its_wrapper_runs_to_its_end(app):
    function = brindle.PythonFunction()

    class Emptying:
        def __call__(self):
            function.set(None)
            return 5

        def __del__(self):
            function.set(len)

    function.set(Emptying())
    assert function.call() == 5
    assert function.get() is len


def test_objects_go_in_and_come_out(app):
    function = brindle.PythonFunction(lambda value: value)
    scene = function.call([app.scene])
    assert isinstance(scene, brindle.Scene) and scene == app.scene
    point = function.call([brindle.Point2d(1, 2)])
    assert (point.x, point.y) == (1, 2)
    assert function.call([{"a": [1, "x"]}]) == {"a": [1, "x"]}
    made = brindle.PythonFunction(lambda: [brindle.Point2d(3, 4), {"node": app.scene.nodes["Top/Display"]}]).call()
    gc.collect()
    assert made[0].x == 3 and made[1]["node"].name == "Display"


def test_a_result_without_a_form_is_a_failure(app):
    for function in (object, lambda: [1, object()]):
        with pytest.raises(TypeError, match="A value of type object can't be used here"):
            brindle.PythonFunction(function).call()


def names(nodes):
    return [node.name for node in nodes]


def test_a_function_finds_the_nodes_that_it_says(scene, peg):
    nodes = scene.nodes
    seen = []
    assert names(nodes.find(lambda node: seen.append(node.path))) == []
    assert seen == [node.path for node in nodes.find({})]
    assert names(nodes.find(lambda node: node.type == "PEG")) == ["Arm", "Body"]
    assert names(nodes.find(lambda node: node.path and [object()])) == names(nodes.find({}))
    assert names(scene.top.nodes.find(brindle.PythonFunction(lambda node: "o" in node.name))) == \
        names(scene.top.nodes.find({"name": "o"}))
    assert nodes.find(lambda node: {}) == []
    assert support.message_of(nodes.find, brindle.PythonFunction()) == NO_OBJECT


def test_a_function_that_fails_to_say_so_ends_the_search_with_its_exception(scene, state):
    before = state()
    error = LookupError("mine")

    class NeitherTrueNorFalse:
        def __bool__(self):
            raise error

    for predicate in (lambda node: NeitherTrueNorFalse(), lambda node: {}[node.name], lambda: True):
        with pytest.raises((LookupError, TypeError)):
            scene.nodes.find(predicate)
    with pytest.raises(LookupError) as failure:
        scene.nodes.find(lambda node: NeitherTrueNorFalse())
    assert failure.value is error
    assert state() == before


def test_a_search_goes_on_while_its_function_changes_and_removes_nodes(app, scene, peg):
    nodes = scene.nodes

    def removing(node):
        if node.name == "Arm":
            nodes.remove("Top/Body")
            node.name = "Leg"
        return True

    assert "Leg" in names(nodes.find(removing)) and nodes["Top/Body"] is None
    made = [nodes.create("PEG", f"P{number}-") for number in range(200)]

    def emptying(node):
        for other in made:
            if other.valid:
                nodes.remove(other)
        return node.type == "PEG"

    assert nodes.find(emptying) == [nodes["Top/Leg"]]
    assert nodes.find(lambda node: app.close() or True) == []


def test_references_are_counted_right(app):
    function = Callable()
    gone = weakref.ref(function)
    before = sys.getrefcount(function)
    for _ in range(50):
        app.run_function(function)
        support.message_of(app.run_on_main, function)
        with pytest.raises(brindle.Error):
            app.scene.frame_count = function
    assert sys.getrefcount(function) == before
    wrapper = brindle.PythonFunction(function)
    copy = wrapper.copy()
    assert sys.getrefcount(function) == before + 2
    del wrapper, copy
    assert sys.getrefcount(function) == before
    del function
    assert gone() is None


def test_a_function_that_leads_back_to_its_wrapper_is_collected(app):
    class Derived(brindle.PythonFunction):
        pass

    for kind in (brindle.PythonFunction, Derived):
        function = Callable()
        gone = weakref.ref(function)
        function.wrapper = kind(function)
        gc.collect()  # Collects the garbage of earlier tests as well.
        objects = brindle._live_objects()
        del function
        gc.collect()
        assert gone() is None and brindle._live_objects() == objects - 1


class Leading:
    """A callable that holds what it is made of."""

    __slots__ = ("next",)

    def __init__(self, next):
        self.next = next

    def __call__(self):
        pass


CHAINS = {
    "bound methods of what ends": lambda last: types.MethodType(len, last),
    "accessors": lambda last: last.get_objectName,
    "methods": lambda last: last.call,
    "objects": Leading,
    "defaults": lambda last: lambda held=last: held,
}


@pytest.mark.parametrize("name", CHAINS)
def test_a_chain_of_functions_of_any_length_is_let_go_of(name):
    objects = brindle._live_objects()
    last = brindle.PythonFunction(len)
    for _ in range(200_000):
        last = brindle.PythonFunction(CHAINS[name](last))
    del last
    gc.collect()
    assert brindle._live_objects() == objects


def test_a_function_is_no_value(app, state):
    before = state()
    scene = app.scene
    for attempt in (lambda: setattr(scene, "name", print), lambda: setattr(scene, "frame_count", len),
                    lambda: scene.nodes.remove(print)):
        with pytest.raises((brindle.Error, TypeError)):
            attempt()
    assert state() == before


def test_a_lock_in_a_plain_interpreter_is_nothing_but_a_turn(app):
    with app.locked():
        with app.locked():
            app.scene.nodes.create("PEG", "Arm")
    app.thread_lock()
    app.thread_unlock()
    app.thread_unlock()
    with pytest.raises(ZeroDivisionError):
        with app.locked():
            1 / 0
    with app.locked() as entered:
        assert entered is None
