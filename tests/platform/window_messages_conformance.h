// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Tests for every implementation of WindowMessages. The test file of an implementation provides a host with the windows
// and a function that runs the event loop once, and instantiates the suite:
//   INSTANTIATE_TYPED_TEST_SUITE_P(Name, WindowMessagesConformance, Host);

#pragma once

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "platform/window_messages.h"

namespace tonalith::testing {

/// Host: default constructible, Windows() returns the WindowMessages, RunEvents() handles all pending events.
template <class Host>
class WindowMessagesConformance : public ::testing::Test {
 protected:
  platform::WindowMessages& Windows() { return host_.Windows(); }

  /// A window whose procedure appends "<message>:<wParam>:<lParam> " to received_.
  platform::WindowHandle ListeningWindow() {
    const platform::WindowHandle window = Windows().CreateWindow({.className = "STATIC", .caption = "listening"});
    previous_ = Windows().SetWindowProcedure(
        window, [this](platform::WindowHandle, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
          received_ += std::to_string(message) + ":" + std::to_string(wParam) + ":" + std::to_string(lParam) + " ";
          return std::intptr_t{1};
        });
    return window;
  }

  Host host_;
  std::string received_;
  platform::WindowProcedure previous_;
};

TYPED_TEST_SUITE_P(WindowMessagesConformance);

TYPED_TEST_P(WindowMessagesConformance, GivesEachWindowADifferentHandle) {
  const auto first = this->Windows().CreateWindow({});
  const auto second = this->Windows().CreateWindow({});
  EXPECT_NE(first, platform::kNoWindow);
  EXPECT_NE(second, platform::kNoWindow);
  EXPECT_NE(first, second);
}

TYPED_TEST_P(WindowMessagesConformance, HandlesMessagesInOrderAndNotWithinThePost) {
  const auto window = this->ListeningWindow();
  this->Windows().PostMessage(window, 1, 2, -3);
  this->Windows().PostMessage(window, 4, 5, 6);
  EXPECT_EQ(this->received_, "");
  this->host_.RunEvents();
  EXPECT_EQ(this->received_, "1:2:-3 4:5:6 ");
}

TYPED_TEST_P(WindowMessagesConformance, ReturnsThePreviousProcedure) {
  const auto window = this->ListeningWindow();
  ASSERT_TRUE(this->previous_) << "a new window has the procedure of its class";
  this->Windows().CallWindowProcedure(this->previous_, window, 1, 2, 3);
  const auto ours = this->Windows().SetWindowProcedure(window, this->previous_);
  EXPECT_EQ(this->Windows().CallWindowProcedure(ours, window, 1, 2, 3), 1);
  EXPECT_EQ(this->received_, "1:2:3 ");
  this->Windows().PostMessage(window, 9, 9, 9);
  this->host_.RunEvents();
  EXPECT_EQ(this->received_, "1:2:3 ") << "the class's procedure is set again";
}

TYPED_TEST_P(WindowMessagesConformance, DropsTheMessagesOfADestroyedWindow) {
  const auto window = this->ListeningWindow();
  this->Windows().PostMessage(window, 1, 2, 3);
  this->Windows().DestroyWindow(window);
  this->Windows().PostMessage(window, 4, 5, 6);
  this->host_.RunEvents();
  EXPECT_EQ(this->received_, "");
}

TYPED_TEST_P(WindowMessagesConformance, IgnoresAnInvalidHandle) {
  const auto window = this->ListeningWindow();
  this->Windows().DestroyWindow(window);
  for (const platform::WindowHandle invalid : {window, platform::kNoWindow, platform::WindowHandle{4711}}) {
    this->Windows().PostMessage(invalid, 1, 2, 3);
    EXPECT_FALSE(this->Windows().SetWindowProcedure(invalid, {}));
    this->Windows().DestroyWindow(invalid);
    EXPECT_EQ(this->Windows().CallWindowProcedure({}, invalid, 1, 2, 3), 0);
  }
  this->host_.RunEvents();
}

TYPED_TEST_P(WindowMessagesConformance, AllowsAProcedureToDestroyItsWindow) {
  const auto window = this->Windows().CreateWindow({});
  this->Windows().SetWindowProcedure(window, [this](platform::WindowHandle self, auto, auto, auto) {
    this->received_ += "once ";
    this->Windows().DestroyWindow(self);
    return std::intptr_t{0};
  });
  this->Windows().PostMessage(window, 1, 0, 0);
  this->Windows().PostMessage(window, 1, 0, 0);
  this->host_.RunEvents();
  this->host_.RunEvents();
  EXPECT_EQ(this->received_, "once ");
}

REGISTER_TYPED_TEST_SUITE_P(WindowMessagesConformance, GivesEachWindowADifferentHandle,
                            HandlesMessagesInOrderAndNotWithinThePost, ReturnsThePreviousProcedure,
                            DropsTheMessagesOfADestroyedWindow, IgnoresAnInvalidHandle,
                            AllowsAProcedureToDestroyItsWindow);

}  // namespace tonalith::testing
