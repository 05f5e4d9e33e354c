// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The music font of the staff: "Maestro" if it is installed. Otherwise a substitute provides the treble clef, whole
// note and sharp under its codes 38, 119 and 73: clef and note from Euterpe in the folder of the program, from an
// installed Euterpe, from any font that has both characters, or from built-in outlines, so that a staff never shows
// empty boxes. The sharp of a substitute is always built in.
//
// Positions of substitute glyphs: the staff layout (24 points, an em of 32 pixels) assumes a text cell. A clef printed
// at y = 1550 twips must have its G line at 2300, so its step line is 750 twips (50 pixels) below the top of the cell.
// A note of step 0 is printed at 2450 - 650 - TextHeight / 2 and must be at 2450, which requires a TextHeight of 200
// pixels. So the cell is 200 pixels high with its step line at 50 pixels, and a text printed at (CurrentX, CurrentY)
// has
//   - the step line in the middle of the pixel line CurrentY + 50;
//   - the whole note centred on the step line and on x = CurrentX + 6.5, the middle of a ledger line, which extends
//   from
//     CurrentX - 3 to CurrentX + 16; it is 11 pixels wide, from CurrentX + 1 to CurrentX + 12;
//   - the sharp, which follows the note in the text, before the notehead, from CurrentX - 5 to CurrentX, centred on the
//     step line. The previous notehead, 18 pixels to the left, ends at CurrentX - 6: one pixel is free on each side;
//   - the G line of the clef on the step line, and the left edge of the clef one pixel after CurrentX.
// Other sizes scale these numbers. Immutable. A source without the glyphs is skipped.

#pragma once

#include <QPainterPath>
#include <QString>
#include <array>
#include <functional>
#include <optional>
#include <string_view>

#include "paint/drawing_surface_font.h"
#include "paint/music_codes.h"

namespace tonalith::paint {

class MusicFont {
 public:
  /// The font of this process, loaded at the first call.
  static const MusicFont& Shared();

  /// From a font file, from the music characters of an installed family, or from the first suitable installed font.
  /// nullopt if clef or whole note is missing.
  static std::optional<MusicFont> FromFile(const QString& fileName);
  static std::optional<MusicFont> FromFamily(const QString& family);
  static std::optional<MusicFont> FromAnyFamily();
  /// From a family with the codes 38, 119 and 73, with its own cell and widths.
  static std::optional<MusicFont> FromOwnCodes(const QString& family);
  /// Built-in outlines.
  static MusicFont Painted();

  /// The source of the font, for diagnostics.
  [[nodiscard]] const QString& Origin() const { return origin_; }
  [[nodiscard]] TextCell Cell(double emPixels) const;
  [[nodiscard]] double Width(std::string_view codes, double emPixels) const;
  /// The outline of a text printed at (0, 0), in pixels at scale 1. Codes without a glyph are skipped.
  [[nodiscard]] QPainterPath Outline(std::string_view codes, double emPixels) const;

 private:
  /// Clef, whole note and sharp, in this order.
  static constexpr std::size_t kGlyphCount = 3;
  using Outlines = std::array<QPainterPath, kGlyphCount>;
  struct Glyph {
    QPainterPath outline;  // At kDesignEm, relative to the pen at the top edge of the cell.
    double advance = 0;
  };

  [[nodiscard]] const Glyph* Find(char code) const;
  /// Returns the outline of a character, empty if there is none.
  using OutlineOfCharacter = std::function<QPainterPath(char32_t)>;
  static std::optional<MusicFont> FromGlyphs(QString origin, const QString& family,
                                             const OutlineOfCharacter& outlineOf);
  /// `belowLine` is the share of the clef height below its G line.
  static MusicFont Placed(QString origin, const Outlines& outlines, double belowLine);

  QString origin_;
  TextCell cell_;
  std::array<Glyph, kGlyphCount> glyphs_;
};

}  // namespace tonalith::paint
