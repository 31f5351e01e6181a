"""Javascript: evaluating, loading, calling, values both ways, errors with their places, and the limits."""

import gc
import os
import pathlib
import signal
import subprocess
import sys
import textwrap
import threading

import brindle
import pytest

import support


@pytest.fixture
def js(app):
    return app.javascript


def message_of(action):
    with pytest.raises(brindle.Error) as caught:
        action()
    return str(caught.value)


def script(js, text):
    return js.load_string(textwrap.dedent(text))


def run_alone(code, *arguments, **options):
    """Runs code in an interpreter of its own."""
    return subprocess.run([support.PYTHON, "-c", textwrap.dedent(code), *arguments], capture_output=True, text=True,
                          timeout=120, **options)


def test_an_import_and_an_open_project_map_no_qt_qml(tmp_path):
    code = """
        import sys, brindle
        app = brindle.create(sys.argv[1])
        maps = lambda: open("/proc/self/maps").read()
        app.javascript
        assert "Qt6Qml" not in maps() and "BrindleQtScript" not in maps()
        assert app.javascript.eval("1 + 1") == 2
        assert "Qt6Qml" in maps()
        """
    done = run_alone(code, str(tmp_path / "project"))
    assert (done.returncode, done.stderr) == (0, "")


def test_eval_gives_the_last_value(js):
    assert str(js) == "JavascriptInterface()"
    for code, value in (("20 + 1", 21), ("0.5", 0.5), ("'text'", "text"), ("true", True), ("null", None),
                        ("undefined", None), ("var x = 3; x", 3), ("x + 1", 4)):
        result = js.evaluate(code)
        assert (type(result), result) == (type(value), value)
    made = js.eval("({a: 1})")
    assert (type(made), made.type, made["a"]) == (brindle.JavascriptObject, "OBJECT", 1)


def test_a_syntax_error_names_memory_and_line_1_and_leaves_nothing_behind(js):
    message = message_of(lambda: js.eval("var x = ;"))
    assert message.startswith("Uncaught exception running script file memory at line 1: SyntaxError: Expected token")
    assert js.eval("1 + 1") == 2


@pytest.mark.parametrize("code, text", [
    ("throw 42", "Uncaught exception running script file memory at line 0: 42\n<global>()@:1"),
    ("throw undefined", "Uncaught exception running script file memory at line 0: undefined\n<global>()@:1"),
    ("\n\nthrow new Error('no')", "Uncaught exception running script file memory at line 3: Error: no\n<global>()@:3"),
    ("new Error('given')", "Uncaught exception running script file memory at line 1: Error: given\n<global>()@:1"),
    ("nothing", "Uncaught exception running script file memory at line 1: ReferenceError: nothing is not defined\n"
                "<global>()@:1"),
])
def test_what_a_script_throws_is_a_failure_with_its_place(js, code, text):
    assert message_of(lambda: js.eval(code)) == text
    assert js.eval("1") == 1


def test_the_type_words(js):
    words = script(js, """
        var nothing = null, missing = undefined, call = function() {}, list = [], text = '', truth = false, number = 0,
            object = {};
        """)
    object = js.eval("[null, undefined, function() {}, [], {}, new Error('x')]")
    assert [object.type for object in (object[2], object[3], object[4], object[5])] == [
        "FUNCTION", "ARRAY", "OBJECT", "OBJECT"]
    assert words.type == "ROOT"
    assert str(words) == ("Contents: Type : ROOT, Script Path : , Is Script Loaded : True, Contained Object Contents: "
                          "Type : ROOT, 'call' : function call() { [native code] }, 'list' : ARRAY, 'missing' : undefined, "
                          "'nothing' : null, 'number' : 0, 'object' : [object Object], 'text' : STRING, 'truth' : false")


