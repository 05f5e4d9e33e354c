// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The user who saves as fast as hands allow, to be killed in the middle of it: adds scales, changes and deletes them,
// installs a pack, all through the real widgets, and tells file 3, unbuffered, what is about to be written and what the
// program holds for saved. User-interface thread; ends the process when something goes otherwise than expected.

#pragma once

#include <QObject>
#include <string>

#include "stress/random_source.h"

namespace tonalith::stress {

/// What a scale of the worker's holds besides its name: one number decides all of it, so that half of a row is known.
struct WorkRow {
  std::string description;
  std::string start;
  std::string sort;
  static WorkRow Of(int number);
  bool operator==(const WorkRow&) const = default;
};

class KillWorker : public QObject {
 public:
  /// `round` is a word that no other round's names hold.
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
  void Tell(const std::string& line) const;

  RandomSource dice_;
  std::string round_;
  int number_ = 0;
  /// The name of the worker's scale in the editor; empty where another one may be.
  std::string current_;
  std::string waiting_;
  bool isInstalled_ = false;
};

}  // namespace tonalith::stress
