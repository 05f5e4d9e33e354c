// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Connects the controls of the main window to the fields of the current record.

#pragma once

#include "app/main_controls.h"

namespace tonalith::app {

/// Binds the labels to fields of the data control, and sets its initial connection string and record source. Does not
/// open them.
void BindRecordFields(const MainControls& controls);

}  // namespace tonalith::app
