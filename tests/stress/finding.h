// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A violated rule. The message up to the colon identifies the rule and is the same for each violation of it.

#pragma once

#include <stdexcept>
#include <string>

namespace tonalith::stress {

class Finding : public std::runtime_error {
 public:
  Finding(const std::string& rule, const std::string& details) : std::runtime_error(rule + ": " + details) {}
};

inline void Require(bool condition, const std::string& rule, const std::string& details) {
  if (!condition) throw Finding(rule, details);
}

}  // namespace tonalith::stress
