// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/sound/open_al_mixer.h"

#include <algorithm>
#include <utility>

#include "platform/sound/open_al_settings.h"

namespace tonalith::platform {
namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

/// Minimum time between two attempts to open a missing device.
constexpr milliseconds kRetryInterval(1000);
/// How long the device continues to mix after the last sound, so that the next one starts immediately and buffered
/// sound is still played.
constexpr milliseconds kIdleBeforePause(2000);
/// A device counts as hung when a sound exceeds its length by this time.
constexpr milliseconds kHungAfter(1500);
/// Upper limit of the poll interval: how soon the loss of a device during a long sound is detected.
constexpr milliseconds kLongestPollInterval(250);
constexpr milliseconds kShortestPollInterval(2);

}  // namespace

OpenAlMixer::~OpenAlMixer() {
  for (const auto& [id, voice] : voices_) OpenAlDevice::Release(voice.inDevice);
  for (const Fading& fading : fading_) OpenAlDevice::Release(fading.inDevice);
}

void OpenAlMixer::Start(VoiceId voice, std::shared_ptr<const StereoSound> sound, SteadyTime requested) {
  EnsureDevice();
  std::optional<OpenAlVoice> inDevice;
  if (device_) inDevice = device_->Play(*sound);
  if (!inDevice) {
    silentMixer_.Start(voice, std::move(sound), requested);
    return;
  }
  const SteadyTime now = std::chrono::steady_clock::now();
  Voice started{*inDevice, sound->Frames(), sound->rate, now + sound->Duration(), now};
  SchedulePoll(started, now);
  voices_[voice] = started;
}

void OpenAlMixer::Stop(VoiceId voice) {
  silentMixer_.Stop(voice);
  const auto found = voices_.find(voice);
  if (found == voices_.end()) return;
  OpenAlDevice::FadeOut(found->second.inDevice);
  // The change takes effect with the next period and takes one period.
  fading_.push_back({found->second.inDevice, std::chrono::steady_clock::now() + 3 * device_->Period()});
  voices_.erase(found);
}

void OpenAlMixer::Collect(SteadyTime now, std::vector<VoiceId>& ended) {
  if (device_ && !device_->IsConnected()) GiveUpDevice();
  CollectVoices(now, ended);
  CollectFaded(now);
  silentMixer_.Collect(now, ended);
  PauseWhenIdle(now);
}

void OpenAlMixer::CollectVoices(SteadyTime now, std::vector<VoiceId>& ended) {
  bool isHung = false;
  for (auto next = voices_.begin(); next != voices_.end();) {
    const auto at = next++;
    auto& [id, voice] = *at;
    if (!OpenAlDevice::IsOver(voice.inDevice)) {
      isHung = isHung || now > voice.end + kHungAfter;
      SchedulePoll(voice, now);
      continue;
    }
    // A device that was just lost stops its sounds too early.
    if (!device_->IsConnected() && voice.end > now) {
      silentMixer_.Continue(id, voice.end);
    } else {
      ended.push_back(id);
    }
    OpenAlDevice::Release(voice.inDevice);
    voices_.erase(at);
  }
  if (isHung) AbandonDevice();
}

void OpenAlMixer::CollectFaded(SteadyTime now) {
  std::erase_if(fading_, [now](const Fading& fading) {
    if (fading.silentFrom > now) return false;
    OpenAlDevice::Release(fading.inDevice);
    return true;
  });
}

void OpenAlMixer::PauseWhenIdle(SteadyTime now) {
  if (!device_ || !device_->CanPause() || !voices_.empty() || !fading_.empty()) {
    pauseAt_.reset();
    return;
  }
  if (!pauseAt_) pauseAt_ = now + kIdleBeforePause;
  if (*pauseAt_ > now) return;
  device_->Pause();
  pauseAt_.reset();
}

std::optional<SteadyTime> OpenAlMixer::NextDue() const {
  std::optional<SteadyTime> due = silentMixer_.NextDue();
  const auto orEarlier = [&due](SteadyTime time) { due = due ? std::min(*due, time) : time; };
  for (const auto& [id, voice] : voices_) orEarlier(voice.nextPoll);
  for (const Fading& fading : fading_) orEarlier(fading.silentFrom);
  if (pauseAt_) orEarlier(*pauseAt_);
  return due;
}

/// Polls again at the expected end; near the end, about once per period.
void OpenAlMixer::SchedulePoll(Voice& voice, SteadyTime now) const {
  const std::size_t done = std::min(OpenAlDevice::FramesDone(voice.inDevice), voice.frames);
  const std::chrono::duration<double> left(static_cast<double>(voice.frames - done) / voice.rate);
  const nanoseconds wait = std::chrono::duration_cast<nanoseconds>(left) - device_->Period();
  voice.nextPoll = now + std::clamp<nanoseconds>(wait, kShortestPollInterval, kLongestPollInterval);
}

void OpenAlMixer::EnsureDevice() {
  if (device_ && !device_->IsConnected()) GiveUpDevice();
  const SteadyTime now = std::chrono::steady_clock::now();
  if (!device_ && (!nextAttempt_ || *nextAttempt_ <= now)) {
    nextAttempt_ = now + kRetryInterval;
    device_ = OpenAlDevice::Open();
    Report(device_ ? SoundDevice::kFound : SoundDevice::kMissing);
  }
  pauseAt_.reset();
  if (device_) device_->Resume();
}

void OpenAlMixer::GiveUpDevice() {
  ContinueSilently();
  device_.reset();
}

void OpenAlMixer::AbandonDevice() {
  // Closing a hung device would block. It stays open until the process ends.
  static auto& abandoned = *new std::vector<std::unique_ptr<OpenAlDevice>>();
  abandoned.push_back(std::move(device_));
  ContinueSilently();
}

void OpenAlMixer::ContinueSilently() {
  for (const auto& [id, voice] : voices_) {
    silentMixer_.Continue(id, voice.end);
    if (device_) OpenAlDevice::Release(voice.inDevice);
  }
  for (const Fading& fading : fading_) {
    if (device_) OpenAlDevice::Release(fading.inDevice);
  }
  voices_.clear();
  fading_.clear();
  pauseAt_.reset();
  nextAttempt_.reset();
  Report(SoundDevice::kMissing);
}

void OpenAlMixer::Report(SoundDevice device) {
  // A device that is available from the start is not reported.
  const SoundDevice before = reported_.value_or(SoundDevice::kFound);
  reported_ = device;
  if (device != before && report_) report_(device);
}

std::unique_ptr<WaveOutput> MakeOpenAlWaveOutput(WindowMessages& windows, SoundDeviceObserver* observer) {
  PrepareOpenAl();
  return std::make_unique<ThreadedWaveOutput>(std::make_unique<OpenAlMixer>(), windows, observer);
}

}  // namespace tonalith::platform
