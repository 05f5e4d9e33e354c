// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/sound_manager.h"

#include <gtest/gtest.h>

#include <sstream>

#include "audio/sound_rig.h"
#include "support/text_message.h"

namespace tonalith::audio {
namespace {

using testing::SoundRig;

/// A rig with a sound in each of the slots 1 to `loaded` and an empty record. Slot n has the device 100 + n.
struct LoadedRig : SoundRig {
  explicit LoadedRig(std::int32_t loaded = 1, BufferFlags flags = BufferFlags::kNone) {
    for (std::int32_t slot = 1; slot <= loaded; ++slot) sounds.LoadSoundBuffer(slot, "a.wav", flags);
    Take();
  }
};

TEST(PlaySoundBuffer, WritesTheHeaderAndNotifiesTheStart) {
  LoadedRig rig;
  EXPECT_TRUE(rig.sounds.PlaySoundBuffer(1));
  EXPECT_EQ(rig.Take(), "write 101\nSoundPlayStart 1\n");
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kPlaying);
}

TEST(PlaySoundBuffer, DoesNothingForAnEmptyOrInvalidSlot) {
  SoundRig rig;
  for (const std::int32_t slot : {1, 32, 0, 33, -1}) EXPECT_FALSE(rig.sounds.PlaySoundBuffer(slot)) << slot;
  EXPECT_EQ(rig.Take(), "");
}

TEST(PlaySoundBuffer, StopsAPlayingSlotAndReturnsFalse) {
  LoadedRig rig;
  rig.sounds.PlaySoundBuffer(1);
  rig.Take();
  EXPECT_FALSE(rig.sounds.PlaySoundBuffer(1));
  EXPECT_EQ(rig.Take(), "reset 101\n");
  EXPECT_FALSE(rig.output.IsPlaying(101));
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kPlaying) << "until the message arrives";
  rig.windows.Dispatch();
  EXPECT_EQ(rig.Take(), "SoundPlayEnd 1\nclass procedure 957\n");
  EXPECT_TRUE(rig.sounds.PlaySoundBuffer(1));
}

TEST(PlaySoundBuffer, CountsAsPlayingRegardlessOfTheDeviceResult) {
  LoadedRig rig;
  rig.script.Refuse("write");
  EXPECT_TRUE(rig.sounds.PlaySoundBuffer(1));
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kPlaying);
  EXPECT_EQ(rig.box.Texts(), "");
}

TEST(StopSoundBuffer, ResetsPlayingSlotsInOrder) {
  LoadedRig rig(4);
  for (const std::int32_t slot : {3, 1}) rig.sounds.PlaySoundBuffer(slot);
  rig.Take();
  rig.sounds.StopSoundBuffer(SoundManager::kAllBuffers);
  EXPECT_EQ(rig.Take(), "reset 101\nreset 103\n");
}

TEST(StopSoundBuffer, IgnoresAllOtherSlots) {
  LoadedRig rig;
  for (const std::int32_t slot : {1, 2, 0, 33, -2}) rig.sounds.StopSoundBuffer(slot);
  EXPECT_EQ(rig.Take(), "");
}

TEST(StopSoundBuffer, ReportsAFailureAndStopsTheOtherSlots) {
  LoadedRig rig(2);
  for (const std::int32_t slot : {1, 2}) rig.sounds.PlaySoundBuffer(slot);
  rig.Take();
  rig.script.Break("reset");
  rig.sounds.StopSoundBuffer(SoundManager::kAllBuffers);
  EXPECT_EQ(rig.Take(), "reset 101\nmessage 'reset broke'\nreset 102\n");
}

TEST(PlaySoundBuffer, ReportsAFailureAndCountsAsPlaying) {
  LoadedRig rig;
  rig.script.Break("write");
  EXPECT_TRUE(rig.sounds.PlaySoundBuffer(1));
  EXPECT_EQ(rig.Take(), "write 101\nSoundPlayStart 1\nmessage 'write broke'\n");
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kPlaying);
}

TEST(UnloadSoundBuffer, ReleasesTheDeviceAndTheContentOfTheSlot) {
  LoadedRig rig(1, BufferFlags::kUnloadOnEnd);
  rig.sounds.UnloadSoundBuffer(1);
  EXPECT_EQ(rig.Take(), "unprepare 101\nclose 101\nSoundUnloaded 1\n");
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kEmpty);
  EXPECT_EQ(rig.sounds.Buffer(1).device, platform::kNoWaveHandle);
  EXPECT_EQ(rig.sounds.Buffer(1).header, platform::WAVEHDR{});
  EXPECT_EQ(rig.sounds.Buffer(1).samples.capacity(), 0U);
  EXPECT_EQ(rig.sounds.Buffer(1).flags, BufferFlags::kUnloadOnEnd) << "until the next load";
}

TEST(UnloadSoundBuffer, DoesNotNotifyForAnEmptyOrInvalidSlot) {
  SoundRig rig;
  for (const std::int32_t slot : {1, 0, 33, -2, -1}) rig.sounds.UnloadSoundBuffer(slot);
  EXPECT_EQ(rig.Take(), "");
}

