// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "support/recorded_painting.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>
#include <algorithm>
#include <iterator>

namespace tonalith::tests {
namespace {

class Recorder : public QPaintEngine {
 public:
  Recorder() : QPaintEngine(QPaintEngine::AllFeatures) {}

  std::vector<Drawn> drawn_;

  bool begin(QPaintDevice* /*device*/) override { return true; }
  bool end() override { return true; }
  [[nodiscard]] Type type() const override { return QPaintEngine::User; }
  void updateState(const QPaintEngineState& /*state*/) override {}

  void drawPath(const QPainterPath& path) override { AddShape(path.boundingRect(), true); }
  void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
    AddShape(QPolygonF(QVector<QPointF>(points, points + count)).boundingRect(), mode != PolylineMode);
  }
  void drawRects(const QRectF* rects, int count) override {
    for (int i = 0; i < count; ++i) AddShape(rects[i], true);
  }
  void drawEllipse(const QRectF& rect) override { AddShape(rect, true); }
  void drawLines(const QLineF* lines, int count) override {
    for (int i = 0; i < count; ++i) AddShape(QRectF(lines[i].p1(), lines[i].p2()).normalized(), false);
  }
  void drawPixmap(const QRectF& rect, const QPixmap& /*pixmap*/, const QRectF& /*source*/) override {
    AddPicture(rect);
  }
  void drawTiledPixmap(const QRectF& rect, const QPixmap& /*pixmap*/, const QPointF& /*from*/) override {
    AddPicture(rect);
  }
  void drawImage(const QRectF& rect, const QImage& /*image*/, const QRectF& /*source*/,
                 Qt::ImageConversionFlags /*flags*/) override {
    AddPicture(rect);
  }
  void drawTextItem(const QPointF& baseline, const QTextItem& item) override {
    Drawn text;
    text.text = item.text();
    text.box = Mapped({baseline.x(), baseline.y() - item.ascent(), item.width(), item.ascent() + item.descent()});
    text.line = painter()->pen().color();
    text.font = item.font();
    drawn_.push_back(text);
  }

 private:
  [[nodiscard]] QRectF Mapped(const QRectF& rect) const { return painter()->combinedTransform().mapRect(rect); }

  void AddPicture(const QRectF& rect) {
    Drawn picture;
    picture.box = Mapped(rect);
    picture.isPicture = true;
    drawn_.push_back(picture);
  }

  void AddShape(const QRectF& rect, bool canBeFilled) {
    Drawn shape;
    shape.box = Mapped(rect);
    const QPen pen = painter()->pen();
    if (pen.style() != Qt::NoPen) {
      shape.line = pen.color();
      shape.lineWidth = pen.widthF();
    }
    const QBrush brush = painter()->brush();
    if (canBeFilled && brush.style() != Qt::NoBrush) {
      shape.fill = brush.gradient() == nullptr ? brush.color() : brush.gradient()->stops().constFirst().second;
    }
    drawn_.push_back(shape);
  }
};

class RecordingDevice : public QPaintDevice {
 public:
  explicit RecordingDevice(QSize size) : size_(size) {}
  [[nodiscard]] QPaintEngine* paintEngine() const override { return &recorder_; }
  [[nodiscard]] const std::vector<Drawn>& Found() const { return recorder_.drawn_; }

 protected:
  [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
    constexpr int kDotsPerInch = 96;
    constexpr double kMillimetresPerInch = 25.4;
    switch (metric) {
      case PdmWidth:
        return size_.width();
      case PdmHeight:
        return size_.height();
      case PdmWidthMM:
        return qRound(size_.width() * kMillimetresPerInch / kDotsPerInch);
      case PdmHeightMM:
        return qRound(size_.height() * kMillimetresPerInch / kDotsPerInch);
      case PdmDpiX:
      case PdmDpiY:
      case PdmPhysicalDpiX:
      case PdmPhysicalDpiY:
        return kDotsPerInch;
      case PdmDepth:
        return 32;
      case PdmNumColors:
        return 1 << 24;
      case PdmDevicePixelRatio:
        return 1;
      case PdmDevicePixelRatioScaled:
        return qRound(devicePixelRatioFScale());
    }
    return 0;
  }

 private:
  QSize size_;
  mutable Recorder recorder_;
};

}  // namespace

QStringList Drawing::Texts() const {
  QStringList texts;
  for (const Drawn& drawn : drawn_) {
    if (!drawn.text.isEmpty()) texts.append(drawn.text);
  }
  return texts;
}

Drawn Drawing::Text(const QString& text) const {
  const auto reads = [&](const Drawn& drawn) { return drawn.text == text; };
  const auto found = std::find_if(drawn_.begin(), drawn_.end(), reads);
  const bool isOnly = std::count_if(drawn_.begin(), drawn_.end(), reads) == 1;
  EXPECT_TRUE(isOnly) << "\"" << text.toStdString() << "\" once in \""
                      << Texts().join(QStringLiteral("\", \"")).toStdString() << "\"";
  return isOnly ? *found : Drawn();
}

std::vector<Drawn> Drawing::FilledWith(const QColor& colour) const {
  return Shapes([&](const Drawn& drawn) { return drawn.fill == colour; });
}

std::vector<Drawn> Drawing::OutlinedWith(const QColor& colour) const {
  return Shapes([&](const Drawn& drawn) { return drawn.line == colour; });
}

std::vector<Drawn> Drawing::Shapes(const std::function<bool(const Drawn&)>& is) const {
  std::vector<Drawn> shapes;
  std::copy_if(drawn_.begin(), drawn_.end(), std::back_inserter(shapes),
               [&](const Drawn& drawn) { return drawn.text.isEmpty() && !drawn.isPicture && is(drawn); });
  return shapes;
}

Drawing RecordPainting(QSize size, const std::function<void(QPainter&)>& paint) {
  RecordingDevice device(size);
  QPainter painter(&device);
  paint(painter);
  painter.end();
  return Drawing(device.Found());
}

Drawing RecordPainting(QWidget& widget, bool withChildren) {
  RecordingDevice device(widget.size());
  widget.render(&device, QPoint(), QRegion(),
                withChildren ? QWidget::RenderFlags(QWidget::DrawChildren) : QWidget::RenderFlags());
  return Drawing(device.Found());
}

}  // namespace tonalith::tests
