// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One thing that a user does, as a line of text: what, on which control, with which text, separated by tabs. The
// journal of a run is a file of such lines; a line is on the disk before its action begins, so that a crash does not
// take it along. Plain values; one thread. A journal that cannot be written throws std::runtime_error.

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tonalith::stress {

struct Action {
  std::string verb;
  /// "window/control", or the window alone.
  std::string target;
  /// What is typed, pressed or answered; UTF-8.
  std::string text;

  [[nodiscard]] std::string Line() const;
  /// Nothing for a comment and an empty line.
  static std::optional<Action> FromLine(const std::string& line);
};

/// The actions of a journal or of a finding, in order.
std::vector<Action> ReadActions(const std::string& path);

class Journal {
 public:
  explicit Journal(const std::string& path);
  ~Journal();
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;

  void Write(const Action& action) const;

 private:
  int file_;
};

}  // namespace tonalith::stress
