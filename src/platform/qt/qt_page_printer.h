// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A printer that paints with Qt on a PageOutput. Pictures are painted at the resolution of the page; the document
// starts with the first picture. A page that failed or was not ended is discarded.

#pragma once

#include <QPainter>
#include <memory>

#include "platform/printer.h"
#include "platform/qt/page_output.h"

namespace tonalith::platform {

class QtPagePrinter : public Printer {
 public:
  explicit QtPagePrinter(std::unique_ptr<PageOutput> output) : output_(std::move(output)) {}
  ~QtPagePrinter() override;
  QtPagePrinter(const QtPagePrinter&) = delete;
  QtPagePrinter& operator=(const QtPagePrinter&) = delete;

  void SetScaleMode(PrinterScaleMode mode) override { mode_ = mode; }
  [[nodiscard]] double ScaleWidth() override;
  [[nodiscard]] double ScaleHeight() override;
  [[nodiscard]] double DotsPerInch() override;
  void PaintPicture(const std::shared_ptr<const PrintablePicture>& picture, const PrintRect& place) override;
  void EndDoc() override;
  [[nodiscard]] bool IsEnded() const override { return isEnded_; }
  [[nodiscard]] std::string Destination() const override { return output_->Destination().toStdString(); }

 private:
  [[nodiscard]] double DotsPerUnit();
  void Discard();

  std::unique_ptr<PageOutput> output_;
  QPainter painter_;
  PrinterScaleMode mode_ = PrinterScaleMode::kTwips;
  bool isEnded_ = false;
};

}  // namespace tonalith::platform
