// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/jet_conversion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <set>

#include "data/data_failure.h"
#include "data/data_fixture.h"
#include "jet/jet_file.h"
#include "jet/jet_fixture.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::StartsWith;

// A folder whose main database is a Jet file.
class JetFolder {
 public:
  explicit JetFolder(const std::string& content = jet::ContentOfFile(jet::kJet2003)) : content_(content) {
    static_cast<void>(folder_.Write(kDatabaseFileName, content));
  }

  [[nodiscard]] std::string Path() const { return folder_ / kDatabaseFileName; }
  [[nodiscard]] std::string SecondName() const { return folder_ / "TonalithDB97 (Jet file before conversion).mdb"; }
  [[nodiscard]] std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.Path())) names.insert(entry.path().filename().string());
    return names;
  }
  /// The Jet file is unchanged and the only file.
  void ExpectUnchanged() const {
    EXPECT_EQ(jet::ContentOfFile(Path()), content_);
    EXPECT_EQ(Names(), std::set<std::string>{std::string(kDatabaseFileName)});
  }
  /// The database is complete, and the Jet file exists under its second name.
  void ExpectConverted() const {
    EXPECT_EQ(AskRaw(Path(), "SELECT count(*) || ' ' || sum(ScaleID) FROM Scales"), "270 40620");
    EXPECT_EQ(AskRaw(Path(), "PRAGMA integrity_check"), "ok");
    EXPECT_EQ(jet::ContentOfFile(SecondName()), content_);
    EXPECT_EQ(Names().size(), 2U);
  }

 private:
  tests::TempFolder folder_;
  std::string content_;
};

TEST(JetConversion, IgnoresFilesThatAreNotJetFiles) {
  const DatabaseFolder ours;
  const std::string before = jet::ContentOfFile(ours.Path());
  EXPECT_FALSE(ConvertMainDatabaseIfJet(ours.Path()).has_value());
  EXPECT_EQ(jet::ContentOfFile(ours.Path()), before);
  EXPECT_FALSE(ConvertMainDatabaseIfJet(ours.Path() + ".absent").has_value());
}

TEST(JetConversion, CreatesAScaleDatabaseAndKeepsTheJetFile) {
  const JetFolder folder;
  EXPECT_EQ(ConvertMainDatabaseIfJet(folder.Path()), folder.SecondName());
  folder.ExpectConverted();
  EXPECT_EQ(AskRaw(folder.Path(), "PRAGMA application_id"), std::to_string(kApplicationId));
  EXPECT_TRUE(jet::IsJetFile(folder.SecondName()));
}

TEST(JetConversion, RunsOnce) {
  const JetFolder folder;
  ASSERT_TRUE(ConvertMainDatabaseIfJet(folder.Path()).has_value());
  EXPECT_FALSE(ConvertMainDatabaseIfJet(folder.Path()).has_value());
  folder.ExpectConverted();
}

TEST(JetConversion, CopiesFieldsThatOnlyTheJetFileHas) {
  const JetFolder folder;
  ASSERT_TRUE(ConvertMainDatabaseIfJet(folder.Path()).has_value());
  EXPECT_EQ(AskRaw(folder.Path(),
                   "SELECT Composer || '|' || AddedOn || '|' || Price || '|' || Score || '|' || "
                   "ifnull(Picture, 'none') FROM Scales WHERE ScaleID = 2"),
            "Somebody|2001-09-10 01:46:40|12.5|3.25|none");
}

