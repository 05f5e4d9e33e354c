// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Lives inside the running program: between any two events of its loop, also those of nested dialogs, it looks at what
// there is, holds it against the rules, and does the next thing, from the dice or from a script. Ends the process with
// exit code kFound when a rule is broken, after it has written the finding. User-interface thread; one for a process.

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

struct LifeOrder {
  Places places;
  std::uint64_t seed = 0;
  /// The number of the life, and of the first action in it.
  int life = 0;
  int firstAction = 0;
  int lastAction = 0;
  /// The user closes the program then, however many actions are left.
  int seconds = 0;
  /// What to do instead of throwing dice; its lines from the first action on.
  std::vector<Action> script;
};

class StressSession : public QObject {
 public:
  explicit StressSession(LifeOrder order);

  void Begin();
  /// Once the program has returned: what it left. Gives the exit code of the process.
  int End();

 private:
  void Tick();
  void LookAndJudge();
  void Judge(const VisibleState& now);
  void JudgeWithin();
  void CheckAll(const VisibleState& now);
  std::optional<Action> NextAction();
  void Do(const Action& action);
  void TellFinding(const std::string& words) const;
  void MakeNewPack(const Action& action) const;

  LifeOrder order_;
  RandomSource dice_;
  User user_;
  Journal journal_;
  ExpectedLibrary ledger_;
  ResourceWatch resources_;
  VisibleState before_;
  /// Those that began or ended since the last look.
  std::vector<Action> recent_;
  int action_;
  /// How many actions have begun and not ended.
  int depth_ = 0;
  int idleEnds_ = 0;
  bool isEnding_ = false;
  bool isOver_ = false;
  QElapsedTimer clock_;
  qint64 longest_ = 0;
  std::string slowest_;
};

}  // namespace tonalith::stress
