// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A playback whose sound manager is terminated before or while it runs does not wait for messages that cannot arrive. A
// cancelled playback shows nothing until its end.

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "audio/playback_rig.h"

namespace tonalith::audio {
namespace {

/// C major.
class PlainStage : public PlaybackHost {
 public:
  std::optional<std::string> CurrentField(int position) override { return position == 5 ? "2212221" : "Major"; }
  std::string KeyText() override { return "C"; }
  std::string SoundFolder() override { return "Audio/"; }
  void ShowMarker(int /*index*/) override { ++flashes; }
  void HideMarker() override {}
  void ShowStatus(const PlaybackStatus& shown) override { status = TextOf(shown); }
  int flashes = 0;
  std::string status;
};

/// Ends the note that is playing at each wait. Cancels a playback that waits too often, so that a failing test ends.
class PatientEvents : public platform::EventPump {
 public:
  explicit PatientEvents(testing::SoundRig& rig) : rig_(rig) {}
  void WaitForEvents() override {
    ++waits;
    if (during) during(waits);
    rig_.output.FinishAll();
    rig_.windows.Dispatch();
    if (waits >= kMostWaits) playback->Cancel();
  }
  void WaitForEvents(std::chrono::milliseconds /*limit*/) override { WaitForEvents(); }

  static constexpr int kMostWaits = 100;
  int waits = 0;
  std::function<void(int wait)> during;
  ScalePlayback* playback = nullptr;

 private:
  testing::SoundRig& rig_;
};

struct TerminatedRig : testing::SoundRig {
  TerminatedRig() {
    for (int number = 0; number < 16; ++number) {
      files.Put("Audio/" + std::to_string(number) + ".wav", testing::Wave({}, testing::Number(0, 8)));
    }
    sounds.Notifier = &playback;
    events.playback = &playback;
  }
  PlainStage stage;
  PatientEvents events{*this};
  /// With one note of each name.
  core::Neck neck{{core::Pitch::Of(0, 4)}, 12};
  ScalePlayback playback{neck, sounds, scaleSounds, stage, events, box};
};

TEST(TerminatedPlayback, WaitsForEachNoteBeforeTheTermination) {
  TerminatedRig rig;
  rig.playback.PlayToneNotes();
  EXPECT_EQ(rig.stage.flashes, 8);
  EXPECT_EQ(rig.events.waits, 7);
}

TEST(TerminatedPlayback, DoesNotWaitAfterTheTermination) {
  TerminatedRig rig;
  rig.playback.PlayToneNotes();
  rig.sounds.TerminateSoundManager();
  ASSERT_TRUE(rig.sounds.IsTerminated());
  rig.events.waits = 0;
  rig.playback.PlayToneNotes();
  EXPECT_EQ(rig.events.waits, 0);
  EXPECT_FALSE(rig.playback.IsRunning());
}

TEST(TerminatedPlayback, StopsWaitingAtTheTermination) {
  TerminatedRig rig;
  rig.events.during = [&](int wait) {
    if (wait == 3) rig.sounds.TerminateSoundManager();
  };
  rig.playback.PlayToneNotes();
  EXPECT_EQ(rig.events.waits, 3);
  EXPECT_FALSE(rig.playback.IsRunning());
}

TEST(CancelledPlayback, ShowsTheStatusAgainAfterItsEnd) {
  TerminatedRig rig;
  rig.events.during = [&](int wait) {
    if (wait == 3) rig.playback.Cancel();
  };
  rig.playback.PlayToneNotes();
  ASSERT_FALSE(rig.playback.IsRunning());
  EXPECT_EQ(rig.stage.status, "Playing: E") << "nothing is shown after the cancellation";
  rig.sounds.LoadSoundBuffer(1, "Audio/0.wav", BufferFlags::kNone);
  EXPECT_EQ(rig.stage.status, "Loaded");
  rig.sounds.UnloadSoundBuffer(1);
  EXPECT_EQ(rig.stage.status, "Standby");
}

}  // namespace
}  // namespace tonalith::audio