TEST(JetConversion, CreatesADatabaseThatCanBeEdited) {
  const JetFolder folder(jet::ContentOfFile(jet::kJet2000));
  ASSERT_TRUE(ConvertMainDatabaseIfJet(folder.Path()).has_value());
  const auto connection = std::make_shared<Connection>();
  connection->Open(FullConnectionString(folder.Path()));
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", connection, CursorType::kKeyset, LockType::kOptimistic);
  EXPECT_EQ(Lines(records, {"ScaleID", "ScaleName", "ScaleTypeName", "Chord", "Sort"}),
            "1 | Ferryman's Lament | Fixture modes | 0 | 1\n"
            "2 | Žluťoučký kůň | Fixture modes | 0 | 2\n"
            "3 | Quiet Ninth | A name the main database has under another word | 1 | 3\n"
            "4 | MAJOR | Fixture modes | 0 | 4\n"
            "5 | Long Story | Fixture modes | 0 | (null)\n");
  records.MoveFirst();
  records.SetFieldValue("ScaleName", "Ferrywoman's Lament");
  records.Update();
  records.AddNew();
  records.SetFieldValue("ScaleName", "New");
  records.SetFieldValue("ScaleTypeID", 401);
  records.Update();
  EXPECT_EQ(
      AskRaw(folder.Path(), "SELECT group_concat(ScaleID) FROM Scales WHERE ScaleName LIKE '%New%' OR ScaleID = 1"),
      "1,6");
}

TEST(JetConversion, RefusesADamagedFileAndChangesNothing) {
  std::string content = jet::ContentOfFile(jet::kJet2003);
  content.resize(content.size() - jet::kJetPage);
  const JetFolder folder(content);
  EXPECT_THAT(FailureOf([&] { ConvertMainDatabaseIfJet(folder.Path()); }).Description(),
              AllOf(StartsWith("The Jet database '" + folder.Path() +
                               "' cannot be converted, and nothing was changed. The file '" + folder.Path() +
                               "' cannot be read: it is damaged"),
                    EndsWith(".")));
  folder.ExpectUnchanged();
}

std::string Wide(const std::string& text) {
  std::string units;
  for (const char character : text) units += {character, '\0'};
  return units;
}

// The catalog has each name in UTF-16, after the type and the flags of the object.
constexpr std::size_t kTypeBeforeName = 22;
constexpr std::size_t kFlagsBeforeName = 4;

std::size_t PlaceInCatalog(const std::string& content, const std::string& name) {
  const std::size_t place = content.find(Wide(name));
  if (place == std::string::npos) throw std::out_of_range(name);
  return place;
}

std::string ContentWithName(const std::string& path, const std::string& from, const std::string& to) {
  std::string content = jet::ContentOfFile(path);
  return content.replace(PlaceInCatalog(content, from), 2 * from.size(), Wide(to));
}

std::string ContentWithType(const std::string& path, const std::string& name, std::int16_t type) {
  std::string content = jet::ContentOfFile(path);
  const std::size_t place = PlaceInCatalog(content, name) - kTypeBeforeName;
  content.at(place) = static_cast<char>(type & 0xFF);
  content.at(place + 1) = static_cast<char>(type >> 8);
  return content;
}

TEST(JetConversion, RefusesAFileWithoutATableOfScaleTypes) {
  const JetFolder folder(ContentWithName(jet::kJet2003, "ScaleTypes", "ScaleThing"));
  EXPECT_THAT(FailureOf([&] { ConvertMainDatabaseIfJet(folder.Path()); }).Description(),
              EndsWith("nothing was changed. It has no table 'ScaleTypes'."));
  folder.ExpectUnchanged();
}

TEST(JetConversion, CopiesATableThatOnlyTheJetFileHas) {
  std::string content = ContentWithName(jet::kJet2003, "MSysNavPaneGroups", "Players and Bands");
  content.at(PlaceInCatalog(content, "Players and Bands") - kFlagsBeforeName) = 0;
  const JetFolder folder(content);
  ASSERT_TRUE(ConvertMainDatabaseIfJet(folder.Path()).has_value());
  folder.ExpectConverted();
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) > 0 FROM [Players and Bands]"), "1");
}

