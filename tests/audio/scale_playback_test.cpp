// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/scale_playback.h"

#include <gtest/gtest.h>

#include "audio/playback_rig.h"

namespace tonalith::audio {
namespace {

using Rig = PlaybackRig;

constexpr const char* kCMajor = "0@img8 1@img10 2@img0 3@img1 4@img3 5@img5 6@img7 7@img8";

TEST(PlayToneNotes, PlaysTheScaleUpToTheOctave) {
  Rig rig;
  EXPECT_EQ(rig.Tune(), kCMajor);
  EXPECT_EQ(rig.box.Texts(), "");
}

TEST(PlayToneNotes, NumbersFilesByPositionInEveryKey) {
  Rig rig;
  rig.stage.key = "D";
  EXPECT_EQ(rig.Tune(), "0@img10 1@img0 2@img2 3@img3 4@img5 5@img7 6@img9 7@img10");
}

TEST(PlayToneNotes, UsesCForAnEmptyKeyText) {
  Rig rig;
  rig.stage.key = "";
  EXPECT_EQ(rig.Tune(), kCMajor);
}

TEST(PlayToneNotes, ClosesAScaleWithoutOctaveWithTheFileOfTheKey) {
  Rig rig;
  rig.stage.key = "D";
  rig.stage.pattern = "22";
  EXPECT_EQ(rig.Tune(), "0@img10 1@img0 2@img2 2@img10");
}

TEST(PlayToneNotes, ClosesAtTheFirstPositionOfTheNeckIfThatIsTheKey) {
  Rig rig;
  rig.stage.key = "E";
  rig.stage.pattern = "22";
  EXPECT_EQ(rig.Tune(), "0@img0 1@img2 2@img4 4@img0");
}

TEST(PlayToneNotes, PlaysNothingAfterThePatternsEnd) {
  Rig rig;
  rig.stage.pattern = "4";
  EXPECT_EQ(rig.Tune(), "0@img8 1@img0 0@img8");
  EXPECT_EQ(rig.script.Count("open file"), 3);
}

TEST(PlayToneNotes, PlaysAtMostSixteenPositions) {
  Rig rig;
  rig.stage.pattern = "1111111111111111111";
  const std::string tune = rig.Tune();
  EXPECT_TRUE(tune.ends_with("15@img11")) << tune;
  EXPECT_EQ(rig.script.Count("open file"), 16);
}

TEST(PlayToneNotes, SkipsARepeatedNote) {
  Rig rig;
  rig.stage.pattern = "202";
  EXPECT_EQ(rig.Tune(), "0@img8 1@img10 3@img0 0@img8");
}

TEST(PlayToneNotes, PlaysOnlyTheFirstTwoStrings) {
  // The notes C# and D# of the first two strings are not in C major.
  Rig rig({{core::Pitch::Of(1, 4), core::Pitch::Of(3, 4), core::Pitch::Of(0, 4)}, 1});
  EXPECT_EQ(rig.Tune(), "");
  EXPECT_EQ(rig.script.Count("open file"), 0);
  EXPECT_EQ(rig.playback.CurrentPlayNote, "C") << "the silent strings still set the name of the note";
}

TEST(PlayToneNotes, UsesTheSlotOfTheNotesString) {
  // The first string has C to D#, the second G to A#.
  Rig rig({{core::Pitch::Of(0, 4), core::Pitch::Of(7, 3)}, 4});
  rig.stage.key = "G";
  rig.stage.pattern = "1119";
  std::string slots;
  rig.events.during = [&](int /*wait*/) {
    for (std::int32_t slot = 1; slot <= 32; ++slot) {
      if (rig.sounds.Buffer(slot).state == BufferState::kPlaying) slots += std::to_string(slot) + " ";
    }
  };
  EXPECT_EQ(rig.Tune(), "0@img4 1@img5 2@img6 3@img7 4@img4");
  EXPECT_EQ(slots, "2 2 2 2 ") << "the key note does not wait for A#";
}

TEST(PlayToneNotes, NeverPlaysTwoNotesAtOnce) {
  Rig rig;
  rig.events.during = [&](int /*wait*/) {
    int playing = 0;
    for (const platform::WaveHandle device : rig.output.OpenDevices()) playing += rig.output.IsPlaying(device) ? 1 : 0;
    EXPECT_EQ(playing, 1);
  };
  rig.Tune();
  EXPECT_EQ(rig.events.waits, 8) << "one wait for each note: no polling";
}

TEST(PlayToneNotes, ShowsTheStatesOfEachNoteAndEndsAtStandby) {
  Rig rig;
  rig.stage.pattern = "75";
  rig.Tune();
  std::string shown;
  std::istringstream lines(rig.script.Record());
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("status ") || line.starts_with("flash ") || line.starts_with("hide ")) shown += line + "\n";
  }
  const std::string hiddenTwice = "hide marker\nhide marker\n";
  EXPECT_EQ(shown,
            "status Loaded\nstatus Playing: C\nflash img8\nstatus Stopped\nhide marker\n"
            "status Standby\n"
            "status Loaded\nstatus Playing: G\nflash img3\nstatus Stopped\nhide marker\n"
            "status Standby\n"
            "status Loaded\nstatus Playing: C\nflash img8\nstatus Stopped\nhide marker\n" +
                hiddenTwice + hiddenTwice + hiddenTwice + hiddenTwice + hiddenTwice + hiddenTwice +
                "hide marker\nstatus Standby\n");
}

