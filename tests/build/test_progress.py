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


def test_a_test_run_shows_each_entry_and_all_of_a_failure():
    said = thinned("test", "Test project /x\n      Start  1: a\n"
                   "1/3 Test  #1: a ....   Passed    0.01 sec\n      Start  2: b\n"
                   "2/3 Test  #2: b ....***Failed    0.01 sec\nexpected 1\n\ngot 2\n"
                   "3/3 Test  #3: c ....   Passed   12.34 sec\n\n67% tests passed, 1 tests failed out of 3\n")
    assert said == ["test: a passed (0.01 sec)", "2/3 Test  #2: b ....***Failed    0.01 sec", "expected 1", "", "got 2",
                    "test: c passed (12.34 sec)", "67% tests passed, 1 tests failed out of 3"]


def test_of_a_test_program_that_fails_the_cases_that_pass_are_left_out():
    said = thinned("test", "1/1 Test #1: core_tests.1 ....***Failed    0.01 sec\n"
                   "[----------] 2 tests from A\n"
                   "[ RUN      ] A.Passes\nsaid on the way\n[       OK ] A.Passes (0 ms)\n"
                   "[ RUN      ] A.Fails\nexpected 1\n\ngot 2\n[  FAILED  ] A.Fails (0 ms)\n"
                   "[ RUN      ] A.Passes2\n[       OK ] A.Passes2 (0 ms)\n")
    assert said == ["1/1 Test #1: core_tests.1 ....***Failed    0.01 sec",
                    "[ RUN      ] A.Fails", "expected 1", "", "got 2", "[  FAILED  ] A.Fails (0 ms)"]


def test_of_a_test_program_that_crashes_the_case_is_shown_in_which_it_did():
    said = thinned("test", "1/2 Test #1: core_tests.1 ....***Exception: SegFault  0.01 sec\n"
                   "[ RUN      ] A.Passes\n[       OK ] A.Passes (0 ms)\n[ RUN      ] A.Crashes\nso far\n"
                   "2/2 Test #2: core_tests.2 ....   Passed    0.01 sec\n")
    assert said == ["1/2 Test #1: core_tests.1 ....***Exception: SegFault  0.01 sec",
                    "[ RUN      ] A.Crashes", "so far", "test: core_tests.2 passed (0.01 sec)"]
