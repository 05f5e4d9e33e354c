// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Plays the current scale note by note, moves the marker over the neck and updates the status line. A playback copies
// the pattern and the key at its start, so the record may be moved or edited meanwhile. It waits in the event
// loop without polling, runs one playback at a time and returns promptly when cancelled. The main window owns it and
// registers it as the sound manager's Notifier. Never throws: failures are shown at the end in a message box.

#pragma once

#include <functional>
#include <optional>
#include <string>

#include "audio/playback_host.h"
#include "audio/scale_sound_files.h"
#include "audio/sound_manager.h"
#include "core/deferred_failure.h"
#include "core/neck.h"
#include "core/scale.h"
#include "platform/event_pump.h"

namespace tonalith::audio {

class ScalePlayback : public SoundManagerNotifier {
 public:
  /// `files` must be the object that `sounds` reads its files from.
  ScalePlayback(core::Neck neck, SoundManager& sounds, ScaleSoundFiles& files, PlaybackHost& host,
                platform::EventPump& events, core::MsgBox& msgBox);

  /// True while no note is sounding.
  bool SoundEnded = true;
  /// The name of the note being played, for the status line.
  std::string CurrentPlayNote;

  /// Plays the scale and returns at its end or when cancelled. Does nothing while another call is running.
  void PlayToneNotes();

  /// Makes a running playback return as soon as the event that calls this is handled: it starts no further note, does
  /// not call the host again and shows no message. Called when the window closes.
  void Cancel() { cancelled_ = true; }
  [[nodiscard]] bool IsRunning() const { return running_; }

  /// Plays a slot. `txtSoundFile` is not used.
  void PlayMultiSounds(std::int32_t pIndex, const std::string& txtSoundFile);

  void SoundLoaded(std::int32_t BufferIndex) override;
  void SoundPlayStart(std::int32_t BufferIndex) override;
  void SoundPlayEnd(std::int32_t BufferIndex) override;
  void SoundUnloaded(std::int32_t BufferIndex) override;

 private:
  /// The input and state of one playback.
  struct Score {
    core::NoteNumber startNumber = 0;
    /// No value for a key that is no note.
    std::optional<core::NoteNumber> key;
    /// Number of characters of the interval pattern; -1 for a null pattern.
    int length = -1;
    core::Scale notes;
    /// The pitch class.
    std::optional<core::NoteNumber> lastPlayed;
    bool keyPlayed = false;
  };

  Score ReadScore(core::DeferredFailure& failure);
  void PlayPosition(Score& score, int position, core::DeferredFailure& failure);
  void PlayImage(Score& score, int position, int image, core::DeferredFailure& failure);
  void PlayClosingKey(Score& score, core::DeferredFailure& failure);
  [[nodiscard]] bool IsNote(int image, core::NoteNumber pitchClass) const;
  /// Plays a file for the note at `position`.
  void Sound(const Score& score, std::int32_t slot, int fileNumber, int position, int image,
             core::DeferredFailure& failure);
  void WaitForSoundEnd(core::DeferredFailure& failure);
  [[nodiscard]] bool IsAnySlotPlaying() const;
  void DarkenNote();
  void ShowStatus(PlaybackState state, const std::string& note = {});

  core::Neck neck_;
  SoundManager& sounds_;
  ScaleSoundFiles& files_;
  PlaybackHost& host_;
  platform::EventPump& events_;
  core::MsgBox& msgBox_;
  bool running_ = false;
  bool cancelled_ = false;
};

/// Handles events until the time of day differs by at least `seconds` from the time of the call. Midnight ends it.
/// `secondsSinceMidnight` returns the local time, with fractions.
/// Kept: see docs/behaviour.md, Functions without callers.
void Pause(std::int32_t seconds, const std::function<double()>& secondsSinceMidnight, platform::EventPump& events);

}  // namespace tonalith::audio
