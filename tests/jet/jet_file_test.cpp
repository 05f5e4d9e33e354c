// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "jet/jet_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "jet/jet_fixture.h"
#include "support/failure_of.h"
#include "support/temp_folder.h"
#include "support/text_message.h"

namespace tonalith::jet {
namespace {

using tests::FailureOf;

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// Records everything; rows as values.
class Recorder : public JetVisitor {
 public:
  struct Table {
    JetTable table;
    std::vector<std::vector<core::Value>> rows;

    [[nodiscard]] const core::Value& At(std::size_t row, const std::string& field) const {
      for (std::size_t i = 0; i < table.columns.size(); ++i) {
        if (table.columns[i].name == field) return rows.at(row).at(i);
      }
      throw std::out_of_range(field);
    }
  };

  void OnObject(const JetObject& object) override { objects.push_back(object); }
  void OnTable(const JetTable& table) override { tables.push_back({table, {}}); }
  void OnRow(std::vector<core::Value> values) override { tables.back().rows.push_back(std::move(values)); }

  [[nodiscard]] Table Of(const std::string& name) const {
    return *std::find_if(tables.begin(), tables.end(), [&](const Table& table) { return table.table.name == name; });
  }

  std::vector<JetObject> objects;
  std::vector<Table> tables;
};

Recorder Read(const std::string& path) {
  Recorder recorder;
  ReadJetFile(path, recorder);
  return recorder;
}

std::string RefusalOf(const std::string& path) {
  Recorder recorder;
  return FailureOf([&] { ReadJetFile(path, recorder); }).Description();
}

TEST(JetFile, IsKnownByItsContentNotByItsName) {
  const tests::TempFolder folder;
  EXPECT_TRUE(IsJetFile(kJet2000));
  EXPECT_TRUE(IsJetFile(folder.Write("tune.txt", ContentOfFile(kJet2003))));
  EXPECT_FALSE(IsJetFile(folder.Write("DataPack_A.mdb", std::string(8192, 'x'))));
  EXPECT_FALSE(IsJetFile(folder.Write("short.mdb", ContentOfFile(kJet2000).substr(0, 16))));
  EXPECT_FALSE(IsJetFile(folder.Write("empty.mdb", "")));
  EXPECT_FALSE(IsJetFile(folder.Path().string()));
  EXPECT_FALSE(IsJetFile(folder / "absent.mdb"));
}

TEST(JetFile, ReturnsUserTablesWithTheirFieldsAndNoSystemTables) {
  const Recorder read = Read(kJet2000);
  ASSERT_EQ(read.tables.size(), 2U);
  const JetTable scales = {"Scales",
                           {{"ScaleID", JetContent::kWholeNumber},
                            {"ScaleName", JetContent::kText},
                            {"ScaleTypeID", JetContent::kWholeNumber},
                            {"ScaleDescription", JetContent::kText},
                            {"StartNote", JetContent::kText},
                            {"ScaleIntervals", JetContent::kText},
                            {"Chord", JetContent::kYesNo},
                            {"Sort", JetContent::kWholeNumber}}};
  EXPECT_EQ(read.Of("Scales").table, scales);
  EXPECT_EQ(read.Of("ScaleTypes").rows.size(), 2U);
  EXPECT_TRUE(read.objects.empty());
}

TEST(JetFile, ReturnsTextsAsUtf8) {
  const auto scales = Read(kJet2000).Of("Scales");
  EXPECT_EQ(scales.At(0, "ScaleName"), core::Value("Ferryman's Lament"));
  EXPECT_EQ(scales.At(1, "ScaleName"), core::Value("Žluťoučký kůň"));
  EXPECT_THAT(scales.At(1, "ScaleDescription").AsText(), AllOf(HasSubstr("Příliš žluťoučký kůň"), HasSubstr("中文")));
}

TEST(JetFile, ReturnsLongTextsCompleteAndNullAsNull) {
  const auto scales = Read(kJet2000).Of("Scales");
  const std::string story = scales.At(4, "ScaleDescription").AsText();
  EXPECT_EQ(story.size(), 5004U);
  EXPECT_EQ(story.substr(0, 5000), std::string(5000, 'x'));
  EXPECT_TRUE(scales.At(4, "Sort").IsNull());
  EXPECT_TRUE(scales.At(2, "ScaleDescription").IsNull());
}

TEST(JetFile, ReturnsYesAndNoAsOneAndZero) {
  const auto scales = Read(kJet2000).Of("Scales");
  EXPECT_EQ(scales.At(2, "Chord"), core::Value(std::int64_t{1}));
  EXPECT_EQ(scales.At(3, "Chord"), core::Value(std::int64_t{0}));
}

TEST(JetFile, OmitsDeletedRows) {
  const auto scales = Read(kJet2003).Of("Scales");
  ASSERT_EQ(scales.rows.size(), 270U);
  std::size_t at = 0;
  for (int number = 0; number < 300; ++number) {
    if (number % 10 == 5) continue;
    const std::string digits = std::to_string(1000 + number).substr(1);
    EXPECT_EQ(scales.At(at, "ScaleName"), core::Value("Fixture Row " + digits));
    EXPECT_EQ(scales.At(at, "ScaleID"), core::Value(std::int64_t{number + 1}));
    ++at;
  }
}

TEST(JetFile, ReturnsDatesMoneyFractionsAndBytes) {
  const auto scales = Read(kJet2003).Of("Scales");
  EXPECT_EQ(scales.At(0, "Composer"), core::Value("Somebody"));
  EXPECT_EQ(scales.At(0, "AddedOn"), core::Value("2001-09-09 01:46:40"));
  EXPECT_EQ(scales.At(0, "Price"), core::Value(12.5));
  EXPECT_EQ(scales.At(0, "Score"), core::Value(3.25));
  EXPECT_EQ(scales.table.columns.back(), (JetColumn{"Picture", JetContent::kBytes}));
}

TEST(JetFile, RefusesAnEncryptedFileWithTheReason) {
  const tests::TempFolder folder;
  EXPECT_EQ(
      RefusalOf(folder.Write("a.mdb", ContentWith(kJet2000, {{0x3E, 0x01}}))),
      "The file '" + folder / "a.mdb" + "' cannot be read: it is encrypted. Save it without encryption and try again.");
}

TEST(JetFile, RefusesAFileWithAPasswordWithTheReason) {
  const tests::TempFolder folder;
  EXPECT_EQ(RefusalOf(folder.Write("a.mdb", ContentWith(kJet2003, {{0x42, 'a'}}))),
            "The file '" + folder / "a.mdb" +
                "' cannot be read: it is protected with a password. Remove the password and try again.");
}

TEST(JetFile, RefusesAFileTruncatedAtAnyPage) {
  const tests::TempFolder folder;
  const std::string whole = ContentOfFile(kJet2003);
  for (std::size_t size = 64; size < whole.size(); size += size < 2 * kJetPage ? 1000 : kJetPage / 2) {
    const std::string path = folder.Write("a.mdb", whole.substr(0, size));
    EXPECT_THAT(RefusalOf(path), StartsWith("The file '" + path + "' cannot be read: it is ")) << size;
  }
}

TEST(JetFile, RefusesNoiseAfterAValidHeader) {
  const tests::TempFolder folder;
  std::string content = ContentOfFile(kJet2000).substr(0, 20) + std::string(20 * kJetPage - 20, '\0');
  std::mt19937 random(7);
  std::generate(content.begin() + 0x15, content.end(), [&] { return static_cast<char>(random()); });
  EXPECT_THAT(RefusalOf(folder.Write("a.mdb", content)), HasSubstr("' cannot be read: it is "));
}

TEST(JetFile, RefusesALongTextWithMissingPages) {
  const tests::TempFolder folder;
  std::string content = ContentOfFile(kJet2000);
  const std::string story("x\0x\0x\0x\0", 8);
  int pages = 0;
  for (std::size_t page = 0; page < content.size(); page += kJetPage) {
    if (content.compare(page + 4, 4, "LVAL") != 0 || content.find(story, page) >= page + kJetPage) continue;
    content[page + 4] = 'X';
    ++pages;
  }
  ASSERT_GE(pages, 1);
  EXPECT_THAT(RefusalOf(folder.Write("a.mdb", content)),
              HasSubstr("the table 'Scales' cannot be read completely (a long content)"));
}

TEST(JetFile, RefusesATableWithFewerRowsThanItsCount) {
  const tests::TempFolder folder;
  // A table definition is a page of type 2 with the number of rows at offset 16.
  std::string content = ContentOfFile(kJet2003);
  int tables = 0;
  for (std::size_t page = 0; page < content.size(); page += kJetPage) {
    if (content[page] != 2 || static_cast<unsigned char>(content[page + 16]) != 270 % 256) continue;
    if (content[page + 17] != 1) continue;
    ++content[page + 16];
    ++tables;
  }
  ASSERT_EQ(tables, 1);
  EXPECT_THAT(RefusalOf(folder.Write("a.mdb", content)), HasSubstr("(270 of 271 rows are there)"));
}

TEST(JetFile, RefusesACatalogRowWithoutItsIdOrType) {
  const tests::TempFolder folder;
  const std::string whole = ContentOfFile(kJet2003);
  const auto wordAt = [&](std::size_t at) {
    return static_cast<std::size_t>(static_cast<unsigned char>(whole.at(at)) +
                                    256 * static_cast<unsigned char>(whole.at(at + 1)));
  };
  // A page of rows has type 1 and the page of its table at offset 4; that of the catalog is 2. The first row ends the
  // page, and the row ends with a bit for each field that is not null.
  std::size_t page = 0;
  while (whole.at(page) != 1 || wordAt(page + 4) != 2) page += kJetPage;
  const std::size_t fields = wordAt(page + wordAt(page + 14));
  const std::size_t bits = page + kJetPage - (fields + 7) / 8;
  int refused = 0;
  for (std::size_t field = 0; field < fields; ++field) {
    std::string content = whole;
    char& byte = content.at(bits + field / 8);
    const auto bit = static_cast<char>(1U << field % 8);
    if ((byte & bit) == 0) continue;
    byte = static_cast<char>(byte & ~bit);
    const std::string path = folder.Write("a.mdb", content);
    Recorder recorder;
    try {
      ReadJetFile(path, recorder);
    } catch (const core::Failure& failure) {
      ++refused;
      EXPECT_EQ(failure.Description(),
                "The file '" + path + "' cannot be read: it is damaged: its table of contents cannot be read.")
          << "field " << field;
    }
  }
  EXPECT_EQ(refused, 2);
}

TEST(JetFile, PassesExceptionsOfTheVisitorUnchanged) {
  class ThrowingVisitor : public Recorder {
   public:
    void OnRow(std::vector<core::Value>) override { throw core::Failure(123, tests::TextMessage("no room")); }
  } visitor;
  EXPECT_EQ(FailureOf([&] { ReadJetFile(kJet2003, visitor); }).Description(), "no room");
}

TEST(JetFile, ReadsTheSameEachTime) {
  const Recorder first = Read(kJet2003);
  for (int i = 0; i < 20; ++i) EXPECT_EQ(Read(kJet2003).Of("Scales").rows, first.Of("Scales").rows);
}

// No damaged byte may crash the program; a failure needs a description. Damage in unused bytes is not detected.
TEST(JetFile, SurvivesEveryKindOfDamage) {
  const tests::TempFolder folder;
  int refused = 0;
  for (const std::string& fixture : {kJet2000, kJet2003}) {
    const std::string whole = ContentOfFile(fixture);
    for (unsigned seed = 0; seed < 60; ++seed) {
      std::mt19937 random(seed);
      std::string content = whole;
      for (std::size_t change = 1 + random() % 24; change > 0; --change) {
        const std::size_t page = random() % (whole.size() / kJetPage);
        content[page * kJetPage + random() % (seed % 2 == 0 ? 64 : kJetPage)] = static_cast<char>(random());
      }
      const std::string path = folder.Write("a.mdb", content);
      Recorder recorder;
      try {
        ReadJetFile(path, recorder);
      } catch (const core::Failure& failure) {
        ++refused;
        EXPECT_THAT(failure.Description(), StartsWith("The file '" + path + "' cannot be read: ")) << seed;
      }
    }
  }
  EXPECT_GT(refused, 20);
}

}  // namespace
}  // namespace tonalith::jet
