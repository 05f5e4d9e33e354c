// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A label that shows its text literally, without interpreting markup.

#pragma once

class QLabel;
class QString;
class QWidget;

namespace tonalith::windows {

/// Owned by `parent`.
QLabel* MakePlainLabel(const QString& name, const QString& text, QWidget* parent);

}  // namespace tonalith::windows
