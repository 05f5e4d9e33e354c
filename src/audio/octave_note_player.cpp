// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/octave_note_player.h"

#include <algorithm>
#include <utility>

#include "audio/wave_file.h"
#include "core/deferred_failure.h"

namespace tonalith::audio {

OctaveNotePlayer::OctaveNotePlayer(platform::FileInput& files, platform::WaveOutput& output,
                                   platform::WindowMessages& windows, std::size_t cacheLimit)
    : files_(files), output_(output), windows_(windows), cacheLimit_(cacheLimit) {}

OctaveNotePlayer::~OctaveNotePlayer() {
  Notifier = nullptr;
  core::DeferredFailure unreported;
  unreported.Try([this] { Stop(); });
  unreported.Try([this] { windows_.DestroyWindow(window_); });
}

void OctaveNotePlayer::MakeWindow() {
  if (window_ != platform::kNoWindow) return;
  platform::WindowDescription description;
  description.className = "STATIC";
  description.caption = "NoteWindow";
  window_ = windows_.CreateWindow(description);
  if (window_ == platform::kNoWindow) return;
  windows_.SetWindowProcedure(
      window_, [this](platform::WindowHandle, std::uint32_t message, std::uintptr_t wParam, std::intptr_t) {
        // The message of a replaced note names a closed device.
        if (message == platform::kWaveOutputDone && wParam == device_) End();
        return std::intptr_t{0};
      });
}

void OctaveNotePlayer::End() {
  if (std::exchange(isSounding_, false) && Notifier != nullptr) Notifier->NoteEnded();
}

void OctaveNotePlayer::Play(const std::string& path) {
  Stop();
  // Kept: see docs/behaviour.md, A missing sound is silent for a click only.
  sounding_ = Fetch(path);
  if (!sounding_) return;
  core::DeferredFailure unreported;
  unreported.Try([this] { MakeWindow(); });  // The note plays without it too.
  device_ = output_.Open(sounding_->format, window_);
  header_.lpData = sounding_->samples.data();
  header_.dwBufferLength = static_cast<std::uint32_t>(sounding_->samples.size());
  output_.PrepareHeader(device_, header_);
  output_.Write(device_, header_);
  isSounding_ = device_ != platform::kNoWaveHandle && window_ != platform::kNoWindow;
  if (isSounding_ && Notifier != nullptr) Notifier->NoteStarted();
}

void OctaveNotePlayer::Stop() {
  End();
  if (device_ != platform::kNoWaveHandle) {
    output_.Reset(device_);
    output_.UnprepareHeader(device_, header_);
    output_.Close(device_);
  }
  device_ = platform::kNoWaveHandle;
  header_ = {};
  sounding_.reset();
}

std::shared_ptr<const OctaveNotePlayer::Recording> OctaveNotePlayer::Fetch(const std::string& path) {
  const auto found =
      std::find_if(cache_.begin(), cache_.end(), [&](const auto& recording) { return recording->path == path; });
  if (found != cache_.end()) {
    cache_.splice(cache_.begin(), cache_, found);
    return cache_.front();
  }
  std::shared_ptr<const Recording> recording = Read(path);
  if (recording) AddToCache(recording);
  return recording;
}

std::shared_ptr<const OctaveNotePlayer::Recording> OctaveNotePlayer::Read(const std::string& path) {
  const std::unique_ptr<platform::InputFile> file = files_.Open(path);
  if (!file) return nullptr;
  auto recording = std::make_shared<Recording>();
  recording->path = path;
  WaveFile wave(*file);
  if (wave.EnterForm() || wave.ReadFormat(recording->format) || wave.FindData() || wave.ReadData(recording->samples)) {
    return nullptr;
  }
  return recording;
}

void OctaveNotePlayer::AddToCache(const std::shared_ptr<const Recording>& recording) {
  if (recording->samples.size() > cacheLimit_) return;
  cache_.push_front(recording);
  cachedBytes_ += recording->samples.size();
  while (cachedBytes_ > cacheLimit_) {
    cachedBytes_ -= cache_.back()->samples.size();
    cache_.pop_back();
  }
}

}  // namespace tonalith::audio
