// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// OpenAL Soft's null device discards its input in real time and can be paused like a sound card.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "platform/processor_time.h"
#include "platform/sound/open_al_mixer.h"
#include "platform/wave_output_conformance.h"
#include "support/timed.h"

namespace tonalith::testing {
namespace {

using std::chrono::milliseconds;

struct DeviceReports : platform::SoundDeviceObserver {
  void SoundDeviceMissing() override { ++missing; }
  void SoundDeviceFound() override {}
  std::atomic<int> missing = 0;
};

struct NullDeviceHost : RealTimeHost {
  platform::WaveOutput& Output() { return *output; }
  int chosen = ::setenv("ALSOFT_DRIVERS", "null", 1);
  DeviceReports reports;
  std::unique_ptr<platform::WaveOutput> output = platform::MakeOpenAlWaveOutput(queue, &reports);
};

INSTANTIATE_TYPED_TEST_SUITE_P(OpenAlNullDevice, WaveOutputConformance, NullDeviceHost);

class OpenAlPause : public ::testing::Test {
 protected:
  OpenAlPause() : samples_(Sine({}, 441, 0.1, 0.5)) {
    window_ = host_.queue.CreateWindow({});
    host_.queue.SetWindowProcedure(window_, [this](auto, auto, auto, auto) {
      over_ = true;
      return std::intptr_t{0};
    });
    device_ = host_.output->Open(PlainFormat(), window_);
    header_.lpData = samples_.data();
    header_.dwBufferLength = static_cast<std::uint32_t>(samples_.size());
    host_.output->PrepareHeader(device_, header_);
  }

  /// Plays 0.1 seconds until the wave-done message. Returns the seconds it took.
  double Play() {
    over_ = false;
    const auto start = std::chrono::steady_clock::now();
    host_.output->Write(device_, header_);
    while (!over_) host_.queue.WaitForEvents(milliseconds(100));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }

  NullDeviceHost host_;
  Bytes samples_;
  platform::WindowHandle window_ = platform::kNoWindow;
  platform::WaveHandle device_ = platform::kNoWaveHandle;
  platform::WAVEHDR header_;
  bool over_ = false;
};

TEST_F(OpenAlPause, NoThreadWakesUpWhileTheDeviceIsPaused) {
  Play();
  // The device is paused two seconds after the last sound.
  std::this_thread::sleep_for(milliseconds(3000));
  const long before = Sleeps();
  const double used = ProcessorSeconds();
  // The wake-ups and the processor time of a second are measured.
  std::this_thread::sleep_for(milliseconds(1000));
  EXPECT_LT(Sleeps() - before, 5) << "the sleep of this thread is one of them";
  EXPECT_LT(ProcessorSeconds() - used, tests::Timely(0.005));
}

TEST_F(OpenAlPause, PlaysAgainAfterAPause) {
  Play();
  // The device is paused two seconds after the last sound.
  std::this_thread::sleep_for(milliseconds(2500));
  const double took = Play();
  EXPECT_GT(took, 0.05);
  EXPECT_LT(took, tests::Timely(0.5));
}

TEST_F(OpenAlPause, APausedDevicePlaysTheNextSound) {
  // On a loaded system a device may be so late that it counts as lost, but not repeatedly.
  constexpr int kMostAttempts = 3;
  bool isThere = false;
  for (int attempt = 0; attempt < kMostAttempts && !isThere; ++attempt) {
    Play();
    // The device is paused two seconds after the last sound.
    std::this_thread::sleep_for(milliseconds(2500));
    const int before = host_.reports.missing;
    Play();
    isThere = host_.reports.missing == before;
  }
  EXPECT_TRUE(isThere);
}

TEST_F(OpenAlPause, PostsTheMessageWithin15MillisecondsOfTheLastSample) {
  Play();
  std::vector<double> times;
  times.reserve(15);
  for (int i = 0; i < 15; ++i) times.push_back(Play());
  std::nth_element(times.begin(), times.begin() + 7, times.end());
  EXPECT_GT(times[7], 0.085);
  EXPECT_LT(times[7] - 0.1, tests::Timely(0.015));
}

}  // namespace
}  // namespace tonalith::testing
