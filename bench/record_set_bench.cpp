// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Opening and moving in 100,000 scales compared with 300, and the resident memory of 100,000 scales.

#include <malloc.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "data/connection.h"
#include "data/record_set.h"
#include "measuring.h"

namespace {

using namespace tonalith;
namespace fs = std::filesystem;

constexpr int kSmall = 300;
constexpr double kBound = 1.5;

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
  void Next(int times) {
    for (int i = 0; i < times; ++i) {
      set.MoveNext();
      if (set.IsEof()) set.MoveFirst();
    }
  }
  void FirstThenLast() {
    set.MoveFirst();
    set.MoveLast();
  }
  /// Moves to a row that is not cached.
  void Elsewhere(int scales) { set.SetBookmark({1 + (key += 61'603) % scales}); }

  std::shared_ptr<data::Connection> connection;
  data::RecordSet set;
  std::int64_t key = 0;
};

void CompareMoves(const fs::path& largeFile, const fs::path& smallFile) {
  const int runs = bench::Runs(301);
  const std::string small = "with 300 scales";
  bench::Compare({"opening 100,000 scales and reading the first", [&] { const Rows rows(largeFile); }},
                 {small, [&] { const Rows rows(smallFile); }}, runs, kBound);
  Rows many(largeFile);
  Rows few(smallFile);
  bench::Compare({"next in 100,000 scales, 250 times", [&] { many.Next(250); }}, {small, [&] { few.Next(250); }}, runs,
                 kBound);
  bench::Compare({"first, then last of 100,000 scales", [&] { many.FirstThenLast(); }},
                 {small, [&] { few.FirstThenLast(); }}, runs, kBound);
  bench::Compare({"a bookmark elsewhere in 100,000 scales", [&] { many.Elsewhere(bench::Scales()); }},
                 {small, [&] { few.Elsewhere(kSmall); }}, runs, kBound);
}

void ReportMemory(const fs::path& largeFile) {
  // Free memory of the heap would hide new use.
  malloc_trim(0);
  const long before = ResidentKibibytes();
  Rows rows(largeFile);
  rows.set.MoveLast();
  rows.set.MoveFirst();
  while (!rows.set.IsEof()) rows.set.MoveNext();
  const double bytes = static_cast<double>(ResidentKibibytes() - before) * 1024 / bench::Scales();
  // The fixed costs of a small library do not show the cost per scale.
  const double bound = bench::IsQuick() ? bytes : 24;
  bench::Tell({"resident memory for each of 100,000 scales walked over", bytes, bound, "bytes", "", ""});
}

}  // namespace

int main() {
  const bench::Folder folder;
  const fs::path largeFile = folder.Path() / "large.mdb";
  const fs::path smallFile = folder.Path() / "small.mdb";
  bench::MakeLibrary(largeFile, bench::Scales(), "Scale number ");
  bench::MakeLibrary(smallFile, kSmall, "Scale number ");
  ReportMemory(largeFile);
  CompareMoves(largeFile, smallFile);
  return 0;
}
