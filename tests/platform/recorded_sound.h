// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Sound recorded by OpenAL Soft's wave file writer. OpenAL Soft is configured once per process, so all tests of a
// program share one file, which is overwritten whenever the device is opened.

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

/// Configures OpenAL Soft to write to a file and returns its path. A test may remove its folder to simulate a missing
/// device. Call this before OpenAL Soft is used.
const std::string& RecordingPath();
/// The folder of the recording.
std::string RecordingFolder();

struct Recording {
  std::vector<float> left;
  std::vector<float> right;
  double rate = 44100;

  [[nodiscard]] double Seconds() const { return static_cast<double>(left.size()) / rate; }
};

/// The finished recording; empty if there is none.
Recording ReadRecording();

/// A stretch of sound between silences, in frames.
struct Stretch {
  std::size_t from = 0;
  std::size_t to = 0;
};

/// The stretches above an amplitude; silences shorter than `bridge` seconds are included.
std::vector<Stretch> Stretches(const Recording& recording, double height, double bridge);

/// The pitch of the middle of a stretch, in hertz, from its rising zero crossings.
double Pitch(const Recording& recording, const Stretch& stretch);
/// The largest absolute sample of a stretch, 0 to 1.
double Peak(const std::vector<float>& side, const Stretch& stretch);
/// The largest step between neighbouring samples in a stretch.
double LargestStep(const std::vector<float>& side, const Stretch& stretch);

double Decibels(double ratio);
double Median(std::vector<double> values);

/// An output on the recording device that counts its wave-done messages.
class RecordingOutput {
 public:
  RecordingOutput();

  platform::WaveOutput& Output() { return *output_; }
  platform::WindowMessageQueue& Queue() { return queue_; }
  platform::WindowHandle Window() const { return window_; }

  /// Plays a sound of that format and waits for its message. Returns the seconds it took.
  double Play(const Format& format, const Bytes& samples);
  /// Waits until that many messages have arrived in total, for at most 20 seconds.
  void WaitFor(int messages);
  int Messages() const { return messages_; }
  /// Handles messages for that time.
  void Pass(double seconds);
  /// Closes the device, which finishes the recording.
  Recording Finish();

 private:
  platform::WindowMessageQueue queue_;
  platform::WindowHandle window_ = platform::kNoWindow;
  std::unique_ptr<platform::WaveOutput> output_;
  int messages_ = 0;
};

/// The format record of a file.
platform::WaveFormat RecordOf(const Format& format);

}  // namespace tonalith::testing
