// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "controls/data_control.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include "core/failure.h"
#include "data/schema.h"
#include "support/recording_msg_box.h"
#include "support/temp_folder.h"

namespace tonalith::controls {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DataControlTest : public testing::Test {
 protected:
  DataControlTest() : control_(QStringLiteral("Data1"), QStringLiteral("Select Scales"), box_, nullptr) {
    data::CreateScaleDatabase(path_);
    Execute(
        "INSERT INTO ScaleTypes VALUES (1, 1, 'Type');"
        "INSERT INTO Scales(ScaleID, ScaleName, ScaleTypeID) VALUES (3, 'A', 1), (5, 'A', 1), (9, NULL, 1)");
    control_.SetConnectionString("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path_.string());
    control_.SetRecordSource("SELECT * FROM ScalesQuery");
    control_.Bind("ScaleID", [this](const core::Value& id) { shown_.push_back(id.TextOr("-")); });
  }
  void Execute(const std::string& statements) {
    SQLite::Database db(path_.string(), SQLite::OPEN_READWRITE);
    db.exec(statements);
  }
  void Press(const char* name) {
    QTest::mouseClick(control_.findChild<QAbstractButton*>(QLatin1String(name)), Qt::LeftButton);
  }

  tests::TempFolder temp_;
  std::filesystem::path path_ = temp_.Path() / "scales.mdb";
  tests::RecordingMsgBox box_;
  DataControl control_;
  std::vector<std::string> shown_;
};

TEST_F(DataControlTest, IsUnboundUntilItIsRefreshed) {
  EXPECT_EQ(control_.Recordset(), nullptr);
  EXPECT_FALSE(control_.HasRecord());
  EXPECT_TRUE(control_.FieldValue(0).IsNull());
  Press("Next record");
  EXPECT_THAT(shown_, IsEmpty());
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(DataControlTest, RefreshMovesToTheFirstRow) {
  control_.Refresh();
  Press("Last record");
  control_.Refresh();
  EXPECT_THAT(shown_, ElementsAre("3", "9", "3"));
}

TEST_F(DataControlTest, EveryMoveEmitsOnceAlsoIfBoundValuesAreEqual) {
  control_.Refresh();
  const QSignalSpy moved(&control_, &DataControl::Moved);
  Press("Next record");
  EXPECT_EQ(moved.count(), 1);
  Press("Last record");
  EXPECT_EQ(moved.count(), 2);
  Press("Last record");
  Press("Next record");
  EXPECT_EQ(moved.count(), 2) << "nothing moved";
  EXPECT_THAT(shown_, ElementsAre("3", "5", "9"));
}

TEST_F(DataControlTest, QuietMovesUpdateBoundControlsWithoutASignal) {
  control_.Refresh();
  const QSignalSpy moved(&control_, &DataControl::Moved);
  {
    const DataControl::Quiet quiet(control_);
    control_.MoveLast();
  }
  EXPECT_EQ(moved.count(), 0);
  EXPECT_EQ(shown_.back(), "9");
}

TEST_F(DataControlTest, BookmarkOfADeletedRowFailsOrIsIgnored) {
  control_.Refresh();
  const data::Bookmark first = control_.Recordset()->GetBookmark();
  Execute("DELETE FROM Scales WHERE ScaleID = 3");
  control_.Refresh();
  EXPECT_THROW(control_.SetBookmark(first), core::Failure);
  control_.SetBookmarkIfExists(first);
  EXPECT_EQ(shown_.back(), "5");
}

TEST_F(DataControlTest, FailedRefreshUnbindsAndClearsTheBoundControls) {
  control_.Refresh();
  control_.SetConnectionString("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path_.string() + ".gone");
  EXPECT_THROW(control_.Refresh(), core::Failure);
  EXPECT_EQ(control_.Recordset(), nullptr);
  EXPECT_EQ(shown_.back(), "-");
}

TEST_F(DataControlTest, ReleaseClosesTheFileAndKeepsTheShownValues) {
  control_.Refresh();
  control_.Release();
  EXPECT_EQ(control_.Recordset(), nullptr);
  EXPECT_THAT(shown_, ElementsAre("3"));
  Execute("BEGIN EXCLUSIVE; ROLLBACK");
}

TEST_F(DataControlTest, ArrowsHaveAccessibleNamesAndTabFocus) {
  std::vector<std::string> names;
  for (const QAbstractButton* const button : control_.findChildren<QAbstractButton*>()) {
    names.push_back(button->accessibleName().toStdString());
    EXPECT_EQ(button->focusPolicy(), Qt::StrongFocus);
  }
  EXPECT_THAT(names, ElementsAre("First record", "Previous record", "Next record", "Last record"));
}

TEST_F(DataControlTest, ToolTipAndAccessibleDescriptionAreThePosition) {
  QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&control_);
  EXPECT_EQ(accessible->text(QAccessible::Description), QString());
  control_.Refresh();
  EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Select Scales"));
  EXPECT_EQ(accessible->text(QAccessible::Description), QStringLiteral("1 of 3"));
  Press("Next record");
  EXPECT_EQ(accessible->text(QAccessible::Description), QStringLiteral("2 of 3"));
  control_.show();
  QHelpEvent rest(QEvent::ToolTip, QPoint(5, 5), control_.mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&control_, &rest);
  EXPECT_EQ(QToolTip::text(), QStringLiteral("2 of 3"));
  QToolTip::hideText();
  Press("Last record");
  EXPECT_EQ(control_.PositionText(), QStringLiteral("3 of 3"));
}

TEST_F(DataControlTest, HasNoPositionOnANewRowAndWithoutRows) {
  control_.Refresh();
  control_.AddNew({});
  EXPECT_EQ(control_.PositionText(), QString());
  control_.CancelUpdate();
  EXPECT_EQ(control_.PositionText(), QStringLiteral("1 of 3"));
  control_.Release();
  EXPECT_EQ(control_.PositionText(), QString());
}

TEST_F(DataControlTest, FailureOfAnArrowIsShownAsItsDescription) {
  control_.Refresh();
  control_.Recordset()->Close();
  control_.RunMove(&DataControl::MoveNext);
  EXPECT_THAT(box_.Messages(), IsEmpty()) << "a closed record set has no current record to leave";
}

TEST_F(DataControlTest, WrittenEditEmitsAlsoIfTheFollowingMoveFails) {
  control_.Refresh();
  control_.SetFieldValue("ScaleName", "Renamed");
  const QSignalSpy moved(&control_, &DataControl::Moved);
  const QSignalSpy written(&control_, &DataControl::Written);
  EXPECT_THROW(control_.SetBookmark({4711}), core::Failure);
  EXPECT_FALSE(control_.IsEditPending());
  EXPECT_FALSE(control_.IsEditRefused());
  EXPECT_EQ(moved.count(), 1);
  EXPECT_EQ(written.count(), 1);
  EXPECT_THAT(shown_, ElementsAre("3", "3"));
}

TEST_F(DataControlTest, DeletionEmitsMovedAndWritten) {
  control_.Refresh();
  const QSignalSpy moved(&control_, &DataControl::Moved);
  const QSignalSpy written(&control_, &DataControl::Written);
  control_.Delete();
  EXPECT_EQ(moved.count(), 1);
  EXPECT_EQ(written.count(), 1);
  EXPECT_THAT(shown_, ElementsAre("3", "5"));
}

TEST_F(DataControlTest, RefusedEditEmitsNothingAndStaysInTheControls) {
  control_.Refresh();
  control_.SetFieldValue("ScaleName", "");
  const QSignalSpy moved(&control_, &DataControl::Moved);
  const QSignalSpy written(&control_, &DataControl::Written);
  EXPECT_THROW(control_.MoveNext(), core::Failure);
  EXPECT_TRUE(control_.IsEditRefused());
  EXPECT_EQ(moved.count(), 0);
  EXPECT_EQ(written.count(), 0);
  EXPECT_THAT(shown_, ElementsAre("3"));
}

TEST_F(DataControlTest, RefusedEditPreventsAMoveToABookmark) {
  control_.Refresh();
  control_.SetFieldValue("ScaleName", "");
  EXPECT_THROW(control_.SetBookmarkIfExists({5}), core::Failure);
  EXPECT_TRUE(control_.IsEditRefused());
  EXPECT_THAT(shown_, ElementsAre("3"));
}

TEST_F(DataControlTest, FailedMoveWithoutAnEditEmitsNothing) {
  control_.Refresh();
  const QSignalSpy moved(&control_, &DataControl::Moved);
  const QSignalSpy written(&control_, &DataControl::Written);
  EXPECT_THROW(control_.SetBookmark({4711}), core::Failure);
  EXPECT_EQ(moved.count(), 0);
  EXPECT_EQ(written.count(), 0);
}

}  // namespace
}  // namespace tonalith::controls
