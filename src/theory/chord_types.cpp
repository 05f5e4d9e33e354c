// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/chord_types.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "theory/chord_symbol.h"

namespace tonalith::theory {
namespace {

struct Row {
  std::string_view suffix;
  std::string_view words;
  ChordFamily family;
};

constexpr ChordFamily kTriad = ChordFamily::kTriad;
constexpr ChordFamily kSeventh = ChordFamily::kSeventh;
constexpr ChordFamily kCommon = ChordFamily::kCommon;
constexpr ChordFamily kEqual = ChordFamily::kEqualNotes;
constexpr ChordFamily kRare = ChordFamily::kRare;

/// Common types precede rare ones of the same family.
constexpr auto kRows = std::to_array<Row>({
    {"", "major", kTriad},
    {"m", "minor", kTriad},
    {"dim", "diminished", kTriad},
    {"aug", "augmented", kTriad},
    {"5", "power chord", kTriad},
    {"7", "dominant 7", kSeventh},
    {"maj7", "major 7", kSeventh},
    {"m7", "minor 7", kSeventh},
    {"m7b5", "minor 7 flat 5", kSeventh},
    {"dim7", "diminished 7", kSeventh},
    {"m(maj7)", "minor major 7", kSeventh},
    {"sus4", "suspended 4", kEqual},
    {"sus2", "suspended 2", kEqual},
    {"7sus4", "dominant 7 suspended 4", kEqual},
    {"6", "major 6", kEqual},
    {"m6", "minor 6", kEqual},
    {"add9", "major added 9", kCommon},
    {"madd9", "minor added 9", kCommon},
    {"add11", "major added 11", kCommon},
    {"madd11", "minor added 11", kCommon},
    {"6/9", "major 6 added 9", kCommon},
    {"m6/9", "minor 6 added 9", kCommon},
    {"9", "dominant 9", kCommon},
    {"maj9", "major 9", kCommon},
    {"m9", "minor 9", kCommon},
    {"m(maj9)", "minor major 9", kCommon},
    {"9sus4", "dominant 9 suspended 4", kCommon},
    {"11", "dominant 11", kCommon},
    {"m11", "minor 11", kCommon},
    {"m7add11", "minor 7 added 11", kCommon},
    {"13", "dominant 13", kCommon},
    {"maj13", "major 13", kCommon},
    {"m13", "minor 13", kCommon},
    {"m7add13", "minor 7 added 13", kCommon},
    {"13sus4", "dominant 13 suspended 4", kCommon},
    {"7b9", "dominant 7 flat 9", kCommon},
    {"7#9", "dominant 7 sharp 9", kCommon},
    {"7#5", "dominant 7 sharp 5", kCommon},
    {"7b5", "dominant 7 flat 5", kCommon},
    {"7#11", "dominant 7 sharp 11", kCommon},
    {"7b13", "dominant 7 flat 13", kCommon},
    {"7alt", "dominant 7 altered", kCommon},
    {"9#11", "dominant 9 sharp 11", kCommon},
    {"9#5", "dominant 9 sharp 5", kCommon},
    {"9b5", "dominant 9 flat 5", kCommon},
    {"9b13", "dominant 9 flat 13", kCommon},
    {"13b9", "dominant 13 flat 9", kCommon},
    {"13#9", "dominant 13 sharp 9", kCommon},
    {"13#11", "dominant 13 sharp 11", kCommon},
    {"7b5b9", "dominant 7 flat 5 flat 9", kCommon},
    {"7b5#9", "dominant 7 flat 5 sharp 9", kCommon},
    {"7#5b9", "dominant 7 sharp 5 flat 9", kCommon},
    {"7#5#9", "dominant 7 sharp 5 sharp 9", kCommon},
    {"7b9#11", "dominant 7 flat 9 sharp 11", kCommon},
    {"7b9b13", "dominant 7 flat 9 flat 13", kCommon},
    {"7#9b13", "dominant 7 sharp 9 flat 13", kCommon},
    {"7sus4b9", "dominant 7 suspended 4 flat 9", kCommon},
    {"maj7#11", "major 7 sharp 11", kCommon},
    {"maj9#11", "major 9 sharp 11", kCommon},
    {"maj13#11", "major 13 sharp 11", kCommon},
    {"maj7#5", "major 7 sharp 5", kCommon},
    {"m9b5", "minor 9 flat 5", kCommon},
    {"m11b5", "minor 11 flat 5", kCommon},
    {"(b5)", "major flat 5", kRare},
    {"m#5", "minor sharp 5", kRare},
    {"susb2", "suspended flat 2", kRare},
    {"sus#4", "suspended sharp 4", kRare},
    {"sus2sus4", "suspended 2 suspended 4", kRare},
    {"maj7b5", "major 7 flat 5", kRare},
    {"dim(maj7)", "diminished major 7", kRare},
    {"m7#5", "minor 7 sharp 5", kRare},
    {"m(maj7)#5", "minor major 7 sharp 5", kRare},
    {"7sus2", "dominant 7 suspended 2", kRare},
    {"maj7sus4", "major 7 suspended 4", kRare},
    {"maj7sus2", "major 7 suspended 2", kRare},
    {"maj9sus4", "major 9 suspended 4", kRare},
    {"6sus4", "major 6 suspended 4", kRare},
    {"6sus2", "major 6 suspended 2", kRare},
    {"6b5", "major 6 flat 5", kRare},
    {"6#11", "major 6 sharp 11", kRare},
    {"6/9#11", "major 6 added 9 sharp 11", kRare},
    {"m6add11", "minor 6 added 11", kRare},
    {"add#11", "major added sharp 11", kRare},
    {"madd#11", "minor added sharp 11", kRare},
    {"addb9", "major added flat 9", kRare},
    {"maddb9", "minor added flat 9", kRare},
    {"add#9", "major added sharp 9", kRare},
    {"addb13", "major added flat 13", kRare},
    {"maddb13", "minor added flat 13", kRare},
    {"augadd9", "augmented added 9", kRare},
    {"dimadd9", "diminished added 9", kRare},
    {"add9add11", "major added 9 added 11", kRare},
    {"madd9add11", "minor added 9 added 11", kRare},
    {"add9add#11", "major added 9 added sharp 11", kRare},
    {"7add11", "dominant 7 added 11", kRare},
    {"7add13", "dominant 7 added 13", kRare},
    {"maj7add11", "major 7 added 11", kRare},
    {"maj11", "major 11", kRare},
    {"maj7#9", "major 7 sharp 9", kRare},
    {"maj7b9", "major 7 flat 9", kRare},
    {"maj7b13", "major 7 flat 13", kRare},
    {"maj9#5", "major 9 sharp 5", kRare},
    {"m7b9", "minor 7 flat 9", kRare},
    {"m7b13", "minor 7 flat 13", kRare},
    {"m7b5b9", "minor 7 flat 5 flat 9", kRare},
    {"m7b5add11", "minor 7 flat 5 added 11", kRare},
    {"m7b5b13", "minor 7 flat 5 flat 13", kRare},
    {"m9b13", "minor 9 flat 13", kRare},
    {"m9#11", "minor 9 sharp 11", kRare},
    {"m(maj7)add11", "minor major 7 added 11", kRare},
    {"m(maj11)", "minor major 11", kRare},
    {"m(maj13)", "minor major 13", kRare},
    {"dim9", "diminished 9", kRare},
    {"dim7addmaj7", "diminished 7 added major 7", kRare},
    {"dim7b13", "diminished 7 flat 13", kRare},
    {"7#9#11", "dominant 7 sharp 9 sharp 11", kRare},
    {"7b9#9", "dominant 7 flat 9 sharp 9", kRare},
    {"7#11b13", "dominant 7 sharp 11 flat 13", kRare},
    {"7b9#11b13", "dominant 7 flat 9 sharp 11 flat 13", kRare},
    {"9#5#11", "dominant 9 sharp 5 sharp 11", kRare},
    {"11b9", "dominant 11 flat 9", kRare},
    {"13b5", "dominant 13 flat 5", kRare},
    {"13b9#11", "dominant 13 flat 9 sharp 11", kRare},
    {"13#9#11", "dominant 13 sharp 9 sharp 11", kRare},
    {"13sus4b9", "dominant 13 suspended 4 flat 9", kRare},
    {"7sus4b13", "dominant 7 suspended 4 flat 13", kRare},
});

/// The notes that players leave out of a type: the natural fifth next to a third, and in elevenths and thirteenths what
/// is between the seventh and the highest note.
PitchClassSet Omissible(const ChordType& type) {
  PitchClassSet notes;
  const std::vector<Degree>& degrees = type.formula.Degrees();
  const bool hasThird = std::ranges::find(degrees, 3, &Degree::number) != degrees.end();
  const bool hasMore = type.family != ChordFamily::kEqualNotes && type.family != ChordFamily::kRare;
  if (!hasThird || !hasMore || type.suffix == "m7add11" || type.suffix == "m7add13") return notes;
  const int highest = degrees.back().number;
  for (const Degree& degree : degrees) {
    const bool below = degree.number >= 9 && degree.number < highest && highest >= 11;
    // An altered ninth or eleventh is the point of its chord.
    if (degree.alteration == 0 && (degree.number == 5 || (below && degrees.back().alteration == 0))) {
      notes.Add(degree.PitchClass());
    }
  }
  return notes;
}

int SignsOf(std::string_view suffix) {
  int signs = 0;
  char last = 0;
  const auto kind = [](char c) { return c >= '0' && c <= '9' ? '0' : c == '#' || c == 'b' ? 'b' : 'a'; };
  for (const char c : suffix) {
    if (c != '(' && c != ')' && (last == 0 || kind(c) != kind(last))) ++signs;
    last = c;
  }
  return signs;
}

std::vector<ChordType> MakeTypes() {
  std::vector<ChordType> types;
  types.reserve(kRows.size());
  for (const Row& row : kRows) {
    types.push_back({row.suffix, row.words, row.family, *ParseChordSuffix(row.suffix), SignsOf(row.suffix)});
  }
  return types;
}

using Index = std::vector<std::vector<ChordMatch>>;

Index MakeIndex() {
  Index index(PitchClassSet::kCount);
  for (const ChordType& type : ChordTypes()) {
    const PitchClassSet omissible = Omissible(type);
    // All subsets of the bits of `omissible`, the empty one last.
    for (unsigned bits = omissible.Bits();; bits = (bits - 1) & omissible.Bits()) {
      const PitchClassSet missing = PitchClassSet::FromBits(bits);
      index[(type.formula.Set() - missing).Bits()].push_back({&type, missing});
      if (bits == 0) break;
    }
  }
  for (std::vector<ChordMatch>& matches : index) {
    std::ranges::stable_sort(matches, {}, [](const ChordMatch& match) { return match.missing.Size(); });
  }
  return index;
}

}  // namespace

const std::vector<ChordType>& ChordTypes() {
  static const std::vector<ChordType> types = MakeTypes();
  return types;
}

const std::vector<ChordMatch>& ChordsWithNotes(PitchClassSet pattern) {
  static const Index index = MakeIndex();
  return index[pattern.Bits()];
}

}  // namespace tonalith::theory
