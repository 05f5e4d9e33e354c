// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Fonts of a drawing surface: family, size with its unit, and bold; installed families, and text metrics that are equal
// on screen, on paper and in a recording. A missing family is drawn with the font of the application in the text cell
// of the missing one, so positions computed for that cell stay valid.

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

/// The height of the em in pixels at scale 1 (96 pixels per inch on every screen).
double EmPixels(FontSize size);

struct SurfaceFont {
  std::string name = "MS Sans Serif";
  FontSize size;
  bool bold = false;
  friend bool operator==(const SurfaceFont&, const SurfaceFont&) = default;
};

/// The text cell of a font in pixels at scale 1: its height, and the distance from its top to the baseline.
struct TextCell {
  double height = 0;
  double baseline = 0;
};

/// Whether a family with this name is installed, ignoring case. The result is cached for the lifetime of the process.
bool FontIsInstalled(const std::string& fontName);

/// Whether this is the music font, whose texts are glyph codes; ignores case.
bool IsMusicFont(const SurfaceFont& font);

/// Sets the family if it is installed, "MS Sans Serif" if not.
void SetFontNameOrDefault(DrawingSurface& surface, const std::string& fontName);

/// The Qt font of a surface font, unhinted, so that widths are equal at every resolution.
QFont ToQFont(const SurfaceFont& font);

/// `font` in bold, unhinted. Bold texts of one size share one font with the note names, which is looked up and loaded
/// once.
QFont BoldFont(QFont font, int pixels);

TextCell CellOf(const SurfaceFont& font);
double WidthOf(const SurfaceFont& font, std::string_view text);

}  // namespace tonalith::paint
