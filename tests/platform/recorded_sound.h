// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Sound recorded by OpenAL Soft's writer of wave files: the tests' ear. A recording process sets OpenAL Soft up once,
// so all tests of a program share one file, which each opening of the device begins anew.

#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "audio/sound_manager.h"
#include "audio/wave_bytes.h"
#include "platform/sound/open_al_mixer.h"
#include "platform/system/posix_file_input.h"
#include "platform/system/window_message_queue.h"
#include "support/recording_msg_box.h"

namespace tonalith::testing {

/// Points OpenAL Soft at its file writer and gives the file's path, inside a folder that is there now and that a test
/// may take away to have no device. To be called before OpenAL Soft is used for the first time.
const std::string& RecordingPath();
/// The folder of the recording.
std::string RecordingFolder();

struct Recording {
  std::vector<float> left;
  std::vector<float> right;
  double rate = 44100;

  [[nodiscard]] double Seconds() const { return static_cast<double>(left.size()) / rate; }
};

/// The finished recording; empty when there is none.
Recording ReadRecording();

/// A stretch of sound between silences, in frames.
struct Stretch {
  std::size_t from = 0;
  std::size_t to = 0;
};

/// The stretches above a height, silences shorter than `bridge` seconds counted in.
std::vector<Stretch> Stretches(const Recording& recording, double height, double bridge);

/// The pitch of a stretch's middle, in hertz, from its rising zero crossings.
double Pitch(const Recording& recording, const Stretch& stretch);
/// The highest sample of a stretch, 0 to 1.
double Peak(const std::vector<float>& side, const Stretch& stretch);
/// The largest step between neighbouring samples in a stretch.
double LargestStep(const std::vector<float>& side, const Stretch& stretch);

double Decibels(double ratio);
double Median(std::vector<double> values);

/// An output on the recording device, with what its notices told.
class RecordingOutput {
 public:
  RecordingOutput();

  platform::WaveOutput& Output() { return *output_; }
  platform::WindowMessageQueue& Queue() { return queue_; }
  platform::WindowHandle Window() const { return window_; }

  /// Plays a sound of that format and waits for its notice; the seconds it took.
  double Play(const Format& format, const Bytes& samples);
  /// Waits for notices until there were that many since the start, for some seconds at most.
  void WaitFor(int notices);
  int Notices() const { return notices_; }
  /// Lets time go by and handles notices.
  void Pass(double seconds);
  /// Closes the device, which finishes the recording.
  Recording Finish();

 private:
  platform::WindowMessageQueue queue_;
  platform::WindowHandle window_ = platform::kNoWindow;
  std::unique_ptr<platform::WaveOutput> output_;
  int notices_ = 0;
};

/// The format record as a file would hold it.
platform::WaveFormat RecordOf(const Format& format);

}  // namespace tonalith::testing
