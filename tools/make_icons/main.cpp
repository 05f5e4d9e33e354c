// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// tonalith_make_icons <folder>: writes the icon of the program as <size>.png in every size, and as tonalith.svg. Exit
// status 0: success. 1: a file could not be written; prints one line. 2: wrong arguments.

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <iostream>

#include "app/program_icon.h"

namespace {

constexpr int kScalableSize = 128;

bool WritePicture(const QString& file, int size) {
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  tonalith::app::PaintProgramIcon(painter, size);
  painter.end();
  return image.save(file, "PNG");
}

bool WriteDrawing(const QString& file) {
  QSvgGenerator drawing;
  drawing.setFileName(file);
  drawing.setSize({kScalableSize, kScalableSize});
  drawing.setViewBox(QRect(0, 0, kScalableSize, kScalableSize));
  drawing.setTitle(QStringLiteral("Tonalith"));
  drawing.setDescription(QStringLiteral("A piece of a guitar neck with two notes on it"));
  QPainter painter;
  if (!painter.begin(&drawing)) return false;
  tonalith::app::PaintProgramIcon(painter, kScalableSize);
  return painter.end();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: tonalith_make_icons <folder>\n";
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  bool isWritten = folder.mkpath(QStringLiteral(".")) && WriteDrawing(folder.filePath(QStringLiteral("tonalith.svg")));
  for (const int size : tonalith::app::kIconSizes) {
    isWritten = isWritten && WritePicture(folder.filePath(QStringLiteral("%1.png").arg(size)), size);
  }
  if (!isWritten) std::cerr << "The icons could not be written to " << argv[1] << "\n";
  return isWritten ? 0 : 1;
}
