#!/usr/bin/python3
"""Counts the tests of one or more builds from the reports that ctest, GoogleTest and pytest wrote.

    count_tests.py <build folder>...

A ctest entry that has a report of its own counts as the cases in it. The last line is "N passed, N failed"; fails when a test did, when a
report is missing, or when nothing ran.
"""

import os
import sys
import xml.etree.ElementTree as xml


def outcome(case):
    """passed, failed or skipped, of one <testcase>."""
    if case.find("failure") is not None or case.find("error") is not None or case.get("status") == "fail":
        return "failed"
    if case.find("skipped") is not None or case.get("status") in ("notrun", "disabled"):
        return "skipped"
    return "passed"


def outcomes(reports):
    """(name, outcome) of every case below a folder of reports."""
    for entry in xml.parse(os.path.join(reports, "ctest.xml")).iter("testcase"):
        own = outcome(entry)
        try:
            cases = list(xml.parse(os.path.join(reports, entry.get("name") + ".xml")).iter("testcase"))
        except FileNotFoundError:
            cases = []
        except xml.ParseError:
            cases, own = [], "failed"
        found = [(f'{case.get("classname")}.{case.get("name")}', outcome(case)) for case in cases]
        yield from found
        # The run itself can fail where no case did: a crash at the interpreter's exit, say.
        if not found or (own == "failed" and all(result != "failed" for _, result in found)):
            yield entry.get("name"), own


def main():
    counts = {"passed": 0, "failed": 0, "skipped": 0}
    for build in sys.argv[1:]:
        try:
            results = list(outcomes(os.path.join(build, "reports")))
        except (OSError, xml.ParseError) as error:
            results = [(f"the report of {build}: {error}", "failed")]
        for name, result in results:
            counts[result] += 1
            if result != "passed":
                print(f"{result}: {name}")
    print("{passed} passed, {failed} failed".format(**counts))
    return 0 if counts["passed"] and not counts["failed"] else 1


if __name__ == "__main__":
    sys.exit(main())
