// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/fitting_label.h"

#include <QPainter>
#include <algorithm>

#include "paint/colours.h"
#include "paint/drawing_surface_font.h"

namespace tonalith::windows {
namespace {

constexpr int kChipMargin = 9;
/// The chip under a dark text on a dark window: the colour of dry sand, on which pure blue has a contrast of 4.5 to 1.
constexpr QRgb kChip = 0xFFDCCBB0;
/// The size in which bold text is laid out, whatever its size on the screen: that of most bold texts of a window.
constexpr int kBoldLayoutPixels = 14;

}  // namespace

QString WithLineSeparators(QString text) {
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return text.replace(QLatin1Char('\n'), QChar(QChar::LineSeparator));
}

FittingLabel::FittingLabel(const QString& name, Sizes sizes, QFont::Weight weight, QWidget* parent)
    : QLabel(parent), sizes_(sizes), weight_(weight) {
  setObjectName(name);
  setTextFormat(Qt::PlainText);
}

void FittingLabel::SetTextColour(const QColor& colour) {
  textColour_ = colour;
  update();
}

int FittingLabel::FittedPixelSize() const { return FitNow().pixels; }

bool FittingLabel::IsElided() const { return !FitNow().fits; }

QFont FittingLabel::FontOf(int pixels) const {
  if (weight_ == QFont::Bold) return paint::BoldFont(font(), pixels);
  QFont sized = font();
  sized.setPixelSize(pixels);
  sized.setWeight(weight_);
  return sized;
}

// Bold text is not hinted, so it looks the same laid out at one size and painted at another. A font of each size would
// be looked up and read by itself, and the first one before the window can be painted.
int FittingLabel::LayoutPixels(int pixels) const { return weight_ == QFont::Bold ? kBoldLayoutPixels : pixels; }

double FittingLabel::Magnification(int pixels) const { return static_cast<double>(pixels) / LayoutPixels(pixels); }

QFont FittingLabel::LayoutFont(int pixels) const {
  QFont laidOut = FontOf(LayoutPixels(pixels));
  // Distances in pixels are not to grow with the text.
  const double magnification = Magnification(pixels);
  laidOut.setWordSpacing(laidOut.wordSpacing() / magnification);
  if (laidOut.letterSpacingType() == QFont::AbsoluteSpacing) {
    laidOut.setLetterSpacing(QFont::AbsoluteSpacing, laidOut.letterSpacing() / magnification);
  }
  return laidOut;
}

bool FittingLabel::LayOut(QTextLayout& layout, int pixels) const {
  const double boxWidth = width() / Magnification(pixels);
  const double boxHeight = height() / Magnification(pixels);
  layout.setFont(LayoutFont(pixels));
  layout.setText(WithLineSeparators(text()));
  QTextOption option;
  option.setWrapMode(QTextOption::WordWrap);
  layout.setTextOption(option);
  qreal bottom = 0;
  bool withinWidth = true;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(boxWidth);
    line.setPosition(QPointF(0, bottom));
    bottom += line.height();
    withinWidth = withinWidth && line.naturalTextWidth() <= boxWidth;
    if (bottom > boxHeight) break;
  }
  layout.endLayout();
  return withinWidth && bottom <= boxHeight;
}

const FittingLabel::Fit& FittingLabel::FitNow() const {
  if (fit_.text == text() && fit_.width == width() && fit_.height == height()) return fit_;
  fit_ = {text(), width(), height(), sizes_.largestPixels + 1, false, nullptr};
  while (!fit_.fits && fit_.pixels > sizes_.smallestPixels) {
    fit_.layout = std::make_unique<QTextLayout>();
    fit_.fits = LayOut(*fit_.layout, --fit_.pixels);
  }
  return fit_;
}

bool FittingLabel::NeedsChip() const {
  constexpr double kLeastContrast = 3.0;
  return textColour_.isValid() && !text().isEmpty() &&
         paint::ContrastRatio(textColour_, palette().color(QPalette::Window)) < kLeastContrast;
}

void FittingLabel::PaintChip(QPainter& painter) const {
  const int pixels = FitNow().pixels;
  const QFontMetricsF metrics(LayoutFont(pixels));
  const int textWidth = qRound(metrics.horizontalAdvance(text()) * Magnification(pixels));
  const int margin = std::clamp((width() - textWidth) / 2, 0, kChipMargin);
  const int chipWidth = std::min(width(), textWidth + 2 * margin);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(kChip));
  painter.drawRoundedRect(QRectF(0, 0, chipWidth, height()), height() / 2.0, height() / 2.0);
  painter.translate(margin, 0);
}

void FittingLabel::PaintElided(QPainter& painter, const QTextLayout& layout) const {
  const QFontMetricsF metrics(layout.font());
  const double magnification = Magnification(FitNow().pixels);
  int shown = 0;
  while (shown < layout.lineCount() && layout.lineAt(shown).rect().bottom() <= height() / magnification) ++shown;
  const int last = std::max(0, shown - 1);
  for (int i = 0; i < last; ++i) layout.lineAt(i).draw(&painter, QPointF(0, 0));
  if (layout.lineCount() == 0) return;
  const QTextLine line = layout.lineAt(last);
  const QString rest = layout.text().mid(line.textStart()).replace(QChar(QChar::LineSeparator), QLatin1Char(' '));
  painter.setFont(layout.font());
  painter.drawText(QPointF(0, line.position().y() + line.ascent()),
                   metrics.elidedText(rest, Qt::ElideRight, width() / magnification));
}

void FittingLabel::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) fit_ = {};
  QLabel::changeEvent(event);
}

void FittingLabel::paintEvent(QPaintEvent* /*event*/) {
  const Fit& fit = FitNow();
  QPainter painter(this);
  if (NeedsChip()) PaintChip(painter);
  painter.setPen(textColour_.isValid() ? textColour_ : palette().color(QPalette::WindowText));
  const double magnification = Magnification(fit.pixels);
  painter.scale(magnification, magnification);
  if (fit.fits) {
    fit.layout->draw(&painter, QPointF(0, 0));
  } else {
    PaintElided(painter, *fit.layout);
  }
}

}  // namespace tonalith::windows
