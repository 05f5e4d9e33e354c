// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What the library has to hold after the reports of a worker that was killed: everything that was done, and what was
// under way in one of two states. One thread; what is broken is thrown as a Finding.

#pragma once

#include <map>
#include <optional>
#include <string>

#include "stress/kill_worker.h"
#include "stress/library.h"

namespace tonalith::stress {

/// The pack that the worker of a round finds.
struct WorkPack {
  std::string word;
  int scales = 0;
  int type = 0;
};

class KillLog {
 public:
  explicit KillLog(const Library& atFirst) : atFirst_(atFirst) {}

  void BeginRound(WorkPack pack);
  /// A line of the worker's; what it says is unexpected is a Finding.
  void Take(const std::string& report);
  /// Holds the library against the account, and takes over what the operation under way has come to.
  void Settle(const Library& library);

  [[nodiscard]] bool IsUnderWay() const { return underWay_.has_value(); }
  [[nodiscard]] bool IsInstalling() const { return underWay_ && underWay_->verb == "install"; }
  /// Operations that were reported as done, and those that a kill met: not there, and wholly there.
  long done = 0;
  long lost = 0;
  long kept = 0;

 private:
  struct Operation {
    std::string verb;
    std::string name;
    int number = 0;
  };
  using Rows = std::map<std::string, int>;

  void Apply(const Operation& operation);
  [[nodiscard]] Rows RowsOf(const Library& library) const;
  void SettlePacks(const Library& library);

  Library atFirst_;
  /// By name, the number that decides what is in the row.
  Rows rows_;
  std::map<std::string, WorkPack> packs_;
  WorkPack pack_;
  std::optional<Operation> underWay_;
};

}  // namespace tonalith::stress
