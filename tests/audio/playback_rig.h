// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A playback on scripted ports and a scripted window. The note that is playing ends at every wait.

#pragma once

#include <array>
#include <functional>
#include <optional>
#include <sstream>
#include <string>

#include "audio/scale_playback.h"
#include "audio/sound_rig.h"

namespace tonalith::audio {

inline std::string TextOf(const PlaybackStatus& status) {
  constexpr std::array<const char*, 4> kNames{"Loaded", "Playing: ", "Stopped", "Standby"};
  return kNames.at(static_cast<std::size_t>(status.state)) + status.note;
}

/// A window; every call is recorded.
class ScriptedHost : public PlaybackHost {
 public:
  explicit ScriptedHost(tests::AudioScript& script) : script_(script) {}

  std::optional<std::string> CurrentField(int position) override {
    script_.Refused("field", {});
    if (position == 9) return "Major";
    return position == 5 ? pattern : "wrong field";
  }
  std::string KeyText() override { return script_.Refused("key", {}) ? "" : key; }
  std::string SoundFolder() override {
    script_.Refused("folder", {});
    return "Audio/";
  }
  void ShowMarker(int index) override { script_.Refused("flash", "flash img" + std::to_string(index)); }
  void HideMarker() override { script_.Refused("hide", "hide marker"); }
  void ShowStatus(const PlaybackStatus& status) override { script_.Refused("status", "status " + TextOf(status)); }

  std::optional<std::string> pattern = "2212221";
  std::string key = "C";

 private:
  tests::AudioScript& script_;
};

/// Ends the note that is playing at every wait, after running the test's callback.
class ScriptedEvents : public platform::EventPump {
 public:
  explicit ScriptedEvents(testing::SoundRig& rig) : rig_(rig) {}
  void WaitForEvents() override {
    ++waits;
    rig_.script.Refused("wait", {});
    if (during) during(waits);
    rig_.output.FinishAll();
    rig_.windows.Dispatch();
  }
  void WaitForEvents(std::chrono::milliseconds /*limit*/) override { WaitForEvents(); }

  int waits = 0;
  std::function<void(int wait)> during;

 private:
  testing::SoundRig& rig_;
};

struct PlaybackRig : testing::SoundRig {
  explicit PlaybackRig(const core::Neck& neck = core::Neck::Standard())
      : playback(neck, sounds, scaleSounds, stage, events, box) {
    for (int number = 0; number < 16; ++number) {
      files.Put("Audio/" + std::to_string(number) + ".wav", testing::Wave({}, testing::Number(0, 8)));
    }
    sounds.Notifier = &playback;
  }

  /// The notes of a playback in their order, each as file number and image: "0@img8 1@img10".
  std::string Tune() {
    script.Forget();
    playback.PlayToneNotes();
    std::string tune;
    std::string file;
    std::istringstream lines(script.Record());
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("open file Audio/")) file = line.substr(16, line.size() - 20);
      if (line.starts_with("flash ")) tune += (tune.empty() ? "" : " ") + file + "@" + line.substr(6);
    }
    return tune;
  }

  ScriptedHost stage{script};
  ScriptedEvents events{*this};
  ScalePlayback playback;
};

}  // namespace tonalith::audio
