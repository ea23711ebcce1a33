#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""The mistakes that tools/mutate finds to make. Run as: test_mutate.py <tools/mutate>"""

import importlib.machinery
import importlib.util
import os
import sys
import tempfile
import unittest

loader = importlib.machinery.SourceFileLoader("mutate", sys.argv.pop(1))
mutate = importlib.util.module_from_spec(importlib.util.spec_from_loader("mutate", loader))
loader.exec_module(mutate)


def function(body):
    return mutate.Source("f.cpp", "void f()\n{\n" + body + "\n}\n")


def whats(body):
    return sorted(mutation.what for mutation in function(body).mutations)


class TestMutations(unittest.TestCase):
    def test_operators(self):
        self.assertEqual(whats("    if (a <= b && !c) {\n        d();\n    }"),
                         ["! ->", "&& -> ||", "<= -> <", "drop d();", "negate a <= b && !c"])
        self.assertEqual(whats("    x = y * 2;"), ["* -> /", "2 -> 3", "drop x = y * 2;"])

    def test_pointers_templates_and_streams_are_no_operators(self):
        self.assertEqual(whats("    const QMap<int, Type*>* a = b<c>(&d) << e;"), [])

    def test_constants(self):
        for number, changed in (("0", "1"), ("1", "0"), ("7", "8"), ("1u", "0u"), ("0xFF", "0x100"), ("1e-14", "2e-14"),
                                ("0.5", "0.6"), ("5.29", "5.28")):
            self.assertEqual(mutate.changed_number(number), changed)
        self.assertEqual(whats("    const bool a = true;"), ["true -> false"])
        self.assertEqual(whats("    const char a = 'S';"), ["'S' -> 'T'"])

    def test_texts_but_not_comments_and_includes(self):
        self.assertEqual(whats('    // "1"\n    const char* a = "b \\" 1";'), ['"b \\" 1" -> "xb \\" 1"'])
        self.assertEqual(mutate.Source("f.cpp", '#include "a.h"\nstatic_assert(1 == 1, "b");\n').mutations, [])

    def test_order_of_calls_but_not_of_assignments(self):
        self.assertEqual([what for what in whats("    a();\n    b();\n    c = d;\n    e = g;") if "swap" in what],
                         ["swap a(); b();", "swap b(); c = d;"])

    def test_last_return_stays(self):
        self.assertEqual(whats("    if (a) {\n        return b;\n    }\n    return c;"),
                         ["drop return b; of if (a)", "negate a"])
        self.assertEqual(whats("    if (a)\n        return b;\n    else\n        return c;"), ["negate a"])

    def test_same_change_of_the_same_line_is_numbered(self):
        source = function("    a();\n    a();")
        self.assertEqual([mutation.what for mutation in source.mutations], ["drop a();", "drop a(); #2"])
        self.assertEqual(len({mutation.id for mutation in source.mutations}), 2)

    def test_choice_follows_the_seed_and_every_kind_takes_its_turn(self):
        body = "\n".join(f"    a{i}(b{i} == c{i});" for i in range(20)) + '\n    d("e");'
        source = function(body)
        order = [mutation.what for mutation in mutate.ordered(source, "1")]
        self.assertEqual(order, [mutation.what for mutation in mutate.ordered(function(body), "1")])
        self.assertNotEqual(order, [mutation.what for mutation in mutate.ordered(source, "2")])
        self.assertIn('"e" -> "xe"', order[:4])
        self.assertEqual(mutate.shares({"f.cpp": source}, 10), {"f.cpp": 10})

    def test_equivalents_are_checked(self):
        sources = {"f.cpp": function("    a();")}
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "equivalent.txt")

            def read(text):
                with open(path, "w", encoding="utf-8") as stream:
                    stream.write(text)
                return mutate.read_equivalent(path, sources)

            self.assertEqual(read("# comment\n\nf.cpp\na();\ndrop a();\nFirst line\nand second.\n"),
                             {("f.cpp", "a();", "drop a();"): "First line and second."})
            with self.assertRaisesRegex(mutate.Failure, ":1: f.cpp has no such mutation any more"):
                read("f.cpp\nb();\ndrop b();\nReason.\n")
            with self.assertRaisesRegex(mutate.Failure, ":1: an entry has four lines"):
                read("f.cpp\na();\ndrop a();\n")
            with self.assertRaisesRegex(mutate.Failure, ":6: this mutation is listed twice"):
                read("f.cpp\na();\ndrop a();\nReason.\n\nf.cpp\na();\ndrop a();\nReason.\n")


if __name__ == "__main__":
    unittest.main()
