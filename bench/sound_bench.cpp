// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The time from a click on a note to its first sample, and from the last sample of a sound to its event. Uses the
// wave-file writer of OpenAL Soft, which runs in real time, and watches its file. The file grows by two mixing periods
// at a time, so the first number is an upper estimate.

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "audio/octave_note_player.h"
#include "measuring.h"
#include "platform/recorded_sound.h"

namespace {

using namespace tonalith;
namespace support = tonalith::testing;
using std::chrono::steady_clock;

double MillisecondsSince(steady_clock::time_point start) {
  return std::chrono::duration<double, std::milli>(steady_clock::now() - start).count();
}

/// Watches the end of a recording that is being written.
class RecordingWatch {
 public:
  /// Ignores everything written so far.
  void Skip() {
    file_ = std::ifstream(support::RecordingPath(), std::ios::binary);
    file_.seekg(0, std::ios::end);
    at_ = kHeader + (file_.tellg() - kHeader) / kFrame * kFrame;
  }

  /// Waits until a non-silent sample is written; gives up after half a second.
  bool WaitForSound() {
    const auto start = steady_clock::now();
    while (MillisecondsSince(start) < 500) {
      std::array<float, 2> sides{};
      file_.clear();
      file_.seekg(at_);
      while (file_.read(reinterpret_cast<char*>(sides.data()), kFrame)) {
        at_ += kFrame;
        if (std::abs(sides[0]) > 0.01F) return true;
      }
      std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
    return false;
  }

 private:
  static constexpr std::streamoff kHeader = 80;
  static constexpr std::streamoff kFrame = 8;
  std::ifstream file_;
  std::streamoff at_ = kHeader;
};

bool ReportClicks(support::RecordingOutput& output) {
  platform::PosixFileInput files;
  const std::string path = support::RecordingFolder() + "/note.wav";
  support::Bytes samples;
  for (int i = 0; i < 44100 / 50; ++i) samples = samples + support::Number(16000, 2);
  const support::Bytes wave = support::Wave({}, samples);
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(wave.data()), std::ssize(wave));
  audio::OctaveNotePlayer player(files, output.Output(), output.Queue());
  player.Play(path);
  output.Pass(0.3);
  RecordingWatch watch;
  std::vector<bench::Spent> delays;
  for (int click = 0; click < bench::Runs(200); ++click) {
    watch.Skip();
    const auto pressed = steady_clock::now();
    player.Play(path);
    if (!watch.WaitForSound()) return false;
    delays.push_back({MillisecondsSince(pressed), 0});
    output.Pass(0.035);
  }
  std::filesystem::remove(path);
  bench::ReportTimes("press on a note to its first sample", delays, 0.95, 20);
  return true;
}

void ReportNotices(support::RecordingOutput& output) {
  constexpr double kSeconds = 0.1;
  const support::Bytes sound = support::Sine({}, 441, kSeconds, 0.5);
  const int runs = bench::Runs(40);
  std::vector<bench::Spent> delays;
  delays.reserve(static_cast<std::size_t>(runs));
  for (int i = 0; i < runs; ++i) delays.push_back({(output.Play({}, sound) - kSeconds) * 1000, 0});
  bench::ReportTimes("last sample of a sound to its notice", delays, 0.5, 15);
}

}  // namespace

int main() {
  support::RecordingOutput output;
  ReportNotices(output);
  return ReportClicks(output) ? 0 : 1;
}
