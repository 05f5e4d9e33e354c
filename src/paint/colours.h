// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The colours of Tonalith that do not follow the palette of the system: neck, staff card, accent. Values are &HBBGGRR
// where a fixed name requires it (docs/behaviour.md), QColor or QRgb for painting.

#pragma once

#include <QColor>
#include <cstdint>

namespace tonalith::paint {

/// A colour with blue in the high byte: 0xFF0000 is pure blue.
struct Bgr {
  std::uint32_t value = 0;
  friend constexpr bool operator==(const Bgr&, const Bgr&) = default;
};

constexpr QRgb ToRgb(Bgr colour) {
  return 0xFF000000U | ((colour.value & 0xFFU) << 16U) | (colour.value & 0xFF00U) | ((colour.value >> 16U) & 0xFFU);
}

inline constexpr Bgr kWhite{0xFFFFFF};
inline constexpr Bgr kBlack{0x000000};

/// The only accent: the key note and the main action. White on it has a contrast of 4.5 to 1.
inline constexpr QRgb kAccent = 0xFFD0440E;
inline constexpr QRgb kAccentRim = 0xFFFFF3E6;
/// Every other scale note.
inline constexpr QRgb kNote = 0xFF2F5D62;
inline constexpr QRgb kNoteRim = 0xFFDFEEEE;
/// The play marker.
inline constexpr QRgb kAmber = 0xFFE8A317;
inline constexpr QRgb kAmberRim = 0xFF6B4700;
/// The colour of music on the staff, and its background.
inline constexpr Bgr kInk{0x171B1F};
inline constexpr QRgb kStaffPaper = 0xFFFFFDF9;
inline constexpr QRgb kStaffPaperRim = 0xFFE4DDD1;

/// The colour at `share` (0 to 1) of the way from `a` to `b`.
QColor Mix(const QColor& a, const QColor& b, float share);

/// The contrast ratio of two colours after WCAG 2.1 (relative luminance), 1 to 21.
double ContrastRatio(const QColor& a, const QColor& b);

}  // namespace tonalith::paint
