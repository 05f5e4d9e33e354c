// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/sound_manager.h"

#include <memory>
#include <utility>

#include "audio/messages.h"
#include "audio/wave_file.h"

namespace tonalith::audio {
namespace {

bool IsBuffer(std::int32_t BufferIndex) { return BufferIndex >= 1 && BufferIndex <= SoundManager::kBufferCount; }

const platform::WindowDescription& SoundWindowDescription() {
  // A pop-up window that is never visible.
  static const platform::WindowDescription description{.className = "STATIC",
                                                       .caption = "Soundmanager Window",
                                                       .extendedStyle = 0,
                                                       .style = 0x8000000B,
                                                       .x = 0,
                                                       .y = 0,
                                                       .width = 100,
                                                       .height = 20};
  return description;
}

}  // namespace

void SoundManagerNotifier::SoundLoaded(std::int32_t /*BufferIndex*/) {}
void SoundManagerNotifier::SoundPlayStart(std::int32_t /*BufferIndex*/) {}
void SoundManagerNotifier::SoundPlayEnd(std::int32_t /*BufferIndex*/) {}
void SoundManagerNotifier::SoundUnloaded(std::int32_t /*BufferIndex*/) {}

SoundManager::SoundManager(platform::FileInput& files, platform::WaveOutput& output, platform::WindowMessages& windows,
                           core::MsgBox& msgBox)
    : files_(files), output_(output), windows_(windows), msgBox_(msgBox) {}

SoundManager::~SoundManager() {
  core::DeferredFailure unreported;
  for (SoundBuffer& buffer : buffers_) {
    if (buffer.state != BufferState::kEmpty) ReleaseBuffer(buffer, unreported);
  }
  RemoveWindow(unreported);
}

bool SoundManager::LoadSoundBuffer(std::int32_t BufferIndex, const std::string& path, const BufferFlags& flags) {
  if (!IsBuffer(BufferIndex)) return false;
  UnloadSoundBuffer(BufferIndex);
  core::DeferredFailure failure;
  std::unique_ptr<platform::InputFile> file;
  failure.Try([&] { file = files_.Open(path); });
  bool loaded = false;
  if (!file) {
    msgBox_.Show(MessageId::kFileNotOpened);
  } else {
    failure.Try([&] {
      platform::WaveFormat format;
      std::vector<std::byte> samples;
      if (!ReadSound(*file, format, samples)) return;
      FillBuffer(BufferIndex, format, std::move(samples), flags, failure);
      loaded = true;
      Notify(BufferIndex, &SoundManagerNotifier::SoundLoaded, failure);
      if (HasFlag(flags, BufferFlags::kPlayOnLoad)) PlaySoundBuffer(BufferIndex);
    });
    file.reset();
  }
  failure.ReportDescription(msgBox_);
  return loaded;
}

bool SoundManager::ReadSound(platform::InputFile& file, platform::WaveFormat& format, std::vector<std::byte>& samples) {
  WaveFile wave(file);
  WaveFile::Problem problem = wave.EnterForm();
  if (!problem) problem = wave.ReadFormat(format);
  if (!problem) problem = wave.FindData();
  if (!problem) {
    if (window_ == platform::kNoWindow && !CreateSoundWindow()) return false;
    problem = wave.ReadData(samples);
  }
  if (problem) msgBox_.Show(*problem);
  return !problem;
}

void SoundManager::FillBuffer(std::int32_t BufferIndex, const platform::WaveFormat& format,
                              std::vector<std::byte> samples, BufferFlags flags, core::DeferredFailure& failure) {
  SoundBuffer& buffer = At(BufferIndex);
  // A notifier called during the release may have loaded the slot again.
  if (buffer.state != BufferState::kEmpty) ReleaseBuffer(buffer, failure);
  buffer.samples = std::move(samples);
  // Kept: see docs/behaviour.md, Device results are not examined.
  failure.Try([&] { buffer.device = output_.Open(format, window_); });
  buffer.header.lpData = buffer.samples.data();
  buffer.header.dwBufferLength = static_cast<std::uint32_t>(buffer.samples.size());
  failure.Try([&] { output_.PrepareHeader(buffer.device, buffer.header); });
  buffer.state = BufferState::kLoaded;
  buffer.flags = flags;
}

bool SoundManager::PlaySoundBuffer(std::int32_t BufferIndex) {
  if (!IsBuffer(BufferIndex)) return false;
  // Kept: see docs/behaviour.md, Playing a slot that plays stops it.
  StopSoundBuffer(BufferIndex);
  SoundBuffer& buffer = At(BufferIndex);
  if (buffer.state != BufferState::kLoaded || buffer.device == platform::kNoWaveHandle) return false;
  core::DeferredFailure failure;
  // Kept: see docs/behaviour.md, Device results are not examined.
  failure.Try([&] { output_.Write(buffer.device, buffer.header); });
  buffer.state = BufferState::kPlaying;
  Notify(BufferIndex, &SoundManagerNotifier::SoundPlayStart, failure);
  failure.ReportDescription(msgBox_);
  return true;
}

void SoundManager::StopSoundBuffer(std::int32_t BufferIndex) {
  if (BufferIndex == kAllBuffers) {
    for (std::int32_t index = 1; index <= kBufferCount; ++index) StopSoundBuffer(index);
    return;
  }
  if (!IsBuffer(BufferIndex) || At(BufferIndex).state != BufferState::kPlaying) return;
  core::DeferredFailure failure;
  // Kept: see docs/behaviour.md, Playing a slot that plays stops it.
  failure.Try([&] { output_.Reset(At(BufferIndex).device); });
  failure.ReportDescription(msgBox_);
}

void SoundManager::UnloadSoundBuffer(std::int32_t BufferIndex) {
  if (BufferIndex == kAllBuffers) {
    for (std::int32_t index = 1; index <= kBufferCount; ++index) {
      if (At(index).state != BufferState::kEmpty) UnloadSoundBuffer(index);
    }
    return;
  }
  if (!IsBuffer(BufferIndex) || At(BufferIndex).state == BufferState::kEmpty) return;
  core::DeferredFailure failure;
  ReleaseBuffer(At(BufferIndex), failure);
  Notify(BufferIndex, &SoundManagerNotifier::SoundUnloaded, failure);
  failure.ReportDescription(msgBox_);
}

void SoundManager::ReleaseBuffer(SoundBuffer& buffer, core::DeferredFailure& failure) {
  // Kept: see docs/behaviour.md, Playing a slot that plays stops it.
  if (buffer.state == BufferState::kPlaying) failure.Try([&] { output_.Reset(buffer.device); });
  failure.Try([&] { output_.UnprepareHeader(buffer.device, buffer.header); });
  failure.Try([&] { output_.Close(buffer.device); });
  buffer.device = platform::kNoWaveHandle;
  buffer.samples = std::vector<std::byte>();
  buffer.header = {};
  buffer.state = BufferState::kEmpty;
}

void SoundManager::TerminateSoundManager() {
  UnloadSoundBuffer(kAllBuffers);
  core::DeferredFailure failure;
  RemoveWindow(failure);
  failure.ReportDescription(msgBox_);
}

void SoundManager::RemoveWindow(core::DeferredFailure& failure) {
  if (window_ == platform::kNoWindow) return;
  // Kept: see docs/behaviour.md, The window handle survives TerminateSoundManager.
  isTerminated_ = true;
  failure.Try([&] { windows_.SetWindowProcedure(window_, previousProcedure_); });
  failure.Try([&] { windows_.DestroyWindow(window_); });
}

bool SoundManager::CreateSoundWindow() {
  if (window_ != platform::kNoWindow) return false;
  core::DeferredFailure failure;
  failure.Try([&] { window_ = windows_.CreateWindow(SoundWindowDescription()); });
  const bool created = window_ != platform::kNoWindow;
  if (created) {
    failure.Try([&] {
      previousProcedure_ = windows_.SetWindowProcedure(
          window_, [this](platform::WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                          std::intptr_t lParam) { return SoundWindowProc(window, message, wParam, lParam); });
    });
  }
  failure.ReportDescription(msgBox_);
  return created;
}

std::int32_t SoundManager::FindBufferByHandle(platform::WaveHandle device) const {
  for (std::int32_t index = 1; index <= kBufferCount; ++index) {
    if (Buffer(index).device == device) return index;
  }
  return 0;
}

std::intptr_t SoundManager::SoundWindowProc(platform::WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                                            std::intptr_t lParam) {
  core::DeferredFailure failure;
  if (message == platform::kWaveOutputDone) HandleWaveDone(wParam, failure);
  std::intptr_t result = 0;
  failure.Try([&] { result = windows_.CallWindowProcedure(previousProcedure_, window, message, wParam, lParam); });
  failure.ReportDescription(msgBox_);
  return result;
}

void SoundManager::HandleWaveDone(std::uintptr_t wParam, core::DeferredFailure& failure) {
  const auto device = static_cast<platform::WaveHandle>(wParam);
  // Empty slots store kNoWaveHandle, so a message with that handle belongs to no slot.
  if (device == platform::kNoWaveHandle || device != wParam) return;
  const std::int32_t index = FindBufferByHandle(device);
  if (index == 0) return;
  Notify(index, &SoundManagerNotifier::SoundPlayEnd, failure);
  SoundBuffer& buffer = At(index);
  // The notifier may have reloaded or released the slot; then this message is stale.
  if (buffer.device != device) return;
  buffer.state = BufferState::kLoaded;
  if (HasFlag(buffer.flags, BufferFlags::kUnloadOnEnd)) UnloadSoundBuffer(index);
}

void SoundManager::Notify(std::int32_t BufferIndex, Callback callback, core::DeferredFailure& failure) {
  if (Notifier == nullptr || HasFlag(At(BufferIndex).flags, BufferFlags::kNoEvents)) return;
  failure.Try([&] { (Notifier->*callback)(BufferIndex); });
}

const SoundBuffer& SoundManager::Buffer(std::int32_t BufferIndex) const {
  if (!IsBuffer(BufferIndex)) throw core::Failure::SubscriptOutOfRange();
  return buffers_[static_cast<std::size_t>(BufferIndex - 1)];
}

}  // namespace tonalith::audio
