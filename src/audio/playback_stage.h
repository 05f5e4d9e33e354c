// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The interface that the playback of a scale needs from its window: the current record, the chosen key, the neck with
// its play marker, and the status line. Every function may throw core::Failure; the playback reports it at its end.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tonalith::audio {

struct StatusColour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const StatusColour&) const = default;
};

class PlaybackStage {
 public:
  virtual ~PlaybackStage() = default;

  /// A field of the current scale record by its position; nullopt for a null field.
  virtual std::optional<std::string> CurrentField(int position) = 0;
  /// The text of cmbTranspose.
  virtual std::string KeyText() = 0;
  /// The note name in the Tag of a fretboard image (img0, img1, ...), numbered as core::Neck numbers notes.
  virtual std::string ImageTag(int index) = 0;
  /// The folder of the scale sounds, with the separator at its end.
  virtual std::string AudioFolder() = 0;
  /// Moves the play marker above the image with that control name and repaints it immediately.
  virtual void FlashNotes(const std::string& controlName) = 0;
  virtual void HidePicture1() = 0;
  /// Highlights the image with that control name until DarkenNote: its note is playing.
  virtual void LightNote(const std::string& /*controlName*/) {}
  virtual void DarkenNote() {}
  /// Caption and text colour of lblStatus.
  virtual void ShowStatus(const std::string& caption, StatusColour colour) = 0;
};

}  // namespace tonalith::audio
