// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How the note buttons are painted in each of their states.

#include "editor/note_button.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include "editor/note_keyboard.h"
#include "paint/colours.h"
#include "support/paint_counter.h"
#include "support/recorded_painting.h"

namespace tonalith::editor {
namespace {

using tests::Drawing;
using tests::Drawn;

class NoteButtonLook : public testing::Test {
 protected:
  NoteButtonLook() {
    window_.resize(300, 100);
    window_.show();
    window_.activateWindow();
    other_.setFocus();
    QApplication::processEvents();
  }
  [[nodiscard]] std::string Look() { return tests::RecordPainting(note_).AsText(); }

  QWidget window_;
  NoteButton note_{1, &window_};
  NoteButton other_{2, &window_};
};

TEST_F(NoteButtonLook, UnselectedNoteIsACaptionInAThinFrame) {
  EXPECT_EQ(Look(),
            "round 5 at 4,4 66x50 fill #ffffff line #9a948c 1.2 smooth\n"
            "\"C#\" #c4c4c4 19px bold\n");
}

TEST_F(NoteButtonLook, SelectedNoteHasAHeavyFrameAndATick) {
  note_.SetColours(kSelectedColours);
  EXPECT_EQ(Look(),
            "round 14 at 4,4 66x50 fill #ccffcc line #1f6b2e 2.6 smooth\n"
            "path 50.5,15 55,19.5 62,11.5 at 50.5,11.5 11.5x8 line #1f6b2e 2.4 smooth\n"
            "\"C#\" #000000 19px bold\n");
}

TEST_F(NoteButtonLook, FocusedNoteHasARingInTheAccentColour) {
  note_.setFocus();
  EXPECT_EQ(Look(),
            "round 5 at 4,4 66x50 fill #ffffff line #9a948c 1.2 smooth\n"
            "round 8 at 1,1 72x56 line #d0440e 2 smooth\n"
            "\"C#\" #c4c4c4 19px bold\n");
  note_.SetColours(kSelectedColours);
  EXPECT_EQ(Look(),
            "round 14 at 4,4 66x50 fill #ccffcc line #1f6b2e 2.6 smooth\n"
            "round 17 at 1,1 72x56 line #d0440e 2 smooth\n"
            "path 50.5,15 55,19.5 62,11.5 at 50.5,11.5 11.5x8 line #1f6b2e 2.4 smooth\n"
            "\"C#\" #000000 19px bold\n");
}

TEST_F(NoteButtonLook, PressedNoteHasAGreenFrame) {
  note_.setDown(true);
  EXPECT_EQ(Look(),
            "round 5 at 4,4 66x50 fill #ffffff line #1f6b2e 1.2 smooth\n"
            "\"C#\" #c4c4c4 19px bold\n");
}

TEST_F(NoteButtonLook, NoteUnderThePointerHasAGreenFrameWhileEnabled) {
  const std::string plain = Look();
  note_.setAttribute(Qt::WA_UnderMouse);
  EXPECT_NE(Look(), plain);
  EXPECT_TRUE(tests::RecordPainting(note_).OutlinedWith(QColor(0x9a, 0x94, 0x8c)).empty());
  note_.setEnabled(false);
  EXPECT_EQ(Look(), plain) << "a disabled note cannot be clicked";
}

TEST_F(NoteButtonLook, CaptionIsInTheMiddle) {
  const Drawn caption = tests::RecordPainting(note_).Text(QStringLiteral("C#"));
  EXPECT_NEAR(caption.box.center().x(), note_.width() / 2.0, 1);
  EXPECT_NEAR(caption.box.center().y(), note_.height() / 2.0, 2);
}

TEST_F(NoteButtonLook, NewColoursRepaintAndCheckTheBox) {
  NoteColours both = kUnselectedColours;
  both.back = kSelectedColours.back;
  note_.SetColours(both);
  EXPECT_FALSE(note_.isChecked());
  EXPECT_EQ(tests::RecordPainting(note_).FilledWith(QColor(0xcc, 0xff, 0xcc)).size(), 1U);
  note_.SetColours(kSelectedColours);
  EXPECT_TRUE(note_.isChecked());
  QApplication::processEvents();
  const tests::PaintCounter paints(note_);
  note_.SetColours(both);
  QApplication::processEvents();
  EXPECT_EQ(paints.Count(), 1);
  note_.SetColours(both);
  QApplication::processEvents();
  EXPECT_EQ(paints.Count(), 1) << "nothing changed";
}

TEST_F(NoteButtonLook, EnterAndSpaceClick) {
  const QSignalSpy clicked(&note_, &QAbstractButton::clicked);
  for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) QTest::keyClick(&note_, key);
  EXPECT_EQ(clicked.count(), 3);
  EXPECT_FALSE(note_.isChecked()) << "the form decides";
  QTest::keyClick(&note_, Qt::Key_A);
  EXPECT_EQ(clicked.count(), 3);
}

TEST_F(NoteButtonLook, ClickCountsOnTheWholeButton) {
  const QSignalSpy clicked(&note_, &QAbstractButton::clicked);
  QTest::mouseClick(&note_, Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
  QTest::mouseClick(&note_, Qt::LeftButton, Qt::NoModifier, QPoint(note_.width() - 2, note_.height() - 2));
  EXPECT_EQ(clicked.count(), 2);
}

TEST(NoteKeyboardLook, SharpsAreAboveTheGapsBetweenTheirNaturals) {
  const NoteKeyboard keyboard(nullptr);
  std::vector<const NoteButton*> notes;
  for (int i = 0; i < 12; ++i) {
    notes.push_back(keyboard.findChild<NoteButton*>(QStringLiteral("note%1").arg(i)));
    ASSERT_NE(notes.back(), nullptr) << i;
    EXPECT_TRUE(keyboard.rect().contains(notes.back()->geometry())) << i;
  }
  const int naturals = notes[0]->y();
  const int gap = notes[2]->x() - notes[0]->geometry().right() - 1;
  EXPECT_GT(gap, 0);
  for (std::size_t i = 1; i < notes.size(); ++i) {
    if (notes[i]->text().size() == 1) {
      const NoteButton& before = *notes[notes[i - 1]->text().size() == 1 ? i - 1 : i - 2];
      EXPECT_EQ(notes[i]->y(), naturals) << i;
      EXPECT_EQ(notes[i]->x(), before.geometry().right() + 1 + gap) << i;
    } else {
      const double middle = (notes[i - 1]->geometry().center().x() + notes[i + 1]->geometry().center().x()) / 2.0;
      EXPECT_NEAR(notes[i]->geometry().center().x(), middle, 0.5) << i;
      EXPECT_EQ(notes[i]->geometry().bottom() + 1 + gap, naturals) << i;
    }
  }
  EXPECT_EQ(keyboard.size(), QSize(notes[11]->geometry().right() + 1, notes[11]->geometry().bottom() + 1));
}

}  // namespace
}  // namespace tonalith::editor