def test_values_go_in_and_come_out(js):
    same = script(js, "function same(v) { return v } function text(v) { return JSON.stringify(v) }")
    for value in (1, 1.5, "text", "", True, None, "\u00e4\U0001f600"):
        assert same["same"].call([value]) == value
    assert same["text"].call([[1, "a", None, {"b": [True]}]]) == '[1,"a",null,{"b":[true]}]'
    array = same["same"].call([[1, [2, 3], {"k": "v"}]])
    assert (len(array), array[0], list(array[1]), array[2]["k"]) == (3, 1, [2, 3], "v")
    assert same["same"].call([array]).type == "ARRAY"
    kept = js.eval("({n: 1})")
    same["same"].call([kept])["n"] = 5
    assert kept["n"] == 5


def test_an_array_is_a_list(js):
    array = js.eval("[1, 2, 3]")
    assert (len(array), array[-1], array.get(-3), array.list()) == (3, 3, 1, [1, 2, 3])
    for bad in (3, -4):
        assert message_of(lambda: array[bad]) == "Unable to retrieve item in container."
    array[-1] = 30
    assert message_of(lambda: array.set(3, 0)) == "Unable to set item in container."
    assert message_of(lambda: array.set("name", 0)) == "Unable to set item in container."
    array.append(4)
    array.insert(0, 0)
    array.insert(-1, "x")
    array.insert(99, "end")
    assert list(array) == [0, 1, 2, 30, "x", 4, "end"]
    assert (array.pop(), array.pop(0), array.pop(-1), array.pop(99)) == ("end", 0, 4, None)
    assert list(array) == [1, 2, 30, "x"]
    array.remove(2)
    array.remove("missing")
    assert list(array) == [1, 30, "x"]
    assert array["length"] == 3
    array.clear()
    assert (len(array), array.pop(), list(array)) == (0, None, [])


def test_an_object_is_a_map(js):
    object = js.eval("({a: 1, b: null, c: 'x'})")
    assert (len(object), list(object), object["b"], object["missing"]) == (3, ["a", "b", "c"], None, None)
    assert object.list() == [1, None, "x"]
    assert ("a" in object, "b" in object, "missing" in object) == (True, False, False)
    object["d"] = [1]
    object.remove("a")
    object.remove("missing")
    object.append(1)
    object.insert(0, 1)
    assert (list(object), object.pop()) == (["b", "c", "d"], None)
    assert message_of(lambda: object[0]) == "Unable to retrieve item in container."
    assert message_of(lambda: object.set(0, 1)) == "Unable to set item in container."
    assert object._ipython_key_completions_() == ["b", "c", "d"]
    object.clear()
    assert len(object) == 0


def test_contains_compares_with_all_that_lies_inside(js):
    array = js.eval("[1, 'a', [1, [2, {k: [3]}]], {x: {y: 1}}, true, null]")
    for inside in (1, "a", [1, [2, {"k": [3]}]], {"x": {"y": 1}}, True):
        assert inside in array
    for missing in (2, "b", [1, [2, {"k": [4]}]], {"x": {"y": 1, "z": 2}}, {"x": {}}, False, [1], "1"):
        assert missing not in array


def test_values_that_lie_in_themselves_have_a_text_and_can_be_compared(js):
    ring = js.eval("var ring = [1]; ring.push(ring); var other = [1]; other.push(other); [ring]")
    assert js.eval("other") in ring
    assert js.eval("var third = [2]; third.push(third); third") not in ring
    assert str(js.eval("ring")) == "Contents: Type : ARRAY, '0' : 1, '1' : 1,, 'length' : 2"
    deep = js.eval("var a = [], b = []; for (var i = 0; i < 5000; ++i) { a = [a]; b = [b] } [a]")
    assert message_of(lambda: js.eval("b") in deep) == "The values lie more than 1000 levels deep."
    call = js.eval("(function(f) { f(ring) })")
    assert message_of(lambda: call.call([lambda v: v])) == "The values lie more than 1000 levels deep."


def test_a_call_takes_a_list_a_script_object_or_one_value(js):
    join = js.eval("(function() { return [].slice.call(arguments).join() + '/' + (this.name || '') })")
    assert join.call([1, 2]) == "1,2/"
    assert join.call("one") == "one/"
    assert join.call() == "/"
    assert join.call(js.eval("[3, 4]")) == "3,4/"
    assert join.call(js.eval("({a: 5, b: 6})")) == "5,6/"
    assert join([7], {"name": "me"}) == "7/me"
    assert message_of(lambda: js.eval("({})").call([])) == "The current object is not a function."


