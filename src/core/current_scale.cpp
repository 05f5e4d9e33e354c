// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/current_scale.h"

#include <algorithm>

#include "core/field_limits.h"
#include "core/scale_construction.h"
#include "core/text.h"

namespace tonalith::core {

bool NoteExistsInScoreScale(NoteNumber intTP, std::string_view strNoteVal, CurrentScaleSource& source, MsgBox& msgBox) {
  constexpr std::int16_t kLastTestedPosition = 12;
  std::string pattern = source.GetScaleIntervalsByID(source.CurrentScaleId());
  // The tested positions are far below; the rest of a damaged pattern only costs time.
  if (IsOverlongPattern(pattern)) pattern.resize(std::min(pattern.size(), kLongestPattern));
  // The answer does not depend on this first look-up, but a pattern that cannot be built is reported by it as well.
  ScaleArray(intTP, "1", pattern, CNoteToNumber(strNoteVal), msgBox);
  for (std::int16_t position = 0; position <= kLastTestedPosition; ++position) {
    const std::string note = ScaleArray(intTP, "1", pattern, position, msgBox);
    // Past the last note there is none, not even for an empty name.
    if (!note.empty() && Trim(note) == strNoteVal) return true;
  }
  return false;
}

}  // namespace tonalith::core
