// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A search without the dialog: from the current record, with the same messages. The wrap message is shown as a tool
// tip. During a long search the window is repainted, Escape and closing the window stop the search, and other input is
// dropped. Shows the descriptions of failures.

#pragma once

#include <string>

#include "core/msg_box.h"
#include "search/scale_search.h"

class QWidget;

namespace tonalith::search {

/// Searches for `text`. The tool tip is shown at `place`, a widget of the window whose records are searched. The window
/// may be destroyed when this returns.
SearchResult FindNextMatch(ScaleSource& scales, const std::string& text, core::MsgBox& msgBox, QWidget& place);

}  // namespace tonalith::search
