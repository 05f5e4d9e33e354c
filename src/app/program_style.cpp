// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/program_style.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

#include "paint/theme.h"
#include "windows/reduced_painting.h"

namespace tonalith::app {
namespace {

bool IsReduced(const QPainter& painter) { return painter.device()->devicePixelRatioF() < 1; }

/// Shears the painter by an invisible amount. For a transformation that is more than a translation and a scale, styles
/// paint directly instead of using cached images.
void ShearInvisibly(QPainter& painter) {
  constexpr double kShear = 1e-9;
  painter.setTransform(QTransform(1, kShear, kShear, 1, 0, 0), true);
}

/// Fusion paints every edge darker than the window's background. Desktop styles support their own dark palette.
bool NeedsEdges(const QStyle& style, const QPalette& palette) {
  const QStyle* base = &style;
  while (const auto* const proxy = qobject_cast<const QProxyStyle*>(base)) base = proxy->baseStyle();
  return base->name() == QLatin1String("fusion") && paint::IsDark(palette);
}

bool IsPopUpEdge(QStyle::PrimitiveElement element, const QWidget* widget) {
  const bool isOfAList = element == QStyle::PE_Frame && widget != nullptr && widget->windowType() == Qt::Popup;
  return isOfAList || element == QStyle::PE_PanelMenu || element == QStyle::PE_FrameMenu;
}

void DrawEdge(const QStyleOption& option, QPainter& painter) {
  painter.setPen(paint::OutlineColour(option.palette));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
}

bool IsSeparator(const QStyleOption& option) {
  const auto* const entry = qstyleoption_cast<const QStyleOptionMenuItem*>(&option);
  return entry != nullptr && entry->menuItemType == QStyleOptionMenuItem::Separator && entry->text.isEmpty();
}

void DrawSeparator(const QStyleOption& option, QPainter& painter) {
  constexpr int kIndent = 5;
  painter.fillRect(option.rect.left() + kIndent, option.rect.center().y(), option.rect.width() - 2 * kIndent, 1,
                   paint::OutlineColour(option.palette));
}

}  // namespace

void ProgramStyle::polish(QWidget* widget) {
  DeferredIconStyle::polish(widget);
  windows::ReducedPainting::Install(*widget);
}

void ProgramStyle::polish(QPalette& palette) {
  DeferredIconStyle::polish(palette);
  palette = paint::WarmPalette(palette);
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  const bool isBar = element == CE_MenuBarEmptyArea || element == CE_MenuBarItem;
  if (element != CE_MenuBarEmptyArea) DeferredIconStyle::drawControl(element, option, painter, widget);
  if (element == CE_MenuItem && IsSeparator(*option) && NeedsEdges(*this, option->palette)) {
    DrawSeparator(*option, *painter);
  }
  const bool isHighlighted = element == CE_MenuBarItem && option->state.testFlag(State_Selected);
  if (!isBar || isHighlighted) return;
  constexpr int kBeyondTheGap = 2;
  // The line along the bottom of the bar extends half a pixel above the lowest pixels.
  constexpr int kBorderHeight = 2;
  QStyleOption bar(*option);
  bar.rect.adjust(-kBeyondTheGap, 0, kBeyondTheGap, 0);
  painter->save();
  const QRect border(option->rect.left(), option->rect.bottom() + 1 - kBorderHeight, option->rect.width(),
                     kBorderHeight);
  if (element == CE_MenuBarItem) painter->setClipRect(border);
  DeferredIconStyle::drawControl(CE_MenuBarEmptyArea, &bar, painter, widget);
  painter->restore();
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
  painter->save();
  if (element == PE_PanelButtonCommand && IsReduced(*painter)) ShearInvisibly(*painter);
  DeferredIconStyle::drawPrimitive(element, option, painter, widget);
  painter->restore();
  if (!IsPopUpEdge(element, widget) || !NeedsEdges(*this, option->palette)) return;
  painter->save();
  DrawEdge(*option, *painter);
  painter->restore();
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
  const bool isPicture = control == CC_ComboBox || control == CC_SpinBox || control == CC_Slider;
  painter->save();
  if (isPicture && IsReduced(*painter)) ShearInvisibly(*painter);
  DeferredIconStyle::drawComplexControl(control, option, painter, widget);
  painter->restore();
}

void InstallStyle(QApplication& /*application*/) { QApplication::setStyle(new ProgramStyle(QApplication::style())); }

}  // namespace tonalith::app
