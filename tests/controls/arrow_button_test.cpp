// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How the arrows and the panel of a data control are painted in each of their states.

#include "controls/arrow_button.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <algorithm>
#include <vector>

#include "controls/data_control.h"
#include "paint/theme.h"
#include "support/button_look.h"
#include "support/recording_msg_box.h"

namespace tonalith::controls {
namespace {

class ArrowButtonLook : public tests::ButtonLook {
 protected:
  using ButtonLook::Look;
  std::string Look(ArrowButton::Kind kind) {
    ArrowButton button(QStringLiteral("arrow"), QStringLiteral("Arrow"), kind, &window_);
    return Look(button);
  }
};

TEST_F(ArrowButtonLook, PointsInItsDirectionWithABarAtTheEnd) {
  EXPECT_EQ(Look(ArrowButton::Kind::kFirst),
            "path 24.5,12 16,17 24.5,22 at 16,12 8.5x10 fill #112233 smooth\n"
            "rect at 13.5,12 2x10 fill #112233 smooth\n");
  EXPECT_EQ(Look(ArrowButton::Kind::kPrevious), "path 22.5,12 14,17 22.5,22 at 14,12 8.5x10 fill #112233 smooth\n");
  EXPECT_EQ(Look(ArrowButton::Kind::kNext), "path 15.5,12 24,17 15.5,22 at 15.5,12 8.5x10 fill #112233 smooth\n");
  EXPECT_EQ(Look(ArrowButton::Kind::kLast),
            "path 13.5,12 22,17 13.5,22 at 13.5,12 8.5x10 fill #112233 smooth\n"
            "rect at 22.5,12 2x10 fill #112233 smooth\n");
}

TEST_F(ArrowButtonLook, HasAWashWhilePressedAndALighterOneUnderThePointer) {
  ArrowButton button(QStringLiteral("arrow"), QStringLiteral("Arrow"), ArrowButton::Kind::kNext, &window_);
  button.setDown(true);
  EXPECT_EQ(Look(button),
            "round 4 at 3,3 32x28 fill #29112233 smooth\n"
            "path 15.5,12 24,17 15.5,22 at 15.5,12 8.5x10 fill #112233 smooth\n");
  button.setDown(false);
  button.setAttribute(Qt::WA_UnderMouse);
  EXPECT_EQ(Look(button),
            "round 4 at 3,3 32x28 fill #12112233 smooth\n"
            "path 15.5,12 24,17 15.5,22 at 15.5,12 8.5x10 fill #112233 smooth\n");
}

TEST_F(ArrowButtonLook, IsGreyWithoutAWashWhileDisabled) {
  ArrowButton button(QStringLiteral("arrow"), QStringLiteral("Arrow"), ArrowButton::Kind::kNext, &window_);
  button.setAttribute(Qt::WA_UnderMouse);
  button.setDown(true);
  button.setEnabled(false);
  EXPECT_EQ(Look(button), "path 15.5,12 24,17 15.5,22 at 15.5,12 8.5x10 fill #aabbcc smooth\n");
}

TEST_F(ArrowButtonLook, HasARingForKeyboardFocusOnly) {
  ArrowButton button(QStringLiteral("arrow"), QStringLiteral("Arrow"), ArrowButton::Kind::kNext, &window_);
  button.move(500, 300);
  button.show();
  const std::string plain = Look(button);
  button.setFocus(Qt::MouseFocusReason);
  window_.setAttribute(Qt::WA_KeyboardFocusChange, false);
  ASSERT_TRUE(button.hasFocus());
  EXPECT_EQ(Look(button), plain);
  window_.setAttribute(Qt::WA_KeyboardFocusChange, true);
  EXPECT_EQ(Look(button),
            "round 4 at 4,4 30x26 line #d0440e 2 smooth\n"
            "path 15.5,12 24,17 15.5,22 at 15.5,12 8.5x10 fill #112233 smooth\n");
}

TEST_F(ArrowButtonLook, RepeatsWhileHeldExceptForFirstAndLast) {
  const auto repeats = [this](ArrowButton::Kind kind) {
    return ArrowButton(QStringLiteral("arrow"), QStringLiteral("Arrow"), kind, &window_).autoRepeat();
  };
  const ArrowButton next(QStringLiteral("arrow"), QStringLiteral("Arrow"), ArrowButton::Kind::kNext, &window_);
  EXPECT_EQ(next.autoRepeatDelay(), 400);
  EXPECT_EQ(next.autoRepeatInterval(), 60);
  EXPECT_TRUE(repeats(ArrowButton::Kind::kPrevious));
  EXPECT_TRUE(repeats(ArrowButton::Kind::kNext));
  EXPECT_FALSE(repeats(ArrowButton::Kind::kFirst));
  EXPECT_FALSE(repeats(ArrowButton::Kind::kLast));
}

TEST_F(ArrowButtonLook, DataControlIsAPanelWithItsCaptionBetweenTheArrows) {
  tests::RecordingMsgBox box;
  DataControl control(QStringLiteral("Data1"), QStringLiteral("Select Scales"), box, &window_);
  control.resize(400, 40);
  control.show();
  QApplication::processEvents();
  const tests::Drawing panel = tests::RecordPainting(control);
  EXPECT_EQ(panel.FilledWith(control.palette().color(QPalette::Button)).size(), 1U);
  EXPECT_EQ(panel.FilledWith(paint::OutlineColour(control.palette())).size(), 1U);
  const tests::Drawing all = tests::RecordPainting(control, true);
  const tests::Drawn caption = all.Text(QStringLiteral("Select Scales"));
  EXPECT_NEAR(caption.box.center().x(), 200, 1);
  std::vector<double> arrows;
  for (const tests::Drawn& arrow : all.FilledWith(QColor(0x11, 0x22, 0x33))) {
    if (arrow.form != "rect") arrows.push_back(arrow.box.center().x());
  }
  ASSERT_EQ(arrows.size(), 4U);
  EXPECT_TRUE(std::is_sorted(arrows.begin(), arrows.end()));
  EXPECT_LT(arrows[1], caption.box.left());
  EXPECT_GT(arrows[2], caption.box.right());
}

}  // namespace
}  // namespace tonalith::controls
