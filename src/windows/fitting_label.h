// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A label whose text always fits its box: it is set in the largest size between two bounds at which it fits, wrapped
// where the box is high enough, and only below the smallest size it ends in an ellipsis. The whole text stays available
// to assistive technology. Plain text only. Owned by its parent widget; user-interface thread; never fails.

#pragma once

#include <QColor>
#include <QFont>
#include <QLabel>
#include <QTextLayout>
#include <memory>

namespace tonalith::windows {

/// The text as a layout takes it: its line ends, of whatever kind, made separators of lines.
QString WithLineSeparators(QString text);

class FittingLabel : public QLabel {
  Q_OBJECT

 public:
  struct Sizes {
    int largestPixels;
    int smallestPixels;
  };

  FittingLabel(const QString& name, Sizes sizes, QFont::Weight weight, QWidget* parent);

  /// The colour of the text; the palette's own where none is set. A colour that could not be read on the window's
  /// ground stands on a light chip.
  void SetTextColour(const QColor& ink);

  /// The pixel size in which the present text is set.
  [[nodiscard]] int FittedPixelSize() const;
  /// The same as a font.
  [[nodiscard]] QFont FittedFont() const { return FontOf(FittedPixelSize()); }
  /// Whether the text is too long even at the smallest size.
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
    /// The text as it is painted; of one that does not fit, all that there was room for.
    std::unique_ptr<QTextLayout> layout;
  };

  [[nodiscard]] QFont FontOf(int pixels) const;
  /// The size in which text of a size is laid out, and how much larger it is painted than that.
  [[nodiscard]] int LayoutPixels(int pixels) const;
  [[nodiscard]] double Magnification(int pixels) const;
  [[nodiscard]] QFont LayoutFont(int pixels) const;
  /// Lays the text out at a size; true when all of it is within the box.
  bool LayOut(QTextLayout& layout, int pixels) const;
  [[nodiscard]] const Fit& FitNow() const;
  [[nodiscard]] bool NeedsChip() const;
  void PaintChip(QPainter& painter) const;
  void PaintElided(QPainter& painter, const QTextLayout& layout) const;

  Sizes sizes_;
  QFont::Weight weight_;
  QColor ink_;
  mutable Fit fit_;
};

}  // namespace tonalith::windows
