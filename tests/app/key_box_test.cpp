// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/key_box.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include "core/note_model.h"
#include "paint/colours.h"
#include "paint/theme.h"
#include "support/recorded_painting.h"

namespace tonalith::app {
namespace {

class KeyBoxTest : public testing::Test {
 protected:
  KeyBoxTest() : box_(QStringLiteral("cmbTranspose"), nullptr) {
    for (const auto note : core::kSharpNotes) box_.addItem(QString::fromUtf8(note.data(), note.size()));
    box_.Choose(0);
  }
  void Type(const char* text) {
    box_.lineEdit()->selectAll();
    QTest::keyClicks(&box_, QLatin1String(text));
  }
  /// Returns the text and the index after `text` and Enter.
  std::string Enter(const char* text) {
    box_.Choose(0);
    Type("");
    box_.setEditText(QString::fromUtf8(text));
    QTest::keyClick(&box_, Qt::Key_Return);
    return box_.currentText().toStdString() + " " + std::to_string(box_.ListIndex());
  }
  void Send(QEvent::Type type, int key, quint32 scanCode = 0) {
    QKeyEvent event(type, key, Qt::NoModifier, scanCode, 0, 0);
    QApplication::sendEvent(&box_, &event);
  }
  void Leave(Qt::FocusReason reason) {
    QFocusEvent event(QEvent::FocusOut, reason);
    QApplication::sendEvent(&box_, &event);
  }
  /// Sends one step of the wheel towards the user; returns whether the box accepts it.
  bool TurnWheel() {
    QWheelEvent event(QPointF(5, 5), box_.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box_, &event);
    return event.isAccepted();
  }
  KeyBox box_;
};

TEST_F(KeyBoxTest, LeavesTheShortcutOfTheEditorToTheWindow) {
  // Some desktops use Ctrl+E in text boxes; such a text box accepts this event.
  const auto isAccepted = [this](int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(QEvent::ShortcutOverride, key, modifiers);
    event.accept();
    QApplication::sendEvent(&box_, &event);
    return event.isAccepted();
  };
  EXPECT_FALSE(isAccepted(Qt::Key_E, Qt::ControlModifier));
  EXPECT_TRUE(isAccepted(Qt::Key_E, Qt::NoModifier));
}

TEST_F(KeyBoxTest, TypingAnExactNoteNameSelectsItsItem) {
  Type("F#");
  EXPECT_EQ(box_.currentText().toStdString(), "F#");
  EXPECT_EQ(box_.currentIndex(), 6);
  EXPECT_EQ(box_.ListIndex(), 6);
}

TEST_F(KeyBoxTest, ListHasTheFontOfTheBox) {
  box_.show();
  box_.showPopup();
  EXPECT_EQ(box_.view()->font().pixelSize(), 14);
  EXPECT_TRUE(box_.view()->font().bold());
  EXPECT_EQ(box_.lineEdit()->font().pixelSize(), 14);
  box_.hidePopup();
}

TEST_F(KeyBoxTest, AnyOtherTextStaysAndReadsAsC) {
  Type("Hello");
  EXPECT_EQ(box_.currentText().toStdString(), "Hello");
  EXPECT_EQ(box_.ListIndex(), 0);
}

TEST_F(KeyBoxTest, LowerCaseIsNotCompletedToANoteName) {
  Type("g");
  EXPECT_EQ(box_.currentText().toStdString(), "g");
  EXPECT_EQ(box_.ListIndex(), 0);
}

TEST_F(KeyBoxTest, EveryKeyReleaseEmitsOneSignal) {
  const QSignalSpy released(&box_, &KeyBox::KeyReleased);
  Type("A#");
  EXPECT_EQ(released.count(), 2);
}

TEST_F(KeyBoxTest, ChoosingAnItemEmitsClickedOnce) {
  const QSignalSpy clicked(&box_, &KeyBox::Clicked);
  box_.Choose(2);
  EXPECT_EQ(clicked.count(), 1);
  EXPECT_EQ(box_.currentText().toStdString(), "D");
}

TEST_F(KeyBoxTest, DownKeySelectsTheNextItemAndEmitsClicked) {
  const QSignalSpy clicked(&box_, &KeyBox::Clicked);
  QTest::keyClick(&box_, Qt::Key_Down);
  EXPECT_EQ(box_.currentText().toStdString(), "C#");
  EXPECT_EQ(clicked.count(), 1);
}

TEST_F(KeyBoxTest, EnterSelectsTheItemOfTheTypedNote) {
  EXPECT_EQ(Enter("g"), "G 7");
  EXPECT_EQ(Enter("Bb"), "A# 10");
  EXPECT_EQ(Enter("b\u266D"), "A# 10");
  EXPECT_EQ(Enter("f\u266F"), "F# 6");
  EXPECT_EQ(Enter("H"), "B 11");
  EXPECT_EQ(Enter("B"), "B 11");
  EXPECT_EQ(Enter("c"), "C 0");
  EXPECT_EQ(Enter("a flat"), "G# 8");
  EXPECT_EQ(Enter("Hello"), "Hello 0");
}

TEST_F(KeyBoxTest, EnterAfterATypedNoteEmitsClickedOnce) {
  Type("bb");
  const QSignalSpy clicked(&box_, &KeyBox::Clicked);
  QTest::keyClick(&box_, Qt::Key_Enter);
  EXPECT_EQ(clicked.count(), 1);
  EXPECT_EQ(box_.currentIndex(), 10);
}

TEST_F(KeyBoxTest, LeavingTheBoxSelectsTheItemOfTheTypedNote) {
  Type("eb");
  const QSignalSpy clicked(&box_, &KeyBox::Clicked);
  EXPECT_EQ(box_.currentText().toStdString(), "eb");
  Leave(Qt::TabFocusReason);
  EXPECT_EQ(box_.currentText().toStdString(), "D#");
  EXPECT_EQ(clicked.count(), 1);
  Leave(Qt::TabFocusReason);
  EXPECT_EQ(clicked.count(), 1) << "an item is selected already";
}

TEST_F(KeyBoxTest, OpeningTheListDoesNotSelectTheTypedNote) {
  Type("eb");
  Leave(Qt::PopupFocusReason);
  EXPECT_EQ(box_.currentText().toStdString(), "eb");
}

TEST_F(KeyBoxTest, MessageBoxDuringTypingDoesNotSelectAnItem) {
  QObject::connect(&box_, &KeyBox::KeyReleased, &box_, [this] { Leave(Qt::ActiveWindowFocusReason); });
  Type("b");
  EXPECT_EQ(box_.currentText().toStdString(), "b");
  Type("bb");
  EXPECT_EQ(box_.currentText().toStdString(), "bb");
}

TEST_F(KeyBoxTest, ReleaseWithoutAPressEmitsNoSignal) {
  const QSignalSpy released(&box_, &KeyBox::KeyReleased);
  Send(QEvent::KeyRelease, Qt::Key_Return, 36);
  Send(QEvent::KeyRelease, Qt::Key_Escape);
  EXPECT_EQ(released.count(), 0);
}

TEST_F(KeyBoxTest, ReleaseAfterALossOfFocusEmitsNoSignal) {
  const QSignalSpy released(&box_, &KeyBox::KeyReleased);
  Send(QEvent::KeyPress, Qt::Key_Return, 36);
  Leave(Qt::ActiveWindowFocusReason);
  Send(QEvent::KeyRelease, Qt::Key_Return, 36);
  EXPECT_EQ(released.count(), 0);
}

TEST_F(KeyBoxTest, ReleaseIsRecognisedIfShiftIsReleasedFirst) {
  const QSignalSpy released(&box_, &KeyBox::KeyReleased);
  Send(QEvent::KeyPress, Qt::Key_NumberSign, 12);
  Send(QEvent::KeyRelease, Qt::Key_3, 12);
  EXPECT_EQ(released.count(), 1);
  Send(QEvent::KeyRelease, Qt::Key_3, 12);
  EXPECT_EQ(released.count(), 1);
}

TEST_F(KeyBoxTest, ReleaseCountsIfAnInputMethodConsumedThePress) {
  const QSignalSpy released(&box_, &KeyBox::KeyReleased);
  QInputMethodEvent composed;
  composed.setCommitString(QStringLiteral("F#"));
  box_.lineEdit()->selectAll();
  QApplication::sendEvent(&box_, &composed);
  Send(QEvent::KeyRelease, Qt::Key_NumberSign);
  EXPECT_EQ(released.count(), 1);
  EXPECT_EQ(box_.currentIndex(), 6);
}

TEST_F(KeyBoxTest, TextThatIsNoNoteIsMarkedAndDescribed) {
  box_.SetDescription(QStringLiteral("The key."));
  const QImage plain = box_.grab().toImage();
  box_.setEditText(QStringLiteral("Bb"));
  EXPECT_FALSE(box_.IsMarked());
  EXPECT_EQ(box_.accessibleDescription().toStdString(), "The key.");
  box_.setEditText(QStringLiteral("Hello"));
  EXPECT_TRUE(box_.IsMarked());
  EXPECT_EQ(box_.accessibleDescription().toStdString(),
            "The key. The text is not the name of a note; the scale is shown from C.");
  EXPECT_NE(box_.grab().toImage().pixel(box_.width() / 2, 0), plain.pixel(box_.width() / 2, 0));
  EXPECT_TRUE(box_.lineEdit()->font().underline());
  box_.setEditText({});
  EXPECT_TRUE(box_.IsMarked());
  box_.Choose(0);
  EXPECT_FALSE(box_.IsMarked());
  EXPECT_EQ(box_.accessibleDescription().toStdString(), "The key.");
  EXPECT_EQ(box_.grab().toImage(), plain);
}

TEST_F(KeyBoxTest, IsAPanelWithAnArrowAndARingWhileFocused) {
  box_.resize(100, 34);
  box_.SetDescription({});
  const QPalette palette = paint::WarmPalette(QPalette(QColor(0xee, 0xee, 0xee)));
  box_.setPalette(palette);
  const QColor accent(paint::kAccent);
  const tests::Drawing plain = tests::RecordPainting(box_);
  EXPECT_EQ(plain.FilledWith(palette.color(QPalette::Base)).size(), 1U);
  EXPECT_EQ(plain.FilledWith(paint::OutlineColour(palette)).size(), 1U);
  EXPECT_EQ(plain.OutlinedWith(paint::SecondaryText(palette)).size(), 1U) << "the arrow";
  EXPECT_TRUE(plain.FilledWith(accent).empty());
  box_.show();
  box_.activateWindow();
  box_.setFocus();
  QApplication::processEvents();
  ASSERT_TRUE(box_.hasFocus());
  EXPECT_EQ(tests::RecordPainting(box_).FilledWith(accent).size(), 1U);
}

TEST_F(KeyBoxTest, MarkIsAReddishFrameOfTwoPixelsThatFollowsThePalette) {
  box_.resize(100, 34);
  box_.setEditText(QStringLiteral("Hello"));
  for (const bool isDark : {false, true}) {
    QPalette system(isDark ? QColor(0x22, 0x22, 0x22) : QColor(0xee, 0xee, 0xee));
    const QPalette palette = paint::WarmPalette(system);
    box_.setPalette(palette);
    const QColor mark = isDark ? QColor(0xFF, 0x9A, 0x8A) : QColor(0xB3, 0x1B, 0x1B);
    const tests::Drawing drawing = tests::RecordPainting(box_);
    const std::vector<tests::Drawn> frame = drawing.FilledWith(mark);
    ASSERT_EQ(frame.size(), 1U);
    EXPECT_EQ(frame[0].AsText(), "round 6 at 0,0 100x34 fill " + mark.name().toStdString() + " smooth");
    const std::vector<tests::Drawn> inside = drawing.FilledWith(palette.color(QPalette::Base));
    ASSERT_EQ(inside.size(), 1U);
    EXPECT_EQ(inside[0].box, QRectF(2, 2, 96, 30));
    EXPECT_EQ(inside[0].form, "round 4");
    EXPECT_EQ(drawing.OutlinedWith(paint::SecondaryText(palette)).size(), 1U) << "the arrow";
    EXPECT_EQ(box_.lineEdit()->palette().color(QPalette::Text), mark);
    EXPECT_GE(paint::ContrastRatio(mark, palette.color(QPalette::Base)), 4.5);
  }
}

TEST_F(KeyBoxTest, WheelTransposesOnlyWhileTheBoxHasTheFocus) {
  QWidget window;
  box_.setParent(&window);
  box_.show();
  QLineEdit other(&window);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  other.setFocus();
  EXPECT_FALSE(TurnWheel());
  EXPECT_EQ(box_.currentIndex(), 0);
  box_.setFocus();
  EXPECT_TRUE(TurnWheel());
  EXPECT_EQ(box_.currentIndex(), 1);
  box_.setParent(nullptr);
}

}  // namespace
}  // namespace tonalith::app
