// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/octave_note_player.h"

#include <algorithm>

#include "audio/wave_file.h"
#include "core/deferred_failure.h"

namespace tonalith::audio {

OctaveNotePlayer::OctaveNotePlayer(platform::FileInput& files, platform::WaveOutput& output, std::size_t cacheLimit)
    : files_(files), output_(output), cacheLimit_(cacheLimit) {}

OctaveNotePlayer::~OctaveNotePlayer() {
  core::DeferredFailure unreported;
  unreported.Try([this] { Stop(); });
}

void OctaveNotePlayer::Play(const std::string& path) {
  Stop();
  sounding_ = Fetch(path);
  if (!sounding_) return;
  device_ = output_.Open(sounding_->format, platform::kNoWindow);
  header_.lpData = sounding_->samples.data();
  header_.dwBufferLength = static_cast<std::uint32_t>(sounding_->samples.size());
  output_.PrepareHeader(device_, header_);
  output_.Write(device_, header_);
}

void OctaveNotePlayer::Stop() {
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
  if (recording) Keep(recording);
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

void OctaveNotePlayer::Keep(const std::shared_ptr<const Recording>& recording) {
  if (recording->samples.size() > cacheLimit_) return;
  cache_.push_front(recording);
  cachedBytes_ += recording->samples.size();
  while (cachedBytes_ > cacheLimit_) {
    cachedBytes_ -= cache_.back()->samples.size();
    cache_.pop_back();
  }
}

}  // namespace tonalith::audio
