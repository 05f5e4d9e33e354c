// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The music font of the staff. "Maestro" where the system has it; otherwise the treble clef, whole note and sharp of
// another source have its codes 38, 119 and 73: clef and note from Euterpe beside the program, from Euterpe where the
// system keeps it, from any font that has both characters, and at last shapes drawn here, so that a staff never shows
// empty boxes. The substitute's sharp is always drawn here.
//
// Where a substitute's glyphs go. The staff's arithmetic (all of it at 24 points, an em of 32 pixels) fixes the text
// cell it presumes: a clef printed at y = 1550 twips has to curl round the line at 2300, so its step line lies 750
// twips (50 pixels) below the cell's top; a note of step 0 is printed at 2450 - 650 - TextHeight / 2 and has to sit on
// 2450, which is 50 pixels below that only if TextHeight is 200. The substitute therefore reports a cell 200 pixels
// high with its step line 50 pixels below the top, and a text printed at (CurrentX, CurrentY) is placed so:
//   - the step line runs through the middle of the pixel row CurrentY + 50;
//   - the whole note's box is centred on the step line, and on x = CurrentX + 6.5, the middle of a ledger line, which
//     runs from CurrentX - 3 to CurrentX + 16; it is 11 pixels wide, from CurrentX + 1 to CurrentX + 12;
//   - the sharp that follows it in the text has its ink before the head, from CurrentX - 5 to CurrentX, centred on the
//     step line. The head of the column before, 18 pixels to the left, ends at CurrentX - 6, so one pixel is free on
//     either side;
//   - the clef's G line lies on the step line, and the clef begins one pixel behind CurrentX.
// Other sizes scale all of this. Immutable after it is made; user-interface thread; a source that has not got the
// glyphs gives way to the next one.

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
  /// The font of this process, found at its first use.
  static const MusicFont& Shared();

  /// From a font file, an installed family's music characters, the fonts of the system one after the other. Nothing if
  /// clef and whole note are not there.
  static std::optional<MusicFont> FromFile(const QString& fileName);
  static std::optional<MusicFont> FromFamily(const QString& family);
  static std::optional<MusicFont> FromAnyFamily();
  /// The font whose own codes are 38, 119 and 73, with its own cell and widths.
  static std::optional<MusicFont> FromOwnCodes(const QString& family);
  /// Shapes drawn by the program.
  static MusicFont Painted();

  /// Where it was found, for a person.
  [[nodiscard]] const QString& Origin() const { return origin_; }
  [[nodiscard]] TextCell Cell(double emPixels) const;
  [[nodiscard]] double Width(std::string_view codes, double emPixels) const;
  /// The ink of a text printed at (0, 0), in pixels at scale 1. Codes without a glyph leave no ink.
  [[nodiscard]] QPainterPath Outline(std::string_view codes, double emPixels) const;

 private:
  /// Clef, whole note and sharp, in this order.
  static constexpr std::size_t kSigns = 3;
  using Outlines = std::array<QPainterPath, kSigns>;
  struct Glyph {
    QPainterPath outline;  // At the design em, relative to the pen on the cell's top edge.
    double advance = 0;
  };

  [[nodiscard]] const Glyph* Find(char code) const;
  /// Gives the outline of a character, or an empty one.
  using GlyphSource = std::function<QPainterPath(char32_t)>;
  static std::optional<MusicFont> FromGlyphs(QString origin, const QString& family, const GlyphSource& glyphOf);
  /// `belowLine` is the share of the clef's height below its G line.
  static MusicFont Placed(QString origin, const Outlines& signs, double belowLine);

  QString origin_;
  TextCell cell_;
  std::array<Glyph, kSigns> glyphs_;
};

}  // namespace tonalith::paint
