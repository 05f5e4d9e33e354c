// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One refresh of the main window, paint included, on the database that ships, and what it asks the database.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <filesystem>

#include "unplugged/unplugged_window.h"

namespace {

using namespace tonalith;

/// The window on the database beside this program.
struct Desk : unplugged::UnpluggedWindow {
  Desk() : UnpluggedWindow(QCoreApplication::applicationDirPath().toStdString()) {}
};

void Paint(app::frmTonalith& window) {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
  benchmark::DoNotOptimize(window.isVisible());
}

void BM_Refresh(benchmark::State& state) {
  Desk desk;
  Paint(*desk.window);
  for (auto _ : state) {
    desk.window->UpdateForm();
    Paint(*desk.window);
  }
  const auto before = data::Connection::StatementsIssued();
  desk.window->UpdateForm();
  state.counters["statements"] = static_cast<double>(data::Connection::StatementsIssued() - before);
  state.counters["messages"] = static_cast<double>(desk.box.Messages().size());
}
BENCHMARK(BM_Refresh)->Unit(benchmark::kMillisecond);

void BM_NextRecord(benchmark::State& state) {
  Desk desk;
  Paint(*desk.window);
  for (auto _ : state) {
    desk.window->Controls().Data1->MoveNext();
    Paint(*desk.window);
  }
}
BENCHMARK(BM_NextRecord)->Unit(benchmark::kMillisecond);

void BM_ChangeOfKey(benchmark::State& state) {
  Desk desk;
  Paint(*desk.window);
  int key = 0;
  for (auto _ : state) {
    desk.window->Controls().cmbTranspose->Choose(++key % 12);
    Paint(*desk.window);
  }
}
BENCHMARK(BM_ChangeOfKey)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
