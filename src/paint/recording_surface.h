// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A drawing surface that remembers: every step as a command in pixels, readable as text (one command a line) and
// repeatable on any other surface. Clearing forgets what was drawn before, as it does on paper. Owned by whoever draws;
// copies are independent. One thread at a time; never fails.

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

  /// One command a line: `line 743,123 1033,123`, `print "F#" at 4,5`, `print 119 73 at 815,113` in the music font,
  /// `picture note at 0,0`. A line `font ...` stands before the first print of each font and `colour ...` before the
  /// first step of each colour other than black.
  [[nodiscard]] std::string AsText() const;

  /// Draws everything again on `target`, whose scale mode becomes pixels, with the origin at `origin` there.
  void ReplayOn(DrawingSurface& target, PixelPoint origin = {}) const;

  /// The rectangle that holds the ink of all lines and the ink of all prints in the music font, in pixels.
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
