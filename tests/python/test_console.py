"""The console's own module, without a window: statements, blocks, files, completion, streams."""

import builtins
import sys
import types

import brindle
import pytest


class WithItsStreams:
    """A console whose streams are in place whenever it is used: pytest puts its own there ahead of the test."""

    def __init__(self, console, **more):
        self.__dict__.update(more, _console=console, _streams=(sys.stdin, sys.stdout, sys.stderr))

    def __getattr__(self, name):
        sys.stdin, sys.stdout, sys.stderr = self._streams
        return getattr(self._console, name)


@pytest.fixture
def console(monkeypatch):
    """A console of this process, with what it printed; the process has its streams and names back at the end."""
    for name in ("stdin", "stdout", "stderr", "argv"):
        monkeypatch.setattr(sys, name, getattr(sys, name))
    monkeypatch.setattr(sys, "path", list(sys.path))
    names = vars(sys.modules["__main__"])
    before = dict(names)
    from brindle import _console

    printed = []
    made = _console.Console(lambda text: printed.append(("out", text)), lambda text: printed.append(("err", text)))
    yield WithItsStreams(made, printed=printed, text=lambda: "".join(text for _, text in printed))
    names.clear()
    names.update(before)
    builtins.__dict__.pop("_", None)


DONE, INCOMPLETE, LEAVE = 0, 1, 2


@pytest.mark.parametrize("lines, outcomes, text", [
    (["1 + 1"], [DONE], "2\n"), (["None"], [DONE], ""), ([""], [DONE], ""), (["# nothing"], [DONE], ""),
    (["if True:", "    'a'", ""], [INCOMPLETE, INCOMPLETE, DONE], "'a'\n"),
    (["x = '''a", "b'''", "x"], [INCOMPLETE, DONE, DONE], "'a\\nb'\n"),
    (["(", ")"], [INCOMPLETE, DONE], "()\n"),
    (["1; 2"], [DONE], "1\n2\n"),
    (["from __future__ import annotations", "def f(x: nothing): pass", "", "f.__annotations__"],
     [DONE, INCOMPLETE, DONE, DONE], "{'x': 'nothing'}\n"),
])
def test_lines_make_statements(console, lines, outcomes, text):
    assert [console.push_line(line) for line in lines] == outcomes
    assert console.text() == text


@pytest.mark.parametrize("line, last", [
    ("1 / 0", "ZeroDivisionError: division by zero"), ("x = 1 1", "SyntaxError: invalid syntax"),
    ("def f(:", "SyntaxError: invalid syntax"), ("x = 'a", "SyntaxError: unterminated string literal (detected at line 1)"),
    ("  1", "IndentationError: unexpected indent"), ("return", "SyntaxError: 'return' outside function"),
    ("a\0b", "ValueError: source code string cannot contain null bytes"),
    ("raise KeyboardInterrupt", "KeyboardInterrupt"), ("raise ValueError('\\ud800')", "ValueError: \\ud800"),
])
def test_an_error_is_printed_as_one(console, line, last):
    assert console.push_line(line) == DONE
    assert console.text().splitlines()[-1] == last
    assert {kind for kind, _ in console.printed} == {"err"}
    console.printed.clear()
    assert console.push_line("1") == DONE and console.text() == "1\n"


@pytest.mark.parametrize("block, outcome, text", [
    ("def f():\n    x = 1\n\n    return x\nf()", DONE, "1\n"), ("1\n\n\n2", DONE, "1\n2\n"), ("", DONE, ""),
    ("if True:\n    1\nelse:\n    2", DONE, "1\n"), ("def f():", INCOMPLETE, ""), ("x = [1,\n2,", INCOMPLETE, ""),
    ("from __future__ import annotations\ndef f(x: nothing): pass\nf.__annotations__", DONE, "{'x': 'nothing'}\n"),
])
def test_a_block_may_hold_any_number_of_statements(console, block, outcome, text):
    assert console.push_block(block) == outcome
    assert console.text() == text


def test_a_block_goes_on_with_what_was_typed_before(console):
    assert console.push_line("x = [1,") == INCOMPLETE
    assert console.push_block("2,\n3]\nx") == DONE
    assert console.text() == "[1, 2, 3]\n"


def test_a_block_stops_at_its_first_error(console):
    assert console.push_block("1\n1 / 0\n2") == DONE
    assert console.text().startswith("1\nTraceback") and console.text().endswith("division by zero\n")
    console.printed.clear()
    assert console.push_block("1\n2 2") == DONE
    assert console.text().endswith("SyntaxError: invalid syntax\n") and "1\n" not in console.text().splitlines()


