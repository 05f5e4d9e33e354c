// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/theme.h"

#include <gtest/gtest.h>

#include "paint/colours.h"

namespace tonalith::paint {
namespace {

QPalette Light() {
  QPalette palette(QColor(0xef, 0xef, 0xef));
  palette.setColor(QPalette::WindowText, QColor(0x20, 0x20, 0x20));
  return palette;
}

QPalette Dark() {
  QPalette palette(QColor(0x30, 0x30, 0x34));
  palette.setColor(QPalette::WindowText, QColor(0xe0, 0xe0, 0xe0));
  return palette;
}

TEST(Theme, LightSystemGetsAPaperBackgroundAndDarkOneADarkBackground) {
  EXPECT_EQ(WarmPalette(Light()).color(QPalette::Window), QColor(0xf6, 0xf4, 0xf0));
  EXPECT_FALSE(IsDark(WarmPalette(Light())));
  EXPECT_TRUE(IsDark(WarmPalette(Dark())));
}

TEST(Theme, EveryTextIsReadableOnItsBackground) {
  for (const QPalette& system : {Light(), Dark()}) {
    const QPalette warm = WarmPalette(system);
    const QColor ground = warm.color(QPalette::Window);
    EXPECT_GE(ContrastRatio(SecondaryText(warm), ground), 4.5);
    EXPECT_GE(ContrastRatio(SiennaText(warm), ground), 4.5);
    EXPECT_GE(ContrastRatio(warm.color(QPalette::WindowText), ground), 7.0);
    EXPECT_GE(ContrastRatio(warm.color(QPalette::ButtonText), warm.color(QPalette::Button)), 7.0);
    EXPECT_GE(ContrastRatio(warm.color(QPalette::Text), warm.color(QPalette::Base)), 7.0);
    EXPECT_GE(ContrastRatio(warm.color(QPalette::HighlightedText), warm.color(QPalette::Highlight)), 4.5);
    EXPECT_GE(ContrastRatio(warm.color(QPalette::ToolTipText), warm.color(QPalette::ToolTipBase)), 7.0);
    EXPECT_GE(ContrastRatio(warm.color(QPalette::PlaceholderText), warm.color(QPalette::Base)), 4.5);
    EXPECT_GE(ContrastRatio(warm.color(QPalette::Link), warm.color(QPalette::Base)), 4.5);
    EXPECT_GE(ContrastRatio(warm.color(QPalette::Disabled, QPalette::ButtonText), warm.color(QPalette::Button)), 3.0);
  }
}

TEST(Theme, TextIsReadableOnAMediumBackground) {
  QPalette grey(QColor(0x84, 0x84, 0x84));
  grey.setColor(QPalette::Window, QColor(0x84, 0x84, 0x84));
  grey.setColor(QPalette::WindowText, Qt::black);
  EXPECT_GE(ContrastRatio(SecondaryText(grey), grey.color(QPalette::Window)), 4.5);
  EXPECT_GE(ContrastRatio(SiennaText(grey), grey.color(QPalette::Window)), 4.5);
}

TEST(Theme, InactiveWindowLooksTheSame) {
  for (const QPalette& system : {Light(), Dark()}) {
    const QPalette warm = WarmPalette(system);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button, QPalette::WindowText, QPalette::Text,
                            QPalette::ButtonText, QPalette::Highlight, QPalette::HighlightedText}) {
      EXPECT_EQ(warm.color(QPalette::Inactive, role), warm.color(QPalette::Active, role)) << role;
    }
  }
}

TEST(Theme, EveryBackgroundAndSelectionIsWarm) {
  for (const QPalette& system : {Light(), Dark()}) {
    const QPalette warm = WarmPalette(system);
    for (const auto role : {QPalette::Window, QPalette::AlternateBase, QPalette::ToolTipBase, QPalette::Highlight,
                            QPalette::Light, QPalette::Mid, QPalette::Dark}) {
      const QColor colour = warm.color(role);
      EXPECT_GE(colour.red(), colour.green()) << role;
      EXPECT_GT(colour.red(), colour.blue()) << role;
    }
  }
}