def test_scripts_of_equal_names_stay_apart(js):
    one = script(js, "var n = 0; function count() { return ++n }")
    other = script(js, "var n = 100; function count() { return n += 10 }")
    kept = one["count"]
    kept.call()
    assert (other["count"].call(), kept.call(), one["n"], other["n"]) == (110, 2, 2, 110)
    one["n"] = 50
    assert kept.call() == 51
    assert js.eval("typeof count") == "undefined"


def test_a_root_object_from_a_text(js):
    root = js.load_string("var a = 1")
    assert (root.source, root.path, root.loaded, root.script, root["a"]) == ("memory", "", True, "var a = 1", 1)
    root.script = "var b = 2"
    assert (list(root), root["b"]) == (["b"], 2)
    root.script = ""
    assert (len(root), root.script, root.path, root.type) == (0, "", "", "ROOT")
    assert message_of(lambda: setattr(root, "script", "(")).startswith("Uncaught exception running script file memory")


def test_a_root_object_from_a_file(js, tmp_path):
    path = tmp_path / "a file.js"
    path.write_text("var a = 1;\nfunction twice(x) { return 2 * x }\n")
    root = js.load_file(path)
    assert (root.source, root.path, root.loaded, root["twice"].call([21])) == (str(path), str(path), True, 42)
    path.write_text("var a = 2")
    root.reload()
    assert root["a"] == 1
    root.reload(True)
    assert (root["a"], list(root)) == (2, ["a"])


def test_errors_in_a_file_name_it_and_the_line_and_what_was_there_is_shown(js, tmp_path):
    path = tmp_path / "rules.js"
    path.write_text("var a = 1;\nfunction fail() {\n  throw new Error('no')\n}\nfail();\nvar b = 2;")
    root = js.load_file(path, delayed=True)
    assert message_of(lambda: root["a"]) == (
        f"Uncaught exception running script file {path} at line 3: Error: no\nfail()@{path}:3\n<global>()@{path}:5")
    assert (root["a"], root["b"]) == (1, None)
    with pytest.raises(brindle.Error):
        js.load_file(path)


def test_a_delayed_script_fails_at_its_first_use(js, tmp_path):
    path = tmp_path / "broken.js"
    path.write_text("\nvar = 1")
    root = js.load_file(path, delayed=True)
    assert f"script file {path} at line 2: SyntaxError" in message_of(lambda: len(root))
    assert len(root) == 0


@pytest.mark.parametrize("content", [None, b"var a = '\xff\xfe'"])
def test_a_file_that_cant_be_read_is_named(js, tmp_path, content):
    path = tmp_path / "unread.js"
    if content is None:
        assert message_of(lambda: js.load_file(path)) == f"Unable to load script from path: {path}"
        path.mkdir()
    else:
        path.write_bytes(content)
    assert message_of(lambda: js.load_file(path)) == f"Unable to load script from path: {path}"


def test_the_scripts_of_the_project_and_the_person(app, js, folder, tmp_path, monkeypatch):
    person = tmp_path / "data"
    (person / "brindle" / "scripts").mkdir(parents=True)
    (folder / "scripts").mkdir(exist_ok=True)
    monkeypatch.setenv("XDG_DATA_HOME", str(person))
    (folder / "scripts" / "names.js").write_text("function who(a) { return 'project' + a } var x = 1; function b() {}")
    (person / "brindle" / "scripts" / "names.js").write_text("function who(a) { return 'person' + a }")
    (person / "brindle" / "scripts" / "own.js").write_text("function who(a) { return this.n + a }")
    (folder / "scripts" / "notes.txt").write_text("no script")
    assert js.available_scripts() == ["names.js", "own.js"]
    assert js.available_script_functions("names.js") == ["b", "who"]
    assert js.eval_available_script("names.js", "who", ["!"]) == "project!"
    assert js.eval_available_script("own.js", "who", ["!"], {"n": "this"}) == "this!"
    assert message_of(lambda: js.available_script_functions("x.js")) == "Unable to find x.js in available scripts."
    assert message_of(lambda: js.eval_available_script("x.js", "f")) == "Unable to find 'x.js' in available scripts."
    own = person / "brindle" / "scripts" / "own.js"
    assert message_of(lambda: js.eval_available_script("own.js", "missing")) == (
        f'Uncaught exception running script file {own} at line 0: Error: The script has no function "missing".')
    broken = folder / "scripts" / "names.js"
    broken.write_bytes(b"\xff")
    assert message_of(lambda: js.available_script_functions("names.js")) == f"Unable to read file: {broken}"


