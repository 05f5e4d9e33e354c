// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The independent account of the library: knows what it has to hold after what a user did and saw, and holds the file
// against that. A write has to be what the editor showed, a deletion what was confirmed, an import what its pack adds;
// anything else that appears, changes or is gone is a Finding, and so is a change of the user's that is neither stored
// nor pending nor set aside. One thread.

#pragma once

#include <string>

#include "stress/action.h"
#include "stress/library.h"
#include "stress/visible_state.h"

namespace tonalith::stress {

class ExpectedLibrary {
 public:
  explicit ExpectedLibrary(const std::string& libraryPath);

  /// Looks at the file; `before` and `now` are what was seen before and after `actions`: more than one where an earlier
  /// one was only now over.
  void Settle(const VisibleState& before, const std::vector<Action>& actions, const VisibleState& now);
  /// Integrity and keys of the whole file.
  void CheckFile() const;

  [[nodiscard]] const Library& Content() const { return expected_; }
  [[nodiscard]] long Writes() const { return writes_; }
  [[nodiscard]] long Imports() const { return imports_; }

 private:
  void JudgeImport(const VisibleState& now, const Library& found);
  void JudgeEdit(const VisibleState& before, const std::vector<Action>& actions, const Library& found);
  void JudgeLoss(const VisibleState& before, const std::vector<Action>& actions, const VisibleState& now) const;
  void Take(const Library& found);

  LibraryFile file_;
  Library expected_;
  std::int64_t version_ = 0;
  std::int64_t latestNumber_ = 0;
  const void* judgedBox_ = nullptr;
  std::string judged_;
  long writes_ = 0;
  long imports_ = 0;
};

}  // namespace tonalith::stress
