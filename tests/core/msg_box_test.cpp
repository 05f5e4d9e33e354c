// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/msg_box.h"

#include <gtest/gtest.h>

#include <array>

namespace tonalith::core {
namespace {

template <class Enumeration>
constexpr int Number(Enumeration value) {
  return static_cast<int>(value);
}

TEST(MsgBoxNumbers, ButtonSetsAreTheLowestFourBits) {
  EXPECT_EQ(Number(MsgBoxStyle::kOkOnly), 0);
  EXPECT_EQ(Number(MsgBoxStyle::kOkCancel), 1);
  EXPECT_EQ(Number(MsgBoxStyle::kYesNo), 4);
}

TEST(MsgBoxNumbers, IconsAreMultiplesOfSixteen) {
  EXPECT_EQ(Number(MsgBoxStyle::kCritical), 16);
  EXPECT_EQ(Number(MsgBoxStyle::kQuestion), 32);
  EXPECT_EQ(Number(MsgBoxStyle::kExclamation), 48);
  EXPECT_EQ(Number(MsgBoxStyle::kInformation), 64);
  EXPECT_EQ(Number(MsgBoxStyle::kDefaultButton2), 256);
}

TEST(MsgBoxNumbers, StylesAddUp) {
  const std::array icons = {MsgBoxStyle::kCritical, MsgBoxStyle::kQuestion, MsgBoxStyle::kExclamation,
                            MsgBoxStyle::kInformation};
  for (const MsgBoxStyle buttons : {MsgBoxStyle::kOkOnly, MsgBoxStyle::kOkCancel, MsgBoxStyle::kYesNo}) {
    for (const MsgBoxStyle icon : icons) {
      EXPECT_EQ(Number(buttons | icon | MsgBoxStyle::kDefaultButton2), Number(buttons) + Number(icon) + 256);
    }
  }
}

TEST(MsgBoxNumbers, AnswersAreTheNumbersOfTheirButtons) {
  EXPECT_EQ(Number(MsgBoxAnswer::kOk), 1);
  EXPECT_EQ(Number(MsgBoxAnswer::kCancel), 2);
  EXPECT_EQ(Number(MsgBoxAnswer::kYes), 6);
  EXPECT_EQ(Number(MsgBoxAnswer::kNo), 7);
}

}  // namespace
}  // namespace tonalith::core
