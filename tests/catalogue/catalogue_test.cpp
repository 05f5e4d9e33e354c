// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "catalogue/catalogue.h"

#include <gmock/gmock.h>
#include <malloc.h>

#include "catalogue/library_fixture.h"

namespace tonalith::catalogue {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Catalogue, HasTheFieldsOfEveryRow) {
  const LibraryFolder folder;
  const Catalogue catalogue = Read(folder.Make("a.mdb"));
  ASSERT_THAT(Names(catalogue), ElementsAre("Major", "Minor (natural)", "Major triad", "Minor 7 (m7)"));
  const Entry minor = catalogue.At(1);
  EXPECT_EQ(minor.id, 2);
  EXPECT_EQ(minor.type, "Common scales");
  EXPECT_EQ(minor.kind, theory::SetKind::kScale);
  EXPECT_EQ(minor.pattern, "2122122");
  EXPECT_EQ(minor.startNote, "A");
  EXPECT_EQ(minor.path, folder / "a.mdb");
  EXPECT_TRUE(minor.isOfLibrary);
  EXPECT_EQ(catalogue.KindAt(3), theory::SetKind::kChord);
  EXPECT_EQ(catalogue.DescriptionAt(1), "Dark.");
  EXPECT_EQ(catalogue.DescriptionAt(2), "") << "null";
}

TEST(Catalogue, DerivesFormulasForFilesWithoutThem) {
  const LibraryFolder folder;
  const Catalogue catalogue = Read(folder.Make("a.mdb"));
  EXPECT_EQ(catalogue.FormulaAt(1).ToText(), "1 2 b3 4 5 b6 b7");
  EXPECT_EQ(catalogue.FormulaAt(3).ToText(), "1 b3 5 b7");
  EXPECT_THAT(catalogue.AliasesAt(1), IsEmpty());
}

TEST(Catalogue, ReadsFormulasAndAliasesInTheirOrder) {
  const LibraryFolder folder;
  const std::string path = folder.Make("a.mdb", std::string(kScales) + kTextTables + R"sql(
    INSERT INTO ScaleFormulas VALUES (1, 'Major', '2212221', '1 2 3 4 5 6 7'), (4, 'Major triad', '435', '1 b4 5');
    INSERT INTO ScaleAliases VALUES (4, 2, 'Major triad', '435', 'M'), (4, 1, 'Major triad', '435', 'maj'),
      (1, 1, 'Major', '2212221', 'Ionian'), (4, 3, 'Major triad', '435', 'Durdreiklang');
  )sql");
  const Catalogue catalogue = Read(path);
  EXPECT_EQ(catalogue.FormulaAt(2).ToText(), "1 b4 5") << "a formula of the file precedes a derived one";
  EXPECT_THAT(catalogue.AliasesAt(0), ElementsAre("Ionian"));
  EXPECT_THAT(catalogue.AliasesAt(2), ElementsAre("maj", "M", "Durdreiklang"));
}

TEST(Catalogue, IgnoresTextsThatDoNotAgreeWithTheirScale) {
  const LibraryFolder folder;
  const std::string path = folder.Make("a.mdb", std::string(kScales) + kTextTables + R"sql(
    INSERT INTO ScaleFormulas VALUES (1, 'Major scale', '2212221', '1 2 3 4 5 6 7'), (4, 'Major triad', '345', '1 3 5'),
      (2, 'Minor (natural)', '2122122', '1 2 b3 4 5 b6 7'), (7, 'Minor 7 (m7)', '3432', 'one'), (99, 'Gone', '435', '1 3 5');
    INSERT INTO ScaleAliases VALUES (1, 1, 'Major scale', '2212221', 'Ionian'), (4, 1, 'Major triad', '345', 'maj'),
      (9223372036854775807, 1, 'Major', '2212221', 'Dur');
  )sql");
  const Catalogue catalogue = Read(path);
  EXPECT_EQ(catalogue.FormulaAt(1).ToText(), "1 2 b3 4 5 b6 b7") << "the formula has another seventh";
  EXPECT_EQ(catalogue.FormulaAt(3).ToText(), "1 b3 5 b7");
  for (std::size_t i = 0; i < catalogue.Size(); ++i) EXPECT_THAT(catalogue.AliasesAt(i), IsEmpty()) << i;
}

TEST(Catalogue, HasEqualNamesOnceWithTheLibraryFirst) {
  const LibraryFolder folder;
  const std::string types = "INSERT INTO ScaleTypes VALUES (1, 1, 'Rare');";
  const std::string library = folder.Make("library.mdb");
  const std::string first = folder.Make("1.mdb", types +
                                                     "INSERT INTO Scales VALUES (1, 'MAJOR', 1, '', 'C', '66', 0, 1), "
                                                     "(2, 'Ré', 1, '', 'C', '66', 0, 1);");
  const std::string second = folder.Make("2.mdb", types +
                                                      "INSERT INTO Scales VALUES (1, 'RÉ', 1, '', 'C', '93', 0, 1), "
                                                      "(5, 'New', 1, 'Far away.', 'C', '93', 0, 1);");
  const Catalogue catalogue = Read(library, {first, second});
  EXPECT_THAT(Names(catalogue), ElementsAre("Major", "Minor (natural)", "Major triad", "Minor 7 (m7)", "Ré", "New"));
  EXPECT_EQ(catalogue.At(0).pattern, "2212221");
  EXPECT_EQ(catalogue.At(4).pattern, "66");
  EXPECT_EQ(catalogue.DescriptionAt(5), "Far away.");
  EXPECT_FALSE(catalogue.IsOfLibrary(4));
}

