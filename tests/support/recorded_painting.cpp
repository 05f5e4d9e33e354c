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
#include <cmath>
#include <iterator>

namespace tonalith::tests {
namespace {

std::string Number(double number) {
  // Hundredths, without zeros at the end; no negative zero.
  const double rounded = std::round(number * 100) / 100 + 0.0;
  return QString::number(rounded, 'g', 8).toStdString();
}

std::string ColourText(const QColor& colour) {
  return colour.name(colour.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb).toStdString();
}

/// "rect", "round" with its radius, "ellipse", or "path" with its points.
std::string FormOf(const QPainterPath& path) {
  constexpr int kEllipse = 13;
  constexpr int kRoundedRect = 17;
  if (path.elementCount() == kEllipse) return "ellipse";
  if (path.elementCount() == kRoundedRect) return "round " + Number(path.elementAt(0).y - path.boundingRect().top());
  std::string form = "path";
  for (int i = 0; i < path.elementCount(); ++i) {
    form += " " + Number(path.elementAt(i).x) + "," + Number(path.elementAt(i).y);
  }
  return form;
}

std::vector<QColor> ColoursOf(const QBrush& brush) {
  if (brush.style() == Qt::TexturePattern) return {};
  if (brush.gradient() == nullptr) return {brush.color()};
  std::vector<QColor> colours;
  for (const QGradientStop& stop : brush.gradient()->stops()) colours.push_back(stop.second);
  return colours;
}

class Recorder : public QPaintEngine {
 public:
  Recorder() : QPaintEngine(QPaintEngine::AllFeatures) {}

  std::vector<Drawn> drawn_;

  bool begin(QPaintDevice* /*device*/) override { return true; }
  bool end() override { return true; }
  [[nodiscard]] Type type() const override { return QPaintEngine::User; }
  void updateState(const QPaintEngineState& /*state*/) override {}

  void drawPath(const QPainterPath& path) override { AddShape(FormOf(Mapped(path)), path.boundingRect(), true); }
  void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
    QPainterPath path;
    path.addPolygon(QPolygonF(QVector<QPointF>(points, points + count)));
    AddShape(FormOf(Mapped(path)), path.boundingRect(), mode != PolylineMode);
  }
  void drawRects(const QRectF* rects, int count) override {
    for (int i = 0; i < count; ++i) AddShape("rect", rects[i], true);
  }
  void drawEllipse(const QRectF& rect) override { AddShape("ellipse", rect, true); }
  void drawLines(const QLineF* lines, int count) override {
    for (int i = 0; i < count; ++i) AddShape("line", QRectF(lines[i].p1(), lines[i].p2()).normalized(), false);
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
  [[nodiscard]] QPainterPath Mapped(const QPainterPath& path) const { return painter()->deviceTransform().map(path); }
  [[nodiscard]] QRectF Mapped(const QRectF& rect) const { return painter()->deviceTransform().mapRect(rect); }

  void AddPicture(const QRectF& rect) {
    Drawn picture;
    picture.box = Mapped(rect);
    picture.isPicture = true;
    drawn_.push_back(picture);
  }

  void AddShape(std::string form, const QRectF& rect, bool canBeFilled) {
    Drawn shape;
    shape.form = std::move(form);
    shape.isSmooth = painter()->testRenderHint(QPainter::Antialiasing);
    shape.box = Mapped(rect);
    const QPen pen = painter()->pen();
    if (pen.style() != Qt::NoPen) {
      shape.line = pen.color();
      shape.lineWidth = pen.widthF();
    }
    const QBrush brush = painter()->brush();
    if (canBeFilled && brush.style() != Qt::NoBrush) {
      shape.fills = ColoursOf(brush);
      shape.fill = shape.fills.empty() ? QColor(Qt::black) : shape.fills.front();
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

std::string Drawn::AsText() const {
  if (!text.isEmpty()) {
    const std::string size = font.pixelSize() > 0 ? " " + std::to_string(font.pixelSize()) + "px" : "";
    return "\"" + text.toStdString() + "\" " + ColourText(line) + size + (font.bold() ? " bold" : "");
  }
  std::string words = (isPicture ? "picture" : form) + " at " + Number(box.x()) + "," + Number(box.y()) + " " +
                      Number(box.width()) + "x" + Number(box.height());
  if (fill.isValid()) words += fills.empty() ? " fill texture" : " fill";
  for (const QColor& colour : fills) words += " " + ColourText(colour);
  if (line.isValid()) words += " line " + ColourText(line) + " " + Number(lineWidth);
  return words + (isSmooth ? " smooth" : "");
}

std::string Drawing::AsText() const {
  std::string lines;
  for (const Drawn& drawn : drawn_) lines += drawn.AsText() + "\n";
  return lines;
}

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
