"""What the end of a line that is being typed may become: names, attributes, and the keys of mappings.

The console asks; scripts have no use for it. Nothing is called but what an object says of itself: its names, its keys.
"""

import ast
import builtins
import keyword
import re

# An expression ahead of a dot or a bracket that needs no call to look up: names, attributes, items by a constant.
_CHAIN = re.compile(r"""[^\W\d]\w*(?:\.[^\W\d]\w*|\[(?:[^\[\]"']|"[^"]*"|'[^']*')*\])*$""")
_LOOKED_UP = (ast.Expression, ast.Name, ast.Attribute, ast.Subscript, ast.Constant, ast.UnaryOp, ast.USub, ast.Load)

_OPENING = re.compile(r"""#|([a-zA-Z]*)(\"{3}|'{3}|"|')""")
_LINE_END = re.compile(r"\n|$")


def completions(names, lines, line):
    """Where in the line the word, or the key, at its end begins, and what it may become, sorted.

    `names` are the names at hand; `lines` are those of the statement that come before this one.
    """
    source = "\n".join([*lines, line])
    text = _open_text(source)
    if text is None:
        word = re.search(r"\w*$", line).group()
        start = len(line) - len(word)
        found = {name for name in _names_after(line[:start], names)
                 if isinstance(name, str) and name.isidentifier() and name.startswith(word)
                 and (not name.startswith("_") or word.startswith("_"))}
    else:
        start = max(0, text.start - (len(source) - len(line)))
        found = _keys_in(text, names)
    return start, sorted(found)


class _OpenText:
    """A text, or a comment, that is open at the end of a source."""

    def __init__(self, source, opening):
        self._prefix, self._quotes = opening.group(1), opening.group(2)
        self._typed = source[opening.end():]
        self._before = source[:opening.start()].rstrip()
        self.start = opening.end()

    def mapping(self):
        """The source of the mapping that the text is a key of, or None."""
        is_key = self._quotes and self._before.endswith("[") and self._prefix.lower() in ("", "r", "u")
        return self._before[:-1].rstrip() if is_key and "\n" not in self._typed else None

    def value(self):
        """What was typed of it so far; raises within an escape."""
        return ast.literal_eval(self._prefix + self._quotes + self._typed + self._quotes)

    def written(self, key):
        """A key as this text writes it; None where it can't."""
        # The quote in front makes repr() choose the other one, and escape that.
        body = repr('"' + key)[2:-1]
        if self._quotes[0] == '"':
            body = body.replace("\\'", "'").replace('"', '\\"')
        return None if self._prefix in ("r", "R") and body != key else body


def _open_text(source):
    """The text or comment that is open at the end of a source, or None."""
    end = 0
    while opening := _OPENING.search(source, end):
        quotes = opening.group(2)
        if not quotes:
            end = _LINE_END.search(source, opening.end()).end()
            if end == len(source):
                return _OpenText(source, opening)
            continue
        # A line ends a text of one line, though not as it should.
        inside, closing = (r".", quotes) if len(quotes) == 3 else (r"[^\n]", f"{quotes}|\n")
        closed = re.compile(rf"(?:\\.|(?!\\){inside})*?(?:{closing})", re.DOTALL).match(source, opening.end())
        if not closed:
            return _OpenText(source, opening)
        end = closed.end()
    return None


def _names_after(before, names):
    if not before.endswith("."):
        return [*names, *vars(builtins), *keyword.kwlist]
    try:
        found = _look_up(before[:-1], names)
        # An object that lists no names, as a clipboard, is completed from its class.
        return dir(found) or [name for name in dir(type(found)) if not name.startswith(("get_", "set_"))]
    except BaseException:
        # Whatever an object of the script raises here, nobody asked for it.
        return []


def _keys_in(text, names):
    """The keys that an open text may become, as they are written in it."""
    mapping = text.mapping()
    if mapping is None:
        return set()
    try:
        typed = text.value()
        keys = [key for key in _keys_of(_look_up(mapping, names)) if type(key) is str and key.startswith(typed)]
        return {text.written(key) for key in keys if not re.search("[\ud800-\udfff]", key)} - {None}
    except BaseException:
        return set()


def _keys_of(mapping):
    if isinstance(mapping, dict):
        return list(dict.keys(mapping))
    return type(mapping)._ipython_key_completions_(mapping)


def _look_up(source, names):
    """The object at the end of a source; raises where it takes more than looking up."""
    tree = ast.parse(_CHAIN.search(source).group(), mode="eval")
    if not all(isinstance(node, _LOOKED_UP) for node in ast.walk(tree)):
        raise ValueError("a call")
    return eval(compile(tree, "<completion>", "eval"), names)
