#!/usr/bin/python3
"""Refuses a symbol that the object model's library may not export.

    check_exports.py <library> <folder of the host headers>

The library shows its own namespaces, and what C++ emits for a class of the engine where it is used as a base or thrown
(its type information and virtual table). Anything else that it defines for others is a leak: it is listed, and the
check fails.
"""

import os
import re
import subprocess
import sys

OWN = ("OMC", "tu_attr")
# What the compiler emits beside a class or a function of it.
BESIDE = r"(?:vtable|VTT|construction vtable|guard variable|(?:non-)?virtual thunk|covariant return thunk)"
CLASS = re.compile(r"^\s*(?:class|struct)\s+(?:[A-Z_]+_(?:API|EXPORT)\s+)?(\w+)", re.MULTILINE)


def host_classes(folder):
    names = set()
    for path, _, files in os.walk(folder):
        for name in files:
            if name.endswith(".h"):
                with open(os.path.join(path, name), encoding="utf-8") as text:
                    names.update(CLASS.findall(text.read()))
    return names


def main():
    library, folder = sys.argv[1:]
    own = "|".join(OWN)
    host = "|".join(sorted(re.escape(name) for name in host_classes(folder))) or r"(?!)"
    allowed = re.compile(
        rf"(?:{BESIDE} (?:for|to) |typeinfo (?:name )?for )?(?:{own})::"
        rf"|(?:vtable|VTT|typeinfo(?: name)?) for (?:\w+::)*(?:{host})(?:$|[<:])"
        # A function template's name comes after what it returns.
        rf"|[^(]*[ *&](?:{own})::[^(]*<"
    )
    listing = subprocess.run(
        ["nm", "-D", "--defined-only", "-C", library], check=True, capture_output=True, text=True).stdout
    symbols = [line.split(" ", 2)[2] for line in listing.splitlines()]
    leaks = [symbol for symbol in symbols if not allowed.match(symbol)]
    for symbol in leaks:
        print(f"{os.path.basename(library)} exports {symbol}", file=sys.stderr)
    print(f"{len(symbols)} symbols exported, {len(leaks)} of them may not be")
    return 1 if leaks else 0


if __name__ == "__main__":
    sys.exit(main())
