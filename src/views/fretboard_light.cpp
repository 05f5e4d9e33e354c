// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Highlights notes while they sound: the pressed note and the note of the playback.

#include <QPainter>
#include <algorithm>

#include "paint/colours.h"
#include "views/fretboard_view.h"

namespace tonalith::views {
namespace {

/// Width of the glow around a disc, in pixels.
constexpr int kGlow = 6;

}  // namespace

void FretboardView::NoteStarted() { Light(LitBy::kPress, pressed_); }

void FretboardView::NoteEnded() { DarkenNote(LitBy::kPress); }

void FretboardView::LightNote(LitBy by, const std::string& controlName) {
  const QString name = QString::fromStdString(controlName);
  const auto found =
      std::find_if(images_.begin(), images_.end(), [&](const NoteImage* image) { return image->objectName() == name; });
  Light(by, found == images_.end() ? -1 : static_cast<int>(found - images_.begin()));
}

void FretboardView::Light(LitBy by, int index) {
  int& lit = lit_.at(static_cast<std::size_t>(by));
  if (lit == index) return;
  const int before = std::exchange(lit, index);
  for (const int changed : {before, index}) {
    if (changed < 0) continue;
    NoteImage& image = Image(changed);
    image.SetLit(std::find(lit_.begin(), lit_.end(), changed) != lit_.end());
    update(image.geometry().adjusted(-kGlow, -kGlow, kGlow, kGlow));
  }
}

void FretboardView::PaintGlow(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  for (const int index : lit_) {
    if (index < 0 || Image(index).isHidden()) continue;
    const QRectF disc(Image(index).geometry());
    const double radius = Image(index).Picture() == NotePicture::kKeyNote ? 7.5 : disc.width() / 2;
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