def test_call_function_runs_a_text_by_itself(js):
    assert js.call_function("var n = 2; function f(a, b) { return n + a + b }", "f", [1, 2]) == 5
    assert js.call_function("function f() { return this.k }", "f", None, {"k": 7}) == 7
    result = js.call_function("function f() { return {n: 1} }", "f")
    assert result["n"] == 1
    assert js.eval("typeof f") == "undefined"


def test_functions_of_python_are_called_from_scripts(js):
    call = js.eval("(function(f) { return [f(1, 2), f.call([3, 4]), f.call(), f.call(null, 5), f.apply(null, [6]), typeof f] })")
    assert list(call.call([lambda *a: list(a)])[0]) == [1, 2]
    result = call.call([lambda *a: sum(a)])
    assert list(result) == [3, 7, 0, 5, 6, "function"]
    assert list(js.eval("(function(f) { return [1, 2, 3].map(f) })").call([lambda value, *_: value * 2])) == [2, 4, 6]
    got = []
    js.eval("(function(f) { f([1, {a: 'b'}], null, function() {}) })").call([lambda *a: got.extend(a)])
    assert (got[0], got[1], got[2].type) == ([1, {"a": "b"}], None, "FUNCTION")


def test_an_exception_of_python_comes_out_as_itself_with_both_traces(js):
    def fail(value):
        raise LookupError(f"no {value}")

    call = js.eval("(function outer(f) {\n  return f('key')\n})")
    with pytest.raises(LookupError, match="^no key$") as caught:
        call.call([fail])
    assert "fail" in [entry.name for entry in caught.traceback]
    assert caught.value.__notes__ == ["In Javascript:\n  outer()@:2"]
    caught_there = js.eval("(function(f) { try { f(1) } catch (e) { return e.message } })")
    assert caught_there.call([fail]).startswith("LookupError: no 1\n  in fail (")
    with pytest.raises(SystemExit):
        js.eval("(function(f) { f() })").call([sys.exit])


def test_recursion_ends_in_a_sentence(js):
    deep = js.eval("(function f() { return f() })")
    assert "RangeError: Maximum call stack size exceeded." in message_of(deep.call)
    back = js.eval("(function(f) { return f(f) })")
    with pytest.raises((brindle.Error, RecursionError)) as caught:
        back.call([lambda f: back.call([f])])
    assert "More than 100 calls from the program into scripts" in str(caught.value)
    assert js.eval("1") == 1


def test_a_call_that_spreads_more_than_its_stack_holds_ends_in_a_sentence(tmp_path):
    done = support.run_python("""
import brindle, sys
js = brindle.create(sys.argv[1]).javascript
for items in ("new Array(2e5)", "new Uint8Array(2e5)", "'a'.repeat(2e5)",
              "{[Symbol.iterator]: () => ({next: () => ({value: 1, done: false})})}"):
    try:
        js.eval(f"Math.max(...{items})")
    except brindle.Error as error:
        print(str(error).splitlines()[0].partition(": ")[2])
print(js.eval("var n = 0; for (var item of new Array(2e5)) ++n; n"))
""", tmp_path / "project", env={**os.environ, "QV4_JS_MAX_STACK_SIZE": "1048576"})
    assert done.stdout.splitlines() == ["RangeError: Maximum call stack size exceeded."] * 4 + ["200000"], done.stderr


