// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/picture_reader.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

namespace tonalith::help {
namespace {

constexpr int kLargestSide = 4096;
constexpr const char* kFormats[] = {"png", "jpeg", "jpg", "gif", "bmp"};

bool IsSane(const QSize& size) {
  return size.width() > 0 && size.height() > 0 && size.width() <= kLargestSide && size.height() <= kLargestSide;
}

}  // namespace

QImage ReadPicture(const std::string& bytes) {
  QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  for (const char* const format : kFormats) {
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    if (!reader.canRead()) continue;
    return IsSane(reader.size()) ? reader.read() : QImage();
  }
  return {};
}

QSize ShownSize(const HelpPicture& picture, const QSize& own, double zoom, int column) {
  double width = picture.width;
  double height = picture.height;
  if (width <= 0 && height <= 0) {
    width = own.width();
    height = own.height();
  } else if (width <= 0) {
    width = height * own.width() / own.height();
  } else if (height <= 0) {
    height = width * own.height() / own.width();
  }
  const double factor = qMin(zoom, column / width);
  return {qMax(1, qRound(width * factor)), qMax(1, qRound(height * factor))};
}

QImage SharpAt(const QImage& picture, const QSize& size, double ratio) {
  const QSize pixels(qMax(1, qRound(size.width() * ratio)), qMax(1, qRound(size.height() * ratio)));
  QImage sharp = picture.size() == pixels ? picture
                                          : picture.scaled(pixels.boundedTo({2 * kLargestSide, 2 * kLargestSide}),
                                                           Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  sharp.setDevicePixelRatio(ratio);
  return sharp;
}

}  // namespace tonalith::help
