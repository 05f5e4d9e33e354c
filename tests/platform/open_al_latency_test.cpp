// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The time from the click to the first sample, measured in the growing recording. It exceeds the mixer's delay, because
// the file writer buffers up to two mixing periods.

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <thread>

#include "audio/octave_note_player.h"
#include "platform/processor_time.h"
#include "platform/recorded_sound.h"
#include "support/timed.h"

namespace tonalith::testing {
namespace {

using std::chrono::steady_clock;

/// Waits until the recording contains a new sample that is not silent.
class RecordingWatch {
 public:
  /// Skips the present content.
  void SkipToEnd() {
    file_ = std::ifstream(RecordingPath(), std::ios::binary);
    file_.seekg(0, std::ios::end);
    // The file starts with a header, followed by frames of eight bytes.
    at_ = std::max<std::streamoff>(kHeader, file_.tellg() - (file_.tellg() - kHeader) % 8);
  }

  /// The time when a sound was detected; the epoch after a timeout of half a second.
  steady_clock::time_point WaitForSound() {
    const auto timeout = steady_clock::now() + std::chrono::milliseconds(500);
    while (steady_clock::now() < timeout) {
      float sides[2];
      file_.clear();
      file_.seekg(at_);
      while (file_.read(reinterpret_cast<char*>(sides), sizeof sides)) {
        at_ += sizeof sides;
        if (std::abs(sides[0]) > 0.01F) return steady_clock::now();
      }
      // Polls: the mixer writes the file in real time and reports nothing.
      std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
    return {};
  }

 private:
  static constexpr std::streamoff kHeader = 80;
  std::ifstream file_;
  std::streamoff at_ = kHeader;
};

TEST(OpenAlLatency, AClickIsMixedWithinTwentyMilliseconds) {
  RecordingOutput output;
  platform::PosixFileInput files;
  const std::string path = RecordingFolder() + "/note.wav";
  Bytes samples;
  for (int i = 0; i < 44100 / 50; ++i) samples = samples + Number(16000, 2);
  const Bytes wave = Wave({}, samples);
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(wave.data()), std::ssize(wave));
  audio::OctaveNotePlayer player(files, output.Output(), output.Queue());
  player.Play(path);
  output.Pass(0.3);
  RecordingWatch watch;
  std::vector<double> delays;
  delays.reserve(200);
  for (int click = 0; click < 200; ++click) {
    watch.SkipToEnd();
    const auto pressed = steady_clock::now();
    player.Play(path);
    const auto seen = watch.WaitForSound();
    ASSERT_NE(seen, steady_clock::time_point()) << "click " << click;
    delays.push_back(std::chrono::duration<double>(seen - pressed).count());
    output.Pass(0.035);
  }
  std::sort(delays.begin(), delays.end());
  std::cout << "click to first sample over 200 clicks: median " << Median(delays) * 1000 << " ms, 95th percentile "
            << delays[189] * 1000 << " ms, most " << delays.back() * 1000 << " ms\n";
  EXPECT_LT(Median(delays), tests::Timely(0.020));
  std::filesystem::remove(path);
}

TEST(OpenAlLatency, PlayingTakesLittleProcessorTime) {
  RecordingOutput output;
  output.Play({}, Sine({}, 441, 0.1, 0.5));
  const Bytes samples = Sine({}, 441, 0.5, 0.5);
  const double start = ProcessorSeconds();
  const auto from = steady_clock::now();
  for (int i = 0; i < 4; ++i) output.Play({}, samples);
  const double share = (ProcessorSeconds() - start) / std::chrono::duration<double>(steady_clock::now() - from).count();
  std::cout << "processor time while playing, mixing and file writing included: " << share * 100 << " %\n";
  EXPECT_LT(share, tests::Timely(0.10));
}

}  // namespace
}  // namespace tonalith::testing
