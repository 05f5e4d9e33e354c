// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/picture_box.h"

#include <QPainter>

#include "paint/painter_surface.h"

namespace tonalith::print {
namespace {

using paint::RecordingSurface;

class RecordedImage : public platform::PrintablePicture {
 public:
  RecordedImage(RecordingSurface recording, double width, double height)
      : recording_(std::move(recording)), width_(width), height_(height) {}

  [[nodiscard]] double Width() const override { return width_; }
  [[nodiscard]] double Height() const override { return height_; }
  void PaintOn(QPainter& painter) const override {
    paint::PainterSurface surface(painter);
    recording_.ReplayOn(surface);
  }

 private:
  RecordingSurface recording_;
  double width_;
  double height_;
};

}  // namespace

PictureBox::PictureBox(const QString& name, QWidget* parent) : QWidget(parent) { setObjectName(name); }

std::shared_ptr<const platform::PrintablePicture> PictureBox::Image() const {
  if (!AutoRedraw || surface_.Commands().empty()) return nullptr;
  return std::make_shared<const RecordedImage>(surface_, ScaleWidth(), ScaleHeight());
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  if (BorderStyle) {
    painter.setPen(Qt::gray);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.translate(1, 1);
  }
  if (const auto image = Image()) image->PaintOn(painter);
}

void BitBlt(paint::DrawingSurface& target, double left, double top, const RecordingSurface& source) {
  source.ReplayOn(target, {left, top});
}

}  // namespace tonalith::print
