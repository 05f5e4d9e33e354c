// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Damaged scales: records whose pattern is longer than core::kMostPatternDigits, written by another program. The main
// window shows their name and texts, and a message instead of their notes. Throws core::Failure if the data control
// does.

#pragma once

#include "app/main_controls.h"

namespace tonalith::app {

/// Whether the current record is a damaged scale.
bool IsDamaged(const MainControls& controls);
/// Shows a message instead of the staff.
void ShowDamageOnStaff(const MainControls& controls);
/// Shows the reason in the step line.
void ShowDamageInSteps(const MainControls& controls);

}  // namespace tonalith::app
