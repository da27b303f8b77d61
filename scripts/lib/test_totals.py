#!/usr/bin/env python3
# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""test_totals.py TIER...: prints each tier's own closing lines, then the sum of all of them.

Reads what scripts/test left in build/: the exit code and the output of the tier, and ctest's log,
which holds the full output of every test program (NUnit's stands in the tier's own output). Exits
with 1 when something failed.
"""

import re
import sys
from dataclasses import dataclass
from pathlib import Path

BUILD = Path(__file__).resolve().parents[2] / "build"

# ctest begins each entry of its log with the first, and ends it with the second if it passed.
ENTRY = re.compile(r"^\d+/\d+ Testing: (.+)$", re.M)
ENTRY_PASSED = re.compile(r"^Test Pass(?:ed| Reason)\b", re.M)
GTEST_RAN = re.compile(r"^\[=+\] (\d+) tests? from \d+ test (?:suites?|cases?) ran\..*$", re.M)
GTEST_RESULT = re.compile(r"^\[  (PASSED|SKIPPED|FAILED)  ?\] (\d+) tests?\b.*$", re.M)
UNITTEST = re.compile(r"^Ran (\d+) tests? in .*$", re.M)
UNITTEST_RESULT = re.compile(r"^(?:OK|FAILED)(?: \((.*)\))?$", re.M)
CTEST = re.compile(r"^\d+% tests passed, \d+ tests? failed out of \d+$", re.M)
NUNIT = re.compile(
    r"^Tests run: (\d+), Errors: (\d+), Failures: (\d+), Inconclusive: (\d+),.*\n"
    r" +Not run: (\d+),.*$",
    re.M,
)
STYLE = re.compile(r"^style: (\d+) checks? passed(?:, (\d+) failed)?$", re.M)


@dataclass
class Counts:
    passed: int = 0
    failed: int = 0
    skipped: int = 0

    def add(self, other):
        self.passed += other.passed
        self.failed += other.failed
        self.skipped += other.skipped


def gtest_counts(output, lines):
    ran = GTEST_RAN.search(output)
    if not ran:
        return None
    lines.append(ran.group(0))
    counts = Counts()
    for result in GTEST_RESULT.finditer(output, ran.end()):
        lines.append(result.group(0))
        setattr(counts, result.group(1).lower(), int(result.group(2)))
    return counts


def unittest_counts(output, lines):
    ran = UNITTEST.search(output)
    result = ran and UNITTEST_RESULT.search(output, ran.end())
    if not result:
        return None
    lines += [ran.group(0), result.group(0)]
    parts = dict(re.findall(r"(\w+)=(\d+)", result.group(1) or ""))
    counts = Counts(failed=int(parts.get("failures", 0)) + int(parts.get("errors", 0)))
    counts.skipped = int(parts.get("skipped", 0))
    # A sub-test may fail more than once within its test.
    counts.passed = max(0, int(ran.group(1)) - counts.failed - counts.skipped)
    return counts


def nunit_counts(match):
    ran, errors, failures, inconclusive, skipped = (int(number) for number in match.groups())
    failed = errors + failures + inconclusive
    return Counts(ran - failed, failed, skipped)


def entry_counts(name, output, passed, lines):
    """Counts of one ctest entry: its runner's own, or one for an entry without a runner."""
    found = []
    counts = gtest_counts(output, found) or unittest_counts(output, found)
    if counts is None:
        counts = Counts(passed=1) if passed else Counts(failed=1)
    elif not passed and counts.failed == 0:
        counts.failed = 1  # a crash, a leak or a time-out after the last test
    lines += [f"  {name}: {line}" for line in found]
    return counts


def tier_counts(tier, lines):
    counts = Counts()
    code = int((BUILD / "test-results" / f"{tier}.code").read_text())
    log = (BUILD / "test-results" / f"{tier}.log").read_text(errors="replace")
    details = BUILD / tier / "Testing" / "Temporary" / "LastTest.log"
    if details.exists():
        text = details.read_text(errors="replace").replace("\r", "")
        parts = ENTRY.split(text)[1:]
        for name, output in zip(parts[0::2], parts[1::2]):
            counts.add(entry_counts(name, output, bool(ENTRY_PASSED.search(output)), lines))
    for total in CTEST.finditer(log):
        lines.append(f"  {total.group(0)}")
    for total in NUNIT.finditer(log):
        lines += [f"  {line}" for line in total.group(0).splitlines()]
        counts.add(nunit_counts(total))
    for total in STYLE.finditer(log):
        lines.append(f"  {total.group(0)}")
        counts.add(Counts(int(total.group(1)), int(total.group(2) or 0)))
    if code != 0 and counts.failed == 0:
        counts.failed = 1  # it did not get as far as its tests
    return counts, code


def main(tiers):
    total = Counts()
    print("=== totals")
    for tier in tiers:
        lines = []
        counts, code = tier_counts(tier, lines)
        print(f"{tier}: {'passed' if code == 0 else 'FAILED'}")
        print("\n".join(lines), end="\n" if lines else "")
        total.add(counts)
    skipped = f", {total.skipped} skipped" if total.skipped else ""
    print(f"{total.passed} passed, {total.failed} failed{skipped}")
    return 1 if total.failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
