// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Wave output as the sound code sees it: devices that are opened for a format, take a prepared buffer, play it once and
// post a notice when they hand it back. A port: threaded/ is the machinery that both real implementations share,
// openal/ mixes all handles into one sound device, silent/ only keeps their time, scripted/ records for tests. Every
// function is called on the user-interface thread, returns at once and never waits for a device. Nobody examines what
// becomes of an operation: what the layer refuses stays silent.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/window_messages.h"

namespace tonalith::platform {

/// Names one opened output. A handle is not given out again before four thousand million others were.
using WaveHandle = std::uint32_t;
inline constexpr WaveHandle kNoWaveHandle = 0;

/// The message number of the notice that a buffer was handed back; its wParam is the device handle.
inline constexpr std::uint32_t kWaveOutputDone = 0x3BD;

namespace wave_format_tag {
inline constexpr std::uint16_t kPcm = 1;
inline constexpr std::uint16_t kFloat = 3;
/// The samples' own tag stands further behind in the record (see WaveFormat::subFormat).
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
  /// The format tag of the samples where the record is extensible and carries one.
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

  /// A new output for a format, with its notices going to `target` (kNoWindow: none are posted). kNoWaveHandle for a
  /// format that the layer does not play.
  virtual WaveHandle Open(const WaveFormat& format, WindowHandle target) = 0;

  /// Makes the samples of a header ready. They have to stay where they are until the header is unprepared.
  virtual void PrepareHeader(WaveHandle device, WAVEHDR& header) = 0;

  /// Plays a prepared header once, from its start. Ignored for a header that is not prepared and for a device that is
  /// playing. When the last sample is through, and not before, one notice is posted.
  virtual void Write(WaveHandle device, WAVEHDR& header) = 0;

  /// Stops the device. If it was playing, its notice is posted now; otherwise nothing is.
  virtual void Reset(WaveHandle device) = 0;

  virtual void UnprepareHeader(WaveHandle device, WAVEHDR& header) = 0;

  /// Gives the handle up. A device that is still playing falls silent without a notice. Notices that were posted before
  /// still arrive, with a handle that is nobody's any more.
  virtual void Close(WaveHandle device) = 0;
};

/// Hears whether there is a sound device. Both functions are called on the output's own thread, once for each change;
/// the implementation passes them on to the thread that it needs.
class SoundDeviceObserver {
 public:
  virtual ~SoundDeviceObserver() = default;
  virtual void SoundDeviceMissing() = 0;
  virtual void SoundDeviceFound() = 0;
};

}  // namespace tonalith::platform
