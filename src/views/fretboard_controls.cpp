// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/fretboard_controls.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "core/failure.h"
#include "paint/colours.h"
#include "views/messages.h"

namespace tonalith::views {
namespace {

using paint::Twips;

constexpr double kHalfImage = 14.5;
constexpr double kNutWidth = 8;
constexpr int kFretNumberHeight = 18;
constexpr std::int32_t kControlNotFound = 730;

/// The play marker: a triangle that points down at a note.
class TriangleMarker : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath triangle(QPointF(5.5, 15));
    triangle.lineTo(23.5, 15);
    triangle.lineTo(14.5, 29);
    triangle.closeSubpath();
    painter.setPen(QPen(QColor(paint::kAmberRim), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(QColor(paint::kAmber));
    painter.drawPath(triangle);
  }
};

/// A fret number. The neck paints its text, centred below the inlays.
class FretNumber : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {}
};

QString Numbered(const char* name, int number) { return QString::fromLatin1(name) + QString::number(number); }

LineControl* MakeLine(const QString& name, const LineGeometry& line, QObject* parent) {
  return new LineControl(name, line.x1, line.y1, line.x2, line.y2, parent);
}

QString FretToolTip(int fret) {
  const QString text = fret == 3 ? QCoreApplication::translate("tonalith::views::FretboardView", "The %1rd Fret")
                                 : QCoreApplication::translate("tonalith::views::FretboardView", "The %1th Fret");
  return text.arg(fret);
}

/// The x of the centre of a note image.
double CentreX(int position) {
  return paint::NearestPixel(FretboardLayout::Left(FretboardLayout::kBaseLeft, position)) + kHalfImage;
}

void AddInlays(NeckGeometry& neck, int fret) {
  const double middle = (neck.strings.front() + neck.strings.back()) / 2;
  const double toDouble = paint::ExactPixels(FretboardLayout::kStringSpacing);
  if (FretboardLayout::HasDoubleInlay(fret)) {
    neck.inlays.emplace_back(CentreX(fret), middle - toDouble);
    neck.inlays.emplace_back(CentreX(fret), middle + toDouble);
  } else if (FretboardLayout::HasInlay(fret)) {
    neck.inlays.emplace_back(CentreX(fret), middle);
  }
}

}  // namespace

FretboardControls::FretboardControls(const FretboardLayout& layout, const QRect& area, QWidget& view)
    : layout_(layout), area_(area), view_(view) {
  MakeLines();
  MakeImages();
  MakeMarkers();
}

void FretboardControls::MakeLines() {
  for (int row = 1; row <= layout_.Rows(); ++row) {
    strings_.push_back(MakeLine(Numbered("Line", row), FretboardLayout::StringLine(row), &view_));
  }
  nut_ = MakeLine(Numbered("Line", layout_.Rows() + 1), layout_.NutLine(), &view_);
  for (int fret = 1; fret < layout_.Positions(); ++fret) {
    frets_.push_back(MakeLine(Numbered("fret", fret), layout_.FirstFret(), &view_));
    frets_.back()->BorderWidth = 3;
  }
}

NoteImage* FretboardControls::MakeImage(const QString& name, const std::string& tag) {
  auto* image = new NoteImage(name, tag, &view_);
  image->Left = FretboardLayout::kBaseLeft;
  image->Width = image->Height = FretboardLayout::kImageSize;
  return image;
}

void FretboardControls::MakeImages() {
  for (int index = 0; index < layout_.NoteCount(); ++index) {
    const NotePlace& note = layout_.Note(index);
    images_.push_back(MakeImage(Numbered("img", index), note.tag));
    images_.back()->setAccessibleName(QString::fromStdString(note.accessibleName));
  }
  // Kept: see docs/behaviour.md, Controls without use in the main window
  const std::vector<std::pair<int, const char*>> extras{{6, "C"},   {7, "D"},   {8, "E"},  {9, "F"},
                                                        {13, "C#"}, {14, "D#"}, {15, "F#"}};
  for (const auto& [number, tag] : extras) extraImages_.push_back(MakeImage(Numbered("imgE", number), tag));
  for (int element = 0; element < 12; ++element) {
    labelImages_.push_back(MakeImage(QStringLiteral("imgLabel"), {}));
    labelImages_.back()->setProperty("Index", element);
  }
}

void FretboardControls::MakeMarkers() {
  for (const int fret : FretboardLayout::MarkedFrets()) {
    auto* marker = new FretNumber(QString::number(fret), &view_);
    marker->setObjectName(Numbered("fretPosition", fret));
    marker->setToolTip(FretToolTip(fret));
    marker->resize(paint::NearestPixel(FretboardLayout::kImageSize), kFretNumberHeight);
    markers_[fret] = marker;
  }
  playMarker_ = new TriangleMarker(&view_);
  playMarker_->setObjectName(QStringLiteral("Picture1"));
  playMarker_->setAttribute(Qt::WA_TransparentForMouseEvents);
  playMarker_->resize(29, 30);
  playMarker_->hide();
}

NoteImage& FretboardControls::Image(int index) const {
  if (index < 0 || index >= layout_.NoteCount()) throw core::Failure::SubscriptOutOfRange();
  return *images_[static_cast<std::size_t>(index)];
}

