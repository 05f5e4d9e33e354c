// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The resources of the process: memory, open files, widgets and running timers. They are measured at intervals while
// only the main window is open, to detect leaks of the other windows.

#pragma once

#include <string>

namespace tonalith::stress {

struct Resources {
  long kibibytes = 0;
  int files = 0;
  int widgets = 0;
  int timers = 0;

  static Resources Now();
  [[nodiscard]] std::string Text() const;
};

class ResourceWatch {
 public:
  /// Measures again after a fixed number of actions. The first measurement is the baseline; throws a Finding if a later
  /// one exceeds it too far.
  void Check(int action);
  [[nodiscard]] const std::string& Report() const { return report_; }

 private:
  int next_ = -1;
  bool isFirst_ = true;
  Resources first_;
  std::string report_;
};

}  // namespace tonalith::stress
