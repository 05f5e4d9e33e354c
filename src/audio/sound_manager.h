// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The program's small wave-audio engine: 32 slots, each of which loads one WAV file whole, owns one opened wave output
// and one prepared header, and is played, stopped and released on its own. Notices from the outputs arrive at a hidden
// window, so all of it happens on the user-interface thread. No operation throws: a load that cannot succeed shows its
// message, every other failure is shown as its description at the end of the operation, and what becomes of a device
// operation is not examined. One instance for the process; it borrows its ports, which outlive it.

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

/// Option bits of a load; they add up.
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
  /// Stays from the last load when the slot is emptied.
  BufferFlags flags = BufferFlags::kNone;
};

class SoundManager {
 public:
  static constexpr std::int32_t kBufferCount = 32;
  /// In place of a slot number: every slot.
  static constexpr std::int32_t kAllBuffers = -1;

  SoundManager(platform::FileInput& files, platform::WaveOutput& output, platform::WindowMessages& windows,
               core::MsgBox& msgBox);
  SoundManager(const SoundManager&) = delete;
  SoundManager& operator=(const SoundManager&) = delete;
  /// Releases everything without a notice or a message.
  ~SoundManager();

  /// Hears of every slot that was not loaded with kNoEvents; null for nobody. Borrowed.
  SoundManagerNotifier* Notifier = nullptr;

  /// Empties the slot and fills it from a WAV file. True when the slot ended loaded. False without a message outside
  /// 1..32, and when the hidden window cannot be made.
  bool LoadSoundBuffer(std::int32_t BufferIndex, const std::string& path, const BufferFlags& flags);

  /// True when the buffer was written to its device. A slot that is playing is stopped instead and gives false: it can
  /// be played again after its SoundPlayEnd.
  bool PlaySoundBuffer(std::int32_t BufferIndex);

  /// Stops one slot or all; its state changes when the device's notice arrives.
  void StopSoundBuffer(std::int32_t BufferIndex);

  /// Releases one slot or all. Nothing happens, and nothing is said, for an empty one.
  void UnloadSoundBuffer(std::int32_t BufferIndex);

  /// Releases all slots and destroys the hidden window. Its handle stays stored, so no other window is made afterwards:
  /// later loads succeed, but their notices have nowhere to go.
  void TerminateSoundManager();

  /// Whether the hidden window has been destroyed: no notice arrives any more.
  [[nodiscard]] bool IsTerminated() const { return isTerminated_; }

  /// True when the hidden window was made by this call.
  bool CreateSoundWindow();

  /// The first slot with that device, 1 to 32, or 0.
  [[nodiscard]] std::int32_t FindBufferByHandle(platform::WaveHandle device) const;

  /// The hidden window's procedure: handles a device's notice, then passes every message on.
  std::intptr_t SoundWindowProc(platform::WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                                std::intptr_t lParam);

  /// A slot as it stands. Throws failure 9 outside 1..32.
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
