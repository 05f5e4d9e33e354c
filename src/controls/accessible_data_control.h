// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How assistive technology sees the data control: its description is the position of the current row. The rows are
// counted when assistive technology asks for it, and not at each move. User-interface thread; never fails.

#pragma once

namespace tonalith::controls {

class DataControl;

/// Makes the control's own accessible interface known, once per process.
void InstallAccessibleDataControl();

/// Tells assistive technology, if there is any, that the description has changed.
void TellPosition(DataControl& control);

}  // namespace tonalith::controls
