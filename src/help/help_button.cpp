// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_button.h"

#include <QKeySequence>
#include <QPainter>

#include "paint/colours.h"

namespace tonalith::help {
namespace {

using Icon = HelpButton::Icon;

/// A line through points in a 16 by 16 grid centred at the origin.
void Line(QPainter& painter, std::initializer_list<QPointF> points) {
  painter.drawPolyline(QPolygonF(QList<QPointF>(points)));
}

void PaintArrow(QPainter& painter, double turn) {
  painter.rotate(turn);
  Line(painter, {{6, 0}, {-5.5, 0}});
  Line(painter, {{-0.5, -5}, {-5.5, 0}, {-0.5, 5}});
}

void PaintChevron(QPainter& painter, double turn) {
  painter.rotate(turn);
  Line(painter, {{-5, 2.5}, {0, -2.5}, {5, 2.5}});
}

void PaintHome(QPainter& painter) {
  Line(painter, {{-7, 0.5}, {0, -6}, {7, 0.5}});
  Line(painter, {{-4.5, -1}, {-4.5, 6}, {4.5, 6}, {4.5, -1}});
}

void PaintFind(QPainter& painter) {
  painter.drawEllipse(QPointF(-1.5, -1.5), 4.5, 4.5);
  Line(painter, {{2, 2}, {6, 6}});
}

/// A letter A in the resulting size, and a plus or minus.
void PaintLetter(QPainter& painter, bool isLarger) {
  const double height = isLarger ? 6.5 : 4.5;
  const double foot = 5.5;
  const double top = foot - 2 * height * 0.85;
  const double half = height * 0.72;
  Line(painter, {{-3 - half, foot}, {-3, top}, {-3 + half, foot}});
  Line(painter, {{-3 - half * 0.6, foot - height * 0.62}, {-3 + half * 0.6, foot - height * 0.62}});
  Line(painter, {{3.5, -3}, {8, -3}});
  if (isLarger) Line(painter, {{5.75, -5.25}, {5.75, -0.75}});
}

void PaintIcon(QPainter& painter, Icon icon) {
  switch (icon) {
    case Icon::kBack:
      return PaintArrow(painter, 0);
    case Icon::kForward:
      return PaintArrow(painter, 180);
    case Icon::kHome:
      return PaintHome(painter);
    case Icon::kFind:
      return PaintFind(painter);
    case Icon::kSmaller:
      return PaintLetter(painter, false);
    case Icon::kLarger:
      return PaintLetter(painter, true);
    case Icon::kUp:
      return PaintChevron(painter, 0);
    case Icon::kDown:
      return PaintChevron(painter, 180);
    case Icon::kClose:
      Line(painter, {{-4.5, -4.5}, {4.5, 4.5}});
      Line(painter, {{-4.5, 4.5}, {4.5, -4.5}});
      return;
  }
}

}  // namespace

HelpButton::HelpButton(Icon icon, const QString& name, const QKeySequence& keys, QWidget* parent)
    : QAbstractButton(parent), icon_(icon) {
  setAccessibleName(name);
  const QString shortcut = keys.toString(QKeySequence::NativeText);
  setToolTip(shortcut.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, shortcut));
  // A click must not take the focus from the page.
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
}

QSize HelpButton::sizeHint() const { return {36, 34}; }

void HelpButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor textColour = palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
  const QRectF box = QRectF(rect()).adjusted(2, 2, -2, -2);
  if (isEnabled() && (underMouse() || isDown())) {
    QColor wash = textColour;
    wash.setAlphaF(isDown() ? 0.16F : 0.07F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(wash);
    painter.drawRoundedRect(box, 5, 5);
  }
  painter.setBrush(Qt::NoBrush);
  if (hasFocus()) {
    painter.setPen(QPen(QColor(paint::kAccent), 2));
    painter.drawRoundedRect(box.adjusted(1, 1, -1, -1), 5, 5);
  }
  painter.translate(QRectF(rect()).center());
  QColor line = textColour;
  if (!isEnabled()) line.setAlphaF(0.45F);
  painter.setPen(QPen(line, 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  PaintIcon(painter, icon_);
}

}  // namespace tonalith::help
