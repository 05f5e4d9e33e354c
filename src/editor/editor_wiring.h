// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Connects the signals of the editor's controls, and the keys of its window, to the handlers of the form.

#pragma once

namespace tonalith::editor {

class frmScales;

/// Once, after the controls are made.
void WireEditor(frmScales& form);

}  // namespace tonalith::editor
