// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/resources.h"

#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <filesystem>
#include <fstream>

#include "stress/finding.h"

namespace tonalith::stress {
namespace {

constexpr int kActionsBetweenChecks = 500;
/// The recordings of all notes (32 MiB), glyphs, images and help pages stay in memory.
#ifdef __SANITIZE_ADDRESS__
/// The sanitizer delays the release of freed memory.
constexpr long kExtraKibibytes = 1024L * 1024;
#else
constexpr long kExtraKibibytes = 160L * 1024;
#endif
constexpr int kExtraFiles = 12;
/// The editor has 66 widgets. It is created at its first use, possibly after the baseline, and stays in memory.
constexpr int kExtraWidgets = 90;
constexpr int kExtraTimers = 12;

int RunningTimers() {
  auto* const dispatcher = QAbstractEventDispatcher::instance();
  int timers = 0;
  for (QWidget* const widget : QApplication::allWidgets()) {
    timers += static_cast<int>(dispatcher->registeredTimers(widget).size());
    for (const QTimer* const timer : widget->findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (timer->isActive()) ++timers;
    }
  }
  return timers;
}

}  // namespace

Resources Resources::Now() {
  Resources now;
  long pages = 0;
  std::ifstream("/proc/self/statm") >> pages >> pages;
  now.kibibytes = pages * (::sysconf(_SC_PAGESIZE) / 1024);
  std::error_code error;
  for (auto file = std::filesystem::directory_iterator("/proc/self/fd", error);
       file != std::filesystem::directory_iterator(); file.increment(error)) {
    ++now.files;
  }
  now.widgets = static_cast<int>(QApplication::allWidgets().size());
  now.timers = RunningTimers();
  return now;
}

std::string Resources::Text() const {
  return std::to_string(kibibytes / 1024) + " MiB, " + std::to_string(files) + " files, " + std::to_string(widgets) +
         " widgets, " + std::to_string(timers) + " timers";
}

void ResourceWatch::Check(int action) {
  // Objects that are created once, at the first use, belong to the baseline.
  if (next_ < 0) next_ = action + kActionsBetweenChecks;
  if (action < next_) return;
  const Resources now = Resources::Now();
  next_ = action + kActionsBetweenChecks;
  if (std::exchange(isFirst_, false)) first_ = now;
  report_ = first_.Text() + " -> " + now.Text();
  Require(now.kibibytes <= first_.kibibytes + kExtraKibibytes, "memory grows", report_);
  Require(now.files <= first_.files + kExtraFiles, "open files grow", report_);
  Require(now.widgets <= first_.widgets + kExtraWidgets, "widgets grow", report_);
  Require(now.timers <= first_.timers + kExtraTimers, "running timers grow", report_);
}

}  // namespace tonalith::stress
