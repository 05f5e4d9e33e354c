// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What every implementation of the notice windows has to do. An implementation's test file provides a host with the
// windows and a function that lets the event loop run once, and instantiates the suite with it:
//   INSTANTIATE_TYPED_TEST_SUITE_P(Name, WindowMessagesConformance, Host);

#pragma once

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "platform/window_messages.h"

namespace tonalith::testing {

/// Host: default constructible, Windows() gives the WindowMessages, RunEvents() handles everything that is pending.
template <class Host>
class WindowMessagesConformance : public ::testing::Test {
 protected:
  platform::WindowMessages& Windows() { return host_.Windows(); }

  /// A window whose procedure writes "<message>:<wParam>:<lParam> " into heard_.
  platform::WindowHandle ListeningWindow() {
    const platform::WindowHandle window = Windows().CreateWindow({.className = "STATIC", .caption = "listening"});
    previous_ = Windows().SetWindowProcedure(
        window, [this](platform::WindowHandle, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
          heard_ += std::to_string(message) + ":" + std::to_string(wParam) + ":" + std::to_string(lParam) + " ";
          return std::intptr_t{1};
        });
    return window;
  }

  Host host_;
  std::string heard_;
  platform::WindowProcedure previous_;
};

TYPED_TEST_SUITE_P(WindowMessagesConformance);

TYPED_TEST_P(WindowMessagesConformance, GivesEachWindowAHandleOfItsOwn) {
  const auto first = this->Windows().CreateWindow({});
  const auto second = this->Windows().CreateWindow({});
  EXPECT_NE(first, platform::kNoWindow);
  EXPECT_NE(second, platform::kNoWindow);
  EXPECT_NE(first, second);
}

TYPED_TEST_P(WindowMessagesConformance, HandlesNoticesInTheOrderOfPostingAndNotFromWithinThePosting) {
  const auto window = this->ListeningWindow();
  this->Windows().PostMessage(window, 1, 2, -3);
  this->Windows().PostMessage(window, 4, 5, 6);
  EXPECT_EQ(this->heard_, "");
  this->host_.RunEvents();
  EXPECT_EQ(this->heard_, "1:2:-3 4:5:6 ");
}

TYPED_TEST_P(WindowMessagesConformance, GivesThePreviousProcedureBack) {
  const auto window = this->ListeningWindow();
  ASSERT_TRUE(this->previous_) << "a new window has the procedure of its class";
  this->Windows().CallWindowProcedure(this->previous_, window, 1, 2, 3);
  const auto ours = this->Windows().SetWindowProcedure(window, this->previous_);
  EXPECT_EQ(this->Windows().CallWindowProcedure(ours, window, 1, 2, 3), 1);
  EXPECT_EQ(this->heard_, "1:2:3 ");
  this->Windows().PostMessage(window, 9, 9, 9);
  this->host_.RunEvents();
  EXPECT_EQ(this->heard_, "1:2:3 ") << "the class's procedure is back in its place";
}

TYPED_TEST_P(WindowMessagesConformance, DropsTheNoticesOfADestroyedWindow) {
  const auto window = this->ListeningWindow();
  this->Windows().PostMessage(window, 1, 2, 3);
  this->Windows().DestroyWindow(window);
  this->Windows().PostMessage(window, 4, 5, 6);
  this->host_.RunEvents();
  EXPECT_EQ(this->heard_, "");
}

TYPED_TEST_P(WindowMessagesConformance, TakesAHandleOfNoWindowWithoutHarm) {
  const auto window = this->ListeningWindow();
  this->Windows().DestroyWindow(window);
  for (const platform::WindowHandle gone : {window, platform::kNoWindow, platform::WindowHandle{4711}}) {
    this->Windows().PostMessage(gone, 1, 2, 3);
    EXPECT_FALSE(this->Windows().SetWindowProcedure(gone, {}));
    this->Windows().DestroyWindow(gone);
    EXPECT_EQ(this->Windows().CallWindowProcedure({}, gone, 1, 2, 3), 0);
  }
  this->host_.RunEvents();
}

TYPED_TEST_P(WindowMessagesConformance, LetsAProcedureDestroyItsOwnWindow) {
  const auto window = this->Windows().CreateWindow({});
  this->Windows().SetWindowProcedure(window, [this](platform::WindowHandle self, auto, auto, auto) {
    this->heard_ += "once ";
    this->Windows().DestroyWindow(self);
    return std::intptr_t{0};
  });
  this->Windows().PostMessage(window, 1, 0, 0);
  this->Windows().PostMessage(window, 1, 0, 0);
  this->host_.RunEvents();
  this->host_.RunEvents();
  EXPECT_EQ(this->heard_, "once ");
}

REGISTER_TYPED_TEST_SUITE_P(WindowMessagesConformance, GivesEachWindowAHandleOfItsOwn,
                            HandlesNoticesInTheOrderOfPostingAndNotFromWithinThePosting, GivesThePreviousProcedureBack,
                            DropsTheNoticesOfADestroyedWindow, TakesAHandleOfNoWindowWithoutHarm,
                            LetsAProcedureDestroyItsOwnWindow);

}  // namespace tonalith::testing