TEST(Catalogue, KeepsEntriesWithPatternsThatAreNoOctave) {
  const LibraryFolder folder;
  const Catalogue catalogue = Read(folder.Make("a.mdb", R"sql(
    INSERT INTO ScaleTypes VALUES (1, 1, 'Odd');
    INSERT INTO Scales VALUES (1, 'Short', 1, '', 'C', '22', 0, 1), (2, 'Words', 1, '', 'C', 'abc', 0, 1),
      (3, 'None', 1, '', 'C', NULL, 0, 1), (4, 'Blanks', 1, '', 'C', '4 3 5', 0, 1), (5, 'Number', 1, '', 'C', 66, 0, 1);
  )sql"));
  EXPECT_EQ(catalogue.At(0).pattern, "22");
  EXPECT_TRUE(catalogue.At(0).notes.IsEmpty());
  EXPECT_TRUE(catalogue.FormulaAt(0).IsEmpty());
  EXPECT_EQ(catalogue.At(1).pattern, "abc");
  EXPECT_EQ(catalogue.At(2).pattern, "");
  EXPECT_EQ(catalogue.At(3).pattern, "435");
  EXPECT_EQ(catalogue.FormulaAt(3).ToText(), "1 3 5");
  EXPECT_EQ(catalogue.At(4).pattern, "66");
}

TEST(Catalogue, SkipsRowsWithoutNameOrType) {
  const LibraryFolder folder;
  const Catalogue catalogue = Read(folder.Make("a.mdb", R"sql(
    INSERT INTO ScaleTypes VALUES (1, 1, 'Type');
    INSERT INTO Scales VALUES (1, NULL, 1, '', 'C', '66', 0, 1), (2, '', 1, '', 'C', '66', 0, 1),
      (3, 'Lost', 9, '', 'C', '66', 0, 1), (4, 'Here', 1, '', 'C', '66', 0, 1);
  )sql"));
  EXPECT_THAT(Names(catalogue), ElementsAre("Here"));
}

TEST(Catalogue, LimitsTheAliasesOfAnEntry) {
  const LibraryFolder folder;
  const std::string path = folder.Make("a.mdb", std::string(kScales) + kTextTables +
                                                    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                                                    "WHERE i < 5000) INSERT INTO ScaleAliases SELECT 1, i, 'Major', "
                                                    "'2212221', 'name ' || i FROM n;"
                                                    "INSERT INTO ScaleAliases VALUES (4, 1, 'Major triad', '435', "
                                                    "replace(hex(zeroblob(3000)), '00', 'a')), "
                                                    "(4, 2, 'Major triad', '435', 'maj');");
  const Catalogue catalogue = Read(path);
  EXPECT_EQ(catalogue.AliasesAt(0).size(), 63U) << "places 1 to 63";
  EXPECT_EQ(catalogue.AliasesAt(0).front(), "name 1");
  EXPECT_THAT(catalogue.AliasesAt(2), ElementsAre("maj")) << "an alias of 3,000 characters";
}

TEST(Catalogue, IgnoresTablesOfOtherProgramsWithTheseNames) {
  const LibraryFolder folder;
  for (const char* const tables :
       {"CREATE TABLE ScaleFormulas (x); CREATE TABLE ScaleAliases (ScaleID, Alias);",
        "CREATE TABLE ScaleFormulas (ScaleID, ScaleName, ScaleIntervals, Formula); INSERT INTO ScaleFormulas VALUES "
        "(1, 'Major', '2212221', x'31'), (NULL, NULL, NULL, NULL), ('a', 1.5, 2, 3);"}) {
    const std::string name = std::to_string(std::string(tables).size()) + ".mdb";
    EXPECT_EQ(Read(folder.Make(name, std::string(kScales) + tables)).FormulaAt(0).ToText(), "1 2 3 4 5 6 7");
  }
}

// The explorer will show the catalogue next to everything else.
TEST(Catalogue, TakesAtMostTwelveMebibytesForAHundredThousandEntries) {
  const LibraryFolder folder;
  const std::string path = folder.Make("a.mdb", kTextTables + R"sql(
    INSERT INTO ScaleTypes VALUES (1, 1, 'Common scales');
    WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000)
      INSERT INTO Scales SELECT i, 'Scale number ' || i, 1, 'Its description.', 'C', '2212221', 0, i FROM n;
    INSERT INTO ScaleFormulas SELECT ScaleID, ScaleName, ScaleIntervals, '1 2 3 4 5 6 7' FROM Scales;
    INSERT INTO ScaleAliases SELECT ScaleID, 1, ScaleName, ScaleIntervals, 'Alias ' || ScaleID FROM Scales;
  )sql");
  ::malloc_trim(0);
  const auto before = ::mallinfo2();
  const Catalogue catalogue = Read(path);
  const auto after = ::mallinfo2();
  ASSERT_EQ(catalogue.Size(), 100'000U);
  const std::size_t bytes = after.uordblks + after.hblkhd - before.uordblks - before.hblkhd;
  EXPECT_LT(bytes, std::size_t{12} << 20);
  EXPECT_THAT(catalogue.AliasesAt(99'999), ElementsAre("Alias 100000"));
}

}  // namespace
}  // namespace tonalith::catalogue
