// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One note of the neck: a button with a Tag (its note name), a Picture (the key note or any other scale note) and a
// name that may be drawn on it. Giving it a picture replaces what was drawn. What it shows is painted once for each
// picture, name and scale factor and shared by all images of the process. Owned by the fretboard view; user-interface
// thread; never fails.

#pragma once

#include <QAbstractButton>
#include <string>

#include "paint/drawing_surface.h"
#include "paint/twips.h"

namespace tonalith::views {

/// The picture list of the fretboard: image 1 marks the key note, image 2 any other note of the scale.
enum class NotePicture { kNone = 0, kKeyNote = 1, kScaleNote = 2 };

class NoteImage : public QAbstractButton {
  Q_OBJECT

 public:
  NoteImage(const QString& name, const std::string& tag, QWidget* parent);

  [[nodiscard]] const std::string& Tag() const { return tag_; }
  [[nodiscard]] QString TagText() const { return QString::fromStdString(tag_); }
  [[nodiscard]] NotePicture Picture() const { return picture_; }
  [[nodiscard]] bool NameDrawn() const { return nameDrawn_; }

  /// Replaces the picture and whatever was drawn on it.
  void SetPicture(NotePicture picture);
  /// Draws the Tag on the picture, where it stays.
  void DrawName();
  /// Clears the image and paints its own picture at (0, 0): the name is gone.
  void ClearName();

  /// A lit note sounds: its rim glows. Prints do not show it.
  void SetLit(bool isLit);
  [[nodiscard]] bool IsLit() const { return isLit_; }

  /// What the image shows, drawn on a surface of its own size.
  void DrawOn(paint::DrawingSurface& surface) const;

  /// Its place in twips of the form's client area. The view keeps the widget there.
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
  NotePicture picture_ = NotePicture::kNone;
  bool nameDrawn_ = false;
  bool isLit_ = false;
};

/// Writes a note name on a note image's surface, `scaleWidth` pixels wide: 14 pixels, bold, white, centred.
void DrawNoteName(paint::DrawingSurface& surface, const std::string& tag, double scaleWidth);

/// The picture behind a number of the picture list, 29 pixels square; null for none.
std::shared_ptr<const paint::SurfacePicture> PictureOf(NotePicture picture);

}  // namespace tonalith::views
