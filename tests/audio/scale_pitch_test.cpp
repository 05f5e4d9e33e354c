// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The pitches at which the notes of a scale are played, for shipped and for user recordings.

#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "audio/playback_rig.h"
#include "audio/shipped_recording.h"
#include "audio/wave_file.h"
#include "voice/guitar_note.h"
#include "voice/recipe.h"
#include "voice/scale_note.h"
#include "voice/wav_file.h"

namespace tonalith::audio {
namespace {

using Samples = std::vector<std::byte>;

testing::Bytes BytesOf(const std::string& file) { return testing::Text(file); }

Samples SamplesOf(const testing::Bytes& file) {
  tests::AudioScript script;
  tests::ScriptedFileInput files(script);
  files.Put("file", file);
  const auto open = files.Open("file");
  WaveFile wave(*open);
  platform::WaveFormat format;
  Samples samples;
  EXPECT_FALSE(wave.EnterForm() || wave.ReadFormat(format) || wave.FindData() || wave.ReadData(samples));
  return samples;
}

bool IsShipped(const testing::Bytes& file) {
  tests::AudioScript script;
  tests::ScriptedFileInput files(script);
  files.Put("file", file);
  return IsShippedRecording(*files.Open("file"));
}

/// The pitch of each rendered note.
const std::map<Samples, voice::Pitch>& PitchesOfSamples() {
  static const auto pitches = [] {
    std::map<Samples, voice::Pitch> made;
    for (voice::Pitch pitch = 60; pitch <= 95; ++pitch) {
      made[SamplesOf(BytesOf(voice::RenderScaleNote(pitch)))] = pitch;
    }
    return made;
  }();
  return pitches;
}

/// A playback with the shipped recordings in its folder.
struct ShippedRig : PlaybackRig {
  ShippedRig() {
    for (int number = 0; number < 16; ++number) files.Put(File(number), BytesOf(voice::RenderScaleNote(60 + number)));
    events.during = [this](int /*wait*/) { Hear(); };
  }
  static std::string File(int number) { return "Audio/" + std::to_string(number) + ".wav"; }

  void Hear() {
    for (std::int32_t slot = 1; slot <= 2; ++slot) {
      const SoundBuffer& buffer = sounds.Buffer(slot);
      if (buffer.state != BufferState::kPlaying) continue;
      const auto found = PitchesOfSamples().find(buffer.samples);
      heard += (heard.empty() ? "" : " ") +
               (found == PitchesOfSamples().end() ? std::string("own") : std::to_string(found->second));
    }
  }

  /// The pitches played for a pattern in a key; "own" means a user's recording.
  std::string Listen(const std::string& key, const std::string& pattern) {
    heard.clear();
    stage.key = key;
    stage.pattern = pattern;
    playback.PlayToneNotes();
    // The playback waits for the last note only if the scale ends on its key.
    return heard;
  }

