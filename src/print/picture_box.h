// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A picture box: a control to draw on, with a persistent image that can be copied to another box and printed. The image
// is a recording of what was drawn, not dots, so it is as sharp on a printer as on the screen, and its text stays text.
// It stands on white paper in every theme. Owned by its parent widget; user-interface thread; drawing does not fail.

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

  /// What is drawn here stays; without it, nothing is kept and the box is empty.
  bool AutoRedraw = true;
  /// A thin line around the image; it takes one pixel of each side from the inner size.
  bool BorderStyle = false;

  /// The inner size, in pixels.
  [[nodiscard]] double ScaleWidth() const { return width() - 2 * BorderWidth(); }
  [[nodiscard]] double ScaleHeight() const { return height() - 2 * BorderWidth(); }

  /// The surface to draw on. Call update() when the box is on the screen.
  [[nodiscard]] paint::RecordingSurface& Surface() { return surface_; }
  [[nodiscard]] const paint::RecordingSurface& Surface() const { return surface_; }

  /// What was drawn so far becomes the box's picture; null takes the picture away.
  void SetPicture(std::shared_ptr<const platform::PrintablePicture> picture) { picture_ = std::move(picture); }
  [[nodiscard]] const std::shared_ptr<const platform::PrintablePicture>& Picture() const { return picture_; }
  /// The drawing as it stands now, in the inner size. Later drawing does not change it. Null for an empty box.
  [[nodiscard]] std::shared_ptr<const platform::PrintablePicture> Image() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] int BorderWidth() const { return BorderStyle ? 1 : 0; }

  paint::RecordingSurface surface_;
  std::shared_ptr<const platform::PrintablePicture> picture_;
};

/// Copies what stands on `source` to `target`, with the source's origin at (left, top) in pixels. What stands there
/// already stays underneath.
void BitBlt(paint::DrawingSurface& target, double left, double top, const paint::RecordingSurface& source);

}  // namespace tonalith::print
