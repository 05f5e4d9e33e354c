// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/wave_file.h"

#include <algorithm>
#include <array>

#include "audio/little_endian.h"
#include "audio/messages.h"

namespace tonalith::audio {
namespace {

constexpr std::size_t kSmallestFormat = 16;
constexpr std::size_t kFormatRead = 20;
constexpr std::size_t kExtensibleFormat = 40;
// The limit in bytes. A sample needs up to nine bytes of memory: the file's own, and two copies in the format of the
// mixer, which for one channel of 8 bits is four times as large. 8 MiB are 47 seconds of CD stereo or 95 of mono: a
// note that claims to be longer is damaged or crafted to exhaust memory.
constexpr std::uint32_t kMostSamples = std::uint32_t{8} << 20U;

}  // namespace

WaveFile::Problem WaveFile::EnterForm() {
  if (reader_.Descend(form_) != Descent::kEntered) return MessageId::kNotDescended;
  if (form_.ckid != StringToFOURCC("RIFF") || form_.fccType != StringToFOURCC("WAVE")) return MessageId::kWrongFormat;
  return std::nullopt;
}

WaveFile::Problem WaveFile::ReadFormat(platform::WaveFormat& format) {
  format_.ckid = StringToFOURCC("fmt");
  if (reader_.FindChunk(format_, form_) != Descent::kEntered) return MessageId::kNoFormat;
  if (format_.cksize < kSmallestFormat) {
    return core::Message(MessageId::kShortFormat, format_.cksize, kSmallestFormat);
  }
  // Kept: see docs/behaviour.md, The format record is read as 20 bytes.
  std::array<std::byte, kFormatRead> bytes{};
  if (reader_.Read(bytes) < static_cast<std::int64_t>(kSmallestFormat)) return MessageId::kFormatNotRead;
  const std::span<const std::byte, kFormatRead> record(bytes);
  format.record = {.wFormatTag = LittleEndian16(record.subspan<0, 2>()),
                   .nChannels = LittleEndian16(record.subspan<2, 2>()),
                   .nSamplesPerSec = LittleEndian32(record.subspan<4, 4>()),
                   .nAvgBytesPerSec = LittleEndian32(record.subspan<8, 4>()),
                   .nBlockAlign = LittleEndian16(record.subspan<12, 2>()),
                   .wBitsPerSample = LittleEndian16(record.subspan<14, 2>()),
                   .cbSize = LittleEndian16(record.subspan<16, 2>())};
  if (format.record.wFormatTag == platform::wave_format_tag::kExtensible) format.subFormat = ReadSubFormat();
  return std::nullopt;
}

std::optional<std::uint16_t> WaveFile::ReadSubFormat() {
  if (format_.cksize < kExtensibleFormat) return std::nullopt;
  // The channel mask, then an identifier whose first two bytes are the format tag.
  std::array<std::byte, kExtensibleFormat - kFormatRead> bytes{};
  if (reader_.Read(bytes) != std::ssize(bytes)) return std::nullopt;
  return LittleEndian16(std::span(bytes).subspan<4, 2>());
}

WaveFile::Problem WaveFile::FindData() {
  constexpr std::uint64_t kFormTypeSize = 4;
  if (reader_.Seek(form_.dwDataOffset + kFormTypeSize) < 0) return MessageId::kNotSought;
  data_ = MMCKINFO{};
  data_.ckid = StringToFOURCC("data");
  if (reader_.FindChunk(data_, form_) != Descent::kEntered) return MessageId::kNoData;
  return std::nullopt;
}

WaveFile::Problem WaveFile::ReadData(std::vector<std::byte>& samples) {
  if (data_.cksize > kMostSamples) return MessageId::kDataNotRead;
  samples.resize(static_cast<std::size_t>(std::min<std::uint64_t>(data_.cksize, reader_.Remaining())));
  const std::int64_t count = reader_.Read(samples);
  if (count != static_cast<std::int64_t>(data_.cksize)) return MessageId::kDataNotRead;
  return std::nullopt;
}

}  // namespace tonalith::audio
