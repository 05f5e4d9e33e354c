// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The controls of the neck by their fixed names: an image for each note, lines, fret numbers and the play marker. Makes
// them as hidden children of the view, places them, and derives the geometry of the painted neck from their positions.
// Layout and view must outlive it. An invalid note index throws failure 9.

#pragma once

#include <QRectF>
#include <map>
#include <string>
#include <vector>

#include "views/fretboard_layout.h"
#include "views/line_control.h"
#include "views/neck_painter.h"
#include "views/note_image.h"

class QLabel;

namespace tonalith::views {

class FretboardControls {
 public:
  /// `area` is the rectangle of the view in the form's client area.
  FretboardControls(const FretboardLayout& layout, const QRect& area, QWidget& view);

  [[nodiscard]] const FretboardLayout& Layout() const { return layout_; }
  [[nodiscard]] const QRect& Area() const { return area_; }
  [[nodiscard]] NoteImage& Image(int index) const;
  /// By position index.
  [[nodiscard]] const std::vector<NoteImage*>& Images() const { return images_; }
  /// Kept: see docs/behaviour.md, Controls without use in the main window
  [[nodiscard]] const std::vector<NoteImage*>& ExtraImages() const { return extraImages_; }
  [[nodiscard]] const std::vector<NoteImage*>& LabelImages() const { return labelImages_; }
  [[nodiscard]] QWidget& PlayMarker() const { return *playMarker_; }

  /// The control of that name. Throws failure 730 if there is none.
  [[nodiscard]] QWidget& Named(const std::string& name) const;
  /// The position index of a note image, -1 for anything else.
  [[nodiscard]] int IndexOf(const QObject* image) const;
  /// The position index of the note image of that name, -1 if there is none.
  [[nodiscard]] int IndexNamed(const std::string& name) const;
  /// By position index.
  [[nodiscard]] std::vector<bool> VisibleNotes() const;

  /// Shows a note image at its position; from the second fret on, also places fret and fret number of that position.
  /// Throws failure 6 for a position too far to the right.
  void Place(int index);

  /// In pixels of the form's client area.
  [[nodiscard]] NeckGeometry Geometry() const;
  [[nodiscard]] QRectF FretNumberBox(int fret) const;
  /// Whether the number of a fret is painted. A fret without a control is always numbered.
  [[nodiscard]] bool IsNumberShown(int fret) const;
  /// The tooltip of the fret number at a point of the view, empty if there is none.
  [[nodiscard]] QString ToolTipAt(const QPoint& point) const;

 private:
  void MakeLines();
  void MakeImages();
  void MakeMarkers();
  NoteImage* MakeImage(const QString& name, const std::string& tag);
  void PlaceOnView(QWidget& widget, paint::Twips left, paint::Twips top) const;
  void PlaceFret(int fret, paint::Twips imageLeft);

  const FretboardLayout& layout_;
  QRect area_;
  QWidget& view_;
  std::vector<NoteImage*> images_;
  std::vector<NoteImage*> extraImages_;  // imgE6..imgE9, imgE13..imgE15
  std::vector<NoteImage*> labelImages_;  // imgLabel, elements 0..11
  std::vector<LineControl*> strings_;    // Line1.. by row; the next line is the nut.
  LineControl* nut_ = nullptr;
  std::vector<LineControl*> frets_;  // fret1.. by fret
  std::map<int, QLabel*> markers_;   // fretPosition3.. by fret
  QWidget* playMarker_ = nullptr;
};

}  // namespace tonalith::views
