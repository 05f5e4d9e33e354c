// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/sound_rig.h"

namespace tonalith::audio {
namespace {

using testing::Chunk;
using testing::Number;
using testing::PlainRecord;
using testing::Riff;
using testing::SoundRig;

constexpr const char* kWindowLines =
    "create window STATIC 'Soundmanager Window' at 0,0 size 100x20 style 2147483659 extended 0\n"
    "set procedure 1\n";

const testing::Bytes kFormat = Chunk("fmt ", PlainRecord({}));

/// The messages that loading a file with that content shows.
std::string MessagesOf(const testing::Bytes& content) {
  SoundRig rig;
  rig.files.Put("x.wav", content);
  EXPECT_FALSE(rig.sounds.LoadSoundBuffer(1, "x.wav", BufferFlags::kNone));
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kEmpty);
  EXPECT_TRUE(rig.output.OpenDevices().empty());
  EXPECT_TRUE(rig.script.Record().ends_with("close file\n")) << rig.script.Record();
  for (const auto& message : rig.box.Messages()) {
    EXPECT_EQ(message.style, core::MsgBoxStyle::kOkOnly);
    EXPECT_EQ(message.title, "") << "the application's title";
  }
  return rig.box.Texts();
}

TEST(LoadSoundBuffer, OpensFileWindowAndDeviceInThisOrder) {
  SoundRig rig;
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(7, "a.wav", BufferFlags::kNone));
  EXPECT_EQ(rig.Take(), "open file a.wav\n" + std::string(kWindowLines) +
                            "open 101 tag 1 channels 1 rate 44100 bits 16 for window 1\n"
                            "prepare 101 with 8 bytes\n"
                            "SoundLoaded 7\n"
                            "close file\n");
  EXPECT_EQ(rig.sounds.Buffer(7).state, BufferState::kLoaded);
  EXPECT_EQ(rig.sounds.Buffer(7).device, 101U);
  EXPECT_EQ(rig.sounds.Buffer(7).samples.size(), 8U);
  EXPECT_EQ(rig.sounds.Buffer(7).header.lpData, rig.sounds.Buffer(7).samples.data());
  EXPECT_EQ(rig.sounds.Buffer(7).header.dwBufferLength, 8U);
}

TEST(LoadSoundBuffer, CreatesTheWindowOnce) {
  SoundRig rig;
  rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kNone);
  rig.Take();
  rig.sounds.LoadSoundBuffer(2, "b.wav", BufferFlags::kNone);
  EXPECT_EQ(rig.Take(),
            "open file b.wav\n"
            "open 102 tag 1 channels 2 rate 22050 bits 8 for window 1\n"
            "prepare 102 with 6 bytes\n"
            "SoundLoaded 2\n"
            "close file\n");
}

TEST(LoadSoundBuffer, AcceptsOnlySlots1To32) {
  SoundRig rig;
  for (const std::int32_t outside : {0, -1, 33, -2147483647, 2147483647}) {
    EXPECT_FALSE(rig.sounds.LoadSoundBuffer(outside, "a.wav", BufferFlags::kNone)) << outside;
  }
  EXPECT_EQ(rig.Take(), "");
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kNone));
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(32, "a.wav", BufferFlags::kNone));
}

TEST(LoadSoundBuffer, ReportsAFileThatCannotBeOpened) {
  SoundRig rig;
  EXPECT_FALSE(rig.sounds.LoadSoundBuffer(1, "missing.wav", BufferFlags::kNone));
  EXPECT_EQ(rig.Take(), "open file missing.wav\nmessage 'Cannot open file'\n");
}

