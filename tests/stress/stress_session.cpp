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
/// The number of steps after which a program that is still open is a finding.
constexpr int kMostStepsToEnd = 400;
constexpr int kLastPack = 2;

}  // namespace

StressSession::StressSession(SessionOptions options)
    : options_(std::move(options)),
      random_(options_.seed, static_cast<std::uint64_t>(options_.run)),
      user_(random_),
      journal_(options_.paths.JournalFile().string()),
      expectedLibrary_(options_.paths.Library().string()),
      action_(options_.firstAction) {}

void StressSession::Begin() {
  before_ = ReadVisibleState();
  clock_.start();
  QTimer::singleShot(0, this, &StressSession::Tick);
}

void StressSession::WriteFinding(const std::string& finding) const {
  std::ofstream(options_.paths.FindingFile()) << "action " << action_ << "\n" << finding << "\n";
}

std::optional<Action> StressSession::NextAction() {
  const bool isScripted = !options_.script.empty();
  const int last = isScripted ? static_cast<int>(options_.script.size()) : options_.lastAction;
  isEnding_ = isEnding_ || action_ >= last || clock_.hasExpired(qint64{options_.seconds} * 1000);
  if (isEnding_) {
    Require(++idleEnds_ < kMostStepsToEnd, "the program cannot be closed", std::to_string(action_));
    return user_.NextClosingStep();
  }
  return isScripted ? options_.script[static_cast<std::size_t>(action_)] : user_.Next();
}

void StressSession::CheckAll(const VisibleState& now) {
  CheckMessage(now.message);
  if (!now.message.empty()) return;
  CheckEditor(now.editor, expectedLibrary_.Content());
  const app::frmTonalith* const form = MainWindow();
  if (form != nullptr) CheckMainWindow(*form, expectedLibrary_.Content());
  QWidget* const modal = QApplication::activeModalWidget();
  Require(modal == nullptr || modal->isVisible(), "a window that is not seen is modal", "");
  const bool isAlone = modal == nullptr && !now.editor.isOpen && depth_ == 0 &&
                       QApplication::activePopupWidget() == nullptr && ReachableWindows().size() == 1;
  if (!isAlone) return;
  Require(QGuiApplication::overrideCursor() == nullptr, "the pointer still shows that the program is busy", "");
  resources_.Check(action_);
}

void StressSession::CheckLibrary(const VisibleState& now) {
  expectedLibrary_.Update(before_, std::exchange(recent_, {}), now);
  before_ = now;
}

void StressSession::ReadAndCheck() {
  const VisibleState now = ReadVisibleState();
  CheckLibrary(now);
  CheckAll(now);
  if (action_ % kActionsBetweenFileChecks == 0) expectedLibrary_.CheckFile();
}

void StressSession::Tick() {
  if (isOver_) return;
  if (ReadVisibleState().isBusy) {
    QTimer::singleShot(1, this, &StressSession::Tick);
    return;
  }
  std::optional<Action> action;
  try {
    ReadAndCheck();
    action = NextAction();
  } catch (const std::exception& finding) {
    WriteFinding(finding.what());
    ::_exit(exit_code::kFound);
  }
  if (!isEnding_) journal_.Write(*action);
  recent_.push_back(*action);
  ++action_;
  const int wait = action->kind == action_kind::kWait ? std::stoi(action->text) : 0;
  QTimer::singleShot(wait, this, &StressSession::Tick);
  Do(*action);
}

void StressSession::MakeNewPack(const Action& action) const {
  const std::string number = std::to_string(action_ % kLastPack);
  const std::string word = "Pack " + std::to_string(action_);
  MakePack(options_.paths.Packs() / ("DataPack_New" + number + ".mdb"), word, std::stoi(action.text),
           500 + action_ % 40);
}

// Accepts the result of a nested action before the interrupted command continues.
void StressSession::CheckNestedAction() {
  const VisibleState now = ReadVisibleState();
  if (depth_ == 0 || now.isBusy || isOver_) return;
  try {
    CheckLibrary(now);
  } catch (const std::exception& finding) {
    WriteFinding(finding.what());
    ::_exit(exit_code::kFound);
  }
}

void StressSession::Do(const Action& action) {
  // Actions may be nested: only an action without nested ones is timed.
  const qint64 begin = clock_.elapsed();
  const int number = action_;
  ++depth_;
  if (action.kind == action_kind::kPack) {
    MakeNewPack(action);
  } else if (action.kind != action_kind::kWait) {
    Perform(action);
  }
  --depth_;
  if (recent_.empty()) recent_.push_back(action);
  CheckNestedAction();
  const qint64 spent = clock_.elapsed() - begin;
  if (number == action_ && spent > longest_) {
    longest_ = spent;
    slowest_ = action.Line();
  }
}

int StressSession::End() {
  isOver_ = true;
  try {
    expectedLibrary_.Update(before_, recent_, {});
    expectedLibrary_.CheckFile();
  } catch (const std::exception& finding) {
    WriteFinding(finding.what());
    return exit_code::kFound;
  }
  std::ofstream summary(options_.paths.SummaryFile(), std::ios::app);
  summary << "writes " << expectedLibrary_.Writes() << ", imports " << expectedLibrary_.Imports() << ", longest action "
          << longest_ << " ms (" << slowest_ << "), " << resources_.Report() << "\n";
  return isEnding_ ? exit_code::kDone : exit_code::kClosed;
}

}  // namespace tonalith::stress
