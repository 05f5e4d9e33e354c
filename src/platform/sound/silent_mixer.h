// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A mixer without output: every sound takes its usual time and then ends. Used without a sound device and after one was
// lost. Owned by its output or by another mixer, on whose thread all calls are made; never fails.

#pragma once

#include <map>
#include <memory>
#include <vector>

#include "platform/sound/threaded_wave_output.h"
#include "platform/sound/voice_mixer.h"

namespace tonalith::platform {

class SilentMixer : public VoiceMixer {
 public:
  void Attach(std::function<void(SoundDevice)> report) override;
  void Start(VoiceId voice, std::shared_ptr<const StereoSound> sound, SteadyTime requested) override;
  void Stop(VoiceId voice) override;
  void Collect(SteadyTime now, std::vector<VoiceId>& ended) override;
  [[nodiscard]] std::optional<SteadyTime> NextDue() const override;

  /// Continues a sound that started elsewhere, in silence.
  void Continue(VoiceId voice, SteadyTime end) { ends_[voice] = end; }

 private:
  std::map<VoiceId, SteadyTime> ends_;
};

/// A wave output that keeps real time but is silent.
std::unique_ptr<WaveOutput> MakeSilentWaveOutput(WindowMessages& windows);

}  // namespace tonalith::platform
