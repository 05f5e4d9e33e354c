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

#include "support/text_message.h"

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
    return msgBox_.Show(tests::TextMessage("<b>Sure?</b>"), style, {});
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

TEST_F(QtMsgBoxTest, HasTheIconOfItsStyleAndAlwaysAsksForYesOrNo) {
  using Expected = std::pair<MsgBoxStyle, QMessageBox::Icon>;
  for (const auto& [style, icon] :
       {Expected(MsgBoxStyle::kOkOnly, QMessageBox::NoIcon), Expected(MsgBoxStyle::kCritical, QMessageBox::Critical),
        Expected(MsgBoxStyle::kQuestion, QMessageBox::Question),
        Expected(MsgBoxStyle::kExclamation, QMessageBox::Warning),
        Expected(MsgBoxStyle::kOkCancel | MsgBoxStyle::kInformation, QMessageBox::Information),
        Expected(MsgBoxStyle::kYesNo, QMessageBox::Question),
        Expected(MsgBoxStyle::kYesNo | MsgBoxStyle::kCritical, QMessageBox::Question)}) {
    QMessageBox::Icon shown = QMessageBox::NoIcon;
    ShowAnd(style, [&] {
      shown = Shown()->icon();
      Shown()->defaultButton() != nullptr ? Shown()->defaultButton()->click() : Shown()->accept();
    });
    EXPECT_EQ(shown, icon) << static_cast<int>(style);
  }
}

TEST_F(QtMsgBoxTest, PutsTheDefaultOnTheButtonOfItsStyle) {
  using Expected = std::pair<MsgBoxStyle, MsgBoxAnswer>;
  for (const auto& [style, answer] :
       {Expected(MsgBoxStyle::kOkCancel, MsgBoxAnswer::kOk), Expected(MsgBoxStyle::kYesNo, MsgBoxAnswer::kYes),
        Expected(MsgBoxStyle::kOkCancel | MsgBoxStyle::kDefaultButton2, MsgBoxAnswer::kCancel),
        Expected(MsgBoxStyle::kYesNo | MsgBoxStyle::kDefaultButton2, MsgBoxAnswer::kNo)}) {
    EXPECT_EQ(ShowAnd(style, [] { Shown()->defaultButton()->click(); }), answer) << static_cast<int>(style);
  }
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
