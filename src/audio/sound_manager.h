// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The wave audio of the program: 32 slots. Each slot loads one complete WAV file, owns one open wave output and one
// prepared header, and is played, stopped and released on its own. Wave-done messages arrive at a hidden window. No
// operation throws: a failed load shows its message, every other failure is shown at the end of the operation, and
// results of device operations are ignored. One instance per process.

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "audio/sound_manager_notifier.h"
#include "core/deferred_failure.h"
#include "core/msg_box.h"
#include "platform/file_input.h"
#include "platform/wave_output.h"
#include "platform/window_messages.h"

namespace tonalith::audio {

enum class BufferState : std::int32_t { kEmpty = 0, kLoaded = 1, kPlaying = 2 };

/// Option bits of a load; can be combined.
enum class BufferFlags : std::uint32_t { kNone = 0, kPlayOnLoad = 1, kUnloadOnEnd = 2, kNoEvents = 4 };

constexpr BufferFlags operator|(BufferFlags a, BufferFlags b) {
  return static_cast<BufferFlags>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}
constexpr bool HasFlag(BufferFlags flags, BufferFlags bit) {
  return (static_cast<std::uint32_t>(flags) & static_cast<std::uint32_t>(bit)) != 0;
}

struct SoundBuffer {
  platform::WaveHandle device = platform::kNoWaveHandle;
  platform::WAVEHDR header;
  std::vector<std::byte> samples;
  BufferState state = BufferState::kEmpty;
  /// Unchanged when the slot is released: the flags of the last load.
  BufferFlags flags = BufferFlags::kNone;
};

class SoundManager {
 public:
  static constexpr std::int32_t kBufferCount = 32;
  /// Instead of a slot number: all slots.
  static constexpr std::int32_t kAllBuffers = -1;

  SoundManager(platform::FileInput& files, platform::WaveOutput& output, platform::WindowMessages& windows,
               core::MsgBox& msgBox);
  SoundManager(const SoundManager&) = delete;
  SoundManager& operator=(const SoundManager&) = delete;
  /// Releases everything without notification and without a message.
  ~SoundManager();

  /// Receives the events of all slots loaded without kNoEvents. May be null; not owned.
  SoundManagerNotifier* Notifier = nullptr;

  /// Releases the slot and loads a WAV file. Returns whether the slot is loaded. Returns false without a message
  /// outside 1..32, and if the hidden window cannot be created.
  bool LoadSoundBuffer(std::int32_t BufferIndex, const std::string& path, const BufferFlags& flags);

  /// Returns true if the buffer was written to its device. A slot that is playing is stopped instead and false is
  /// returned: it can be played again after its SoundPlayEnd.
  bool PlaySoundBuffer(std::int32_t BufferIndex);

  /// Stops one slot or all; the state changes when the wave-done message arrives.
  void StopSoundBuffer(std::int32_t BufferIndex);

  /// Releases one slot or all. Does nothing for an empty slot, without notification.
  void UnloadSoundBuffer(std::int32_t BufferIndex);

  /// Releases all slots and destroys the hidden window. Its handle stays stored, so no other window is created: later
  /// loads succeed, but their wave-done messages are not delivered.
  void TerminateSoundManager();

  /// Whether the hidden window has been destroyed: no wave-done message arrives after that.
  [[nodiscard]] bool IsTerminated() const { return isTerminated_; }

  /// Returns true if this call created the hidden window.
  bool CreateSoundWindow();

  /// The first slot with that device, 1 to 32, or 0 if there is none.
  [[nodiscard]] std::int32_t FindBufferByHandle(platform::WaveHandle device) const;

  /// The hidden window's procedure: handles a wave-done message, then calls the previous procedure for every message.
  std::intptr_t SoundWindowProc(platform::WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                                std::intptr_t lParam);

  /// The state of a slot. Throws failure 9 outside 1..32.
  [[nodiscard]] const SoundBuffer& Buffer(std::int32_t BufferIndex) const;
  [[nodiscard]] platform::WindowHandle SoundWindow() const { return window_; }

 private:
  using Callback = void (SoundManagerNotifier::*)(std::int32_t);

  SoundBuffer& At(std::int32_t BufferIndex) { return buffers_[static_cast<std::size_t>(BufferIndex - 1)]; }
  bool ReadSound(platform::InputFile& file, platform::WaveFormat& format, std::vector<std::byte>& samples);
  void FillBuffer(std::int32_t BufferIndex, const platform::WaveFormat& format, std::vector<std::byte> samples,
                  BufferFlags flags, core::DeferredFailure& failure);
  void ReleaseBuffer(SoundBuffer& buffer, core::DeferredFailure& failure);
  void HandleWaveDone(std::uintptr_t wParam, core::DeferredFailure& failure);
  void Notify(std::int32_t BufferIndex, Callback callback, core::DeferredFailure& failure);
  void RemoveWindow(core::DeferredFailure& failure);

  platform::FileInput& files_;
  platform::WaveOutput& output_;
  platform::WindowMessages& windows_;
  core::MsgBox& msgBox_;
  std::array<SoundBuffer, kBufferCount> buffers_;
  platform::WindowHandle window_ = platform::kNoWindow;
  platform::WindowProcedure previousProcedure_;
  bool isTerminated_ = false;
};

}  // namespace tonalith::audio
