// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/recorded_sound.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "audio/wave_file.h"

namespace tonalith::testing {
namespace {

/// Creates the folder of the recordings and removes it when the program ends.
class RecordingSetup {
 public:
  RecordingSetup() : folder_(::testing::TempDir() + "tonalith_recording_" + std::to_string(::getpid())) {
    std::filesystem::create_directories(folder_);
    path_ = folder_ + "/out.wav";
    const std::string settings = folder_ + ".conf";
    std::ofstream(settings) << "[general]\nfrequency = 44100\nsample-type = float32\ndither = false\n[wave]\nfile = "
                            << path_ << "\n";
    ::setenv("ALSOFT_DRIVERS", "wave", 1);
    ::setenv("ALSOFT_CONF", settings.c_str(), 1);
  }
  RecordingSetup(const RecordingSetup&) = delete;
  RecordingSetup& operator=(const RecordingSetup&) = delete;
  ~RecordingSetup() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
    std::filesystem::remove(folder_ + ".conf", ignored);
  }
  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] const std::string& Folder() const { return folder_; }

 private:
  std::string folder_;
  std::string path_;
};

const RecordingSetup& TheSetup() {
  static const RecordingSetup setup;
  return setup;
}

}  // namespace

const std::string& RecordingPath() { return TheSetup().Path(); }
std::string RecordingFolder() { return TheSetup().Folder(); }

Recording ReadRecording() {
  Recording recording;
  platform::PosixFileInput files;
  const auto file = files.Open(RecordingPath());
  if (!file) return recording;
  audio::WaveFile wave(*file);
  platform::WaveFormat format;
  if (wave.EnterForm() || wave.ReadFormat(format)) return recording;
  EXPECT_EQ(format.record.nChannels, 2);
  EXPECT_EQ(format.record.wBitsPerSample, 32);
  recording.rate = format.record.nSamplesPerSec;
  // A recording may exceed the length that WaveFile accepts.
  audio::RiffReader reader(*file);
  reader.Seek(0);
  audio::MMCKINFO form;
  audio::MMCKINFO data{.ckid = audio::StringToFOURCC("data")};
  if (reader.Descend(form) != audio::Descent::kEntered) return recording;
  if (reader.FindChunk(data, form) != audio::Descent::kEntered) return recording;
  std::vector<std::byte> samples(std::min<std::uint64_t>(data.cksize, reader.Remaining()));
  if (reader.Read(samples) != std::ssize(samples)) return recording;
  for (std::size_t at = 0; at + 8 <= samples.size(); at += 8) {
    float sides[2];
    std::memcpy(sides, samples.data() + at, sizeof sides);
    recording.left.push_back(sides[0]);
    recording.right.push_back(sides[1]);
  }
  return recording;
}

std::vector<Stretch> Stretches(const Recording& recording, double height, double bridge) {
  std::vector<Stretch> stretches;
  const auto bridged = static_cast<std::size_t>(bridge * recording.rate);
  for (std::size_t i = 0; i < recording.left.size(); ++i) {
    if (std::abs(recording.left[i]) <= height && std::abs(recording.right[i]) <= height) continue;
    if (stretches.empty() || i > stretches.back().to + bridged) stretches.push_back({i, i});
    stretches.back().to = i + 1;
  }
  return stretches;
}

double Pitch(const Recording& recording, const Stretch& stretch) {
  const std::size_t quarter = (stretch.to - stretch.from) / 4;
  std::vector<double> crossings;
  for (std::size_t i = stretch.from + quarter; i + 1 < stretch.to - quarter; ++i) {
    const double a = recording.left[i];
    const double b = recording.left[i + 1];
    if (a <= 0 && b > 0) crossings.push_back(static_cast<double>(i) + a / (a - b));
  }
  if (crossings.size() < 2) return 0;
  return recording.rate * static_cast<double>(crossings.size() - 1) / (crossings.back() - crossings.front());
}

double Peak(const std::vector<float>& side, const Stretch& stretch) {
  double peak = 0;
  for (std::size_t i = stretch.from; i < stretch.to; ++i) peak = std::max(peak, std::abs(double{side[i]}));
  return peak;
}

double LargestStep(const std::vector<float>& side, const Stretch& stretch) {
  double step = 0;
  for (std::size_t i = stretch.from; i + 1 < stretch.to; ++i) {
    step = std::max(step, std::abs(double{side[i + 1]} - double{side[i]}));
  }
  return step;
}

double Decibels(double ratio) { return 20 * std::log10(ratio); }

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values.at(values.size() / 2);
}

platform::WaveFormat RecordOf(const Format& format) {
  const auto align = static_cast<std::uint16_t>(format.channels * format.bits / 8);
  return {{.wFormatTag = format.tag,
           .nChannels = format.channels,
           .nSamplesPerSec = format.rate,
           .nAvgBytesPerSec = format.rate * align,
           .nBlockAlign = align,
           .wBitsPerSample = format.bits,
           .cbSize = 0},
          std::nullopt};
}

RecordingOutput::RecordingOutput() {
  RecordingPath();
  window_ = queue_.CreateWindow({});
  queue_.SetWindowProcedure(window_, [this](auto, auto, auto, auto) {
    ++messages_;
    return std::intptr_t{0};
  });
  output_ = platform::MakeOpenAlWaveOutput(queue_, nullptr);
}

double RecordingOutput::Play(const Format& format, const Bytes& samples) {
  const platform::WaveHandle device = output_->Open(RecordOf(format), window_);
  EXPECT_NE(device, platform::kNoWaveHandle);
  platform::WAVEHDR header{.lpData = samples.data(), .dwBufferLength = static_cast<std::uint32_t>(samples.size())};
  output_->PrepareHeader(device, header);
  const int before = messages_;
  const auto start = std::chrono::steady_clock::now();
  output_->Write(device, header);
  WaitFor(before + 1);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  output_->UnprepareHeader(device, header);
  output_->Close(device);
  return took.count();
}

void RecordingOutput::WaitFor(int messages) {
  const auto timeout = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (messages_ < messages && std::chrono::steady_clock::now() < timeout) {
    queue_.WaitForEvents(std::chrono::milliseconds(100));
  }
  EXPECT_GE(messages_, messages);
}

void RecordingOutput::Pass(double seconds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  while (std::chrono::steady_clock::now() < end) queue_.WaitForEvents(std::chrono::milliseconds(5));
}

Recording RecordingOutput::Finish() {
  output_.reset();
  return ReadRecording();
}

}  // namespace tonalith::testing
