// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/paths.h"

#include <gtest/gtest.h>

namespace tonalith::core {
namespace {

TEST(NetworkPath, OnlyTheFirstTwoCharactersMakeAShare) {
  EXPECT_TRUE(IsNetworkPath("//server/share"));
  EXPECT_TRUE(IsNetworkPath("\\\\server\\share"));
  EXPECT_TRUE(IsNetworkPath("/\\server"));
  EXPECT_TRUE(IsNetworkPath("\\/server"));
  EXPECT_FALSE(IsNetworkPath("/home//share"));
  EXPECT_FALSE(IsNetworkPath("Z:\\\\share"));
  EXPECT_FALSE(IsNetworkPath("/"));
  EXPECT_FALSE(IsNetworkPath(""));
}

}  // namespace
}  // namespace tonalith::core