TEST(PlayToneNotes, ReleasesAllSlotsAtItsEnd) {
  Rig rig;
  rig.sounds.LoadSoundBuffer(20, "a.wav", BufferFlags::kNone);
  rig.Tune();
  EXPECT_TRUE(rig.output.OpenDevices().empty());
}

TEST(PlayToneNotes, ReportsAMissingFileAndContinues) {
  Rig rig;
  rig.files.Remove("Audio/0.wav");
  rig.files.Remove("Audio/2.wav");
  EXPECT_EQ(rig.Tune(), kCMajor);
  EXPECT_EQ(rig.box.Texts(), "Cannot open file\nCannot open file\n");
  EXPECT_EQ(rig.script.Count("write"), 6);
}

TEST(PlayToneNotes, WaitsForASoundThatIsAlreadyPlaying) {
  Rig rig;
  // No note is the key note, which would not wait.
  rig.stage.key = "H";
  rig.sounds.LoadSoundBuffer(30, "a.wav", BufferFlags::kPlayOnLoad);
  EXPECT_FALSE(rig.playback.SoundEnded);
  bool early = false;
  rig.events.during = [&](int wait) { early = early || (wait == 1 && rig.script.Count("open file") > 1); };
  rig.Tune();
  EXPECT_FALSE(early) << "the first note came before the other sound's end";
  EXPECT_EQ(rig.script.Count("write"), 9);
}

TEST(PlayToneNotes, DoesNothingWhileAnotherCallRuns) {
  Rig rig;
  rig.events.during = [&](int wait) {
    if (wait == 2) rig.playback.PlayToneNotes();
  };
  EXPECT_EQ(rig.Tune(), kCMajor);
  EXPECT_FALSE(rig.playback.IsRunning());
}

TEST(PlayToneNotes, UsesPatternAndKeyOfItsStart) {
  Rig rig;
  rig.events.during = [&](int wait) {
    if (wait != 2) return;
    rig.stage.key = "F#";
    rig.stage.pattern = "111";
  };
  EXPECT_EQ(rig.Tune(), kCMajor);
}

TEST(PlayToneNotes, EndsImmediatelyWhenCancelledInAWait) {
  Rig rig;
  rig.events.during = [&](int wait) {
    if (wait != 3) return;
    rig.playback.Cancel();
    rig.sounds.UnloadSoundBuffer(SoundManager::kAllBuffers);
    rig.sounds.TerminateSoundManager();
    rig.script.Forget();
  };
  rig.playback.PlayToneNotes();
  EXPECT_EQ(rig.events.waits, 3);
  EXPECT_EQ(rig.script.Record(), "") << "the window is closing: do not call it";
  EXPECT_TRUE(rig.output.OpenDevices().empty());
}

TEST(PlayToneNotes, EndsWithoutAMessageWhenCancelledInAMessageBox) {
  Rig rig;
  struct ClosingMsgBox : tests::RecordingMsgBox {
    using core::MsgBox::Show;
    core::MsgBoxAnswer Show(const core::Message& text, core::MsgBoxStyle style, const core::Message& title) override {
      if (then) then();
      return tests::RecordingMsgBox::Show(text, style, title);
    }
    std::function<void()> then;
  } box;
  SoundManager sounds(rig.scaleSounds, rig.output, rig.windows, box);
  ScalePlayback playback(core::Neck::Standard(), sounds, rig.scaleSounds, rig.stage, rig.events, box);
  sounds.Notifier = &playback;
  rig.files.Remove("Audio/0.wav");
  rig.script.Break("field");
  box.then = [&] { playback.Cancel(); };
  rig.stage.pattern = "2212221";
  playback.PlayToneNotes();
  EXPECT_EQ(box.Texts(), "Cannot open file\n");
  EXPECT_EQ(rig.script.Record().find("flash"), std::string::npos);
}

TEST(PlayToneNotes, PlaysAgainAfterACancellation) {
  Rig rig;
  rig.events.during = [&](int wait) {
    if (wait == 3) rig.playback.Cancel();
  };
  rig.playback.PlayToneNotes();
  rig.events.during = nullptr;
  EXPECT_EQ(rig.Tune(), kCMajor);
}

