// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Bad databases and bad input: the window opens, reports the failure, is still usable and loses no data.

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "app/main_window_fixture.h"
#include "support/timed.h"

namespace tonalith::app {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class BadInput : public MainWindowTest {
 protected:
  void WriteDatabaseFile(const std::string& content) {
    std::ofstream(Path("TonalithDB97.mdb"), std::ios::binary) << content;
  }
  void ExpectOneCriticalMessageThatNamesTheFile() {
    ASSERT_THAT(box_.Messages(), SizeIs(1));
    EXPECT_EQ(box_.Messages()[0].style, core::MsgBoxStyle::kCritical);
    EXPECT_THAT(box_.Messages()[0].text, HasSubstr(": "));
    EXPECT_THAT(box_.Messages()[0].text, HasSubstr("TonalithDB97.mdb"));
  }
  void ExpectUsableAndEmpty() {
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(Text(C().Label1), "");
    EXPECT_EQ(Text(C().lblScaleDescription), "");
    box_.Forget();
    Press("Next record");
    Press("Last record");
    C().cmbTranspose->Choose(3);
    Window().Menu().Entry("mViewNotes")->trigger();
    EXPECT_EQ(StringNotes(1), "");
    EXPECT_EQ(Text(C().lblTranspose), "Scale Steps: ");
    EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
  }
  std::string ShowFirst(const std::vector<TestScale>& scales) {
    MakeDatabase(scales);
    Start();
    return box_.Texts();
  }
};

TEST_F(BadInput, MissingDatabaseIsOneCriticalMessageAndAnEmptyWindow) {
  Start();
  ExpectOneCriticalMessageThatNamesTheFile();
  ExpectUsableAndEmpty();
  EXPECT_FALSE(fs::exists(Path("TonalithDB97.mdb"))) << "a failed open must not create a database";
}

TEST_F(BadInput, FileThatIsNoDatabaseIsReportedAndUnchanged) {
  const std::string noise(5000, 'x');
  WriteDatabaseFile(noise);
  Start();
  ExpectOneCriticalMessageThatNamesTheFile();
  ExpectUsableAndEmpty();
  EXPECT_EQ(fs::file_size(Path("TonalithDB97.mdb")), noise.size());
}

TEST_F(BadInput, EmptyFileIsNoDatabase) {
  WriteDatabaseFile("");
  Start();
  ExpectOneCriticalMessageThatNamesTheFile();
  ExpectUsableAndEmpty();
  EXPECT_EQ(fs::file_size(Path("TonalithDB97.mdb")), 0U);
}

TEST_F(BadInput, FolderInPlaceOfTheDatabaseIsOneCriticalMessage) {
  fs::create_directory(Path("TonalithDB97.mdb"));
  Start();
  ExpectOneCriticalMessageThatNamesTheFile();
  ExpectUsableAndEmpty();
}

TEST_F(BadInput, TruncatedDatabaseIsReportedAndKept) {
  CopyShippedDatabase();
  fs::resize_file(Path("TonalithDB97.mdb"), 4096 + 100);
  Start();
  EXPECT_TRUE(Window().isVisible());
  ASSERT_THAT(box_.Messages(), SizeIs(1)) << box_.Texts();
  EXPECT_EQ(box_.Messages()[0].style, core::MsgBoxStyle::kCritical);
  EXPECT_EQ(fs::file_size(Path("TonalithDB97.mdb")), 4196U);
}

TEST_F(BadInput, UpdateBindsADatabaseAddedAfterTheStart) {
  Start();
  box_.Forget();
  MakeDatabase({{"Late", "2212221"}});
  const fs::path before = fs::current_path();
  fs::current_path(temp_.Path());
  QTest::mouseClick(C().cmdUpdate, Qt::LeftButton);
  fs::current_path(before);
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
  EXPECT_EQ(Text(C().Label1), "Late");
}

TEST_F(BadInput, EmptyTablesAreNoFailure) {
  MakeDatabase({});
  Start();
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
  ExpectUsableAndEmpty();
}

TEST_F(BadInput, KeyThatClosesAMessageBoxShowsNoSecondOne) {
  ShowFirst({{"Null", std::nullopt}});
  box_.Forget();
  QTest::keyClick(C().cmbTranspose, Qt::Key_D);
  EXPECT_THAT(box_.Messages(), SizeIs(1)) << box_.Texts();
  for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
    QTest::keyRelease(C().cmbTranspose, key);
    EXPECT_THAT(box_.Messages(), SizeIs(1)) << box_.Texts();
  }
}

