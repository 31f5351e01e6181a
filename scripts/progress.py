#!/usr/bin/python3
"""Thins out what ninja or ctest says on a pipe, line by line as it comes.

    ninja ... | progress.py build     a line for each tenth of the build; what a compiler says stays
    ctest ... | progress.py test      a line for each entry that passes; of the others, what isn't about a case that passes

Ninja's status has to be "[%p] " (NINJA_STATUS).
"""

import re
import sys

STATUS = re.compile(r"\[ *(\d+)%\] (.*)")
BUILD_NOISE = re.compile(r"-- |ninja: (Entering directory|no work to do)")
TEST_PASSED = re.compile(r"\s*\d+/\d+ Test +#\d+: (\S+) .* Passed +([\d.]+ sec)")
CASE_BEGINS = ("[ RUN      ]",)
CASE_ENDS = ("[  FAILED  ]", "[  SKIPPED ]")
CASE_NOISE = ("[----------]", "[==========]")
TEST_NOISE = re.compile(r"QStandardPaths: XDG_RUNTIME_DIR not set| *Start +\d+: |Internal ctest changing|Test project |\s*$")


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
    failing = False
    # The output of the running GoogleTest case; it is shown if the case fails.
    case = []
    for line in lines:
        passed = TEST_PASSED.match(line)
        if case and line.startswith("[       OK ]"):
            case = []
        elif case and not passed and not line.startswith(CASE_BEGINS + CASE_ENDS):
            case.append(line)
        else:
            yield from case
            case = []
            if passed:
                failing = False
                yield f"test: {passed[1]} passed ({passed[2]})\n"
            elif line.startswith(CASE_BEGINS):
                case = [line]
            elif not line.startswith(CASE_NOISE) and (failing or not TEST_NOISE.match(line)):
                # The output of a failing test follows its line, blank lines included.
                failing = True
                yield line
    yield from case


def main():
    for line in {"build": build, "test": test}[sys.argv[1]](sys.stdin):
        sys.stdout.write(line)
        sys.stdout.flush()


if __name__ == "__main__":
    main()
