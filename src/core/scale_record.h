// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A scale record as the stored query ScalesQuery gives it: the places of the fields that are read by number instead of
// by name, counted from 0. Constants only.

#pragma once

namespace tonalith::core::scale_field {

inline constexpr int kName = 1;
inline constexpr int kIntervals = 5;
inline constexpr int kTypeName = 9;

}  // namespace tonalith::core::scale_field
