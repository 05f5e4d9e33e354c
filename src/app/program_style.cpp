// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/program_style.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

#include "controls/reduced_painting.h"
#include "controls/theme.h"

namespace tonalith::app {
namespace {

bool IsReduced(const QPainter& painter) { return painter.device()->devicePixelRatioF() < 1; }

/// Leans the painter by far less than a dot. Styles paint what they keep as pictures directly for a painter that does
/// more than move and scale.
void LeanUnseen(QPainter& painter) {
  constexpr double kLean = 1e-9;
  painter.setTransform(QTransform(1, kLean, kLean, 1, 0, 0), true);
}

}  // namespace

void ProgramStyle::polish(QWidget* widget) {
  LateIconStyle::polish(widget);
  controls::ReducedPainting::Install(*widget);
}

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

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
  painter->save();
  if (element == PE_PanelButtonCommand && IsReduced(*painter)) LeanUnseen(*painter);
  LateIconStyle::drawPrimitive(element, option, painter, widget);
  painter->restore();
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
  const bool isPicture = control == CC_ComboBox || control == CC_SpinBox || control == CC_Slider;
  painter->save();
  if (isPicture && IsReduced(*painter)) LeanUnseen(*painter);
  LateIconStyle::drawComplexControl(control, option, painter, widget);
  painter->restore();
}

void InstallStyle(QApplication& /*application*/) { QApplication::setStyle(new ProgramStyle(QApplication::style())); }

}  // namespace tonalith::app
