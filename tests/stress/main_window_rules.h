// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What has to hold in the main window between any two actions: it shows one record of the library, the one whose number
// it holds, and everything in it follows from that record, the key box and the setting of the names. Reads the real
// widgets; user-interface thread; what is broken is thrown as a Finding.

#pragma once

#include "stress/library.h"

namespace tonalith::app {
class frmTonalith;
}

namespace tonalith::stress {

void CheckMainWindow(const app::frmTonalith& form, const Library& library);

}  // namespace tonalith::stress
