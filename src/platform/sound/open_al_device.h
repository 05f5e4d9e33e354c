// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The system's default sound device through OpenAL Soft, with one context that is current on the thread that opened it;
// all calls must be made on that thread. Sounds go to the left and right channel unchanged: unity gain, no position, no
// limiter. A device can be lost at any time; then its sounds stop and IsConnected returns false.

#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "platform/sound/open_al_library.h"
#include "platform/sound/stereo_sound.h"

namespace tonalith::platform {

/// One sound in the device.
struct OpenAlVoice {
  ALuint source = 0;
  ALuint buffer = 0;
};

class OpenAlDevice {
 public:
  /// Returns null if there is no device.
  static std::unique_ptr<OpenAlDevice> Open();
  OpenAlDevice(const OpenAlDevice&) = delete;
  OpenAlDevice& operator=(const OpenAlDevice&) = delete;
  /// Closes the device; sound that was not played yet is dropped.
  ~OpenAlDevice();

  [[nodiscard]] bool IsConnected() const;
  /// The length of one mixing period.
  [[nodiscard]] std::chrono::nanoseconds Period() const { return period_; }

  /// Whether Pause would have an effect.
  [[nodiscard]] bool CanPause() const { return canPause_ && !isPaused_; }
  /// Stops the mixing while nothing plays, and restarts it. A device that cannot be paused continues to mix silence.
  void Pause();
  void Resume();

  /// Starts a sound. Returns nullopt if the device refuses it.
  std::optional<OpenAlVoice> Play(const StereoSound& sound);
  [[nodiscard]] static bool IsOver(const OpenAlVoice& voice);
  /// The number of frames mixed so far.
  [[nodiscard]] static std::size_t FramesDone(const OpenAlVoice& voice);
  /// Fades a voice to silence within one mixing period.
  static void FadeOut(const OpenAlVoice& voice);
  static void Release(const OpenAlVoice& voice);

 private:
  OpenAlDevice(ALCdevice* device, ALCcontext* context);
  std::optional<OpenAlVoice> MakeVoice(const StereoSound& sound) const;

  ALCdevice* device_;
  ALCcontext* context_;
  std::chrono::nanoseconds period_{};
  ALint resampler_ = -1;
  bool canPause_ = false;
  bool isPaused_ = false;
};

}  // namespace tonalith::platform
