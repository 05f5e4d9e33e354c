// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One note of the neck: a button with a Tag (its note name), a Picture (key note or other scale note) and an optional
// label drawn on it, which is the Tag unless the view chooses another text. A new picture removes the label. Images are
// cached by picture, label and scale factor, for all notes of the process.

#pragma once

#include <QAbstractButton>
#include <string>

#include "paint/drawing_surface.h"
#include "paint/twips.h"

namespace tonalith::views {

/// The picture list of the fretboard: image 1 is the key note, image 2 any other note of the scale.
enum class NotePicture { kNone = 0, kKeyNote = 1, kScaleNote = 2 };

class NoteImage : public QAbstractButton {
  Q_OBJECT

 public:
  NoteImage(const QString& name, const std::string& tag, QWidget* parent);

  [[nodiscard]] const std::string& Tag() const { return tag_; }
  [[nodiscard]] QString TagText() const { return QString::fromStdString(tag_); }
  [[nodiscard]] const std::string& Label() const { return label_; }
  [[nodiscard]] NotePicture Picture() const { return picture_; }
  [[nodiscard]] bool NameDrawn() const { return nameDrawn_; }

  /// Replaces the text that DrawName draws.
  void SetLabel(const std::string& label);
  /// Replaces the picture and removes the name.
  void SetPicture(NotePicture picture);
  /// Draws the label on the picture.
  void DrawName();
  /// Removes the name; the picture stays.
  void ClearName();

  /// Highlights a sounding note by a glowing rim. DrawOn ignores it.
  void SetLit(bool isLit);
  [[nodiscard]] bool IsLit() const { return isLit_; }

  /// Draws picture and name on a surface of the size of the image.
  void DrawOn(paint::DrawingSurface& surface) const;

  /// The position in twips of the form's client area. The view moves the widget there.
  paint::Twips Left;
  paint::Twips Top;
  paint::Twips ScaleTop;
  paint::Twips Width{435};
  paint::Twips Height{435};
  bool AutoSize = false;
  bool AutoRedraw = false;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::string tag_;
  std::string label_;
  NotePicture picture_ = NotePicture::kNone;
  bool nameDrawn_ = false;
  bool isLit_ = false;
};

/// Writes a label on the surface of a note image, `scaleWidth` pixels wide: 14 pixels, bold, white, centred.
void DrawNoteName(paint::DrawingSurface& surface, const std::string& label, double scaleWidth);

/// The picture of the picture list, 29 x 29 pixels; null for kNone.
std::shared_ptr<const paint::SurfacePicture> PictureOf(NotePicture picture);

}  // namespace tonalith::views
