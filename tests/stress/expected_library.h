// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// An independent model of the expected library content, updated from the visible state and the actions of the user, and
// compared with the file. A write must match what the editor showed, a deletion must have been confirmed, an import
// must match its pack. Throws a Finding for every other difference, and for an edit that is neither stored nor pending
// nor rejected.

#pragma once

#include <string>

#include "stress/action.h"
#include "stress/library.h"
#include "stress/visible_state.h"

namespace tonalith::stress {

class ExpectedLibrary {
 public:
  explicit ExpectedLibrary(const std::string& libraryPath);

  /// Compares the file with the model and accepts the permitted changes. `before` and `now` are the states around
  /// `actions`; there are several actions if they were nested.
  void Update(const VisibleState& before, const std::vector<Action>& actions, const VisibleState& now);
  /// Checks the integrity and the foreign keys of the file.
  void CheckFile() const;

  [[nodiscard]] const Library& Content() const { return expected_; }
  [[nodiscard]] long Writes() const { return writes_; }
  [[nodiscard]] long Imports() const { return imports_; }

 private:
  void CheckImport(const VisibleState& now, const Library& found);
  void CheckEdit(const VisibleState& before, const std::vector<Action>& actions, const Library& found);
  void CheckLostEdit(const VisibleState& before, const std::vector<Action>& actions, const VisibleState& now) const;
  void Accept(const Library& found);

  LibraryFile file_;
  Library expected_;
  std::int64_t version_ = 0;
  std::int64_t latestNumber_ = 0;
  const void* checkedBox_ = nullptr;
  std::string checkedMessage_;
  long writes_ = 0;
  long imports_ = 0;
};

}  // namespace tonalith::stress
