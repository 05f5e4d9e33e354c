// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Fonts as a drawing surface knows them: a family name, a size with its unit, and bold. Says which families the system
// has and how a text is measured, so that the same numbers come out on the screen, on paper and in a recording. A
// family that is missing is drawn with the application's own font in the text cell of the family that was asked for, so
// positions that were worked out for that cell still fit. User-interface thread only; nothing here fails.

#pragma once

#include <QFont>
#include <string>
#include <string_view>

namespace tonalith::paint {

class DrawingSurface;

struct FontSize {
  enum class Unit { kPoints, kPixels };
  double value = 8;
  Unit unit = Unit::kPoints;
  friend bool operator==(const FontSize&, const FontSize&) = default;
};
constexpr FontSize Points(double value) { return {value, FontSize::Unit::kPoints}; }
constexpr FontSize Pixels(double value) { return {value, FontSize::Unit::kPixels}; }

/// The height of the em in pixels at scale 1 (96 pixels to an inch, whatever the screen says).
double EmPixels(FontSize size);

struct SurfaceFont {
  std::string name = "MS Sans Serif";
  FontSize size;
  bool bold = false;
  friend bool operator==(const SurfaceFont&, const SurfaceFont&) = default;
};

/// The text cell of a font in pixels at scale 1: its height, and how far below its top the baseline lies.
struct TextCell {
  double height = 0;
  double baseline = 0;
};

/// Whether the system has a family of that name (case does not matter). Asked once per process and name.
bool FontIsInstalled(const std::string& fontName);

/// Whether it is the music font, whose texts are codes of signs; case does not matter.
bool IsMusicFont(const SurfaceFont& font);

/// Sets the family if it is installed, "MS Sans Serif" if not.
void SetFontNameOrDefault(DrawingSurface& surface, const std::string& fontName);

/// The font that stands for a surface font, unhinted, so that its widths are the same at every resolution.
QFont ToQFont(const SurfaceFont& font);

/// `font` in bold, unhinted as well: bold texts of one size share one font with the names on the discs, which is looked
/// up and read once.
QFont BoldFont(QFont font, int pixels);

TextCell CellOf(const SurfaceFont& font);
double WidthOf(const SurfaceFont& font, std::string_view text);

}  // namespace tonalith::paint
