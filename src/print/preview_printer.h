// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A printer without paper: it keeps what would have been painted on a sheet, in points from the corner of the sheet's
// printable area, so that a preview is made by the very procedure that prints. User-interface thread; never fails.

#pragma once

#include <memory>
#include <vector>

#include "platform/print_service.h"

namespace tonalith::print {

struct PaintedPicture {
  std::shared_ptr<const platform::PrintablePicture> picture;
  platform::PrintPlace place;
};

class PreviewPrinter : public platform::Printer {
 public:
  explicit PreviewPrinter(const platform::Sheet& sheet) : sheet_(sheet) {}

  /// Its unit is the point, whatever the mode.
  void SetScaleMode(platform::PrinterScaleMode /*mode*/) override {}
  [[nodiscard]] double ScaleWidth() override { return sheet_.printable.width; }
  [[nodiscard]] double ScaleHeight() override { return sheet_.printable.height; }
  [[nodiscard]] double DotsPerInch() override;
  void PaintPicture(const std::shared_ptr<const platform::PrintablePicture>& picture,
                    const platform::PrintPlace& place) override;
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
