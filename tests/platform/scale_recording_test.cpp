// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Records a complete scale through the sound manager: the notes are those that the playback's rules require.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>

#include "audio/scale_playback.h"
#include "platform/recorded_sound.h"
#include "support/timed.h"

namespace tonalith::testing {
namespace {

double PitchOfFile(int number) { return 220 * std::exp2(number / 12.0); }

/// A folder with the sounds 0.wav to 15.wav in ascending semitones, each 0.12 seconds long.
class ScaleFolder {
 public:
  ScaleFolder() : path_(RecordingFolder() + "_scale/") {
    std::filesystem::create_directories(path_);
    for (int number = 0; number < 16; ++number) {
      const Bytes wave = Wave({}, Sine({}, PitchOfFile(number), 0.12, 0.8));
      std::ofstream(File(number), std::ios::binary).write(reinterpret_cast<const char*>(wave.data()), std::ssize(wave));
    }
  }
  ScaleFolder(const ScaleFolder&) = delete;
  ScaleFolder& operator=(const ScaleFolder&) = delete;
  ~ScaleFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] std::string File(int number) const { return path_ + std::to_string(number) + ".wav"; }

 private:
  std::string path_;
};

class Stage : public audio::PlaybackHost {
 public:
  explicit Stage(const ScaleFolder& folder) : folder_(folder) {}
  std::optional<std::string> CurrentField(int position) override { return position == 5 ? pattern : "Major"; }
  std::string KeyText() override { return "C"; }
  std::string SoundFolder() override { return folder_.Path(); }
  void ShowMarker(int index) override { flashed += "img" + std::to_string(index) + " "; }
  void HideMarker() override {}
  void ShowStatus(const audio::PlaybackStatus& shown) override { state = shown.state; }

  std::string pattern = "2212221";
  std::string flashed;
  audio::PlaybackState state = audio::PlaybackState::kStopped;

 private:
  const ScaleFolder& folder_;
};

/// Plays a pattern and returns the numbers of the played files, in order.
class ScaleRecording : public ::testing::Test {
 protected:
  std::vector<int> Listen(const std::string& pattern) {
    RecordingPath();
    platform::PosixFileInput files;
    platform::WindowMessageQueue queue;
    auto output = platform::MakeOpenAlWaveOutput(queue, nullptr);
    {
      audio::ScaleSoundFiles scaleSounds(files);
      audio::SoundManager sounds(scaleSounds, *output, queue, box_);
      audio::ScalePlayback playback(core::Neck::Standard(), sounds, scaleSounds, stage_, queue, box_);
      sounds.Notifier = &playback;
      stage_.pattern = pattern;
      playback.PlayToneNotes();
    }
    output.reset();
    recording_ = ReadRecording();
    stretches_ = Stretches(recording_, 0.001, 0.001);
    std::vector<int> heard;
    for (const Stretch& stretch : stretches_) {
      const double number = 12 * std::log2(Pitch(recording_, stretch) / 220);
      EXPECT_NEAR(number, std::round(number), 0.05) << "a clear pitch";
      heard.push_back(static_cast<int>(std::lround(number)));
    }
    return heard;
  }

  ScaleFolder folder_;
  Stage stage_{folder_};
  tests::RecordingMsgBox box_;
  Recording recording_;
  std::vector<Stretch> stretches_;
};

TEST_F(ScaleRecording, ContainsEveryNoteInOrderAtFullLengthWithShortGaps) {
  EXPECT_EQ(Listen("2212221"), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7}));
  EXPECT_EQ(stage_.flashed, "img8 img10 img0 img1 img3 img5 img7 img8 ");
  EXPECT_EQ(stage_.state, audio::PlaybackState::kStandby);
  std::vector<double> gaps;
  for (std::size_t i = 0; i < stretches_.size(); ++i) {
    const Stretch& stretch = stretches_[i];
    EXPECT_NEAR(static_cast<double>(stretch.to - stretch.from) / recording_.rate, 0.12, 0.002);
    EXPECT_LT(Peak(recording_.left, stretch), 0.82);
    if (i > 0) gaps.push_back(static_cast<double>(stretch.from - stretches_[i - 1].to) / recording_.rate);
  }
  ASSERT_EQ(gaps.size(), 7U);
  RecordProperty("MedianGapMicroseconds", static_cast<int>(Median(gaps) * 1e6));
  EXPECT_LT(Median(gaps), tests::Timely(0.030));
}

TEST_F(ScaleRecording, ClosesAScaleWithoutOctaveWithItsKey) { EXPECT_EQ(Listen("22"), (std::vector<int>{0, 1, 2, 0})); }

TEST_F(ScaleRecording, ContinuesAfterAMissingFile) {
  std::filesystem::remove(folder_.File(1));
  EXPECT_EQ(Listen("2221"), (std::vector<int>{0, 2, 3, 4, 0}));
  EXPECT_EQ(box_.Texts(), "Cannot open file\n");
}

}  // namespace
}  // namespace tonalith::testing
