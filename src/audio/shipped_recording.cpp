// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/shipped_recording.h"

#include <algorithm>
#include <array>
#include <vector>

#include "audio/little_endian.h"
#include "audio/wave_file.h"
#include "voice/checksum.h"
#include "voice/wav_file.h"

namespace tonalith::audio {
namespace {

/// Checksums of the files Audio/0.wav to 15.wav of version 1.0.
constexpr std::array<std::uint64_t, 16> kFirstRecordings = {
    0x6F2C40353E379493, 0x5363376742237C90, 0x6F8526B386FD5CD6, 0xB64EB313162A80EA,
    0x105038765B37FF9A, 0x63A0E9F2D6AF8B33, 0x8EDA97ED410E1A88, 0x45A84635379FFA94,
    0x0B1C9BF30DE8F228, 0x612306B0F0C22326, 0x4A036296F698DED2, 0x5C291E8AE67BA1A4,
    0xF4A8E9077EF064F2, 0xFC471F3F553960FF, 0xB5BA05B6B6EAE42F, 0x0BF828937A4EB078};

bool IsFirstRecording(platform::InputFile& file) {
  std::vector<std::byte> bytes(static_cast<std::size_t>(file.Size()));
  if (file.Seek(0) != 0 || file.Read(bytes) != std::ssize(bytes)) return false;
  const std::uint64_t checksum = voice::Checksum(bytes);
  return std::find(kFirstRecordings.begin(), kFirstRecordings.end(), checksum) != kFirstRecordings.end();
}

bool IsShippedFormat(const platform::WAVEFORMATEX& record) {
  return record.wFormatTag == platform::wave_format_tag::kPcm && record.nChannels == 1 &&
         record.nSamplesPerSec == voice::kWavRate && record.nBlockAlign == voice::kWavBits / 8 &&
         record.wBitsPerSample == voice::kWavBits;
}

/// The value of the checksum chunk; nullopt if there is none.
std::optional<std::uint64_t> StoredChecksum(platform::InputFile& file) {
  if (file.Seek(0) != 0) return std::nullopt;
  RiffReader reader(file);
  MMCKINFO form;
  MMCKINFO chunk;
  chunk.ckid = StringToFOURCC(voice::kChecksumChunk);
  if (reader.Descend(form) != Descent::kEntered || reader.FindChunk(chunk, form) != Descent::kEntered) {
    return std::nullopt;
  }
  std::array<std::byte, voice::kChecksumSize> bytes{};
  if (chunk.cksize != bytes.size() || reader.Read(bytes) != std::ssize(bytes)) return std::nullopt;
  return LittleEndian32(std::span(bytes).first<4>()) | std::uint64_t{LittleEndian32(std::span(bytes).last<4>())} << 32U;
}

/// Whether the file loads and the checksum of its samples is the stored one.
bool HasValidChecksum(platform::InputFile& file) {
  const std::optional<std::uint64_t> checksum = StoredChecksum(file);
  if (!checksum || file.Seek(0) != 0) return false;
  WaveFile wave(file);
  platform::WaveFormat format;
  std::vector<std::byte> samples;
  if (wave.EnterForm() || wave.ReadFormat(format) || wave.FindData() || wave.ReadData(samples)) return false;
  return IsShippedFormat(format.record) && voice::Checksum(samples) == *checksum;
}

}  // namespace

bool IsShippedRecording(platform::InputFile& file) {
  if (file.Size() > kLargestShippedRecording) return false;
  return HasValidChecksum(file) || IsFirstRecording(file);
}

}  // namespace tonalith::audio
