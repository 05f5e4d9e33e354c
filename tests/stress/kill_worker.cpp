// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/kill_worker.h"

#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <array>

#include "stress/user_input.h"
#include "stress/visible_state.h"

namespace tonalith::stress {
namespace {

constexpr int kReportFile = 3;

void Press(const char* control) { Perform({action_kind::kClick, control, {}}); }

void Fill(const char* control, const std::string& text) {
  Perform({action_kind::kErase, control, {}});
  Perform({action_kind::kType, control, text});
}

}  // namespace

WorkRow WorkRow::Of(int number) {
  constexpr std::array<const char*, 5> kStarts = {"C", "D", "E", "F#", "A"};
  return {"number " + std::to_string(number) + " " + std::string(static_cast<std::size_t>(number % 37) * 3, 'x'),
          kStarts.at(static_cast<std::size_t>(number) % kStarts.size()), std::to_string(1000 + number)};
}

KillWorker::KillWorker(std::uint64_t seed, std::string round) : random_(seed), round_(std::move(round)) {}

void KillWorker::Report(const std::string& line) const {
  const std::string whole = line + "\n";
  if (::write(kReportFile, whole.data(), whole.size()) != static_cast<ssize_t>(whole.size())) ::_exit(1);
}

void KillWorker::Begin() {
  auto* const boxes = new QTimer(this);
  connect(boxes, &QTimer::timeout, this, &KillWorker::AnswerBox);
  boxes->start(1);
  QTimer::singleShot(0, this, [this] {
    Report("ready");
    WorkOn();
  });
}

void KillWorker::AnswerBox() {
  const VisibleState state = ReadVisibleState();
  if (state.message.empty()) return;
  const bool isExpected = !expectedMessage_.empty() && state.message.starts_with(expectedMessage_);
  if (!isExpected) {
    Report("unexpected\t" + state.message);
    ::_exit(1);
  }
  expectedMessage_.clear();
  if (state.message == message_text::kDelete) {
    Report("delete\t" + currentName_);
    Perform({action_kind::kAnswer, {}, "Yes"});
  } else {
    // The message confirms the import.
    Report("done");
    Perform({action_kind::kAnswer, {}, "OK"});
  }
}

void KillWorker::OpenEditor() {
  if (ReadVisibleState().editor.isOpen) return;
  Press("frmTonalith/cmdEdit");
  Press("frmScales/cmdModify");
  currentName_.clear();
}

void KillWorker::Commit(const char* control) {
  Press(control);
  const VisibleState state = ReadVisibleState();
  if (state.editor.isPending || !state.message.empty()) {
    Report("unexpected\tthe change is still pending: " + state.message);
    ::_exit(1);
  }
  Report("done");
}

void KillWorker::Add() {
  Press("frmScales/cmdAdd");
  currentName_ = "Kill " + round_ + " " + std::to_string(++number_);
  const WorkRow row = WorkRow::Of(number_);
  Fill("frmScales/txtFields(1)", currentName_);
  Fill("frmScales/txtFields(2)", row.description);
  Fill("frmScales/txtFields(5)", row.start);
  Fill("frmScales/txtFields(7)", row.sort);
  Report("add\t" + currentName_ + "\t" + std::to_string(number_));
  Commit("frmScales/cmdUpdate");
}

void KillWorker::Change() {
  const WorkRow row = WorkRow::Of(++number_);
  Fill("frmScales/txtFields(2)", row.description);
  Fill("frmScales/txtFields(5)", row.start);
  Fill("frmScales/txtFields(7)", row.sort);
  Report("change\t" + currentName_ + "\t" + std::to_string(number_));
  const bool isMove = random_.OneIn(2);
  Commit(isMove ? "frmScales/Previous record" : "frmScales/cmdUpdate");
  if (isMove) currentName_.clear();
}

void KillWorker::Delete() {
  expectedMessage_ = message_text::kDelete;
  Press("frmScales/cmdDelete");
  Report("done");
  currentName_.clear();
}

void KillWorker::Install() {
  isInstalled_ = true;
  expectedMessage_ = "Imported data pack: ";
  Report("install");
  Press("frmTonalith/cmdInstall");
}

void KillWorker::WorkOn() {
  QTimer::singleShot(0, this, &KillWorker::WorkOn);
  // A message box runs the event loop.
  if (!expectedMessage_.empty() || QApplication::activeModalWidget() != nullptr || ReadVisibleState().isBusy) return;
  OpenEditor();
  const int roll = random_.Below(10);
  if (!isInstalled_ && roll < 3) return Install();
  if (currentName_.empty() || roll < 5) return Add();
  return roll < 8 ? Change() : Delete();
}

}  // namespace tonalith::stress
