// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Times of one thing against a baseline, taken in turn so that whatever else the machine does falls on both, and the
// large library on which they are taken. Times are those of the calling thread, by the clock and by its processor. What
// comes out is told in lines, which bench/run collects into its table. One thread; fails as what is measured does.

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

/// Whether it only is to be seen that all this still runs (TONALITH_BENCH_QUICK): few runs and a small library then.
bool IsQuick();
/// How often something is measured that is worth `full` runs.
int Runs(int full);
/// The size of the large library.
int Scales();

/// Milliseconds as a person reads them: "51.5 ms", "1.8 us".
std::string TimeText(double milliseconds);

/// One line of the table: what was measured and by what it is bound.
struct Line {
  std::string what;
  double measured = 0;
  double bound = 0;
  /// Behind the two numbers: nothing for a ratio.
  std::string unit;
  /// What the program took, and the baseline in words with what that took.
  std::string ours;
  std::string baseline;
};
void Tell(const Line& line);

struct Contender {
  std::string title;
  std::function<void()> step;
  /// Runs before each step and is not measured.
  std::function<void()> prepare = [] {};
};

/// Runs the two in turn and tells the median of the ratios of the pairs, by the clock and beside it by the processor.
void Compare(const Contender& ours, const Contender& baseline, int runs, double bound);

/// Tells the value below which `share` of the times lie; `bound` in milliseconds.
void TellTimes(const std::string& what, const std::vector<Spent>& times, double share, double bound);

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
