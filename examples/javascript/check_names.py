"""Checks the names of a project's nodes by the rules in naming.js, a script that other tools may share.

    ./run examples/javascript/check_names.py PROJECT [--longest 24] [--except Top/Display ...]

Prints a line for each problem, and fails when there is one. The rules get the scene itself, and their result is used here.
"""

import argparse
import pathlib
import sys

import brindle

RULES = pathlib.Path(__file__).with_name("naming.js")
PREFIXES = {"PEG": "P_", "READ": "D_", "CAMERA": "C_"}


def problems(app: brindle.Application, longest: int, exceptions: list[str]) -> list[tuple[str, str]]:
    rules = {"prefixes": PREFIXES, "longest": longest, "except": exceptions}
    found = app.javascript.load_file(RULES)["check"]
    assert isinstance(found, brindle.JavascriptObject)
    result = found.call([app.scene, rules])
    assert isinstance(result, brindle.JavascriptObject)
    return [(str(entry["path"]), str(entry["problem"])) for entry in result.list()
            if isinstance(entry, brindle.JavascriptObject)]


def main() -> int:
    parser = argparse.ArgumentParser(prog="check_names", description="Checks the names of a project's nodes.")
    parser.add_argument("project", help="the project's folder")
    parser.add_argument("--longest", type=int, default=32, metavar="LETTERS", help="for a name; 32 by default")
    parser.add_argument("--except", dest="exceptions", nargs="*", default=[], metavar="PATH", help="nodes to leave out")
    options = parser.parse_args()
    try:
        with brindle.open(options.project, read_only=True) as app:
            found = problems(app, options.longest, options.exceptions)
    except brindle.Error as error:
        raise SystemExit(f"check_names: {error}")
    for path, problem in found:
        print(f"{path} {problem}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