TEST(JetConversion, NamesUnsupportedObjectsAndChangesNothing) {
  const std::vector<std::pair<std::int16_t, std::string>> kinds = {
      {5, "stored query"}, {6, "linked table"}, {8, "relationship"}, {-32768, "form"}, {-32764, "report"}};
  for (const auto& [type, kind] : kinds) {
    const JetFolder folder(ContentWithType(jet::kJet2003, "SummaryInfo", type));
    EXPECT_THAT(FailureOf([&] { ConvertMainDatabaseIfJet(folder.Path()); }).Description(),
                EndsWith("nothing was changed. A scale database cannot hold " + kind + " 'SummaryInfo'."));
    folder.ExpectUnchanged();
  }
}

TEST(JetConversion, AcceptsTheStoredQuery) {
  std::string content = ContentWithType(jet::kJet2003, "SummaryInfo", 5);
  content.replace(PlaceInCatalog(content, "SummaryInfo"), 22, Wide("ScalesQuery"));
  const JetFolder folder(content);
  EXPECT_TRUE(ConvertMainDatabaseIfJet(folder.Path()).has_value());
  folder.ExpectConverted();
}

TEST(JetConversion, OnlyTheQueryOfThatNameIsTheStoredQuery) {
  std::string content = ContentWithType(jet::kJet2003, "SummaryInfo", 5);
  const auto open = [&] {
    const JetFolder folder(content);
    const auto connection = std::make_shared<Connection>();
    connection->Open(FullConnectionString(folder.Path()));
    RecordSet records;
    records.Open("SELECT * FROM ScalesQuery", connection);
    return records.RecordCount();
  };
  EXPECT_EQ(FailureOf(open).Number(), failure_number::kUnknownTable);
  content.replace(PlaceInCatalog(content, "SummaryInfo"), 22, Wide("ScalesQuery"));
  EXPECT_GT(open(), 0);
}

TEST(JetConversion, RefusesTwoTypesOfOneNumber) {
  // Each row starts with the key and the number of the type, which are equal.
  std::string content = jet::ContentOfFile(jet::kJet2000);
  const std::string row("\x91\x01\0\0\x91\x01\0\0", 8);
  const std::size_t place = content.find(row);
  ASSERT_NE(place, std::string::npos);
  content.replace(place, 4, std::string("\1\0\0\0", 4));
  const JetFolder folder(content);
  EXPECT_THAT(
      FailureOf([&] { ConvertMainDatabaseIfJet(folder.Path()); }).Description(),
      EndsWith("nothing was changed. Row 2 of the table 'ScaleTypes': The record was not saved, because another "
               "record has the same key."));
  folder.ExpectUnchanged();
}

TEST(JetConversion, RefusesAValueThatWouldChange) {
  // The last byte of a page is the null mask of its first row. The type has no number now, and the database would
  // assign one.
  std::string content = jet::ContentOfFile(jet::kJet2000);
  const std::size_t place = content.find(std::string("\x91\x01\0\0\x91\x01\0\0", 8));
  ASSERT_NE(place, std::string::npos);
  char& present = content.at((place / jet::kJetPage + 1) * jet::kJetPage - 1);
  ASSERT_EQ(present, 7);
  present = 6;
  const JetFolder folder(content);
  EXPECT_THAT(FailureOf([&] { ConvertMainDatabaseIfJet(folder.Path()); }).Description(),
              EndsWith("nothing was changed. Row 1 of the table 'ScaleTypes': The field 'ScaleTypeID' cannot hold what "
                       "is in it as it stands."));
  folder.ExpectUnchanged();
}

TEST(JetConversion, ConvertsTheTargetOfALink) {
  const JetFolder folder;
  const tests::TempFolder elsewhere;
  fs::create_symlink(folder.Path(), elsewhere / kDatabaseFileName);
  EXPECT_EQ(ConvertMainDatabaseIfJet(elsewhere / kDatabaseFileName), folder.SecondName());
  EXPECT_TRUE(fs::is_symlink(elsewhere / kDatabaseFileName));
  folder.ExpectConverted();
}

