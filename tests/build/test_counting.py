"""The count that closes a test run is the count of what ran."""

import pathlib
import subprocess

ROOT = pathlib.Path(__file__).parents[2]

CTEST = """<testsuite>
    <testcase name="History.UndoTakesBackOneEntry" status="run"/>
    {}
</testsuite>
"""


def count(build, ctest, **pytest):
    reports = build / "reports"
    reports.mkdir(parents=True, exist_ok=True)
    (reports / "ctest.xml").write_text(CTEST.format(ctest))
    for name, cases in pytest.items():
        (reports / f"{name}.xml").write_text(f"<testsuites><testsuite>{cases}</testsuite></testsuites>")
    done = subprocess.run(
        ["/usr/bin/python3", ROOT / "scripts/count_tests.py", build], capture_output=True, text=True)
    return done.returncode, done.stdout.splitlines()


def test_an_entry_that_ran_pytest_counts_as_its_cases(tmp_path):
    status, lines = count(tmp_path, '<testcase name="python" status="run"/>',
                          python='<testcase classname="a" name="x"/><testcase classname="a" name="y"/>')
    assert (status, lines) == (0, ["3 passed, 0 failed"])


def test_a_part_of_a_test_program_counts_as_the_cases_that_it_ran(tmp_path):
    status, lines = count(tmp_path, '<testcase name="core_tests.1" status="fail"><failure/></testcase>', **{"core_tests.1": (
        '<testcase classname="A" name="X" status="run" result="completed"/>'
        '<testcase classname="A" name="Y" status="run" result="completed"><failure message="1"/></testcase>'
        '<testcase classname="A" name="Z" status="run" result="skipped"><skipped message="2"/></testcase>'
        '<testcase classname="A" name="DISABLED_W" status="notrun" result="suppressed"/>')})
    assert (status, lines) == (1, ["failed: A.Y", "skipped: A.Z", "skipped: A.DISABLED_W", "2 passed, 1 failed"])


def test_failures_of_both_runners_are_named_and_counted(tmp_path):
    status, lines = count(
        tmp_path,
        '<testcase name="layers" status="fail"><failure/></testcase><testcase name="python" status="fail"/>',
        python='<testcase classname="a" name="x"><failure/></testcase><testcase classname="a" name="y"/>')
    assert (status, lines) == (1, ["failed: layers", "failed: a.x", "2 passed, 2 failed"])


def test_a_pytest_run_that_fails_where_no_case_did_counts_as_one_failure(tmp_path):
    status, lines = count(tmp_path, '<testcase name="python" status="fail"><failure/></testcase>',
                          python='<testcase classname="a" name="x"/>')
    assert (status, lines) == (1, ["failed: python", "2 passed, 1 failed"])


def test_a_pytest_run_without_a_report_counts_as_one_failure(tmp_path):
    status, lines = count(tmp_path, '<testcase name="python" status="fail"><failure/></testcase>')
    assert (status, lines) == (1, ["failed: python", "1 passed, 1 failed"])


def test_a_run_without_a_report_is_a_failure(tmp_path):
    done = subprocess.run(
        ["/usr/bin/python3", ROOT / "scripts/count_tests.py", tmp_path], capture_output=True, text=True)
    assert done.returncode == 1
    assert done.stdout.splitlines()[-1] == "0 passed, 1 failed"
