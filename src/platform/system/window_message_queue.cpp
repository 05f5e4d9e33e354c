// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/system/window_message_queue.h"

#include <utility>

namespace tonalith::platform {

WindowHandle WindowMessageQueue::CreateWindow(const WindowDescription& /*description*/) {
  const std::lock_guard lock(mutex_);
  ++lastWindow_;
  windows_[lastWindow_] = [](WindowHandle, std::uint32_t, std::uintptr_t, std::intptr_t) { return std::intptr_t{0}; };
  return lastWindow_;
}

WindowProcedure WindowMessageQueue::SetWindowProcedure(WindowHandle window, WindowProcedure procedure) {
  const std::lock_guard lock(mutex_);
  const auto found = windows_.find(window);
  if (found == windows_.end()) return {};
  return std::exchange(found->second, std::move(procedure));
}

std::intptr_t WindowMessageQueue::CallWindowProcedure(const WindowProcedure& previous, WindowHandle window,
                                                      std::uint32_t message, std::uintptr_t wParam,
                                                      std::intptr_t lParam) {
  return previous ? previous(window, message, wParam, lParam) : 0;
}

void WindowMessageQueue::DestroyWindow(WindowHandle window) {
  const std::lock_guard lock(mutex_);
  windows_.erase(window);
  std::erase_if(messages_, [window](const Message& message) { return message.window == window; });
}

void WindowMessageQueue::PostMessage(WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                                     std::intptr_t lParam) {
  const std::lock_guard lock(mutex_);
  if (!windows_.contains(window)) return;
  messages_.push_back({window, message, wParam, lParam});
  posted_.notify_one();
  if (wakeUp_) wakeUp_();
}

void WindowMessageQueue::WaitForEvents() {
  std::unique_lock lock(mutex_);
  posted_.wait(lock, [this] { return !messages_.empty(); });
  lock.unlock();
  Dispatch();
}

void WindowMessageQueue::WaitForEvents(std::chrono::milliseconds limit) {
  std::unique_lock lock(mutex_);
  posted_.wait_for(lock, limit, [this] { return !messages_.empty(); });
  lock.unlock();
  Dispatch();
}

void WindowMessageQueue::Dispatch() {
  std::unique_lock lock(mutex_);
  for (std::size_t waiting = messages_.size(); waiting > 0 && !messages_.empty(); --waiting) {
    const Message message = messages_.front();
    messages_.pop_front();
    const auto found = windows_.find(message.window);
    if (found == windows_.end()) continue;
    // Copied, because the procedure may replace itself or destroy its window.
    const WindowProcedure procedure = found->second;
    lock.unlock();
    if (procedure) procedure(message.window, message.message, message.wParam, message.lParam);
    lock.lock();
  }
}

void WindowMessageQueue::SetWakeUp(std::function<void()> wakeUp) {
  const std::lock_guard lock(mutex_);
  wakeUp_ = std::move(wakeUp);
}

}  // namespace tonalith::platform
