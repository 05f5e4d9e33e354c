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

constexpr int kReports = 3;

void Press(const char* control) { Perform({verb::kClick, control, {}}); }

void Fill(const char* control, const std::string& text) {
  Perform({verb::kErase, control, {}});
  Perform({verb::kType, control, text});
}

}  // namespace

WorkRow WorkRow::Of(int number) {
  constexpr std::array<const char*, 5> kStarts = {"C", "D", "E", "F#", "A"};
  return {"number " + std::to_string(number) + " " + std::string(static_cast<std::size_t>(number % 37) * 3, 'x'),
          kStarts.at(static_cast<std::size_t>(number) % kStarts.size()), std::to_string(1000 + number)};
}

KillWorker::KillWorker(std::uint64_t seed, std::string round) : dice_(seed), round_(std::move(round)) {}

void KillWorker::Tell(const std::string& line) const {
  const std::string whole = line + "\n";
  if (::write(kReports, whole.data(), whole.size()) != static_cast<ssize_t>(whole.size())) ::_exit(1);
}

void KillWorker::Begin() {
  auto* const boxes = new QTimer(this);
  connect(boxes, &QTimer::timeout, this, &KillWorker::AnswerBox);
  boxes->start(1);
  QTimer::singleShot(0, this, [this] {
    Tell("ready");
    WorkOn();
  });
}

void KillWorker::AnswerBox() {
  const VisibleState sight = Look();
  if (sight.message.empty()) return;
  const bool isExpected = !waiting_.empty() && sight.message.starts_with(waiting_);
  if (!isExpected) {
    Tell("unexpected\t" + sight.message);
    ::_exit(1);
  }
  waiting_.clear();
  if (sight.message == question::kDelete) {
    Tell("delete\t" + current_);
    Perform({verb::kAnswer, {}, "Yes"});
  } else {
    // The box says that the pack is in.
    Tell("done");
    Perform({verb::kAnswer, {}, "OK"});
  }
}

void KillWorker::OpenEditor() {
  if (Look().editor.isThere) return;
  Press("frmTonalith/cmdEdit");
  Press("frmScales/cmdModify");
  current_.clear();
}

void KillWorker::Commit(const char* control) {
  Press(control);
  const VisibleState sight = Look();
  if (sight.editor.isPending || !sight.message.empty()) {
    Tell("unexpected\tthe change is still pending: " + sight.message);
    ::_exit(1);
  }
  Tell("done");
}

void KillWorker::Add() {
  Press("frmScales/cmdAdd");
  current_ = "Kill " + round_ + " " + std::to_string(++number_);
  const WorkRow row = WorkRow::Of(number_);
  Fill("frmScales/txtFields(1)", current_);
  Fill("frmScales/txtFields(2)", row.description);
  Fill("frmScales/txtFields(5)", row.start);
  Fill("frmScales/txtFields(7)", row.sort);
  Tell("add\t" + current_ + "\t" + std::to_string(number_));
  Commit("frmScales/cmdUpdate");
}

void KillWorker::Change() {
  const WorkRow row = WorkRow::Of(++number_);
  Fill("frmScales/txtFields(2)", row.description);
  Fill("frmScales/txtFields(5)", row.start);
  Fill("frmScales/txtFields(7)", row.sort);
  Tell("change\t" + current_ + "\t" + std::to_string(number_));
  const bool isMove = dice_.OneIn(2);
  Commit(isMove ? "frmScales/Previous record" : "frmScales/cmdUpdate");
  if (isMove) current_.clear();
}

void KillWorker::Delete() {
  waiting_ = question::kDelete;
  Press("frmScales/cmdDelete");
  Tell("done");
  current_.clear();
}

void KillWorker::Install() {
  isInstalled_ = true;
  waiting_ = "Imported data pack: ";
  Tell("install");
  Press("frmTonalith/cmdInstall");
}

void KillWorker::WorkOn() {
  QTimer::singleShot(0, this, &KillWorker::WorkOn);
  // A question or a report lets events through.
  if (!waiting_.empty() || QApplication::activeModalWidget() != nullptr || Look().isBusy) return;
  OpenEditor();
  const int throwOf = dice_.Below(10);
  if (!isInstalled_ && throwOf < 3) return Install();
  if (current_.empty() || throwOf < 5) return Add();
  return throwOf < 8 ? Change() : Delete();
}

}  // namespace tonalith::stress
