// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What happens to a sound slot, told to whoever is registered as the sound manager's Notifier. The bodies here are
// empty: a client overrides what it wants to know. Called on the user-interface thread, from within the manager's
// operations and from its window procedure; a client may call the manager back.

#pragma once

#include <cstdint>

namespace tonalith::audio {

class SoundManagerNotifier {
 public:
  virtual ~SoundManagerNotifier() = default;

  /// BufferIndex is the slot, 1 to 32.
  virtual void SoundLoaded(std::int32_t BufferIndex);
  virtual void SoundPlayStart(std::int32_t BufferIndex);
  virtual void SoundPlayEnd(std::int32_t BufferIndex);
  virtual void SoundUnloaded(std::int32_t BufferIndex);
};

}  // namespace tonalith::audio
