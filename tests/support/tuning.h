// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The instrument of assembled windows in tests, benchmarks and tools: the one that the program starts with.

#pragma once

#include "core/neck.h"

namespace tonalith::tests {

inline core::Neck StandardNeck() { return core::Neck::Standard(); }

}  // namespace tonalith::tests
