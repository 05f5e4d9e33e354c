// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The user of a process that will be killed: adds, changes and deletes scales and installs a pack as fast as possible,
// through the real widgets. Reports to file descriptor 3, unbuffered, each operation before it begins and after the
// program has saved it. Ends the process if the program does something unexpected.

#pragma once

#include <QObject>
#include <string>

#include "stress/random_source.h"

namespace tonalith::stress {

/// The fields of a scale of the worker. One number determines all of them, so that a partial write is detected.
struct WorkRow {
  std::string description;
  std::string start;
  std::string sort;
  static WorkRow Of(int number);
  bool operator==(const WorkRow&) const = default;
};

class KillWorker : public QObject {
 public:
  /// `round` is unique: it becomes part of the names.
  KillWorker(std::uint64_t seed, std::string round);

  void Begin();

 private:
  void WorkOn();
  void AnswerBox();
  void OpenEditor();
  void Add();
  void Change();
  void Delete();
  void Install();
  void Commit(const char* control);
  void Report(const std::string& line) const;

  RandomSource random_;
  std::string round_;
  int number_ = 0;
  /// The name of the worker's scale in the editor; empty if the editor may show another scale.
  std::string currentName_;
  std::string expectedMessage_;
  bool isInstalled_ = false;
};

}  // namespace tonalith::stress
