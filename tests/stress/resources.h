// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What the process holds: memory, open files, widgets, running timers. Measured from time to time where only the main
// window is open, so that a window that leaves something behind each time it is used is found. User-interface thread.

#pragma once

#include <string>

namespace tonalith::stress {

struct Resources {
  long kibibytes = 0;
  int files = 0;
  int widgets = 0;
  int timers = 0;

  static Resources Now();
  [[nodiscard]] std::string Told() const;
};

class ResourceWatch {
 public:
  /// Measures when some hundred actions have gone by since the last time; the first time sets what the others are held
  /// against.
  void Look(int action);
  [[nodiscard]] const std::string& Report() const { return report_; }

 private:
  int next_ = -1;
  bool isFirst_ = true;
  Resources first_;
  std::string report_;
};

}  // namespace tonalith::stress
