// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/scale_construction.h"

#include <algorithm>

#include "core/deferred_failure.h"
#include "core/field_limits.h"
#include "core/messages.h"
#include "core/text.h"

namespace tonalith::core {
namespace {

constexpr int kThreeOctaves = 36;
constexpr int kTwoOctaves = 24;

/// Throws for an index outside the sharp note table repeated up to `size` entries.
/// Kept: see docs/behaviour.md, Three note tables of different length.
void CheckTable(int index, int size) {
  if (index < 0 || index >= size) throw Failure::SubscriptOutOfRange();
}

std::int16_t StepValue(std::string_view character) {
  if (character.size() != 1 || character[0] < '0' || character[0] > '9') throw Failure::TypeMismatch();
  return static_cast<std::int16_t>(character[0] - '0');
}

/// One character for each interval and an empty one at the end, which adds the closing note.
std::vector<std::string_view> StepList(const IntervalPattern& pattern) {
  if (!pattern) throw Failure::SubscriptOutOfRange();
  std::vector<std::string_view> steps = Characters(*pattern);
  steps.emplace_back();
  return steps;
}

// Kept: see docs/behaviour.md, ScaleArray reports without a colon.
void ReportTrapped(const Failure& failure, MsgBox& msgBox) {
  msgBox.Show({MessageId::kTrappedFailure, failure.Number(), failure.Text()});
}

}  // namespace

// Kept: see docs/behaviour.md, A null pattern is an error, an empty one is not.
std::vector<std::int16_t> IntervalsInTable(NoteNumber start, const IntervalPattern& pattern) {
  if (!pattern) throw Failure::SubscriptOutOfRange();
  std::vector<std::int16_t> intervals;
  intervals.reserve(pattern->size());
  int position = start;
  CheckTable(position, kThreeOctaves);
  for (const std::string_view character : Characters(*pattern)) {
    intervals.push_back(StepValue(character));
    position += intervals.back();
    CheckTable(position, kThreeOctaves);
  }
  return intervals;
}

std::optional<std::vector<std::int16_t>> ReportedIntervals(NoteNumber start, const IntervalPattern& pattern,
                                                           MsgBox& msgBox) {
  try {
    return IntervalsInTable(start, pattern);
  } catch (const std::exception&) {
    ReportTrapped(Failure::FromCurrentException(), msgBox);
    return std::nullopt;
  }
}

Scale ReportedScale(NoteNumber start, const IntervalPattern& pattern, MsgBox& msgBox) {
  const std::optional<std::vector<std::int16_t>> intervals = ReportedIntervals(start, pattern, msgBox);
  return intervals ? BuildScale(start, *intervals) : Scale();
}

// Kept: see docs/behaviour.md, ScaleStepType has no effect.
// Kept: see docs/behaviour.md, Positions past the end hide a bad pattern.
std::string ScaleArray(NoteNumber StartValue, std::string_view /*ScaleStepType*/, IntervalPattern CustomScaleSteps,
                       std::int16_t Npassed, MsgBox& msgBox) {
  const auto position = static_cast<std::ptrdiff_t>(Npassed);
  if (CustomScaleSteps && position > std::ssize(Characters(*CustomScaleSteps)) + 1) return {};
  const std::optional<std::vector<std::int16_t>> intervals = ReportedIntervals(StartValue, CustomScaleSteps, msgBox);
  if (!intervals || position > std::ssize(*intervals)) return {};
  if (position < 0) {
    ReportTrapped(Failure::SubscriptOutOfRange(), msgBox);
    return {};
  }
  return std::string(NameOf(BuildScale(StartValue, *intervals)[static_cast<std::size_t>(position)]));
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
    failure.Try([&] {
      CheckTable(position, kTwoOctaves);
      joined += kSharpNotes.at(static_cast<std::size_t>(position % 12));
    });
    if (!steps[i].empty()) failure.Try([&] { position += StepValue(steps[i]); });
  }
  failure.ReportDescription(msgBox);
  return joined;
}

// Kept: see docs/behaviour.md, Three note tables of different length.
std::vector<std::string> WrappedScaleNotes(std::int16_t rootIndex, std::string_view pattern) {
  std::vector<std::string> notes;
  const std::vector<std::int16_t> intervals = IntervalsOf(pattern);
  if (intervals.empty()) return notes;
  const Scale scale = BuildScale(static_cast<NoteNumber>(rootIndex % 12), intervals);
  for (std::size_t i = 0; i < intervals.size(); ++i) notes.emplace_back(NameOf(scale[i]));
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
