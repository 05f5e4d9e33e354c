# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Tests what tools/mutate changes, and what it leaves alone."""

import random
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools/analysis"))

from mutants import draw, mutants_of  # noqa: E402
from rooms import Room, TestProgram, own_tests, room_of_file, targets  # noqa: E402


def changed(text):
    """The mutants of a source text, as the texts that they give."""
    return [mutant.apply(text) for mutant in mutants_of("a.cpp", text)]


class Mutants(unittest.TestCase):
    """Which places of a source are changed, and into what."""

    def test_comparisons_move_their_bound_or_turn_round(self):
        self.assertEqual(changed("x = a < b;"), ["x = a <= b;", "x = a >= b;"])
        self.assertEqual(changed("x = a == b;"), ["x = a != b;"])

    def test_arithmetic_and_logical_operators_are_exchanged(self):
        self.assertEqual(changed("x = a + b;"), ["x = a - b;"])
        self.assertEqual(changed("x = a && b;"), ["x = a || b;"])
        self.assertEqual(changed("x += a;"), ["x -= a;"])
        self.assertEqual(changed("++x;"), ["--x;"])

    def test_signs_pointers_and_references_stay(self):
        self.assertEqual(changed("const T& a = -b; T* const c = *d; T&& e = !f; g = &h;"), [])

    def test_integers_change_by_one_and_keep_their_form(self):
        self.assertEqual(changed("x = 5U;"), ["x = 4U;", "x = 6U;"])
        self.assertEqual(changed("x = 0;"), ["x = 1;"])
        self.assertEqual(changed("x = 0xFF;"), ["x = 0x100;", "x = 0xfe;"])
        self.assertEqual(changed("x = 1'000;"), ["x = 1001;", "x = 999;"])
        self.assertEqual(changed("x = 1.5;"), [])

    def test_booleans_are_exchanged(self):
        self.assertEqual(changed("x = true;"), ["x = false;"])

    def test_conditions_are_negated_and_fixed(self):
        self.assertEqual(changed("if (a) b;"), ["if (!(a)) b;", "if (false) b;", "if (true) b;"])
        self.assertEqual(changed("if (c(); a) b;"), ["if (c(); !(a)) b;", "if (c(); false) b;", "if (c(); true) b;"])
        self.assertEqual(changed("while (a) b;"), ["while (!(a)) b;", "while (false) b;"])
        self.assertEqual(changed("if (auto a = b) c;"), [])
        self.assertEqual(changed("if constexpr (a) b;"), [])

    def test_a_statement_that_is_a_call_is_removed(self):
        self.assertEqual(changed("void F() { g(); }"), ["void F() { ; }"])
        self.assertEqual(changed("void F() { a.b()->c<d>(e); }"), ["void F() { ; }"])
        self.assertEqual(changed("void F() {\n  for (auto a : b) g(\n      a);\n}"),
                         ["void F() {\n  for (auto a : b) ;\n}"])

    def test_declarations_and_other_statements_are_not_removed(self):
        self.assertEqual(changed("void F() { return g(); }"), [])
        self.assertEqual(changed("void F() { T a(b); c = d(); }"), [])
        self.assertEqual(changed("void F() { T<U> a(b); }"), [])
        self.assertEqual(changed("class A : public B { A(); A(C c); };"), [])
        self.assertEqual(changed("void F() { a.reserve(b); }"), [])

    def test_comments_strings_and_preprocessor_lines_stay(self):
        self.assertEqual(changed("// if (a) b + 1\n/* c < 2\n 3 */ x = \"true + 1\";"), [])
        self.assertEqual(changed("#if A + 1 \\\n  + 2\n#include <a>\n"), [])
        self.assertEqual(changed("x = R\"(1 + 2)\"; y = '1';"), [])

    def test_template_lists_assertions_and_operator_names_stay(self):
        self.assertEqual(changed("std::array<std::pair<int, 4>, 2> x;"), [])
        self.assertEqual(changed("template <int N = 1> struct A;"), [])
        self.assertEqual(changed("static_assert(a < 1);"), [])
        self.assertEqual(changed("bool operator== (A a); virtual void F() = 0;"), [])

    def test_the_line_is_that_of_the_change(self):
        mutant = mutants_of("a.cpp", "// a\n\nx =\n    true;\n")[0]
        self.assertEqual((mutant.line, mutant.before, mutant.after), (4, "true", "false"))


class Sample(unittest.TestCase):
    """Which mutants are drawn."""

    def setUp(self):
        self.mutants = mutants_of("a.cpp", "x = 1 + 2 + 3 + 4;\n" + "y = true;\n" * 9)

    def test_a_seed_always_draws_the_same(self):
        first, second = ([*draw(self.mutants, random.Random(4))] for _ in range(2))
        self.assertEqual(first, second)
        self.assertNotEqual(first, [*draw(self.mutants, random.Random(5))])

    def test_every_line_gives_one_mutant(self):
        self.assertEqual(sorted(mutant.line for mutant in draw(self.mutants, random.Random(4))), [*range(1, 11)])


class Rooms(unittest.TestCase):
    """Which files and tests belong to a room."""

    def test_a_file_belongs_to_the_deepest_folder(self):
        ports = Room(0, "ports", "t_ports", "src/platform", (), (), ())
        sound = Room(1, "sound", "t_sound", "src/platform/sound", (), (), ())
        self.assertEqual(room_of_file([ports, sound], "src/platform/sound/a.h"), sound)
        self.assertEqual(room_of_file([ports, sound], "src/platform/a.h"), ports)
        self.assertIsNone(room_of_file([ports, sound], "src/other/a.h"))

    def test_own_tests_link_the_room_where_some_do(self):
        room = Room(0, "sound", "t_sound", "src/platform/sound", (), (), ())
        linking, other, above = (TestProgram("a", "platform", ("t_sound",)), TestProgram("b", "platform", ()),
                                 TestProgram("c", "app", ("t_sound",)))
        self.assertEqual(own_tests(room, [linking, other, above]), [linking])
        self.assertEqual(own_tests(room, [other, above]), [above])
        self.assertEqual(own_tests(room, [other]), [other])

    def test_a_room_of_headers_has_no_library(self):
        room = Room(0, "ports", "t_ports", "src/platform", (), (), ())
        tests = [TestProgram("a", "platform", ())]
        self.assertEqual(targets(room, ["src/platform/a.h"], tests), ["tonalith_a_tests"])
        self.assertEqual(targets(room, ["src/platform/a.h", "src/platform/a.cpp"], tests), ["t_ports", "tonalith_a_tests"])


if __name__ == "__main__":
    unittest.main()
