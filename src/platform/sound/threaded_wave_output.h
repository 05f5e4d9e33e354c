// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Wave output over a mixer on its own thread: no call waits for a sound device, not even for opening it. The thread
// starts with the first sound and blocks while the mixer is idle. Each written sound posts exactly one wave-done
// message, at its end or at its reset; handles are not reused. PrepareHeader decodes, so a prepared sound starts
// without delay. The destructor ends all sounds without messages and does not wait for a hung device: then the thread
// is detached.

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
  /// `windows` and `observer` (may be null) must outlive this object. Both are called on the mixer's thread under a
  /// lock: they must return immediately and not call back.
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
