"""Prints what junitparser reads of a JUnit report: a line per suite and per case, and what a case did not pass by."""

import sys

from junitparser import JUnitXml

report = JUnitXml.fromfile(sys.argv[1])
print(f"{report.tests} tests, {report.failures} failures, {report.errors} errors, {report.skipped} skipped")
for suite in report:
    print(f"suite {suite.name}: {suite.tests} tests, {suite.failures} failures, {suite.errors} errors, "
          f"{suite.skipped} skipped, {suite.time:.3f} s, {suite.timestamp}, {suite.hostname}")
    for case in suite:
        print(f"  {case.classname} | {case.name} | {case.time:.3f} s")
        for result in case.result:
            print(f"    {type(result).__name__} {result.type}: {result.message}")
