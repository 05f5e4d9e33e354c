// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/recording_surface.h"

#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cstdio>

#include "paint/music_font.h"

namespace tonalith::paint {
namespace {

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

/// Integers without a decimal point, others with two decimals.
std::string Number(double value) {
  std::array<char, 32> text{};
  const bool whole = value == static_cast<double>(static_cast<std::int64_t>(value));
  const int length = std::snprintf(text.data(), text.size(), whole ? "%.0f" : "%.2f", value);
  return {text.data(), static_cast<std::size_t>(std::max(length, 0))};
}

std::string Text(PixelPoint point) { return Number(point.x) + "," + Number(point.y); }

std::string FontLine(const SurfaceFont& font) {
  const bool pixels = font.size.unit == FontSize::Unit::kPixels;
  return "font \"" + font.name + "\" " + Number(font.size.value) + (pixels ? "px" : "pt") + (font.bold ? " bold" : "") +
         "\n";
}

std::string ColourLine(Bgr colour) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "colour &H%06X\n", static_cast<unsigned>(colour.value));
  return text.data();
}

std::string PrintLine(const PrintCommand& print) {
  std::string line = "print";
  if (IsMusicFont(print.font)) {
    for (const char code : print.text) line += " " + std::to_string(static_cast<int>(static_cast<unsigned char>(code)));
  } else {
    line += " \"" + print.text + "\"";
  }
  return line + " at " + Text(print.at) + "\n";
}

}  // namespace

std::string RecordingSurface::AsText() const {
  std::string text;
  SurfaceFont font;
  font.name.clear();
  Bgr colour = kBlack;
  const auto inColour = [&](Bgr next) {
    if (next != colour) text += ColourLine(next);
    colour = next;
  };
  for (const DrawCommand& command : commands_) {
    std::visit(Overloaded{[&](const PrintCommand& print) {
                            inColour(print.colour);
                            if (print.font != font) text += FontLine(print.font);
                            font = print.font;
                            text += PrintLine(print);
                          },
                          [&](const LineCommand& line) {
                            inColour(line.colour);
                            text += "line " + Text(line.from) + " " + Text(line.to) + "\n";
                          },
                          [&](const PictureCommand& picture) {
                            text += "picture " + picture.picture->Name() + " at " + Text(picture.at) + "\n";
                          }},
               command);
  }
  return text;
}

void RecordingSurface::ReplayOn(DrawingSurface& target, PixelPoint origin) const {
  target.SetScaleMode(ScaleMode::kPixels);
  for (const DrawCommand& command : commands_) {
    std::visit(Overloaded{[&](const PrintCommand& print) {
                            target.SetFontName(print.font.name);
                            target.SetFontSize(print.font.size);
                            target.SetFontBold(print.font.bold);
                            target.SetForeColor(print.colour);
                            target.SetCurrentX(print.at.x + origin.x);
                            target.SetCurrentY(print.at.y + origin.y);
                            target.Print(print.text);
                          },
                          [&](const LineCommand& line) {
                            target.SetForeColor(line.colour);
                            target.Line(line.from.x + origin.x, line.from.y + origin.y, line.to.x + origin.x,
                                        line.to.y + origin.y);
                          },
                          [&](const PictureCommand& picture) {
                            target.PaintPicture(picture.picture, picture.at.x + origin.x, picture.at.y + origin.y);
                          }},
               command);
  }
}

QRectF RecordingSurface::InkBounds() const {
  QRectF bounds;
  const auto include = [&](const QRectF& ink) { bounds = bounds.isNull() ? ink : bounds.united(ink); };
  for (const DrawCommand& command : commands_) {
    if (const auto* line = std::get_if<LineCommand>(&command)) {
      const auto [left, right] = std::minmax(line->from.x, line->to.x);
      const auto [top, bottom] = std::minmax(line->from.y, line->to.y);
      include({left, top, std::max(1.0, right - left), std::max(1.0, bottom - top)});
    } else if (const auto* print = std::get_if<PrintCommand>(&command); print && IsMusicFont(print->font)) {
      const QPainterPath ink = MusicFont::Shared().Outline(print->text, EmPixels(print->font.size));
      include(ink.boundingRect().translated(print->at.x, print->at.y));
    }
  }
  return bounds;
}

void RecordingSurface::DoCls() { commands_.clear(); }

void RecordingSurface::DoPrint(PixelPoint at, std::string_view text, const SurfaceFont& font, Bgr colour) {
  commands_.emplace_back(PrintCommand{at, std::string(text), font, colour});
}

void RecordingSurface::DoLine(PixelPoint from, PixelPoint to, Bgr colour) {
  commands_.emplace_back(LineCommand{from, to, colour});
}

void RecordingSurface::DoPaintPicture(PixelPoint at, const std::shared_ptr<const SurfacePicture>& picture) {
  commands_.emplace_back(PictureCommand{at, picture});
}

}  // namespace tonalith::paint
