// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The file input of the sound manager. While a note of a scale is loaded, a shipped recording is replaced by a rendered
// file of the same layout at the pitch of the note. All other files, and all files at other times, are read unchanged:
// the user's recordings stay as they are, and a missing or damaged file causes the loader's messages.

#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/file_input.h"
#include "voice/recipe.h"

namespace tonalith::audio {

class ScaleSoundFiles : public platform::FileInput {
 public:
  explicit ScaleSoundFiles(platform::FileInput& files) : files_(files) {}

  std::unique_ptr<platform::InputFile> Open(const std::string& path) override;

  /// Renders and caches a note, so that opening its file later takes no extra time.
  void Prepare(voice::Pitch pitch);

  /// While this object exists, shipped recordings are rendered at `pitch`.
  class Pitched {
   public:
    Pitched(ScaleSoundFiles& files, voice::Pitch pitch) : files_(files) { files_.pitch_ = pitch; }
    Pitched(const Pitched&) = delete;
    Pitched& operator=(const Pitched&) = delete;
    ~Pitched() { files_.pitch_.reset(); }

   private:
    ScaleSoundFiles& files_;
  };

 private:
  using Bytes = std::shared_ptr<const std::string>;

  Bytes Rendered(voice::Pitch pitch);

  platform::FileInput& files_;
  std::optional<voice::Pitch> pitch_;
  /// The notes rendered so far, about 53,000 bytes each. A scale has at most 36 pitches.
  std::map<voice::Pitch, Bytes> rendered_;
};

}  // namespace tonalith::audio
