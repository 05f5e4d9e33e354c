// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The text box of the search dialog: its initial text, and message boxes that must not cover it.

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <thread>

#include "search/fake_scales.h"
#include "search/frm_search.h"
#include "search/pointer_watching_msg_box.h"
#include "support/recording_msg_box.h"

namespace tonalith::search {
namespace {

class FrmSearchText : public testing::Test {
 protected:
  FrmSearchText() {
    auto scales = std::make_unique<FakeScales>("Major,Dorian,Melodic Minor");
    scales_ = scales.get();
    form_ = std::make_unique<frmSearch>(std::move(scales), box_, nullptr);
    text_ = form_->findChild<QLineEdit*>(QStringLiteral("txtSearch"));
  }
  void Show() const {
    form_->show();
    form_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get()));
    text_->setFocus();
  }
  /// The position of a message box if the dialog is at `y`.
  [[nodiscard]] QRect BoxOver(int y) const {
    form_->move(100, y);
    QMessageBox box(form_.get());
    box.setText(QStringLiteral("No matches found."));
    box.setIcon(QMessageBox::Information);
    box.show();
    return box.frameGeometry();
  }

  tests::RecordingMsgBox box_;
  FakeScales* scales_ = nullptr;
  std::unique_ptr<frmSearch> form_;
  QLineEdit* text_ = nullptr;
};

TEST_F(FrmSearchText, F3SearchesForIt) {
  Show();
  QTest::keyClicks(text_, QStringLiteral("m"));
  QTest::keyClick(text_, Qt::Key_F3);
  EXPECT_EQ(scales_->current_, 3);
}

TEST_F(FrmSearchText, IsSelectedWhenTheDialogOpens) {
  form_->SetSearchText("melodic");
  QTimer::singleShot(0, form_.get(), [this] {
    EXPECT_EQ(text_->text(), QStringLiteral("melodic"));
    EXPECT_EQ(text_->selectedText(), QStringLiteral("melodic"));
    form_->cmdCancel_Click();
  });
  form_->ShowModal();
}

TEST(FrmSearchPointer, IsNotBusyDuringTheMessageAfterALongSearch) {
  auto scales = std::make_unique<FakeScales>("Major,Dorian");
  constexpr std::int64_t kRecords = 170;
  for (std::int64_t key = 3; key < kRecords; ++key) scales->rows_[key] = "Minor";
  // A slow comparison: the search must show its progress in real time.
  scales->onTest_ = [] { std::this_thread::sleep_for(std::chrono::milliseconds(2)); };
  PointerWatchingMsgBox box;
  frmSearch form(std::move(scales), box, nullptr);
  form.findChild<QLineEdit*>(QStringLiteral("txtSearch"))->setText(QStringLiteral("nothing"));
  bool wasBusy = false;
  QTimer::singleShot(0, &form, [&] { wasBusy = QGuiApplication::overrideCursor() != nullptr; });
  form.cmdSearch_Click();
  EXPECT_TRUE(wasBusy);
  EXPECT_EQ(box.wasBusy, false);
}

TEST_F(FrmSearchText, IsNotCoveredByAMessageBox) {
  Show();
  const QRect screen = form_->screen()->availableGeometry();
  for (const int y : {0, screen.height() / 2, screen.height() - form_->height()}) {
    const QRect box = BoxOver(y);
    const QRect text(text_->mapToGlobal(QPoint()), text_->size());
    EXPECT_FALSE(box.intersects(text)) << y;
    EXPECT_TRUE(screen.contains(box)) << y;
  }
}

TEST_F(FrmSearchText, AMessageBoxIsShownOnce) {
  struct Box : QMessageBox {
    using QMessageBox::QMessageBox;
    int shown = 0;
    void showEvent(QShowEvent* event) override {
      ++shown;
      QMessageBox::showEvent(event);
    }
  };
  Show();
  Box box(form_.get());
  box.show();
  QApplication::processEvents();
  EXPECT_EQ(box.shown, 1);
}

}  // namespace
}  // namespace tonalith::search
