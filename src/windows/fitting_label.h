// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A label whose text always fits: it uses the largest size between two bounds at which the text fits, wraps it if the
// label is high enough, and elides it only at the smallest size. Assistive technology gets the complete text. Plain
// text only.

#pragma once

#include <QColor>
#include <QFont>
#include <QLabel>
#include <QTextLayout>
#include <memory>

namespace tonalith::windows {

/// The text for a QTextLayout: line ends of any kind become line separators.
QString WithLineSeparators(QString text);

class FittingLabel : public QLabel {
  Q_OBJECT

 public:
  struct Sizes {
    int largestPixels;
    int smallestPixels;
  };

  FittingLabel(const QString& name, Sizes sizes, QFont::Weight weight, QWidget* parent);

  /// The colour of the text; without one, that of the palette. A colour that is unreadable on the window background
  /// gets a light chip.
  void SetTextColour(const QColor& colour);
  /// Invalid while the text has the colour of the palette.
  [[nodiscard]] QColor TextColour() const { return textColour_; }

  /// The pixel size of the current text.
  [[nodiscard]] int FittedPixelSize() const;
  /// The font of the current text.
  [[nodiscard]] QFont FittedFont() const { return FontOf(FittedPixelSize()); }
  /// Whether the text does not fit at the smallest size.
  [[nodiscard]] bool IsElided() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct Fit {
    QString text;
    int width = -1;
    int height = -1;
    int pixels = 0;
    bool fits = true;
    /// The painted text; if it does not fit, the lines that do.
    std::unique_ptr<QTextLayout> layout;
  };

  [[nodiscard]] QFont FontOf(int pixels) const;
  /// The size in which text of a size is laid out, and how much larger it is painted than that.
  [[nodiscard]] int LayoutPixels(int pixels) const;
  [[nodiscard]] double Magnification(int pixels) const;
  [[nodiscard]] QFont LayoutFont(int pixels) const;
  /// Lays out the text at a size; returns whether all of it fits.
  bool LayOut(QTextLayout& layout, int pixels) const;
  [[nodiscard]] const Fit& FitNow() const;
  [[nodiscard]] bool NeedsChip() const;
  void PaintChip(QPainter& painter) const;
  void PaintElided(QPainter& painter, const QTextLayout& layout) const;

  Sizes sizes_;
  QFont::Weight weight_;
  QColor textColour_;
  mutable Fit fit_;
};

}  // namespace tonalith::windows
