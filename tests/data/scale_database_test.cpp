// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/scale_database.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "data_fixture.h"
#include "support/recording_msg_box.h"

namespace tonalith::data {
namespace {

using core::MsgBoxStyle;
using testing::ElementsAre;
using testing::IsEmpty;
using tests::RecordingMsgBox;
using Message = tests::RecordingMsgBox::Message;

constexpr const char* kNoRecordMessage =
    "3021: Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current "
    "record.";

TEST(ScaleDatabase, BuildsItsStatementsExactly) {
  EXPECT_EQ(ScaleByNameStatement("Major"), "SELECT ScaleIntervals FROM Scales WHERE ScaleName = 'Major'");
  EXPECT_EQ(ScaleByNameStatement("O'Neil's"), "SELECT ScaleIntervals FROM Scales WHERE ScaleName = 'O''Neil''s'");
  EXPECT_EQ(ScaleByIdStatement(7), "SELECT * FROM ScalesQuery WHERE (Scales.ScaleID) =7;");
  EXPECT_EQ(ScaleByIdStatement(-1), "SELECT * FROM ScalesQuery WHERE (Scales.ScaleID) =-1;");
  EXPECT_EQ(kAllScalesStatement, "SELECT * FROM ScalesQuery");
}

TEST(ScaleDatabase, FindsItsFileInTheProgramsFolder) {
  tests::RecordingMsgBox msgBox;
  const ScaleDatabase database("/music/tonalith", msgBox);
  EXPECT_EQ(database.AppFolder(), "/music/tonalith");
  EXPECT_EQ(database.GetDBPath(), "/music/tonalith");
  EXPECT_EQ(database.DatabasePath(), "/music/tonalith/TonalithDB97.mdb");
}

TEST(ScaleDatabase, FindsItsFileFromAnyCurrentFolder) {
  const DatabaseFolder folder;
  tests::RecordingMsgBox msgBox;
  ScaleDatabase database(folder.Folder(), msgBox);
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path("/");
  database.OpenShared();
  std::filesystem::current_path(before);
  EXPECT_TRUE(database.ScaleConnection()->IsOpen());
}

TEST(ScaleDatabase, OpensTheSharedConnectionAndRecordSetOnTheFirstScale) {
  const DatabaseFolder folder;
  tests::RecordingMsgBox msgBox;
  ScaleDatabase database(folder.Folder(), msgBox);
  EXPECT_EQ(database.ScaleConnection(), nullptr);
  database.OpenShared();
  EXPECT_EQ(Here(*database.ScaleRecordset()), "Major");
  EXPECT_EQ(database.ScaleRecordset()->RecordCount(), 4);
  EXPECT_EQ(FailureOf([&] { database.ScaleRecordset()->Delete(); }).Number(), 3251);
  Connection again;
  again.Open(database.ScaleConnection()->ConnectionString());
  EXPECT_TRUE(again.IsOpen());
  EXPECT_THAT(msgBox.Messages(), IsEmpty());
}

TEST(ScaleDatabase, OpensEmptyTables) {
  const DatabaseFolder folder("");
  tests::RecordingMsgBox msgBox;
  ScaleDatabase database(folder.Folder(), msgBox);
  database.OpenShared();
  EXPECT_TRUE(database.ScaleRecordset()->IsEof());
}

TEST(ScaleDatabase, ThrowsWhenTheSharedFileIsMissing) {
  const tests::TempFolder folder;
  tests::RecordingMsgBox msgBox;
  ScaleDatabase database(folder.Path().string(), msgBox);
  const core::Failure failure = FailureOf([&] { database.OpenShared(); });
  EXPECT_EQ(failure.NumberAndDescription(),
            "-2147467259: Could not find file '" + (folder / "TonalithDB97.mdb") + "'.");
  EXPECT_THAT(msgBox.Messages(), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(folder / "TonalithDB97.mdb"));
}

TEST(ScaleDatabase, ThrowsWhenTheSharedFileHasNoStoredQuery) {
  const tests::TempFolder folder;
  SQLite::Database(folder / "TonalithDB97.mdb", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
      .exec("CREATE TABLE x (y)");
  tests::RecordingMsgBox msgBox;
  ScaleDatabase database(folder.Path().string(), msgBox);
  EXPECT_EQ(FailureOf([&] { database.OpenShared(); }).Description(),
            "The database '" + (folder / "TonalithDB97.mdb") + "' has no table or stored query 'ScalesQuery'.");
}

TEST(ScaleDatabase, ReturnsSeparateConnections) {
  const DatabaseFolder folder;
  tests::RecordingMsgBox msgBox;
  ScaleDatabase database(folder.Folder(), msgBox);
  const auto first = database.OpenScaleConnection();
  const auto second = database.OpenScaleConnection();
  ASSERT_NE(first, nullptr);
  EXPECT_TRUE(first->IsOpen());
  EXPECT_NE(first, second);
  EXPECT_EQ(database.ScaleConnection(), nullptr);
}

TEST(ScaleDatabase, ShowsThatTheConnectionFailedAndReturnsNothing) {
  const tests::TempFolder folder;
  tests::RecordingMsgBox msgBox;
  ScaleDatabase database(folder.Path().string(), msgBox);
  EXPECT_EQ(database.OpenScaleConnection(), nullptr);
  EXPECT_THAT(msgBox.Messages(), ElementsAre(Message{"Database connection failed: Could not find file '" +
                                                         (folder / "TonalithDB97.mdb") + "'.",
                                                     MsgBoxStyle::kCritical, ""}));
}

class ScaleQueries : public testing::Test {
 protected:
  static constexpr const char* kRows = R"sql(
    INSERT INTO ScaleTypes VALUES (1, 10, 'Common scales');
    INSERT INTO Scales (ScaleID, ScaleName, ScaleTypeID, ScaleIntervals) VALUES
      (1, 'Major', 1, '2212221'), (2, 'Null', 1, NULL), (3, 'Empty', 1, ''), (4, 'Letters', 1, '22x'),
      (5, 'Blanks', 1, '  2212221 '), (6, 'Inner', 1, '2 2'), (7, 'O''Neil', 1, '66'), (8, 'Major', 1, '12'),
      (9, 'Long', 1, '999999999'), (10, '50% "Übermäßig"', 1, '444'), (11, 'Blank', 1, '  ');
  )sql";

  DatabaseFolder folder_{kRows};
  tests::RecordingMsgBox msgBox_;
  ScaleDatabase database_{folder_.Folder(), msgBox_};
};

TEST_F(ScaleQueries, ReturnTheSemitonesOfANamedScale) {
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("Major"), ElementsAre(2, 2, 1, 2, 2, 2, 1));
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("Long"), testing::SizeIs(9));
  EXPECT_THAT(msgBox_.Messages(), IsEmpty());
}

