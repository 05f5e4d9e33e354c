// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What the form looks like, to the eye and to assistive technology.

#include <QAccessible>
#include <QScopeGuard>
#include <QTest>

#include "controls/colours.h"
#include "editor/editor_fixture.h"

namespace tonalith::editor {
namespace {

using FormLook = ScaleEditorTest;

TEST_F(FormLook, NoteButtonsAreCheckBoxesNamedAfterTheirNote) {
  Open();
  Press(C().cmdModify);
  const auto* const sharp = QAccessible::queryAccessibleInterface(C().Note(1));
  ASSERT_NE(sharp, nullptr);
  EXPECT_EQ(sharp->role(), QAccessible::CheckBox);
  EXPECT_EQ(sharp->text(QAccessible::Name), QStringLiteral("C#"));
  EXPECT_FALSE(sharp->state().checked);
  ClickNotes("C#");
  EXPECT_TRUE(sharp->state().checked);
  EXPECT_EQ(C().Note(1)->Tag(), "C#");
  C().Note(1)->SetTag(" ");
  EXPECT_EQ(C().Note(1)->Tag(), "C");
}

TEST_F(FormLook, EveryReachableControlHasAnAccessibleName) {
  Open();
  Press(C().cmdModify);
  for (QWidget* const widget : Form().findChildren<QWidget*>()) {
    if (!widget->isVisible() || (widget->focusPolicy() & Qt::TabFocus) == 0) continue;
    const auto* const spoken = QAccessible::queryAccessibleInterface(widget);
    EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << widget->objectName().toStdString();
  }
}

TEST_F(FormLook, SelectionIsSeenWithoutColour) {
  Open();
  Press(C().cmdModify);
  C().cmdApply->setFocus();
  const auto grey = [this] { return C().Note(0)->grab().toImage().convertToFormat(QImage::Format_Grayscale8); };
  const auto darkPixels = [](const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) count += qGray(image.pixel(x, y)) < 120 ? 1 : 0;
    }
    return count;
  };
  const int selected = darkPixels(grey());
  ClickNotes("C");
  C().cmdApply->setFocus();
  EXPECT_GT(selected, darkPixels(grey()) + 300) << "heavy frame, tick and black caption";
}

TEST_F(FormLook, CanBeReadWhenTheSystemTurnsDarkAndWhenItTurnsLightAgain) {
  const auto systemAgain = qScopeGuard([] { QApplication::setPalette(QPalette()); });
  Open();
  for (const QRgb ground : {0xFF303034, 0xFFEFEFEF}) {
    QPalette system{QColor(ground)};
    system.setColor(QPalette::WindowText, qGray(ground) < 128 ? Qt::white : Qt::black);
    QApplication::setPalette(system);
    // Qt tells its windows of a new palette only while the application's own loop runs.
    QEvent change(QEvent::ApplicationPaletteChange);
    QCoreApplication::sendEvent(&Form(), &change);
    Settle();
    const QColor paper = Form().palette().color(QPalette::Base);
    int lines = 0;
    for (const QLineEdit* const line : Form().findChildren<QLineEdit*>()) {
      if (!line->isVisible()) continue;
      EXPECT_GE(controls::ContrastRatio(line->palette().color(QPalette::Text), paper), 4.5)
          << line->objectName().toStdString() << " on " << paper.name().toStdString();
      ++lines;
    }
    EXPECT_GE(lines, 5);
  }
}

TEST_F(FormLook, StaysAsWideAsItIsWhateverItTells) {
  Execute("UPDATE Scales SET ScaleName = '" + std::string(300, 'M') + "' WHERE ScaleID = 1");
  Open();
  const QSize size = Form().size();
  Press(C().cmdModify);
  ClickNotes("C# D# F# G# A#");
  Settle();
  EXPECT_EQ(Form().size(), size);
  box_.AnswerNext(core::MsgBoxAnswer::kOk);
  Press(C().cmdApply);
  Settle();
  EXPECT_EQ(Notice().substr(0, 8), "Saved: M");
  EXPECT_EQ(Form().size(), size);
}

TEST_F(FormLook, ClipsNoStepWords) {
  Execute("UPDATE Scales SET ScaleIntervals = '13131111' WHERE ScaleID = 1");
  Open();
  const QLineEdit* const steps = C().txtScaleIntervalTones;
  EXPECT_LE(steps->fontMetrics().horizontalAdvance(steps->text()), steps->width() - 6);
  const QLineEdit* const pattern = C().txtIntervals;
  EXPECT_LE(pattern->fontMetrics().horizontalAdvance(QStringLiteral("111111111111")), pattern->width() - 6);
}

}  // namespace
}  // namespace tonalith::editor
