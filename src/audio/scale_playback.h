// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Plays the current scale, one recorded note after the other, while the marker walks over the neck and the status line
// follows. A playback works on the pattern, the key and the tags that it read at its start, so moving the record or
// editing in the middle is safe; it waits asleep in the event loop, handles one playback at a time and ends promptly
// when it is cancelled. The main window owns it and registers it as the sound manager's Notifier. User-interface
// thread. Nothing is thrown: failures are shown at the end in a message box.

#pragma once

#include <string>
#include <vector>

#include "audio/playback_stage.h"
#include "audio/scale_sound_files.h"
#include "audio/sound_manager.h"
#include "core/deferred_failure.h"
#include "core/neck.h"
#include "core/note_model.h"
#include "platform/clock.h"
#include "platform/event_pump.h"

namespace tonalith::audio {

class ScalePlayback : public SoundManagerNotifier {
 public:
  /// `files` is what `sounds` reads its files from.
  ScalePlayback(SoundManager& sounds, ScaleSoundFiles& files, PlaybackStage& stage, platform::EventPump& events,
                core::MsgBox& msgBox);

  /// True while no note is sounding.
  bool SoundEnded = true;
  /// The name of the note being played, for the status line.
  std::string CurrentPlayNote;

  /// Plays the scale and returns when it is through or cancelled. Does nothing while another call is running.
  void PlayToneNotes();

  /// Makes a running playback return as soon as the event that calls this is handled: it starts no further note,
  /// touches the stage no more and shows no message. For the window's closing.
  void Cancel() { cancelled_ = true; }
  [[nodiscard]] bool IsRunning() const { return running_; }

  /// Plays a slot. `txtSoundFile` is not used.
  void PlayMultiSounds(std::int32_t pIndex, const std::string& txtSoundFile);

  void SoundLoaded(std::int32_t BufferIndex) override;
  void SoundPlayStart(std::int32_t BufferIndex) override;
  void SoundPlayEnd(std::int32_t BufferIndex) override;
  void SoundUnloaded(std::int32_t BufferIndex) override;

 private:
  /// What one playback works on.
  struct Score {
    std::string keyName;
    core::NoteNumber startNumber = 0;
    /// The length of the interval pattern; -1 for a null one.
    int length = -1;
    std::vector<std::string> notes;
    /// At which each of the notes sounds. The first lies between C4 and B4.
    std::vector<voice::Pitch> pitches;
    /// Of every note of the neck, in their order.
    std::vector<std::string> tags;
    std::string lastPlayed;
    bool keyPlayed = false;
  };

  Score ReadScore(core::DeferredFailure& failure);
  void PlayPosition(Score& score, int position, core::DeferredFailure& failure);
  void PlayImage(Score& score, int position, int image, core::DeferredFailure& failure);
  void PlayClosingKey(Score& score, core::DeferredFailure& failure);
  /// Plays a file. `position` is that of the note for which it is played.
  void Sound(const Score& score, std::int32_t slot, int fileNumber, int position, int image,
             core::DeferredFailure& failure);
  void WaitForSoundEnd(core::DeferredFailure& failure);
  [[nodiscard]] bool IsAnySlotPlaying() const;
  void DarkenNote();
  void ShowStatus(const std::string& caption, StatusColour colour);

  SoundManager& sounds_;
  ScaleSoundFiles& files_;
  PlaybackStage& stage_;
  platform::EventPump& events_;
  core::MsgBox& msgBox_;
  core::Neck neck_ = core::Neck::Standard();
  bool running_ = false;
  bool cancelled_ = false;
};

/// Handles events until the time of day differs by at least `seconds` from what it was at the call. Midnight ends it.
void Pause(std::int32_t seconds, const platform::TimeOfDay& clock, platform::EventPump& events);

}  // namespace tonalith::audio
