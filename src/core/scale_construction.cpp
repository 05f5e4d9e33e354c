// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/scale_construction.h"

#include <algorithm>

#include "core/deferred_failure.h"
#include "core/field_limits.h"
#include "core/text.h"

namespace tonalith::core {
namespace {

constexpr int kThreeOctaves = 36;
constexpr int kTwoOctaves = 24;

/// The sharp note table repeated up to `size` entries.
/// Kept: see docs/behaviour.md, Three note tables of different length.
std::string_view TableEntry(int index, int size) {
  if (index < 0 || index >= size) throw Failure::SubscriptOutOfRange();
  return kSharpNotes[static_cast<std::size_t>(index % 12)];
}

std::int16_t StepValue(std::string_view character) {
  if (character.size() != 1 || character[0] < '0' || character[0] > '9') throw Failure::TypeMismatch();
  return static_cast<std::int16_t>(character[0] - '0');
}

/// One character for each interval and an empty one at the end, which adds the closing note.
/// Kept: see docs/behaviour.md, A null pattern is an error, an empty one is not.
std::vector<std::string_view> StepList(const IntervalPattern& pattern) {
  if (!pattern) throw Failure::SubscriptOutOfRange();
  std::vector<std::string_view> steps = Characters(*pattern);
  steps.emplace_back();
  return steps;
}

std::vector<std::string> BuildNotes(NoteNumber start, const std::vector<std::string_view>& steps) {
  std::vector<std::string> notes;
  notes.reserve(steps.size());
  int position = start;
  for (const std::string_view step : steps) {
    notes.emplace_back(TableEntry(position, kThreeOctaves));
    if (!step.empty()) position += StepValue(step);
  }
  return notes;
}

// Kept: see docs/behaviour.md, ScaleArray reports without a colon.
void ReportTrapped(const Failure& failure, MsgBox& msgBox) {
  msgBox.Show(std::to_string(failure.Number()) + " " + failure.Description());
}

}  // namespace

// Kept: see docs/behaviour.md, ScaleStepType has no effect.
// Kept: see docs/behaviour.md, Positions past the end hide a bad pattern.
std::string ScaleArray(NoteNumber StartValue, std::string_view /*ScaleStepType*/, IntervalPattern CustomScaleSteps,
                       std::int16_t Npassed, MsgBox& msgBox) {
  try {
    const std::vector<std::string_view> steps = StepList(CustomScaleSteps);
    const auto position = static_cast<std::ptrdiff_t>(Npassed);
    if (position > std::ssize(steps)) return {};
    const std::vector<std::string> notes = BuildNotes(StartValue, steps);
    if (position < 0) throw Failure::SubscriptOutOfRange();
    return position < std::ssize(notes) ? notes[static_cast<std::size_t>(position)] : std::string();
  } catch (const std::exception&) {
    ReportTrapped(Failure::FromCurrentException(), msgBox);
    return {};
  }
}

// Kept: see docs/behaviour.md, ScaleStepType has no effect.
std::vector<std::string> ScaleArrayNotes(NoteNumber StartValue, std::string_view /*ScaleStepType*/,
                                         IntervalPattern CustomScaleSteps, std::int16_t count, MsgBox& msgBox) {
  std::vector<std::string> notes;
  try {
    notes = BuildNotes(StartValue, StepList(CustomScaleSteps));
  } catch (const std::exception&) {
    ReportTrapped(Failure::FromCurrentException(), msgBox);
  }
  notes.resize(static_cast<std::size_t>(count));
  return notes;
}

// Kept: see docs/behaviour.md, ScaleStepType has no effect.
// Kept: see docs/behaviour.md, Three note tables of different length.
std::string ScaleMaker(NoteNumber StartValue, std::string_view /*ScaleStepType*/, IntervalPattern CustomScaleSteps,
                       MsgBox& msgBox) {
  DeferredFailure failure;
  std::vector<std::string_view> steps;
  failure.Try([&] { steps = StepList(CustomScaleSteps); });
  std::string joined;
  int position = StartValue;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    if (i > 0) joined += ' ';
    failure.Try([&] { joined += TableEntry(position, kTwoOctaves); });
    if (!steps[i].empty()) failure.Try([&] { position += StepValue(steps[i]); });
  }
  failure.ReportDescription(msgBox);
  return joined;
}

// Kept: see docs/behaviour.md, Three note tables of different length.
std::vector<std::string> WrappedScaleNotes(std::int16_t rootIndex, std::string_view pattern) {
  std::vector<std::string> notes;
  int position = rootIndex % 12;
  for (const std::int16_t interval : IntervalsOf(pattern)) {
    notes.emplace_back(TableEntry(position, 12));
    position = (position + interval) % 12;
  }
  return notes;
}

bool IsOverlongPattern(std::string_view pattern) {
  if (pattern.size() > kLongestPattern) return true;
  const auto blanks = static_cast<std::size_t>(std::count(pattern.begin(), pattern.end(), ' '));
  return pattern.size() - blanks > kMostPatternDigits;
}

std::vector<std::int16_t> IntervalsOf(std::string_view pattern) {
  std::vector<std::int16_t> intervals;
  // Each byte of a multi-byte character is refused as well.
  for (std::size_t at = 0; at < pattern.size(); ++at) intervals.push_back(StepValue(pattern.substr(at, 1)));
  return intervals;
}

}  // namespace tonalith::core
