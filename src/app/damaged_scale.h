// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A record whose pattern is longer than that of any scale: another program wrote it. Its name and texts are shown, and
// in place of its notes the window says what is wrong. User-interface thread; fails where the data control does.

#pragma once

#include "app/main_controls.h"

namespace tonalith::app {

/// Whether the current record is such a one.
bool IsDamaged(const MainControls& controls);
/// Says so on the staff's card.
void ShowDamageOnStaff(const MainControls& controls);
/// Says why in the step line.
void ShowDamageInSteps(const MainControls& controls);

}  // namespace tonalith::app
