// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/fretboard_view.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>

#include "core/failure.h"
#include "paint/colours.h"
#include "paint/device_scale.h"
#include "paint/theme.h"
#include "views/accessible_views.h"

namespace tonalith::views {
namespace {

using paint::Twips;
using views::LineControl;

constexpr int kWidth = 1080;
constexpr double kHalfImage = 14.5;
constexpr double kNutWidth = 8;
constexpr int kFretNumberHeight = 18;
constexpr int kFretNumberPixels = 12;
constexpr std::int32_t kControlNotFound = 730;

/// The play marker: a triangle that points down at a note.
class PlayMarker : public QWidget {
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

}  // namespace

FretboardView::FretboardView(core::MsgBox& msgBox, QWidget* parent)
    : QWidget(parent), msgBox_(msgBox), eventPump_([] { QCoreApplication::processEvents(); }) {
  InstallAccessibleViews();
  setObjectName(QStringLiteral("fretboardView"));
  setAccessibleName(tr("Fretboard"));
  setGeometry(DesignRect());
  BuildLines();
  BuildImages();
  BuildMarkers();
}

FretboardView::~FretboardView() {
  if (player_ != nullptr && player_->Notifier == this) player_->Notifier = nullptr;
}

QRect FretboardView::DesignRect() {
  static const int strings = core::Neck::Standard().Strings();
  const int top = paint::NearestPixel(FretboardLayout::AreaTop());
  return {0, top, kWidth, paint::NearestPixel(FretboardLayout::AreaBottom(strings)) - top};
}

void FretboardView::SetNotePlayer(platform::NotePlayer* player, std::string appFolder) {
  player_ = player;
  if (player_ != nullptr) player_->Notifier = this;
  appFolder_ = std::move(appFolder);
}

void FretboardView::BuildLines() {
  for (int row = 1; row <= layout_.Rows(); ++row) {
    strings_.push_back(MakeLine(Numbered("Line", row), FretboardLayout::StringLine(row), this));
  }
  nut_ = MakeLine(Numbered("Line", layout_.Rows() + 1), layout_.NutLine(), this);
  for (int fret = 1; fret < layout_.Positions(); ++fret) {
    frets_.push_back(MakeLine(Numbered("fret", fret), layout_.FirstFret(), this));
    frets_.back()->BorderWidth = 3;
  }
}

NoteImage* FretboardView::MakeImage(const QString& name, const std::string& tag) {
  auto* image = new NoteImage(name, tag, this);
  image->Left = FretboardLayout::kBaseLeft;
  image->Width = image->Height = FretboardLayout::kImageSize;
  return image;
}

void FretboardView::BuildImages() {
  for (int index = 0; index < layout_.NoteCount(); ++index) {
    const NotePlace& note = layout_.Note(index);
    NoteImage* image = MakeImage(Numbered("img", index), note.tag);
    image->setAccessibleName(QString::fromStdString(note.accessibleName));
    image->installEventFilter(this);
    connect(image, &QAbstractButton::pressed, this, [this, index] {
      pressed_ = index;
      PlayOctaveNote(layout_.Note(index).tag, layout_.Note(index).octave);
    });
    images_.push_back(image);
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

void FretboardView::BuildMarkers() {
  for (const int fret : FretboardLayout::MarkedFrets()) {
    auto* marker = new FretNumber(QString::number(fret), this);
    marker->setObjectName(Numbered("fretPosition", fret));
    marker->setToolTip((fret == 3 ? tr("The %1rd Fret") : tr("The %1th Fret")).arg(fret));
    marker->resize(paint::NearestPixel(FretboardLayout::kImageSize), kFretNumberHeight);
    markers_[fret] = marker;
  }
  playMarker_ = new PlayMarker(this);
  playMarker_->setObjectName(QStringLiteral("Picture1"));
  playMarker_->setAttribute(Qt::WA_TransparentForMouseEvents);
  playMarker_->resize(29, 30);
  playMarker_->hide();
}

NoteImage& FretboardView::Image(int index) const {
  if (index < 0 || index >= layout_.NoteCount()) throw core::Failure::SubscriptOutOfRange();
  return *images_[static_cast<std::size_t>(index)];
}

QWidget& FretboardView::ControlNamed(const std::string& name) const {
  auto* control = findChild<QWidget*>(QString::fromStdString(name), Qt::FindDirectChildrenOnly);
  if (name.empty() || control == nullptr) throw core::Failure(kControlNotFound, "Control '" + name + "' not found");
  return *control;
}

void FretboardView::PlaceOnView(QWidget& widget, Twips left, Twips top) const {
  widget.move(QPoint(paint::NearestPixel(left), paint::NearestPixel(top)) - DesignRect().topLeft());
}

std::vector<bool> FretboardView::VisibleNotes() const {
  std::vector<bool> visible;
  for (const NoteImage* image : images_) visible.push_back(!image->isHidden());
  return visible;
}

NeckGeometry FretboardView::Geometry() const {
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
  const double middle = (neck.strings.front() + neck.strings.back()) / 2;
  const double toDouble = paint::ExactPixels(FretboardLayout::kStringSpacing);
  for (int fret = 1; fret < layout_.Positions(); ++fret) {
    neck.frets.push_back(paint::ExactPixels(frets_[static_cast<std::size_t>(fret - 1)]->x1));
    const double x = paint::NearestPixel(FretboardLayout::Left(FretboardLayout::kBaseLeft, fret)) + kHalfImage;
    if (FretboardLayout::HasDoubleInlay(fret)) {
      neck.inlays.emplace_back(x, middle - toDouble);
      neck.inlays.emplace_back(x, middle + toDouble);
    } else if (FretboardLayout::HasInlay(fret)) {
      neck.inlays.emplace_back(x, middle);
    }
  }
  return neck;
}

QRectF FretboardView::FretNumberBox(int fret) const {
  const double x = paint::NearestPixel(FretboardLayout::Left(FretboardLayout::kBaseLeft, fret)) + kHalfImage;
  const double width = paint::NearestPixel(FretboardLayout::kImageSize);
  const double top = paint::NearestPixel(FretboardLayout::MarkerTop(frets_.front()->y2));
  return {x - width / 2, top, width, kFretNumberHeight};
}

void FretboardView::PaintFretNumbers(QPainter& painter, const QColor& colour) const {
  QFont numbers = font();
  numbers.setPixelSize(kFretNumberPixels);
  painter.setFont(numbers);
  painter.setPen(colour);
  for (const int fret : layout_.NumberedFrets()) {
    const auto marker = markers_.find(fret);
    if (marker != markers_.end() && marker->second->isHidden()) continue;
    painter.drawText(FretNumberBox(fret), Qt::AlignCenter, QString::number(fret));
  }
}

void FretboardView::PaintFocusRing(QPainter& painter) const {
  const int focused = FocusedNote();
  if (focused < 0 || !ringShown_) return;
  const QRectF disc(Image(focused).geometry());
  const bool square = Image(focused).Picture() == NotePicture::kKeyNote;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  const auto ring = [&](double distance, double width, const QColor& colour) {
    const QRectF box = disc.adjusted(-distance, -distance, distance, distance);
    const double radius = square ? 7.5 + distance : box.width() / 2;
    painter.setPen(QPen(colour, width));
    painter.drawRoundedRect(box, radius, radius);
  };
  ring(1.6, 4.6, QColor(0x14, 0x0a, 0x06));
  ring(1.6, 2.4, QColor(paint::kAmber));
}

void FretboardView::paintEvent(QPaintEvent* /*event*/) {
  const double scale = devicePixelRatioF();
  const NeckGeometry geometry = Geometry();
  if (neck_.isNull() || neck_.devicePixelRatio() != scale) {
    neck_ = QPixmap(size() * scale);
    neck_.setDevicePixelRatio(scale);
    neck_.fill(Qt::transparent);
    QPainter painter(&neck_);
    paint::ScaleToDevice(painter);
    painter.translate(-DesignRect().topLeft());
    PaintNeck(painter, geometry);
  }
  QPainter painter(this);
  paint::SnapOrigin(painter);
  painter.drawPixmap(QPointF(0, 0), neck_);
  painter.save();
  painter.translate(-DesignRect().topLeft());
  PaintOpenStrings(painter, geometry);
  PaintFretNumbers(painter, paint::SecondaryText(palette()));
  painter.restore();
  PaintGlow(painter);
  PaintFocusRing(painter);
}

}  // namespace tonalith::views
