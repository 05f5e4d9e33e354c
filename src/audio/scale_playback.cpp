// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/scale_playback.h"

#include <chrono>
#include <cmath>
#include <utility>

#include "core/scale_construction.h"
#include "core/scale_record.h"
#include "core/text.h"

namespace tonalith::audio {
namespace {

constexpr int kSoundingStrings = 2;

/// A pitch as the voice counts it, from C-1.
voice::Pitch VoicePitch(core::Pitch pitch) { return pitch.semitones - core::Pitch::Of(0, -1).semitones; }

/// Sets a flag for the current scope.
class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) : flag_(flag) { flag_ = true; }
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;
  ~ScopedFlag() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace

ScalePlayback::ScalePlayback(core::Neck neck, SoundManager& sounds, ScaleSoundFiles& files, PlaybackHost& host,
                             platform::EventPump& events, core::MsgBox& msgBox)
    : neck_(std::move(neck)), sounds_(sounds), files_(files), host_(host), events_(events), msgBox_(msgBox) {}

void ScalePlayback::PlayToneNotes() {
  if (running_) return;
  const ScopedFlag running(running_);
  cancelled_ = false;
  core::DeferredFailure failure;
  Score score = ReadScore(failure);
  for (int position = 0; position < core::kScalePositions && !cancelled_; ++position) {
    PlayPosition(score, position, failure);
  }
  sounds_.UnloadSoundBuffer(SoundManager::kAllBuffers);
  if (!cancelled_) failure.ReportDescription(msgBox_);
}

ScalePlayback::Score ScalePlayback::ReadScore(core::DeferredFailure& failure) {
  // Kept: see docs/behaviour.md, ScaleStepType has no effect.
  Score score;
  std::optional<std::string> scaleType = std::string();
  std::optional<std::string> pattern = std::string();
  failure.Try([&] { scaleType = host_.CurrentField(core::scale_field::kTypeName); });
  failure.Try([&] { pattern = host_.CurrentField(core::scale_field::kIntervals); });
  std::string key;
  failure.Try([&] { key = host_.KeyText(); });
  if (key.empty()) key = "C";
  score.startNumber = core::CNoteToNumber(key);
  if (core::CNumberToScore(score.startNumber) == key) score.key = score.startNumber;
  if (pattern) score.length = static_cast<int>(core::CharacterCount(*pattern));
  failure.Try([&] { score.notes = core::ReportedScale(score.startNumber, pattern, msgBox_); });
  return score;
}

bool ScalePlayback::IsNote(int image, core::NoteNumber pitchClass) const {
  return neck_.PitchAt(image).PitchClass() == pitchClass;
}

void ScalePlayback::PlayPosition(Score& score, int position, core::DeferredFailure& failure) {
  std::optional<core::NoteNumber> note;
  if (position < std::ssize(score.notes)) note = score.notes[static_cast<std::size_t>(position)].pitchClass;
  for (int image = 0; note && image < neck_.Notes() && !cancelled_; ++image) {
    if (IsNote(image, *note)) PlayImage(score, position, image, failure);
  }
  if (!cancelled_ && position == score.length && score.keyPlayed) PlayClosingKey(score, failure);
  if (cancelled_) return;
  score.lastPlayed = note;
  failure.Try([&] { host_.HideMarker(); });
}

void ScalePlayback::PlayImage(Score& score, int position, int image, core::DeferredFailure& failure) {
  const core::ScaleNote& note = score.notes[static_cast<std::size_t>(position)];
  const std::int32_t slot = image / neck_.positions + 1;
  const bool isKey = note.pitchClass == score.key;
  CurrentPlayNote = NameOf(note);
  // Kept: see docs/behaviour.md, Only the first two strings play.
  if (position > score.length || slot > kSoundingStrings) return;
  if (!isKey) WaitForSoundEnd(failure);
  // Kept: see docs/behaviour.md, A repeated note is skipped.
  if (cancelled_ || note.pitchClass == score.lastPlayed) return;
  Sound(score, slot, position, position, image, failure);
  if (isKey) {
    WaitForSoundEnd(failure);
    score.keyPlayed = true;
  }
  score.lastPlayed = note.pitchClass;
}

void ScalePlayback::PlayClosingKey(Score& score, core::DeferredFailure& failure) {
  CurrentPlayNote = core::CNumberToNote(score.startNumber, msgBox_);
  WaitForSoundEnd(failure);
  if (cancelled_ || score.startNumber == score.lastPlayed) return;
  // The marker moves to the first key note on the neck. There is one: keyPlayed is set only after the key note was
  // played.
  int image = 0;
  while (!IsNote(image, score.startNumber)) ++image;
  // Kept: see docs/behaviour.md, The closing key has its own file number.
  Sound(score, 1, score.startNumber, 0, image, failure);
  WaitForSoundEnd(failure);
  score.keyPlayed = false;
}

void ScalePlayback::Sound(const Score& score, std::int32_t slot, int fileNumber, int position, int image,
                          core::DeferredFailure& failure) {
  std::string file;
  failure.Try([&] { file = host_.SoundFolder() + std::to_string(fileNumber) + ".wav"; });
  {
    const ScaleSoundFiles::Pitched pitched(files_,
                                           VoicePitch(score.notes.at(static_cast<std::size_t>(position)).pitch));
    sounds_.LoadSoundBuffer(slot, file, BufferFlags::kNone);
  }
  if (cancelled_) return;
  PlayMultiSounds(slot, file);
  // Highlight only a note that really plays.
  if (!SoundEnded) failure.Try([&] { host_.LightNote(image); });
  failure.Try([&] { host_.ShowMarker(image); });
  // Render the next note while this one plays.
  const auto next = static_cast<std::size_t>(position) + 1;
  if (next < score.notes.size()) failure.Try([&] { files_.Prepare(VoicePitch(score.notes[next].pitch)); });
}

void ScalePlayback::WaitForSoundEnd(core::DeferredFailure& failure) {
  // A slot released while it plays gets no wave-done message, so there is nothing to wait for.
  while (!SoundEnded && !cancelled_ && !sounds_.IsTerminated() && IsAnySlotPlaying()) {
    if (!failure.Try([&] { events_.WaitForEvents(); })) return;
  }
}

bool ScalePlayback::IsAnySlotPlaying() const {
  for (std::int32_t slot = 1; slot <= SoundManager::kBufferCount; ++slot) {
    if (sounds_.Buffer(slot).state == BufferState::kPlaying) return true;
  }
  return false;
}

void ScalePlayback::PlayMultiSounds(std::int32_t pIndex, const std::string& /*txtSoundFile*/) {
  // Kept: see docs/behaviour.md, PlayMultiSounds ignores its file.
  core::DeferredFailure failure;
  failure.Try([&] { sounds_.PlaySoundBuffer(pIndex); });
  failure.ReportDescription(msgBox_);
}

void ScalePlayback::SoundLoaded(std::int32_t /*BufferIndex*/) { ShowStatus(PlaybackState::kLoaded); }

void ScalePlayback::SoundPlayStart(std::int32_t /*BufferIndex*/) {
  SoundEnded = false;
  ShowStatus(PlaybackState::kPlaying, CurrentPlayNote);
}

void ScalePlayback::SoundPlayEnd(std::int32_t /*BufferIndex*/) {
  SoundEnded = true;
  DarkenNote();
  ShowStatus(PlaybackState::kStopped);
}

void ScalePlayback::SoundUnloaded(std::int32_t /*BufferIndex*/) {
  DarkenNote();
  ShowStatus(PlaybackState::kStandby);
}

void ScalePlayback::DarkenNote() {
  if (running_ && cancelled_) return;
  core::DeferredFailure failure;
  failure.Try([&] { host_.DarkenNote(); });
  failure.Clear();  // ShowStatus follows and reports a failing host.
}

void ScalePlayback::ShowStatus(PlaybackState state, const std::string& note) {
  if (running_ && cancelled_) return;
  core::DeferredFailure failure;
  failure.Try([&] { host_.ShowStatus({state, note}); });
  failure.ReportNumberAndDescription(msgBox_);
}

void Pause(std::int32_t seconds, const std::function<double()>& secondsSinceMidnight, platform::EventPump& events) {
  // Kept: see docs/behaviour.md, Pause ends at midnight.
  const double start = secondsSinceMidnight();
  while (true) {
    const double left = seconds - std::abs(secondsSinceMidnight() - start);
    if (left <= 0) return;
    events.WaitForEvents(std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>(left)));
  }
}

}  // namespace tonalith::audio
