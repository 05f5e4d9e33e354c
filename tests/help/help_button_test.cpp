// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How the buttons of the help window are painted in each of their states.

#include "help/help_button.h"

#include <gtest/gtest.h>

#include <QKeySequence>

#include "support/button_look.h"

namespace tonalith::help {
namespace {

using Icon = HelpButton::Icon;

class HelpButtonLook : public tests::ButtonLook {
 protected:
  using ButtonLook::Look;
  std::string Look(Icon icon) {
    HelpButton button(icon, QStringLiteral("Name"), {}, &window_);
    return Look(button);
  }
};

TEST_F(HelpButtonLook, EveryIconHasItsOwnShape) {
  EXPECT_EQ(Look(Icon::kBack),
            "path 24,17 12.5,17 at 12.5,17 11.5x0 line #112233 1.7 smooth\n"
            "path 17.5,12 12.5,17 17.5,22 at 12.5,12 5x10 line #112233 1.7 smooth\n");
  EXPECT_EQ(Look(Icon::kForward),
            "path 12,17 23.5,17 at 12,17 11.5x0 line #112233 1.7 smooth\n"
            "path 18.5,22 23.5,17 18.5,12 at 18.5,12 5x10 line #112233 1.7 smooth\n");
  EXPECT_EQ(Look(Icon::kHome),
            "path 11,17.5 18,11 25,17.5 at 11,11 14x6.5 line #112233 1.7 smooth\n"
            "path 13.5,16 13.5,23 22.5,23 22.5,16 at 13.5,16 9x7 line #112233 1.7 smooth\n");
  EXPECT_EQ(Look(Icon::kFind),
            "ellipse at 12,11 9x9 line #112233 1.7 smooth\n"
            "path 20,19 24,23 at 20,19 4x4 line #112233 1.7 smooth\n");
  EXPECT_EQ(Look(Icon::kSmaller),
            "path 11.76,22.5 15,14.85 18.24,22.5 at 11.76,14.85 6.48x7.65 line #112233 1.7 smooth\n"
            "path 13.06,19.71 16.94,19.71 at 13.06,19.71 3.89x0 line #112233 1.7 smooth\n"
            "path 21.5,14 26,14 at 21.5,14 4.5x0 line #112233 1.7 smooth\n");
  EXPECT_EQ(Look(Icon::kLarger),
            "path 10.32,22.5 15,11.45 19.68,22.5 at 10.32,11.45 9.36x11.05 line #112233 1.7 smooth\n"
            "path 12.19,18.47 17.81,18.47 at 12.19,18.47 5.62x0 line #112233 1.7 smooth\n"
            "path 21.5,14 26,14 at 21.5,14 4.5x0 line #112233 1.7 smooth\n"
            "path 23.75,11.75 23.75,16.25 at 23.75,11.75 0x4.5 line #112233 1.7 smooth\n");
  EXPECT_EQ(Look(Icon::kUp), "path 13,19.5 18,14.5 23,19.5 at 13,14.5 10x5 line #112233 1.7 smooth\n");
  EXPECT_EQ(Look(Icon::kDown), "path 23,14.5 18,19.5 13,14.5 at 13,14.5 10x5 line #112233 1.7 smooth\n");
  EXPECT_EQ(Look(Icon::kClose),
            "path 13.5,12.5 22.5,21.5 at 13.5,12.5 9x9 line #112233 1.7 smooth\n"
            "path 13.5,21.5 22.5,12.5 at 13.5,12.5 9x9 line #112233 1.7 smooth\n");
}

TEST_F(HelpButtonLook, HasAWashWhilePressedAndALighterOneUnderThePointer) {
  HelpButton button(Icon::kUp, QStringLiteral("Name"), {}, &window_);
  button.setDown(true);
  EXPECT_EQ(Look(button),
            "round 5 at 2,2 32x30 fill #29112233 smooth\n"
            "path 13,19.5 18,14.5 23,19.5 at 13,14.5 10x5 line #112233 1.7 smooth\n");
  button.setDown(false);
  button.setAttribute(Qt::WA_UnderMouse);
  EXPECT_EQ(Look(button),
            "round 5 at 2,2 32x30 fill #12112233 smooth\n"
            "path 13,19.5 18,14.5 23,19.5 at 13,14.5 10x5 line #112233 1.7 smooth\n");
}

TEST_F(HelpButtonLook, IsPaleWithoutAWashWhileDisabled) {
  HelpButton button(Icon::kUp, QStringLiteral("Name"), {}, &window_);
  button.setAttribute(Qt::WA_UnderMouse);
  button.setEnabled(false);
  EXPECT_EQ(Look(button), "path 13,19.5 18,14.5 23,19.5 at 13,14.5 10x5 line #73aabbcc 1.7 smooth\n");
}

TEST_F(HelpButtonLook, HasARingWhileFocused) {
  HelpButton button(Icon::kUp, QStringLiteral("Name"), {}, &window_);
  button.setGeometry(500, 300, 36, 34);
  button.show();
  button.setFocus();
  ASSERT_TRUE(button.hasFocus());
  EXPECT_EQ(Look(button),
            "round 5 at 3,3 30x28 line #d0440e 2 smooth\n"
            "path 13,19.5 18,14.5 23,19.5 at 13,14.5 10x5 line #112233 1.7 smooth\n");
}

TEST_F(HelpButtonLook, ToolTipHasTheShortcutWhereThereIsOne) {
  const HelpButton with(Icon::kBack, QStringLiteral("Back"), QKeySequence(Qt::ALT | Qt::Key_Left), &window_);
  EXPECT_EQ(with.toolTip().toStdString(), "Back (Alt+Left)");
  EXPECT_EQ(with.accessibleName().toStdString(), "Back");
  const HelpButton without(Icon::kBack, QStringLiteral("Back"), {}, &window_);
  EXPECT_EQ(without.toolTip().toStdString(), "Back");
}

}  // namespace
}  // namespace tonalith::help
