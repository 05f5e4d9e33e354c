// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window's side of a playback: the current record, the key, the neck and the status line, as the playback asks
// for them. Owned by the main window; user-interface thread; fails as the controls that it asks do.

#pragma once

#include <optional>
#include <string>

#include "app/main_controls.h"
#include "audio/playback_stage.h"

namespace tonalith::app {

class PlaybackDesk : public audio::PlaybackStage {
 public:
  /// Both are the window's and outlive the desk.
  PlaybackDesk(const MainControls& controls, const std::string& audioFolder)
      : c_(controls), audioFolder_(audioFolder) {}

  std::optional<std::string> CurrentField(int position) override;
  std::string KeyText() override;
  std::string ImageTag(int index) override;
  std::string AudioFolder() override { return audioFolder_; }
  void FlashNotes(const std::string& controlName) override;
  void HidePicture1() override;
  void LightNote(const std::string& controlName) override;
  void DarkenNote() override;
  void ShowStatus(const std::string& caption, audio::StatusColour colour) override;

 private:
  const MainControls& c_;
  const std::string& audioFolder_;
};

}  // namespace tonalith::app
