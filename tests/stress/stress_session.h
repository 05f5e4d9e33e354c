// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs inside the program: between two events, also in nested event loops, it reads the visible state, checks all rules
// and performs the next random or scripted action. If a rule is violated, it writes the finding and ends the process
// with kFound. One per process.

#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "stress/action.h"
#include "stress/expected_library.h"
#include "stress/random_source.h"
#include "stress/resources.h"
#include "stress/user.h"
#include "stress/visible_state.h"
#include "stress/work_folder.h"

namespace tonalith::stress {

namespace exit_code {
inline constexpr int kDone = 0;
inline constexpr int kFound = 3;
/// The user has closed the program before the last action.
inline constexpr int kClosed = 4;
}  // namespace exit_code

struct SessionOptions {
  WorkPaths paths;
  std::uint64_t seed = 0;
  /// The number of this run of the program, and of its first action.
  int run = 0;
  int firstAction = 0;
  int lastAction = 0;
  /// The time limit after which the user closes the program.
  int seconds = 0;
  /// Actions that replace the random ones; empty for random actions.
  std::vector<Action> script;
};

class StressSession : public QObject {
 public:
  explicit StressSession(SessionOptions options);

  void Begin();
  /// Checks the library after the end of the event loop. Returns the exit code of the process.
  int End();

 private:
  void Tick();
  void ReadAndCheck();
  void CheckLibrary(const VisibleState& now);
  void CheckNestedAction();
  void CheckAll(const VisibleState& now);
  std::optional<Action> NextAction();
  void Do(const Action& action);
  void WriteFinding(const std::string& finding) const;
  void MakeNewPack(const Action& action) const;

  SessionOptions options_;
  RandomSource random_;
  User user_;
  Journal journal_;
  ExpectedLibrary expectedLibrary_;
  ResourceWatch resources_;
  VisibleState before_;
  /// The actions that began or ended since the last check.
  std::vector<Action> recent_;
  int action_;
  /// The nesting depth of actions.
  int depth_ = 0;
  int idleEnds_ = 0;
  bool isEnding_ = false;
  bool isOver_ = false;
  QElapsedTimer clock_;
  qint64 longest_ = 0;
  std::string slowest_;
};

}  // namespace tonalith::stress
