// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "first_paint.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>

namespace tonalith::bench {
namespace {

double MillisecondsSinceStart() {
  const char* const start = std::getenv("TONALITH_BENCH_START");
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
  return start == nullptr ? 0.0 : static_cast<double>(nanoseconds - std::atoll(start)) / 1e6;
}

long ProportionalKibibytes() {
  std::ifstream rollup("/proc/self/smaps_rollup");
  for (std::string word; rollup >> word;) {
    if (word == "Pss:") {
      long kibibytes = 0;
      rollup >> kibibytes;
      return kibibytes;
    }
  }
  return -1;
}

double ProcessorMilliseconds() { return static_cast<double>(std::clock()) * 1000.0 / CLOCKS_PER_SEC; }

class FirstPaint : public QObject {
 public:
  FirstPaint(QWidget& window, QWidget& last) : QObject(&window), window_(window) { last.installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint && !seen_) {
      seen_ = true;
      // The painting in progress ends with handing the picture to the window system; what follows comes after it.
      QTimer::singleShot(0, this, [this] { Painted(); });
    }
    return false;
  }

 private:
  void Painted() {
    std::printf("first-paint %.3f widgets %d\n", MillisecondsSinceStart(),
                static_cast<int>(window_.findChildren<QWidget*>().size()));
    processorAtPaint_ = ProcessorMilliseconds();
    QTimer::singleShot(2000, this, [this] {
      std::printf("proportional-memory %ld processor %.3f\n", ProportionalKibibytes(),
                  ProcessorMilliseconds() - processorAtPaint_);
      std::fflush(stdout);
      QApplication::quit();
    });
  }

  QWidget& window_;
  bool seen_ = false;
  double processorAtPaint_ = 0;
};

}  // namespace

void ReportFirstPaint(QWidget& window, QWidget& last) { new FirstPaint(window, last); }

}  // namespace tonalith::bench