/// The colours of a palette in the roles that windows paint with.
std::string ColoursOf(const QPalette& palette) {
  std::string colours;
  for (const auto role : {QPalette::Window, QPalette::Base, QPalette::AlternateBase, QPalette::Button,
                          QPalette::ToolTipBase, QPalette::WindowText, QPalette::ToolTipText, QPalette::Highlight,
                          QPalette::HighlightedText, QPalette::Light, QPalette::Midlight, QPalette::Mid, QPalette::Dark,
                          QPalette::Shadow, QPalette::PlaceholderText, QPalette::Link}) {
    colours += palette.color(role).name().toStdString() + " ";
  }
  for (const auto role : {QPalette::ButtonText, QPalette::Highlight, QPalette::HighlightedText}) {
    colours += palette.color(QPalette::Disabled, role).name().toStdString() + " ";
  }
  return colours + OutlineColour(palette).name().toStdString();
}

TEST(Theme, HasItsColours) {
  EXPECT_EQ(ColoursOf(WarmPalette(Light())),
            "#f6f4f0 #ffffff #faf8f4 #ffffff #fffaee #1f1b17 #1f1b17 #84583b #ffffff #fdfdfc #faf8f6 #b9b7b4 #999795 "
            "#4a4948 #5a534b #a0522d #8b847b #d8cfc3 #1f1b17 #bab7b3");
  EXPECT_EQ(ColoursOf(WarmPalette(Dark())),
            "#26221f #1d1a18 #2b2723 #36312c #3d3731 #f0ebe4 #f0ebe4 #805c43 #ffffff #494543 #3c3835 #1b1816 #151311 "
            "#0b0a09 #b9b0a5 #f0a070 #9a9288 #4a423a #f0ebe4 #5f5a56");
}

TEST(Theme, WarmPaletteIsUnchanged) {
  for (const QPalette& system : {Light(), Dark()}) EXPECT_EQ(WarmPalette(WarmPalette(system)), WarmPalette(system));
}

TEST(Theme, HighContrastPaletteIsUnchanged) {
  QPalette strong(Qt::black);
  strong.setColor(QPalette::WindowText, Qt::white);
  EXPECT_EQ(WarmPalette(strong), strong);
}

TEST(Theme, OnlyStrongContrastKeepsTheSystemsColours) {
  QPalette palette(Qt::white);
  palette.setColor(QPalette::WindowText, Qt::black);
  palette.setColor(QPalette::Window, QColor(0xfa, 0xfa, 0xfa));
  EXPECT_EQ(WarmPalette(palette), palette) << "a contrast of 20.1";
  palette.setColor(QPalette::Window, QColor(0xf8, 0xf8, 0xf8));
  EXPECT_NE(WarmPalette(palette), palette) << "a contrast of 19.8";
}

TEST(Theme, IsDarkWhereTheTextIsLighterThanTheWindow) {
  const auto isDark = [](const QColor& window, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    return IsDark(palette);
  };
  EXPECT_TRUE(isDark(QColor(100, 100, 100), QColor(101, 101, 101)));
  EXPECT_FALSE(isDark(QColor(100, 100, 100), QColor(100, 100, 100)));
  EXPECT_FALSE(isDark(QColor(101, 101, 101), QColor(100, 100, 100)));
}

TEST(Theme, ColoursOfTextMoveTowardsTheTextOnlyAsFarAsNeeded) {
  QPalette grey;
  grey.setColor(QPalette::WindowText, Qt::black);
  std::string texts;
  for (const int lightness : {0xff, 0xc0, 0xa0, 0x84}) {
    grey.setColor(QPalette::Window, QColor(lightness, lightness, lightness));
    texts += SecondaryText(grey).name().toStdString() + " " + SiennaText(grey).name().toStdString() + "\n";
  }
  EXPECT_EQ(texts,
            "#5a534b #a0522d\n"
            "#48423c #66341d\n"
            "#3a3530 #522a17\n"
            "#181614 #2a150c\n");
}

TEST(Theme, VisitedLinksAreSecondaryText) {
  const QPalette warm = WarmPalette(Light());
  EXPECT_EQ(warm.color(QPalette::LinkVisited), SecondaryText(warm));
}

TEST(Theme, WhiteIsReadableOnTheAccent) { EXPECT_GE(ContrastRatio(Qt::white, QColor(kAccent)), 4.5); }

}  // namespace
}  // namespace tonalith::paint
