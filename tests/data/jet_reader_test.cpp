// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The reader of the child process, run in this process on files with known, harmless damage.

#include "jet/jet_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "data/connection.h"
#include "data/data_failure.h"
#include "data/data_fixture.h"
#include "jet/jet_fixture.h"

namespace tonalith::data {
namespace {

using ::testing::Contains;
using ::testing::Not;
using ::testing::StartsWith;

/// The offset of the object type of "Scales" in the catalog of the older fixture: 1, a table.
constexpr std::size_t kKindOfScales = 59688;
constexpr std::size_t kVersion = 0x14;

class Listing : public jet::JetVisitor {
 public:
  void OnObject(const jet::JetObject& object) override { objects.push_back(object.kind + " " + object.name); }
  void OnTable(const jet::JetTable& table) override { tables.push_back(table.name); }
  void OnRow(std::vector<core::Value>) override {}

  std::vector<std::string> objects;
  std::vector<std::string> tables;
};

std::string WithScalesAs(int kind) {
  std::string content = jet::ContentOfFile(jet::kJet2000);
  content.at(kKindOfScales) = static_cast<char>(kind & 0xFF);
  content.at(kKindOfScales + 1) = static_cast<char>(kind >> 8 & 0xFF);
  return content;
}

std::string RefusalOf(const std::string& content) {
  const tests::TempFolder folder;
  Listing listing;
  return FailureOf([&] { jet::ReadWithLibmdb(folder.Write("a.mdb", content), listing); }).Description();
}

TEST(JetReader, NamesEveryKindOfObjectThatIsNoTable) {
  const std::map<int, std::string> kinds{{4, "linked table"}, {5, "stored query"}, {6, "linked table"},
                                         {8, "relationship"}, {-32768, "form"},    {-32766, "macro"},
                                         {-32764, "report"},  {-32761, "module"},  {-32756, "page"}};
  const tests::TempFolder folder;
  for (const auto& [kind, word] : kinds) {
    Listing listing;
    jet::ReadWithLibmdb(folder.Write("a.mdb", WithScalesAs(kind)), listing);
    EXPECT_THAT(listing.objects, Contains(word + " Scales")) << kind;
    EXPECT_THAT(listing.tables, Not(Contains("Scales"))) << kind;
  }
}

TEST(JetReader, OmitsSystemObjects) {
  const tests::TempFolder folder;
  Listing whole;
  jet::ReadWithLibmdb(jet::kJet2000, whole);
  EXPECT_THAT(whole.tables, Contains("Scales"));
  Listing listing;
  jet::ReadWithLibmdb(folder.Write("a.mdb", WithScalesAs(3)), listing);
  EXPECT_EQ(listing.objects, whole.objects);
  EXPECT_THAT(listing.tables, Not(Contains("Scales")));
}

TEST(JetReader, ReadsNoTableIfTheFileHasAQueryOfThatName) {
  const tests::TempFolder folder;
  const auto connection = std::make_shared<Connection>();
  connection->Open("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + folder.Write("a.mdb", WithScalesAs(5)));
  RecordSet records;
  records.Open("SELECT * FROM ScaleTypes", connection, CursorType::kStatic, LockType::kReadOnly);
  EXPECT_FALSE(records.IsEof());
  RecordSet scales;
  EXPECT_EQ(FailureOf([&] { scales.Open("SELECT * FROM Scales", connection); }).Number(),
            failure_number::kUnknownTable);
}

TEST(JetReader, RefusesEncryptedProtectedAndUnknownFiles) {
  EXPECT_EQ(RefusalOf(jet::ContentWith(jet::kJet2000, {{0x3E, 0x01}})),
            "it is encrypted. Save it without encryption and try again");
  EXPECT_EQ(RefusalOf(jet::ContentWith(jet::kJet2003, {{0x42, 'a'}})),
            "it is protected with a password. Remove the password and try again");
  EXPECT_EQ(RefusalOf(jet::ContentWith(jet::kJet2000, {{kVersion, 0x70}})),
            "it is damaged in its header, or of a version that is not known here");
}

// In the oldest format the same bytes are a password, unless they are all zero.
TEST(JetReader, RecognisesThePasswordOfTheOldestFormat) {
  EXPECT_EQ(RefusalOf(jet::ContentWith(jet::kJet2000, {{kVersion, 0x01}})),
            "it is protected with a password. Remove the password and try again");
  // Without a password the creation date of the fixture is there.
  constexpr std::size_t kPassword = 0x42;
  std::string content = jet::ContentWith(jet::kJet2000, {{kVersion, 0x01}});
  for (std::size_t i = 0; i < 20; i += 4) {
    content.at(kPassword + i) = static_cast<char>(content.at(kPassword + i) ^ 0xFF);
    content.at(kPassword + i + 1) = static_cast<char>(content.at(kPassword + i + 1) ^ 0x94);
  }
  EXPECT_THAT(RefusalOf(content), StartsWith("it is damaged: "));
}

}  // namespace
}  // namespace tonalith::data
