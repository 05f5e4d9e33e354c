// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/data_control_scales.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/failure.h"
#include "data/schema.h"
#include "support/recording_msg_box.h"
#include "support/temp_folder.h"

namespace tonalith::search {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UnlimitedWatcher : public SearchWatcher {
 public:
  void SetMessage(const core::Message& text) override { message_ = text.English(); }
  [[nodiscard]] bool ShouldContinue() override { return true; }
  void OnEnd() override {}
  std::string message_;
};

/// Scales A (3), Bx (5), one without a name (7) and By (9), and the names that a bound window shows.
class DataControlScalesTest : public testing::Test {
 protected:
  DataControlScalesTest() : control_(QStringLiteral("Data1"), QStringLiteral("Select Scales"), box_, nullptr) {
    data::CreateScaleDatabase(path_);
    Execute(
        "INSERT INTO ScaleTypes VALUES (1, 1, 'Type');"
        "INSERT INTO Scales(ScaleID, ScaleName, ScaleTypeID) VALUES (3, 'A', 1), (5, 'Bx', 1), (7, NULL, 1), "
        "(9, 'By', 1)");
    control_.SetConnectionString("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path_.string());
    control_.SetRecordSource("SELECT * FROM ScalesQuery");
    control_.Bind("ScaleName", [this](const core::Value& name) { shown_.push_back(name.TextOr("-")); });
  }
  void Execute(const std::string& statements) const {
    SQLite::Database db(path_.string(), SQLite::OPEN_READWRITE);
    db.exec(statements);
  }
  SearchOutcome Search(const std::string& text) {
    shown_.clear();
    return ScaleSearch(scales_, watcher_, box_).Search(text).outcome;
  }

  tests::TempFolder temp_;
  std::filesystem::path path_ = temp_.Path() / "scales.mdb";
  tests::RecordingMsgBox box_;
  controls::DataControl control_;
  DataControlScales scales_{control_};
  UnlimitedWatcher watcher_;
  std::vector<std::string> shown_;
};

TEST_F(DataControlScalesTest, MatchBecomesTheCurrentRecordWithOneRedraw) {
  control_.Refresh();
  EXPECT_EQ(Search("b"), SearchOutcome::kFound);
  EXPECT_THAT(shown_, ElementsAre("Bx"));
  EXPECT_EQ(Search("b"), SearchOutcome::kFound);
  EXPECT_THAT(shown_, ElementsAre("By"));
  EXPECT_EQ(Search("b"), SearchOutcome::kFound);
  EXPECT_THAT(shown_, ElementsAre("Bx"));
  EXPECT_EQ(watcher_.message_, "");
  EXPECT_EQ(Search("bx"), SearchOutcome::kFound);
  EXPECT_THAT(shown_, IsEmpty());
  EXPECT_EQ(watcher_.message_, "You have searched all the records once");
}

TEST_F(DataControlScalesTest, WithoutAMatchTheWindowDoesNotMove) {
  control_.Refresh();
  EXPECT_EQ(Search("x*y"), SearchOutcome::kNoMatch);
  EXPECT_THAT(shown_, IsEmpty());
  EXPECT_EQ(box_.Texts(), "No matches found.\n");
}

TEST_F(DataControlScalesTest, UnboundControlHasNoScales) {
  EXPECT_EQ(scales_.Clone(), nullptr);
  EXPECT_FALSE(scales_.Current().has_value());
  EXPECT_THROW(Search("a"), core::Failure);
}

TEST_F(DataControlScalesTest, EmptyDatabaseHasNoMatches) {
  Execute("DELETE FROM Scales");
  control_.Refresh();
  EXPECT_EQ(Search("a"), SearchOutcome::kNoMatch);
  EXPECT_EQ(box_.Texts(), "No matches found.\n");
}

TEST_F(DataControlScalesTest, SearchFromADeletedRecordStartsAtTheFirst) {
  control_.Refresh();
  control_.MoveNext();
  Execute("DELETE FROM Scales WHERE ScaleID = 5");
  EXPECT_EQ(Search("a"), SearchOutcome::kFound);
  EXPECT_THAT(shown_, ElementsAre("A"));
  EXPECT_EQ(watcher_.message_, "");
}

TEST_F(DataControlScalesTest, DeletedRecordCannotBeMadeCurrent) {
  control_.Refresh();
  Execute("DELETE FROM Scales WHERE ScaleID = 9");
  EXPECT_FALSE(scales_.MakeCurrent({9}));
  EXPECT_EQ(control_.FieldValue(0).AsInt(), 3);
  EXPECT_TRUE(scales_.MakeCurrent({5}));
  EXPECT_EQ(control_.FieldValue(0).AsInt(), 5);
}

TEST_F(DataControlScalesTest, CursorIsPastTheEndIfAllRecordsAreDeleted) {
  control_.Refresh();
  const auto rows = scales_.Clone();
  EXPECT_FALSE(rows->IsEof());
  // Deleted through the connection of the record set, so that it knows that its rows are stale.
  for (int i = 0; i < 4; ++i) {
    control_.Recordset()->MoveFirst();
    control_.Recordset()->Delete();
  }
  rows->MoveFirst();
  EXPECT_TRUE(rows->IsEof());
}

TEST_F(DataControlScalesTest, NameThatIsNotTextIsAFailure) {
  Execute(
      "UPDATE Scales SET ScaleName = NULL WHERE ScaleID = 3; UPDATE Scales SET ScaleName = x'4278' WHERE ScaleID = 5");
  control_.Refresh();
  const auto rows = scales_.Clone();
  EXPECT_FALSE(rows->ScaleName().has_value());
  rows->MoveNext();
  EXPECT_THROW((void)rows->ScaleName(), core::Failure);
}

}  // namespace
}  // namespace tonalith::search
