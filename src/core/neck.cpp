// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/neck.h"

namespace tonalith::core {

Neck Neck::Standard() {
  constexpr NoteNumber kD = 2;
  constexpr NoteNumber kE = 4;
  constexpr NoteNumber kG = 7;
  constexpr NoteNumber kA = 9;
  constexpr NoteNumber kB = 11;
  return {{Pitch::Of(kE, 4), Pitch::Of(kB, 3), Pitch::Of(kG, 3), Pitch::Of(kD, 3), Pitch::Of(kA, 2), Pitch::Of(kE, 2)},
          16};
}

}  // namespace tonalith::core
