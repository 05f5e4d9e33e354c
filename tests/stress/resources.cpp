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

constexpr int kActionsApart = 500;
/// The recordings of all notes stay in memory (32 MiB), and so do glyphs, pictures and the pages of the help.
#ifdef __SANITIZE_ADDRESS__
/// The sanitizer keeps what was freed.
constexpr long kMoreKibibytes = 1024L * 1024;
#else
constexpr long kMoreKibibytes = 160L * 1024;
#endif
constexpr int kMoreFiles = 12;
/// The editor has 66 widgets. It is made at its first use, which may come after the first look, and then kept.
constexpr int kMoreWidgets = 90;
constexpr int kMoreTimers = 12;

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

std::string Resources::Told() const {
  return std::to_string(kibibytes / 1024) + " MiB, " + std::to_string(files) + " files, " + std::to_string(widgets) +
         " widgets, " + std::to_string(timers) + " timers";
}

void ResourceWatch::Look(int action) {
  // What is made once, at the first use, does not count.
  if (next_ < 0) next_ = action + kActionsApart;
  if (action < next_) return;
  const Resources now = Resources::Now();
  next_ = action + kActionsApart;
  if (std::exchange(isFirst_, false)) first_ = now;
  report_ = first_.Told() + " -> " + now.Told();
  Require(now.kibibytes <= first_.kibibytes + kMoreKibibytes, "memory grows", report_);
  Require(now.files <= first_.files + kMoreFiles, "open files grow", report_);
  Require(now.widgets <= first_.widgets + kMoreWidgets, "widgets grow", report_);
  Require(now.timers <= first_.timers + kMoreTimers, "running timers grow", report_);
}

}  // namespace tonalith::stress
