// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>

#include "views/fretboard_in_text.h"

namespace tonalith::views {
namespace {

using tests::OneScale;

class FretboardFocus : public testing::Test, public platform::NotePlayer {
 protected:
  FretboardFocus() {
    view_.SetNotePlayer(this, "/tonalith");
    view_.PositionNotes();
    before_.setGeometry(0, 0, 50, 20);
    after_.setGeometry(0, 520, 50, 20);
    QWidget::setTabOrder(&before_, &view_);
    window_.resize(1080, 594);
    ShowScale("C", "2212221");
    window_.show();
    window_.activateWindow();
    QApplication::processEvents();
  }

  void Play(const std::string& path) override { played_ = path; }

  void ShowScale(const std::string& key, const std::string& pattern) {
    OneScale scale(pattern);
    Refresh(view_, key, scale);
  }

  static void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(QApplication::focusWidget(), &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers);
    QApplication::sendEvent(QApplication::focusWidget(), &release);
  }

  static std::string Focused() {
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? "nothing" : focus->objectName().toStdString();
  }

  tests::RecordingMsgBox msgBox_;
  std::string played_;
  QWidget window_;
  QLineEdit before_{&window_};
  FretboardView view_{core::Neck::Standard(), msgBox_, &window_};
  QLineEdit after_{&window_};
};

TEST_F(FretboardFocus, IsOneTabStop) {
  before_.setObjectName(QStringLiteral("before"));
  after_.setObjectName(QStringLiteral("after"));
  before_.setFocus();
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focused(), "img0");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focused(), "after");
  int stops = 0;
  for (int index = 0; index < 96; ++index) {
    if ((view_.Image(index).focusPolicy() & Qt::TabFocus) != 0) ++stops;
  }
  EXPECT_EQ(stops, 1);
}

TEST_F(FretboardFocus, ArrowKeysMoveBetweenVisibleNotes) {
  view_.Image(0).setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Right);
  EXPECT_EQ(Focused(), "img1");
  Press(Qt::Key_Right);
  EXPECT_EQ(Focused(), "img3");
  Press(Qt::Key_Down);
  EXPECT_EQ(Focused(), "img19");
  Press(Qt::Key_End);
  EXPECT_EQ(Focused(), "img31");
  Press(Qt::Key_Home);
  EXPECT_EQ(Focused(), "img16");
  Press(Qt::Key_Up);
  EXPECT_EQ(Focused(), "img0");
  Press(Qt::Key_Left);
  EXPECT_EQ(Focused(), "img0");
}

TEST_F(FretboardFocus, TabReturnsToTheLastFocusedNote) {
  view_.Image(0).setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Down);
  Press(Qt::Key_End);
  before_.setFocus();
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focused(), "img31");
}

TEST_F(FretboardFocus, EnterAndSpacePlayTheNote) {
  for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    played_.clear();
    view_.Image(0).setFocus(Qt::TabFocusReason);
    Press(key);
    EXPECT_EQ(played_, "/tonalith/Octaves/28.wav");
  }
}

TEST_F(FretboardFocus, IgnoresKeysWithModifiers) {
  view_.Image(3).setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(Focused(), "img3");
}

TEST_F(FretboardFocus, StaysOnTheNeckWhenAnotherScaleIsShown) {
  view_.Image(1).setFocus(Qt::TabFocusReason);
  ShowScale("F#", "2212221");
  EXPECT_EQ(Focused(), "img1") << "F is in both scales";
  ShowScale("D", "2212221");
  EXPECT_EQ(Focused(), "img0") << "F is hidden, E is nearest on its string";
}

TEST_F(FretboardFocus, StaysElsewhereWhenAnotherScaleIsShown) {
  before_.setObjectName(QStringLiteral("before"));
  before_.setFocus();
  ShowScale("F#", "2212221");
  EXPECT_EQ(Focused(), "before");
}

TEST_F(FretboardFocus, IsOnTheNeckWhileNoNoteIsVisible) {
  view_.Image(1).setFocus(Qt::TabFocusReason);
  OneScale nothing(std::nullopt);
  Refresh(view_, "C", nothing);
  EXPECT_EQ(Focused(), "fretboardView");
  EXPECT_EQ(view_.TabStop(), -1);
  ShowScale("C", "2212221");
  EXPECT_EQ(Focused(), "img0");
}

TEST_F(FretboardFocus, WindowActivationDoesNotChangeTheRing) {
  const auto look = [this] { return view_.grab().toImage(); };
  const auto comeBack = [this] {
    for (const auto type : {QEvent::FocusOut, QEvent::FocusIn}) {
      QFocusEvent event(type, Qt::ActiveWindowFocusReason);
      QApplication::sendEvent(&view_.Image(3), &event);
    }
  };
  view_.Image(3).setFocus(Qt::MouseFocusReason);
  const QImage plain = look();
  comeBack();
  EXPECT_EQ(look(), plain);
  view_.Image(3).clearFocus();
  view_.Image(3).setFocus(Qt::TabFocusReason);
  const QImage ringed = look();
  ASSERT_NE(ringed, plain);
  comeBack();
  EXPECT_EQ(look(), ringed);
}

TEST_F(FretboardFocus, PaintsARingForKeyboardFocusOnly) {
  const QRect around = view_.Image(3).geometry().adjusted(-5, -5, 5, 5);
  const QImage plain = view_.grab(around).toImage();
  view_.Image(3).setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(view_.grab(around).toImage(), plain);
  before_.setFocus();
  view_.Image(3).setFocus(Qt::TabFocusReason);
  EXPECT_NE(view_.grab(around).toImage(), plain);
}

TEST_F(FretboardFocus, ExposesEachNoteAsANamedButtonToAssistiveTechnology) {
  QAccessibleInterface* note = QAccessible::queryAccessibleInterface(&view_.Image(18));
  ASSERT_NE(note, nullptr);
  EXPECT_EQ(note->role(), QAccessible::Button);
  EXPECT_EQ(note->text(QAccessible::Name).toStdString(), "C#, string 2, fret 2");
  ASSERT_NE(note->actionInterface(), nullptr);
  EXPECT_TRUE(note->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
  QAccessibleInterface* open = QAccessible::queryAccessibleInterface(&view_.Image(0));
  open->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  // The button looks pressed for a moment before it clicks.
  EXPECT_TRUE(QTest::qWaitFor([this] { return !played_.empty(); }));
  EXPECT_EQ(played_, "/tonalith/Octaves/28.wav");
}

TEST_F(FretboardFocus, HidesHiddenNotesFromAssistiveTechnology) {
  OneScale scale("");
  Refresh(view_, "D", scale);
  QAccessibleInterface* neck = QAccessible::queryAccessibleInterface(&view_);
  ASSERT_NE(neck, nullptr);
  std::string names;
  for (int child = 0; child < neck->childCount(); ++child) {
    QAccessibleInterface* note = neck->child(child);
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(neck->indexOfChild(note), child);
    if (note->role() == QAccessible::Button) names += note->text(QAccessible::Name).toStdString() + "\n";
  }
  EXPECT_EQ(names,
            "D, string 1, fret 10\nD, string 2, fret 3\nD, string 2, fret 15\nD, string 3, fret 7\n"
            "D, string 4, open\nD, string 4, fret 12\nD, string 5, fret 5\nD, string 6, fret 10\n");
  EXPECT_EQ(neck->child(-1), nullptr);
  EXPECT_EQ(neck->child(neck->childCount()), nullptr);
}

}  // namespace
}  // namespace tonalith::views
