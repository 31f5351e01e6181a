"""What a build or a test run says on a pipe: progress in a few lines, and every word of a failure."""

import pathlib
import subprocess

ROOT = pathlib.Path(__file__).parents[2]


def thinned(mode, text):
    done = subprocess.run(
        ["/usr/bin/python3", ROOT / "scripts/progress.py", mode], input=text, capture_output=True, text=True, check=True)
    return done.stdout.splitlines()


def test_a_build_shows_each_tenth_once_and_all_that_a_compiler_says():
    said = thinned("build", "ninja: Entering directory `x'\n" + "".join(
        f"[{percent:3}%] Building {percent}\n" for percent in range(0, 101, 2))
        + "FAILED: a.o\na.cpp:1:1: error: expected declaration\n")
    assert said == [f"build: {tenth}%" for tenth in range(0, 101, 10)] + [
        "FAILED: a.o", "a.cpp:1:1: error: expected declaration"]


def test_a_build_with_nothing_to_do_says_nothing():
    assert thinned("build", "[  0%] Re-checking globbed directories...\nninja: no work to do.\n") == []


def test_a_test_run_shows_each_hundred_and_all_of_a_failure():
    passing = "".join(f"{n}/201 Test #{n}: A.B ....   Passed    0.01 sec\n" for n in range(1, 201))
    said = thinned("test", f"Test project /x\n      Start  1: A.B\n{passing}"
                   "201/201 Test #201: A.C ....***Failed    0.01 sec\nexpected 1\n\ngot 2\n")
    assert said == ["test: 100 passed", "test: 200 passed",
                    "201/201 Test #201: A.C ....***Failed    0.01 sec", "expected 1", "", "got 2"]