QWidget& FretboardControls::Named(const std::string& name) const {
  auto* control = view_.findChild<QWidget*>(QString::fromStdString(name), Qt::FindDirectChildrenOnly);
  if (name.empty() || control == nullptr) throw core::Failure(kControlNotFound, {MessageId::kControlNotFound, name});
  return *control;
}

int FretboardControls::IndexOf(const QObject* image) const {
  const auto found = std::find(images_.begin(), images_.end(), image);
  return found == images_.end() ? -1 : static_cast<int>(found - images_.begin());
}

int FretboardControls::IndexNamed(const std::string& name) const {
  const QString text = QString::fromStdString(name);
  const auto found =
      std::find_if(images_.begin(), images_.end(), [&](const NoteImage* image) { return image->objectName() == text; });
  return found == images_.end() ? -1 : static_cast<int>(found - images_.begin());
}

std::vector<bool> FretboardControls::VisibleNotes() const {
  std::vector<bool> visible;
  for (const NoteImage* image : images_) visible.push_back(!image->isHidden());
  return visible;
}

void FretboardControls::PlaceOnView(QWidget& widget, Twips left, Twips top) const {
  widget.move(QPoint(paint::NearestPixel(left), paint::NearestPixel(top)) - area_.topLeft());
}

void FretboardControls::Place(int index) {
  NoteImage& image = Image(index);
  const NotePlace& note = layout_.Note(index);
  const NoteImage& base = Image(layout_.IndexAt(note.row, 0));
  const Twips left = FretboardLayout::Left(base.Left, note.position);
  const Twips top = FretboardLayout::Top(strings_[static_cast<std::size_t>(note.row - 1)]->y1);
  image.Left = left;
  image.Top = top;
  // Kept: see docs/behaviour.md, ScaleTop equals Top
  image.ScaleTop = top;
  image.Width = FretboardLayout::kImageSize;
  image.Height = FretboardLayout::kImageSize;
  image.AutoSize = true;
  image.setToolTip(image.TagText());
  PlaceOnView(image, left, top);
  image.show();
  // Kept: see docs/behaviour.md, Every string places the frets
  if (note.position > 1) PlaceFret(note.position, left);
}

void FretboardControls::PlaceFret(int fret, Twips imageLeft) {
  const LineControl& fret1 = *frets_.front();
  LineControl& line = *frets_[static_cast<std::size_t>(fret - 1)];
  line.x1 = line.x2 = FretboardLayout::FretX(imageLeft);
  line.y1 = fret1.y1;
  line.y2 = fret1.y2;
  line.BorderWidth = 3;
  // Most positions have no marker.
  const auto marker = markers_.find(fret);
  if (marker == markers_.end()) return;
  PlaceOnView(*marker->second, FretboardLayout::MarkerLeft(imageLeft), FretboardLayout::MarkerTop(fret1.y2));
}

NeckGeometry FretboardControls::Geometry() const {
  NeckGeometry neck;
  const double nutX = paint::ExactPixels(nut_->x1);
  neck.nut = QRectF(QPointF(nutX - kNutWidth / 2, paint::ExactPixels(nut_->y1)),
                    QPointF(nutX + kNutWidth / 2, paint::ExactPixels(nut_->y2)));
  neck.wood = QRectF(QPointF(nutX + 2, paint::ExactPixels(frets_.front()->y1)),
                     QPointF(paint::ExactPixels(strings_.front()->x2), paint::ExactPixels(frets_.front()->y2)));
  // A string runs through the centres of its discs; the y1 of its line only defines the position of the discs.
  for (const LineControl* string : strings_) {
    neck.strings.push_back(paint::NearestPixel(FretboardLayout::Top(string->y1)) + kHalfImage);
  }
  neck.openLeft = paint::ExactPixels(strings_.front()->x1) + kHalfImage;
  for (int row = 1; row <= layout_.Rows(); ++row) neck.open.push_back(!Image(layout_.IndexAt(row, 0)).isHidden());
  neck.stringsRight = paint::ExactPixels(strings_.front()->x2);
  for (int fret = 1; fret < layout_.Positions(); ++fret) {
    neck.frets.push_back(paint::ExactPixels(frets_[static_cast<std::size_t>(fret - 1)]->x1));
    AddInlays(neck, fret);
  }
  return neck;
}

QRectF FretboardControls::FretNumberBox(int fret) const {
  const double width = paint::NearestPixel(FretboardLayout::kImageSize);
  const double top = paint::NearestPixel(FretboardLayout::MarkerTop(frets_.front()->y2));
  return {CentreX(fret) - width / 2, top, width, kFretNumberHeight};
}

bool FretboardControls::IsNumberShown(int fret) const {
  const auto marker = markers_.find(fret);
  return marker == markers_.end() || !marker->second->isHidden();
}

QString FretboardControls::ToolTipAt(const QPoint& point) const {
  for (const auto& [fret, marker] : markers_) {
    if (FretNumberBox(fret).contains(point + area_.topLeft())) return marker->toolTip();
  }
  return {};
}

}  // namespace tonalith::views