TEST(PlayToneNotes, DoesNotWaitForASlotReleasedWhilePlaying) {
  Rig rig;
  rig.events.during = [&](int wait) {
    if (wait == 2) rig.sounds.UnloadSoundBuffer(SoundManager::kAllBuffers);
  };
  EXPECT_EQ(rig.Tune(), kCMajor);
}

TEST(PlayToneNotes, ContinuesAfterFailuresAndShowsTheLastOneAtItsEnd) {
  Rig rig;
  rig.script.Break("flash", 2);
  rig.script.Break("hide", 16);
  EXPECT_EQ(rig.Tune(), kCMajor);
  EXPECT_EQ(rig.box.Texts(), "hide broke\n");
}

TEST(PlayToneNotes, ShowsTheFailureOfAnUnreadableRecord) {
  Rig rig;
  rig.script.Break("field", 2);
  rig.Tune();
  EXPECT_EQ(rig.box.Texts(), "field broke\n");
  EXPECT_FALSE(rig.playback.IsRunning());
}

TEST(PlayToneNotes, ReportsANullPatternOnceAndPlaysNothing) {
  Rig rig;
  rig.stage.pattern.reset();
  EXPECT_EQ(rig.Tune(), "");
  EXPECT_EQ(rig.box.Texts(), "9 Subscript out of range\n");
}

TEST(PlayToneNotes, ReportsAnInvalidPatternOnce) {
  Rig rig;
  rig.stage.pattern = "2x2";
  EXPECT_EQ(rig.Tune(), "");
  EXPECT_EQ(rig.box.Texts(), "13 Type mismatch\n");
}

TEST(SoundMessageHandlers, ReportNumberAndDescription) {
  Rig rig;
  rig.script.Break("status");
  rig.playback.SoundPlayEnd(1);
  EXPECT_EQ(rig.box.Texts(), "51: status broke\n");
  EXPECT_TRUE(rig.playback.SoundEnded);
}

TEST(PlayMultiSounds, ReportsExceptionsOfTheSoundManager) {
  struct BrokenMsgBox : core::MsgBox {
    using core::MsgBox::Show;
    core::MsgBoxAnswer Show(const core::Message&, core::MsgBoxStyle, const core::Message&) override {
      throw std::runtime_error("no message box");
    }
  } broken;
  Rig rig;
  SoundManager sounds(rig.scaleSounds, rig.output, rig.windows, broken);
  ScalePlayback playback(core::Neck::Standard(), sounds, rig.scaleSounds, rig.stage, rig.events, rig.box);
  sounds.LoadSoundBuffer(2, "a.wav", BufferFlags::kNone);
  rig.script.Break("write");
  playback.PlayMultiSounds(2, "a.wav");
  EXPECT_EQ(rig.box.Texts(), "no message box\n");
}

TEST(PlayMultiSounds, PlaysTheSlotAndIgnoresTheFile) {
  Rig rig;
  rig.sounds.LoadSoundBuffer(2, "a.wav", BufferFlags::kNone);
  rig.playback.PlayMultiSounds(2, "other.wav");
  EXPECT_EQ(rig.sounds.Buffer(2).state, BufferState::kPlaying);
  rig.playback.PlayMultiSounds(99, "other.wav");
  EXPECT_EQ(rig.box.Texts(), "");
}

/// A clock that advances by the time waited.
struct ManualTime : platform::EventPump {
  void WaitForEvents() override { ADD_FAILURE() << "waits without a limit"; }
  void WaitForEvents(std::chrono::milliseconds limit) override {
    ++waits;
    now += std::min(1.5, std::chrono::duration<double>(limit).count());
    if (now >= 86400) now -= 86400;
  }
  [[nodiscard]] std::function<double()> Clock() const {
    return [this] { return now; };
  }
  double now = 1000;
  int waits = 0;
};

TEST(Pause, HandlesEventsUntilTheSecondsAreOver) {
  ManualTime time;
  Pause(4, time.Clock(), time);
  EXPECT_NEAR(time.now, 1004, 0.01);
  EXPECT_EQ(time.waits, 3);
}

TEST(Pause, EndsAtMidnight) {
  ManualTime time;
  time.now = 86398;
  Pause(10, time.Clock(), time);
  EXPECT_LT(time.now, 2);
}

TEST(Pause, ReturnsImmediatelyForZeroSeconds) {
  ManualTime time;
  Pause(0, time.Clock(), time);
  Pause(-3, time.Clock(), time);
  EXPECT_EQ(time.waits, 0);
}

}  // namespace
}  // namespace tonalith::audio
