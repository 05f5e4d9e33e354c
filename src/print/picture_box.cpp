// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/picture_box.h"

#include <QPainter>

#include "controls/painter_surface.h"

namespace tonalith::print {
namespace {

using controls::Bgr;
using controls::PixelPoint;
using controls::RecordingSurface;

class RecordedImage : public platform::PrintablePicture {
 public:
  RecordedImage(RecordingSurface recording, double width, double height)
      : recording_(std::move(recording)), width_(width), height_(height) {}

  [[nodiscard]] double Width() const override { return width_; }
  [[nodiscard]] double Height() const override { return height_; }
  void PaintOn(QPainter& painter) const override {
    controls::PainterSurface surface(painter);
    recording_.ReplayOn(surface);
  }

 private:
  RecordingSurface recording_;
  double width_;
  double height_;
};

/// Hands every step on to another surface, moved.
class MovedSurface : public controls::DrawingSurface {
 public:
  MovedSurface(controls::DrawingSurface& target, PixelPoint by) : target_(target), by_(by) {
    target_.SetScaleMode(controls::ScaleMode::kPixels);
  }

 protected:
  void DoCls() override {}
  void DoPrint(PixelPoint at, std::string_view text, const controls::SurfaceFont& font, Bgr colour) override {
    target_.SetFontName(font.name);
    target_.SetFontSize(font.size);
    target_.SetFontBold(font.bold);
    target_.SetForeColor(colour);
    target_.SetCurrentX(at.x + by_.x);
    target_.SetCurrentY(at.y + by_.y);
    target_.Print(text);
  }
  void DoLine(PixelPoint from, PixelPoint to, Bgr colour) override {
    target_.SetForeColor(colour);
    target_.Line(from.x + by_.x, from.y + by_.y, to.x + by_.x, to.y + by_.y);
  }
  void DoPaintPicture(PixelPoint at, const std::shared_ptr<const controls::SurfacePicture>& picture) override {
    target_.PaintPicture(picture, at.x + by_.x, at.y + by_.y);
  }

 private:
  controls::DrawingSurface& target_;
  PixelPoint by_;
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

void BitBlt(controls::DrawingSurface& target, double left, double top, const RecordingSurface& source) {
  MovedSurface moved(target, {left, top});
  source.ReplayOn(moved);
}

}  // namespace tonalith::print
