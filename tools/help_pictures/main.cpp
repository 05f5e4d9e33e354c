// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// tonalith_help_pictures <database.mdb> <pictures.tsv> <folder>: takes screenshots of the program's windows for the
// help, in the light theme, and writes one PNG for each line of the table: its name, and its width on the page in
// pixels; the file has twice that width. Needs no screen. Exit status 0: written. 1: failed, with one line on standard
// error. 2: wrong usage.

#include <QApplication>
#include <exception>
#include <iostream>

#include "help_pictures/picture_book.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: tonalith_help_pictures <database.mdb> <pictures.tsv> <folder>\n";
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // Larger than any picture, so that each is scaled down.
  qputenv("QT_SCALE_FACTOR", "4");
  qputenv("QT_STYLE_OVERRIDE", "Fusion");
  qputenv("QT_ACCESSIBILITY", "0");
  // Ignore the settings of the desktop that runs the build.
  for (const char* const name : {"QT_QPA_PLATFORMTHEME", "QT_FONT_DPI", "QT_SCREEN_SCALE_FACTORS"}) qunsetenv(name);
  QCoreApplication::setApplicationVersion(QStringLiteral(TONALITH_VERSION));
  const QApplication application(argc, argv);
  try {
    tonalith::help_pictures::PictureBook book(argv[1]);
    book.Write(argv[2], argv[3]);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << "\n";
    return 1;
  }
  return 0;
}
