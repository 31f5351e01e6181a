#!/usr/bin/python3
"""Thins out what ninja or ctest says on a pipe, line by line as it comes.

    ninja ... | progress.py build     a line for each tenth of the build; what a compiler says stays
    ctest ... | progress.py test      a line for each hundred tests that pass; what the others say stays

Ninja's status has to be "[%p] " (NINJA_STATUS).
"""

import re
import sys

STATUS = re.compile(r"\[ *(\d+)%\] (.*)")
BUILD_NOISE = re.compile(r"-- |ninja: (Entering directory|no work to do)")
TEST_PASSED = re.compile(r"\s*\d+/\d+ Test +#\d+: .* Passed ")
TEST_NOISE = re.compile(r" *Start +\d+: |Internal ctest changing|Test project |\s*$")


def build(lines):
    shown = -1
    for line in lines:
        status = STATUS.match(line)
        if status:
            tenth = int(status[1]) // 10
            if tenth > shown and not status[2].startswith(("Re-checking", "Re-running")):
                shown = tenth
                yield f"build: {status[1]}%\n"
        elif not BUILD_NOISE.match(line):
            yield line


def test(lines):
    passed = 0
    failing = False
    for line in lines:
        if TEST_PASSED.match(line):
            passed += 1
            failing = False
            if passed % 100 == 0:
                yield f"test: {passed} passed\n"
        elif failing or not TEST_NOISE.match(line):
            # What a failing test printed comes behind its line, blank lines and all.
            failing = True
            yield line


def main():
    for line in {"build": build, "test": test}[sys.argv[1]](sys.stdin):
        sys.stdout.write(line)
        sys.stdout.flush()


if __name__ == "__main__":
    main()
