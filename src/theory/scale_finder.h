// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Finds the scales that contain given notes, on every tonic, among up to 100,000 entries in less than 2 ms. The index
// is by sets of notes: there are 4,096, however many entries share them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "theory/pitch_class_set.h"

namespace tonalith::theory {

/// A scale or chord of a library, as a plain value.
struct ScaleEntry {
  std::string name;
  /// Counted from the tonic, which it has to contain: bit 0.
  PitchClassSet pattern;
  /// 0 for the most common entries; greater is rarer.
  int rarity = 0;
};

/// An entry on a tonic.
struct ScaleMatch {
  /// The place of the entry in the list that the index was built from.
  std::size_t entry = 0;
  PitchClass tonic;

  bool operator==(const ScaleMatch&) const = default;
};

/// Entries with the same notes: C major, A minor, D Dorian.
struct ScaleGroup {
  PitchClassSet notes;
  /// The notes of the group that were not asked for; empty for an exact match.
  PitchClassSet extra;
  std::vector<ScaleMatch> matches;
};

class ScaleIndex {
 public:
  /// The most matches of one answer: more than the shipped entries have on all tonics, and few enough for the time
  /// limit.
  static constexpr std::size_t kMostMatches = 10'000;

  /// Entries without their tonic in the pattern are never found.
  explicit ScaleIndex(std::vector<ScaleEntry> entries);

  [[nodiscard]] const std::vector<ScaleEntry>& Entries() const { return entries_; }

  /// The groups that contain `notes`: fewest extra notes first, then common before rare; inside a group common before
  /// rare, then the tonic `bass`. At most `limit` matches in all. Empty for no notes.
  [[nodiscard]] std::vector<ScaleGroup> Containing(PitchClassSet notes, PitchClass bass,
                                                   std::size_t limit = kMostMatches) const;

  /// The groups that are contained in `notes`: most notes first, otherwise in the same order.
  [[nodiscard]] std::vector<ScaleGroup> ContainedIn(PitchClassSet notes, PitchClass bass,
                                                    std::size_t limit = kMostMatches) const;

 private:
  /// The entries of one pattern, and the rarity of the most common one. Copies the rarity, so that a search does not
  /// touch the entries.
  struct Range {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    int rarity = 0;
  };
  struct Ordered {
    std::size_t entry = 0;
    int rarity = 0;
  };
  /// A set of notes that some entry has on some tonic.
  struct Ranked {
    PitchClassSet notes;
    int distance = 0;
    int rarity = 0;
    bool onBass = false;
  };

  [[nodiscard]] Ranked RankOf(PitchClassSet notes, PitchClassSet asked, PitchClass bass) const;
  [[nodiscard]] std::vector<ScaleGroup> Collect(std::vector<Ranked> ranked, PitchClassSet asked, PitchClass bass,
                                                std::size_t limit) const;
  [[nodiscard]] std::vector<ScaleMatch> MatchesOf(PitchClassSet notes, PitchClass bass, std::size_t limit) const;

  std::vector<ScaleEntry> entries_;
  /// By pattern, then common before rare.
  std::vector<Ordered> order_;
  std::vector<Range> ranges_;
};

}  // namespace tonalith::theory
