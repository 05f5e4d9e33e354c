// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/main_window_sound.h"

#include "app/frm_tonalith.h"
#include "core/paths.h"

namespace tonalith::app {

MainWindowSound::MainWindowSound(const MainControls& controls, const FormServices& services)
    : c_(controls),
      services_(services),
      host_(c_, AudioFolder),
      playback_(services.neck, services.sounds, services.scaleSounds, host_, services.events, services.msgBox) {}

MainWindowSound::~MainWindowSound() {
  if (services_.sounds.Notifier == &playback_) services_.sounds.Notifier = nullptr;
}

void MainWindowSound::SetAudioFolder() {
  AudioFolder = services_.database.AppFolder() + core::kPathSeparator + "Audio" + core::kPathSeparator;
}

void MainWindowSound::TakeNotifications() { services_.sounds.Notifier = &playback_; }

void MainWindowSound::Play() {
  core::DeferredFailure failure;
  failure.Try([this] { playback_.PlayToneNotes(); });
  failure.Clear();
}

void MainWindowSound::Stop() {
  if (!playback_.IsRunning()) return;
  core::DeferredFailure failure;
  playback_.Cancel();
  failure.Try([this] { services_.sounds.UnloadSoundBuffer(audio::SoundManager::kAllBuffers); });
  failure.Try([this] { host_.HideMarker(); });
  failure.Try([this] { host_.ShowStatus({audio::PlaybackState::kStandby, {}}); });
  failure.Clear();
}

void MainWindowSound::Release(core::DeferredFailure& failure) {
  playback_.Cancel();
  c_.fretboard->DarkenNote(views::LitBy::kPlayback);
  failure.Try([this] { services_.sounds.UnloadSoundBuffer(audio::SoundManager::kAllBuffers); });
  failure.Try([this] { services_.sounds.TerminateSoundManager(); });
}

}  // namespace tonalith::app
