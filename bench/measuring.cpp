// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "measuring.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <utility>

#include "data/schema.h"

namespace tonalith::bench {
namespace {

double Milliseconds(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double Quantile(std::vector<double> values, double share) {
  const auto at = static_cast<std::ptrdiff_t>(std::lround(static_cast<double>(values.size() - 1) * share));
  std::nth_element(values.begin(), values.begin() + at, values.end());
  return values[static_cast<std::size_t>(at)];
}

/// With three significant digits.
std::string NumberText(double value) {
  const int digits = std::abs(value) < 10 ? 2 : std::abs(value) < 100 ? 1 : 0;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.*f", digits, value);
  return text.data();
}

// A permutation of the 32-bit numbers, so that rows are in no order that favours an index.
std::uint32_t Scattered(std::uint32_t number) { return number * 2654435761U; }

}  // namespace

Spent Measure(const std::function<void()>& step) {
  const double wall = Milliseconds(CLOCK_MONOTONIC);
  const double cpu = Milliseconds(CLOCK_THREAD_CPUTIME_ID);
  step();
  return {Milliseconds(CLOCK_MONOTONIC) - wall, Milliseconds(CLOCK_THREAD_CPUTIME_ID) - cpu};
}

Spent Quantile(const std::vector<Spent>& times, double share) {
  std::vector<double> wall;
  std::vector<double> cpu;
  for (const Spent& time : times) {
    wall.push_back(time.wall);
    cpu.push_back(time.cpu);
  }
  return {Quantile(std::move(wall), share), Quantile(std::move(cpu), share)};
}

bool IsQuick() { return std::getenv("TONALITH_BENCH_QUICK") != nullptr; }

int Runs(int full) { return IsQuick() ? std::min(full, 3) : full; }

int Scales() { return IsQuick() ? 3'000 : 100'000; }

std::string TimeText(double milliseconds) {
  return milliseconds < 0.1 ? NumberText(milliseconds * 1000) + " us" : NumberText(milliseconds) + " ms";
}

void Tell(const Line& line) {
  const std::string unit = line.unit.empty() ? "" : " " + line.unit;
  std::printf("row\t%s\t%s%s\t%s%s\t%s\t%s\t%s\n", line.what.c_str(), NumberText(line.measured).c_str(), unit.c_str(),
              NumberText(line.bound).c_str(), unit.c_str(), line.measured <= line.bound ? "met" : "missed",
              line.ours.c_str(), line.baseline.c_str());
  std::fflush(stdout);
}

void Compare(const Contender& ours, const Contender& baseline, int runs, double bound) {
  std::vector<Spent> ourTimes;
  std::vector<Spent> baselineTimes;
  std::vector<Spent> ratios;
  for (int i = 0; i < runs; ++i) {
    ours.prepare();
    const Spent our = Measure(ours.step);
    baseline.prepare();
    const Spent base = Measure(baseline.step);
    ourTimes.push_back(our);
    baselineTimes.push_back(base);
    ratios.push_back({our.wall / base.wall, our.cpu / base.cpu});
  }
  const Spent our = Quantile(ourTimes, 0.5);
  const Spent base = Quantile(baselineTimes, 0.5);
  const Spent ratio = Quantile(ratios, 0.5);
  Tell({ours.title, ratio.wall, bound, "", TimeText(our.wall) + "; by the processor " + NumberText(ratio.cpu),
        baseline.title + ": " + TimeText(base.wall)});
  std::printf("  %d pairs; by the processor %s against %s\n", runs, TimeText(our.cpu).c_str(),
              TimeText(base.cpu).c_str());
}

void ReportTimes(const std::string& what, const std::vector<Spent>& times, double share, double bound) {
  const Spent late = Quantile(times, share);
  Tell({what, late.wall, bound, "ms", "median " + TimeText(Quantile(times, 0.5).wall), ""});
  std::printf("  %zu times; by the processor %s, the longest %s\n", times.size(), TimeText(late.cpu).c_str(),
              TimeText(Quantile(times, 1).wall).c_str());
}

Folder::Folder() {
  static int made = 0;
  const std::string name = "tonalith-bench-" + std::to_string(getpid()) + "-" + std::to_string(++made);
  path_ = std::filesystem::temp_directory_path() / name;
  std::filesystem::create_directory(path_);
}

Folder::~Folder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void MakeLibrary(const std::filesystem::path& path, int scales, const std::string& prefix) {
  data::CreateScaleDatabase(path);
  SQLite::Database db(path.string(), SQLite::OPEN_READWRITE);
  SQLite::Transaction transaction(db);
  db.exec("INSERT INTO ScaleTypes VALUES (1, 1, 'Made for measuring')");
  SQLite::Statement insert(
      db,
      "INSERT INTO Scales(ScaleName, ScaleTypeID, ScaleDescription, StartNote, ScaleIntervals, Chord, Sort) "
      "VALUES (?, 1, 'A scale that is only there to be walked over.', 'C', '2212221', 0, ?)");
  for (int i = 0; i < scales; ++i) {
    insert.bind(1, prefix + std::to_string(Scattered(static_cast<std::uint32_t>(i))));
    insert.bind(2, i + 1);
    insert.exec();
    insert.reset();
  }
  transaction.commit();
}

}  // namespace tonalith::bench
