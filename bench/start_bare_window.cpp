// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The baseline: a Qt window of the same size with as many labels as Tonalith has child widgets, which reads the same
// rows with plain sqlite3: start_bare_window <widgets> <rows>. Both windows use the Qt style of the desktop.

#include <sqlite3.h>

#include <QApplication>
#include <QLabel>
#include <cstdio>
#include <cstdlib>

#include "first_paint.h"

namespace {

QString ReadRows(int rows) {
  QString first;
  sqlite3* database = nullptr;
  sqlite3_stmt* statement = nullptr;
  const std::string file = (QCoreApplication::applicationDirPath() + QStringLiteral("/TonalithDB97.mdb")).toStdString();
  if (sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK &&
      sqlite3_prepare_v2(database, "SELECT * FROM ScalesQuery", -1, &statement, nullptr) == SQLITE_OK) {
    for (int row = 0; row < rows && sqlite3_step(statement) == SQLITE_ROW; ++row) {
      for (int column = 0; column < sqlite3_column_count(statement); ++column) {
        const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        if (row == 0 && column == 1) first = QString::fromUtf8(text);
      }
    }
  }
  sqlite3_finalize(statement);
  sqlite3_close(database);
  return first;
}

}  // namespace

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  if (argc != 3) return 2;
  const int widgets = std::atoi(argv[1]);
  if (widgets < 1) return 2;
  const QString text = ReadRows(std::atoi(argv[2]));
  if (text.isEmpty()) return 1;
  QWidget window;
  window.setWindowTitle(text);
  window.setFixedSize(1080, 620);
  QLabel* last = nullptr;
  int i = 0;
  do {
    last = new QLabel(text, &window);
    last->setGeometry(10 + (i % 16) * 62, 10 + (i / 16) * 40, 60, 30);
  } while (++i < widgets);
  window.show();
  tonalith::bench::ReportFirstPaint(window, *last);
  return QApplication::exec();
}
