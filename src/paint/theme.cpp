// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/theme.h"

#include "paint/colours.h"

namespace tonalith::paint {
namespace {

/// `text`, moved towards the text colour of the window until it is readable on the window background.
QColor Readable(QColor text, const QPalette& palette) {
  constexpr double kWanted = 4.6;
  const QColor background = palette.color(QPalette::Window);
  const QColor windowText = palette.color(QPalette::WindowText);
  for (int step = 0; step < 10 && ContrastRatio(text, background) < kWanted; ++step) text = Mix(text, windowText, 0.2F);
  return text;
}

void SetBackgrounds(QPalette& warm, bool dark) {
  const QColor window = dark ? QColor(0x26, 0x22, 0x1f) : QColor(0xf6, 0xf4, 0xf0);
  warm.setColor(QPalette::Window, window);
  warm.setColor(QPalette::Base, dark ? QColor(0x1d, 0x1a, 0x18) : QColor(0xff, 0xff, 0xff));
  warm.setColor(QPalette::AlternateBase, dark ? QColor(0x2b, 0x27, 0x23) : QColor(0xfa, 0xf8, 0xf4));
  warm.setColor(QPalette::Button, dark ? QColor(0x36, 0x31, 0x2c) : QColor(0xff, 0xff, 0xff));
  warm.setColor(QPalette::ToolTipBase, dark ? QColor(0x3d, 0x37, 0x31) : QColor(0xff, 0xfa, 0xee));
  // The edges drawn by a style: lighter and darker sides of the background.
  warm.setColor(QPalette::Light, Mix(window, Qt::white, dark ? 0.16F : 0.8F));
  warm.setColor(QPalette::Midlight, Mix(window, Qt::white, dark ? 0.1F : 0.4F));
  warm.setColor(QPalette::Mid, Mix(window, Qt::black, dark ? 0.3F : 0.25F));
  warm.setColor(QPalette::Dark, Mix(window, Qt::black, dark ? 0.45F : 0.38F));
  warm.setColor(QPalette::Shadow, Mix(window, Qt::black, 0.7F));
}

void SetTexts(QPalette& warm, bool dark) {
  const QColor text = dark ? QColor(0xf0, 0xeb, 0xe4) : QColor(0x1f, 0x1b, 0x17);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    for (const auto group : {QPalette::Active, QPalette::Inactive}) warm.setColor(group, role, text);
    warm.setColor(QPalette::Disabled, role, dark ? QColor(0x9a, 0x92, 0x88) : QColor(0x8b, 0x84, 0x7b));
  }
  warm.setColor(QPalette::ToolTipText, text);
}

/// Brown, not the accent: a selection is not the key note.
void SetSelection(QPalette& warm, bool dark) {
  warm.setColor(QPalette::Highlight, dark ? QColor(0x80, 0x5c, 0x43) : QColor(0x84, 0x58, 0x3b));
  warm.setColor(QPalette::HighlightedText, Qt::white);
  warm.setColor(QPalette::Disabled, QPalette::Highlight, dark ? QColor(0x4a, 0x42, 0x3a) : QColor(0xd8, 0xcf, 0xc3));
  warm.setColor(QPalette::Disabled, QPalette::HighlightedText, warm.color(QPalette::Active, QPalette::WindowText));
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
  SetBackgrounds(warm, dark);
  SetTexts(warm, dark);
  SetSelection(warm, dark);
  warm.setColor(QPalette::PlaceholderText, SecondaryText(warm));
  warm.setColor(QPalette::Link, SiennaText(warm));
  warm.setColor(QPalette::LinkVisited, SecondaryText(warm));
  return warm;
}

QColor SecondaryText(const QPalette& palette) {
  return Readable(IsDark(palette) ? QColor(0xb9, 0xb0, 0xa5) : QColor(0x5a, 0x53, 0x4b), palette);
}

QColor SiennaText(const QPalette& palette) {
  return Readable(IsDark(palette) ? QColor(0xf0, 0xa0, 0x70) : QColor(0xa0, 0x52, 0x2d), palette);
}

QColor OutlineColour(const QPalette& palette) {
  return Mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.28F);
}

}  // namespace tonalith::paint
