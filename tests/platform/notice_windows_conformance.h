// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What every implementation of the notice windows has to do. An implementation's test file provides a host with the
// windows and a function that lets the event loop run once, and instantiates the suite with it:
//   INSTANTIATE_TYPED_TEST_SUITE_P(Name, NoticeWindowsConformance, Host);

#pragma once

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "platform/notice_window.h"

namespace tonalith::testing {

/// Host: default constructible, Windows() gives the NoticeWindows, RunEvents() handles everything that is pending.
template <class Host>
class NoticeWindowsConformance : public ::testing::Test {
 protected:
  platform::NoticeWindows& Windows() { return host_.Windows(); }

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

TYPED_TEST_SUITE_P(NoticeWindowsConformance);

TYPED_TEST_P(NoticeWindowsConformance, GivesEachWindowAHandleOfItsOwn) {
  const auto first = this->Windows().CreateWindow({});
  const auto second = this->Windows().CreateWindow({});
  EXPECT_NE(first, platform::kNoWindow);
  EXPECT_NE(second, platform::kNoWindow);
  EXPECT_NE(first, second);
}

TYPED_TEST_P(NoticeWindowsConformance, HandlesNoticesInTheOrderOfPostingAndNotFromWithinThePosting) {
  const auto window = this->ListeningWindow();
  this->Windows().PostNotice(window, 1, 2, -3);
  this->Windows().PostNotice(window, 4, 5, 6);
  EXPECT_EQ(this->heard_, "");
  this->host_.RunEvents();
  EXPECT_EQ(this->heard_, "1:2:-3 4:5:6 ");
}

TYPED_TEST_P(NoticeWindowsConformance, GivesThePreviousProcedureBack) {
  const auto window = this->ListeningWindow();
  ASSERT_TRUE(this->previous_) << "a new window has the procedure of its class";
  this->Windows().CallWindowProcedure(this->previous_, window, 1, 2, 3);
  const auto ours = this->Windows().SetWindowProcedure(window, this->previous_);
  EXPECT_EQ(this->Windows().CallWindowProcedure(ours, window, 1, 2, 3), 1);
  EXPECT_EQ(this->heard_, "1:2:3 ");
  this->Windows().PostNotice(window, 9, 9, 9);
  this->host_.RunEvents();
  EXPECT_EQ(this->heard_, "1:2:3 ") << "the class's procedure is back in its place";
}

TYPED_TEST_P(NoticeWindowsConformance, DropsTheNoticesOfADestroyedWindow) {
  const auto window = this->ListeningWindow();
  this->Windows().PostNotice(window, 1, 2, 3);
  this->Windows().DestroyWindow(window);
  this->Windows().PostNotice(window, 4, 5, 6);
  this->host_.RunEvents();
  EXPECT_EQ(this->heard_, "");
}

TYPED_TEST_P(NoticeWindowsConformance, TakesAHandleOfNoWindowWithoutHarm) {
  const auto window = this->ListeningWindow();
  this->Windows().DestroyWindow(window);
  for (const platform::WindowHandle gone : {window, platform::kNoWindow, platform::WindowHandle{4711}}) {
    this->Windows().PostNotice(gone, 1, 2, 3);
    EXPECT_FALSE(this->Windows().SetWindowProcedure(gone, {}));
    this->Windows().DestroyWindow(gone);
    EXPECT_EQ(this->Windows().CallWindowProcedure({}, gone, 1, 2, 3), 0);
  }
  this->host_.RunEvents();
}

TYPED_TEST_P(NoticeWindowsConformance, LetsAProcedureDestroyItsOwnWindow) {
  const auto window = this->Windows().CreateWindow({});
  this->Windows().SetWindowProcedure(window, [this](platform::WindowHandle self, auto, auto, auto) {
    this->heard_ += "once ";
    this->Windows().DestroyWindow(self);
    return std::intptr_t{0};
  });
  this->Windows().PostNotice(window, 1, 0, 0);
  this->Windows().PostNotice(window, 1, 0, 0);
  this->host_.RunEvents();
  this->host_.RunEvents();
  EXPECT_EQ(this->heard_, "once ");
}

REGISTER_TYPED_TEST_SUITE_P(NoticeWindowsConformance, GivesEachWindowAHandleOfItsOwn,
                            HandlesNoticesInTheOrderOfPostingAndNotFromWithinThePosting, GivesThePreviousProcedureBack,
                            DropsTheNoticesOfADestroyedWindow, TakesAHandleOfNoWindowWithoutHarm,
                            LetsAProcedureDestroyItsOwnWindow);

}  // namespace tonalith::testing
