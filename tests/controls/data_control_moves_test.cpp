// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Moves of the data control at both ends, the order of its signals, and edits of rows that were changed elsewhere.

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLayout>
#include <QTest>

#include "controls/data_control.h"
#include "core/failure.h"
#include "data/data_failure.h"
#include "data/schema.h"
#include "support/failure_of.h"
#include "support/recording_msg_box.h"
#include "support/temp_folder.h"

namespace tonalith::controls {
namespace {

using Conflict = DataControl::Conflict;
using testing::ElementsAre;
using testing::IsEmpty;

/// A control with the rows A, B and C, and the list of what it does: the shown names, then the signals.
class DataControlMoves : public testing::Test {
 protected:
  DataControlMoves() {
    data::CreateScaleDatabase(path_);
    Execute(
        "INSERT INTO ScaleTypes VALUES (1, 1, 'Type');"
        "INSERT INTO Scales(ScaleName, ScaleTypeID) VALUES ('A', 1), ('B', 1), ('C', 1)");
    control_->SetConnectionString("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path_.string());
    control_->SetRecordSource("SELECT * FROM ScalesQuery");
    control_->SetLockType(data::LockType::kBatchOptimistic);
    control_->Bind("ScaleName", [this](const core::Value& name) { events_.push_back(name.TextOr("-")); });
    QObject::connect(control_.get(), &DataControl::Moved, [this] { events_.emplace_back("moved"); });
    QObject::connect(control_.get(), &DataControl::Written, [this] { events_.emplace_back("written"); });
  }
  void Open() {
    control_->Refresh();
    events_.clear();
  }
  void Execute(const std::string& statements) const {
    SQLite::Database(path_.string(), SQLite::OPEN_READWRITE).exec(statements);
  }
  [[nodiscard]] std::string Saved() const {
    SQLite::Database db(path_.string());
    SQLite::Statement rows(db,
                           "SELECT group_concat(ScaleName, ' ') FROM (SELECT ScaleName FROM Scales ORDER BY ScaleID)");
    rows.executeStep();
    return rows.getColumn(0).getString();
  }
  [[nodiscard]] QAbstractButton* Arrow(const char* name) const {
    return control_->findChild<QAbstractButton*>(QLatin1String(name));
  }
  void Press(const char* name) const { QTest::mouseClick(Arrow(name), Qt::LeftButton); }
  std::vector<std::string> Events() { return std::exchange(events_, {}); }

  tests::TempFolder temp_;
  std::filesystem::path path_ = temp_.Path() / "scales.mdb";
  tests::RecordingMsgBox box_;
  std::unique_ptr<DataControl> control_ =
      std::make_unique<DataControl>(QStringLiteral("Data1"), QStringLiteral("Select Scales"), box_, nullptr);
  std::vector<std::string> events_;
};

TEST_F(DataControlMoves, EachArrowMovesAndStopsAtItsEnd) {
  Open();
  Press("Previous record");
  Press("First record");
  EXPECT_THAT(Events(), IsEmpty()) << "at the first row";
  Press("Next record");
  EXPECT_THAT(Events(), ElementsAre("B", "moved"));
  Press("Next record");
  Press("Next record");
  EXPECT_THAT(Events(), ElementsAre("C", "moved"));
  EXPECT_TRUE(control_->HasRecord());
  Press("Previous record");
  EXPECT_THAT(Events(), ElementsAre("B", "moved"));
  Press("Last record");
  Press("First record");
  EXPECT_THAT(Events(), ElementsAre("C", "moved", "A", "moved"));
}

TEST_F(DataControlMoves, UnboundControlIgnoresMovesAndEditsOfNothing) {
  control_->MoveFirst();
  control_->MovePrevious();
  control_->MoveNext();
  control_->MoveLast();
  control_->SetBookmark({2});
  control_->UpdateBatch();
  control_->CancelUpdate();
  EXPECT_THAT(Events(), IsEmpty());
  EXPECT_THROW(control_->Delete(), core::Failure);
  EXPECT_THROW(control_->AddNew({}), core::Failure);
}

TEST_F(DataControlMoves, BookmarkMakesItsRowCurrent) {
  Open();
  control_->SetBookmark({3});
  EXPECT_THAT(Events(), ElementsAre("C", "moved"));
  control_->SetBookmarkIfExists({2});
  EXPECT_THAT(Events(), ElementsAre("B", "moved"));
  control_->SetBookmark({2});
  EXPECT_THAT(Events(), IsEmpty()) << "it is current";
  EXPECT_EQ(control_->CurrentBookmark(), data::Bookmark{2});
}

TEST_F(DataControlMoves, NestedQuietScopesEndOneByOne) {
  Open();
  {
    const DataControl::Quiet outer(*control_);
    {
      const DataControl::Quiet inner(*control_);
      control_->MoveNext();
    }
    control_->MoveNext();
    EXPECT_THAT(Events(), ElementsAre("B", "C"));
  }
  control_->MovePrevious();
  EXPECT_THAT(Events(), ElementsAre("B", "moved"));
}

TEST_F(DataControlMoves, WrittenEditIsReportedAfterTheMove) {
  Open();
  control_->SetFieldValue("ScaleName", "A2");
  control_->MoveNext();
  EXPECT_THAT(Events(), ElementsAre("B", "moved", "written"));
  EXPECT_EQ(Saved(), "A2 B C");
  control_->SetFieldValue("ScaleName", "B2");
  control_->UpdateBatch();
  EXPECT_THAT(Events(), ElementsAre("B2", "moved", "written"));
  control_->UpdateBatch();
  EXPECT_THAT(Events(), IsEmpty()) << "nothing is pending";
}

TEST_F(DataControlMoves, CancelledEditIsShownAsItWas) {
  Open();
  control_->CancelUpdate();
  EXPECT_THAT(Events(), IsEmpty()) << "nothing is pending";
  control_->SetFieldValue("ScaleName", "A2");
  control_->CancelUpdate();
  EXPECT_THAT(Events(), ElementsAre("A", "moved"));
  EXPECT_FALSE(control_->IsEditPending());
  EXPECT_EQ(Saved(), "A B C");
}

TEST_F(DataControlMoves, NewRowWritesThePendingEditFirst) {
  Open();
  control_->SetFieldValue("ScaleName", "A2");
  control_->AddNew({{"ScaleName", "D"}, {"ScaleTypeID", 1}});
  EXPECT_THAT(Events(), ElementsAre("A2", "moved", "written", "D", "moved"));
  EXPECT_EQ(Saved(), "A2 B C");
  control_->Delete();
  EXPECT_THAT(Events(), ElementsAre("A2", "moved")) << "a dropped new row is not a write";
  EXPECT_EQ(Saved(), "A2 B C");
}

TEST_F(DataControlMoves, DeletionMakesTheNextRowCurrentOrTheNewLastOne) {
  Open();
  control_->MoveNext();
  Events();
  control_->Delete();
  EXPECT_THAT(Events(), ElementsAre("C", "moved", "written"));
  control_->Delete();
  EXPECT_THAT(Events(), ElementsAre("A", "moved", "written"));
  control_->Delete();
  EXPECT_THAT(Events(), ElementsAre("-", "moved", "written"));
}

TEST_F(DataControlMoves, RefusalOfAnEditHasItsReasonUntilTheEditChanges) {
  Open();
  EXPECT_EQ(control_->Refusal(), "");
  control_->SetFieldValue("ScaleName", "B");
  Press("Next record");
  EXPECT_EQ(control_->Refusal(), "There is a scale of this name already.");
  EXPECT_EQ(box_.Texts(), "There is a scale of this name already.\n");
  control_->SetFieldValue("ScaleName", "A2");
  EXPECT_EQ(control_->Refusal(), "");
  control_->SetFieldValue("ScaleName", "B");
  EXPECT_THROW(control_->UpdateBatch(), core::Failure);
  control_->CancelUpdate();
  EXPECT_FALSE(control_->IsEditRefused());
  EXPECT_THROW(control_->SetBookmark({4711}), core::Failure);
  EXPECT_FALSE(control_->IsEditRefused()) << "a failed move without an edit refuses none";
}

TEST_F(DataControlMoves, EditOfAChangedRowIsRefusedWithoutADecision) {
  Open();
  control_->SetFieldValue("ScaleName", "Mine");
  Execute("UPDATE Scales SET ScaleName = 'Other' WHERE ScaleName = 'A'");
  const core::Failure failure = tests::FailureOf([this] { control_->UpdateBatch(); });
  EXPECT_EQ(failure.Number(), data::failure_number::kRowChanged);
  EXPECT_THAT(Events(), IsEmpty());
  EXPECT_TRUE(control_->IsEditRefused());
  EXPECT_EQ(Saved(), "Other B C");
}

TEST_F(DataControlMoves, KeepingAnEditOverwritesTheChangedRow) {
  int decisions = 0;
  control_->OnConflict([&decisions] {
    ++decisions;
    return Conflict::kOverwrite;
  });
  Open();
  control_->SetFieldValue("ScaleName", "Mine");
  Execute("UPDATE Scales SET ScaleName = 'Other' WHERE ScaleName = 'A'");
  Press("Next record");
  EXPECT_EQ(decisions, 1);
  EXPECT_EQ(Saved(), "Mine B C");
  EXPECT_THAT(Events(), ElementsAre("B", "moved", "written"));
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(DataControlMoves, TakingTheOtherVersionShowsItAndStays) {
  control_->OnConflict([] { return Conflict::kTakeOther; });
  Open();
  control_->SetFieldValue("ScaleName", "Mine");
  Execute("UPDATE Scales SET ScaleName = 'Other' WHERE ScaleName = 'A'");
  Press("Next record");
  EXPECT_EQ(Saved(), "Other B C");
  EXPECT_THAT(box_.Messages(), IsEmpty()) << "the user has decided";
  EXPECT_FALSE(control_->IsEditPending());
  const std::vector<std::string> events = Events();
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.front(), "Other");
}

TEST_F(DataControlMoves, DecisionMayDestroyTheControl) {
  control_->OnConflict([this] {
    control_.reset();
    return Conflict::kOverwrite;
  });
  Open();
  control_->SetFieldValue("ScaleName", "Mine");
  Execute("UPDATE Scales SET ScaleName = 'Other' WHERE ScaleName = 'A'");
  control_->RunMove(&DataControl::MoveNext);
  EXPECT_EQ(control_, nullptr);
  EXPECT_THAT(events_, IsEmpty());
  EXPECT_THAT(box_.Messages(), IsEmpty());
  EXPECT_EQ(Saved(), "Other B C");
}

TEST_F(DataControlMoves, OnlyACancelledFailureIsNotReported) {
  core::DeferredFailure failure;
  failure.Try([] { throw data::Cancelled(); });
  DataControl::Report(failure, box_);
  EXPECT_THAT(box_.Messages(), IsEmpty());
  failure.Try([] { throw data::ObjectClosed(); });
  DataControl::Report(failure, box_);
  EXPECT_EQ(box_.Texts(), "Operation is not allowed when the object is closed.\n");
}

TEST_F(DataControlMoves, PanelHasArrowsInsideItsLineAndItsCaptionBetweenThem) {
  control_->resize(300, 36);
  control_->ensurePolished();
  control_->layout()->activate();
  EXPECT_EQ(control_->accessibleName(), QStringLiteral("Select Scales"));
  auto* const caption = control_->findChild<QLabel*>(QStringLiteral("Data1Caption"));
  ASSERT_NE(caption, nullptr);
  EXPECT_EQ(caption->text(), QStringLiteral("Select Scales"));
  EXPECT_EQ(Arrow("First record")->x(), 1);
  EXPECT_EQ(Arrow("Previous record")->x(), Arrow("First record")->geometry().right() + 1);
  EXPECT_EQ(caption->x(), Arrow("Previous record")->geometry().right() + 1);
  EXPECT_EQ(Arrow("Next record")->x(), caption->geometry().right() + 1);
  EXPECT_EQ(Arrow("Last record")->geometry().right(), 300 - 2);
  EXPECT_EQ(control_->layout()->contentsMargins(), QMargins(1, 1, 1, 1));
  for (const char* const name : {"First record", "Previous record", "Next record", "Last record"}) {
    EXPECT_EQ(Arrow(name)->toolTip(), QLatin1String(name));
    EXPECT_EQ(Arrow(name)->accessibleName(), QLatin1String(name));
    EXPECT_TRUE(Arrow(name)->testAttribute(Qt::WA_Hover)) << "painted when the pointer enters";
  }
}

}  // namespace
}  // namespace tonalith::controls
