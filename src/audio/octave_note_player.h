// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Plays the recording of one note for a click, one voice at a time, over the wave output that the slots use too. The
// wave-done message arrives at a hidden window. Played files are cached up to a size limit (least recently used are
// dropped first). A file that cannot be played is silent.

#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_input.h"
#include "platform/note_player.h"
#include "platform/wave_output.h"
#include "platform/window_messages.h"

namespace tonalith::audio {

class OctaveNotePlayer : public platform::NotePlayer {
 public:
  /// In bytes of sample data: enough for the 48 notes of the neck.
  static constexpr std::size_t kCacheLimit = std::size_t{32} << 20U;

  OctaveNotePlayer(platform::FileInput& files, platform::WaveOutput& output, platform::WindowMessages& windows,
                   std::size_t cacheLimit = kCacheLimit);
  OctaveNotePlayer(const OctaveNotePlayer&) = delete;
  OctaveNotePlayer& operator=(const OctaveNotePlayer&) = delete;
  ~OctaveNotePlayer() override;

  void Play(const std::string& path) override;

  /// Stops the note, if one is playing.
  void Stop();

  [[nodiscard]] std::size_t CachedBytes() const { return cachedBytes_; }

 private:
  struct Recording {
    std::string path;
    platform::WaveFormat format;
    std::vector<std::byte> samples;
  };

  std::shared_ptr<const Recording> Fetch(const std::string& path);
  std::shared_ptr<const Recording> Read(const std::string& path);
  void AddToCache(const std::shared_ptr<const Recording>& recording);
  void MakeWindow();
  void End();

  platform::FileInput& files_;
  platform::WaveOutput& output_;
  platform::WindowMessages& windows_;
  platform::WindowHandle window_ = platform::kNoWindow;
  std::size_t cacheLimit_;
  /// Most recently used first.
  std::list<std::shared_ptr<const Recording>> cache_;
  std::size_t cachedBytes_ = 0;
  std::shared_ptr<const Recording> sounding_;
  platform::WaveHandle device_ = platform::kNoWaveHandle;
  platform::WAVEHDR header_;
  bool isSounding_ = false;
};

}  // namespace tonalith::audio
