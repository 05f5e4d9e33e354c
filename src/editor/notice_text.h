// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The texts of the editor's notice line.

#pragma once

#include <QString>

#include "editor/notice.h"
#include "editor/scales_controls.h"

namespace tonalith::editor {

/// In the user's language. The controls give the captions and lengths of text boxes.
QString NoticeText(const Notice& notice, const ScalesControls& controls);

}  // namespace tonalith::editor
