// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Wave output over a mixer on a thread of its own: no call waits for a sound device, not even for its opening. The
// thread starts with the first sound and sleeps whenever the mixer has nothing to do. Each sound that is written hands
// in exactly one notice, at its end or at its reset, and a handle is never given out twice. Decoding happens at
// PrepareHeader, so a prepared sound starts without delay. Destruction ends all sounds without notices and does not
// wait for a device that hangs: then the thread is left behind with what it holds.

#pragma once

#include <map>
#include <memory>

#include "platform/sound/stereo_sound.h"
#include "platform/sound/voice_mixer.h"
#include "platform/wave_output.h"
#include "platform/window_messages.h"

namespace tonalith::platform {

class ThreadedWaveOutput : public WaveOutput {
 public:
  /// Borrows `windows` and `observer` (null for none); both outlive this object. Both are called on the mixer's thread
  /// and under a lock: they return at once and do not call back.
  ThreadedWaveOutput(std::unique_ptr<VoiceMixer> mixer, WindowMessages& windows, SoundDeviceObserver* observer);
  ThreadedWaveOutput(const ThreadedWaveOutput&) = delete;
  ThreadedWaveOutput& operator=(const ThreadedWaveOutput&) = delete;
  ~ThreadedWaveOutput() override;

  WaveHandle Open(const WaveFormat& format, WindowHandle target) override;
  void PrepareHeader(WaveHandle device, WAVEHDR& header) override;
  void Write(WaveHandle device, WAVEHDR& header) override;
  void Reset(WaveHandle device) override;
  void UnprepareHeader(WaveHandle device, WAVEHDR& header) override;
  void Close(WaveHandle device) override;

 private:
  class Engine;
  struct Stream {
    SoundLayout layout;
    WindowHandle target = kNoWindow;
    std::shared_ptr<const StereoSound> sound;
  };

  std::shared_ptr<Engine> engine_;
  std::map<WaveHandle, Stream> streams_;
  WaveHandle lastHandle_ = kNoWaveHandle;
};

}  // namespace tonalith::platform
