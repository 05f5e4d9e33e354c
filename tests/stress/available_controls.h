// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Where a user's hands can reach, and names for it: a window is called by its object name or its class, a control by
// its object name within the window or, where that is none or not the only one, by its class and number. The names are
// the same in every run. Controls belong to the program; user-interface thread; nothing is found for what is not there.

#pragma once

#include <QString>
#include <QWidget>
#include <vector>

namespace tonalith::stress {

QString NameOf(const QWidget& window);
/// "window/control".
QString AddressOf(QWidget& control);
/// The visible window of that name, the modal one before others; null when there is none.
QWidget* FindWindow(const QString& name);
/// Null when it is not there or not visible.
QWidget* FindControl(const QString& address);

/// The visible controls of a window that take clicks or keys.
std::vector<QWidget*> UsableControls(QWidget& window);
/// The windows that a click could reach now: the modal one alone where there is one.
std::vector<QWidget*> ReachableWindows();

}  // namespace tonalith::stress
