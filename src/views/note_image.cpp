// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/note_image.h"

#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <map>
#include <memory>
#include <tuple>

#include "paint/device_scale.h"
#include "paint/painter_surface.h"

namespace tonalith::views {
namespace {

using paint::DrawingSurface;

constexpr int kSide = 29;  // 435 twips.
constexpr double kMiddle = kSide / 2.0;
constexpr double kNamePixels = 14;
constexpr double kNameTop = 5;

/// The key note: a rounded square in the accent colour.
class KeyNotePicture : public paint::SurfacePicture {
 public:
  [[nodiscard]] std::string Name() const override { return "key-note"; }
  void PaintOn(QPainter& painter) const override {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(paint::kAccentRim), 1.5));
    painter.setBrush(QColor(paint::kAccent));
    painter.drawRoundedRect(QRectF(0.75, 0.75, kSide - 1.5, kSide - 1.5), 7.5, 7.5);
  }
};

/// Any other note of the scale: a circle.
class ScaleNotePicture : public paint::SurfacePicture {
 public:
  [[nodiscard]] std::string Name() const override { return "scale-note"; }
  void PaintOn(QPainter& painter) const override {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(paint::kNoteRim), 1.2));
    painter.setBrush(QColor(paint::kNote));
    painter.drawEllipse(QPointF(kMiddle, kMiddle), kMiddle - 0.75, kMiddle - 0.75);
  }
};

/// The rim of a sounding note. It leaves the background of the name unchanged.
void PaintLitRim(QPainter& painter, NotePicture picture) {
  constexpr double kWidth = 3;
  constexpr double kInset = kWidth / 2;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(paint::kAmber), kWidth));
  painter.setBrush(Qt::NoBrush);
  const QRectF rim(kInset, kInset, kSide - kWidth, kSide - kWidth);
  const double radius = picture == NotePicture::kKeyNote ? 6.5 : rim.width() / 2;
  painter.drawRoundedRect(rim, radius, radius);
}

/// Scales from pixels of the note to dots of its image.
void ScaleToDots(QPainter& painter, QSize dots) {
  painter.scale(1.0 * dots.width() / kSide, 1.0 * dots.height() / kSide);
}

/// The cached picture without a name. Painting a picture takes longer than painting the name on it.
const QImage& NamelessImage(NotePicture picture, QSize dots) {
  static std::map<std::tuple<NotePicture, int, int>, QImage> images;
  const std::tuple key(picture, dots.width(), dots.height());
  const auto known = images.find(key);
  if (known != images.end()) return known->second;
  QImage image(dots, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  ScaleToDots(painter, dots);
  paint::PainterSurface surface(painter);
  surface.SetScaleMode(paint::ScaleMode::kPixels);
  surface.PaintPicture(PictureOf(picture), 0, 0);
  painter.end();
  return images.emplace(key, std::move(image)).first->second;
}

/// The cached image for each picture, name, size in dots and highlight: about fifty images for 96 notes. With
/// fractional scale factors, notes of one size differ by a dot.
const QImage& SharedImage(const NoteImage& note, QSize dots) {
  using Key = std::tuple<NotePicture, std::string, int, int, bool>;
  static std::map<Key, QImage> images;
  const Key key(note.Picture(), note.NameDrawn() ? note.Label() : std::string(), dots.width(), dots.height(),
                note.IsLit());
  const auto known = images.find(key);
  if (known != images.end()) return known->second;
  QImage image = NamelessImage(note.Picture(), dots);
  QPainter painter(&image);
  ScaleToDots(painter, dots);
  paint::PainterSurface surface(painter);
  if (note.NameDrawn()) DrawNoteName(surface, note.Label(), kSide);
  if (note.IsLit()) PaintLitRim(painter, note.Picture());
  painter.end();
  return images.emplace(key, std::move(image)).first->second;
}

}  // namespace

std::shared_ptr<const paint::SurfacePicture> PictureOf(NotePicture picture) {
  static const auto keyNote = std::make_shared<const KeyNotePicture>();
  static const auto scaleNote = std::make_shared<const ScaleNotePicture>();
  switch (picture) {
    case NotePicture::kKeyNote:
      return keyNote;
    case NotePicture::kScaleNote:
      return scaleNote;
    case NotePicture::kNone:
      break;
  }
  return nullptr;
}

void DrawNoteName(DrawingSurface& surface, const std::string& label, double scaleWidth) {
  surface.SetScaleMode(paint::ScaleMode::kPixels);
  surface.SetFontSize(paint::Pixels(kNamePixels));
  paint::SetFontNameOrDefault(surface, "Tahoma");
  surface.SetFontBold(true);
  surface.SetForeColor(paint::kWhite);
  surface.SetCurrentX((scaleWidth - surface.TextWidth(label)) / 2);
  surface.SetCurrentY(kNameTop);
  surface.Print(label);
}

NoteImage::NoteImage(const QString& name, const std::string& tag, QWidget* parent)
    : QAbstractButton(parent), tag_(tag), label_(tag) {
  setObjectName(name);
  setFocusPolicy(Qt::ClickFocus);
  resize(kSide, kSide);
  hide();
}

void NoteImage::SetLabel(const std::string& label) {
  if (label == label_) return;
  label_ = label;
  update();
}

void NoteImage::SetPicture(NotePicture picture) {
  if (picture == picture_ && !nameDrawn_) return;
  picture_ = picture;
  nameDrawn_ = false;
  update();
}

void NoteImage::DrawName() {
  AutoRedraw = true;
  if (nameDrawn_) return;
  nameDrawn_ = true;
  update();
}

void NoteImage::ClearName() {
  if (!nameDrawn_) return;
  nameDrawn_ = false;
  update();
}

void NoteImage::SetLit(bool isLit) {
  if (isLit == isLit_) return;
  isLit_ = isLit;
  update();
}

void NoteImage::DrawOn(DrawingSurface& surface) const {
  surface.SetScaleMode(paint::ScaleMode::kPixels);
  surface.Cls();
  surface.PaintPicture(PictureOf(picture_), 0, 0);
  if (nameDrawn_) DrawNoteName(surface, label_, kSide);
}

QSize NoteImage::sizeHint() const { return {kSide, kSide}; }

void NoteImage::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect dots = paint::DotsOf(painter, rect());
  if (dots.isEmpty()) return;
  painter.drawImage(painter.deviceTransform().inverted().mapRect(QRectF(dots)), SharedImage(*this, dots.size()));
}

void NoteImage::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      click();
      return;
    case Qt::Key_Space:
      QAbstractButton::keyPressEvent(event);
      return;
    default:
      event->ignore();  // FretboardView handles the arrow keys.
  }
}

}  // namespace tonalith::views
