// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Opening and moving on 100,000 scales against the same on 300: medians of many repetitions taken in turn, and the
// resident memory that 100,000 scales cost.

#include <SQLiteCpp/SQLiteCpp.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "data/connection.h"
#include "data/record_set.h"
#include "data/schema.h"

namespace {

using namespace tonalith;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int kSmall = 300;
constexpr int kLarge = 100'000;
constexpr int kRepetitions = 301;

fs::path MakeDatabase(const fs::path& folder, int scales) {
  const fs::path path = folder / (std::to_string(scales) + ".mdb");
  data::CreateScaleDatabase(path);
  SQLite::Database db(path.string(), SQLite::OPEN_READWRITE);
  SQLite::Transaction transaction(db);
  db.exec("INSERT INTO ScaleTypes VALUES (1, 1, 'Made for measuring')");
  SQLite::Statement insert(db,
                           "INSERT INTO Scales(ScaleName, ScaleTypeID, ScaleDescription, ScaleIntervals) "
                           "VALUES (?, 1, 'A scale that is only there to be walked over.', '2212221')");
  for (int i = 0; i < scales; ++i) {
    insert.bind(1, "Scale " + std::to_string(i));
    insert.exec();
    insert.reset();
  }
  transaction.commit();
  return path;
}

long ResidentKibibytes() {
  std::ifstream statm("/proc/self/statm");
  long total = 0;
  long resident = 0;
  statm >> total >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

struct Rows {
  explicit Rows(const fs::path& path) : connection(std::make_shared<data::Connection>()) {
    connection->Open("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path.string());
    set.Open("SELECT * FROM ScalesQuery", connection, data::CursorType::kKeyset, data::LockType::kOptimistic);
  }
  std::shared_ptr<data::Connection> connection;
  data::RecordSet set;
};

double Microseconds(const std::function<void()>& step) {
  const auto start = Clock::now();
  step();
  return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

double Median(std::vector<double>& values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
  return values[values.size() / 2];
}

void Compare(const char* title, const std::function<void()>& onLarge, const std::function<void()>& onSmall) {
  std::vector<double> large;
  std::vector<double> small;
  for (int i = 0; i < kRepetitions; ++i) {
    large.push_back(Microseconds(onLarge));
    small.push_back(Microseconds(onSmall));
  }
  const double ours = Median(large);
  const double baseline = Median(small);
  std::printf("%-34s %10.1f %10.1f %8.2f   bound 1.50\n", title, ours, baseline, ours / baseline);
}

void Next(data::RecordSet& set) {
  set.MoveNext();
  if (set.IsEof()) set.MoveFirst();
}

}  // namespace

int main() {
  const fs::path folder = fs::temp_directory_path() / ("tonalith-bench-" + std::to_string(getpid()));
  fs::create_directory(folder);
  const fs::path largeFile = MakeDatabase(folder, kLarge);
  const fs::path smallFile = MakeDatabase(folder, kSmall);
  std::printf("%-34s %10s %10s %8s\n", "medians in microseconds", "100,000", "300", "ratio");
  Compare(
      "open and read the first row", [&] { const Rows rows(largeFile); }, [&] { const Rows rows(smallFile); });
  {
    Rows large(largeFile);
    Rows small(smallFile);
    Compare(
        "next, 50 times",
        [&] {
          for (int i = 0; i < 50; ++i) Next(large.set);
        },
        [&] {
          for (int i = 0; i < 50; ++i) Next(small.set);
        });
    Compare(
        "first, then last",
        [&] {
          large.set.MoveFirst();
          large.set.MoveLast();
        },
        [&] {
          small.set.MoveFirst();
          small.set.MoveLast();
        });
    std::int64_t largeKey = 0;
    std::int64_t smallKey = 0;
    Compare(
        "bookmark somewhere else", [&] { large.set.SetBookmark({1 + (largeKey += 61'603) % kLarge}); },
        [&] { small.set.SetBookmark({1 + (smallKey += 181) % kSmall}); });
  }
  const long before = ResidentKibibytes();
  {
    Rows large(largeFile);
    large.set.MoveLast();
    large.set.MoveFirst();
    while (!large.set.IsEof()) large.set.MoveNext();
    const double bytes = static_cast<double>(ResidentKibibytes() - before) * 1024 / kLarge;
    std::printf("%-34s %10.2f %10s %8s   bound 24\n", "resident bytes a scale, all walked", bytes, "", "");
  }
  fs::remove_all(folder);
  return 0;
}
