// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One user action as a line of text: kind, control and text, separated by tabs. The journal of a run is a file of such
// lines; each line is written before its action begins, so that it survives a crash. Throws std::runtime_error if the
// journal cannot be written.

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tonalith::stress {

struct Action {
  std::string kind;
  /// "window/control", or the window alone.
  std::string target;
  /// The text to type, the key or the button; UTF-8.
  std::string text;

  [[nodiscard]] std::string Line() const;
  /// Returns nullopt for a comment or an empty line.
  static std::optional<Action> FromLine(const std::string& line);
};

/// Reads the actions of a journal or of the file of a finding.
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
