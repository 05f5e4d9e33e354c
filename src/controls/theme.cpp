// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "controls/theme.h"

#include "controls/colours.h"

namespace tonalith::controls {
namespace {

/// `ink`, moved towards the window's text colour until it can be read on the window's ground.
QColor Readable(QColor ink, const QPalette& palette) {
  constexpr double kWanted = 4.6;
  const QColor ground = palette.color(QPalette::Window);
  const QColor text = palette.color(QPalette::WindowText);
  for (int step = 0; step < 10 && ContrastRatio(ink, ground) < kWanted; ++step) ink = Mix(ink, text, 0.2F);
  return ink;
}

}  // namespace

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QPalette WarmPalette(const QPalette& system) {
  constexpr double kStrongContrast = 20.0;
  if (ContrastRatio(system.color(QPalette::Window), system.color(QPalette::WindowText)) > kStrongContrast) {
    return system;
  }
  QPalette warm = system;
  const bool dark = IsDark(system);
  const auto set = [&warm](QPalette::ColorRole role, const QColor& colour) { warm.setColor(role, colour); };
  set(QPalette::Window, dark ? QColor(0x26, 0x22, 0x1f) : QColor(0xf6, 0xf4, 0xf0));
  set(QPalette::Base, dark ? QColor(0x1d, 0x1a, 0x18) : QColor(0xff, 0xff, 0xff));
  set(QPalette::Button, dark ? QColor(0x36, 0x31, 0x2c) : QColor(0xff, 0xff, 0xff));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
      warm.setColor(group, role, dark ? QColor(0xf0, 0xeb, 0xe4) : QColor(0x1f, 0x1b, 0x17));
    }
    warm.setColor(QPalette::Disabled, role, dark ? QColor(0x9a, 0x92, 0x88) : QColor(0x8b, 0x84, 0x7b));
  }
  return warm;
}

QColor SecondaryInk(const QPalette& palette) {
  return Readable(IsDark(palette) ? QColor(0xb9, 0xb0, 0xa5) : QColor(0x5a, 0x53, 0x4b), palette);
}

QColor SiennaInk(const QPalette& palette) {
  return Readable(IsDark(palette) ? QColor(0xf0, 0xa0, 0x70) : QColor(0xa0, 0x52, 0x2d), palette);
}

QColor OutlineInk(const QPalette& palette) {
  return Mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.28F);
}

}  // namespace tonalith::controls
