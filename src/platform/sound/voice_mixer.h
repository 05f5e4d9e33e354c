// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What a thread of ThreadedWaveOutput drives: sounds that start, stop and end. Each mixer belongs to one such thread,
// which makes all calls, and is destroyed on it. A mixer never fails: what cannot be heard keeps its time in silence.

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

  /// Called once, before everything else, with the function that hears about the sound device.
  virtual void Attach(std::function<void(SoundDevice)> report) = 0;

  /// Starts a sound that was asked for at `asked`.
  virtual void Start(VoiceId voice, std::shared_ptr<const StereoSound> sound, SteadyTime asked) = 0;

  /// Silences a voice without a click. One that is not there has ended: nothing happens.
  virtual void Stop(VoiceId voice) = 0;

  /// Adds the voices whose last sample is through to `ended` and forgets them.
  virtual void Collect(SteadyTime now, std::vector<VoiceId>& ended) = 0;

  /// When Collect has to be called next; nothing while there is nothing to do.
  [[nodiscard]] virtual std::optional<SteadyTime> NextDue() const = 0;
};

}  // namespace tonalith::platform
