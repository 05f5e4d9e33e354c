// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/octave_note_player.h"

#include <gtest/gtest.h>

#include "audio/wave_bytes.h"
#include "support/scripted_audio.h"

namespace tonalith::audio {
namespace {

using testing::Number;
using testing::Wave;

struct Rig {
  explicit Rig(std::size_t cacheLimit = OctaveNotePlayer::kCacheLimit) : player(files, output, windows, cacheLimit) {
    for (const char* name : {"1.wav", "2.wav", "3.wav"}) files.Put(name, Wave({}, Number(0, 100)));
  }
  std::string Take() {
    std::string record = script.Record();
    script.Forget();
    return record;
  }
  tests::AudioScript script;
  tests::ScriptedFileInput files{script};
  tests::ScriptedWindowMessages windows{script};
  tests::ScriptedWaveOutput output{script, windows};
  OctaveNotePlayer player;
};

/// Records the notifications.
class RecordingNoteNotifier : public platform::NotePlayerNotifier {
 public:
  void NoteStarted() override { heard += "started "; }
  void NoteEnded() override { heard += "ended "; }
  std::string heard;
};

TEST(OctaveNotePlayer, NotifiesStartAndEndOfANote) {
  Rig rig;
  RecordingNoteNotifier notes;
  rig.player.Notifier = &notes;
  rig.player.Play("1.wav");
  EXPECT_EQ(notes.heard, "started ");
  rig.output.FinishAll();
  rig.windows.Dispatch();
  EXPECT_EQ(notes.heard, "started ended ");
  rig.player.Play("1.wav");
  rig.player.Play("2.wav");
  EXPECT_EQ(notes.heard, "started ended started ended started ");
  rig.windows.Dispatch();
  EXPECT_EQ(notes.heard, "started ended started ended started ") << "the message of the replaced note is stale";
  rig.player.Stop();
  EXPECT_EQ(notes.heard, "started ended started ended started ended ");
}

TEST(OctaveNotePlayer, DoesNotNotifyForANoteThatCannotPlay) {
  Rig rig;
  RecordingNoteNotifier notes;
  rig.player.Notifier = &notes;
  rig.player.Play("missing.wav");
  rig.script.Refuse("open");
  rig.player.Play("1.wav");
  EXPECT_EQ(notes.heard, "");
}

TEST(OctaveNotePlayer, PlaysWithoutAMessageWindow) {
  Rig rig;
  RecordingNoteNotifier notes;
  rig.player.Notifier = &notes;
  rig.script.Break("create window");
  rig.player.Play("1.wav");
  EXPECT_EQ(rig.script.Count("write"), 1);
  EXPECT_EQ(notes.heard, "");
}

TEST(OctaveNotePlayer, PlaysAFileAndSendsItsMessageToAHiddenWindow) {
  Rig rig;
  rig.player.Play("2.wav");
  rig.Take();
  rig.player.Stop();
  rig.Take();
  rig.player.Play("1.wav");
  EXPECT_EQ(rig.Take(),
            "open file 1.wav\nclose file\n"
            "open 102 tag 1 channels 1 rate 44100 bits 16 for window 1\n"
            "prepare 102 with 100 bytes\nwrite 102\n");
}

TEST(OctaveNotePlayer, ReplacesTheNoteThatIsPlaying) {
  Rig rig;
  rig.player.Play("1.wav");
  rig.Take();
  rig.player.Play("2.wav");
  EXPECT_TRUE(rig.Take().starts_with("reset 101\nunprepare 101\nclose 101\nopen file 2.wav\n"));
  EXPECT_EQ(rig.output.OpenDevices(), std::vector<platform::WaveHandle>{102});
  EXPECT_TRUE(rig.output.IsPlaying(102));
}

TEST(OctaveNotePlayer, ReadsAFileOnce) {
  Rig rig;
  for (int i = 0; i < 3; ++i) rig.player.Play("1.wav");
  EXPECT_EQ(rig.script.Count("open file"), 1);
  EXPECT_EQ(rig.script.Count("write"), 3);
}

TEST(OctaveNotePlayer, IsSilentForAMissingFile) {
  Rig rig;
  rig.player.Play("1.wav");
  rig.player.Play("missing.wav");
  EXPECT_TRUE(rig.output.OpenDevices().empty());
}

TEST(OctaveNotePlayer, IsSilentForAFileThatIsNotASound) {
  Rig rig;
  rig.files.Put("text.wav", testing::Text("no sound at all"));
  rig.player.Play("text.wav");
  EXPECT_EQ(rig.script.Count("open"), 0);
}

TEST(OctaveNotePlayer, RetriesAMissingFileNextTime) {
  Rig rig;
  rig.player.Play("late.wav");
  rig.files.Put("late.wav", Wave({}, Number(0, 4)));
  rig.player.Play("late.wav");
  EXPECT_EQ(rig.script.Count("write"), 1);
}

TEST(OctaveNotePlayer, IsSilentIfTheDeviceRefusesTheFormat) {
  Rig rig;
  rig.script.Refuse("open");
  rig.player.Play("1.wav");
  rig.player.Play("2.wav");
  EXPECT_EQ(rig.output.OpenDevices().size(), 1U);
}

TEST(OctaveNotePlayer, EvictsTheLeastRecentlyUsedFileWhenTheCacheIsFull) {
  Rig rig(250);
  rig.player.Play("1.wav");
  rig.player.Play("2.wav");
  rig.player.Play("1.wav");
  rig.player.Play("3.wav");
  EXPECT_EQ(rig.player.CachedBytes(), 200U);
  EXPECT_EQ(rig.script.Count("open file"), 3);
  rig.player.Play("1.wav");
  EXPECT_EQ(rig.script.Count("open file"), 3);
  rig.player.Play("2.wav");
  EXPECT_EQ(rig.script.Count("open file"), 4);
}

TEST(OctaveNotePlayer, KeepsFourFilesOfTheLargestSize) {
  constexpr std::size_t kLargestFile = std::size_t{8} << 20U;
  const testing::Bytes largest = Wave({}, testing::Bytes(kLargestFile));
  Rig rig;
  for (const char* const name : {"a.wav", "b.wav", "c.wav", "d.wav", "e.wav"}) rig.files.Put(name, largest);
  for (const char* const name : {"a.wav", "b.wav", "c.wav", "d.wav"}) rig.player.Play(name);
  EXPECT_EQ(rig.player.CachedBytes(), 4 * kLargestFile);
  rig.player.Play("e.wav");
  EXPECT_EQ(rig.player.CachedBytes(), 4 * kLargestFile) << "the first one is evicted";
}

TEST(OctaveNotePlayer, PlaysAFileLargerThanTheCacheWithoutCachingIt) {
  Rig rig(50);
  rig.player.Play("1.wav");
  EXPECT_EQ(rig.player.CachedBytes(), 0U);
  EXPECT_TRUE(rig.output.IsPlaying(101));
}

TEST(OctaveNotePlayer, ReleasesItsDeviceWhenDestroyed) {
  tests::AudioScript script;
  tests::ScriptedFileInput files(script);
  tests::ScriptedWindowMessages windows(script);
  tests::ScriptedWaveOutput output(script, windows);
  files.Put("1.wav", Wave({}, Number(0, 4)));
  { OctaveNotePlayer(files, output, windows).Play("1.wav"); }
  EXPECT_TRUE(output.OpenDevices().empty());
}

}  // namespace
}  // namespace tonalith::audio
