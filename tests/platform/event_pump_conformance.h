// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Tests for every implementation of EventPump. The host has Windows() and Pump(); messages to the windows are events of
// the pump.

#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "platform/event_pump.h"
#include "platform/processor_time.h"
#include "platform/window_messages.h"

namespace tonalith::testing {

template <class Host>
class EventPumpConformance : public ::testing::Test {
 protected:
  platform::WindowHandle CountingWindow() {
    const auto window = host_.Windows().CreateWindow({});
    host_.Windows().SetWindowProcedure(window, [this](auto, auto, auto, auto) {
      ++count_;
      return std::intptr_t{0};
    });
    return window;
  }
  Host host_;
  int count_ = 0;
};

TYPED_TEST_SUITE_P(EventPumpConformance);

TYPED_TEST_P(EventPumpConformance, ReturnsImmediatelyIfAMessageIsPending) {
  this->host_.Windows().PostMessage(this->CountingWindow(), 1, 0, 0);
  this->host_.Pump().WaitForEvents();
  EXPECT_EQ(this->count_, 1);
}

TYPED_TEST_P(EventPumpConformance, BlocksUntilAnotherThreadPosts) {
  using std::chrono::milliseconds;
  const auto window = this->CountingWindow();
  const double before = ProcessorSeconds();
  std::thread poster([&] {
    // The pump must wait meanwhile, without processor time.
    std::this_thread::sleep_for(milliseconds(300));
    this->host_.Windows().PostMessage(window, 1, 0, 0);
  });
  while (this->count_ == 0) this->host_.Pump().WaitForEvents();
  poster.join();
  EXPECT_EQ(this->count_, 1);
  EXPECT_LT(ProcessorSeconds() - before, 0.1) << "no polling";
}

TYPED_TEST_P(EventPumpConformance, ReturnsAfterTheTimeLimitWithoutAnEvent) {
  const auto start = std::chrono::steady_clock::now();
  this->host_.Pump().WaitForEvents(std::chrono::milliseconds(60));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  EXPECT_EQ(this->count_, 0);
}

REGISTER_TYPED_TEST_SUITE_P(EventPumpConformance, ReturnsImmediatelyIfAMessageIsPending, BlocksUntilAnotherThreadPosts,
                            ReturnsAfterTheTimeLimitWithoutAnEvent);

}  // namespace tonalith::testing
