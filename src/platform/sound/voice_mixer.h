// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Plays sounds for ThreadedWaveOutput. Each mixer belongs to one thread, which makes all calls and destroys it. A mixer
// never fails: a sound that cannot be played takes its usual time in silence.

#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/sound/stereo_sound.h"

namespace tonalith::platform {

using VoiceId = std::uint64_t;
using SteadyTime = std::chrono::steady_clock::time_point;

enum class SoundDevice { kMissing, kFound };

class VoiceMixer {
 public:
  virtual ~VoiceMixer() = default;

  /// Called once, before all other functions, with the callback for changes of the sound device.
  virtual void Attach(std::function<void(SoundDevice)> report) = 0;

  /// Starts a sound that was requested at `requested`.
  virtual void Start(VoiceId voice, std::shared_ptr<const StereoSound> sound, SteadyTime requested) = 0;

  /// Stops a voice without a click. Ignores a voice that has ended.
  virtual void Stop(VoiceId voice) = 0;

  /// Adds the voices that have ended to `ended` and removes them.
  virtual void Collect(SteadyTime now, std::vector<VoiceId>& ended) = 0;

  /// The time of the next call of Collect; nullopt if there is nothing to do.
  [[nodiscard]] virtual std::optional<SteadyTime> NextDue() const = 0;
};

}  // namespace tonalith::platform
