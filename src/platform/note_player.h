// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The port that plays one recorded note: handed a file name, it starts the sound and returns at once; a newer note
// takes over from the one that sounds. A file that is missing or unreadable plays nothing and says nothing. A notifier
// hears when a note begins and ends to sound. Called on the user-interface thread; the implementation outlives its
// callers.

#pragma once

#include <string>

namespace tonalith::platform {

class NotePlayerNotifier {
 public:
  virtual ~NotePlayerNotifier() = default;
  /// The note that Play was called for sounds. Called before Play returns.
  virtual void NoteStarted() = 0;
  /// It has ended, or a newer note takes its place.
  virtual void NoteEnded() = 0;
};

class NotePlayer {
 public:
  virtual ~NotePlayer() = default;

  /// Null for nobody. Borrowed; called on the user-interface thread.
  NotePlayerNotifier* Notifier = nullptr;

  /// `path` is a file name in the system's encoding. Throws core::Failure where the sound device itself fails.
  virtual void Play(const std::string& path) = 0;
};

}  // namespace tonalith::platform
