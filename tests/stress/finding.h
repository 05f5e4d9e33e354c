// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What is wrong: thrown by whoever sees it, caught where an action began. Its first words, up to the colon, say which
// rule is broken and are the same each time that rule is broken.

#pragma once

#include <stdexcept>
#include <string>

namespace tonalith::stress {

class Finding : public std::runtime_error {
 public:
  Finding(const std::string& rule, const std::string& details) : std::runtime_error(rule + ": " + details) {}
};

inline void Require(bool isKept, const std::string& rule, const std::string& details) {
  if (!isKept) throw Finding(rule, details);
}

}  // namespace tonalith::stress
