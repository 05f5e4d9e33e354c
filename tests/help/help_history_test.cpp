// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_history.h"

#include <gtest/gtest.h>

namespace tonalith::help {
namespace {

/// Takes steps: a letter visits that page, < and > go back and forward. Gives the current page.
std::string Walk(HelpHistory& history, const std::string& steps) {
  for (const char step : steps) {
    if (step == '<') {
      history.GoBack();
    } else if (step == '>') {
      history.GoForward();
    } else {
      history.Visit({std::string(1, step), {}});
    }
  }
  return history.Current().place.page;
}

std::string Walk(const std::string& steps) {
  HelpHistory history;
  return Walk(history, steps);
}

TEST(HelpHistory, GoesBackAndForward) {
  EXPECT_EQ(Walk("abc"), "c");
  EXPECT_EQ(Walk("abc<"), "b");
  EXPECT_EQ(Walk("abc<<>"), "b");
}

TEST(HelpHistory, StaysAtItsEnds) {
  EXPECT_EQ(Walk("ab<<<<"), "a");
  EXPECT_EQ(Walk("ab>>"), "b");
}

TEST(HelpHistory, VisitForgetsWhatLayAhead) {
  EXPECT_EQ(Walk("abc<<x>"), "x");
  EXPECT_EQ(Walk("abc<<x<"), "a");
}

TEST(HelpHistory, VisitOfTheCurrentPlaceIsNoStep) {
  EXPECT_EQ(Walk("abbb<"), "a");
  HelpHistory history;
  Walk(history, "abc<");
  Walk(history, "b");
  EXPECT_TRUE(history.CanGoForward());
}

TEST(HelpHistory, KeepsHowFarAStopWasScrolled) {
  HelpHistory history;
  Walk(history, "a");
  EXPECT_EQ(history.Current().scroll, -1);
  history.Leave(120);
  Walk(history, "b<");
  EXPECT_EQ(history.Current().scroll, 120);
}

TEST(HelpHistory, CanBeForgotten) {
  HelpHistory history;
  Walk(history, "abc");
  history.Forget();
  EXPECT_TRUE(history.IsEmpty());
  EXPECT_FALSE(history.CanGoBack());
  EXPECT_FALSE(history.CanGoForward());
}

}  // namespace
}  // namespace tonalith::help
