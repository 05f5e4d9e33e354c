// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs the search dialog from the menu command until it closes. The owner of the command owns the dialog, so that it
// can destroy an open dialog. Throws what `make` throws.

#pragma once

#include <functional>
#include <string>

#include "core/msg_box.h"
#include "windows/open_once.h"

namespace tonalith::search {

class frmSearch;

/// Shows the dialog that `make` returns, and destroys it at the end. It opens with `text`, which becomes the final text
/// of the dialog unless that is blank. If the dialog ends without a cancellation, shows the search text. A dialog that
/// is already open comes to the front.
void RunSearch(windows::OpenOnce<frmSearch>& dialog, const std::function<frmSearch*()>& make, std::string& text,
               core::MsgBox& msgBox);

}  // namespace tonalith::search
