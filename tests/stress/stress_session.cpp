// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/stress_session.h"

#include <unistd.h>

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <fstream>

#include "app/frm_tonalith.h"
#include "stress/available_controls.h"
#include "stress/editor_rules.h"
#include "stress/finding.h"
#include "stress/main_window_rules.h"
#include "stress/message_rules.h"
#include "stress/user_input.h"

namespace tonalith::stress {
namespace {

constexpr int kActionsBetweenFileChecks = 200;
/// Steps towards the end of the program before it counts as not to be closed.
constexpr int kMostStepsToEnd = 400;
constexpr int kLastPack = 2;

}  // namespace

StressSession::StressSession(LifeOrder order)
    : order_(std::move(order)),
      dice_(order_.seed, static_cast<std::uint64_t>(order_.life)),
      user_(dice_),
      journal_(order_.places.JournalFile().string()),
      ledger_(order_.places.Library().string()),
      action_(order_.firstAction) {}

void StressSession::Begin() {
  before_ = Look();
  clock_.start();
  QTimer::singleShot(0, this, &StressSession::Tick);
}

void StressSession::TellFinding(const std::string& words) const {
  std::ofstream(order_.places.FindingFile()) << "action " << action_ << "\n" << words << "\n";
}

std::optional<Action> StressSession::NextAction() {
  const bool isScripted = !order_.script.empty();
  const int last = isScripted ? static_cast<int>(order_.script.size()) : order_.lastAction;
  isEnding_ = isEnding_ || action_ >= last || clock_.hasExpired(qint64{order_.seconds} * 1000);
  if (isEnding_) {
    Require(++idleEnds_ < kMostStepsToEnd, "the program cannot be closed", std::to_string(action_));
    return user_.NextTowardsEnd();
  }
  return isScripted ? order_.script[static_cast<std::size_t>(action_)] : user_.Next();
}

void StressSession::CheckAll(const VisibleState& now) {
  CheckMessage(now.message);
  if (!now.message.empty()) return;
  CheckEditor(now.editor, ledger_.Content());
  const app::frmTonalith* const form = MainWindow();
  if (form != nullptr) CheckMainWindow(*form, ledger_.Content());
  QWidget* const modal = QApplication::activeModalWidget();
  Require(modal == nullptr || modal->isVisible(), "a window that is not seen is modal", "");
  const bool isAlone = modal == nullptr && !now.editor.isThere && depth_ == 0 &&
                       QApplication::activePopupWidget() == nullptr && ReachableWindows().size() == 1;
  if (!isAlone) return;
  Require(QGuiApplication::overrideCursor() == nullptr, "the pointer still shows that the program is busy", "");
  resources_.Look(action_);
}

void StressSession::Judge(const VisibleState& now) {
  ledger_.Settle(before_, std::exchange(recent_, {}), now);
  before_ = now;
}

void StressSession::LookAndJudge() {
  const VisibleState now = Look();
  Judge(now);
  CheckAll(now);
  if (action_ % kActionsBetweenFileChecks == 0) ledger_.CheckFile();
}

void StressSession::Tick() {
  if (isOver_) return;
  if (Look().isBusy) {
    QTimer::singleShot(1, this, &StressSession::Tick);
    return;
  }
  std::optional<Action> action;
  try {
    LookAndJudge();
    action = NextAction();
  } catch (const std::exception& finding) {
    TellFinding(finding.what());
    ::_exit(exit_code::kFound);
  }
  if (!isEnding_) journal_.Write(*action);
  recent_.push_back(*action);
  ++action_;
  const int wait = action->verb == verb::kWait ? std::stoi(action->text) : 0;
  QTimer::singleShot(wait, this, &StressSession::Tick);
  Do(*action);
}

void StressSession::MakeNewPack(const Action& action) const {
  const std::string number = std::to_string(action_ % kLastPack);
  const std::string word = "Pack " + std::to_string(action_);
  MakePack(order_.places.Packs() / ("DataPack_New" + number + ".mdb"), word, std::stoi(action.text),
           500 + action_ % 40);
}

// What an action comes to is to be known before the command goes on in the midst of which it was done.
void StressSession::JudgeWithin() {
  const VisibleState now = Look();
  if (depth_ == 0 || now.isBusy || isOver_) return;
  try {
    Judge(now);
  } catch (const std::exception& finding) {
    TellFinding(finding.what());
    ::_exit(exit_code::kFound);
  }
}

void StressSession::Do(const Action& action) {
  // Nested actions are behind this one: only the time until the next look counts.
  const qint64 begin = clock_.elapsed();
  const int number = action_;
  ++depth_;
  if (action.verb == verb::kPack) {
    MakeNewPack(action);
  } else if (action.verb != verb::kWait) {
    Perform(action);
  }
  --depth_;
  if (recent_.empty()) recent_.push_back(action);
  JudgeWithin();
  const qint64 spent = clock_.elapsed() - begin;
  if (number == action_ && spent > longest_) {
    longest_ = spent;
    slowest_ = action.Line();
  }
}

int StressSession::End() {
  isOver_ = true;
  try {
    ledger_.Settle(before_, recent_, {});
    ledger_.CheckFile();
  } catch (const std::exception& finding) {
    TellFinding(finding.what());
    return exit_code::kFound;
  }
  std::ofstream summary(order_.places.SummaryFile(), std::ios::app);
  summary << "writes " << ledger_.Writes() << ", imports " << ledger_.Imports() << ", longest action " << longest_
          << " ms (" << slowest_ << "), " << resources_.Report() << "\n";
  return isEnding_ ? exit_code::kDone : exit_code::kClosed;
}

}  // namespace tonalith::stress
