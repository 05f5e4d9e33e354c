// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Receives the events of the sound slots when registered as the sound manager's Notifier. The default implementations
// are empty. Called from within the manager's operations and from its window procedure; an implementation may call the
// manager.

#pragma once

#include <cstdint>

namespace tonalith::audio {

class SoundManagerNotifier {
 public:
  virtual ~SoundManagerNotifier() = default;

  /// `BufferIndex` is the slot, 1 to 32.
  virtual void SoundLoaded(std::int32_t BufferIndex);
  virtual void SoundPlayStart(std::int32_t BufferIndex);
  virtual void SoundPlayEnd(std::int32_t BufferIndex);
  virtual void SoundUnloaded(std::int32_t BufferIndex);
};

}  // namespace tonalith::audio
