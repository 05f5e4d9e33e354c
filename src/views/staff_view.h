// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The staff of the main window: a paper card that replays the drawing of ScoreHandler, recorded in coordinates of the
// form's client area. Colours are the same in every theme. A drawing larger than the card is scaled down. The
// accessible name contains clef and notes.

#pragma once

#include <QWidget>
#include <memory>
#include <string>

#include "core/scale.h"
#include "paint/recording_surface.h"

namespace tonalith::views {

class StaffView : public QWidget {
  Q_OBJECT

 public:
  explicit StaffView(QWidget* parent = nullptr);

  /// The position in the form's client area, in pixels.
  static QRect DesignRect();

  /// Runs ScoreHandler on the card and schedules a repaint. Throws the failures of ScoreHandler; what was drawn before
  /// is shown.
  void Draw(const core::Scale& scale, std::string& scaleNotes);
  /// Clears the card, for a caller that cannot get the intervals.
  void Clear();
  /// Shows a sentence in place of the staff.
  void ShowNotice(const QString& notice);

  [[nodiscard]] const paint::RecordingSurface& Drawing() const { return drawing_; }
  /// The bounds of the drawing as painted, in pixels of the form's client area.
  [[nodiscard]] QRectF InkOnCard() const;

  /// The drawing for paper, without the card, in pixels of the form's client area: an independent copy, scaled down
  /// like on the screen.
  [[nodiscard]] std::shared_ptr<const paint::SurfacePicture> Picture() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void UpdateAccessibleName(const std::string& notes);

  paint::RecordingSurface drawing_;
};

}  // namespace tonalith::views
