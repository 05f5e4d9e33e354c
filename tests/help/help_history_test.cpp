// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_history.h"

#include <gtest/gtest.h>

namespace tonalith::help {
namespace {

/// Each letter visits that page, < and > go back and forward. Returns the current page.
std::string Navigate(HelpHistory& history, const std::string& steps) {
  for (const char step : steps) {
    if (step == '<') {
      history.GoBack();
    } else if (step == '>') {
      history.GoForward();
    } else {
      history.Visit({std::string(1, step), {}});
    }
  }
  return history.Current().target.page;
}

std::string Navigate(const std::string& steps) {
  HelpHistory history;
  return Navigate(history, steps);
}

TEST(HelpHistory, GoesBackAndForward) {
  EXPECT_EQ(Navigate("abc"), "c");
  EXPECT_EQ(Navigate("abc<"), "b");
  EXPECT_EQ(Navigate("abc<<>"), "b");
}

TEST(HelpHistory, StaysAtItsEnds) {
  EXPECT_EQ(Navigate("ab<<<<"), "a");
  EXPECT_EQ(Navigate("ab>>"), "b");
}

TEST(HelpHistory, VisitRemovesForwardEntries) {
  EXPECT_EQ(Navigate("abc<<x>"), "x");
  EXPECT_EQ(Navigate("abc<<x<"), "a");
}

TEST(HelpHistory, VisitOfTheCurrentTargetDoesNothing) {
  EXPECT_EQ(Navigate("abbb<"), "a");
  HelpHistory history;
  Navigate(history, "abc<");
  Navigate(history, "b");
  EXPECT_TRUE(history.CanGoForward());
}

TEST(HelpHistory, StoresTheScrollPosition) {
  HelpHistory history;
  Navigate(history, "a");
  EXPECT_EQ(history.Current().scroll, -1);
  history.Leave(120);
  Navigate(history, "b<");
  EXPECT_EQ(history.Current().scroll, 120);
}

TEST(HelpHistory, CanBeCleared) {
  HelpHistory history;
  Navigate(history, "abc");
  history.Forget();
  EXPECT_TRUE(history.IsEmpty());
  EXPECT_FALSE(history.CanGoBack());
  EXPECT_FALSE(history.CanGoForward());
}

}  // namespace
}  // namespace tonalith::help
