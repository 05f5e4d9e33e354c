// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Labels that show their text literally, without interpreting markup, and their colour.

#pragma once

class QColor;
class QLabel;
class QString;
class QWidget;

namespace tonalith::windows {

/// Owned by `parent`.
QLabel* MakePlainLabel(const QString& name, const QString& text, QWidget* parent);

/// All other colours are those of the label's parent. Call it again when the palette of the parent changes.
void SetTextColour(QLabel& label, const QColor& colour);

}  // namespace tonalith::windows
