// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The complete program: creates the implementations of the ports, finds the folder of the files, and shows the main
// window until it is closed. Failures are shown as messages; the window opens unless too few files can be opened.

#pragma once

#include <functional>

class QWidget;

namespace tonalith::app {

/// Returns the exit code of the process. Calls `shown` after the main window is shown, before events are processed. To
/// be called once per process, on the main thread.
int RunProgram(int argc, char** argv, const std::function<void(QWidget&)>& shown = {});

}  // namespace tonalith::app
