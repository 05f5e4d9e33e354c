// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Opens and closes the scale editor. The editor is a window of its own; the caller stores the pointer to it, which
// becomes null when the editor is deleted.

#pragma once

#include <QPointer>
#include <optional>

#include "core/msg_box.h"
#include "data/record_set.h"
#include "data/scale_database.h"

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

/// Shows a modeless editor, or brings the one in `place` to the front. A failure is shown as its description.
void ShowScaleEditor(QPointer<frmScales>& place, const EditorServices& services, QWidget* parent);

/// Closes the editor, if there is one. False when it stays open because of changes that could not be saved.
[[nodiscard]] bool UnloadScaleEditor(const QPointer<frmScales>& place);

}  // namespace tonalith::editor
