// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Scale construction: from a start note and an interval pattern (one decimal digit per step, in semitones) to
// intervals, and the functions that return note names. A pattern of n digits describes n + 1 notes; the last is the
// octave if the digits add up to 12. Transposing means choosing another start note.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/msg_box.h"
#include "core/note_model.h"
#include "core/scale.h"

namespace tonalith::core {

/// The interval pattern of a record; nullopt for a null field.
using IntervalPattern = std::optional<std::string_view>;

/// The number of scale positions that neck and playback use: a pattern of up to fifteen digits and its closing note.
inline constexpr std::int16_t kScalePositions = 16;

/// The note name at the 0-based scale position `Npassed`, empty past the end of the scale. The note table is three
/// octaves long and does not wrap. `ScaleStepType` has no effect. A null pattern, a character that is no digit and a
/// sum past the table are reported as "<number> <description>", and the result is empty.
std::string ScaleArray(NoteNumber StartValue, std::string_view ScaleStepType, IntervalPattern CustomScaleSteps,
                       std::int16_t Npassed, MsgBox& msgBox);

/// The semitone counts of a pattern whose notes are in that table, for a scale from `start` on. Throws what ScaleArray
/// reports: failure 9 for a null pattern, failure 13 for a character that is no digit, failure 9 for a note outside the
/// table.
std::vector<std::int16_t> IntervalsInTable(NoteNumber start, const IntervalPattern& pattern);

/// The same; reports a failure as ScaleArray does and returns no value.
std::optional<std::vector<std::int16_t>> ReportedIntervals(NoteNumber start, const IntervalPattern& pattern,
                                                           MsgBox& msgBox);

/// The notes of a pattern. No notes, after a report, for a pattern that ScaleArray reports.
Scale ReportedScale(NoteNumber start, const IntervalPattern& pattern, MsgBox& msgBox);

/// All note names of the scale, separated by single blanks, from a table of two octaves. Continues after failures and
/// shows the description of the last one.
/// Kept: see docs/behaviour.md, Functions without callers.
std::string ScaleMaker(NoteNumber StartValue, std::string_view ScaleStepType, IntervalPattern CustomScaleSteps,
                       MsgBox& msgBox);

/// One name for each interval from `rootIndex` on, wrapped at the octave, without the closing octave note. Throws
/// failure 13 for a character that is no digit and failure 9 for a negative root.
std::vector<std::string> WrappedScaleNotes(std::int16_t rootIndex, std::string_view pattern);

/// Whether a pattern has more digits than a record may contain. Other programs can write such a record. It counts as
/// damaged and is not built, drawn or played.
bool IsOverlongPattern(std::string_view pattern);

/// The semitone counts of a pattern, one for each character. Throws failure 13 for a character that is no digit.
std::vector<std::int16_t> IntervalsOf(std::string_view pattern);

}  // namespace tonalith::core