TEST(JetConversion, KeepsThePermissionsOfTheFile) {
  const JetFolder folder;
  fs::permissions(folder.Path(), fs::perms::owner_read | fs::perms::owner_write);
  ASSERT_TRUE(ConvertMainDatabaseIfJet(folder.Path()).has_value());
  EXPECT_EQ(fs::status(folder.Path()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(JetConversion, RenamesTheJournalOfAnotherDatabase) {
  const JetFolder folder;
  std::ofstream(folder.Path() + "-journal") << "of a database that lay here before";
  ASSERT_TRUE(ConvertMainDatabaseIfJet(folder.Path()).has_value());
  EXPECT_FALSE(fs::exists(folder.Path() + "-journal"));
  EXPECT_EQ(jet::ContentOfFile(folder.Path() + "-journal.kept"), "of a database that lay here before");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "270");
}

TEST(JetConversion, ReplacesTheFilesOfAnInterruptedConversion) {
  const JetFolder folder;
  std::ofstream(folder.Path() + ".converting") << "half";
  std::ofstream(folder.Path() + ".converting-journal") << "half";
  EXPECT_EQ(ConvertMainDatabaseIfJet(folder.Path()), folder.SecondName());
  folder.ExpectConverted();
}

// Runs a conversion in a child process, which is killed when `isTime` returns true.
void ConvertAndBeKilled(const std::string& path, const std::function<bool(ConversionStep)>& isTime) {
  const pid_t process = ::fork();
  ASSERT_GE(process, 0);
  if (process == 0) {
    try {
      ConvertMainDatabaseIfJet(path, [&](ConversionStep step) {
        if (isTime(step)) ::kill(::getpid(), SIGKILL);
      });
    } catch (const std::exception&) {
      ::_exit(1);
    }
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(process, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status)) << status;
}

TEST(JetConversion, IsCompletedAtTheNextStartAfterAKillAtAnyStep) {
  for (const ConversionStep last : {ConversionStep::kMaking, ConversionStep::kFilling, ConversionStep::kFilled,
                                    ConversionStep::kBackedUp, ConversionStep::kReplaced}) {
    const JetFolder folder;
    ConvertAndBeKilled(folder.Path(), [last](ConversionStep step) { return step == last; });
    const bool isDone = last == ConversionStep::kReplaced;
    EXPECT_EQ(jet::IsJetFile(folder.Path()), !isDone);
    if (!isDone) {
      EXPECT_EQ(jet::ContentOfFile(folder.Path()), jet::ContentOfFile(jet::kJet2003));
    }
    EXPECT_EQ(ConvertMainDatabaseIfJet(folder.Path()).has_value(), !isDone);
    folder.ExpectConverted();
  }
}

TEST(JetConversion, ShowsTheOldOrTheNewFileAtEveryMoment) {
  for (int delay = 0; delay < 16; ++delay) {
    const JetFolder folder;
    const pid_t process = ::fork();
    if (process == 0) {
      try {
        ConvertMainDatabaseIfJet(folder.Path());
      } catch (const std::exception&) {
        ::_exit(1);
      }
      ::_exit(0);
    }
    // The kill comes at another moment in each round.
    ::usleep(static_cast<useconds_t>(delay) * 10'000);
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
    if (jet::IsJetFile(folder.Path())) {
      EXPECT_EQ(jet::ContentOfFile(folder.Path()), jet::ContentOfFile(jet::kJet2003));
    } else {
      EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "270");
    }
    ConvertMainDatabaseIfJet(folder.Path());
    folder.ExpectConverted();
  }
}

TEST(JetConversion, RunsOnceIfTwoProgramsStartTogether) {
  const JetFolder folder;
  std::array<pid_t, 3> programs{};
  for (pid_t& program : programs) {
    program = ::fork();
    if (program != 0) continue;
    try {
      ConvertMainDatabaseIfJet(folder.Path());
    } catch (const std::exception&) {
      ::_exit(1);
    }
    ::_exit(0);
  }
  for (const pid_t program : programs) {
    int status = 0;
    ::waitpid(program, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  }
  folder.ExpectConverted();
}

}  // namespace
}  // namespace tonalith::data