def test_objects_of_the_project_are_themselves(js, scene, peg):
    read = script(js, """
        function name(n) { return n.name }
        function rename(n, to) { n.name = to; return n.name }
        function fill(n) { var s = 0; for (var i = 0; i < 100; ++i) s += n.name.length; return s }
        function names(scene) { var all = []; for (var n of scene.nodes) all.push(n.name); return all.join() }
        function look(scene) {
            var list = scene.nodes;
            return [list.length, list.get('Top/Arm').name, list.get(0).path, list.list().length,
                    String(list.get('Top/Arm'))].join()
        }
        function place(n) { return n.position.x }
        """)
    assert read["name"].call([peg]) == "Arm"
    assert read["rename"].call([peg, "Leg"]) == "Leg"
    assert peg.name == "Leg"
    brindle.application().project.history.undo(1)
    assert read["fill"].call([peg]) == 300
    assert set(read["names"].call([scene]).split(",")) == {node.name for node in scene.nodes}
    assert read["look"].call([scene]) == f"{len(scene.nodes)},Arm,{scene.nodes[0].path},{len(scene.nodes)},{peg}"
    assert read["place"].call([peg]) == peg.position.x
    same = js.eval("(function(n) { return n })").call([peg])
    assert (same.type, same["name"]) == ("VARIANT", "Arm")
    assert read["name"].call([same]) == "Arm"
    got = []
    js.eval("(function(f, n) { f(n) })").call([got.append, peg])
    assert (type(got[0]), got[0].path) == (type(peg), peg.path)


def test_an_object_that_is_gone_says_so_in_a_script(js, scene, peg):
    keep = script(js, "var kept; function keep(n) { kept = n } function name() { return kept.name }")
    keep["keep"].call([peg])
    scene.nodes.remove("Top/Arm")
    assert support.NODE_GONE in message_of(keep["name"].call)
    caught = js.eval("(function(n) { try { return n.name } catch (e) { return e.message } })")
    assert caught.call([keep["kept"]]) == support.NODE_GONE
    wrong = js.eval("(function(n) { n.name = {} })")
    brindle.application().project.history.undo(1)
    assert "Failed to write the property" in message_of(lambda: wrong.call([scene.nodes["Top/Arm"]]))


def test_value_classes_show_their_members(js):
    move = js.eval("(function(p) { p.x += 1; return p.x + p.y })")
    point = brindle.Point2d(2, 3)
    assert (move.call([point]), point.x) == (6, 2)


def test_a_thread_that_comes_in_the_middle_of_a_script_is_refused(js):
    inside, done = threading.Event(), threading.Event()
    messages = []

    def other():
        inside.wait()
        try:
            js.eval("1")
        except brindle.Error as error:
            messages.append(str(error))
        done.set()

    def let_the_other_in():
        inside.set()
        done.wait()

    thread = threading.Thread(target=other)
    thread.start()
    js.eval("(function(f) { f() })").call([let_the_other_in])
    thread.join()
    assert messages == ["Javascript is running on another thread."]


def test_ctrl_c_ends_an_endless_script(js):
    def in_a_moment():
        """Another process presses the keys: a thread wouldn't get Python's lock."""
        return subprocess.Popen(["sh", "-c", f"sleep 0.2; kill -INT {os.getpid()}"])

    for endless in ("while (true);", "try { while (true); } catch (e) {}"):
        with in_a_moment(), pytest.raises(KeyboardInterrupt):
            js.eval(endless)
        assert js.eval("1 + 1") == 2
    # Python's own handler stands there again.
    signal.signal(signal.SIGINT, signal.default_int_handler)
    with in_a_moment(), pytest.raises(KeyboardInterrupt):
        js.eval("(function(f) { while (true) f() })").call([lambda: None])
    assert js.eval("1 + 1") == 2


def test_what_python_gave_a_script_goes_with_it(js):
    class Kept:
        def __call__(self):
            pass

    import weakref
    kept = Kept()
    watched = weakref.ref(kept)
    live = brindle._live_objects()
    js.eval("(function(f) { f() })").call([kept])
    del kept
    js.eval("for (var i = 0; i < 1000000; ++i) ({})")
    js.eval("1")
    gc.collect()
    assert watched() is None
    assert brindle._live_objects() <= live


