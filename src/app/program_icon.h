// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The program's icon: a piece of the neck with the key note and another note on it. Drawn, not stored: the window's
// icon, the icon files of an installation and the scalable one come from the same lines. Small sizes leave out what
// would blur, and stand on whole pixels. Any thread that may paint; never fails.

#pragma once

#include <QIcon>

class QPainter;

namespace tonalith::app {

/// The sizes of the window's icon and of the installed files, in pixels.
inline constexpr int kIconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

/// Paints the icon into the square from the origin, `size` units wide.
void PaintProgramIcon(QPainter& painter, int size);

/// The window's icon in all sizes up to 64 pixels.
[[nodiscard]] QIcon ProgramIcon();

}  // namespace tonalith::app
