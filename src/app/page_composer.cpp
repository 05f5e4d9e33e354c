// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/page_composer.h"

#include <QCoreApplication>
#include <QFontInfo>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "paint/theme.h"

namespace tonalith::app {
namespace {

using paint::SurfaceFont;
using windows::FittingLabel;

/// The description has the largest of these sizes at which it fits; if even the smallest does not fit, the page grows.
constexpr int kLargestDescription = 16;
constexpr int kSmallestDescription = 13;
constexpr double kKeyCaptionPixels = 12;
/// The size of a note name. A longer text is reduced to the smallest size and then wrapped.
constexpr int kKeyPixels = 20;
constexpr int kSmallestKey = 9;
/// The width between the left margin and the step line.
constexpr double kKeyWidth = 98;
constexpr double kKeyBelowCaption = 15;
constexpr double kFretNumberPixels = 12;
/// The free space between the texts and the neck, and below a text that is higher than its label on the screen.
constexpr double kAboveNeck = 24;
constexpr double kBelowGrownText = 8;
/// The space between the fret numbers and the version line; the buttons between them are not printed.
constexpr double kAboveVersionLine = 8;
/// Around the printed content, because discs and strings are rounded to whole pixels.
constexpr int kMargin = 2;

paint::RecordingSurface& PageOf(const MainControls& c) { return c.printPic->Surface(); }

QPalette Paper() {
  QPalette paper;
  paper.setColor(QPalette::Window, Qt::white);
  paper.setColor(QPalette::WindowText, QColor(paint::ToRgb(paint::kInk)));
  return paper;
}

paint::Bgr ToBgr(const QColor& colour) {
  return {static_cast<std::uint32_t>(colour.blue() << 16 | colour.green() << 8 | colour.red())};
}

SurfaceFont FontLike(const QFont& font) {
  return {QFontInfo(font).family().toStdString(), paint::Pixels(font.pixelSize()), font.bold()};
}

SurfaceFont FontLike(const QWidget& widget, double pixels, bool bold) {
  return {QFontInfo(widget.font()).family().toStdString(), paint::Pixels(pixels), bold};
}

/// Removes white space at the end only: blanks at the front are part of the layout.
QString WithoutTrailingSpace(QString text) {
  while (!text.isEmpty() && text.back().isSpace()) text.chop(1);
  return text;
}

/// Breaks a text into lines between words, and within a word if it is wider than a line.
std::vector<std::string> Wrapped(const QString& plain, const SurfaceFont& font, double width) {
  const QString text = windows::WithLineSeparators(plain);
  QTextLayout layout(text, paint::ToQFont(font));
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  std::vector<std::string> lines;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    QString part = text.mid(line.textStart(), line.textLength());
    part.remove(QChar(QChar::LineSeparator));
    lines.push_back(part.toStdString());
  }
  layout.endLayout();
  return lines;
}

}  // namespace

PageComposer::PageComposer(const MainControls& controls) : c_(controls), view_(View()) {
  const QPalette paper = Paper();
  const QColor ink = paper.color(QPalette::WindowText);
  const QColor secondary = paint::SecondaryText(paper);
  const QColor sienna = paint::SiennaText(paper);
  WriteFitted(*c_.Label1, ink);
  WriteFitted(*c_.lblScaleType, sienna);
  Write(*c_.lblScaleDescription, DescriptionFont(), secondary);
  WriteKey();
  WriteFitted(*c_.lblTranspose, ink);
  WriteFitted(*c_.lblScaleNotes, sienna);
  neckShift_ = std::max(0.0, std::ceil(columnBottom_ + kAboveNeck - NeckTop()));
  WriteFretNumbers();
  shift_ = neckShift_ + VersionLineTop() - c_.Label3->y();
  WriteFitted(*c_.Label3, secondary);
}

double PageComposer::VersionLineTop() const {
  return c_.fretboard->FretNumberBox(views::FretboardLayout::MarkedFrets().front()).bottom() + kAboveVersionLine;
}

QRect PageComposer::View() const {
  const views::NeckGeometry neck = c_.fretboard->Geometry();
  const QRectF staff = c_.staff->InkOnCard();
  const double left = std::min<double>(c_.Label1->x(), staff.isEmpty() ? c_.Label1->x() : staff.left());
  const double right = std::max(neck.stringsRight, staff.right());
  const double top = std::min<double>(c_.Label1->y(), staff.isEmpty() ? c_.Label1->y() : staff.top());
  const double bottom = VersionLineTop() + c_.Label3->height();
  return QRectF(QPointF(left, top), QPointF(right, bottom))
      .toAlignedRect()
      .adjusted(-kMargin, -kMargin, kMargin, kMargin);
}

SurfaceFont PageComposer::DescriptionFont() const {
  const FittingLabel& label = *c_.lblScaleDescription;
  for (int pixels = kLargestDescription; pixels > kSmallestDescription; --pixels) {
    SurfaceFont font = FontLike(label, pixels, false);
    const auto lines = static_cast<double>(Wrapped(WithoutTrailingSpace(label.text()), font, label.width()).size());
    if (lines * paint::CellOf(font).height <= label.height()) return font;
  }
  return FontLike(label, kSmallestDescription, false);
}

