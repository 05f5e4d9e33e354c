// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/scale.h"

#include <array>
#include <cstddef>

#include "core/failure.h"

namespace tonalith::core {
namespace {

/// Far above everything audible; the sum of intervals stays within an int.
constexpr int kHighestSemitones = 1'000'000;

}  // namespace

Scale BuildScale(NoteNumber start, std::span<const std::int16_t> intervals) {
  if (start < 0) throw Failure::SubscriptOutOfRange();
  std::array<std::int16_t, 12> degrees{};
  Scale scale;
  scale.reserve(intervals.size() + 1);
  Pitch pitch{Pitch::Of(start, kStartOctave)};
  for (std::size_t i = 0; i <= intervals.size(); ++i) {
    const NoteNumber pitchClass = pitch.PitchClass();
    std::int16_t& degree = degrees.at(static_cast<std::size_t>(pitchClass));
    if (degree == 0) degree = static_cast<std::int16_t>(i + 1);
    scale.push_back({pitchClass, degree, pitch});
    if (i == intervals.size()) break;
    pitch.semitones += intervals[i];
    if (pitch.semitones > kHighestSemitones) throw Failure::Overflow();
  }
  return scale;
}

std::string_view NameOf(const ScaleNote& note) { return kSharpNotes.at(static_cast<std::size_t>(note.pitchClass)); }

}  // namespace tonalith::core
