// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Tonalith itself, started as its own main function does, with a watch on its first paint.

#include <QWidget>

#include "app/program.h"
#include "first_paint.h"

int main(int argc, char* argv[]) {
  return tonalith::app::RunProgram(argc, argv, [](QWidget& window) {
    tonalith::bench::ReportFirstPaint(window, *window.findChild<QWidget*>(QStringLiteral("Label3")));
  });
}
