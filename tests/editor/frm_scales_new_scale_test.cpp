// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A new scale made with only Modify, Add, a name, notes and Apply.

#include <QApplication>
#include <QTest>

#include "editor/editor_fixture.h"

namespace tonalith::editor {
namespace {

constexpr auto kOk = core::MsgBoxAnswer::kOk;
constexpr auto kYes = core::MsgBoxAnswer::kYes;

using NewScale = ScaleEditorTest;

TEST_F(NewScale, ListsTheTypesInTheOrderOfTheirNumbers) {
  Execute("INSERT INTO ScaleTypes VALUES (3, 9, 'Last'), (4, 0, 'First')");
  Open();
  EXPECT_EQ(C().Combo1->findText(QStringLiteral("First")), 0);
  EXPECT_EQ(C().Combo1->findText(QStringLiteral("Scales")), 1);
  EXPECT_EQ(C().Combo1->findText(QStringLiteral("Last")), 3);
}

TEST_F(NewScale, StartsAsTheMajorScaleAtTheEndOfItsType) {
  Open(3);
  Press(C().cmdModify);
  Press(C().cmdAdd);
  EXPECT_EQ(Field(0), "");
  EXPECT_EQ(Field(1), "");
  EXPECT_EQ(Field(2), "");
  EXPECT_EQ(Field(3), "2");
  EXPECT_EQ(Field(4), "2212221");
  EXPECT_EQ(Field(5), "C");
  EXPECT_EQ(Field(7), "8");
  EXPECT_FALSE(C().chkFields->isChecked());
  EXPECT_EQ(SelectedNotes(), "C D E F G A B");
  EXPECT_EQ(Rows("SELECT count(*) FROM Scales"), "3") << "pending";
  EXPECT_EQ(Messages(), "");
}

TEST_F(NewScale, IsMadeWithTheMouseAlone) {
  Open();
  Press(C().cmdModify);
  Press(C().cmdAdd);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Mine"));
  ClickNotes("E D#");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Saved("Mine"), "Mine|2122221|1|-|C|0|3");
  EXPECT_EQ(Messages(), kKeep);
  EXPECT_EQ(Field(1), "Major");
}

TEST_F(NewScale, IsMadeWithTheKeyboardAlone) {
  Open();
  const auto key = [this](int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* const focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : form_.data(), static_cast<Qt::Key>(code), modifiers);
  };
  key(Qt::Key_F2);
  key(Qt::Key_A, Qt::AltModifier);
  ASSERT_EQ(Field(0), "") << "at once: what is typed next belongs to the new record";
  EXPECT_EQ(QApplication::focusWidget(), C().txtFields[1].box);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Mine"));
  for (int tabs = 0; tabs < 20 && QApplication::focusWidget() != C().Note(0); ++tabs) key(Qt::Key_Tab);
  ASSERT_EQ(QApplication::focusWidget(), C().Note(0));
  for (int i = 0; i < 3; ++i) key(Qt::Key_Right);
  key(Qt::Key_Space);
  key(Qt::Key_Right);
  key(Qt::Key_Return);
  EXPECT_EQ(SelectedNotes(), "C D D# F G A B");
  box_.AnswerNext(kOk);
  key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Messages(), kKeep);
  EXPECT_EQ(Saved("Mine"), "Mine|2122221|1|-|C|0|3");
}

TEST_F(NewScale, MovesToTheEndOfTheChosenType) {
  Open();
  Press(C().cmdModify);
  Press(C().cmdAdd);
  EXPECT_EQ(Field(7), "3");
  Form().Combo1_Click(1);
  EXPECT_EQ(Field(3), "2");
  EXPECT_EQ(Field(7), "8");
  Replace(7, "5");
  Form().Combo1_Click(0);
  EXPECT_EQ(Field(7), "5") << "somebody chose it";
}

TEST_F(NewScale, AddedTwiceWithoutANameIsReportedOnceAndStays) {
  Open();
  Press(C().cmdModify);
  Press(C().cmdAdd);
  Type(2, "Still here.");
  Press(C().cmdAdd);
  EXPECT_EQ(Messages(), "The scale needs a name.\n");
  EXPECT_EQ(Field(2), "Still here.");
  EXPECT_EQ(Rows("SELECT count(*) FROM Scales"), "3");
}

TEST_F(NewScale, AddedTwiceWithANameSavesTheFirst) {
  Open();
  Press(C().cmdModify);
  Press(C().cmdAdd);
  Type(1, "One");
  Press(C().cmdAdd);
  EXPECT_EQ(Field(1), "");
  EXPECT_EQ(Field(7), "4") << "behind the one that was just saved";
  EXPECT_EQ(Saved("One"), "One|2212221|1|-|C|0|3");
}

TEST_F(NewScale, ThatWasNeverSavedIsDroppedByDelete) {
  Open(2);
  Press(C().cmdModify);
  Press(C().cmdAdd);
  Type(1, "Mine");
  box_.AnswerNext(kYes);
  Press(C().cmdDelete);
  EXPECT_EQ(Field(1), "Natural Minor");
  EXPECT_EQ(Rows("SELECT count(*) FROM Scales"), "3");
  EXPECT_EQ(box_.Messages().size(), 1U);
}

TEST_F(NewScale, CanBeAddedToAnEmptyTable) {
  Execute("DELETE FROM Scales");
  Open();
  Press(C().cmdModify);
  EXPECT_FALSE(C().txtFields[1].box->isEnabled());
  EXPECT_FALSE(C().cmdDelete->isEnabled());
  Press(C().cmdAdd);
  Type(1, "Mine");
  EXPECT_EQ(Field(3), "1");
  EXPECT_EQ(Field(7), "1");
  Press(C().cmdUpdate);
  EXPECT_EQ(Saved("Mine"), "Mine|2212221|1|-|C|0|1");
  EXPECT_EQ(Messages(), "");
}

TEST_F(NewScale, NeedsAnExistingType) {
  Execute("DELETE FROM Scales; DELETE FROM ScaleTypes");
  Open();
  Press(C().cmdModify);
  Press(C().cmdAdd);
  Type(1, "Mine");
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "There is no scale type of this number.\n");
  EXPECT_EQ(Field(1), "Mine");
}

}  // namespace
}  // namespace tonalith::editor
