// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/print_fitting.h"

#include "core/failure.h"
#include "print/messages.h"

namespace tonalith::print {
namespace {

double Quotient(double dividend, double divisor) {
  constexpr std::int32_t kDivisionByZero = 11;
  if (divisor == 0) throw core::Failure(kDivisionByZero, MessageId::kDivisionByZero);
  return dividend / divisor;
}

double ShareOf(std::int16_t percent) { return percent / 100.0; }

}  // namespace

// Kept: see docs/behaviour.md, The page is not centred.
platform::PrintRect FitPicture(Extent picture, Extent printable, PrintShares shares) {
  const double size = ShareOf(shares.size);
  double factor = Quotient(printable.width * size, picture.width);
  if (picture.height * factor > printable.height * size) factor = Quotient(printable.height * size, picture.height);
  platform::PrintRect rect;
  rect.width = picture.width * factor;
  rect.height = picture.height * factor;
  rect.left = (printable.width - rect.width) * ShareOf(shares.horizontal);
  rect.top = (printable.height - rect.height) * ShareOf(shares.vertical);
  return rect;
}

}  // namespace tonalith::print
