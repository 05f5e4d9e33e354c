// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The sound of the main window: plays its current scale, and releases the sound manager when the window loses the focus
// or closes. Owned by the window.

#pragma once

#include <string>

#include "app/main_controls.h"
#include "app/main_window_playback.h"
#include "audio/scale_playback.h"
#include "core/deferred_failure.h"

namespace tonalith::app {

struct FormServices;

class MainWindowSound {
 public:
  /// `controls` and `services` must outlive this object.
  MainWindowSound(const MainControls& controls, const FormServices& services);
  ~MainWindowSound();
  MainWindowSound(const MainWindowSound&) = delete;
  MainWindowSound& operator=(const MainWindowSound&) = delete;

  [[nodiscard]] const audio::ScalePlayback& Playback() const { return playback_; }
  void SetAudioFolder();
  /// Makes the playback the Notifier of the sound manager.
  void TakeNotifications();
  void SetSoundEnded() { playback_.SoundEnded = true; }
  /// Returns at the end of the playback. Clears failures.
  void Play();
  /// Stops a running playback and clears its marker and status. Clears failures.
  void Stop();
  /// Stops a playback and terminates the sound manager; a failure is left pending in `failure`.
  void Release(core::DeferredFailure& failure);

 private:
  const MainControls& c_;
  const FormServices& services_;
  std::string AudioFolder;
  MainWindowPlayback host_;
  audio::ScalePlayback playback_;
};

}  // namespace tonalith::app
