// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The program's icon: a part of the neck with the key note and another note. One painting procedure makes the window's
// icon, the icon files of an installation and the scalable icon. Small sizes omit details and are aligned to whole
// pixels. Any thread that may paint.

#pragma once

#include <QIcon>

class QPainter;

namespace tonalith::app {

/// The sizes of the window's icon and of the installed files, in pixels.
inline constexpr int kIconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

/// Paints the icon into the square at the origin with a side of `size` units.
void PaintProgramIcon(QPainter& painter, int size);

/// The window's icon in all sizes up to 64 pixels.
[[nodiscard]] QIcon ProgramIcon();

}  // namespace tonalith::app
