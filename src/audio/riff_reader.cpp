// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/riff_reader.h"

#include <algorithm>
#include <array>
#include <limits>

#include "audio/little_endian.h"

namespace tonalith::audio {
namespace {

constexpr std::uint64_t kHeaderSize = 8;
// Sound files have a dozen chunks at most. Without a limit, a file of empty chunks would take a minute to scan.
constexpr int kMostChunks = 1000;
constexpr std::uint64_t kLastOffset = std::numeric_limits<std::uint32_t>::max();

/// The position after a chunk's payload and pad byte.
std::uint64_t EndOf(const MMCKINFO& chunk) {
  return std::uint64_t{chunk.dwDataOffset} + chunk.cksize + (chunk.cksize & 1U);
}

}  // namespace

std::optional<std::uint32_t> RiffReader::ReadNumber() {
  std::array<std::byte, 4> bytes{};
  if (Read(bytes) != std::ssize(bytes)) return std::nullopt;
  return LittleEndian32(bytes);
}

bool RiffReader::ReadHeader(MMCKINFO& chunk) {
  std::array<std::byte, kHeaderSize> bytes{};
  if (position_ + kHeaderSize > kLastOffset || Read(bytes) != std::ssize(bytes)) return false;
  chunk.ckid = LittleEndian32(std::span(bytes).first<4>());
  chunk.cksize = LittleEndian32(std::span(bytes).last<4>());
  chunk.fccType = 0;
  chunk.dwDataOffset = static_cast<std::uint32_t>(position_);
  chunk.dwFlags = 0;
  return true;
}

bool RiffReader::EnterPayload(MMCKINFO& chunk) {
  if (chunk.ckid != StringToFOURCC("RIFF") && chunk.ckid != StringToFOURCC("LIST")) return true;
  const std::optional<std::uint32_t> type = ReadNumber();
  chunk.fccType = type.value_or(0);
  return type.has_value();
}

Descent RiffReader::Descend(MMCKINFO& chunk) {
  return ReadHeader(chunk) && EnterPayload(chunk) ? Descent::kEntered : Descent::kNotThere;
}

Descent RiffReader::FindChunk(MMCKINFO& chunk, const MMCKINFO& parent) {
  const FOURCC wanted = chunk.ckid;
  const std::uint64_t end = std::min(std::uint64_t{parent.dwDataOffset} + parent.cksize, file_.Size());
  for (int looked = 0; looked < kMostChunks && position_ + kHeaderSize <= end; ++looked) {
    MMCKINFO found;
    if (!ReadHeader(found)) break;
    if (found.ckid == wanted) {
      chunk = found;
      return EnterPayload(chunk) ? Descent::kEntered : Descent::kNotThere;
    }
    if (Seek(EndOf(found)) < 0) break;
  }
  return Descent::kNotThere;
}

std::int64_t RiffReader::Read(std::span<std::byte> into) {
  const std::int64_t count = file_.Read(into);
  if (count > 0) position_ += static_cast<std::uint64_t>(count);
  return count;
}

std::int64_t RiffReader::Seek(std::uint64_t position) {
  const std::int64_t reached = file_.Seek(position);
  if (reached >= 0) position_ = position;
  return reached;
}

std::uint64_t RiffReader::Remaining() const {
  const std::uint64_t size = file_.Size();
  return position_ < size ? size - position_ : 0;
}

}  // namespace tonalith::audio
