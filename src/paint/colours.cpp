// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/colours.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tonalith::paint {
namespace {

double Linear(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

}  // namespace

QColor Mix(const QColor& a, const QColor& b, float share) {
  return QColor::fromRgbF(a.redF() + (b.redF() - a.redF()) * share, a.greenF() + (b.greenF() - a.greenF()) * share,
                          a.blueF() + (b.blueF() - a.blueF()) * share);
}

double ContrastRatio(const QColor& a, const QColor& b) {
  const std::pair<double, double> lights = std::minmax({Luminance(a), Luminance(b)});
  return (lights.second + 0.05) / (lights.first + 0.05);
}

}  // namespace tonalith::paint
