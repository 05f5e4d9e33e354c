// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/shown_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tonalith::windows {
namespace {

std::string Shown(const std::string& text, std::size_t longest) { return ShownText(text, longest).toStdString(); }

TEST(ShownText, DoesNotChangeAShortText) {
  EXPECT_EQ(Shown("", 5), "");
  EXPECT_EQ(Shown("Major", 5), "Major");
  EXPECT_EQ(Shown("\xE2\x99\xAF\xE2\x99\xAF", 2), "\xE2\x99\xAF\xE2\x99\xAF");
}

TEST(ShownText, CutsALongTextBetweenCharactersAndAddsAnEllipsis) {
  EXPECT_EQ(Shown("Majors", 5), "Majo\xE2\x80\xA6");
  EXPECT_EQ(Shown("\xE2\x99\xAF\xE2\x99\xAF\xE2\x99\xAF", 2), "\xE2\x99\xAF\xE2\x80\xA6");
  EXPECT_EQ(Shown("\xF0\x9D\x84\x9E\xF0\x9D\x84\x9E\xF0\x9D\x84\x9E", 2), "\xF0\x9D\x84\x9E\xE2\x80\xA6");
}

TEST(ShownText, AcceptsMegabytesAndInvalidUtf8) {
  EXPECT_EQ(ShownText(std::string(16U << 20U, 'm'), 255).size(), 255);
  EXPECT_EQ(ShownText(std::string(1000, '\xFF'), 10).size(), 10);
}

}  // namespace
}  // namespace tonalith::windows
