// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The notes that are highlighted while they sound: the pressed one and the one of the playback. Controls and view must
// outlive it.

#pragma once

#include <array>

#include "views/fretboard_controls.h"

namespace tonalith::views {

/// The source of a highlight; each source highlights at most one note.
enum class LitBy { kPress, kPlayback };

class LitNotes {
 public:
  LitNotes(const FretboardControls& controls, QWidget& view) : controls_(controls), view_(view) {}

  /// Moves the highlight of a source to the note with that position index, -1 for none.
  void Light(LitBy by, int index);

  /// Paints the glow around the discs, in pixels of the view.
  void PaintGlow(QPainter& painter) const;

 private:
  const FretboardControls& controls_;
  QWidget& view_;
  std::array<int, 2> lit_{-1, -1};  // By LitBy; -1 for none.
};

}  // namespace tonalith::views
