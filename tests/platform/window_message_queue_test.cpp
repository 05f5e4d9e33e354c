// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/system/window_message_queue.h"

#include <gtest/gtest.h>

#include <atomic>

#include "platform/event_pump_conformance.h"
#include "platform/window_messages_conformance.h"
#include "support/scripted_audio.h"

namespace tonalith::testing {
namespace {

struct QueueHost {
  platform::WindowMessages& Windows() { return queue; }
  platform::EventPump& Pump() { return queue; }
  void RunEvents() { queue.Dispatch(); }
  platform::WindowMessageQueue queue;
};

struct ScriptedHost {
  platform::WindowMessages& Windows() { return windows; }
  void RunEvents() { windows.Dispatch(); }
  tests::AudioScript script;
  tests::ScriptedWindowMessages windows{script};
};

INSTANTIATE_TYPED_TEST_SUITE_P(WindowMessageQueue, WindowMessagesConformance, QueueHost);
INSTANTIATE_TYPED_TEST_SUITE_P(ScriptedWindowMessages, WindowMessagesConformance, ScriptedHost);
INSTANTIATE_TYPED_TEST_SUITE_P(WindowMessageQueue, EventPumpConformance, QueueHost);

TEST(WindowMessageQueue, CallsTheWakeUpAfterEachPost) {
  platform::WindowMessageQueue queue;
  const auto window = queue.CreateWindow({});
  int calls = 0;
  queue.SetWakeUp([&calls] { ++calls; });
  queue.PostMessage(window, 1, 0, 0);
  queue.PostMessage(window, 1, 0, 0);
  queue.PostMessage(window + 1, 1, 0, 0);
  EXPECT_EQ(calls, 2);
  queue.SetWakeUp({});
  queue.PostMessage(window, 1, 0, 0);
  EXPECT_EQ(calls, 2);
}

TEST(WindowMessageQueue, DropsMessagesOfAWindowWithoutAProcedure) {
  platform::WindowMessageQueue queue;
  const auto window = queue.CreateWindow({});
  queue.SetWindowProcedure(window, {});
  queue.PostMessage(window, 1, 0, 0);
  EXPECT_NO_THROW(queue.Dispatch());
  int handled = 0;
  queue.SetWindowProcedure(window, [&](auto, auto, auto, auto) {
    ++handled;
    return std::intptr_t{0};
  });
  queue.Dispatch();
  EXPECT_EQ(handled, 0);
}

TEST(WindowMessageQueue, HandlesPendingMessagesInANestedDispatch) {
  platform::WindowMessageQueue queue;
  const auto window = queue.CreateWindow({});
  std::string order;
  queue.SetWindowProcedure(window, [&](auto, std::uint32_t message, auto, auto) {
    order += "<" + std::to_string(message);
    if (message == 1) queue.Dispatch();
    order += ">";
    return std::intptr_t{0};
  });
  for (const std::uint32_t message : {1U, 2U, 3U}) queue.PostMessage(window, message, 0, 0);
  queue.Dispatch();
  EXPECT_EQ(order, "<1<2><3>>");
}

TEST(WindowMessageQueue, LeavesMessagesPostedByAProcedureToTheNextDispatch) {
  platform::WindowMessageQueue queue;
  const auto window = queue.CreateWindow({});
  int handled = 0;
  queue.SetWindowProcedure(window, [&](auto, auto, auto, auto) {
    ++handled;
    queue.PostMessage(window, 1, 0, 0);
    return std::intptr_t{0};
  });
  queue.PostMessage(window, 1, 0, 0);
  queue.Dispatch();
  EXPECT_EQ(handled, 1);
}

TEST(WindowMessageQueue, LosesNoMessageOfManyThreads) {
  platform::WindowMessageQueue queue;
  const auto window = queue.CreateWindow({});
  constexpr std::uintptr_t kSum = std::uintptr_t{4} * 500500;
  std::uintptr_t sum = 0;
  queue.SetWindowProcedure(window, [&](auto, auto, std::uintptr_t wParam, auto) {
    sum += wParam;
    return std::intptr_t{0};
  });
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (std::uintptr_t n = 1; n <= 1000; ++n) queue.PostMessage(window, 1, n, 0);
    });
  }
  while (sum < kSum) queue.WaitForEvents(std::chrono::milliseconds(100));
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(sum, kSum);
}

}  // namespace
}  // namespace tonalith::testing
