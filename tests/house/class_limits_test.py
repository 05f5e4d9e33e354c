# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Tests the limits of classes, and that the rules find a class that breaks them."""

import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools/analysis"))

from class_limits import MAX_CLASS_LINES, read_folders, spread, too_long  # noqa: E402

HEADER = "class A {\n public:\n  void F();\n  void G();\n};\n"


def function(name, lines):
    """The definition of a member function of that many lines."""
    return f"void {name}() {{\n" + "  x();\n" * (lines - 2) + "}\n"


class ThisProject(unittest.TestCase):
    """The classes of the project."""

    @classmethod
    def setUpClass(cls):
        cls.folders = read_folders(ROOT)

    def test_all_folders_are_read(self):
        for folder in ("src/data", "src/platform/qt", "tests/data", "tools/synth", "bench", "fuzz"):
            self.assertIn(folder, self.folders)

    def test_no_class_is_over_the_limit(self):
        self.assertEqual(too_long(self.folders), [], "split the class by responsibility; two files do not help")

    def test_no_class_is_spread_over_source_files(self):
        self.assertEqual(spread(self.folders), [], "give each responsibility a class of its own")


class TooLong(unittest.TestCase):
    """The rule for the lines of a class."""

    def test_the_limit_counts_declaration_and_definitions_of_all_files(self):
        rest = MAX_CLASS_LINES - 5
        full = {"a.h": HEADER, "a.cpp": function("A::F", rest - 100), "b.cpp": function("A::G", 100)}
        self.assertEqual(too_long({"src/a": full}), [])
        full["b.cpp"] = function("A::G", 101)
        self.assertEqual(too_long({"src/a": full}), [f"src/a: A has {MAX_CLASS_LINES + 1} lines"])

    def test_a_function_in_the_declaration_counts_once(self):
        inside = "class A {\n" + function("F", MAX_CLASS_LINES - 2) + "};\n"
        self.assertEqual(too_long({"src/a": {"a.h": inside}}), [])
        self.assertEqual(too_long({"src/a": {"a.h": inside.replace("};", "int b_;\n};")}}),
                         [f"src/a: A has {MAX_CLASS_LINES + 1} lines"])

    def test_free_functions_and_other_folders_do_not_count(self):
        free = function("F", MAX_CLASS_LINES)
        self.assertEqual(too_long({"src/a": {"a.h": HEADER, "a.cpp": free}, "src/b": {"a.cpp": free}}), [])


class Spread(unittest.TestCase):
    """The rule for the source file of a class."""

    def test_members_in_two_source_files_are_found(self):
        files = {"a.h": HEADER, "a.cpp": function("A::F", 3), "a_edit.cpp": function("A::G", 3)}
        self.assertEqual(spread({"src/a": files}), ["src/a: A is in a.cpp, a_edit.cpp"])

    def test_members_in_one_source_file_and_inline_ones_are_allowed(self):
        files = {"a.h": HEADER + function("inline A::G", 3), "a.cpp": function("A::F", 3), "b.cpp": "int x = A::f();\n"}
        self.assertEqual(spread({"src/a": files}), [])

    def test_local_classes_of_the_same_name_are_allowed(self):
        local = "namespace {\nstruct B {\n  void F();\n};\nvoid B::F() {}\n}\n"
        self.assertEqual(spread({"src/a": {"a.cpp": local, "b.cpp": local}}), [])


if __name__ == "__main__":
    unittest.main()
