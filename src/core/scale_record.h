// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Field indexes, from 0, of a scale record from the stored query ScalesQuery.

#pragma once

namespace tonalith::core::scale_field {

inline constexpr int kName = 1;
inline constexpr int kIntervals = 5;
inline constexpr int kTypeName = 9;

}  // namespace tonalith::core::scale_field
