// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The recording device works while its file can be written: without the folder there is no device, and a full disk
// during a sound is a device loss.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <atomic>
#include <filesystem>
#include <thread>

#include "platform/recorded_sound.h"
#include "support/timed.h"

namespace tonalith::testing {
namespace {

class CountingObserver : public platform::SoundDeviceObserver {
 public:
  void SoundDeviceMissing() override { ++missing_; }
  void SoundDeviceFound() override { ++found_; }
  [[nodiscard]] int Missing() const { return missing_; }
  [[nodiscard]] int Found() const { return found_; }

 private:
  std::atomic<int> missing_ = 0;
  std::atomic<int> found_ = 0;
};

class DeviceLoss : public ::testing::Test {
 protected:
  DeviceLoss() {
    Connect();
    window_ = queue_.CreateWindow({});
    queue_.SetWindowProcedure(window_, [this](auto, auto, auto, auto) {
      ++messages_;
      return std::intptr_t{0};
    });
    output_ = platform::MakeOpenAlWaveOutput(queue_, &observer_);
  }
  ~DeviceLoss() override {
    output_.reset();
    Connect();
  }

  static void Connect() {
    std::filesystem::create_directories(RecordingFolder());
    if (std::filesystem::is_symlink(RecordingPath())) std::filesystem::remove(RecordingPath());
  }
  static void Disconnect() { std::filesystem::remove_all(RecordingFolder()); }
  /// The device opens and fails with the first samples.
  static void Break() {
    std::filesystem::remove(RecordingPath());
    std::filesystem::create_symlink("/dev/full", RecordingPath());
  }

  /// Plays a sound of 0.2 seconds until its wave-done message. Returns the seconds it took.
  double Play() { return Play(Sine({}, 441, 0.2, 0.5)); }
  double Play(const Bytes& samples) {
    platform::WAVEHDR header{.lpData = samples.data(), .dwBufferLength = static_cast<std::uint32_t>(samples.size())};
    const auto device = output_->Open(RecordOf({}), window_);
    output_->PrepareHeader(device, header);
    const int before = messages_;
    const auto start = std::chrono::steady_clock::now();
    output_->Write(device, header);
    for (int i = 0; i < 100 && messages_ == before; ++i) queue_.WaitForEvents(std::chrono::milliseconds(100));
    EXPECT_EQ(messages_, before + 1);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    output_->Close(device);
    return took.count();
  }

  CountingObserver observer_;
  platform::WindowMessageQueue queue_;
  platform::WindowHandle window_ = platform::kNoWindow;
  std::unique_ptr<platform::WaveOutput> output_;
  int messages_ = 0;
};

TEST_F(DeviceLoss, WithoutADeviceSoundsKeepTheirLengthAndOneReportIsMade) {
  Disconnect();
  std::vector<double> times;
  times.reserve(5);
  for (int i = 0; i < 5; ++i) times.push_back(Play());
  EXPECT_GE(*std::min_element(times.begin(), times.end()), 0.2);
  EXPECT_LT(Median(times), tests::Timely(0.215));
  EXPECT_EQ(observer_.Missing(), 1);
  EXPECT_EQ(observer_.Found(), 0);
}

TEST_F(DeviceLoss, ADevicePresentFromTheStartIsNotReported) {
  Play();
  EXPECT_EQ(observer_.Missing(), 0);
  EXPECT_EQ(observer_.Found(), 0);
}

TEST_F(DeviceLoss, UsesTheDeviceWhenItReturns) {
  Disconnect();
  Play();
  Connect();
  // The output looks for a device once a second.
  std::this_thread::sleep_for(std::chrono::milliseconds(1100));
  Play();
  EXPECT_EQ(observer_.Missing(), 1);
  EXPECT_EQ(observer_.Found(), 1);
  output_.reset();
  EXPECT_EQ(Stretches(ReadRecording(), 0.01, 0.05).size(), 1U);
}

TEST_F(DeviceLoss, ASoundOnALostDeviceContinuesInSilenceToItsEnd) {
  Break();
  const double took = Play();
  EXPECT_GE(took, 0.19);
  EXPECT_LT(took, tests::Timely(1.0));
  EXPECT_EQ(observer_.Missing(), 1);
  Connect();
  Play();
  EXPECT_EQ(observer_.Found(), 1);
  output_.reset();
  EXPECT_EQ(Stretches(ReadRecording(), 0.01, 0.05).size(), 1U);
}

TEST_F(DeviceLoss, AHungDeviceIsReplaced) {
  // The pipe has no reader, so the device hangs when it is full. It stays open because the device waits until the end.
  std::filesystem::remove(RecordingPath());
  ASSERT_EQ(::mkfifo(RecordingPath().c_str(), 0600), 0);
  static const int pipe = ::open(RecordingPath().c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(pipe, 0);
  const Bytes longer = Sine({}, 441, 0.4, 0.5);
  EXPECT_LT(Play(longer), tests::Timely(6.0));
  EXPECT_EQ(observer_.Missing(), 1);
  std::filesystem::remove(RecordingPath());
  Play();
  EXPECT_EQ(observer_.Found(), 1);
  output_.reset();
  EXPECT_EQ(Stretches(ReadRecording(), 0.01, 0.05).size(), 1U);
  // The process cannot end before the pipe accepts the buffered data of the device.
  ASSERT_EQ(::fcntl(pipe, F_SETFL, 0), 0);
  std::thread([] {
    std::array<char, 4096> taken{};
    while (::read(pipe, taken.data(), taken.size()) > 0) continue;
  }).detach();
}

TEST_F(DeviceLoss, ASilentSoundCanBeStopped) {
  Disconnect();
  const Bytes samples = Sine({}, 441, 5, 0.5);
  platform::WAVEHDR header{.lpData = samples.data(), .dwBufferLength = static_cast<std::uint32_t>(samples.size())};
  const auto device = output_->Open(RecordOf({}), window_);
  output_->PrepareHeader(device, header);
  output_->Write(device, header);
  queue_.WaitForEvents(std::chrono::milliseconds(50));
  EXPECT_EQ(messages_, 0);
  output_->Reset(device);
  queue_.WaitForEvents(std::chrono::milliseconds(2000));
  EXPECT_EQ(messages_, 1);
}

}  // namespace
}  // namespace tonalith::testing
