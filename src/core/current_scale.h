// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Queries on the scale that the window shows. The scale is in the database; the window implements the source that reads
// it.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/msg_box.h"
#include "core/note_model.h"

namespace tonalith::core {

/// The source of the current record for NoteExistsInScoreScale.
class CurrentScaleSource {
 public:
  virtual ~CurrentScaleSource() = default;
  [[nodiscard]] virtual std::int32_t CurrentScaleId() const = 0;
  virtual std::string GetScaleIntervalsByID(std::int32_t scaleId) = 0;
};

/// Whether a note is among the first 13 notes of the current scale, built on the start note `intTP`. Throws what its
/// source throws.
/// Kept: see docs/behaviour.md, Functions without callers.
bool NoteExistsInScoreScale(NoteNumber intTP, std::string_view strNoteVal, CurrentScaleSource& source, MsgBox& msgBox);

}  // namespace tonalith::core
