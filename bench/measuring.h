// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Times of one thing against a baseline, taken in turn so that whatever else the machine does falls on both, and the
// large library on which they are taken. Times are those of the calling thread, by the clock and by its processor. One
// thread; fails as what is measured does.

#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tonalith::bench {

/// Milliseconds.
struct Spent {
  double wall = 0;
  double cpu = 0;
};

Spent Measure(const std::function<void()>& step);

/// The value below which `share` of them lie, for each of the two times by itself.
Spent Quantile(const std::vector<Spent>& times, double share);

struct Contender {
  std::string title;
  std::function<void()> step;
  /// Runs before each step and is not measured.
  std::function<void()> prepare = [] {};
};

/// Runs the two in turn and prints their medians and the median of the ratios of the pairs. Returns our medians.
Spent Compare(const Contender& ours, const Contender& baseline, int runs, double bound);
void PrintHeading(const char* title);

/// A folder that is gone at the end.
class Folder {
 public:
  Folder();
  ~Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// A scale database with `scales` rows of one type, their names, which begin with `prefix`, in no order.
void MakeLibrary(const std::filesystem::path& path, int scales, const std::string& prefix);

}  // namespace tonalith::bench