TEST(UnloadSoundBuffer, ReleasesAllSlotsInOrder) {
  LoadedRig rig(3);
  rig.sounds.PlaySoundBuffer(2);
  rig.Take();
  rig.sounds.UnloadSoundBuffer(SoundManager::kAllBuffers);
  EXPECT_EQ(rig.Take(),
            "unprepare 101\nclose 101\nSoundUnloaded 1\n"
            "reset 102\nunprepare 102\nclose 102\nSoundUnloaded 2\n"
            "unprepare 103\nclose 103\nSoundUnloaded 3\n");
}

TEST(UnloadSoundBuffer, ContinuesAfterEachFailedStep) {
  for (const char* step : {"reset", "unprepare", "close"}) {
    LoadedRig rig;
    rig.sounds.PlaySoundBuffer(1);
    rig.Take();
    rig.script.Break(step);
    rig.sounds.UnloadSoundBuffer(1);
    EXPECT_EQ(rig.Take(),
              "reset 101\nunprepare 101\nclose 101\nSoundUnloaded 1\nmessage '" + std::string(step) + " broke'\n");
    EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kEmpty);
  }
}

TEST(SoundMessages, ArriveInTheOrderLoadPlayEndUnload) {
  SoundRig rig;
  rig.sounds.LoadSoundBuffer(9, "a.wav", BufferFlags::kNone);
  rig.sounds.PlaySoundBuffer(9);
  rig.output.FinishAll();
  rig.windows.Dispatch();
  rig.sounds.UnloadSoundBuffer(9);
  std::string events;
  std::istringstream lines(rig.Take());
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("Sound")) events += line + "\n";
  }
  EXPECT_EQ(events, "SoundLoaded 9\nSoundPlayStart 9\nSoundPlayEnd 9\nSoundUnloaded 9\n");
}

TEST(SoundMessages, UnloadOnEndReleasesTheSlotInTheSameMessage) {
  LoadedRig rig(1, BufferFlags::kPlayOnLoad | BufferFlags::kUnloadOnEnd);
  rig.output.Finish(101);
  rig.windows.Dispatch();
  EXPECT_EQ(rig.Take(), "SoundPlayEnd 1\nunprepare 101\nclose 101\nSoundUnloaded 1\nclass procedure 957\n");
}

TEST(SoundMessages, NoEventsSuppressesTheNotifications) {
  LoadedRig rig(1, BufferFlags::kNoEvents | BufferFlags::kPlayOnLoad | BufferFlags::kUnloadOnEnd);
  rig.output.Finish(101);
  rig.windows.Dispatch();
  EXPECT_EQ(rig.Take(), "unprepare 101\nclose 101\nclass procedure 957\n");
}

TEST(SoundMessages, AreOptional) {
  SoundRig rig;
  rig.sounds.Notifier = nullptr;
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kNone));
  EXPECT_TRUE(rig.sounds.PlaySoundBuffer(1));
  rig.output.Finish(101);
  rig.windows.Dispatch();
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kLoaded);
  rig.sounds.UnloadSoundBuffer(1);
  EXPECT_TRUE(rig.Take().ends_with("close file\nwrite 101\nclass procedure 957\nunprepare 101\nclose 101\n"));
  EXPECT_EQ(rig.box.Texts(), "");
}

TEST(SoundMessages, ANotifierMayIgnoreAllOfThem) {
  SoundRig rig;
  SoundManagerNotifier careless;
  rig.sounds.Notifier = &careless;
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kPlayOnLoad | BufferFlags::kUnloadOnEnd));
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kPlaying);
  rig.output.Finish(101);
  rig.windows.Dispatch();
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kEmpty);
  EXPECT_EQ(rig.box.Texts(), "");
}

TEST(SoundMessages, AThrowingNotifierIsReportedAndStopsNothing) {
  LoadedRig rig;
  rig.notifier.then = [](const std::string& event) { throw core::Failure(5, tests::TextMessage("no " + event)); };
  EXPECT_TRUE(rig.sounds.PlaySoundBuffer(1));
  rig.output.Finish(101);
  rig.windows.Dispatch();
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kLoaded);
  EXPECT_EQ(rig.box.Texts(), "no SoundPlayStart 1\nno SoundPlayEnd 1\n");
}

TEST(SoundMessages, ANotifierMayUnloadTheSlotAtItsEnd) {
  LoadedRig rig(1, BufferFlags::kPlayOnLoad);
  rig.notifier.then = [&](const std::string& event) {
    if (event == "SoundPlayEnd 1") rig.sounds.UnloadSoundBuffer(1);
  };
  rig.output.Finish(101);
  rig.windows.Dispatch();
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kEmpty);
}

TEST(SoundWindowProc, ForwardsEveryMessageAndReturnsTheResult) {
  LoadedRig rig;
  EXPECT_EQ(rig.windows.Send(1, 0x10, 3, 4), 7);
  EXPECT_EQ(rig.Take(), "class procedure 16\n");
}

