// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/wave_output.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/processor_time.h"
#include "platform/sound/silent_mixer.h"
#include "platform/wave_output_conformance.h"
#include "support/scripted_audio.h"
#include "support/timed.h"

namespace tonalith::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

struct ScriptedHost {
  platform::WaveOutput& Output() { return output; }
  platform::WindowMessages& Windows() { return windows; }
  void Pass(milliseconds duration) {
    if (duration.count() > 0) output.FinishAll();
    windows.Dispatch();
  }
  tests::AudioScript script;
  tests::ScriptedWindowMessages windows{script};
  tests::ScriptedWaveOutput output{script, windows};
};

struct SilentHost : RealTimeHost {
  platform::WaveOutput& Output() { return *output; }
  std::unique_ptr<platform::WaveOutput> output = platform::MakeSilentWaveOutput(queue);
};

INSTANTIATE_TYPED_TEST_SUITE_P(Scripted, WaveOutputConformance, ScriptedHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Silent, WaveOutputConformance, SilentHost);

/// A silent output with one sound that waits for its wave-done message.
class SilentSound {
 public:
  explicit SilentSound(milliseconds length) : samples_(static_cast<std::size_t>(length.count()) * 16) {
    window_ = host_.queue.CreateWindow({});
    host_.queue.SetWindowProcedure(window_, [this](auto, auto, auto, auto) {
      over_ = true;
      return std::intptr_t{0};
    });
    device_ = host_.output->Open(PlainFormat(8000), window_);
    header_.lpData = samples_.data();
    header_.dwBufferLength = static_cast<std::uint32_t>(samples_.size());
    host_.output->PrepareHeader(device_, header_);
  }
  void Write() { host_.output->Write(device_, header_); }

  /// The time from the start of the sound to its message.
  steady_clock::duration Play() {
    over_ = false;
    const auto start = steady_clock::now();
    Write();
    while (!over_) host_.queue.WaitForEvents();
    return steady_clock::now() - start;
  }

  SilentHost& Host() { return host_; }

 private:
  SilentHost host_;
  Bytes samples_;
  platform::WindowHandle window_ = platform::kNoWindow;
  platform::WaveHandle device_ = platform::kNoWaveHandle;
  platform::WAVEHDR header_;
  bool over_ = false;
};

TEST(SilentWaveOutput, TakesTheTimeOfTheSound) {
  SilentSound sound(milliseconds(100));
  std::vector<steady_clock::duration> times;
  times.reserve(9);
  for (int i = 0; i < 9; ++i) times.push_back(sound.Play());
  std::sort(times.begin(), times.end());
  EXPECT_GE(times.front(), milliseconds(100));
  EXPECT_LT(times[4] - milliseconds(100), tests::Timely<steady_clock::duration>(milliseconds(15))) << "the median";
}

TEST(SilentWaveOutput, DoesNotPollDuringOrAfterASound) {
  SilentSound sound(milliseconds(400));
  const double before = ProcessorSeconds();
  sound.Play();
  // The processor time of a rest is measured, too.
  std::this_thread::sleep_for(milliseconds(200));
  EXPECT_LT(ProcessorSeconds() - before, tests::Timely(0.03));
}

TEST(SilentWaveOutput, EndsImmediatelyWhileASoundPlays) {
  auto sound = std::make_unique<SilentSound>(milliseconds(20000));
  sound->Write();
  const auto start = steady_clock::now();
  sound.reset();
  EXPECT_LT(steady_clock::now() - start, tests::Timely(milliseconds(140)));
}

TEST(SilentWaveOutput, RefusesAnUnsupportedFormat) {
  SilentHost host;
  platform::WaveFormat format = PlainFormat();
  format.record.wFormatTag = 0x55;
  EXPECT_EQ(host.Output().Open(format, 1), platform::kNoWaveHandle);
}

/// The state of a device that hangs until it is released.
struct Hanging {
  std::mutex mutex;
  std::condition_variable changed;
  bool entered = false;
  bool released = false;
  bool destroyed = false;
};

class HangingMixer : public platform::SilentMixer {
 public:
  explicit HangingMixer(std::shared_ptr<Hanging> hanging) : hanging_(std::move(hanging)) {}
  HangingMixer(const HangingMixer&) = delete;
  HangingMixer& operator=(const HangingMixer&) = delete;
  ~HangingMixer() override {
    const std::lock_guard lock(hanging_->mutex);
    hanging_->destroyed = true;
    hanging_->changed.notify_all();
  }
  void Attach(std::function<void(platform::SoundDevice)> report) override { report_ = std::move(report); }
  void Start(platform::VoiceId /*voice*/, std::shared_ptr<const platform::StereoSound> /*sound*/,
             platform::SteadyTime /*asked*/) override {
    std::unique_lock lock(hanging_->mutex);
    hanging_->entered = true;
    hanging_->changed.notify_all();
    hanging_->changed.wait(lock, [this] { return hanging_->released; });
    lock.unlock();
    report_(platform::SoundDevice::kMissing);
  }

 private:
  std::shared_ptr<Hanging> hanging_;
  std::function<void(platform::SoundDevice)> report_;
};

struct CountingObserver : platform::SoundDeviceObserver {
  void SoundDeviceMissing() override { ++missing; }
  void SoundDeviceFound() override { ++found; }
  int missing = 0;
  int found = 0;
};

TEST(ThreadedWaveOutput, DetachesAHungDeviceWithoutLaterReports) {
  const auto hanging = std::make_shared<Hanging>();
  CountingObserver observer;
  platform::WindowMessageQueue queue;
  auto output =
      std::make_unique<platform::ThreadedWaveOutput>(std::make_unique<HangingMixer>(hanging), queue, &observer);
  const Bytes samples(100);
  platform::WAVEHDR header{.lpData = samples.data(), .dwBufferLength = 100};
  const auto device = output->Open(PlainFormat(), platform::kNoWindow);
  output->PrepareHeader(device, header);
  output->Write(device, header);
  std::unique_lock lock(hanging->mutex);
  hanging->changed.wait(lock, [&] { return hanging->entered; });
  const auto start = steady_clock::now();
  output.reset();
  EXPECT_LT(steady_clock::now() - start, tests::Timely(milliseconds(1000)));
  hanging->released = true;
  hanging->changed.notify_all();
  hanging->changed.wait(lock, [&] { return hanging->destroyed; });
  EXPECT_EQ(observer.missing, 0);
}

TEST(WaveRecords, StartWithZeros) {
  const platform::WAVEFORMATEX format;
  EXPECT_EQ(format.wFormatTag, 0);
  EXPECT_EQ(format.nChannels, 0);
  EXPECT_EQ(format.nSamplesPerSec, 0U);
  EXPECT_EQ(format.nAvgBytesPerSec, 0U);
  EXPECT_EQ(format.nBlockAlign, 0);
  EXPECT_EQ(format.wBitsPerSample, 0);
  EXPECT_EQ(format.cbSize, 0);
  const platform::WAVEHDR header;
  EXPECT_EQ(header.lpData, nullptr);
  EXPECT_EQ(header.dwBufferLength, 0U);
  EXPECT_EQ(header.dwBytesRecorded, 0U);
  EXPECT_EQ(header.dwUser, 0U);
  EXPECT_EQ(header.dwFlags, 0U);
  EXPECT_EQ(header.dwLoops, 0U);
  EXPECT_EQ(header.lpNext, 0U);
  EXPECT_EQ(header.reserved, 0U);
}

}  // namespace
}  // namespace tonalith::testing
