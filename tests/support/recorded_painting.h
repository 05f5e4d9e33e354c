// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Records what a widget paints as a list of texts, shapes and pictures, so that a test can ask for a caption, a frame
// or a fill instead of comparing dots. Coordinates are pixels of the widget at scale 1.

#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QStringList>
#include <functional>
#include <vector>

class QPainter;
class QWidget;

namespace tonalith::tests {

/// One text, shape or picture.
struct Drawn {
  /// Empty for shapes and pictures.
  QString text;
  /// The bounds of a shape without the width of its line, or of a picture; the cell of a text.
  QRectF box;
  /// The colour of the text or of the outline; invalid without an outline.
  QColor line;
  double lineWidth = 0;
  /// The first colour of a gradient; invalid without a fill.
  QColor fill;
  QFont font;
  bool isPicture = false;
};

/// What was painted, in the order of painting.
class Drawing {
 public:
  explicit Drawing(std::vector<Drawn> drawn) : drawn_(std::move(drawn)) {}

  [[nodiscard]] const std::vector<Drawn>& All() const { return drawn_; }
  [[nodiscard]] QStringList Texts() const;
  /// The only text that reads so; fails the test and returns an empty one if there is none or a second one.
  [[nodiscard]] Drawn Text(const QString& text) const;
  /// The shapes with this fill.
  [[nodiscard]] std::vector<Drawn> FilledWith(const QColor& colour) const;
  /// The shapes with an outline of this colour.
  [[nodiscard]] std::vector<Drawn> OutlinedWith(const QColor& colour) const;

 private:
  [[nodiscard]] std::vector<Drawn> Shapes(const std::function<bool(const Drawn&)>& is) const;

  std::vector<Drawn> drawn_;
};

/// What `paint` draws on a device of a size in pixels.
Drawing RecordPainting(QSize size, const std::function<void(QPainter&)>& paint);

/// What a widget draws without its background and, unless `withChildren`, without its children.
Drawing RecordPainting(QWidget& widget, bool withChildren = false);

}  // namespace tonalith::tests
