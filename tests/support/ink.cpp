// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "support/ink.h"

#include <QPainter>
#include <cmath>

namespace tonalith::tests {

QImage Painted(int width, int height, double scale, const std::function<void(QPainter&)>& paint) {
  QImage image(static_cast<int>(std::ceil(width * scale)), static_cast<int>(std::ceil(height * scale)),
               QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::white);
  QPainter painter(&image);
  paint(painter);
  painter.end();
  return image;
}

int Darkness(const QImage& image, int x, int y) {
  return image.rect().contains(x, y) ? 255 - qGray(image.pixel(x, y)) : 0;
}

QRect InkBox(const QImage& image, const QRect& within) {
  QRect box;
  for (int y = within.top(); y <= within.bottom(); ++y) {
    for (int x = within.left(); x <= within.right(); ++x) {
      if (Darkness(image, x, y) >= 128) box |= QRect(x, y, 1, 1);
    }
  }
  return box;
}

int InkRuns(const QImage& image, int y, int fromX, int toX) {
  int runs = 0;
  bool dark = false;
  for (int x = fromX; x <= toX; ++x) {
    const bool now = Darkness(image, x, y) >= 128;
    if (now && !dark) ++runs;
    dark = now;
  }
  return runs;
}

}  // namespace tonalith::tests
