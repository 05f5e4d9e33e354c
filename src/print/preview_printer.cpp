// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/preview_printer.h"

namespace tonalith::print {

double PreviewPrinter::DotsPerInch() {
  constexpr double kPointsPerInch = 72;
  return kPointsPerInch;
}

void PreviewPrinter::PaintPicture(const std::shared_ptr<const platform::PrintablePicture>& picture,
                                  const platform::PrintRect& place) {
  if (picture != nullptr) painted_.push_back({picture, place});
}

}  // namespace tonalith::print