TEST_F(ScaleQueries, FindNamesWithSpecialCharactersAndNonAsciiLetters) {
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("O'Neil"), ElementsAre(6, 6));
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("50% \"Übermäßig\""), ElementsAre(4, 4, 4));
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("' OR '1'='1"), IsEmpty());
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("%"), IsEmpty());
}

TEST_F(ScaleQueries, ReturnAndShowNothingForAnUnknownName) {
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("Nobody's"), IsEmpty());
  EXPECT_THAT(database_.GetScaleNotes(0, "Nobody's"), IsEmpty());
  EXPECT_THAT(msgBox_.Messages(), IsEmpty());
}

TEST_F(ScaleQueries, UseTheFirstOfTwoScalesOfOneName) {
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("MAJOR"), testing::SizeIs(7));
}

TEST_F(ScaleQueries, TrimTheBlanksAroundAPattern) {
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("Blanks"), ElementsAre(2, 2, 1, 2, 2, 2, 1));
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("Blank"), IsEmpty());
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("Empty"), IsEmpty());
}

TEST_F(ScaleQueries, ThrowForANullPattern) {
  EXPECT_EQ(FailureOf([&] { database_.GetScaleIntervalsFromDB("Null"); }).Number(), 94);
  EXPECT_EQ(FailureOf([&] { database_.GetScaleNotes(0, "Null"); }).Number(), 94);
}

