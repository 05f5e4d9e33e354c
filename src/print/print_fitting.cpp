// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/print_fitting.h"

#include "core/failure.h"

namespace tonalith::print {
namespace {

double Quotient(double dividend, double divisor) {
  constexpr std::int32_t kDivisionByZero = 11;
  if (divisor == 0) throw core::Failure(kDivisionByZero, "Division by zero");
  return dividend / divisor;
}

double ShareOf(std::int16_t percent) { return percent / 100.0; }

}  // namespace

platform::PrintPlace FitPicture(Extent picture, Extent printable, PrintShares shares) {
  const double size = ShareOf(shares.size);
  double factor = Quotient(printable.width * size, picture.width);
  if (picture.height * factor > printable.height * size) factor = Quotient(printable.height * size, picture.height);
  platform::PrintPlace place;
  place.width = picture.width * factor;
  place.height = picture.height * factor;
  place.left = (printable.width - place.width) * ShareOf(shares.horizontal);
  place.top = (printable.height - place.height) * ShareOf(shares.vertical);
  return place;
}

}  // namespace tonalith::print
