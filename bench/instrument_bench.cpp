// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// All shapes of seventh chords on a guitar in standard tuning up to fret 15, on all roots; and the boxes of the major
// scale. The time of the slowest chord counts.

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

#include "instrument/catalogue.h"
#include "instrument/positions.h"
#include "instrument/shapes.h"
#include "measuring.h"

namespace {

using namespace tonalith;

constexpr double kShapesBound = 20;
constexpr double kBoxesBound = 20;

struct Timed {
  std::vector<bench::Spent> times;
  std::size_t answers = 0;
};

/// The root with the longest median time.
template <typename Step>
Timed Slowest(const Step& step) {
  Timed slowest;
  for (int root = 0; root < theory::kSemitonesPerOctave; ++root) {
    Timed timed;
    for (int i = 0; i < bench::Runs(31); ++i) {
      timed.times.push_back(bench::Measure([&] { timed.answers = step(theory::PitchClass(root)); }));
    }
    const double median = bench::Quantile(timed.times, 0.5).wall;
    if (slowest.times.empty() || median > bench::Quantile(slowest.times, 0.5).wall) slowest = timed;
  }
  return slowest;
}

bool ReportShapes(const std::string& symbol, const std::string& degrees) {
  const auto formula = theory::Formula::Parse(degrees);
  const Timed slowest = Slowest([&](theory::PitchClass root) {
    return instrument::ShapesOf(instrument::DefaultInstrument(), {root, *formula, std::nullopt}).shapes.size();
  });
  bench::ReportTimes("all shapes of a chord " + symbol + ", " + std::to_string(slowest.answers) + " up to fret 15",
                     slowest.times, 0.5, kShapesBound);
  return slowest.answers > 0;
}

bool ReportBoxes() {
  const theory::PitchClassSet major{0, 2, 4, 5, 7, 9, 11};
  const Timed slowest = Slowest([&](theory::PitchClass root) {
    return instrument::Boxes(instrument::DefaultInstrument(), {root, major.Transposed(root.Semitones())}).size();
  });
  bench::ReportTimes("all boxes of a major scale, " + std::to_string(slowest.answers) + " up to fret 22", slowest.times,
                     0.5, kBoxesBound);
  return slowest.answers > 0;
}

}  // namespace

int main() {
  // Reading the tables is part of the start, not of the search.
  (void)instrument::ShapesOf(instrument::DefaultInstrument(), {});
  bool isFound = ReportShapes("7", "1 3 5 b7");
  isFound = ReportShapes("maj7", "1 3 5 7") && isFound;
  isFound = ReportShapes("m7", "1 b3 5 b7") && isFound;
  isFound = ReportShapes("m7b5", "1 b3 b5 b7") && isFound;
  isFound = ReportBoxes() && isFound;
  return isFound ? 0 : 1;
}
