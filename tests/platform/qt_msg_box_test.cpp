// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/qt/qt_msg_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <utility>

namespace tonalith::platform {
namespace {

using core::MsgBoxAnswer;
using core::MsgBoxStyle;

class QtMsgBoxTest : public ::testing::Test {
 protected:
  QtMsgBoxTest() {
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
  }
  ~QtMsgBoxTest() override { delete window_.data(); }

  static QMessageBox* Shown() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }
  /// Shows a box and calls `act` as soon as it is visible.
  MsgBoxAnswer ShowAnd(MsgBoxStyle style, const std::function<void()>& act) {
    QTimer::singleShot(0, qApp, act);
    return msgBox_.Show("<b>Sure?</b>", style, {});
  }

  QPointer<QWidget> window_ = new QWidget;
  QtMsgBox msgBox_{"Tonalith"};
};

TEST_F(QtMsgBoxTest, BelongsToTheActiveWindowAndShowsPlainText) {
  QString shown;
  const MsgBoxAnswer answer = ShowAnd(MsgBoxStyle::kYesNo, [&] {
    ASSERT_NE(Shown(), nullptr);
    EXPECT_EQ(Shown()->parentWidget(), window_.data());
    EXPECT_EQ(Shown()->textFormat(), Qt::PlainText);
    shown = Shown()->windowTitle() + QStringLiteral(": ") + Shown()->text();
    Shown()->button(QMessageBox::Yes)->click();
  });
  EXPECT_EQ(shown.toStdString(), "Tonalith: <b>Sure?</b>");
  EXPECT_EQ(answer, MsgBoxAnswer::kYes);
  EXPECT_EQ(Shown(), nullptr);
}

// No window is active just after a box has closed.
TEST_F(QtMsgBoxTest, TheNextBoxBelongsToTheSameWindow) {
  QWidget* second = nullptr;
  ShowAnd(MsgBoxStyle::kOkOnly, [] { Shown()->button(QMessageBox::Ok)->click(); });
  QApplication::setActiveWindow(nullptr);
  ShowAnd(MsgBoxStyle::kOkOnly, [&] {
    second = Shown()->parentWidget();
    Shown()->button(QMessageBox::Ok)->click();
  });
  EXPECT_EQ(second, window_.data());
  window_->hide();
  ShowAnd(MsgBoxStyle::kOkOnly, [&] {
    second = Shown()->parentWidget();
    Shown()->button(QMessageBox::Ok)->click();
  });
  EXPECT_EQ(second, nullptr) << "a hidden window is not a parent";
}

// The window, and the box with it, may be destroyed while the box is shown.
TEST_F(QtMsgBoxTest, DoesNotConfirmIfItsWindowIsDestroyed) {
  for (const auto& [style, answer] :
       {std::pair(MsgBoxStyle::kYesNo, MsgBoxAnswer::kNo), std::pair(MsgBoxStyle::kOkCancel, MsgBoxAnswer::kCancel),
        std::pair(MsgBoxStyle::kOkOnly, MsgBoxAnswer::kOk)}) {
    if (window_.isNull()) {
      window_ = new QWidget;
      window_->show();
      window_->activateWindow();
      ASSERT_TRUE(QTest::qWaitForWindowActive(window_));
    }
    QPointer<QMessageBox> box;
    EXPECT_EQ(ShowAnd(style,
                      [&] {
                        box = Shown();
                        EXPECT_FALSE(box.isNull());
                        delete window_.data();
                      }),
              answer);
    EXPECT_TRUE(box.isNull());
  }
}

}  // namespace
}  // namespace tonalith::platform
