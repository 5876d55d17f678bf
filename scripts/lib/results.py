#!/usr/bin/env python3
"""Tells what the last run of a build's tests came to, from the reports that it left; ./test and scripts/figures ask.

    scripts/lib/results.py BUILD [--whole]

Names each test that failed or was skipped and each program that broke off, and ends with "N passed, N failed". A skipped
test is in neither number. A program that broke off, or left no report, counts as one failed test. Ends with 1 when
something failed, and with 2 when the tests were not run. --whole asks that no test of the build was left out.
"""

import argparse
import dataclasses
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

_REPORT = "--gtest_output=xml:"


@dataclasses.dataclass
class Totals:
    passed: int = 0
    failed: int = 0

    def fail(self, what):
        self.failed += 1
        print(f"failed: {what}")

    def skip(self, what):
        print(f"skipped: {what}")


def entries(build):
    """The build's entries of ctest: name and command. Listing the tests of a folder starts a new log there, so they are
    listed from another one."""
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "CTestTestfile.cmake").write_text(f'subdirs("{build.resolve()}")\n')
        listing = ["ctest", "--test-dir", folder, "--show-only=json-v1"]
        tests = json.loads(subprocess.run(listing, check=True, capture_output=True, text=True).stdout)["tests"]
    return {test["name"]: test.get("command", []) for test in tests}


def report_of(command):
    """Where a program of Google tests writes its report; None for any other command."""
    return next((pathlib.Path(word[len(_REPORT) :]) for word in command if word.startswith(_REPORT)), None)


def last_begun(output):
    """The test that a program that broke off was in."""
    begun = ended = ""
    for mark, test in re.findall(r"^\[ *(RUN|OK|FAILED|SKIPPED) *\] (\S+)", output, re.M):
        begun, ended = (test, ended) if mark == "RUN" else (begun, test.rstrip(","))
    return begun if begun != ended else ""


def count_program(name, run, report, totals):
    """One program of Google tests."""
    try:
        tests = list(xml.parse(report).iter("testcase"))
    except (OSError, xml.ParseError):
        test = last_begun(run.findtext("system-out", ""))
        totals.fail(f"{name} broke off{' in ' + test if test else ''}")
        return
    before = totals.failed
    ran = 0
    for test in tests:
        title = f"{name}: {test.get('classname')}.{test.get('name')}"
        if test.find("failure") is not None:
            totals.fail(title)
        elif test.get("result") == "completed":
            ran += 1
        else:
            totals.skip(title)
    totals.passed += ran
    if not tests:
        totals.fail(f"{name} has no tests")
    elif run.get("status") == "fail" and totals.failed == before:
        totals.fail(f"{name} passed its tests, and ended with an error")


def count_command(name, run, totals):
    """One entry that is no program of Google tests, or was not begun. ctest says of a program that it does not find that
    it was skipped, too; that is a failure."""
    skipped = run.find("skipped")
    reason = skipped.get("message", "") if skipped is not None else ""
    if run.get("status") == "run":
        totals.passed += 1
    elif reason.startswith(("SKIP_", "Disabled")):
        totals.skip(name)
    else:
        totals.fail(f"{name}: {reason}" if reason else name)


def count(listed, runs):
    totals = Totals()
    for name, run in runs.items():
        report = report_of(listed.get(name, []))
        if report is None or run.get("status") in ("notrun", "disabled"):
            count_command(name, run, totals)
        else:
            count_program(name, run, report, totals)
    return totals


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--whole", action="store_true")
    options = parser.parse_args()

    report = options.build / "results/ctest.xml"
    try:
        runs = {test.get("name"): test for test in xml.parse(report).iter("testcase")}
    except (OSError, xml.ParseError):
        print(f"there is no {report}: the tests were not run, or not to the end")
        return 2
    listed = entries(options.build)
    totals = count(listed, runs)
    left_out = [name for name in listed if name not in runs] if options.whole else []
    for name in left_out:
        print(f"left out: {name}")
    print(f"{totals.passed} passed, {totals.failed} failed")
    return 2 if left_out else int(totals.failed > 0)


sys.exit(main())
