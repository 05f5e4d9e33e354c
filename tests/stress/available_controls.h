// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Finds the windows and controls that a user can reach, and gives them stable names. A window is named by its object
// name or its class. A control is named by its object name if that is unique in the window, otherwise by its class and
// a number. The names are the same in every run.

#pragma once

#include <QString>
#include <QWidget>
#include <vector>

namespace tonalith::stress {

QString NameOf(const QWidget& window);
/// "window/control".
QString AddressOf(QWidget& control);
/// Returns the visible window of that name, preferring the modal one; null if there is none.
QWidget* FindWindow(const QString& name);
/// Returns null if there is no visible control at this address.
QWidget* FindControl(const QString& address);

/// The visible controls of a window that accept clicks or keys.
std::vector<QWidget*> UsableControls(QWidget& window);
/// The windows that a click can reach: only the modal one if there is one.
std::vector<QWidget*> ReachableWindows();

}  // namespace tonalith::stress
