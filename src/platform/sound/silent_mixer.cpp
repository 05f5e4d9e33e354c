// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/sound/silent_mixer.h"

#include <algorithm>

namespace tonalith::platform {

void SilentMixer::Attach(std::function<void(SoundDevice)> /*report*/) {}

void SilentMixer::Start(VoiceId voice, std::shared_ptr<const StereoSound> sound, SteadyTime requested) {
  Continue(voice, requested + sound->Duration());
}

void SilentMixer::Stop(VoiceId voice) { ends_.erase(voice); }

void SilentMixer::Collect(SteadyTime now, std::vector<VoiceId>& ended) {
  std::erase_if(ends_, [&](const auto& entry) {
    const auto& [voice, end] = entry;
    if (end > now) return false;
    ended.push_back(voice);
    return true;
  });
}

std::optional<SteadyTime> SilentMixer::NextDue() const {
  const auto first =
      std::min_element(ends_.begin(), ends_.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
  if (first == ends_.end()) return std::nullopt;
  return first->second;
}

std::unique_ptr<WaveOutput> MakeSilentWaveOutput(WindowMessages& windows) {
  return std::make_unique<ThreadedWaveOutput>(std::make_unique<SilentMixer>(), windows, nullptr);
}

}  // namespace tonalith::platform
