// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A drawing surface that records every step as a command in pixels. Recordings are readable as text (one command per
// line) and can be replayed on another surface. Cls removes the commands recorded before. Copies are independent. One
// thread at a time.

#pragma once

#include <QRectF>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "paint/drawing_surface.h"

namespace tonalith::paint {

struct PrintCommand {
  PixelPoint at;
  std::string text;
  SurfaceFont font;
  Bgr colour;
};
struct LineCommand {
  PixelPoint from;
  PixelPoint to;
  Bgr colour;
};
struct PictureCommand {
  PixelPoint at;
  std::shared_ptr<const SurfacePicture> picture;
};
using DrawCommand = std::variant<PrintCommand, LineCommand, PictureCommand>;

class RecordingSurface : public DrawingSurface {
 public:
  [[nodiscard]] const std::vector<DrawCommand>& Commands() const { return commands_; }

  /// One command per line: `line 743,123 1033,123`, `print "F#" at 4,5`, `print 119 73 at 815,113` in the music font,
  /// `picture note at 0,0`. A line `font ...` precedes the first print of each font, `colour ...` the first step of
  /// each colour other than black.
  [[nodiscard]] std::string AsText() const;

  /// Draws all commands on `target`, with the origin at `origin`; sets its scale mode to pixels.
  void ReplayOn(DrawingSurface& target, PixelPoint origin = {}) const;

  /// The bounding box, in pixels, of all lines and of the glyphs of all prints in the music font.
  [[nodiscard]] QRectF InkBounds() const;

 protected:
  void DoCls() override;
  void DoPrint(PixelPoint at, std::string_view text, const SurfaceFont& font, Bgr colour) override;
  void DoLine(PixelPoint from, PixelPoint to, Bgr colour) override;
  void DoPaintPicture(PixelPoint at, const std::shared_ptr<const SurfacePicture>& picture) override;

 private:
  std::vector<DrawCommand> commands_;
};

}  // namespace tonalith::paint
