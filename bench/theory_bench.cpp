// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The names of sets of notes: scales on twelve tonics among 100,000 entries, and chords. Reports the slowest set, each
// timed as the fastest of a few runs, so that other load of the system does not count.

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "measuring.h"
#include "theory/chord_finder.h"
#include "theory/scale_finder.h"

namespace {

using namespace tonalith;
using theory::PitchClass;
using theory::PitchClassSet;

constexpr double kBoundMilliseconds = 2;

/// Entries over all patterns with at least `fewest` and at most `most` notes.
std::vector<theory::ScaleEntry> MakeEntries(int fewest, int most) {
  std::mt19937 random(1);
  std::vector<theory::ScaleEntry> entries;
  for (int i = 0; i < bench::Scales();) {
    // The union of two random sets: large sets are rare otherwise.
    const auto first = static_cast<unsigned>(random());
    const PitchClassSet pattern = PitchClassSet::FromBits(first | static_cast<unsigned>(random()) | 1U);
    if (pattern.Size() < fewest || pattern.Size() > most) continue;
    entries.push_back({"Scale number " + std::to_string(i), pattern, i % 3});
    ++i;
  }
  return entries;
}

bench::Spent Fastest(const std::function<void()>& step) {
  bench::Spent fastest = bench::Measure(step);
  for (int run = 1; run < bench::Runs(5); ++run) {
    const bench::Spent spent = bench::Measure(step);
    fastest.wall = std::min(fastest.wall, spent.wall);
    fastest.cpu = std::min(fastest.cpu, spent.cpu);
  }
  return fastest;
}

/// Prints the slowest of a seventh of all sets, small and large ones; `find` returns the number of names.
void ReportSlowest(const std::string& what, const std::function<std::size_t(PitchClassSet, PitchClass)>& find) {
  std::vector<bench::Spent> times;
  std::size_t names = 0;
  for (unsigned bits = 1; bits < PitchClassSet::kCount; bits += 7) {
    const PitchClassSet notes = PitchClassSet::FromBits(bits);
    const PitchClass bass = notes.Members().front();
    times.push_back(Fastest([&] { names += find(notes, bass); }));
  }
  if (names == 0) std::printf("No set has a name.\n");
  bench::ReportTimes(what, times, 1.0, kBoundMilliseconds);
}

void ReportScales(const std::string& what, int fewest, int most) {
  const theory::ScaleIndex index(MakeEntries(fewest, most));
  ReportSlowest(what, [&](PitchClassSet notes, PitchClass bass) { return index.Containing(notes, bass).size(); });
}

}  // namespace

int main() {
  ReportScales("the scales with any notes among 100,000, the slowest set", 1, 12);
  ReportScales("the same, all scales of seven notes", 7, 7);
  ReportScales("the same, all scales of twelve notes", 12, 12);
  ReportSlowest("the chord names of any notes, the slowest set", [](PitchClassSet notes, PitchClass bass) {
    return theory::FindChordNames({notes, bass, {}}).size();
  });
  return 0;
}
