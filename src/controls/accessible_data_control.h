// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The accessible interface of the data control: its description is the position of the current row. The rows are
// counted when assistive technology reads the description, not at each move. User-interface thread; does not fail.

#pragma once

namespace tonalith::controls {

class DataControl;

/// Registers the accessible interface, once per process.
void InstallAccessibleDataControl();

/// Notifies active assistive technology of a changed description.
void AnnouncePosition(DataControl& control);

}  // namespace tonalith::controls
