// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What the scale editor needs from outside, and the one way to open it. The editor is a window of its own that goes
// when it is closed; whoever opens it keeps the place, which is empty again then. User-interface thread.

#pragma once

#include <QPointer>
#include <optional>

#include "core/msg_box.h"
#include "data/record_set.h"
#include "data/scale_database.h"

class QWidget;

namespace tonalith::editor {

class frmScales;

/// The window that shows what the editor changes. Reports its own failures.
class ScaleEditorHost {
 public:
  virtual ~ScaleEditorHost() = default;

  /// Something was saved or deleted, or the editor closes: read the scales again and redraw.
  virtual void EditUpdates() = 0;
  /// The editor has closed: take over the screen.
  virtual void BringToFront() = 0;
};

struct EditorServices {
  data::ScaleDatabase& database;
  core::MsgBox& msgBox;
  ScaleEditorHost& host;
  /// The record to open on; the first one where there is none.
  std::optional<data::Bookmark> current;
};

/// Shows the editor modeless, or brings the one in `place` to the front. A failure on the way is shown as its
/// description.
void ShowScaleEditor(QPointer<frmScales>& place, const EditorServices& services, QWidget* parent);

/// Closes the editor, if there is one. False when it stays, because it holds changes that could not be saved.
[[nodiscard]] bool UnloadScaleEditor(const QPointer<frmScales>& place);

}  // namespace tonalith::editor
