// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Wave output: devices that are opened for a format, play a prepared buffer once and post a wave-done message at its
// end. Every function returns immediately and never waits for a device. Callers do not check results: refused
// operations are silent.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/window_messages.h"

namespace tonalith::platform {

/// Identifies one opened output. Handles are reused only after 2^32 others.
using WaveHandle = std::uint32_t;
inline constexpr WaveHandle kNoWaveHandle = 0;

/// The number of the wave-done message; its wParam is the device handle.
inline constexpr std::uint32_t kWaveOutputDone = 0x3BD;

namespace wave_format_tag {
inline constexpr std::uint16_t kPcm = 1;
inline constexpr std::uint16_t kFloat = 3;
/// The tag of the samples is later in the record (see WaveFormat::subFormat).
inline constexpr std::uint16_t kExtensible = 0xFFFE;
}  // namespace wave_format_tag

struct WAVEFORMATEX {
  std::uint16_t wFormatTag = 0;
  std::uint16_t nChannels = 0;
  std::uint32_t nSamplesPerSec = 0;
  std::uint32_t nAvgBytesPerSec = 0;
  std::uint16_t nBlockAlign = 0;
  std::uint16_t wBitsPerSample = 0;
  std::uint16_t cbSize = 0;
};

struct WaveFormat {
  WAVEFORMATEX record;
  /// The format tag of the samples, if the record is extensible and has one.
  std::optional<std::uint16_t> subFormat;
};

struct WAVEHDR {
  const std::byte* lpData = nullptr;
  std::uint32_t dwBufferLength = 0;
  std::uint32_t dwBytesRecorded = 0;
  std::uint32_t dwUser = 0;
  std::uint32_t dwFlags = 0;
  std::uint32_t dwLoops = 0;
  std::uint32_t lpNext = 0;
  std::uint32_t reserved = 0;
  bool operator==(const WAVEHDR&) const = default;
};

class WaveOutput {
 public:
  virtual ~WaveOutput() = default;

  /// Opens an output for a format; wave-done messages go to `target` (kNoWindow: none). Returns kNoWaveHandle for a
  /// format that cannot be played.
  virtual WaveHandle Open(const WaveFormat& format, WindowHandle target) = 0;

  /// Prepares the samples of a header. They must stay in memory until UnprepareHeader.
  virtual void PrepareHeader(WaveHandle device, WAVEHDR& header) = 0;

  /// Plays a prepared header once, from its start. Ignored for an unprepared header and for a device that is playing.
  /// Posts one wave-done message after the last sample, not earlier.
  virtual void Write(WaveHandle device, WAVEHDR& header) = 0;

  /// Stops the device. Posts the wave-done message if it was playing.
  virtual void Reset(WaveHandle device) = 0;

  virtual void UnprepareHeader(WaveHandle device, WAVEHDR& header) = 0;

  /// Closes the handle. A device that is playing stops without a message. Messages posted before are still delivered,
  /// with the stale handle.
  virtual void Close(WaveHandle device) = 0;
};

/// Is notified of losing and finding a sound device. Called on the output's thread, once per change; the implementation
/// forwards the call to the thread that it needs.
class SoundDeviceObserver {
 public:
  virtual ~SoundDeviceObserver() = default;
  virtual void SoundDeviceMissing() = 0;
  virtual void SoundDeviceFound() = 0;
};

}  // namespace tonalith::platform
