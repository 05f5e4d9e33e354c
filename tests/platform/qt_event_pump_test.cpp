// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/qt/qt_event_pump.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <chrono>

#include "platform/event_pump_conformance.h"
#include "platform/window_messages_conformance.h"

namespace tonalith::testing {
namespace {

using std::chrono::milliseconds;

struct QtHost {
  platform::WindowMessages& Windows() { return queue; }
  platform::EventPump& Pump() { return pump; }
  static void RunEvents() { QCoreApplication::processEvents(); }
  platform::WindowMessageQueue queue;
  platform::QtMessageBridge bridge{queue};
  platform::QtEventPump pump;
};

INSTANTIATE_TYPED_TEST_SUITE_P(QtMessageBridge, WindowMessagesConformance, QtHost);
INSTANTIATE_TYPED_TEST_SUITE_P(QtEventPump, EventPumpConformance, QtHost);

platform::WindowHandle CountingWindow(platform::WindowMessageQueue& queue, int& count) {
  const auto window = queue.CreateWindow({});
  queue.SetWindowProcedure(window, [&count](auto, auto, auto, auto) {
    ++count;
    return std::intptr_t{0};
  });
  return window;
}

TEST(QtEventPump, HandlesOtherEventsOfTheApplicationToo) {
  platform::QtEventPump pump;
  bool hasFired = false;
  QTimer timer;
  timer.setSingleShot(true);
  QObject::connect(&timer, &QTimer::timeout, [&hasFired] { hasFired = true; });
  timer.start(milliseconds(20));
  const auto timeout = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (!hasFired && std::chrono::steady_clock::now() < timeout) pump.WaitForEvents(milliseconds(1000));
  EXPECT_TRUE(hasFired);
}

TEST(QtEventPump, IsNotWokenByTheTimerOfAnEarlierWait) {
  QtHost host;
  int count = 0;
  host.queue.PostMessage(CountingWindow(host.queue, count), 1, 0, 0);
  host.pump.WaitForEvents(milliseconds(30));
  EXPECT_EQ(count, 1);
  const auto start = std::chrono::steady_clock::now();
  host.pump.WaitForEvents(milliseconds(200));
  EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(150));
}

TEST(QtMessageBridge, LeavesTheQueueToItsOwnerWhenDestroyed) {
  platform::WindowMessageQueue queue;
  int count = 0;
  const auto window = CountingWindow(queue, count);
  {
    const platform::QtMessageBridge bridge(queue);
    queue.PostMessage(window, 1, 0, 0);
  }
  queue.PostMessage(window, 1, 0, 0);
  QCoreApplication::processEvents();
  EXPECT_EQ(count, 0) << "the requests of the bridge were dropped with it";
  queue.Dispatch();
  EXPECT_EQ(count, 2) << "but no message was lost";
}

}  // namespace
}  // namespace tonalith::testing
