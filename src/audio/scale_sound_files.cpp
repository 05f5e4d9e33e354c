// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "audio/scale_sound_files.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "audio/shipped_recording.h"
#include "core/deferred_failure.h"
#include "voice/scale_note.h"

namespace tonalith::audio {
namespace {

/// A file in memory.
class RenderedFile : public platform::InputFile {
 public:
  explicit RenderedFile(std::shared_ptr<const std::string> bytes) : bytes_(std::move(bytes)) {}

  std::int64_t Read(std::span<std::byte> into) override {
    if (position_ >= bytes_->size()) return 0;
    const auto start = static_cast<std::size_t>(position_);
    const std::size_t count = std::min(into.size(), bytes_->size() - start);
    std::memcpy(into.data(), bytes_->data() + start, count);
    position_ += count;
    return static_cast<std::int64_t>(count);
  }

  std::int64_t Seek(std::uint64_t position) override {
    position_ = position;
    return static_cast<std::int64_t>(position);
  }

  [[nodiscard]] std::uint64_t Size() const override { return bytes_->size(); }

 private:
  std::shared_ptr<const std::string> bytes_;
  std::uint64_t position_ = 0;
};

}  // namespace

std::unique_ptr<platform::InputFile> ScaleSoundFiles::Open(const std::string& path) {
  std::unique_ptr<platform::InputFile> file = files_.Open(path);
  if (!file || !pitch_) return file;
  bool isShipped = false;
  core::DeferredFailure unreadable;
  unreadable.Try([&] { isShipped = IsShippedRecording(*file); });
  unreadable.Clear();
  if (isShipped) return std::make_unique<RenderedFile>(Rendered(*pitch_));
  // The loader reports why a file cannot be read, so it gets the file as it was opened.
  return file->Seek(0) == 0 ? std::move(file) : files_.Open(path);
}

void ScaleSoundFiles::Prepare(voice::Pitch pitch) { Rendered(pitch); }

ScaleSoundFiles::Bytes ScaleSoundFiles::Rendered(voice::Pitch pitch) {
  Bytes& bytes = rendered_[pitch];
  if (!bytes) bytes = std::make_shared<const std::string>(voice::RenderScaleNote(pitch));
  return bytes;
}

}  // namespace tonalith::audio
