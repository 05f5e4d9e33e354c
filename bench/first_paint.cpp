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
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

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

/// The number of voluntary context switches of all threads.
long Sleeps() {
  long sleeps = 0;
  for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
    std::ifstream status(thread.path() / "status");
    for (std::string line; std::getline(status, line);) {
      constexpr std::string_view kField = "voluntary_ctxt_switches:";
      if (line.starts_with(kField)) sleeps += std::atol(line.c_str() + kField.size());
    }
  }
  return sleeps;
}

double ProcessorMilliseconds() { return static_cast<double>(std::clock()) * 1000.0 / CLOCKS_PER_SEC; }

class FirstPaint : public QObject {
 public:
  FirstPaint(QWidget& window, QWidget& last) : QObject(&window), window_(window) { last.installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint && !seen_) {
      seen_ = true;
      // The current paint event ends by sending the image to the window system; the timer runs after that.
      QTimer::singleShot(0, this, [this] { Painted(); });
    }
    return false;
  }

 private:
  void Painted() {
    std::printf("first-paint %.3f widgets %d\n", MillisecondsSinceStart(),
                static_cast<int>(window_.findChildren<QWidget*>().size()));
    if (std::getenv("TONALITH_BENCH_START_ONLY") != nullptr) {
      std::fflush(stdout);
      std::_Exit(0);
    }
    // Work that the start defers is finished by then.
    QTimer::singleShot(1000, this, [this] {
      processorAtRest_ = ProcessorMilliseconds();
      sleepsAtRest_ = Sleeps();
      QTimer::singleShot(1000, this, [this] { Rested(); });
    });
  }

  void Rested() {
    // One of the wake-ups is this timer.
    const long wakeUps = Sleeps() - sleepsAtRest_ - 1;
    const double processor = ProcessorMilliseconds() - processorAtRest_;
    std::printf("proportional-memory %ld processor %.3f wake-ups %ld\n", ProportionalKibibytes(), processor, wakeUps);
    std::fflush(stdout);
    QApplication::quit();
  }

  QWidget& window_;
  bool seen_ = false;
  double processorAtRest_ = 0;
  long sleepsAtRest_ = 0;
};

}  // namespace

void ReportFirstPaint(QWidget& window, QWidget& last) { new FirstPaint(window, last); }

}  // namespace tonalith::bench
