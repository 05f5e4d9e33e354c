// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/program_style.h"

#include <QApplication>

#include "controls/theme.h"

namespace tonalith::app {

void ProgramStyle::polish(QPalette& palette) {
  LateIconStyle::polish(palette);
  palette = controls::WarmPalette(palette);
}

void InstallStyle(QApplication& /*application*/) { QApplication::setStyle(new ProgramStyle(QApplication::style())); }

}  // namespace tonalith::app
