// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/reduced_painting.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QWidget>

#include "paint/device_scale.h"

namespace tonalith::windows {
namespace {

/// White, with a red box up to its lower right corner.
class BoxedWindow : public QWidget {
 public:
  explicit BoxedWindow(QSize size) {
    resize(size);
    box_ = new QWidget(this);
    box_->setGeometry(size.width() / 2, size.height() / 2, size.width() - size.width() / 2,
                      size.height() - size.height() / 2);
    Fill(*this, Qt::white);
    Fill(*box_, Qt::red);
  }

  QImage PaintedAt(double ratio) {
    QImage image((QSizeF(size()) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    render(&image);
    return image;
  }

 private:
  static void Fill(QWidget& widget, Qt::GlobalColor colour) {
    QPalette palette;
    palette.setColor(QPalette::Window, colour);
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
  }

  QWidget* box_ = nullptr;
};

QRect RedOf(const QImage& image) {
  QRect red;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y) == QColor(Qt::red)) red |= QRect(x, y, 1, 1);
    }
  }
  return red;
}

TEST(ReducedPainting, PaintsAWindowAndItsControlsAtTheRatioOfTheScreen) {
  BoxedWindow window({100, 80});
  window.setGraphicsEffect(new ReducedPainting(window));
  EXPECT_EQ(RedOf(window.PaintedAt(0.7)), QRect(35, 28, 35, 28));
}

class OutlinedWindow : public QWidget {
 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setPen(Qt::red);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
};

TEST(ReducedPainting, KeepsTheLowestLineOfTheWindow) {
  // The heights end at every part of a dot.
  for (int side = 60; side < 70; ++side) {
    OutlinedWindow window;
    window.resize(side, side);
    window.setGraphicsEffect(new ReducedPainting(window));
    const int dots = qRound(side * 0.7);
    QImage image(dots, dots, QImage::Format_RGB32);
    image.setDevicePixelRatio(0.7);
    window.render(&image);
    const QColor ground = image.pixelColor(dots / 2, dots / 2);
    EXPECT_NE(image.pixelColor(dots / 2, dots - 1), ground) << side;
  }
}

TEST(ReducedPainting, LeavesRatiosOfOneAndMoreToQt) {
  BoxedWindow window({100, 80});
  window.setGraphicsEffect(new ReducedPainting(window));
  EXPECT_EQ(RedOf(window.PaintedAt(1)), QRect(50, 40, 50, 40));
  EXPECT_EQ(RedOf(window.PaintedAt(2)), QRect(100, 80, 100, 80));
}

TEST(ReducedPainting, IsNotInstalledAtScaleOne) {
  QWidget window;
  ReducedPainting::Install(window);
  EXPECT_EQ(window.graphicsEffect(), nullptr);
}

TEST(DeviceScale, ScalesAPainterOnAnImageOfASmallerRatio) {
  QImage image(70, 70, QImage::Format_RGB32);
  image.setDevicePixelRatio(0.7);
  image.fill(Qt::white);
  QPainter painter(&image);
  paint::ScaleToDevice(painter);
  painter.fillRect(QRect(50, 50, 50, 50), Qt::red);
  painter.end();
  EXPECT_EQ(RedOf(image), QRect(35, 35, 35, 35));
}

TEST(DeviceScale, SnapsTheOriginToAWholeDot) {
  QImage image(10, 10, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.scale(0.5, 0.5);
  painter.translate(3, 5.6);
  paint::SnapOrigin(painter);
  EXPECT_EQ(painter.deviceTransform().map(QPointF(0, 0)), QPointF(2, 3));
  EXPECT_EQ(paint::DotsOf(painter, QRectF(0, 0, 4, 6)), QRect(2, 3, 2, 3));
}

TEST(DeviceScale, HasNoDotsForATurnedPainter) {
  QImage image(10, 10, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.rotate(30);
  EXPECT_TRUE(paint::DotsOf(painter, QRectF(0, 0, 4, 4)).isEmpty());
}

}  // namespace
}  // namespace tonalith::windows
