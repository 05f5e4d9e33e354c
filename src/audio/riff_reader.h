// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads the chunks of a RIFF file: a four-character code, a 32-bit little-endian size, the payload, and a pad byte
// after an odd size. The file is untrusted input: a chunk counts as found only if its header is inside its parent and
// the file, positions are computed in 64 bits, and nothing is allocated beyond the file size. Throws only what the file
// throws.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "platform/file_input.h"

namespace tonalith::audio {

/// A four-character code as the little-endian number in the file.
using FOURCC = std::uint32_t;

/// The code of a text of up to four characters, padded with blanks.
constexpr FOURCC StringToFOURCC(std::string_view text) {
  FOURCC code = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    const auto character = static_cast<unsigned char>(i < text.size() ? text[i] : ' ');
    code |= static_cast<FOURCC>(character) << (8 * i);
  }
  return code;
}

/// Position of a chunk. dwDataOffset is the position of its payload; the payload of a RIFF or LIST chunk begins with
/// its form type.
struct MMCKINFO {
  FOURCC ckid = 0;
  std::uint32_t cksize = 0;
  FOURCC fccType = 0;
  std::uint32_t dwDataOffset = 0;
  std::uint32_t dwFlags = 0;
};

enum class Descent { kEntered, kNotThere };

class RiffReader {
 public:
  explicit RiffReader(platform::InputFile& file) : file_(file) {}

  /// Enters any chunk at the current position and moves past its header (and form type).
  Descent Descend(MMCKINFO& chunk);

  /// Enters the next chunk with the code in chunk.ckid, between the current position and the parent's end. Checks at
  /// most a thousand chunks.
  Descent FindChunk(MMCKINFO& chunk, const MMCKINFO& parent);

  /// Reads from the current position. Returns the number of bytes read, or -1.
  std::int64_t Read(std::span<std::byte> into);

  /// Moves to a position from the file's start. Returns that position, or -1.
  std::int64_t Seek(std::uint64_t position);

  /// The number of bytes from the current position to the end of the file.
  [[nodiscard]] std::uint64_t Remaining() const;

 private:
  std::optional<std::uint32_t> ReadNumber();
  bool ReadHeader(MMCKINFO& chunk);
  bool EnterPayload(MMCKINFO& chunk);

  platform::InputFile& file_;
  std::uint64_t position_ = 0;
};

}  // namespace tonalith::audio