TEST(SoundWindowProc, IgnoresAMessageThatBelongsToNoSlot) {
  LoadedRig rig(1, BufferFlags::kPlayOnLoad);
  for (const std::uintptr_t device : {std::uintptr_t{999}, std::uintptr_t{0}, (std::uintptr_t{1} << 32U) + 101}) {
    EXPECT_EQ(rig.windows.Send(1, platform::kWaveOutputDone, device, 0), 7);
    EXPECT_EQ(rig.Take(), "class procedure 957\n");
  }
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kPlaying);
}

TEST(SoundWindowProc, ReportsAFailureOfForwarding) {
  LoadedRig rig;
  rig.script.Break("call procedure");
  EXPECT_EQ(rig.windows.Send(1, 0x10, 0, 0), 0);
  EXPECT_EQ(rig.box.Texts(), "call procedure broke\n");
}

TEST(FindBufferByHandle, ReturnsTheFirstSlotWithThatDevice) {
  LoadedRig rig(3);
  EXPECT_EQ(rig.sounds.FindBufferByHandle(102), 2);
  EXPECT_EQ(rig.sounds.FindBufferByHandle(555), 0);
}

TEST(CreateSoundWindow, DoesNothingIfAWindowIsStored) {
  SoundRig rig;
  EXPECT_TRUE(rig.sounds.CreateSoundWindow());
  EXPECT_FALSE(rig.sounds.CreateSoundWindow());
  EXPECT_EQ(rig.script.Count("create window"), 1);
}

TEST(TerminateSoundManager, ReleasesAllSlotsAndTheWindow) {
  LoadedRig rig(2);
  rig.sounds.TerminateSoundManager();
  EXPECT_EQ(rig.Take(),
            "unprepare 101\nclose 101\nSoundUnloaded 1\n"
            "unprepare 102\nclose 102\nSoundUnloaded 2\n"
            "set procedure 1\ndestroy window 1\n");
}

TEST(TerminateSoundManager, DoesNothingBeforeTheFirstLoad) {
  SoundRig rig;
  rig.sounds.TerminateSoundManager();
  EXPECT_EQ(rig.Take(), "");
}

TEST(TerminateSoundManager, KeepsTheWindowHandleSoThatNoOtherIsCreated) {
  LoadedRig rig;
  rig.sounds.TerminateSoundManager();
  rig.Take();
  EXPECT_EQ(rig.sounds.SoundWindow(), 1U);
  EXPECT_FALSE(rig.sounds.CreateSoundWindow());
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kPlayOnLoad));
  EXPECT_EQ(rig.Take(),
            "open file a.wav\n"
            "open 102 tag 1 channels 1 rate 44100 bits 16 for window 1\n"
            "prepare 102 with 8 bytes\n"
            "SoundLoaded 1\nwrite 102\nSoundPlayStart 1\nclose file\n");
  rig.output.Finish(102);
  EXPECT_EQ(rig.windows.Dispatch(), 0) << "the message has no window";
}

TEST(SoundManager, ReleasesEverythingWithoutMessagesWhenDestroyed) {
  tests::AudioScript script;
  tests::ScriptedFileInput files(script);
  tests::ScriptedWindowMessages windows(script);
  tests::ScriptedWaveOutput output(script, windows);
  testing::RecordingNotifier notifier(script);
  tests::RecordingMsgBox box;
  files.Put("a.wav", testing::Wave({}, testing::Number(0, 4)));
  {
    SoundManager sounds(files, output, windows, box);
    sounds.Notifier = &notifier;
    sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kPlayOnLoad);
    script.Forget();
    script.Break("close");
  }
  EXPECT_EQ(script.Record(), "reset 101\nunprepare 101\nclose 101\nset procedure 1\ndestroy window 1\n");
  EXPECT_EQ(box.Texts(), "");
}

TEST(SoundManager, PlaysAllThirtyTwoSlotsAtOnce) {
  LoadedRig rig(32, BufferFlags::kPlayOnLoad);
  EXPECT_EQ(rig.output.OpenDevices().size(), 32U);
  rig.output.FinishAll();
  EXPECT_EQ(rig.windows.Dispatch(), 32);
  for (std::int32_t slot = 1; slot <= 32; ++slot) EXPECT_EQ(rig.sounds.Buffer(slot).state, BufferState::kLoaded);
}

TEST(SoundManager, ThrowsForASlotOutsideItsTable) {
  SoundRig rig;
  EXPECT_THROW(static_cast<void>(rig.sounds.Buffer(0)), core::Failure);
  EXPECT_THROW(static_cast<void>(rig.sounds.Buffer(33)), core::Failure);
}

TEST(StopSoundBuffer, StopsTheFirstAndTheLastSlotWithAllOthers) {
  SoundRig rig;
  for (const std::int32_t slot : {1, SoundManager::kBufferCount}) {
    rig.sounds.LoadSoundBuffer(slot, "a.wav", BufferFlags::kPlayOnLoad);
  }
  rig.sounds.StopSoundBuffer(SoundManager::kAllBuffers);
  EXPECT_EQ(rig.script.Count("reset"), 2);
}

}  // namespace
}  // namespace tonalith::audio