TEST_F(BadInput, NullPatternIsReportedAndTheNextRecordIsShown) {
  EXPECT_EQ(ShowFirst({{"Null", std::nullopt}, {"Major", "2212221"}}), "9 Subscript out of range\n");
  EXPECT_EQ(StringNotes(1), "");
  box_.Forget();
  Press("Next record");
  EXPECT_EQ(StringNotes(1), "E F G A B C D E F G");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(BadInput, EmptyPatternIsAScaleOfOneNote) {
  EXPECT_EQ(ShowFirst({{"One", ""}}), "");
  EXPECT_EQ(StringNotes(1), "C");
  EXPECT_EQ(Text(C().lblTranspose), "Scale Steps: ");
}

TEST_F(BadInput, NonDigitIsReportedOncePerRefresh) {
  EXPECT_EQ(ShowFirst({{"Bad", "22x2221"}}), "13 Type mismatch\n");
  EXPECT_EQ(StringNotes(1), "");
  EXPECT_EQ(Text(C().lblTranspose), "Scale Steps:   T  T  T  T  T  S");
}

TEST_F(BadInput, SumPastTheTableIsReportedOncePerRefresh) {
  EXPECT_EQ(ShowFirst({{"Huge", "9999"}}), "9 Subscript out of range\n");
  box_.Forget();
  C().cmbTranspose->Choose(1);
  EXPECT_EQ(box_.Texts(), "9 Subscript out of range\n");
}

TEST_F(BadInput, PatternOfMoreThanThreeOctavesIsShownAsDamaged) {
  for (const std::string& pattern : {std::string(37, '0'), std::string(400, '0'), std::string(1U << 20U, '1')}) {
    window_.reset();
    database_.reset();
    fs::remove(Path("TonalithDB97.mdb"));
    const auto started = std::chrono::steady_clock::now();
    EXPECT_EQ(ShowFirst({{"Long", pattern}, {"Major", "2212221"}}), "") << "no message";
    EXPECT_EQ(Text(C().lblTranspose), "Scale Steps:   This scale is damaged: its pattern has more than 36 steps.");
    EXPECT_FALSE(C().lblTranspose->IsElided());
    EXPECT_EQ(Text(C().lblScaleNotes), "Scale Notes");
    EXPECT_EQ(Text(C().Label1), "Long");
    EXPECT_EQ(StringNotes(1), "");
    EXPECT_EQ(C().staff->accessibleName().toStdString(), "This scale is damaged.");
    EXPECT_THAT(C().staff->Drawing().AsText(), HasSubstr("print \"This scale is damaged.\""));
    EXPECT_FALSE(C().cmdListen->isEnabled());
    EXPECT_FALSE(Window().Menu().Entry("mListen")->isEnabled());
    EXPECT_TRUE(C().cmdPrint->isEnabled());
    Window().cmdListen_Click();
    Window().grab();
    Press("Next record");
    EXPECT_EQ(StringNotes(1), "E F G A B C D E F G");
    EXPECT_TRUE(C().cmdListen->isEnabled());
    EXPECT_EQ(box_.Texts(), "");
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(5))
        << "an overlong pattern is not built";
  }
}

TEST_F(BadInput, PatternOfThreeOctavesIsNotDamaged) {
  EXPECT_EQ(ShowFirst({{"Long", std::string(36, '0')}}), "");
  EXPECT_EQ(StringNotes(1), "C");
  EXPECT_TRUE(C().cmdListen->isEnabled());
}

TEST_F(BadInput, TextsOfMegabytesAreTruncatedForDisplayOnly) {
  const std::string huge(5U << 20U, 'm');
  EXPECT_EQ(ShowFirst({{huge, "2212221", huge}}), "");
  EXPECT_EQ(Text(C().Label1).size(), 1019U + 3);
  EXPECT_THAT(Text(C().Label1), testing::EndsWith("m\xE2\x80\xA6"));
  EXPECT_EQ(C().lblScaleDescription->text().size(), 8000);
  EXPECT_EQ(Text(C().lblScaleNotes), " C D E F G A B") << "the pattern is looked up by the complete name";
  const auto started = std::chrono::steady_clock::now();
  Window().grab();
  C().cmbTranspose->Choose(3);
  EXPECT_LT(std::chrono::steady_clock::now() - started, tests::Timely(std::chrono::seconds(2)));
  SQLite::Database file(Path("TonalithDB97.mdb"));
  EXPECT_EQ(file.execAndGet("SELECT length(ScaleName) + length(ScaleDescription) FROM Scales").getInt64(),
            std::int64_t{2} * 5 * 1024 * 1024);
}

