// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window's part of a playback: gives it the current record and the key, and turns its states, notes and
// indices into captions, colours and widgets. Owned by the main window. Fails as the controls do.

#pragma once

#include <optional>
#include <string>

#include "app/main_controls.h"
#include "audio/playback_host.h"

namespace tonalith::app {

class MainWindowPlayback : public audio::PlaybackHost {
 public:
  /// The window owns both; they outlive this object.
  MainWindowPlayback(const MainControls& controls, const std::string& soundFolder)
      : c_(controls), soundFolder_(soundFolder) {}

  std::optional<std::string> CurrentField(int position) override;
  std::string KeyText() override;
  std::string SoundFolder() override { return soundFolder_; }
  void ShowMarker(int index) override;
  void HideMarker() override;
  void LightNote(int index) override;
  void DarkenNote() override;
  void ShowStatus(const audio::PlaybackStatus& status) override;

 private:
  const MainControls& c_;
  const std::string& soundFolder_;
};

}  // namespace tonalith::app
