#!/usr/bin/python3
"""Writes the pictures and the tables of docs/geometry.md with the module itself.

    PYTHONPATH=build/dev/python examples/geometry/write_page.py           writes what has changed
    PYTHONPATH=build/dev/python examples/geometry/write_page.py --check   tells whether all is up to date
"""

import pathlib
import re
import sys

import pictures
import readers

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs" / "geometry.md"
IMAGES = ROOT / "docs" / "images"


def with_tables(text: str, tables: dict[str, str]) -> str:
    """The page with each table between its marks."""
    for name, table in tables.items():
        begin, end = f"<!-- begin {name} -->", f"<!-- end {name} -->"
        text, found = re.subn(f"{begin}.*?{end}", lambda _: f"{begin}\n{table}\n{end}", text, flags=re.DOTALL)
        if found != 1:
            sys.exit(f"{PAGE.name} has {found} places for the table {name}")
    return text


def bring_up_to_date(written: dict[pathlib.Path, str], script: str) -> int:
    """Writes the files whose text isn't theirs any more; with --check it only names them. Gives the exit code."""
    stale = [path for path, text in written.items() if not path.exists() or path.read_text() != text]
    if "--check" in sys.argv[1:]:
        for path in stale:
            print(f"{path.relative_to(ROOT)} is not up to date: run {script}")
        return 1 if stale else 0
    for path in stale:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(written[path])
        print(f"wrote {path.relative_to(ROOT)}")
    return 0


def main() -> int:
    written = {IMAGES / f"{draw.__name__}.svg": draw() for draw in pictures.PICTURES}
    written[PAGE] = with_tables(PAGE.read_text(), readers.tables())
    return bring_up_to_date(written, "examples/geometry/write_page.py")


if __name__ == "__main__":
    sys.exit(main())
