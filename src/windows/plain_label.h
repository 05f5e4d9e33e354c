// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The label of a form: shows its text as it is written, whatever looks like markup in it. User-interface thread; never
// fails.

#pragma once

class QLabel;
class QString;
class QWidget;

namespace tonalith::windows {

/// Owned by `parent`.
QLabel* MakePlainLabel(const QString& name, const QString& text, QWidget* parent);

}  // namespace tonalith::windows
