// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/scale_editor.h"

#include "core/deferred_failure.h"
#include "editor/frm_scales.h"

namespace tonalith::editor {

void ShowScaleEditor(windows::OpenOnce<frmScales>& editor, const EditorServices& services, QWidget* parent) {
  core::DeferredFailure failure;
  failure.Try([&] { editor.Show([&] { return new frmScales(services, parent); }); });
  failure.ReportDescription(services.msgBox);
}

}  // namespace tonalith::editor