@pytest.mark.parametrize("status, code, text", [
    ("", 0, ""), ("None", 0, ""), ("0", 0, ""), ("7", 7, ""), ("True", 1, ""), ("256", 0, ""), ("-1", 255, ""),
    ("'It went wrong.'", 1, "It went wrong.\n"), ("10 ** 30", 0, ""),
])
def test_a_statement_may_ask_to_end_the_process(console, status, code, text):
    for line in (f"import sys; sys.exit({status})", f"exit({status})", f"raise SystemExit({status})"):
        console.printed.clear()
        assert console.push_line(line) == LEAVE
        assert (console.exit_code, console.text()) == (code, text)
    assert console.push_line("1") == DONE


def test_what_was_typed_can_be_forgotten(console):
    assert console.push_line("if True:") == INCOMPLETE
    assert console.discard() == DONE
    assert console.push_line("2") == DONE
    assert console.text() == "2\n"


def test_a_file_runs_among_the_names_of_the_console(console, tmp_path):
    (tmp_path / "helper.py").write_text("value = 5\n")
    script = tmp_path / "go.py"
    script.write_text("# coding: latin-1\nimport helper, sys\nseen = helper.value, sys.argv, __name__, __file__, 'ä'\n",
                      encoding="latin-1")
    assert console.run_file(str(script), ["a"]) == DONE
    assert console.text() == ""
    assert console.locals["seen"] == (5, [str(script), "a"], "__main__", str(script), "ä")


@pytest.mark.parametrize("content, last", [
    ("x = (", "SyntaxError: '(' was never closed"), ("1 / 0", "ZeroDivisionError: division by zero"),
    ("\0", "ValueError: source code string cannot contain null bytes"),
    ("raise SystemExit(3)", None),
])
def test_a_file_that_fails_says_why(console, tmp_path, content, last):
    script = tmp_path / "go.py"
    script.write_text(content)
    assert console.run_file(str(script), []) == (DONE if last else LEAVE)
    assert console.text().splitlines()[-1:] == ([last] if last else [])


def test_a_syntax_error_shows_its_place(console):
    assert console.push_line("x = 1 +") == DONE
    assert console.text() == ('  File "<console>", line 1\n    x = 1 +\n           ^\nSyntaxError: invalid syntax\n')


def test_a_file_that_is_not_there_is_one_sentence(console, tmp_path):
    assert console.run_file(str(tmp_path / "no.py"), []) == DONE
    assert console.run_file(str(tmp_path), []) == DONE
    assert console.text() == (f'Cannot run "{tmp_path}/no.py": No such file or directory.\n'
                              f'Cannot run "{tmp_path}": Is a directory.\n')


class Things:
    alpha = alpine = 1
    _hidden = 2
    items = [3, "text"]
    table = {"a.b": 4, "it's": 5}

    @property
    def bad(self):
        raise RuntimeError

    def __dir__(self):
        return ["alpha", "alpine", "_hidden", "items", "table", "bad"]


class Odd:
    def __init__(self, result):
        self.result = result

    def __dir__(self):
        if isinstance(self.result, BaseException):
            raise self.result
        return self.result


@pytest.mark.parametrize("line, word, candidates", [
    ("things.al", "al", ["alpha", "alpine"]), ("x = (things.al", "al", ["alpha", "alpine"]),
    ("things._", "_", ["_hidden"]), ("things.items[0].bit_l", "bit_l", ["bit_length"]),
    ("things.items[-1].isup", "isup", ["isupper"]), ('things.table["a.b"].bit_l', "bit_l", ["bit_length"]),
    ('things.table["it\'s"].bit_l', "bit_l", ["bit_length"]), ("thing", "thing", ["things"]),
    ("whi", "whi", ["while"]), ("isinsta", "isinsta", ["isinstance"]), ("things.bad.", "", []), ("odd.", "", []),
    ("ending.", "", []), ("interrupted.", "", []), ("named.", "", ["ok"]), ("things.no.", "", []),
    ("things.items[9].", "", []), ("called().", "", []), ("things.items[called()].", "", []), ("1.", "", []),
    ("'text'.", "", []), (").", "", []), ("", "", None), ("\U0001f600 = things.al", "al", ["alpha", "alpine"]),
])
def test_completion_tells_what_a_word_may_become(console, line, word, candidates):
    def called():
        raise AssertionError("completion made a call")

    console.locals.update(things=Things(), odd=Odd([1, 2]), ending=Odd(SystemExit(3)), interrupted=Odd(KeyboardInterrupt()),
                          named=Odd(["a b", "", "ok", "\ud800"]), called=called)
    start, found = console.completions(line)
    assert start == len(line.encode("utf-16-le")) // 2 - len(word)
    if candidates is None:
        assert {"things", "while", "print"} <= set(found)
    else:
        assert found == candidates


