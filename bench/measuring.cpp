// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "measuring.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
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

// Every number below the largest once, without an order that an index would like.
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

void PrintHeading(const char* title) {
  std::printf("%-42s %21s %21s %15s\n", title, "ours", "baseline", "ratio");
  std::printf("%-42s %10s %10s %10s %10s %7s %7s\n", "medians in milliseconds", "wall", "processor", "wall",
              "processor", "wall", "proc.");
}

Spent Compare(const Contender& ours, const Contender& baseline, int runs, double bound) {
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
  std::printf("%-42s %10.1f %10.1f %10.1f %10.1f %7.2f %7.2f   bound %.2f\n", ours.title.c_str(), our.wall, our.cpu,
              base.wall, base.cpu, ratio.wall, ratio.cpu, bound);
  std::printf("  against %s, %d times in turn\n", baseline.title.c_str(), runs);
  return our;
}

Folder::Folder() : path_(std::filesystem::temp_directory_path() / ("tonalith-bench-" + std::to_string(getpid()))) {
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
