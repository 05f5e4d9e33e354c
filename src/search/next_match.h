// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One search without the search dialog: the same walk from the current record, with the same messages. The notice that
// the walk has passed the end appears as a tool tip. While a long search runs the window is painted, Escape and closing
// the window stop it, and all other input is dropped. Failures are shown as their description. User-interface thread.

#pragma once

#include <string>

#include "core/msg_box.h"
#include "search/scale_search.h"

class QWidget;

namespace tonalith::search {

/// Searches for `text`. The tool tip appears at `place`, a part of the window whose records are walked; the window may
/// be gone when this returns.
SearchResult FindNextMatch(ScaleSource& scales, const std::string& text, core::MsgBox& msgBox, QWidget& place);

}  // namespace tonalith::search
