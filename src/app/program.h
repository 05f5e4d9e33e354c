// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The whole program: makes the ports' implementations, says where the files are, starts and runs the window until it is
// closed. Once per process, on the main thread. What fails on the way is shown; the window comes up all the same.

#pragma once

#include <functional>

class QWidget;

namespace tonalith::app {

/// Gives the process's exit code. `shown` is called when the main window has been shown and before events are handled.
int RunProgram(int argc, char** argv, const std::function<void(QWidget&)>& shown = {});

}  // namespace tonalith::app
