// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/print_picture_to_size.h"

#include <QImage>
#include <QPainter>
#include <QPointer>

#include "core/deferred_failure.h"
#include "print/messages.h"
#include "print/print_fitting.h"

namespace tonalith::print {
namespace {

using platform::PrintRect;

constexpr std::int32_t kInvalidPicture = 481;
constexpr double kPixelsPerInch = 96;
/// Dots per pixel of a captured window: enough for a page.
constexpr double kCaptureScale = 4;

class CapturedWindow : public paint::SurfacePicture {
 public:
  explicit CapturedWindow(QImage image) : image_(std::move(image)) {}
  [[nodiscard]] std::string Name() const override { return "window"; }
  void PaintOn(QPainter& painter) const override {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(QPointF(0, 0), image_.deviceIndependentSize()), image_);
  }

 private:
  QImage image_;
};

/// An image of the window; null for a window without size.
QImage PrintWindow(QWidget& view) {
  QImage image((QSizeF(view.size()) * kCaptureScale).toSize(), QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return image;
  image.setDevicePixelRatio(kCaptureScale);
  image.fill(Qt::white);
  view.render(&image);
  return image;
}

void CaptureInto(PictureBox& printPic, QWidget& view) {
  printPic.SetPicture(nullptr);
  printPic.Surface().Cls();
  const QImage window = PrintWindow(view);
  if (window.isNull()) return;
  printPic.resize(view.size());
  printPic.Surface().PaintPicture(std::make_shared<const CapturedWindow>(window), 0, 0);
  printPic.SetPicture(printPic.Image());
}

}  // namespace

// Kept: see docs/behaviour.md, picTemp is a control.
void PrintPictureToSize(const PrintTools& tools, QWidget& form, const PictureBox& source, std::int16_t sizeShare,
                        std::int16_t verticalShare, std::int16_t horizontalShare) {
  core::DeferredFailure failure;
  const QPointer<PictureBox> picTemp(new PictureBox(QStringLiteral("picTemp"), &form));
  failure.Try([&] {
    picTemp->AutoRedraw = true;
    picTemp->BorderStyle = false;
    picTemp->resize(qRound(source.ScaleWidth()), qRound(source.ScaleHeight()));
    picTemp->move(form.x() + form.width(), 0);
  });
  failure.Try([&] {
    BitBlt(picTemp->Surface(), 0, 0, source.Surface());
    picTemp->SetPicture(picTemp->Image());
  });
  failure.Try([&] {
    const Extent picture{static_cast<double>(picTemp->width()), static_cast<double>(picTemp->height())};
    const Extent page{tools.printer.ScaleWidth(), tools.printer.ScaleHeight()};
    const PrintRect place = FitPicture(picture, page, {sizeShare, verticalShare, horizontalShare});
    if (picTemp->Picture() == nullptr) throw core::Failure(kInvalidPicture, MessageId::kInvalidPicture);
    tools.printer.PaintPicture(picTemp->Picture(), place);
  });
  failure.Try([&] { tools.printer.EndDoc(); });
  delete picTemp.data();
  failure.ReportDescription(tools.msgBox);
}

void CapturePrint(const PrintTools& tools, QWidget& view, PictureBox& printPic) {
  core::DeferredFailure failure;
  failure.Try([&] { CaptureInto(printPic, view); });
  failure.Try([&] { tools.printer.SetScaleMode(platform::PrinterScaleMode::kPixels); });
  if (printPic.Picture() == nullptr) {
    failure.Clear();
    tools.msgBox.Show(MessageId::kBitmapFailed);
    return;
  }
  failure.Try([&] {
    const double dots = tools.printer.DotsPerInch() / kPixelsPerInch;
    const auto& picture = printPic.Picture();
    tools.printer.PaintPicture(picture, {0, 0, picture->Width() * dots, picture->Height() * dots});
  });
  failure.Try([&] { tools.printer.EndDoc(); });
  failure.ReportDescription(tools.msgBox);
}

}  // namespace tonalith::print