double PageComposer::NeckTop() const { return c_.fretboard->Geometry().wood.top(); }

void PageComposer::WriteFitted(const FittingLabel& label, const QColor& ink) {
  Write(label, FontLike(label.FittedFont()), ink);
}

void PageComposer::Write(const FittingLabel& label, const SurfaceFont& font, const QColor& ink) {
  if (label.isHidden()) return;
  const double height = paint::CellOf(font).height;
  double top = label.y() + shift_;
  for (std::string& text : Wrapped(WithoutTrailingSpace(label.text()), font, label.width())) {
    lines_.push_back({static_cast<double>(label.x()), top, font, ink, std::move(text)});
    top += height;
  }
  const double bottom = label.y() + shift_ + label.height();
  if (top > bottom) shift_ += std::ceil(top - bottom + kBelowGrownText);
  columnBottom_ = std::max({columnBottom_, top, bottom});
}

void PageComposer::WriteKey() {
  const QPalette paper = Paper();
  const QWidget& box = *c_.cmbTranspose;
  const double left = box.x();
  const double top = box.y() + shift_;
  lines_.push_back({left, top, FontLike(box, kKeyCaptionPixels, false), paint::SecondaryText(paper),
                    QCoreApplication::translate("tonalith::app::frmTonalith", "Key").toStdString()});
  const QString key = c_.cmbTranspose->currentText();
  int pixels = kKeyPixels;
  while (pixels > kSmallestKey && paint::WidthOf(FontLike(box, pixels, true), key.toStdString()) > kKeyWidth) {
    --pixels;
  }
  const SurfaceFont font = FontLike(box, pixels, true);
  double lineTop = top + kKeyBelowCaption;
  for (std::string& line : Wrapped(key, font, kKeyWidth)) {
    lines_.push_back({left, lineTop, font, paper.color(QPalette::WindowText), std::move(line)});
    lineTop += paint::CellOf(font).height;
  }
  columnBottom_ = std::max(columnBottom_, lineTop);
}

void PageComposer::WriteFretNumbers() {
  const SurfaceFont font = FontLike(*c_.fretboard, kFretNumberPixels, false);
  const QColor ink = paint::SecondaryText(Paper());
  for (const int fret : c_.fretboard->Layout().NumberedFrets()) {
    const QRectF box = c_.fretboard->FretNumberBox(fret).translated(0, neckShift_);
    const std::string text = std::to_string(fret);
    lines_.push_back({box.center().x() - paint::WidthOf(font, text) / 2,
                      box.center().y() - paint::CellOf(font).height / 2, font, ink, text});
  }
}

void PageComposer::BeginPage() const {
  c_.printPic->setGeometry(view_.adjusted(0, 0, 0, static_cast<int>(neckShift_)));
  c_.printPic->SetPicture(nullptr);
  PageOf(c_).SetScaleMode(paint::ScaleMode::kPixels);
  PageOf(c_).Cls();
}

void PageComposer::WriteStaff() const { PageOf(c_).PaintPicture(c_.staff->Picture(), -view_.left(), -view_.top()); }

void PageComposer::DrawStringsAndFrets() const {
  PageOf(c_).PaintPicture(views::NeckOnPaper(c_.fretboard->Geometry()), -view_.left(), neckShift_ - view_.top());
}

void PageComposer::WriteLabels() const {
  paint::DrawingSurface& page = PageOf(c_);
  for (const Line& line : lines_) {
    if (line.text.empty()) continue;
    page.SetFontName(line.font.name);
    page.SetFontSize(line.font.size);
    page.SetFontBold(line.font.bold);
    page.SetForeColor(ToBgr(line.ink));
    page.SetCurrentX(line.left - view_.left());
    page.SetCurrentY(line.top - view_.top());
    page.Print(line.text);
  }
}

void PageComposer::CopyNoteImages(const std::function<void()>& between) const {
  for (int index = 0; index < c_.fretboard->Layout().NoteCount(); ++index) {
    const views::NoteImage& image = c_.fretboard->Image(index);
    if (image.isHidden()) continue;
    paint::RecordingSurface picture;
    image.DrawOn(picture);
    const QPoint place = image.pos() + c_.fretboard->pos() - view_.topLeft();
    print::BitBlt(PageOf(c_), place.x(), place.y() + neckShift_, picture);
    between();
  }
}

std::string PageTitle(const MainControls& c) {
  const QString name = c.Label1->text().simplified();
  if (name.isEmpty()) return "Tonalith";
  const QString key = c.cmbTranspose->currentText().simplified();
  return (key.isEmpty() ? name : QCoreApplication::translate("tonalith::app::frmTonalith", "%1 in %2").arg(name, key))
      .toStdString();
}

}  // namespace tonalith::app
