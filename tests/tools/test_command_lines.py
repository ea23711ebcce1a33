#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""What make and the scripts say to what nobody can mean. Run as: test_command_lines.py <source folder>"""

import os
import subprocess
import sys
import unittest

ROOT = sys.argv.pop(1)
SCRIPTS = sorted(name for name in os.listdir(os.path.join(ROOT, "tools")))


def run(*command):
    # Within make the variables of its caller would be taken, and the folder be told.
    environment = {name: value for name, value in os.environ.items()
                   if name not in ("MAKEFLAGS", "MAKEOVERRIDES", "MAKELEVEL", "MFLAGS")}
    return subprocess.run(command, cwd=ROOT, env=environment, stdin=subprocess.DEVNULL, capture_output=True,
                          encoding="utf-8", timeout=60, check=False)


class TestCommandLines(unittest.TestCase):
    def test_every_script_has_help(self):
        self.assertIn("setup", SCRIPTS)
        for name in SCRIPTS:
            with self.subTest(name):
                result = run(f"tools/{name}", "--help")
                self.assertEqual(result.returncode, 0, result.stderr)
                self.assertRegex(result.stdout, f"usage: (tools/)?{name}")

    def test_every_script_refuses_an_unknown_option(self):
        for name in SCRIPTS:
            with self.subTest(name):
                result = run(f"tools/{name}", "--nonsense")
                self.assertIn(result.returncode, (1, 2), result.stderr)
                self.assertRegex(result.stderr, f"(tools/)?{name}")
                self.assertEqual(result.stdout, "")

    def test_make_refuses_a_wrong_value_before_it_builds(self):
        for target, name, value in (("test", "JOBS", "0"), ("test", "JOBS", ""), ("mutation", "MUTATIONS", "abc"),
                                    ("fuzz", "FUZZ_SECONDS", "1.5"), ("fuzz", "FUZZ_JOBS", "-1"),
                                    ("fuzz", "FUZZ_TARGETS", "script nonsense")):
            with self.subTest(f"{name}={value}"):
                result = run("make", "--dry-run", "SETUP=:", target, f"{name}={value}")
                self.assertEqual(result.returncode, 2, result.stdout)
                self.assertIn(f"{name}={value}: ", result.stderr)
                self.assertEqual(result.stdout, "")

    def test_make_builds_the_fuzzers_that_are_asked_for(self):
        result = run("make", "--dry-run", "SETUP=:", "fuzz", "FUZZ_TARGETS=script menufile")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn("--target fuzz_script fuzz_menufile", result.stdout)


if __name__ == "__main__":
    unittest.main()
