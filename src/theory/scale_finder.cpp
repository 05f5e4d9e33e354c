// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/scale_finder.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstdlib>
#include <tuple>
#include <utility>

namespace tonalith::theory {

ScaleIndex::ScaleIndex(std::vector<ScaleEntry> entries) : entries_(std::move(entries)), ranges_(PitchClassSet::kCount) {
  order_.reserve(entries_.size());
  for (std::size_t entry = 0; entry < entries_.size(); ++entry) {
    if (entries_[entry].pattern.Contains(PitchClass(0))) order_.push_back({entry, entries_[entry].rarity});
  }
  std::ranges::stable_sort(order_, {}, [this](const Ordered& ordered) {
    return std::pair(entries_[ordered.entry].pattern, ordered.rarity);
  });
  for (std::uint32_t place = 0; place < order_.size(); ++place) {
    Range& range = ranges_[entries_[order_[place].entry].pattern.Bits()];
    if (range.begin == range.end) range = {place, place, order_[place].rarity};
    range.end = place + 1;
  }
}

ScaleIndex::Ranked ScaleIndex::RankOf(PitchClassSet notes, PitchClassSet asked, PitchClass bass) const {
  Ranked ranked{notes, std::abs(notes.Size() - asked.Size()), INT_MAX, false};
  for (unsigned bits = notes.Bits(); bits != 0; bits &= bits - 1) {
    const PitchClass tonic(std::countr_zero(bits));
    const Range& range = ranges_[notes.From(tonic).Bits()];
    if (range.begin == range.end) continue;
    if (range.rarity < ranked.rarity) ranked.onBass = false;
    if (range.rarity <= ranked.rarity) ranked.onBass = ranked.onBass || tonic == bass;
    ranked.rarity = std::min(ranked.rarity, range.rarity);
  }
  return ranked;
}

std::vector<ScaleMatch> ScaleIndex::MatchesOf(PitchClassSet notes, PitchClass bass, std::size_t limit) const {
  /// The entries on one tonic, in order; `rank` is that of the next one.
  struct Source {
    std::tuple<int, bool, std::size_t, int> rank;
    PitchClass tonic;
    Range range;
  };
  const auto setRank = [&](Source& source) {
    const Ordered& next = order_[source.range.begin];
    source.rank = {next.rarity, source.tonic != bass, next.entry, bass.SemitonesUpTo(source.tonic)};
  };
  std::vector<Source> sources;
  for (const PitchClass tonic : notes.Members()) {
    const Range& range = ranges_[notes.From(tonic).Bits()];
    if (range.begin == range.end) continue;
    sources.push_back({{}, tonic, range});
    setRank(sources.back());
  }
  std::vector<ScaleMatch> matches;
  while (!sources.empty() && matches.size() < limit) {
    const auto next = std::ranges::min_element(sources, {}, &Source::rank);
    matches.push_back({order_[next->range.begin].entry, next->tonic});
    if (++next->range.begin == next->range.end) {
      sources.erase(next);
    } else {
      setRank(*next);
    }
  }
  return matches;
}

std::vector<ScaleGroup> ScaleIndex::Collect(std::vector<Ranked> ranked, PitchClassSet asked, PitchClass bass,
                                            std::size_t limit) const {
  limit = std::min(limit, kMostMatches);
  // Each group has a match, so no more groups are needed than matches.
  const auto count = static_cast<std::ptrdiff_t>(std::min(limit, ranked.size()));
  std::ranges::partial_sort(ranked, ranked.begin() + count, {}, [bass](const Ranked& group) {
    const int first = bass.SemitonesUpTo(PitchClass(std::countr_zero(group.notes.Bits())));
    return std::tuple(group.distance, group.rarity, !group.onBass, first, group.notes);
  });
  std::vector<ScaleGroup> groups;
  for (auto group = ranked.begin(); group != ranked.begin() + count && limit > 0; ++group) {
    groups.push_back({group->notes, group->notes - asked, MatchesOf(group->notes, bass, limit)});
    limit -= groups.back().matches.size();
  }
  return groups;
}

std::vector<ScaleGroup> ScaleIndex::Containing(PitchClassSet notes, PitchClass bass, std::size_t limit) const {
  if (notes.IsEmpty()) return {};
  std::vector<Ranked> ranked;
  const unsigned others = notes.Complement().Bits();
  // All subsets of the other notes, added to those asked for.
  for (unsigned added = others;; added = (added - 1) & others) {
    const Ranked group = RankOf(PitchClassSet::FromBits(notes.Bits() | added), notes, bass);
    if (group.rarity != INT_MAX) ranked.push_back(group);
    if (added == 0) break;
  }
  return Collect(std::move(ranked), notes, bass, limit);
}

std::vector<ScaleGroup> ScaleIndex::ContainedIn(PitchClassSet notes, PitchClass bass, std::size_t limit) const {
  std::vector<Ranked> ranked;
  for (unsigned bits = notes.Bits(); bits != 0; bits = (bits - 1) & notes.Bits()) {
    const Ranked group = RankOf(PitchClassSet::FromBits(bits), notes, bass);
    if (group.rarity != INT_MAX) ranked.push_back(group);
  }
  return Collect(std::move(ranked), notes, bass, limit);
}

}  // namespace tonalith::theory
