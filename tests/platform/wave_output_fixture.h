// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Tests for every wave output, silent or not. The host has Output(), Windows() and Pass(duration), which lets at least
// that much time of the outputs pass and handles the messages.

#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "audio/wave_bytes.h"
#include "platform/system/window_message_queue.h"
#include "platform/wave_output.h"

namespace tonalith::testing {

inline platform::WaveFormat PlainFormat(std::uint32_t rate = 44100, std::uint16_t channels = 1) {
  const auto align = static_cast<std::uint16_t>(channels * 2);
  return {{.wFormatTag = platform::wave_format_tag::kPcm,
           .nChannels = channels,
           .nSamplesPerSec = rate,
           .nAvgBytesPerSec = rate * align,
           .nBlockAlign = align,
           .wBitsPerSample = 16,
           .cbSize = 0},
          std::nullopt};
}

/// A host for outputs that run in real time.
struct RealTimeHost {
  platform::WindowMessages& Windows() { return queue; }
  void Pass(std::chrono::milliseconds duration) {
    const auto end = std::chrono::steady_clock::now() + duration;
    for (auto now = std::chrono::steady_clock::now(); now < end; now = std::chrono::steady_clock::now()) {
      queue.WaitForEvents(std::chrono::ceil<std::chrono::milliseconds>(end - now));
    }
  }
  platform::WindowMessageQueue queue;
};

template <class Host>
class WaveOutputConformance : public ::testing::Test {
 protected:
  WaveOutputConformance() : window_(host_.Windows().CreateWindow({})) {
    host_.Windows().SetWindowProcedure(window_, [this](auto, std::uint32_t message, std::uintptr_t wParam, auto) {
      EXPECT_EQ(message, platform::kWaveOutputDone);
      received_.push_back(static_cast<platform::WaveHandle>(wParam));
      return std::intptr_t{0};
    });
  }

  platform::WaveOutput& Output() { return host_.Output(); }

  /// An open output with a prepared sound.
  struct Prepared {
    platform::WaveHandle device = platform::kNoWaveHandle;
    Bytes samples;
    platform::WAVEHDR header;
  };
  std::unique_ptr<Prepared> Prepare(std::chrono::milliseconds length, platform::WindowHandle target) {
    auto prepared = std::make_unique<Prepared>();
    prepared->samples.resize(static_cast<std::size_t>(length.count()) * 8000 / 1000 * 2);
    prepared->device = Output().Open(PlainFormat(8000), target);
    prepared->header.lpData = prepared->samples.data();
    prepared->header.dwBufferLength = static_cast<std::uint32_t>(prepared->samples.size());
    Output().PrepareHeader(prepared->device, prepared->header);
    return prepared;
  }
  std::unique_ptr<Prepared> Prepare(int milliseconds) {
    return Prepare(std::chrono::milliseconds(milliseconds), window_);
  }
  void Release(Prepared& prepared) {
    Output().UnprepareHeader(prepared.device, prepared.header);
    Output().Close(prepared.device);
  }

  /// Waits, for at most five seconds, until that many messages have arrived.
  void WaitFor(std::size_t messages) {
    for (int i = 0; i < 100 && received_.size() < messages; ++i) host_.Pass(std::chrono::milliseconds(50));
  }

  using Handles = std::vector<platform::WaveHandle>;
  Host host_;
  platform::WindowHandle window_;
  Handles received_;
};

}  // namespace tonalith::testing
