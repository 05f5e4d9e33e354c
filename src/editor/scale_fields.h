// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The fields of a scale that the editor shows, by index. The index is part of the names of the controls.

#pragma once

namespace tonalith::editor {

inline constexpr int kFieldCount = 8;
namespace field {
inline constexpr int kScaleId = 0;
inline constexpr int kName = 1;
inline constexpr int kDescription = 2;
inline constexpr int kScaleTypeId = 3;
inline constexpr int kIntervals = 4;
inline constexpr int kStartNote = 5;
/// A check box; there is no text box of this index.
inline constexpr int kChord = 6;
inline constexpr int kSort = 7;
}  // namespace field

}  // namespace tonalith::editor
