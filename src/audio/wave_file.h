// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The steps in which a WAVE file is read: enter the form, read the format record, find the samples, read them. Each
// step answers with nothing when it succeeded and otherwise with the message that it owes; after a message there is no
// next step. Whoever loads a sound shows the message or stays silent. Borrows the open file; one thread; throws what
// the file throws.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "audio/riff_reader.h"
#include "platform/wave_output.h"

namespace tonalith::audio {

class WaveFile {
 public:
  /// What stands in the way, as the text of a message box.
  using Problem = std::optional<std::string>;

  explicit WaveFile(platform::InputFile& file) : reader_(file) {}

  Problem EnterForm();

  /// Always reads 20 bytes. A plain record has 16, so its cbSize is then made of what follows the chunk; devices ignore
  /// it for plain samples. An extensible record is followed further, to the format tag that its samples have.
  Problem ReadFormat(platform::WaveFormat& format);

  /// Searches from the start of the form, so the samples may also stand before the format.
  Problem FindData();

  /// Reads the claimed number of bytes, allocating no more than the file holds. More than 8 MiB are refused.
  Problem ReadData(std::vector<std::byte>& samples);

 private:
  std::optional<std::uint16_t> ReadSubFormat();

  RiffReader reader_;
  MMCKINFO form_;
  MMCKINFO format_;
  MMCKINFO data_;
};

}  // namespace tonalith::audio