TEST(LoadSoundBuffer, ShowsTheMessageOfEachStepOfReading) {
  EXPECT_EQ(MessagesOf({}), "Cannot descend\n");
  EXPECT_EQ(MessagesOf(Riff(kFormat, std::nullopt, "AVI ")), "Incorrect format\n");
  EXPECT_EQ(MessagesOf(Riff(kFormat, std::nullopt, "WAVE", "RIFX")), "Incorrect format\n");
  EXPECT_EQ(MessagesOf(Riff(Chunk("data", Number(0, 4)))), "Could not find fmt chunk\n");
  EXPECT_EQ(MessagesOf(Riff(Chunk("fmt ", Number(1, 14)))), "Not enough data, only 14, wanted 16\n");
  EXPECT_EQ(MessagesOf(Riff(Chunk("fmt ", Number(1, 14), 16), 64)), "Not enough data read\n");
  EXPECT_EQ(MessagesOf(Riff(kFormat)), "Could not descend into data\n");
  EXPECT_EQ(MessagesOf(Riff(kFormat + Chunk("data", Number(0, 4), 5))), "Could not read full buffer\n");
}

TEST(LoadSoundBuffer, ShowsTheMessageOfAFailedReadOrSeek) {
  // Outer header, form, fmt header, format record, (seek), data header after stepping over fmt, samples.
  const std::string messages[] = {"Cannot descend",
                                  "Cannot descend",
                                  "Could not find fmt chunk",
                                  "Not enough data read",
                                  "Could not descend into data",
                                  "Could not descend into data",
                                  "Could not read full buffer"};
  for (int nth = 1; nth <= 7; ++nth) {
    SoundRig rig;
    rig.script.Refuse("read", nth);
    EXPECT_FALSE(rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kNone));
    EXPECT_EQ(rig.box.Texts(), messages[nth - 1] + "\n") << "read " << nth;
    EXPECT_TRUE(rig.Take().ends_with("close file\n"));
  }
  SoundRig rig;
  rig.script.Refuse("seek", 1);
  EXPECT_FALSE(rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kNone));
  EXPECT_EQ(rig.box.Texts(), "Could not seek\n");
}

TEST(LoadSoundBuffer, SearchesForTheSamplesFromTheStartOfTheForm) {
  SoundRig rig;
  rig.files.RecordReads();
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kNone));
  const std::string record = rig.Take();
  EXPECT_TRUE(
      record.starts_with("open file a.wav\nread 8\nread 4\nread 8\nread 20\nseek 12\nread 8\nseek 36\nread 8\n"))
      << record;
}

TEST(LoadSoundBuffer, ReportsFailuresAfterClosingTheFile) {
  for (const char* step : {"open file", "read", "seek", "create window", "set procedure", "open", "prepare"}) {
    SoundRig rig;
    rig.script.Break(step);
    rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kNone);
    EXPECT_THAT(rig.box.Texts(), ::testing::HasSubstr(std::string(step) + " broke\n"));
    EXPECT_EQ(rig.script.Record().find("SoundUnloaded"), std::string::npos);
  }
}

TEST(LoadSoundBuffer, ContinuesAfterADeviceFailure) {
  SoundRig rig;
  rig.script.Break("open");
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kNone));
  EXPECT_EQ(rig.Take(), "open file a.wav\n" + std::string(kWindowLines) +
                            "open 101 tag 1 channels 1 rate 44100 bits 16 for window 1\n"
                            "prepare 0 with 8 bytes\n"
                            "SoundLoaded 1\n"
                            "close file\n"
                            "message 'open broke'\n");
}

TEST(LoadSoundBuffer, FailsWithoutAMessageIfTheWindowCannotBeCreated) {
  SoundRig rig;
  rig.script.Refuse("create window");
  EXPECT_FALSE(rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kNone));
  EXPECT_EQ(rig.box.Texts(), "");
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kEmpty);
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kNone)) << "the next load tries again";
}

TEST(LoadSoundBuffer, IgnoresDeviceResults) {
  SoundRig rig;
  rig.script.Refuse("open");
  rig.script.Refuse("prepare");
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(1, "a.wav", BufferFlags::kNone));
  EXPECT_EQ(rig.sounds.Buffer(1).state, BufferState::kLoaded);
  EXPECT_EQ(rig.sounds.Buffer(1).device, platform::kNoWaveHandle);
  EXPECT_EQ(rig.box.Texts(), "");
  EXPECT_FALSE(rig.sounds.PlaySoundBuffer(1)) << "there is no device";
}

