// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Rules for the main window between two actions: it shows the library record whose number it contains, and all other
// content follows from that record, the key box and the option for note names. Throws a Finding if a rule is violated.

#pragma once

#include "stress/library.h"

namespace tonalith::app {
class frmTonalith;
}

namespace tonalith::stress {

void CheckMainWindow(const app::frmTonalith& form, const Library& library);

}  // namespace tonalith::stress
