// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/page_composer.h"

#include <QCoreApplication>
#include <QFontInfo>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "controls/theme.h"

namespace tonalith::app {
namespace {

using controls::FittingLabel;
using controls::SurfaceFont;

/// The description has room to be read on paper; on the screen it may have to be smaller.
constexpr double kDescriptionPixels = 13;
constexpr double kKeyCaptionPixels = 12;
constexpr double kKeyPixels = 20;
constexpr double kKeyBelowCaption = 15;
constexpr double kFretNumberPixels = 12;
/// What stays free between the texts and the neck, and below a text that needs more lines than on the screen.
constexpr double kAboveNeck = 24;
constexpr double kBelowGrownText = 8;
/// The part of the client area that goes on paper, at a page that has not grown: the window's own borders stay behind.
QRect View() { return {32, 12, 1016, MainControls::ClientHeight() - 16}; }

controls::RecordingSurface& PageOf(const MainControls& c) { return c.printPic->Surface(); }

QPalette Paper() {
  QPalette paper;
  paper.setColor(QPalette::Window, Qt::white);
  paper.setColor(QPalette::WindowText, QColor(controls::ToRgb(controls::kInk)));
  return paper;
}

controls::Bgr ToBgr(const QColor& colour) {
  return {static_cast<std::uint32_t>(colour.blue() << 16 | colour.green() << 8 | colour.red())};
}

SurfaceFont FontLike(const QFont& font) {
  return {QFontInfo(font).family().toStdString(), controls::Pixels(font.pixelSize()), font.bold()};
}

SurfaceFont FontLike(const QWidget& widget, double pixels, bool bold) {
  return {QFontInfo(widget.font()).family().toStdString(), controls::Pixels(pixels), bold};
}

/// The lines of a text, broken between words and, where a word is wider than a line, within it.
std::vector<std::string> Wrapped(const QString& plain, const SurfaceFont& font, double width) {
  const QString text = controls::WithLineSeparators(plain);
  QTextLayout layout(text, controls::ToQFont(font));
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

PageComposer::PageComposer(const MainControls& controls) : c_(controls) {
  const QPalette paper = Paper();
  const QColor ink = paper.color(QPalette::WindowText);
  const QColor second = controls::SecondaryInk(paper);
  const QColor sienna = controls::SiennaInk(paper);
  WriteBelow(*c_.Label1, ink);
  WriteBelow(*c_.lblScaleType, sienna);
  Write(*c_.lblScaleDescription, FontLike(*c_.lblScaleDescription, kDescriptionPixels, false), second);
  WriteKey();
  WriteBelow(*c_.lblTranspose, ink);
  WriteBelow(*c_.lblScaleNotes, sienna);
  neckDown_ = std::max(0.0, std::ceil(columnBottom_ + kAboveNeck - NeckTop()));
  down_ = neckDown_;
  WriteFretNumbers();
  WriteBelow(*c_.Label3, second);
}

double PageComposer::NeckTop() const { return c_.fretboard->Geometry().wood.top(); }

void PageComposer::WriteBelow(const FittingLabel& label, const QColor& ink) {
  Write(label, FontLike(label.FittedFont()), ink);
}

void PageComposer::Write(const FittingLabel& label, const SurfaceFont& font, const QColor& ink) {
  if (label.isHidden()) return;
  const double height = controls::CellOf(font).height;
  double top = label.y() + down_;
  for (std::string& text : Wrapped(label.text().trimmed(), font, label.width())) {
    lines_.push_back({static_cast<double>(label.x()), top, font, ink, std::move(text)});
    top += height;
  }
  const double bottom = label.y() + down_ + label.height();
  if (top > bottom) down_ += std::ceil(top - bottom + kBelowGrownText);
  columnBottom_ = std::max({columnBottom_, top, bottom});
}

void PageComposer::WriteKey() {
  const QPalette paper = Paper();
  const QWidget& box = *c_.cmbTranspose;
  const double left = box.x();
  const double top = box.y() + down_;
  lines_.push_back({left, top, FontLike(box, kKeyCaptionPixels, false), controls::SecondaryInk(paper),
                    QCoreApplication::translate("tonalith::app::frmTonalith", "Key").toStdString()});
  lines_.push_back({left, top + kKeyBelowCaption, FontLike(box, kKeyPixels, true), paper.color(QPalette::WindowText),
                    c_.cmbTranspose->itemText(c_.cmbTranspose->ListIndex()).toStdString()});
}

void PageComposer::WriteFretNumbers() {
  const SurfaceFont font = FontLike(*c_.fretboard, kFretNumberPixels, false);
  const QColor ink = controls::SecondaryInk(Paper());
  for (const int fret : c_.fretboard->Layout().NumberedFrets()) {
    const QRectF box = c_.fretboard->FretNumberBox(fret).translated(0, neckDown_);
    const std::string text = std::to_string(fret);
    lines_.push_back({box.center().x() - controls::WidthOf(font, text) / 2,
                      box.center().y() - controls::CellOf(font).height / 2, font, ink, text});
  }
}

void PageComposer::BeginPage() const {
  c_.printPic->setGeometry(View().adjusted(0, 0, 0, static_cast<int>(neckDown_)));
  c_.printPic->SetPicture(nullptr);
  PageOf(c_).SetScaleMode(controls::ScaleMode::kPixels);
  PageOf(c_).Cls();
}

void PageComposer::WriteStaff() const { PageOf(c_).PaintPicture(c_.staff->Picture(), -View().left(), -View().top()); }

void PageComposer::DrawStringsAndFrets() const {
  PageOf(c_).PaintPicture(views::NeckOnPaper(c_.fretboard->Geometry()), -View().left(), neckDown_ - View().top());
}

void PageComposer::WriteLabels() const {
  controls::DrawingSurface& page = PageOf(c_);
  for (const Line& line : lines_) {
    if (line.text.empty()) continue;
    page.SetFontName(line.font.name);
    page.SetFontSize(line.font.size);
    page.SetFontBold(line.font.bold);
    page.SetForeColor(ToBgr(line.ink));
    page.SetCurrentX(line.left - View().left());
    page.SetCurrentY(line.top - View().top());
    page.Print(line.text);
  }
}

void PageComposer::CopyNoteImages(const std::function<void()>& between) const {
  for (int index = 0; index < c_.fretboard->Layout().NoteCount(); ++index) {
    const views::NoteImage& image = c_.fretboard->Image(index);
    if (image.isHidden()) continue;
    controls::RecordingSurface picture;
    image.DrawOn(picture);
    const QPoint place = image.pos() + c_.fretboard->pos() - View().topLeft();
    print::BitBlt(PageOf(c_), place.x(), place.y() + neckDown_, picture);
    between();
  }
}

std::string PageTitle(const MainControls& c) {
  const QString name = c.Label1->text().simplified();
  if (name.isEmpty()) return "Tonalith";
  const QString key = c.cmbTranspose->itemText(c.cmbTranspose->ListIndex());
  return (key.isEmpty() ? name : QCoreApplication::translate("tonalith::app::frmTonalith", "%1 in %2").arg(name, key))
      .toStdString();
}

}  // namespace tonalith::app
