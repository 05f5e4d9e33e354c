// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/staff_view.h"

#include <QPainter>
#include <algorithm>

#include "paint/painter_surface.h"
#include "paint/panel_painting.h"
#include "views/accessible_views.h"
#include "views/score_handler.h"
#include "views/staff_layout.h"

namespace tonalith::views {
namespace {

/// Margin between the edge of the card and a scaled-down drawing.
constexpr double kCardMargin = 8;
/// The font size of a sentence in place of a staff.
constexpr double kNoticePixels = 14;
/// Length of the staff lines after the last note of a scale that is wider than the staff.
constexpr double kLinesAfterLastNote = 10;

double LinesEnd() { return paint::TwipsToPixels(staff::kRight); }

/// The bounds of a drawing, including the extended staff lines below a scale that is wider than the staff.
QRectF InkOf(const paint::RecordingSurface& drawing) {
  QRectF ink = drawing.InkBounds();
  if (ink.right() > LinesEnd()) ink.setRight(ink.right() + kLinesAfterLastNote);
  return ink;
}

/// Scales a drawing down to the card if it is larger.
QTransform OnCard(const QRectF& ink) {
  const QRectF space = QRectF(StaffView::DesignRect()).adjusted(kCardMargin, kCardMargin, -kCardMargin, -kCardMargin);
  QTransform fit;
  if (ink.isEmpty() || space.contains(ink)) return fit;
  const double factor = std::min({1.0, space.width() / ink.width(), space.height() / ink.height()});
  fit.translate(space.center().x(), space.center().y());
  fit.scale(factor, factor);
  fit.translate(-ink.center().x(), -ink.center().y());
  return fit;
}

void PaintStaff(QPainter& painter, const paint::RecordingSurface& drawing) {
  const QRectF ink = InkOf(drawing);
  painter.save();
  painter.setTransform(OnCard(ink), true);
  if (ink.right() > LinesEnd()) {
    for (int line = 0; line < staff::kLines; ++line) {
      const double y = kTrebleStaff.LineY(line);
      paint::FillSnapped(painter, {LinesEnd(), y, ink.right() - LinesEnd(), 1}, QColor(paint::ToRgb(paint::kInk)));
    }
  }
  paint::PainterSurface surface(painter);
  drawing.ReplayOn(surface);
  painter.restore();
}

class StaffPicture : public paint::SurfacePicture {
 public:
  StaffPicture(std::string name, paint::RecordingSurface drawing)
      : name_(std::move(name)), drawing_(std::move(drawing)) {}
  [[nodiscard]] std::string Name() const override { return name_; }
  void PaintOn(QPainter& painter) const override { PaintStaff(painter, drawing_); }

 private:
  std::string name_;
  paint::RecordingSurface drawing_;
};

}  // namespace

StaffView::StaffView(QWidget* parent) : QWidget(parent) {
  InstallAccessibleViews();
  setGeometry(DesignRect());
  setObjectName(QStringLiteral("staffView"));
  UpdateAccessibleName({});
}

QRect StaffView::DesignRect() { return {722, 62, 334, 150}; }

void StaffView::Draw(const core::Scale& scale, std::string& scaleNotes) {
  drawing_.SetForeColor(paint::kInk);
  UpdateAccessibleName({});
  update();
  ScoreHandler(&drawing_, scale, scaleNotes);
  UpdateAccessibleName(scaleNotes);
}

void StaffView::Clear() {
  drawing_.Cls();
  UpdateAccessibleName({});
  update();
}

QRectF StaffView::InkOnCard() const {
  const QRectF ink = InkOf(drawing_);
  return OnCard(ink).mapRect(ink);
}

void StaffView::ShowNotice(const QString& notice) {
  Clear();
  const std::string text = notice.toStdString();
  drawing_.SetScaleMode(paint::ScaleMode::kPixels);
  drawing_.SetForeColor(paint::kInk);
  paint::SetFontNameOrDefault(drawing_, "Tahoma");
  drawing_.SetFontSize(paint::Pixels(kNoticePixels));
  drawing_.SetFontBold(true);
  const QRect card = DesignRect();
  drawing_.SetCurrentX(card.center().x() - drawing_.TextWidth(text) / 2);
  drawing_.SetCurrentY(card.center().y() - drawing_.TextHeight(text) / 2);
  drawing_.Print(text);
  setAccessibleName(notice);
}

void StaffView::UpdateAccessibleName(const std::string& notes) {
  const QString list = notes.empty() ? tr(" no notes") : QString::fromStdString(notes);
  setAccessibleName(tr(kTrebleStaff.clef.name) + QLatin1Char(':') + list);
}

std::shared_ptr<const paint::SurfacePicture> StaffView::Picture() const {
  return std::make_shared<const StaffPicture>(accessibleName().toStdString(), drawing_);
}

void StaffView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  paint::PaintPanel(painter, rect(), QColor(paint::kStaffPaper), QColor(paint::kStaffPaperRim), false);
  painter.translate(-DesignRect().topLeft());
  PaintStaff(painter, drawing_);
}

}  // namespace tonalith::views
