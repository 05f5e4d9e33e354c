// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Computes the expected library content from the reports of a killed worker: all reported operations are stored, and
// the pending one is stored completely or not at all. Throws a Finding if the library differs.

#pragma once

#include <map>
#include <optional>
#include <string>

#include "stress/kill_worker.h"
#include "stress/library.h"

namespace tonalith::stress {

/// The pack that is available to the worker of a round.
struct WorkPack {
  std::string namePrefix;
  int scales = 0;
  int type = 0;
};

class KillLog {
 public:
  explicit KillLog(const Library& initial) : initial_(initial) {}

  void BeginRound(WorkPack pack);
  /// Adds a line of the worker. Throws a Finding if the worker reports an unexpected message.
  void AddReport(const std::string& report);
  /// Compares the library with the expected content; accepts either result of the pending operation.
  void CheckLibrary(const Library& library);

  [[nodiscard]] bool IsPending() const { return pending_.has_value(); }
  [[nodiscard]] bool IsInstalling() const { return pending_ && pending_->kind == "install"; }
  /// The operations that were reported as done, and those that a kill interrupted: rolled back, and stored completely.
  long done = 0;
  long rolledBack = 0;
  long completed = 0;

 private:
  struct Operation {
    std::string kind;
    std::string name;
    int number = 0;
  };
  using Rows = std::map<std::string, int>;

  void Apply(const Operation& operation);
  [[nodiscard]] Rows RowsOf(const Library& library) const;
  void CheckPacks(const Library& library);

  Library initial_;
  /// The number that determines the fields of a row, by name.
  Rows rows_;
  std::map<std::string, WorkPack> packs_;
  WorkPack pack_;
  std::optional<Operation> pending_;
};

}  // namespace tonalith::stress
