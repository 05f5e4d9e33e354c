// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/program_style.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

#include "controls/theme.h"

namespace tonalith::app {

void ProgramStyle::polish(QPalette& palette) {
  LateIconStyle::polish(palette);
  palette = controls::WarmPalette(palette);
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  LateIconStyle::drawControl(element, option, painter, widget);
  if (element != CE_MenuBarItem || option == nullptr || option->state.testFlag(State_Selected)) return;
  constexpr int kBeyondTheGap = 2;
  QStyleOption bar(*option);
  bar.rect.adjust(-kBeyondTheGap, 0, kBeyondTheGap, 0);
  painter->save();
  painter->setClipRect(QRect(option->rect.left(), option->rect.bottom(), option->rect.width(), 1));
  LateIconStyle::drawControl(CE_MenuBarEmptyArea, &bar, painter, widget);
  painter->restore();
}

void InstallStyle(QApplication& /*application*/) { QApplication::setStyle(new ProgramStyle(QApplication::style())); }

}  // namespace tonalith::app
