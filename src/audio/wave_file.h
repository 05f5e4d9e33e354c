// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads a WAVE file in steps: enter the form, read the format record, find the samples, read them. Each step returns
// nullopt on success and otherwise the message of the failure; after a failure no further step may be called. The
// caller decides whether to show the message. Does not own the file; throws what the file throws.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "audio/riff_reader.h"
#include "core/message.h"
#include "platform/wave_output.h"

namespace tonalith::audio {

class WaveFile {
 public:
  /// The failure as the text of a message box; nullopt on success.
  using Problem = std::optional<core::Message>;

  explicit WaveFile(platform::InputFile& file) : reader_(file) {}

  Problem EnterForm();

  /// Always reads 20 bytes. A plain record has 16, so its cbSize comes from the bytes after the chunk; devices ignore
  /// it for plain samples. For an extensible record the format tag of the samples is read too.
  Problem ReadFormat(platform::WaveFormat& format);

  /// Searches from the start of the form, so the samples may precede the format.
  Problem FindData();

  /// Reads the number of bytes in the chunk header, allocating no more than the file size. Fails for more than 8 MiB.
  Problem ReadData(std::vector<std::byte>& samples);

 private:
  std::optional<std::uint16_t> ReadSubFormat();

  RiffReader reader_;
  MMCKINFO form_;
  MMCKINFO format_;
  MMCKINFO data_;
};

}  // namespace tonalith::audio
