// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The files of the scale sounds, between the sound manager and the file system. While a note of a scale is loaded, a
// shipped recording is read as a file of the same layout that sounds at the note's pitch; every other file, and every
// file at any other time, is read as it is. So a user's recording stays what it is, and a missing or damaged one gives
// the loader's messages. User-interface thread; borrows the files, which outlive it.

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

  /// Renders a note ahead of its time, so that opening its file takes no longer than opening any other.
  void Prepare(voice::Pitch pitch);

  /// For as long as it lives, shipped recordings sound at that pitch.
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
  /// The notes heard so far, some 53,000 bytes each. A scale has no more than 36 pitches.
  std::map<voice::Pitch, Bytes> rendered_;
};

}  // namespace tonalith::audio
