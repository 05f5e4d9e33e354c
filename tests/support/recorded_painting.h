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
#include <string>
#include <utility>
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
  /// Invalid without a fill; the first of `fills`.
  QColor fill;
  /// The colour of the fill, or all colours of a gradient; empty for a texture.
  std::vector<QColor> fills;
  QFont font;
  bool isPicture = false;
  bool isSmooth = false;
  /// "rect", "round 6" with its radius, "ellipse", or "path" with its points.
  std::string form;

  /// One line: form, bounds, fill and outline of a shape; words, colour and font of a text.
  [[nodiscard]] std::string AsText() const;
};

/// What was painted, in the order of painting.
class Drawing {
 public:
  explicit Drawing(std::vector<Drawn> drawn) : drawn_(std::move(drawn)) {}

  [[nodiscard]] const std::vector<Drawn>& All() const& { return drawn_; }
  /// By value, so that a loop over the result of a function keeps it.
  [[nodiscard]] std::vector<Drawn> All() && { return std::move(drawn_); }
  [[nodiscard]] QStringList Texts() const;
  /// One line for each text, shape and picture.
  [[nodiscard]] std::string AsText() const;
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
