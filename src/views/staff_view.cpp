// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/staff_view.h"

#include <QPainter>
#include <algorithm>

#include "controls/painter_surface.h"
#include "controls/panel_painting.h"
#include "views/accessible_views.h"
#include "views/score_handler.h"
#include "views/staff_layout.h"

namespace tonalith::views {
namespace {

/// What stays free between the card's edge and a drawing that had to be made smaller.
constexpr double kCardMargin = 8;
/// How far the staff lines run on behind the last note of a scale that is longer than they are.
constexpr double kLinesBehindLastNote = 10;

void PaintStaff(QPainter& painter, const controls::RecordingSurface& drawing) {
  const QRectF card = StaffView::DesignRect();
  const double linesEnd = controls::TwipsToPixels(staff::kRight);
  QRectF ink = drawing.InkBounds();
  const bool longerThanLines = ink.right() > linesEnd;
  if (longerThanLines) ink.setRight(ink.right() + kLinesBehindLastNote);
  const QRectF room = card.adjusted(kCardMargin, kCardMargin, -kCardMargin, -kCardMargin);
  painter.save();
  if (!ink.isEmpty() && !room.contains(ink)) {
    const double factor = std::min({1.0, room.width() / ink.width(), room.height() / ink.height()});
    painter.translate(room.center());
    painter.scale(factor, factor);
    painter.translate(-ink.center());
  }
  if (longerThanLines) {
    for (int line = 0; line < staff::kLines; ++line) {
      controls::FillSnapped(painter,
                            {linesEnd, static_cast<double>(kTrebleStaff.LineY(line)), ink.right() - linesEnd, 1},
                            QColor(controls::ToRgb(controls::kInk)));
    }
  }
  controls::PainterSurface surface(painter);
  drawing.ReplayOn(surface);
  painter.restore();
}

class StaffPicture : public controls::SurfacePicture {
 public:
  StaffPicture(std::string name, controls::RecordingSurface drawing)
      : name_(std::move(name)), drawing_(std::move(drawing)) {}
  [[nodiscard]] std::string Name() const override { return name_; }
  void PaintOn(QPainter& painter) const override { PaintStaff(painter, drawing_); }

 private:
  std::string name_;
  controls::RecordingSurface drawing_;
};

}  // namespace

StaffView::StaffView(QWidget* parent) : QWidget(parent) {
  InstallAccessibleViews();
  setGeometry(DesignRect());
  setObjectName(QStringLiteral("staffView"));
  Announce({});
}

QRect StaffView::DesignRect() { return {722, 62, 334, 150}; }

void StaffView::Draw(std::int16_t keyIndex, const std::vector<std::int16_t>& intervals, std::string& scaleNotes) {
  drawing_.SetForeColor(controls::kInk);
  Announce({});
  update();
  ScoreHandler(&drawing_, keyIndex, intervals, scaleNotes);
  Announce(scaleNotes);
}

void StaffView::Clear() {
  drawing_.Cls();
  Announce({});
  update();
}

void StaffView::Announce(const std::string& notes) {
  const QString list = notes.empty() ? tr(" no notes") : QString::fromStdString(notes);
  setAccessibleName(tr(kTrebleStaff.clef.name) + QLatin1Char(':') + list);
}

std::shared_ptr<const controls::SurfacePicture> StaffView::Picture() const {
  return std::make_shared<const StaffPicture>(accessibleName().toStdString(), drawing_);
}

void StaffView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  controls::PaintPanel(painter, rect(), QColor(controls::kStaffPaper), QColor(controls::kStaffPaperRim), false);
  painter.translate(-DesignRect().topLeft());
  PaintStaff(painter, drawing_);
}

}  // namespace tonalith::views
