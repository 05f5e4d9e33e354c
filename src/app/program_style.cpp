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
  const bool isBar = element == CE_MenuBarEmptyArea || element == CE_MenuBarItem;
  if (element != CE_MenuBarEmptyArea) LateIconStyle::drawControl(element, option, painter, widget);
  const bool isHighlighted = element == CE_MenuBarItem && option->state.testFlag(State_Selected);
  if (!isBar || isHighlighted) return;
  constexpr int kBeyondTheGap = 2;
  // A line on the lowest pixels of the bar reaches half a pixel above them.
  constexpr int kBorderHeight = 2;
  QStyleOption bar(*option);
  bar.rect.adjust(-kBeyondTheGap, 0, kBeyondTheGap, 0);
  painter->save();
  const QRect border(option->rect.left(), option->rect.bottom() + 1 - kBorderHeight, option->rect.width(),
                     kBorderHeight);
  if (element == CE_MenuBarItem) painter->setClipRect(border);
  LateIconStyle::drawControl(CE_MenuBarEmptyArea, &bar, painter, widget);
  painter->restore();
}

void InstallStyle(QApplication& /*application*/) { QApplication::setStyle(new ProgramStyle(QApplication::style())); }

}  // namespace tonalith::app
