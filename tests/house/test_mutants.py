#!/usr/bin/env python3
"""The faults that scripts/mutants plants stand where it says, and nowhere in comments."""

import importlib.machinery
import importlib.util
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "mutants"
LOADER = importlib.machinery.SourceFileLoader("mutants", str(SCRIPT))
mutants = importlib.util.module_from_spec(importlib.util.spec_from_loader("mutants", LOADER))
sys.modules["mutants"] = mutants
LOADER.exec_module(mutants)


def planted(source):
    """What becomes of a source with each of its faults, by kind."""
    with tempfile.TemporaryDirectory() as folder:
        mutants.ROOT = Path(folder)
        Path(folder, "a.cpp").write_text(source, encoding="utf-8")
        return [(fault.kind, fault.planted(source)) for fault in mutants.faults_of("a.cpp")]


class Mutants(unittest.TestCase):
    def test_operators_are_exchanged(self):
        self.assertEqual(planted("x = a <= b;\n"), [("comparison", "x = a < b;\n")])
        self.assertEqual(planted("x = a && b;\n"), [("logic", "x = a || b;\n")])
        self.assertEqual(planted("x = a - b;\n"), [("arithmetic", "x = a + b;\n")])
        self.assertEqual(planted("return ++a;\n"), [("step", "return --a;\n")])

    def test_brackets_of_templates_are_no_comparisons(self):
        self.assertEqual(planted("std::vector<int> x;\n"), [])

    def test_a_condition_is_turned_round(self):
        self.assertEqual(planted('if (is(")"))\n'), [("condition", 'if (!(is(")")))\n'), ("text", 'if (is(""))\n')])
        self.assertEqual(planted("return !a;\n"), [("negation", "return a;\n")])

    def test_numbers_and_truths_change(self):
        self.assertEqual(planted("f(9, true);\n"), [("number", "f(10, true);\n"), ("truth", "f(9, false);\n")])
        self.assertEqual(planted("int a9 = 1.5;\n"), [])

    def test_a_statement_is_taken_out(self):
        self.assertEqual(planted("{\n    f(a);\n}\n"), [("statement", "{\n\n}\n")])

    def test_comments_and_includes_stay(self):
        self.assertEqual(planted('#include "a < b"\n// a < b, "9"\n/* 9\n + 9 */\n'), [])

    def test_a_comment_in_a_text_is_none(self):
        self.assertEqual(planted('f("//", a == b);\n')[-1], ("comparison", 'f("//", a != b);\n'))

    def test_a_line_is_told_as_it_becomes(self):
        fault = mutants.Fault("a.cpp", 6, 7, "number", "2")
        self.assertEqual(fault.told("{\n  f(1);\n}\n"), "a.cpp: f(1); -> f(2);")


if __name__ == "__main__":
    unittest.main()
