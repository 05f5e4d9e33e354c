// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A printer for the preview: records the pictures to print, in points from the corner of the printable area, so that
// the preview uses the procedure that prints.

#pragma once

#include <memory>
#include <vector>

#include "platform/print_service.h"

namespace tonalith::print {

struct PaintedPicture {
  std::shared_ptr<const platform::PrintablePicture> picture;
  platform::PrintRect place;
};

class PreviewPrinter : public platform::Printer {
 public:
  explicit PreviewPrinter(const platform::Sheet& sheet) : sheet_(sheet) {}

  /// The unit is always the point.
  void SetScaleMode(platform::PrinterScaleMode /*mode*/) override {}
  [[nodiscard]] double ScaleWidth() override { return sheet_.printable.width; }
  [[nodiscard]] double ScaleHeight() override { return sheet_.printable.height; }
  [[nodiscard]] double DotsPerInch() override;
  void PaintPicture(const std::shared_ptr<const platform::PrintablePicture>& picture,
                    const platform::PrintRect& place) override;
  void EndDoc() override { isEnded_ = true; }
  [[nodiscard]] bool IsEnded() const override { return isEnded_; }
  [[nodiscard]] std::string Destination() const override { return "preview"; }

  [[nodiscard]] const std::vector<PaintedPicture>& Painted() const { return painted_; }

 private:
  platform::Sheet sheet_;
  std::vector<PaintedPicture> painted_;
  bool isEnded_ = false;
};

}  // namespace tonalith::print
