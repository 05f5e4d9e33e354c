// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/next_match.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <thread>

#include "search/fake_scales.h"
#include "search/pointer_watching_msg_box.h"
#include "support/recording_msg_box.h"

namespace tonalith::search {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Message = tests::RecordingMsgBox::Message;

class NextMatch : public testing::Test {
 protected:
  NextMatch() : window_(std::make_unique<QWidget>()), line_(new QLineEdit(window_.get())) {
    window_->show();
    window_->activateWindow();
    line_->setFocus();
  }
  ~NextMatch() override { QToolTip::hideText(); }
  SearchOutcome Find(const char* text) { return FindNextMatch(scales_, text, box_, *window_).outcome; }
  /// Adds so many records and such a delay that the search would take minutes.
  void MakeSlow(std::int64_t records = 100000) {
    for (std::int64_t key = 4; key < records; ++key) scales_.rows_[key] = "Major";
    scales_.onTest_ = [this] {
      ++tested_;
      // A slow comparison: the search must show its progress in real time.
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    };
  }

  FakeScales scales_{"Major,Dorian,Melodic Minor"};
  tests::RecordingMsgBox box_;
  std::unique_ptr<QWidget> window_;
  QLineEdit* line_;
  int tested_ = 0;
};

TEST_F(NextMatch, SearchesFromTheCurrentRecord) {
  EXPECT_EQ(Find("m"), SearchOutcome::kFound);
  EXPECT_EQ(scales_.current_, 3);
  EXPECT_EQ(scales_.TakeLog(), "Dorian? Melodic Minor? =Melodic Minor ");
  EXPECT_EQ(QToolTip::text(), QString());
}

TEST_F(NextMatch, ReportsAWrapInAToolTip) {
  scales_.current_ = 2;
  EXPECT_EQ(Find("major"), SearchOutcome::kFound);
  EXPECT_EQ(scales_.current_, 1);
  EXPECT_EQ(QToolTip::text(), QStringLiteral("You have searched all the records once"));
}

TEST_F(NextMatch, ReportsThatNothingMatches) {
  EXPECT_EQ(Find("blues"), SearchOutcome::kNoMatch);
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"No matches found.", core::MsgBoxStyle::kInformation, ""}));
  EXPECT_EQ(scales_.current_, 1);
}

TEST_F(NextMatch, ReportsAFailureByItsDescription) {
  Find("[abc");
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Invalid pattern string", core::MsgBoxStyle::kOkOnly, ""}));
}

TEST_F(NextMatch, EscapeStopsALongSearchAndOtherKeysAreDropped) {
  MakeSlow();
  QTimer::singleShot(0, window_.get(), [this] {
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    QTest::keyClick(line_, Qt::Key_A);
    QTest::keyClick(line_, Qt::Key_Escape);
  });
  EXPECT_EQ(Find("nothing"), SearchOutcome::kStopped);
  EXPECT_EQ(line_->text(), QString());
  EXPECT_LT(tested_, 1000);
  EXPECT_THAT(box_.Messages(), IsEmpty());
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  QTest::keyClick(line_, Qt::Key_A);
  EXPECT_EQ(line_->text(), QStringLiteral("a"));
}

TEST_F(NextMatch, PointerIsNotBusyDuringTheMessageAfterALongSearch) {
  constexpr std::int64_t kAThirdOfASecond = 170;
  MakeSlow(kAThirdOfASecond);
  bool wasBusy = false;
  QTimer::singleShot(0, window_.get(), [&] { wasBusy = QGuiApplication::overrideCursor() != nullptr; });
  PointerWatchingMsgBox box;
  FindNextMatch(scales_, "nothing", box, *window_);
  EXPECT_TRUE(wasBusy);
  EXPECT_EQ(box.wasBusy, false);
}

TEST_F(NextMatch, ClosingTheWindowStopsALongSearch) {
  MakeSlow();
  QTimer::singleShot(0, window_.get(), [this] { window_->close(); });
  EXPECT_EQ(Find("nothing"), SearchOutcome::kStopped);
  EXPECT_LT(tested_, 1000);
}

TEST_F(NextMatch, WindowMayBeDestroyedDuringALongSearch) {
  MakeSlow();
  QTimer::singleShot(0, QCoreApplication::instance(), [this] { window_.reset(); });
  EXPECT_EQ(Find("nothing"), SearchOutcome::kStopped);
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

}  // namespace
}  // namespace tonalith::search
