// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A printed page on the screen: a sheet that is white in every theme, as large as the widget allows, with the pictures
// to print and a frame around its printable area.

#pragma once

#include <QWidget>
#include <vector>

#include "print/preview_printer.h"

namespace tonalith::print {

/// A thin dashed frame that ignores the mouse.
class FrameShape : public QWidget {
  Q_OBJECT

 public:
  FrameShape(const QString& name, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

class PageView : public QWidget {
  Q_OBJECT

 public:
  /// `shape` is the object name of the frame around the printable area.
  PageView(const QString& name, const QString& shape, QWidget* parent);

  void Show(const platform::Sheet& sheet, std::vector<PaintedPicture> painted);

  /// The rectangle of the sheet in the widget, in pixels.
  [[nodiscard]] QRectF SheetRect() const;
  [[nodiscard]] const std::vector<PaintedPicture>& Painted() const { return painted_; }
  [[nodiscard]] QSize sizeHint() const override { return {640, 480}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {320, 240}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void UpdateShape();

  platform::Sheet sheet_;
  std::vector<PaintedPicture> painted_;
  FrameShape* shape_;
};

}  // namespace tonalith::print
