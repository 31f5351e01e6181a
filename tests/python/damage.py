"""Opens a project again and again, with one value of its files changed.

    damage.py FOLDER REPORT

Each change goes to the file REPORT before the project is opened, so that it is known which one ended the process. On
standard output stands, a line each, what came of it that should not: another error than the one sentence, a sentence
that doesn't name the file and the place, a project that opened and does not open any more once it is saved.
"""

import copy
import json
import os
import pathlib
import re
import shutil
import sys

import brindle
import support

VALUES = (None, True, -1, 0, 1, 7, 2**31, 2**53, 1e308, 0.5, "", "x", "Top", "\u0000", "\ud83d\ude00", [], [[]],
          [1, 2, 3], {}, {"x": 1})


def places(value, path=()):
    """The paths to all values inside a value."""
    items = value.items() if isinstance(value, dict) else enumerate(value) if isinstance(value, list) else ()
    for key, item in items:
        yield path + (key,)
        yield from places(item, path + (key,))


def changed(document, path, value):
    result = copy.deepcopy(document)
    inner = result
    for key in path[:-1]:
        inner = inner[key]
    if value is REMOVED:
        del inner[path[-1]]
    elif value is TWICE:
        if not isinstance(inner, list):
            return None
        inner.insert(path[-1], inner[path[-1]])
    else:
        inner[path[-1]] = value
    return result


REMOVED, TWICE = object(), object()


def check(folder, file):
    """What is wrong with the outcome, or nothing."""
    try:
        app = brindle.open(folder)
    except brindle.Error as error:
        # A change of what scenes refer to is told of a scene that refers to it.
        named = re.escape(file) if file.startswith("scenes/") else r'[^"]+\.json'
        sentence = (rf'Cannot open the project: "{re.escape(str(folder))}(/{named})?'
                    r'(" is damaged at line \d+.*|" has format version \d+, and .*|.*" is missing)\.')
        return None if re.fullmatch(sentence, str(error), re.DOTALL) else str(error)
    for node in app.scene.nodes:
        repr(node), repr(node.parent_group())
        for attribute in node.attributes:
            repr(attribute.column)
    app.scene.nodes.create("PEG", "New")
    app.project.history.undo(1)
    app.save()
    once = support.files(folder)
    brindle.open(folder).save()
    return None if support.files(folder) == once else "it is saved otherwise after it was opened"


def main(folder, report):
    app = brindle.create(folder)
    support.samples(app)
    app.save()
    app.close()
    out = os.open(report, os.O_WRONLY | os.O_CREAT | os.O_TRUNC)
    originals = support.files(folder)
    for file, content in originals.items():
        if not file.endswith(".json"):
            continue
        document = json.loads(content)
        for path in places(document):
            for value in (*VALUES, REMOVED, TWICE):
                damaged = changed(document, path, value)
                if damaged is None:
                    continue
                what = f"{file} {path} {'removed' if value is REMOVED else 'twice' if value is TWICE else repr(value)}"
                os.pwrite(out, what.encode("utf-8", "replace").ljust(300), 0)
                (folder / file).write_text(json.dumps(damaged))
                wrong = check(folder, file)
                if wrong:
                    print(f"{what}: {wrong}")
                restore(folder, originals)


def restore(folder, originals):
    for path in support.files(folder).keys() - originals.keys():
        (folder / path).unlink()
    for path, content in originals.items():
        (folder / path).parent.mkdir(exist_ok=True)
        (folder / path).write_bytes(content)
    shutil.rmtree(folder / ".brindle-save", ignore_errors=True)


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]), sys.argv[2])
