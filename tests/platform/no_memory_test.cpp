// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A sound that does not fit into memory. This program can refuse large allocations.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <new>
#include <vector>

#include "platform/sound/silent_mixer.h"
#include "platform/system/window_message_queue.h"
#include "platform/wave_output_fixture.h"

namespace {

// Allocations of this size or larger fail.
std::size_t limit = SIZE_MAX;  // NOLINT(readability-identifier-naming): read by the operators below

}  // namespace

// Inlined, they would cause warnings about mismatched allocation and deallocation.
[[gnu::noinline]] void* operator new(std::size_t size) {
  void* const memory = size >= limit ? nullptr : std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t& /*never*/) noexcept {
  return size >= limit ? nullptr : std::malloc(size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace tonalith::testing {
namespace {

TEST(WaveOutputWithoutMemory, PlaysAnEmptySoundAndPostsItsMessage) {
  platform::WindowMessageQueue queue;
  const auto output = platform::MakeSilentWaveOutput(queue);
  int notices = 0;
  const auto window = queue.CreateWindow({});
  queue.SetWindowProcedure(window, [&](auto, auto, auto, auto) {
    ++notices;
    return std::intptr_t{0};
  });
  // Half a minute of sound; the test does not wait for it.
  constexpr std::uint32_t kRate = 8000;
  const std::vector<std::byte> samples(std::size_t{60} * kRate);
  platform::WAVEHDR header;
  header.lpData = samples.data();
  header.dwBufferLength = static_cast<std::uint32_t>(samples.size());
  const auto device = output->Open(PlainFormat(kRate), window);
  ASSERT_NE(device, platform::kNoWaveHandle);
  limit = samples.size() / 2;
  EXPECT_THROW(output->PrepareHeader(device, header), std::bad_alloc);
  limit = SIZE_MAX;
  const auto start = std::chrono::steady_clock::now();
  output->Write(device, header);
  while (notices == 0 && std::chrono::steady_clock::now() - start < std::chrono::seconds(20)) {
    queue.WaitForEvents(std::chrono::milliseconds(1000));
  }
  EXPECT_EQ(notices, 1);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

}  // namespace
}  // namespace tonalith::testing
