# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Tests what tools/structure counts."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools/analysis"))

from call_paths import upward_calls  # noqa: E402
from cpp_classes import classes_of  # noqa: E402
from rooms import Room, sources  # noqa: E402
from structure_report import touched_files, used_permissions  # noqa: E402

HEADER = """namespace n {
class A : public B {
 public:
  A(int a) : b_(a), c_{a} {}
  bool F(bool parameter) const;
  void G() { bool local = true; }
 private:
  bool first_ = false;
  mutable bool second_;
  std::atomic<bool> third_{false};
  int number_ = 0;
  struct Inner {
    bool inner = false;
  };
};
class Declared;
}
"""
SOURCE = """namespace n {
A::A() : b_{1}, c_(2) {
  F();
}

bool A::F(bool parameter) const {
  return parameter;
}

int Free(const A& a) {
  return A::G(a);
}
}
"""


class Classes(unittest.TestCase):
    """Lines and booleans of classes."""

    def test_a_class_has_the_lines_of_its_declaration_and_of_its_functions(self):
        figures = classes_of([HEADER, SOURCE])["A"]
        self.assertEqual((figures.declared, figures.defined, figures.lines), (14, 6, 20))

    def test_boolean_members_count_and_other_booleans_do_not(self):
        figures = classes_of([HEADER, SOURCE])
        self.assertEqual(figures["A"].booleans, ["first_", "second_", "third_"])
        self.assertEqual(figures["Inner"].booleans, ["inner"])

    def test_a_class_without_a_body_does_not_count(self):
        self.assertEqual(sorted(classes_of([HEADER, SOURCE])), ["A", "Inner"])


class Permissions(unittest.TestCase):
    """What #include lines use."""

    def test_includes_of_rooms_and_of_foreign_headers_are_found(self):
        low = Room(0, "low", "t_low", "src/low", (), (), ())
        high = Room(1, "high", "t_high", "src/high", ("low",), (), ("Q", "sys/"))
        texts = {"src/high/a.cpp": '#include "high/a.h"\n#include "low/b.h"\n#include <QLabel>\n#include <vector>\n',
                 "src/low/b.h": "#include <sys/types.h>\n"}
        self.assertEqual(used_permissions(high, [low, high], texts), {"low", "<Q>"})


class Calls(unittest.TestCase):
    """Calls from a lower to a higher room."""

    def test_a_call_counts_where_the_callee_is_in_a_higher_room(self):
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            rooms = [Room(0, "controls", "c", "src/controls", (), (), ()), Room(1, "app", "a", "src/app", (), (), ())]
            for file, text in (("controls/a.h", "class DataControl {\n void TakeRow(); void FieldValue(); };\n"),
                               ("app/a.h", "class frmTonalith : public B {\n void Label1_Change(); void ScaleIntervals"
                                "(); };\n")):
                (root / "src" / file).parent.mkdir(parents=True)
                (root / "src" / file).write_text(text, encoding="utf-8")
            upward, count, missing = upward_calls(root, rooms, sources(root, rooms))["record to disc"]
        self.assertEqual(upward, ["DataControl::UpdateBoundControls|DataControl::TakeRow > "
                                  "frmTonalith::Label1_Change (controls > app)"])
        self.assertEqual(count, 2)
        self.assertIn("FretboardView::ShowNotes > MainWindowScale::ScaleIntervals|frmTonalith::ScaleIntervals", missing)


class Patches(unittest.TestCase):
    """Which files a patch touches."""

    def test_changed_new_and_renamed_files_count_once(self):
        patch = ("--- a/src/a.cpp\n+++ b/src/a.cpp\n@@ -1 +1 @@\n-a\n+b\n"
                 "--- /dev/null\n+++ b/src/new.cpp\nrename from src/old.h\nrename to src/other.h\n")
        self.assertEqual(touched_files(patch), ["src/a.cpp", "src/new.cpp", "src/old.h", "src/other.h"])


if __name__ == "__main__":
    unittest.main()
