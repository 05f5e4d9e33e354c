// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One refresh of the main window with the shipped database, including painting: its time, its queries, and a comparison
// with painting alone.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "isolated_window/isolated_window.h"
#include "measuring.h"
#include "painting.h"

namespace {

using namespace tonalith;

/// The window with the database in the folder of this program.
struct BenchWindows : isolated_window::IsolatedWindow {
  BenchWindows() : IsolatedWindow(QCoreApplication::applicationDirPath().toStdString()) { bench::Settle(); }

  void Refresh() const {
    window->UpdateForm();
    bench::Settle();
  }
  /// Starts again before the end of the library, where no move is possible.
  void NextRecord() {
    constexpr int kFewerThanThereAre = 100;
    controls::DataControl& rows = *window->Controls().Data1;
    ++moves % kFewerThanThereAre == 0 ? rows.MoveFirst() : rows.MoveNext();
    bench::Settle();
  }
  void ChangeKey() {
    window->Controls().cmbTranspose->Choose(++key % 12);
    bench::Settle();
  }
  void Paint() const {
    window->update();
    window->centralWidget()->update();
    bench::Settle();
  }

  int key = 0;
  int moves = 0;
};

double MedianPaintings(const std::function<void()>& step) {
  std::vector<bench::Spent> counts;
  for (int i = 0; i < bench::Runs(31); ++i) {
    const bench::PaintCounter painted;
    step();
    counts.push_back({static_cast<double>(painted.Count()), 0});
  }
  return bench::Quantile(counts, 0.5).wall;
}

void ReportTimes(const std::string& what, const std::function<void()>& step) {
  constexpr double kBound = 4;
  const int runs = bench::Runs(401);
  std::vector<bench::Spent> times;
  times.reserve(static_cast<std::size_t>(runs));
  for (int i = 0; i < runs; ++i) times.push_back(bench::Measure(step));
  bench::ReportTimes(what, times, 0.5, kBound);
  std::printf("  %.0f widgets painted each time\n", MedianPaintings(step));
}

/// The time of the refresh alone, reported by the benchmark library in addition to the table.
void BM_RefreshAlone(benchmark::State& state) {
  const BenchWindows program;
  while (state.KeepRunning()) {
    program.window->UpdateForm();
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_RefreshAlone)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  BenchWindows program;
  ReportTimes("one refresh with its painting", [&] { program.Refresh(); });
  ReportTimes("the next record with its painting", [&] { program.NextRecord(); });
  ReportTimes("another key with its painting", [&] { program.ChangeKey(); });
  const auto before = data::Connection::StatementsIssued();
  program.Refresh();
  const auto asked = static_cast<double>(data::Connection::StatementsIssued() - before);
  bench::Tell({"questions to the database in one refresh", asked, 2, "", "", ""});
  bench::Compare({"one refresh with its painting, and the window's painting alone", [&] { program.Refresh(); }},
                 {"painting the window", [&] { program.Paint(); }}, bench::Runs(401), 1);
  benchmark::RunSpecifiedBenchmarks();
  return program.box.Messages().empty() ? 0 : 1;
}
