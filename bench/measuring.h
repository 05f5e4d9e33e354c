// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Times of a subject and its baseline, taken alternately so that other load affects both, and the large library for the
// benchmarks. Times are of the calling thread: wall clock and processor. Results are printed as lines, which bench/run
// collects into its table. One thread.

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

/// The quantile `share`, for each of the two times separately.
Spent Quantile(const std::vector<Spent>& times, double share);

/// Whether to check only that the benchmark works (TONALITH_BENCH_QUICK): few runs and a small library.
bool IsQuick();
/// The number of runs: `full`, or fewer if IsQuick.
int Runs(int full);
/// The size of the large library.
int Scales();

/// Milliseconds as readable text: "51.5 ms", "1.8 us".
std::string TimeText(double milliseconds);

/// One line of the table: the measurement and its bound.
struct Line {
  std::string what;
  double measured = 0;
  double bound = 0;
  /// The unit after both numbers; empty for a ratio.
  std::string unit;
  /// The result of the program, and a description of the baseline with its result.
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

/// Runs both alternately and prints the median of the ratios of the pairs, for wall clock and processor time.
void Compare(const Contender& ours, const Contender& baseline, int runs, double bound);

/// Prints the quantile `share` of the times; `bound` in milliseconds.
void ReportTimes(const std::string& what, const std::vector<Spent>& times, double share, double bound);

/// A temporary folder, removed by the destructor.
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

/// Creates a scale database with `scales` rows of one type. Their names start with `prefix` and are in no order.
void MakeLibrary(const std::filesystem::path& path, int scales, const std::string& prefix);

}  // namespace tonalith::bench
