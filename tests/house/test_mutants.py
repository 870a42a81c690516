#!/usr/bin/env python3
"""The faults that scripts/mutants plants stand where it says, and nowhere in comments."""

import importlib.machinery
import importlib.util
import json
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
        self.assertEqual(planted("x = a - b;\n"), [("arithmetic", "x = a + b;\n")])
        self.assertEqual(planted("x = ++a;\n"), [("step", "x = --a;\n")])

    def test_a_term_is_left_out(self):
        self.assertEqual(
            planted("if (a && b(c || 1.5) || d)\n"),
            [
                ("condition", "if (!(a && b(c || 1.5) || d))\n"),
                ("first", "if (b(c || 1.5) || d)\n"),
                ("logic", "if (a || b(c || 1.5) || d)\n"),
                ("term", "if (a || d)\n"),
                ("first", "if (a && b(1.5) || d)\n"),
                ("logic", "if (a && b(c && 1.5) || d)\n"),
                ("term", "if (a && b(c) || d)\n"),
                ("logic", "if (a && b(c || 1.5) && d)\n"),
                ("term", "if (a && b(c || 1.5))\n"),
            ],
        )
        self.assertEqual([kind for kind, _ in planted("x = a == b && c;\n")], ["comparison", "logic", "term"])

    def test_the_branches_of_a_choice_are_exchanged(self):
        self.assertEqual(planted('x = f(a ? b(c, d) : "e", g());\n')[0], ("choice", 'x = f(a ? "e" : b(c, d), g());\n'))
        self.assertEqual(planted("x = a ? b : c;\n"), [("choice", "x = a ? c : b;\n")])

    def test_a_function_becomes_its_twin(self):
        self.assertEqual(planted("x = std::min(a, b);\n"), [("twin", "x = std::max(a, b);\n")])
        self.assertEqual(planted("x = a.first + left;\n")[0], ("twin", "x = a.second + left;\n"))
        self.assertEqual(planted("x = a.firstOf();\n"), [])

    def test_two_calls_are_exchanged(self):
        self.assertEqual(planted("    f(a);\n    b.g(h());\n")[0], ("sequence", "    b.g(h());\n    f(a);\n"))
        for lines in ("    f(a);\n        g(b);\n", "    f(a);\n    b = c;\n"):
            self.assertEqual([kind for kind, _ in planted(lines)], ["statement", "statement"])

    def test_brackets_of_templates_are_no_comparisons(self):
        self.assertEqual(planted("std::vector<int> x;\n"), [])

    def test_a_condition_is_turned_round(self):
        self.assertEqual(planted('if (is(")"))\n'), [("condition", 'if (!(is(")")))\n'), ("text", 'if (is(""))\n')])
        self.assertEqual(planted("x = !a;\n"), [("negation", "x = a;\n")])

    def test_numbers_and_truths_change(self):
        self.assertEqual(planted("f(9);\n"), [("number", "f(10);\n")])
        self.assertEqual(planted("f(true);\n"), [("truth", "f(false);\n")])
        self.assertEqual(planted("int a9 = 1.5;\n"), [])

    def test_a_statement_is_taken_out(self):
        self.assertEqual(planted("{\n    f(a);\n}\n"), [("statement", "{\n\n}\n")])
        self.assertEqual(planted("{\n    a.reserve(b);\n}\n"), [])

    def test_a_result_becomes_a_default(self):
        self.assertEqual(planted("return a.b();\n"), [("return", "return {};\n")])
        self.assertEqual(planted('return {};\nreturn std::nullopt;\nreturn "";\n'), [])

    def test_ways_out_and_branches_are_taken_out(self):
        self.assertEqual(planted("continue;\n"), [("jump", "{}\n")])
        self.assertEqual(planted("} else {\n"), [("else", "} else if (false) {\n")])

    def test_operands_are_swapped(self):
        self.assertEqual(planted("x = f(a, b.c, d);\n"), [("operands", "x = f(b.c, a, d);\n")])
        self.assertNotIn("operands", [kind for kind, _ in planted("x = std::min(a, b);\n")])
        self.assertEqual(planted("x = f(a(), b);\nx = f(a, a);\nvoid f(int a, int b) {\n"), [])

    def test_an_index_is_off_by_one(self):
        self.assertEqual(planted("x = a[i];\nx = [i] { g(); };\n"), [("index", "x = a[i + 1];\nx = [i] { g(); };\n")])

    def test_a_name_becomes_another_of_its_kind(self):
        self.assertEqual(
            planted("x = Ball::First;\ny = Ball::Second;\n"),
            [("name", "x = Ball::Second;\ny = Ball::Second;\n"), ("name", "x = Ball::First;\ny = Ball::First;\n")],
        )
        self.assertEqual(planted("x = Ball::First;\n"), [])

    def test_a_row_of_a_table_is_taken_out_or_exchanged_with_the_next(self):
        table = "    {a},\n    {b},\n"
        self.assertEqual(planted(table), [("order", "    {b},\n    {a},\n"), ("row", "    {b},\n"), ("row", "    {a},\n")])

    def test_a_text_loses_a_letter_and_changes_one(self):
        self.assertEqual(planted('f("Ab.");\n'), [("letter", 'f("Ae.");\n'), ("text", 'f("b.");\n')])

    def test_faults_can_be_given(self):
        source = "a();\nb();\na();\n"
        with tempfile.TemporaryDirectory() as folder:
            mutants.ROOT = Path(folder)
            Path(folder, "a.cpp").write_text(source, encoding="utf-8")
            given = Path(folder, "faults.json")

            def plant(find):
                given.write_text(json.dumps([{"file": "a.cpp", "find": find, "instead": "c();"}]), encoding="utf-8")
                return [(fault.kind, fault.planted(source)) for fault in mutants.given_faults(given)]

            self.assertEqual(plant("b();\na();"), [("given", "a();\nc();\n")])
            for find in ("a();", "d();"):
                with self.assertRaises(SystemExit):
                    plant(find)

    def test_comments_and_includes_stay(self):
        self.assertEqual(planted('#include "a < b"\n// a < b, "9"\n/* 9\n + 9 */\n'), [])

    def test_a_line_is_told_in_one_line(self):
        fault = mutants.Fault("a.cpp", 0, 8, "order", "  c,\n  b\n")
        self.assertEqual(fault.told("  b,\n  c\n"), "a.cpp: b, c -> c, b")

    def test_a_comment_in_a_text_is_none(self):
        self.assertEqual(planted('f("//", a == b);\n')[-1], ("comparison", 'f("//", a != b);\n'))

    def test_a_line_is_told_as_it_becomes(self):
        fault = mutants.Fault("a.cpp", 6, 7, "number", "2")
        self.assertEqual(fault.told("{\n  f(1);\n}\n"), "a.cpp: f(1); -> f(2);")

    def test_each_fault_of_the_list_can_still_be_planted_and_has_its_reason(self):
        mutants.ROOT = SCRIPT.parents[1]
        lines = (mutants.ROOT / "tests" / "mutants.txt").read_text(encoding="utf-8").splitlines()
        for line, reason in zip(lines, lines[1:] + [""]):
            if line.startswith("src/"):
                file = line.split(":")[0]
                source = (mutants.ROOT / file).read_text(encoding="utf-8")
                self.assertIn(line, [fault.told(source) for fault in mutants.faults_of(file)])
                self.assertRegex(reason, "^    [A-Z].*[.]$")


if __name__ == "__main__":
    unittest.main()
