// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/scale_editor.h"

#include "core/deferred_failure.h"
#include "editor/frm_scales.h"
#include "windows/window_front.h"

namespace tonalith::editor {
void ShowScaleEditor(QPointer<frmScales>& place, const EditorServices& services, QWidget* parent) {
  core::DeferredFailure failure;
  failure.Try([&] {
    // A closed editor exists until its deferred deletion.
    if (place.isNull() || place->IsUnloaded()) place = new frmScales(services, parent);
    windows::BringToFront(*place);
  });
  failure.ReportDescription(services.msgBox);
}

bool UnloadScaleEditor(const QPointer<frmScales>& place) {
  return place.isNull() || place->IsUnloaded() || place->close();
}

}  // namespace tonalith::editor
