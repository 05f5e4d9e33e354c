// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/qt/qt_page_printer.h"

#include "core/failure.h"
#include "platform/qt/messages.h"

namespace tonalith::platform {
QtPagePrinter::~QtPagePrinter() {
  if (!isEnded_) Discard();
}

double QtPagePrinter::DotsPerInch() { return output_->Device().logicalDpiX(); }

double QtPagePrinter::DotsPerUnit() { return mode_ == PrinterScaleMode::kTwips ? DotsPerInch() / kTwipsPerInch : 1.0; }

double QtPagePrinter::ScaleWidth() {
  return output_->Device().pageLayout().paintRectPixels(output_->Device().logicalDpiX()).width() / DotsPerUnit();
}

double QtPagePrinter::ScaleHeight() {
  return output_->Device().pageLayout().paintRectPixels(output_->Device().logicalDpiX()).height() / DotsPerUnit();
}

void QtPagePrinter::Discard() {
  output_->Discard();
  if (painter_.isActive()) painter_.end();
}

void QtPagePrinter::PaintPicture(const std::shared_ptr<const PrintablePicture>& picture, const PrintRect& place) {
  if (!painter_.isActive() && !painter_.begin(&output_->Device())) {
    throw core::Failure(kPrinterError, {PrintingMessageId::kDocumentNotBegun, Destination()});
  }
  try {
    const double dots = DotsPerUnit();
    painter_.save();
    painter_.translate(place.left * dots, place.top * dots);
    painter_.scale(place.width * dots / picture->Width(), place.height * dots / picture->Height());
    picture->PaintOn(painter_);
    painter_.restore();
  } catch (const std::exception&) {
    painter_.restore();
    Discard();
    throw;
  }
}

void QtPagePrinter::EndDoc() {
  if (!painter_.isActive()) return;
  if (!painter_.end()) throw core::Failure(kPrinterError, {PrintingMessageId::kDocumentNotEnded, Destination()});
  output_->Finish();
  isEnded_ = true;
}

}  // namespace tonalith::platform
