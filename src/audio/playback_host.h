// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The interface that the playback of a scale needs from its window: the current record, the chosen key, and a place to
// report what is playing. Notes of the neck are numbered as core::Neck numbers them. The window chooses texts, colours
// and widgets. Every function may throw core::Failure; the playback reports it at its end.

#pragma once

#include <optional>
#include <string>

namespace tonalith::audio {

enum class PlaybackState { kLoaded, kPlaying, kStopped, kStandby };

struct PlaybackStatus {
  PlaybackState state = PlaybackState::kStandby;
  /// The name of the note that is playing; empty in the other states.
  std::string note;
  bool operator==(const PlaybackStatus&) const = default;
};

class PlaybackHost {
 public:
  virtual ~PlaybackHost() = default;

  /// A field of the current scale record by its position; nullopt for a null field.
  virtual std::optional<std::string> CurrentField(int position) = 0;
  /// The text of the key box.
  virtual std::string KeyText() = 0;
  /// The folder of the scale sounds, with the separator at its end.
  virtual std::string SoundFolder() = 0;
  /// Moves the play marker to a note of the neck and repaints it immediately.
  virtual void ShowMarker(int index) = 0;
  virtual void HideMarker() = 0;
  /// Highlights a note of the neck until DarkenNote: it is playing.
  virtual void LightNote(int /*index*/) {}
  virtual void DarkenNote() {}
  virtual void ShowStatus(const PlaybackStatus& status) = 0;
};

}  // namespace tonalith::audio
