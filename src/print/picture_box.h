// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A picture box: a control to draw on, with a persistent image that can be copied to another box and printed. The image
// is a recording, not pixels, so it is sharp on a printer and its text stays text. The background is white in every
// theme.

#pragma once

#include <QWidget>
#include <memory>

#include "paint/recording_surface.h"
#include "platform/printer.h"

namespace tonalith::print {

class PictureBox : public QWidget {
  Q_OBJECT

 public:
  PictureBox(const QString& name, QWidget* parent);

  /// Whether drawings are stored; otherwise the box is empty.
  bool AutoRedraw = true;
  /// A border of one pixel, which reduces the inner size.
  bool BorderStyle = false;

  /// The inner size, in pixels.
  [[nodiscard]] double ScaleWidth() const { return width() - 2 * BorderWidth(); }
  [[nodiscard]] double ScaleHeight() const { return height() - 2 * BorderWidth(); }

  /// The surface to draw on. If the box is visible, call update() after drawing.
  [[nodiscard]] paint::RecordingSurface& Surface() { return surface_; }
  [[nodiscard]] const paint::RecordingSurface& Surface() const { return surface_; }

  /// Sets the picture of the box; null removes it.
  void SetPicture(std::shared_ptr<const platform::PrintablePicture> picture) { picture_ = std::move(picture); }
  [[nodiscard]] const std::shared_ptr<const platform::PrintablePicture>& Picture() const { return picture_; }
  /// A copy of the current drawing, in the inner size. Null for an empty box.
  [[nodiscard]] std::shared_ptr<const platform::PrintablePicture> Image() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] int BorderWidth() const { return BorderStyle ? 1 : 0; }

  paint::RecordingSurface surface_;
  std::shared_ptr<const platform::PrintablePicture> picture_;
};

/// Draws the commands of `source` on `target`, with the origin at (left, top) in pixels. Existing content of `target`
/// stays underneath.
void BitBlt(paint::DrawingSurface& target, double left, double top, const paint::RecordingSurface& source);

}  // namespace tonalith::print
