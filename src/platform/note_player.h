// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Plays one recorded note. Play starts the sound and returns immediately; a newer note replaces the one that is
// playing. A missing or unreadable file plays nothing, without a message. A notifier is called when a note starts and
// ends.

#pragma once

#include <string>

namespace tonalith::platform {

class NotePlayerNotifier {
 public:
  virtual ~NotePlayerNotifier() = default;
  /// The note has started. Called before Play returns.
  virtual void NoteStarted() = 0;
  /// The note has ended or was replaced by a newer one.
  virtual void NoteEnded() = 0;
};

class NotePlayer {
 public:
  virtual ~NotePlayer() = default;

  /// May be null; not owned.
  NotePlayerNotifier* Notifier = nullptr;

  /// `path` is in the system's encoding. Throws core::Failure if the sound device fails.
  virtual void Play(const std::string& path) = 0;
};

}  // namespace tonalith::platform