class Mapping:
    """What a mapping-like object offers to completers."""

    def __init__(self, keys):
        self._keys = keys

    def _ipython_key_completions_(self):
        if isinstance(self._keys, BaseException):
            raise self._keys
        return self._keys


PATHS = ["Top/Arm", "Top/Body", "Top/Group/Hand"]


@pytest.mark.parametrize("line, typed, keys", [
    ("nodes['Top/", "Top/", PATHS), ('x = nodes["Top/G', "Top/G", ["Top/Group/Hand"]), ("nodes['", "", PATHS),
    ("nodes [ r'Top/A", "Top/A", ["Top/Arm"]), ("nodes['Bottom", "Bottom", []), ('nodes["""Top/A', "Top/A", ["Top/Arm"]),
    ("holder.nodes['Top/A", "Top/A", ["Top/Arm"]), ("nodes['\\x54op/A", "\\x54op/A", ["Top/Arm"]),
    ("'a' + \"it's\" + nodes['Top/B", "Top/B", ["Top/Body"]), ("\U0001f600 = nodes['Top/B", "Top/B", ["Top/Body"]),
    ("table['", "", ["a\\n", "it\\'s", 'say "', "\\\\"]), ('table["', "", ["a\\n", "it's", 'say \\"', "\\\\"]),
    ("table[r'", "", ['say "']), ("nodes['\\", "\\", []), ("nodes[f'Top/", "Top/", []), ("nodes[b'Top/", "Top/", []),
    ("nodes('Top/", "Top/", []), ("print('Top/", "Top/", []), ("x = 'pri", "pri", []), ("plain['", "", []),
    ("failing['", "", []), ("ending['", "", []), ("called()['", "", []), ("none['", "", []), ("['", "", []),
    ("nodes['Top/Arm'], nodes['Top/B", "Top/B", ["Top/Body"]), ("# nodes['Top/", " nodes['Top/", []),
    ("nodes # pri", " pri", []), ("'''a # ''' + nodes['Top/B", "Top/B", ["Top/Body"]),
])
def test_an_open_text_becomes_a_key_or_nothing(console, line, typed, keys):
    def called():
        raise AssertionError("completion made a call")

    console.locals.update(
        nodes=Mapping([*PATHS, 5, None, "Top/\ud800"]), holder=types.SimpleNamespace(nodes=Mapping(PATHS)),
        table={"it's": 1, 'say "': 2, "a\n": 3, "\\": 4, 7: 5}, plain=object(), failing=Mapping(RuntimeError()),
        ending=Mapping(KeyboardInterrupt()), none=Mapping(None), called=called)
    assert console.completions(line) == (len(line.encode("utf-16-le")) // 2 - len(typed), sorted(keys))


def test_a_text_over_several_lines_becomes_nothing(console):
    console.locals["table"] = {"print": 1}
    assert console.push_line("table['''") == INCOMPLETE
    assert console.completions("pri") == (0, [])
    assert console.completions("''', pri") == (5, ["print"])
    assert console.completions("'''] + table['p") == (14, ["print"])


def test_completion_of_the_object_model_leaves_out_what_dir_does(console, app):
    console.locals["app"] = app
    start, found = console.completions("app.scene.")
    assert start == 10
    assert found == sorted(name for name in dir(app.scene) if not name.startswith("_"))


def test_an_object_that_lists_nothing_is_completed_from_its_class(console, app):
    console.locals["app"] = app
    assert dir(app.clipboard) == []
    assert console.completions("app.clipboard.paste") == (
        14, ["paste", "paste_action_template", "paste_new_nodes", "paste_template", "paste_template_into_group"])


def test_prints_reach_the_application_and_nothing_can_be_typed(console):
    console.discard()
    print("out", "\ud800")
    print("err", file=sys.stderr)
    assert [(kind, text) for kind, text in console.printed if text.strip()] == [
        ("out", "out"), ("out", "\\ud800"), ("err", "err")]
    assert sys.stdout.write("four") == 4
    assert (sys.stdout.encoding, sys.stdout.isatty(), sys.stdin.readline()) == ("utf-8", False, "")
    with pytest.raises(TypeError, match="write\\(\\) argument must be str, not bytes"):
        sys.stdout.write(b"four")
    sys.stdout.close()
    sys.stdin.close()
    print("still")
    assert ("out", "still") in console.printed
    with pytest.raises(EOFError):
        input()


def test_the_application_is_at_hand(console):
    assert console.locals["brindle"] is brindle
    assert console.locals["app"] is brindle.application()
