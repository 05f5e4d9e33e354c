// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The staff of the main window: a paper card at the top right that repeats the drawing of ScoreHandler, recorded in
// coordinates of the form's client area, so that the arithmetic stays the form's own. Ink and paper are the same in
// every theme. A drawing that is larger than the card is painted smaller as a whole. Its accessible name says clef and
// notes. A child of the form, at DesignRect; user-interface thread.

#pragma once

#include <QWidget>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "paint/recording_surface.h"

namespace tonalith::views {

class StaffView : public QWidget {
  Q_OBJECT

 public:
  explicit StaffView(QWidget* parent = nullptr);

  /// Its place in the form's client area, in pixels.
  static QRect DesignRect();

  /// Runs ScoreHandler on the card and asks for a repaint. A failure of ScoreHandler is passed on; what was drawn until
  /// then is shown.
  void Draw(std::int16_t keyIndex, const std::vector<std::int16_t>& intervals, std::string& scaleNotes);
  /// Clears the card: what Draw does before the intervals are known, for a caller that cannot get them.
  void Clear();
  /// Clears the card and writes a sentence on it instead of a staff.
  void ShowNotice(const QString& notice);

  [[nodiscard]] const paint::RecordingSurface& Drawing() const { return drawing_; }
  /// The rectangle of the ink as it is painted, in pixels of the form's client area.
  [[nodiscard]] QRectF InkOnCard() const;

  /// The drawing in pixels of the form's client area without the card, for paper, as a picture that stands by itself
  /// and does not change with the view. One that is larger than the card is scaled as on the screen.
  [[nodiscard]] std::shared_ptr<const paint::SurfacePicture> Picture() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Announce(const std::string& notes);

  paint::RecordingSurface drawing_;
};

}  // namespace tonalith::views