  std::string heard;
};

TEST(ScalePitch, IsThePitchOfTheNoteInTheKey) {
  ShippedRig rig;
  EXPECT_EQ(rig.Listen("C", "2212221"), "60 62 64 65 67 69 71 72");
  EXPECT_EQ(rig.Listen("A", "2122122"), "69 71 72 74 76 77 79 81");
  EXPECT_EQ(rig.Listen("E", "321132"), "64 67 69 70 71 74 76");
  EXPECT_EQ(rig.Listen("C", "435"), "60 64 67 72");
  EXPECT_EQ(rig.Listen("B", "111111111111"), "71 72 73 74 75 76 77 78 79 80 81 82 83");
  EXPECT_EQ(rig.box.Texts(), "");
}

TEST(ScalePitch, OfTheClosingKeyEqualsThatOfTheFirstNote) {
  ShippedRig rig;
  EXPECT_EQ(rig.Listen("D", "222"), "62 64 66 68 62");
  EXPECT_EQ(rig.Listen("A#", "75"), "70 77 82");
}

TEST(ScalePitch, ReachesTheEndOfTheNoteTable) {
  ShippedRig rig;
  EXPECT_EQ(rig.Listen("B", "996"), "71 80 89 95");
  EXPECT_EQ(rig.Listen("B", "997"), "");
  EXPECT_EQ(rig.box.Texts(), "9 Subscript out of range\n");
}

TEST(ScalePitch, StartsFromCForAnUnknownKeyText) {
  ShippedRig rig;
  EXPECT_EQ(rig.Listen("Bb", "435").substr(0, 8), "60 64 67");
  EXPECT_EQ(rig.Listen("", "435"), "60 64 67 72");
}

TEST(ScalePitch, LeavesTheUsersRecordingUnchanged) {
  ShippedRig rig;
  rig.files.Put(ShippedRig::File(1), testing::Wave({}, testing::Number(7, 8)));
  EXPECT_EQ(rig.Listen("D", "222"), "62 own 66 68 62");
}

TEST(ScalePitch, LeavesAnEditedShippedRecordingUnchanged) {
  ShippedRig rig;
  testing::Bytes louder = BytesOf(voice::RenderScaleNote(62));
  louder[1000] ^= std::byte{1};
  rig.files.Put(ShippedRig::File(1), louder);
  testing::Bytes slower = BytesOf(voice::RenderScaleNote(64));
  slower[24] = std::byte{0x22};
  slower[25] = std::byte{0x56};  // 22,050 Hz
  rig.files.Put(ShippedRig::File(2), slower);
  EXPECT_FALSE(IsShipped(louder));
  EXPECT_FALSE(IsShipped(slower));
  // 2.wav, the third note and the closing key, contains the samples of pitch 64 at another rate.
  EXPECT_EQ(rig.Listen("D", "222"), "62 own 64 68 64");
}

TEST(ScalePitch, ShowsTheLoadersMessageForAMissingOrDamagedFile) {
  ShippedRig rig;
  testing::Bytes damaged = BytesOf(voice::RenderScaleNote(62));
  damaged.resize(20'000);
  rig.files.Put(ShippedRig::File(1), damaged);
  testing::Bytes shortFormat = BytesOf(voice::RenderScaleNote(64));
  shortFormat[16] = std::byte{14};
  rig.files.Put(ShippedRig::File(2), shortFormat);
  rig.files.Remove(ShippedRig::File(3));
  EXPECT_EQ(rig.Listen("C", "2221221"), "60 67 69 71 72");
  EXPECT_EQ(rig.box.Texts(), "Could not read full buffer\nNot enough data, only 14, wanted 16\nCannot open file\n");
}

TEST(ScalePitch, DoesNotAffectOtherLoads) {
  ShippedRig rig;
  rig.Listen("D", "2212221");
  ASSERT_TRUE(rig.sounds.LoadSoundBuffer(5, ShippedRig::File(3), BufferFlags::kNone));
  EXPECT_EQ(rig.sounds.Buffer(5).samples, SamplesOf(BytesOf(voice::RenderScaleNote(63))));
}

TEST(ScalePitch, LeavesFileFailuresToTheLoader) {
  ShippedRig rig;
  rig.files.RecordReads();
  rig.script.Break("read");
  rig.Listen("C", "435");
  EXPECT_EQ(rig.box.Texts(), "") << "the file could be read the second time";
  rig.script.Break("open file", rig.script.Count("open file") + 1);
  rig.Listen("C", "435");
  EXPECT_EQ(rig.box.Texts(), "Cannot open file\nopen file broke\n");
}

TEST(ShippedRecording, IsRecognisedByItsChecksumChunk) {
  const testing::Bytes shipped = BytesOf(voice::RenderScaleNote(60));
  EXPECT_TRUE(IsShipped(shipped));
  EXPECT_FALSE(IsShipped(testing::Wave({}, testing::Number(1, 1000))));
  EXPECT_FALSE(IsShipped({}));
  EXPECT_FALSE(IsShipped(testing::Text("RIFF")));
}

TEST(ShippedRecording, IsRecognisedWithItsChunksInAnotherOrder) {
  const testing::Bytes shipped = BytesOf(voice::RenderScaleNote(60));
  const testing::Bytes format(shipped.begin() + 12, shipped.begin() + 36);
  const testing::Bytes data(shipped.begin() + 36, shipped.end() - 16);
  const testing::Bytes mark(shipped.end() - 16, shipped.end());
  const testing::Bytes title = testing::Chunk("LIST", testing::Text("INFOINAM\4\0\0\0Note"));
  EXPECT_TRUE(IsShipped(testing::Riff(title + format + mark + data)));
  EXPECT_FALSE(IsShipped(testing::Riff(title + format + data)));
}

TEST(ShippedRecording, HasAChecksumOfEightBytes) {
  const testing::Bytes shipped = BytesOf(voice::RenderScaleNote(60));
  const testing::Bytes chunks(shipped.begin() + 12, shipped.end() - 16);
  const testing::Bytes sum(shipped.end() - 8, shipped.end());
  EXPECT_TRUE(IsShipped(testing::Riff(chunks + testing::Chunk("tlth", sum))));
  EXPECT_FALSE(IsShipped(testing::Riff(chunks + testing::Chunk("tlth", sum + testing::Number(0, 2)))));
  EXPECT_FALSE(IsShipped(testing::Riff(chunks + testing::Chunk("tlth", {}))));
}

TEST(ShippedRecording, OfVersion10IsRecognisedByTheFileChecksum) {
  // Its files were the present ones without the checksum chunk.
  const voice::Recipe& recipe = voice::BuiltInRecipe();
  const voice::SoundSet& set = recipe.sets.at(1);
  ASSERT_EQ(set.folder, "Audio");
  for (int number = 0; number < 16; ++number) {
    const auto note = PlayNote(recipe.guitar, set.PitchOf(number), LengthOf(set, number));
    testing::Bytes file = BytesOf(voice::WavFile(note));
    EXPECT_TRUE(IsShipped(file)) << number;
    file.back() ^= std::byte{1};
    EXPECT_FALSE(IsShipped(file)) << number;
  }
}

TEST(ShippedRecording, IsNotSearchedInALongFile) {
  testing::Bytes file = BytesOf(voice::RenderScaleNote(60));
  EXPECT_TRUE(IsShipped(file));
  file.resize(kLargestShippedRecording + 1);
  EXPECT_FALSE(IsShipped(file));
}

}  // namespace
}  // namespace tonalith::audio