def test_objects_of_a_session_that_has_ended_are_empty(tmp_path):
    code = """
        import sys, atexit, brindle
        app = brindle.create(sys.argv[1])
        kept = app.javascript.eval("({a: 1, f: function() {}})")
        function = kept["f"]
        js = app.javascript
        app.close()
        assert kept["a"] == 1
        brindle._brindle._shut = True
        """
    done = run_alone(code, str(tmp_path / "project"))
    assert (done.returncode, done.stderr) == (0, "")


@pytest.mark.parametrize("order", ["before", "behind"])
def test_a_qapplication_may_be_made_before_or_behind(tmp_path, order):
    pytest.importorskip("PyQt6")
    code = """
        import sys, brindle
        from PyQt6.QtWidgets import QApplication, QWidget
        from PyQt6.QtCore import QTimer
        if sys.argv[2] == "before":
            qt = QApplication([])
        app = brindle.create(sys.argv[1])
        assert app.javascript.eval("1 + 1") == 2
        if sys.argv[2] == "behind":
            assert QApplication.instance() is None
            qt = QApplication([])
        assert type(QApplication.instance()) is QApplication
        window = QWidget()
        window.show()
        QTimer.singleShot(10, qt.quit)
        qt.exec()
        assert app.javascript.eval("2 + 2") == 4
        assert app.scene.nodes.create("PEG", "Arm").name == "Arm"
        app.close()
        """
    done = run_alone(code, str(tmp_path / "project"), order, env={**os.environ, "QT_QPA_PLATFORM": "offscreen",
                                                                       "XDG_RUNTIME_DIR": str(tmp_path)})
    assert (done.returncode, done.stderr) == (0, "")


def test_ten_thousand_conversions_grow_nothing(js):
    same = js.eval("(function(v, f) { f(v); return v })")
    value = [1, 2.5, "text", {"a": [True, None]}]
    ignore = lambda v: None
    def turn(count):
        for _ in range(count):
            same.call([value, ignore]).list()
    turn(2000)
    live = brindle._live_objects()
    before = int(pathlib.Path("/proc/self/statm").read_text().split()[1])
    turn(8000)
    grown = int(pathlib.Path("/proc/self/statm").read_text().split()[1]) - before
    assert brindle._live_objects() - live < 1000
    assert grown * 4096 < 20_000_000 or support.SANITIZED


def test_memory_that_runs_out_costs_the_scripts_and_not_the_process(tmp_path):
    code = """
        import resource, sys, brindle
        app = brindle.create(sys.argv[1])
        js = app.javascript
        kept = js.eval("({n: 1})")
        resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))
        for _ in range(2):
            try:
                js.eval("(function() { return 'x'.repeat(2 ** 30).repeat(8).length })()")
            except MemoryError:
                pass
            assert js.eval("[1, 2].map(function(x) { return x * 2 }).join()") == "2,4"
        assert len(kept) == 0 and kept["n"] is None, "it went with its engine"
        """
    done = run_alone(code, str(tmp_path / "project"))
    assert (done.returncode, done.stderr) == (0, "")


def test_values_are_empty_behind_the_end_of_the_session(tmp_path):
    code = """
        import atexit, sys

        @atexit.register  # Ahead of the module's own, so it runs behind that.
        def late():
            assert (len(kept), kept["n"], list(kept), kept.type) == (0, None, [], "UNKNOWN")
            for call in (lambda: kept.set("m", 1), lambda: function.call([1]), lambda: js.eval("1"),
                         lambda: js.load_string("1")):
                try:
                    call()
                except brindle.Error as error:
                    print(error)

        import brindle
        app = brindle.create(sys.argv[1])
        js = app.javascript
        kept = js.eval("({n: 1})")
        function = js.eval("(function(x) { return x })")
        """
    done = run_alone(code, str(tmp_path / "project"))
    assert (done.returncode, done.stderr) == (0, "")
    assert done.stdout.splitlines() == ["Unable to set item in container.", *["Object is no longer valid."] * 3]
