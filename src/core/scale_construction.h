// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Scale construction: from a start note and an interval pattern (one decimal digit a step, in semitones) to note names.
// A pattern of n digits describes n + 1 notes, the last being the octave when the digits sum to 12. Transposing is
// nothing but another start note. Pure functions; failures go where each function's line says.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/msg_box.h"
#include "core/note_model.h"

namespace tonalith::core {

/// The interval pattern of a record; nothing stands for a null field.
using IntervalPattern = std::optional<std::string_view>;

/// How many scale positions neck and playback ask for: a pattern of up to fifteen digits and its closing note.
inline constexpr std::int16_t kScalePositions = 16;

/// The note name at the 0-based scale position `Npassed`, empty past the scale's end. The table is three octaves long
/// and not wrapped. `ScaleStepType` has no effect. A null pattern, a character that is no digit and a sum past the
/// table are reported as "<number> <description>", with an empty result.
std::string ScaleArray(NoteNumber StartValue, std::string_view ScaleStepType, IntervalPattern CustomScaleSteps,
                       std::int16_t Npassed, MsgBox& msgBox);

/// What ScaleArray gives for the positions 0 to `count` - 1, with the scale built once and a failure reported once:
/// the form in which a view takes a whole scale.
std::vector<std::string> ScaleArrayNotes(NoteNumber StartValue, std::string_view ScaleStepType,
                                         IntervalPattern CustomScaleSteps, std::int16_t count, MsgBox& msgBox);

/// All note names of the scale, separated by single blanks, on a table of two octaves. Goes on past failures and shows
/// the description of the last one at its end.
std::string ScaleMaker(NoteNumber StartValue, std::string_view ScaleStepType, IntervalPattern CustomScaleSteps,
                       MsgBox& msgBox);

/// One name for each interval from `rootIndex` on, wrapped at the octave, without the closing octave note. Throws
/// failure 13 for a character that is no digit and failure 9 for a negative root.
std::vector<std::string> WrappedScaleNotes(std::int16_t rootIndex, std::string_view pattern);

/// Whether a pattern has more digits than a record may hold. Other programs can write such a record; it is damaged, and
/// nothing is built, drawn or played from it.
bool IsOverlongPattern(std::string_view pattern);

/// The semitone counts of a pattern, one for each character. Throws failure 13 for a character that is no digit.
std::vector<std::int16_t> IntervalsOf(std::string_view pattern);

}  // namespace tonalith::core
