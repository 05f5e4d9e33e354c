// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Opens the scale editor, a window of its own, in a place of the caller. The editor may refuse to close because of
// changes that could not be saved.

#pragma once

#include <optional>

#include "core/msg_box.h"
#include "data/record_set.h"
#include "data/scale_database.h"
#include "windows/open_once.h"

class QWidget;

namespace tonalith::editor {

class frmScales;

/// The window that shows what the editor changes. It reports its own failures.
class ScaleEditorHost {
 public:
  virtual ~ScaleEditorHost() = default;

  /// Called after a save or a deletion and when the editor closes: read the scales again and redraw.
  virtual void EditUpdates() = 0;
  /// Called when the editor has closed.
  virtual void BringToFront() = 0;
};

struct EditorServices {
  data::ScaleDatabase& database;
  core::MsgBox& msgBox;
  ScaleEditorHost& host;
  /// The record to show first; nothing for the first record.
  std::optional<data::Bookmark> current;
};

/// Shows a modeless editor, or brings the open one to the front. A failure is shown as its description.
void ShowScaleEditor(windows::OpenOnce<frmScales>& editor, const EditorServices& services, QWidget* parent);

}  // namespace tonalith::editor