TEST_F(BadInput, NamesWithSpecialCharactersAreShownUnchanged) {
  const std::vector<TestScale> scales = {{"O'Neil's \"blue\" 100% scale; --", "2212221"},
                                         {"G\xC3\xB6khan \xE2\x99\xAF <b>bold</b> &amp;", "345"}};
  EXPECT_EQ(ShowFirst(scales), "");
  EXPECT_EQ(Text(C().Label1), scales[0].name);
  EXPECT_EQ(Text(C().lblScaleNotes), " C D E F G A B");
  Press("Next record");
  EXPECT_EQ(Text(C().Label1), scales[1].name);
  EXPECT_EQ(Text(C().lblScaleNotes), " C D# G");
  EXPECT_EQ(C().Label1->textFormat(), Qt::PlainText);
}

TEST_F(BadInput, LongTextsAreShownSmallerAndElided) {
  EXPECT_EQ(ShowFirst({{std::string(250, 'W'), "2212221", std::string(5000, 'm')}}), "");
  EXPECT_EQ(C().Label1->FittedPixelSize(), 15);
  EXPECT_TRUE(C().Label1->IsElided());
  EXPECT_TRUE(C().lblScaleDescription->IsElided());
  EXPECT_EQ(Text(C().lblScaleDescription).size(), 5000U);
}

TEST_F(BadInput, TypedKeyThatIsNoNoteReadsAsCAndLightsNoKeyNote) {
  EXPECT_EQ(ShowFirst({{"Major", "2212221"}}), "");
  C().cmbTranspose->lineEdit()->selectAll();
  QTest::keyClicks(C().cmbTranspose, QStringLiteral("Hx"));
  EXPECT_EQ(StringNotes(1), "E F G A B C D E F G");
  for (int i = 0; i < 96; ++i) {
    const views::NoteImage& image = C().fretboard->Image(i);
    EXPECT_FALSE(image.isVisible() && image.Picture() == views::NotePicture::kKeyNote) << i;
  }
  EXPECT_EQ(Text(C().lblScaleNotes), " C D E F G A B");
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(BadInput, LockedDatabaseIsReportedAndUpdateWorksAfterUnlock) {
  MakeDatabase({{"Major", "2212221"}});
  {
    SQLite::Database other(Path("TonalithDB97.mdb"), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    Start();
    EXPECT_TRUE(Window().isVisible());
    ASSERT_THAT(box_.Messages(), SizeIs(1)) << box_.Texts();
    EXPECT_EQ(box_.Messages()[0].style, core::MsgBoxStyle::kCritical);
  }
  box_.Forget();
  const fs::path before = fs::current_path();
  fs::current_path(temp_.Path());
  QTest::mouseClick(C().cmdUpdate, Qt::LeftButton);
  fs::current_path(before);
  EXPECT_EQ(Text(C().Label1), "Major") << box_.Texts();
}

TEST_F(BadInput, UpdateAfterAFailedUpdateReturnsToTheRecord) {
  MakeDatabase({{"Major", "2212221"}, {"Dorian", "2122212"}});
  Start();
  Press("Next record");
  {
    SQLite::Database other(Path("TonalithDB97.mdb"), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    QTest::mouseClick(C().cmdUpdate, Qt::LeftButton);
    EXPECT_THAT(box_.Messages(), SizeIs(1)) << box_.Texts();
  }
  QTest::mouseClick(C().cmdUpdate, Qt::LeftButton);
  EXPECT_EQ(Text(C().Label1), "Dorian");
}

TEST_F(BadInput, DeletedDatabaseIsReportedAndTheWindowStaysUsable) {
  EXPECT_EQ(ShowFirst({{"Major", "2212221"}, {"Minor", "2122122"}}), "");
  fs::remove(Path("TonalithDB97.mdb"));
  C().cmbTranspose->Choose(2);
  ASSERT_THAT(box_.Messages(), SizeIs(1)) << box_.Texts();
  EXPECT_THAT(box_.Messages()[0].text, AllOf(StartsWith("Database connection failed: "), HasSubstr("Could not find")));
  EXPECT_EQ(StringNotes(1), "E F# G A B C# D E F# G");
}

}  // namespace
}  // namespace tonalith::app
