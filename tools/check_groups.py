#!/usr/bin/env python3
"""Fails when a group of tests that must run in a build was left out.

A group is a CTest label. For each label given, the build must have tests with it, and the
run's JUnit file (ctest --output-junit) must show every one of them run and none skipped:
a tool missing at configure time, a test that skips itself or a label excluded by mistake
all fail here instead of passing quietly.

    check_groups.py <build dir> <junit file> <label>...
"""
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree


def tests_labelled(build_dir, label):
    listing = subprocess.run(
        ["ctest", "--test-dir", build_dir, "-N", "-L", f"^{re.escape(label)}$"],
        check=True, capture_output=True, text=True).stdout
    return {m.group(1).strip() for m in re.finditer(r"^\s*Test\s+#\d+: (.+)$", listing, re.M)}


def outcomes(junit_file):
    """Each test's name with 'run', 'failed' or 'skipped'."""
    result = {}
    for case in ElementTree.parse(junit_file).getroot().iter("testcase"):
        if case.find("skipped") is not None or case.get("status") not in (None, "run", "fail"):
            result[case.get("name")] = "skipped"
        elif case.find("failure") is not None or case.get("status") == "fail":
            result[case.get("name")] = "failed"
        else:
            result[case.get("name")] = "run"
    return result


def main():
    if len(sys.argv) < 4:
        print(__doc__, file=sys.stderr)
        return 2
    build_dir, junit_file, labels = sys.argv[1], sys.argv[2], sys.argv[3:]
    ran = outcomes(junit_file)
    problems = []
    for label in labels:
        names = tests_labelled(build_dir, label)
        done = [n for n in names if ran.get(n) in ("run", "failed")]
        left_out = sorted(n for n in names if ran.get(n) not in ("run", "failed"))
        print(f"  {label:8} {len(names):3} configured, {len(done):3} ran")
        if not names:
            problems.append(f"no tests labelled {label} were configured")
        for name in left_out:
            problems.append(f"{label}: {name} was {ran.get(name, 'not run')}")
    for problem in problems:
        print(f"check_groups: {problem}", file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
