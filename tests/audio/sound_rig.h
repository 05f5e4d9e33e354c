// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A sound manager on scripted ports; everything that happens is recorded in order.

#pragma once

#include <memory>
#include <string>

#include "audio/scale_sound_files.h"
#include "audio/sound_manager.h"
#include "audio/wave_bytes.h"
#include "support/recording_msg_box.h"
#include "support/scripted_audio.h"

namespace tonalith::testing {

class RecordingNotifier : public audio::SoundManagerNotifier {
 public:
  explicit RecordingNotifier(tests::AudioScript& script) : script_(script) {}
  void SoundLoaded(std::int32_t BufferIndex) override { Note("SoundLoaded", BufferIndex); }
  void SoundPlayStart(std::int32_t BufferIndex) override { Note("SoundPlayStart", BufferIndex); }
  void SoundPlayEnd(std::int32_t BufferIndex) override { Note("SoundPlayEnd", BufferIndex); }
  void SoundUnloaded(std::int32_t BufferIndex) override { Note("SoundUnloaded", BufferIndex); }
  /// Called after each entry with its text: the reaction of a client.
  std::function<void(const std::string&)> then;

 private:
  void Note(const std::string& name, std::int32_t slot) {
    const std::string line = name + " " + std::to_string(slot);
    script_.Note(line);
    if (then) then(line);
  }
  tests::AudioScript& script_;
};

/// A message box whose messages are recorded too.
class LoggingMsgBox : public tests::RecordingMsgBox {
 public:
  explicit LoggingMsgBox(tests::AudioScript& script) : script_(script) {}
  using core::MsgBox::Show;
  core::MsgBoxAnswer Show(const core::Message& text, core::MsgBoxStyle style, const core::Message& title) override {
    script_.Note("message '" + text.English() + "'");
    return tests::RecordingMsgBox::Show(text, style, title);
  }

 private:
  tests::AudioScript& script_;
};

struct SoundRig {
  SoundRig() {
    files.Put("a.wav", Wave({}, Number(0, 8)));
    files.Put("b.wav", Wave({1, 2, 22050, 8}, Number(0, 6)));
    sounds.Notifier = &notifier;
  }

  /// Returns the record so far and clears it.
  std::string Take() {
    std::string record = script.Record();
    script.Forget();
    return record;
  }

  tests::AudioScript script;
  tests::ScriptedFileInput files{script};
  tests::ScriptedWindowMessages windows{script};
  tests::ScriptedWaveOutput output{script, windows};
  LoggingMsgBox box{script};
  RecordingNotifier notifier{script};
  audio::ScaleSoundFiles scaleSounds{files};
  audio::SoundManager sounds{scaleSounds, output, windows, box};
};

}  // namespace tonalith::testing