TEST_F(ScaleQueries, ThrowForACharacterThatIsNoDigit) {
  EXPECT_EQ(FailureOf([&] { database_.GetScaleIntervalsFromDB("Letters"); }).Number(), 13);
  EXPECT_EQ(FailureOf([&] { database_.GetScaleIntervalsFromDB("Inner"); }).Number(), 13);
  EXPECT_EQ(FailureOf([&] { database_.GetScaleNotes(0, "Letters"); }).Number(), 13);
}

TEST_F(ScaleQueries, ReturnTheWrappedNotesOfANamedScale) {
  EXPECT_THAT(database_.GetScaleNotes(14, "Major"), ElementsAre("D", "E", "F#", "G", "A", "B", "C#"));
}

TEST_F(ScaleQueries, ShowTheFailedConnectionAndThenThrow) {
  std::filesystem::remove(folder_.Path());
  EXPECT_EQ(FailureOf([&] { database_.GetScaleIntervalsFromDB("Major"); }).Number(), 3709);
  EXPECT_EQ(FailureOf([&] { database_.GetScaleNotes(0, "Major"); }).Number(), 3709);
  const std::string words = "Database connection failed: Could not find file '" + folder_.Path() + "'.\n";
  EXPECT_EQ(msgBox_.Texts(), words + words);
}

TEST_F(ScaleQueries, ReturnThePatternOfANumberedScaleUnchanged) {
  EXPECT_EQ(database_.GetScaleIntervalsByID(7), "66");
  EXPECT_EQ(database_.GetScaleIntervalsByID(5), "  2212221 ");
  EXPECT_EQ(database_.GetScaleIntervalsByID(4), "22x");
  EXPECT_THAT(msgBox_.Messages(), IsEmpty());
}

TEST_F(ScaleQueries, ReplaceTheSharedConnectionAndRecordSet) {
  database_.OpenShared();
  const auto connection = database_.ScaleConnection();
  const auto records = database_.ScaleRecordset();
  database_.GetScaleIntervalsByID(7);
  EXPECT_NE(database_.ScaleConnection(), connection);
  EXPECT_NE(database_.ScaleRecordset(), records);
  EXPECT_EQ(Lines(*database_.ScaleRecordset(), {"ScaleID", "ScaleName"}), "7 | O'Neil\n");
}

TEST_F(ScaleQueries, ShowNumberAndDescriptionForAnUnknownScaleNumber) {
  EXPECT_EQ(database_.GetScaleIntervalsByID(99), "");
  EXPECT_THAT(msgBox_.Messages(), ElementsAre(Message{kNoRecordMessage, MsgBoxStyle::kCritical, ""}));
}

TEST_F(ScaleQueries, ShowNumberAndDescriptionForANullPattern) {
  EXPECT_EQ(database_.GetScaleIntervalsByID(2), "");
  EXPECT_THAT(msgBox_.Messages(), ElementsAre(Message{"94: Invalid use of Null", MsgBoxStyle::kCritical, ""}));
}

TEST_F(ScaleQueries, ShowTheLastFailureOnceIfTheFileIsMissing) {
  std::filesystem::remove(folder_.Path());
  EXPECT_EQ(database_.GetScaleIntervalsByID(7), "");
  EXPECT_THAT(msgBox_.Messages(), ElementsAre(Message{"3704: Operation is not allowed when the object is closed.",
                                                      MsgBoxStyle::kCritical, ""}));
}

TEST_F(ScaleQueries, NeedOneStatementByName) {
  const std::uint64_t before = Connection::StatementsIssued();
  database_.GetScaleIntervalsFromDB("Major");
  EXPECT_EQ(Connection::StatementsIssued() - before, 1U);
}

}  // namespace
}  // namespace tonalith::data
