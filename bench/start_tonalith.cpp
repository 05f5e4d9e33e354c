// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Starts Tonalith as its main function does, and watches its first paint.

#include <QWidget>

#include "app/program.h"
#include "first_paint.h"

int main(int argc, char* argv[]) {
  return tonalith::app::RunProgram(argc, argv, [](QWidget& window) {
    tonalith::bench::ReportFirstPaint(window, *window.findChild<QWidget*>(QStringLiteral("Label3")));
  });
}
