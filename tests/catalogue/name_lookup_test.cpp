// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "catalogue/name_lookup.h"

#include <gmock/gmock.h>

#include "catalogue/folded_text.h"
#include "catalogue/library_fixture.h"
#include "catalogue/word_search.h"

namespace tonalith::catalogue {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

constexpr const char* kNames = R"sql(
  INSERT INTO ScaleTypes VALUES (1, 10, 'Scales'), (2, 20, 'Chords');
  INSERT INTO Scales VALUES
    (1, 'Augmented (scale)', 1, '', 'C', '313131', 0, 1),
    (2, 'Augmented (chord)', 2, '', 'C', '444', 1, 2),
    (3, 'Minor 7 (m7)', 2, '', 'C', '3432', 1, 1),
    (4, 'Major 7 (maj7)', 2, '', 'C', '4341', 1, 2),
    (5, 'Min''yo', 1, '', 'C', '32232', 0, 1),
    (6, 'Ionian', 1, '', 'C', '2212221', 0, 1),
    (7, 'Major', 1, '', 'C', '2212221', 0, 1),
    (8, 'Zirgüleli Hicaz', 1, '', 'C', '1312131', 0, 1);
  INSERT INTO ScaleAliases VALUES (3, 1, 'Minor 7 (m7)', '3432', 'm7'), (6, 1, 'Ionian', '2212221', 'Major'),
    (7, 1, 'Major', '2212221', 'Dur'), (8, 1, 'Zirgüleli Hicaz', '1312131', 'Double harmonic');
)sql";

class NameLookup : public ::testing::Test {
 protected:
  [[nodiscard]] std::string Find(const std::string& name,
                                 std::optional<theory::SetKind> preferred = std::nullopt) const {
    const auto found = FindEntry(catalogue_, name, preferred);
    return found ? std::string(catalogue_.NameAt(*found)) : "none";
  }

  LibraryFolder folder_;
  Catalogue catalogue_ = Read(folder_.Make("a.mdb", kTextTables + kNames));
};

TEST_F(NameLookup, FindsTheWholeNameBeforeAnAlias) {
  EXPECT_EQ(Find("Major"), "Major");
  EXPECT_EQ(Find("  mAJOR "), "Major");
  EXPECT_EQ(Find("dur"), "Major");
  EXPECT_EQ(Find("zirgÜleli hicaz"), "Zirgüleli Hicaz");
  EXPECT_EQ(Find("Ioni"), "none");
  EXPECT_EQ(Find(""), "none");
  EXPECT_EQ(Find("\xFF\xFE"), "none");
}

TEST_F(NameLookup, FindsANameWithoutItsBracketByKind) {
  EXPECT_EQ(Find("augmented"), "Augmented (scale)");
  EXPECT_EQ(Find("augmented", theory::SetKind::kChord), "Augmented (chord)");
  EXPECT_EQ(Find("Augmented (Scale)", theory::SetKind::kChord), "Augmented (scale)") << "the only one of this name";
}

TEST_F(NameLookup, TellsSymbolsApartThatDifferInCase) {
  EXPECT_EQ(Find("m7"), "Minor 7 (m7)");
  EXPECT_EQ(Find("M7"), "none") << "a major seventh chord is not a minor one";
}

TEST_F(NameLookup, SuggestsTheNearestNames) {
  EXPECT_EQ(NearestNames(catalogue_, "Ionain").front(), "Ionian");
  EXPECT_EQ(NearestNames(catalogue_, "zirguleli").front(), "Zirgüleli Hicaz") << "it contains the word";
  EXPECT_THAT(NearestNames(catalogue_, "Mayor"), SizeIs(3));
  EXPECT_EQ(NearestNames(catalogue_, "Mayor").front(), "Major");
  EXPECT_THAT(NearestNames(catalogue_, std::string(200, 'x')), SizeIs(3));
  EXPECT_THAT(NearestNames(Catalogue(), "Major"), SizeIs(0));
}

TEST_F(NameLookup, SearchesWordsInOneName) {
  const auto matches = [&](const char* text) {
    WordSearch search(text);
    std::vector<std::string> names;
    for (std::size_t i = 0; i < catalogue_.Size(); ++i) {
      if (search.Matches(catalogue_, i)) names.emplace_back(catalogue_.NameAt(i));
    }
    return names;
  };
  EXPECT_THAT(matches("HICAZ ZIRGUL"), ElementsAre("Zirgüleli Hicaz"));
  EXPECT_THAT(matches("harm"), ElementsAre("Zirgüleli Hicaz"));
  EXPECT_THAT(matches("hicaz double"), ElementsAre()) << "one word is of the name, the other one of the alias";
  EXPECT_THAT(matches("onian"), ElementsAre()) << "no word begins with it";
  EXPECT_THAT(matches("m7"), ElementsAre("Minor 7 (m7)"));
  EXPECT_THAT(matches("  "), SizeIs(8));
}

TEST(FoldedText, IgnoresCaseAndAccents) {
  EXPECT_EQ(Fold("Ragá Bhūpālī"), Fold("raga bhupali"));
  EXPECT_EQ(Fold("Ḥijāz Ø Łódź ığ"), Fold("hijaz o lodz ig"));
  EXPECT_EQ(Fold("e\xCC\x81"), Fold("é")) << "a letter with a combining mark";
  EXPECT_EQ(Fold("F♯"), Fold("f#"));
  EXPECT_NE(Fold("а"), Fold("a")) << "a Cyrillic letter";
  EXPECT_NE(Fold("\xFF"), Fold("y"));
  EXPECT_EQ(Fold("ßĦ").size(), 2U);
}

TEST(Names, LoseTheBracketAtTheirEndOnly) {
  EXPECT_EQ(WithoutBracket("Minor 7 (m7)"), "Minor 7");
  EXPECT_EQ(WithoutBracket("A (b) c"), "A (b) c");
  EXPECT_EQ(WithoutBracket("(whole)"), "(whole)");
  EXPECT_EQ(WithoutBracket("odd)"), "odd)");
}

}  // namespace
}  // namespace tonalith::catalogue
