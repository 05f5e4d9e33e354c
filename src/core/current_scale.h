// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Questions about the scale that the window shows, which lives in the database: the core asks for it through a source
// that the window implements. User-interface thread; failures as each function's line says.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/msg_box.h"
#include "core/note_model.h"

namespace tonalith::core {

/// Where NoteExistsInScoreScale finds the current record.
class CurrentScaleSource {
 public:
  virtual ~CurrentScaleSource() = default;
  [[nodiscard]] virtual std::int32_t CurrentScaleId() const = 0;
  virtual std::string GetScaleIntervalsByID(std::int32_t scaleId) = 0;
};

/// Whether a note is among the first 13 notes of the current scale, built on the start note `intTP`.
/// Throws what its source throws.
bool NoteExistsInScoreScale(NoteNumber intTP, std::string_view strNoteVal, CurrentScaleSource& source, MsgBox& msgBox);

}  // namespace tonalith::core