TEST(LoadSoundBuffer, PassesTheFormatToTheDeviceUnchanged) {
  SoundRig rig;
  rig.files.Put("odd.wav", Riff(Chunk("fmt ", PlainRecord({0x55, 9, 7, 3})) + Chunk("data", Number(0, 2))));
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(1, "odd.wav", BufferFlags::kNone));
  EXPECT_EQ(rig.output.LastFormat().record.wFormatTag, 0x55);
  EXPECT_EQ(rig.output.LastFormat().record.nChannels, 9);
  EXPECT_EQ(rig.output.LastFormat().record.nSamplesPerSec, 7U);
  EXPECT_EQ(rig.output.LastFormat().record.wBitsPerSample, 3);
}

TEST(LoadSoundBuffer, StopsAndReleasesASlotThatIsPlaying) {
  SoundRig rig;
  rig.sounds.LoadSoundBuffer(3, "a.wav", BufferFlags::kPlayOnLoad);
  rig.Take();
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(3, "b.wav", BufferFlags::kNone));
  EXPECT_EQ(rig.Take(),
            "reset 101\n"
            "unprepare 101\n"
            "close 101\n"
            "SoundUnloaded 3\n"
            "open file b.wav\n"
            "open 102 tag 1 channels 2 rate 22050 bits 8 for window 1\n"
            "prepare 102 with 6 bytes\n"
            "SoundLoaded 3\n"
            "close file\n");
  // The old device's message is still queued: it is stale.
  EXPECT_EQ(rig.windows.Dispatch(), 1);
  EXPECT_EQ(rig.Take(), "class procedure 957\n");
  EXPECT_EQ(rig.sounds.Buffer(3).state, BufferState::kLoaded);
}

TEST(LoadSoundBuffer, ReleasesTheSlotEvenIfTheNewFileIsNotASound) {
  SoundRig rig;
  rig.sounds.LoadSoundBuffer(3, "a.wav", BufferFlags::kNone);
  EXPECT_FALSE(rig.sounds.LoadSoundBuffer(3, "missing.wav", BufferFlags::kNone));
  EXPECT_EQ(rig.sounds.Buffer(3).state, BufferState::kEmpty);
}

TEST(LoadSoundBuffer, PlaysAsItsLastStepWhenRequested) {
  SoundRig rig;
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(4, "a.wav", BufferFlags::kPlayOnLoad));
  EXPECT_TRUE(rig.Take().ends_with("SoundLoaded 4\nwrite 101\nSoundPlayStart 4\nclose file\n"));
  EXPECT_EQ(rig.sounds.Buffer(4).state, BufferState::kPlaying);
}

TEST(LoadSoundBuffer, LoadsASoundWithoutSamples) {
  SoundRig rig;
  rig.files.Put("empty.wav", testing::Wave({}, {}));
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(1, "empty.wav", BufferFlags::kPlayOnLoad));
  EXPECT_EQ(rig.sounds.Buffer(1).header.dwBufferLength, 0U);
}

TEST(LoadSoundBuffer, LoadsTheSecondSoundAlthoughTheNotifierReloadsTheSlot) {
  SoundRig rig;
  rig.sounds.LoadSoundBuffer(5, "a.wav", BufferFlags::kNone);
  rig.notifier.then = [&](const std::string& event) {
    rig.notifier.then = nullptr;
    if (event == "SoundUnloaded 5") rig.sounds.LoadSoundBuffer(5, "a.wav", BufferFlags::kNone);
  };
  EXPECT_TRUE(rig.sounds.LoadSoundBuffer(5, "b.wav", BufferFlags::kNone));
  EXPECT_EQ(rig.output.OpenDevices(), std::vector<platform::WaveHandle>{103});
  EXPECT_EQ(rig.sounds.Buffer(5).samples.size(), 6U);
}

}  // namespace
}  // namespace tonalith::audio
