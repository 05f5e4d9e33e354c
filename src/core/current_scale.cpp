// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/current_scale.h"

#include <algorithm>

#include "core/field_limits.h"
#include "core/scale_construction.h"
#include "core/text.h"

namespace tonalith::core {

// Kept: see docs/behaviour.md, NoteExistsInScoreScale looks up one note more.
bool NoteExistsInScoreScale(NoteNumber intTP, std::string_view strNoteVal, CurrentScaleSource& source, MsgBox& msgBox) {
  constexpr std::int16_t kLastTestedPosition = 12;
  std::string pattern = source.GetScaleIntervalsByID(source.CurrentScaleId());
  // Only the first positions are tested; the rest of an overlong pattern only costs time.
  if (IsOverlongPattern(pattern)) pattern.resize(std::min(pattern.size(), kLongestPattern));
  // The result of this first call is unused, but it reports a pattern that cannot be built.
  ScaleArray(intTP, "1", pattern, CNoteToNumber(strNoteVal), msgBox);
  for (std::int16_t position = 0; position <= kLastTestedPosition; ++position) {
    const std::string note = ScaleArray(intTP, "1", pattern, position, msgBox);
    // Positions past the last note are empty; they do not match an empty name.
    if (!note.empty() && Trim(note) == strNoteVal) return true;
  }
  return false;
}

}  // namespace tonalith::core
