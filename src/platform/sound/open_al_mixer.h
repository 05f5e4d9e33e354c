// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Mixes all voices into one sound device. The device is opened with the first sound, paused when idle, and closed when
// lost; then sounds continue in silence to their end, and a later sound tries to open the device again. The caller
// waits until NextDue. Owned by its output, on whose thread all calls are made; never fails.

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/sound/open_al_device.h"
#include "platform/sound/silent_mixer.h"
#include "platform/sound/voice_mixer.h"

namespace tonalith::platform {

class OpenAlMixer : public VoiceMixer {
 public:
  OpenAlMixer() = default;
  OpenAlMixer(const OpenAlMixer&) = delete;
  OpenAlMixer& operator=(const OpenAlMixer&) = delete;
  ~OpenAlMixer() override;

  void Attach(std::function<void(SoundDevice)> report) override { report_ = std::move(report); }
  void Start(VoiceId voice, std::shared_ptr<const StereoSound> sound, SteadyTime requested) override;
  void Stop(VoiceId voice) override;
  void Collect(SteadyTime now, std::vector<VoiceId>& ended) override;
  [[nodiscard]] std::optional<SteadyTime> NextDue() const override;

 private:
  struct Voice {
    OpenAlVoice inDevice;
    std::size_t frames = 0;
    std::uint32_t rate = 0;
    /// Latest end time by the system's clock.
    SteadyTime end;
    SteadyTime nextPoll;
  };
  struct Fading {
    OpenAlVoice inDevice;
    SteadyTime silentFrom;
  };

  void EnsureDevice();
  void GiveUpDevice();
  void AbandonDevice();
  void ContinueSilently();
  void SchedulePoll(Voice& voice, SteadyTime now) const;
  void CollectVoices(SteadyTime now, std::vector<VoiceId>& ended);
  void CollectFaded(SteadyTime now);
  void PauseWhenIdle(SteadyTime now);
  void Report(SoundDevice device);

  std::unique_ptr<OpenAlDevice> device_;
  std::map<VoiceId, Voice> voices_;
  std::vector<Fading> fading_;
  SilentMixer silentMixer_;
  std::function<void(SoundDevice)> report_;
  std::optional<SoundDevice> reported_;
  std::optional<SteadyTime> nextAttempt_;
  std::optional<SteadyTime> pauseAt_;
};

/// Wave output on the system's default sound device. Does not open the device yet. Calls PrepareOpenAl, so create it
/// early.
std::unique_ptr<WaveOutput> MakeOpenAlWaveOutput(WindowMessages& windows, SoundDeviceObserver* observer);

}  // namespace tonalith::platform
