// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The lit note of a playback: on while its sound plays, off with its end.

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "audio/playback_rig.h"

namespace tonalith::audio {
namespace {

/// Also writes down which note is lit: "img8 - " for one that is lit and darkened.
class LightStage : public ScriptedHost {
 public:
  using ScriptedHost::ScriptedHost;
  void LightNote(int index) override {
    lights += "img" + std::to_string(index) + " ";
    isLit = true;
  }
  void DarkenNote() override {
    ++darkenings;
    if (std::exchange(isLit, false)) lights += "- ";
    if (isBroken) throw std::runtime_error("darkening broke");
  }
  std::string lights;
  int darkenings = 0;
  bool isLit = false;
  bool isBroken = false;
};

struct LightRig : PlaybackRig {
  LightRig() { sounds.Notifier = &lit; }
  LightStage lightStage{script};
  ScalePlayback lit{core::Neck::Standard(), sounds, scaleSounds, lightStage, events, box};
};

TEST(PlaybackLights, LightEachNoteUntilItsSoundEnds) {
  LightRig rig;
  rig.lightStage.pattern = "75";
  rig.lit.PlayToneNotes();
  EXPECT_EQ(rig.lightStage.lights, "img8 - img3 - img8 - ");
}

TEST(PlaybackLights, StayOffForAFileThatCannotBePlayed) {
  LightRig rig;
  rig.lightStage.pattern = "75";
  rig.files.Remove("Audio/1.wav");
  rig.lit.PlayToneNotes();
  EXPECT_EQ(rig.lightStage.lights, "img8 - img8 - ");
}

TEST(PlaybackLights, GoOffWithASlotThatIsReleasedInTheMiddle) {
  LightRig rig;
  rig.lit.SoundPlayStart(1);
  rig.lightStage.LightNote(1);
  rig.lit.SoundUnloaded(1);
  EXPECT_EQ(rig.lightStage.lights, "img1 - ");
}

TEST(PlaybackLights, AreLeftAloneOnceThePlaybackIsCancelled) {
  LightRig rig;
  rig.events.during = [&](int wait) {
    if (wait != 2) return;
    rig.lit.Cancel();
    rig.lightStage.darkenings = 0;
  };
  rig.lit.PlayToneNotes();
  EXPECT_EQ(rig.lightStage.darkenings, 0);
  rig.lit.SoundPlayEnd(1);
  EXPECT_EQ(rig.lightStage.darkenings, 1) << "it has ended: its notices count again";
}

TEST(PlaybackLights, ThatFailLeaveTheReportToTheStatus) {
  LightRig rig;
  rig.lightStage.isBroken = true;
  rig.lit.SoundPlayEnd(1);
  EXPECT_EQ(rig.box.Texts(), "");
  EXPECT_EQ(rig.script.Count("status"), 1);
}

TEST(ScalePlayback, HasNoSoundToWaitForAtFirst) {
  LightRig rig;
  EXPECT_TRUE(rig.lit.SoundEnded);
  EXPECT_FALSE(rig.lit.IsRunning());
}

}  // namespace
}  // namespace tonalith::audio
