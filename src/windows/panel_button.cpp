// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/panel_button.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionButton>

#include "paint/colours.h"
#include "paint/drawing_surface_font.h"
#include "paint/panel_painting.h"
#include "paint/theme.h"

namespace tonalith::windows {
namespace {

/// The sum of the margins left and right of a caption.
constexpr int kCaptionMargins = 8;
constexpr int kSmallestPixels = 9;

QColor Shade(const QColor& colour, bool down, bool hover) {
  if (down) return colour.darker(112);
  return hover ? colour.darker(104) : colour;
}

}  // namespace

PanelButton::PanelButton(const QString& name, const QString& caption, Kind kind, QWidget* parent)
    : QPushButton(caption, parent), kind_(kind) {
  setObjectName(name);
  setAttribute(Qt::WA_Hover);
}

void PanelButton::SetKind(Kind kind) {
  kind_ = kind;
  update();
}

bool PanelButton::event(QEvent* event) {
  if (event->type() != QEvent::Shortcut) return QPushButton::event(event);
  // Qt shows the button pressed for a moment before it acts. Keys typed in that moment would go into the focused box:
  // in the editor, after Alt+A, into the name of the previous record.
  click();
  return true;
}

QSize PanelButton::sizeHint() const {
  return {qMax(100, fontMetrics().horizontalAdvance(text()) + 32), qMax(36, fontMetrics().height() + 14)};
}

QFont PanelButton::FittedFont() const {
  QFont fitted = font();
  int pixels = fontInfo().pixelSize();
  if (kind_ == Kind::kMainAction && isEnabled()) {
    pixels = qMax(14, pixels);
    fitted = paint::BoldFont(fitted, pixels);
  }
  const int available = width() - kCaptionMargins;
  while (pixels > kSmallestPixels && QFontMetrics(fitted).size(Qt::TextShowMnemonic, text()).width() > available) {
    fitted.setPixelSize(--pixels);
  }
  return fitted;
}

void PanelButton::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionButton option;
  initStyleOption(&option);
  const bool hover = (option.state & QStyle::State_MouseOver) != 0;
  const bool main = kind_ == Kind::kMainAction && isEnabled();
  const QColor fill =
      Shade(main ? QColor(paint::kAccent) : palette().color(QPalette::Button), isDown(), hover && isEnabled());
  const QColor outline = main ? QColor(paint::kAccent) : paint::OutlineColour(palette());

  QPainter painter(this);
  paint::PaintPanel(painter, rect(), fill, outline, hasFocus() && !main);
  if (main && hasFocus()) {
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5), 4, 4);
  }
  painter.setFont(FittedFont());
  painter.setPen(main ? QColor(Qt::white) : palette().color(QPalette::ButtonText));
  const bool underline = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0;
  const int flags = Qt::AlignCenter | (underline ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
  painter.drawText(rect(), flags, text());
}

}  // namespace tonalith::windows
