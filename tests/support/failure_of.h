// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Returns the failure that a step throws.

#pragma once

#include <gtest/gtest.h>

#include "core/failure.h"

namespace tonalith::tests {

/// Runs `step` and returns the failure that it throws; fails the test if it throws none.
template <class Step>
core::Failure FailureOf(Step step) {
  try {
    step();
  } catch (const core::Failure& failure) {
    return failure;
  }
  ADD_FAILURE() << "no failure was thrown";
  return {0, {}};
}

}  // namespace tonalith::tests
