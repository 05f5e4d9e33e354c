// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Jet packs that cannot be imported: each ends in one helpful message and changes nothing.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "data/pack_disaster_fixture.h"
#include "data/pack_disk.h"

namespace tonalith::data {
namespace {

using ::testing::StartsWith;

class BadJetPackTest : public DataPackImportTest {
 protected:
  std::string WritePack(const std::string& content) const {
    std::ofstream(Packs() + "DataPack_A.mdb", std::ios::binary) << content;
    return Packs() + "DataPack_A.mdb";
  }
  static std::string CannotBeRead(const std::string& pack) { return "The file '" + pack + "' cannot be read: it is "; }
};

TEST_F(BadJetPackTest, ReportsAnEncryptedPack) {
  const std::string pack = WritePack(jet::ContentWith(jet::kJet2000, {{0x3E, 0x01}}));
  ExpectRefused(pack, CannotBeRead(pack) + "encrypted. Save it without encryption and try again.");
}

TEST_F(BadJetPackTest, ReportsAPackWithAPassword) {
  const std::string pack = WritePack(jet::ContentWith(jet::kJet2003, {{0x42, 'a'}}));
  ExpectRefused(pack, CannotBeRead(pack) + "protected with a password. Remove the password and try again.");
}

TEST_F(BadJetPackTest, ReportsATruncatedPackAtAnyLength) {
  const std::string whole = jet::ContentOfFile(jet::kJet2000);
  for (std::size_t size = 100; size < whole.size(); size += 3 * jet::kJetPage - 17) {
    const std::string pack = WritePack(whole.substr(0, size));
    Install(pack);
    const std::string shown = Shown();
    EXPECT_THAT(shown, StartsWith("Error importing " + pack + "\n" + CannotBeRead(pack)));
    EXPECT_THAT(shown, ::testing::AnyOf(::testing::HasSubstr("truncated"), ::testing::HasSubstr("damaged")));
  }
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "4");
}

TEST_F(BadJetPackTest, NamesAMissingTable) {
  std::string content = jet::ContentOfFile(jet::kJet2000);
  const std::string wide("S\0c\0a\0l\0e\0T\0y\0p\0e\0s\0", 20);
  content.replace(content.find(wide), 2, std::string("X\0", 2));
  const std::string pack = WritePack(content);
  ExpectRefused(pack, "The database '" + pack + "' has no table or stored query 'ScaleTypes'.");
}

// For any content: one message, and an intact main database.
TEST_F(BadJetPackTest, SurvivesEveryKindOfDamage) {
  const std::string whole = jet::ContentOfFile(jet::kJet2000);
  const std::string main = jet::ContentOfFile(Main());
  int refused = 0;
  for (unsigned seed = 0; seed < 30; ++seed) {
    std::mt19937 random(seed);
    std::string content = whole;
    for (std::size_t change = 1 + random() % 24; change > 0; --change) {
      const std::size_t page = random() % (whole.size() / jet::kJetPage);
      content[page * jet::kJetPage + random() % (seed % 2 == 0 ? 64 : jet::kJetPage)] = static_cast<char>(random());
    }
    const std::string pack = WritePack(content);
    Install(pack);
    const std::string shown = Shown();
    if (shown == Imported(pack)) {
      std::ofstream(Main(), std::ios::binary) << main;
      continue;
    }
    ++refused;
    EXPECT_THAT(shown, StartsWith("Error importing " + pack + "\n")) << seed;
    EXPECT_EQ(jet::ContentOfFile(Main()), main) << seed;
  }
  ExpectAtRest(Main());
  EXPECT_GT(refused, 5);
}

TEST_F(BadJetPackTest, LeavesNothingIfTheDiskFillsUpAtAnyStep) {
  const std::string pack = CopyPack(jet::kJet2003, "DataPack_A.mdb");
  const std::string before = ContentOfDatabase(Main());
  PackDisk disk;
  int refusals = 0;
  for (;; ++refusals) {
    disk.FillUpAfter(refusals);
    Install(pack);
    disk.MakeRoom();
    const std::string shown = Shown();
    if (shown == Imported(pack)) break;
    ASSERT_EQ(shown,
              "Error importing " + pack + "\nThe disk that holds '" + Main() + "' is full. Nothing was saved.\n");
    ASSERT_EQ(ContentOfDatabase(Main()), before);
  }
  EXPECT_GT(refusals, 5);
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "274");
}

}  // namespace
}  // namespace tonalith::data
