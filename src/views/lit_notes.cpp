// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/lit_notes.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "paint/colours.h"

namespace tonalith::views {
namespace {

/// Width of the glow around a disc, in pixels.
constexpr int kGlow = 6;

}  // namespace

void LitNotes::Light(LitBy by, int index) {
  int& lit = lit_.at(static_cast<std::size_t>(by));
  if (lit == index) return;
  const int before = std::exchange(lit, index);
  for (const int changed : {before, index}) {
    if (changed < 0) continue;
    NoteImage& image = controls_.Image(changed);
    image.SetLit(std::find(lit_.begin(), lit_.end(), changed) != lit_.end());
    view_.update(image.geometry().adjusted(-kGlow, -kGlow, kGlow, kGlow));
  }
}

void LitNotes::PaintGlow(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  for (const int index : lit_) {
    if (index < 0 || controls_.Image(index).isHidden()) continue;
    const QRectF disc(controls_.Image(index).geometry());
    const double radius = controls_.Image(index).Picture() == NotePicture::kKeyNote ? 7.5 : disc.width() / 2;
    // The layers overlap, so the glow fades towards the outside.
    for (int reach = kGlow; reach > 0; --reach) {
      QColor light(paint::kAmber);
      light.setAlpha(70);
      painter.setBrush(light);
      painter.drawRoundedRect(disc.adjusted(-reach, -reach, reach, reach), radius + reach, radius + reach);
    }
  }
}

}  // namespace tonalith::views
