// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The appearance of the form, and its accessible names and actions.

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QScopeGuard>
#include <QTest>

#include "editor/editor_fixture.h"
#include "editor/text_boxes.h"
#include "paint/colours.h"

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

TEST_F(FormLook, TheToggleActionOfANoteButtonActsAsAClick) {
  Open();
  auto* const actions = QAccessible::queryAccessibleInterface(C().Note(1))->actionInterface();
  actions->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(SelectedNotes(), "C D E F G A B") << "while the form is read-only";
  EXPECT_FALSE(C().Note(1)->isChecked());
  Press(C().cmdModify);
  ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::toggleAction()));
  for (const auto& action : {QAccessibleActionInterface::toggleAction(), QAccessibleActionInterface::pressAction()}) {
    for (const char* const notes : {"C C# D E F G A B", "C D E F G A B"}) {
      actions->doAction(action);
      // A click by accessibility action shows the button as pressed for a while.
      EXPECT_TRUE(QTest::qWaitFor([&] { return SelectedNotes() == notes; })) << action.toStdString();
      EXPECT_EQ(C().Note(1)->isChecked(), IsSelected(C().Note(1)->Colours()));
    }
  }
  actions->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(Notice(), "Apply saves 11212221: S S T S T T T S");
}

TEST_F(FormLook, LongNamesAndTypesShowTheirBeginningAndAnEllipsis) {
  const std::string name = std::string(60, 'M') + " the end";
  const std::string type = std::string(60, 'W') + " the end";
  Execute("UPDATE Scales SET ScaleName = '" + name + "' WHERE ScaleID = 1;" +
          "UPDATE ScaleTypes SET ScaleTypeName = '" + type + "' WHERE ScaleTypeID = 1");
  Open();
  for (const char* const box : {"txtFields(1)", "txtScaleType"}) {
    const auto* const line = Form().findChild<LineBox*>(QLatin1String(box));
    ASSERT_NE(line, nullptr) << box;
    EXPECT_TRUE(line->IsElided()) << box;
  }
  Press(C().cmdModify);
  const auto* const line = Form().findChild<LineBox*>(QStringLiteral("txtFields(1)"));
  ASSERT_TRUE(line->hasFocus());
  EXPECT_FALSE(line->IsElided()) << "what is typed into is shown as it is";
  EXPECT_EQ(line->text().toStdString(), name);
  C().cmdApply->setFocus();
  EXPECT_TRUE(line->IsElided());
}

TEST_F(FormLook, AllFieldsHaveTheSameTextColour) {
  Open();
  const QRgb ink = C().txtScaleType->palette().color(QPalette::Active, QPalette::Text).rgb();
  for (const bool isModifying : {false, true}) {
    if (isModifying) Press(C().cmdModify);
    for (const QWidget* const box : Form().findChildren<QWidget*>()) {
      const bool isBox =
          qobject_cast<const QLineEdit*>(box) != nullptr || qobject_cast<const QPlainTextEdit*>(box) != nullptr;
      if (!isBox || !box->isVisible() || box->objectName() == QLatin1String("qt_spinbox_lineedit")) continue;
      EXPECT_EQ(box->palette().color(QPalette::Text).rgb(), ink) << box->objectName().toStdString();
    }
  }
}

TEST_F(FormLook, TheDescriptionShowsOnlyCompleteLines) {
  std::string words;
  for (int i = 0; i < 120; ++i) words += "word ";
  Execute("UPDATE Scales SET ScaleDescription = '" + words + "' WHERE ScaleID = 1");
  Open();
  const auto* const box = static_cast<QPlainTextEdit*>(C().txtFields[2].box);
  const qreal line = QFontMetricsF(box->font()).lineSpacing();
  const qreal room = box->viewport()->height() - 2 * box->document()->documentMargin();
  EXPECT_GE(room, 4 * line - 1);
  EXPECT_LT(room, 4 * line + 1) << "no piece of the fifth line";
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

TEST_F(FormLook, SelectionIsVisibleWithoutColour) {
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

TEST_F(FormLook, StaysReadableWhenTheThemeChangesToDarkAndBack) {
  const auto systemAgain = qScopeGuard([] { QApplication::setPalette(QPalette()); });
  Open();
  for (const QRgb ground : {0xFF303034, 0xFFEFEFEF}) {
    QPalette system{QColor(ground)};
    system.setColor(QPalette::WindowText, qGray(ground) < 128 ? Qt::white : Qt::black);
    QApplication::setPalette(system);
    // Qt sends palette changes to windows only while the main event loop runs.
    QEvent change(QEvent::ApplicationPaletteChange);
    QCoreApplication::sendEvent(&Form(), &change);
    ProcessEvents();
    const QColor paper = Form().palette().color(QPalette::Base);
    int lines = 0;
    for (const QLineEdit* const line : Form().findChildren<QLineEdit*>()) {
      if (!line->isVisible()) continue;
      EXPECT_GE(paint::ContrastRatio(line->palette().color(QPalette::Text), paper), 4.5)
          << line->objectName().toStdString() << " on " << paper.name().toStdString();
      ++lines;
    }
    EXPECT_GE(lines, 5);
  }
}

TEST_F(FormLook, ANoticeOfAnyLengthKeepsTheWidth) {
  Execute("UPDATE Scales SET ScaleName = '" + std::string(300, 'M') + "' WHERE ScaleID = 1");
  Open();
  const QSize size = Form().size();
  Press(C().cmdModify);
  ClickNotes("C# D# F# G# A#");
  ProcessEvents();
  EXPECT_EQ(Form().size(), size);
  box_.AnswerNext(core::MsgBoxAnswer::kOk);
  Press(C().cmdApply);
  ProcessEvents();
  EXPECT_EQ(Notice().substr(0, 8), "Saved: M");
  EXPECT_EQ(Form().size(), size);
}

TEST_F(FormLook, EveryLabelIsLeftOfItsBox) {
  Open();
  Press(C().cmdModify);
  ProcessEvents();
  const auto boxOf = [this](const QWidget* widget) { return QRect(widget->mapTo(&Form(), QPoint()), widget->size()); };
  int visible = 0;
  for (const QLabel* const label : Form().findChildren<QLabel*>()) {
    if (label->buddy() == nullptr || !label->isVisible() || !label->buddy()->isVisible()) continue;
    ++visible;
    const QRect name = boxOf(label);
    const QRect box = boxOf(label->buddy());
    EXPECT_LE(name.right(), box.left()) << label->text().toStdString();
    EXPECT_TRUE(name.top() <= box.bottom() && box.top() <= name.bottom()) << label->text().toStdString();
  }
  EXPECT_GE(visible, 7);
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
