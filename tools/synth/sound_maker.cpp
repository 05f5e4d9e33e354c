// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "synth/sound_maker.h"

#include <fstream>
#include <stdexcept>
#include <string>

#include "synth/guitar_note.h"
#include "synth/wav_file.h"

namespace tonalith::synth {

void MakeSounds(const Recipe& recipe, const std::filesystem::path& folder) {
  for (const SoundSet& set : recipe.sets) {
    const std::filesystem::path setFolder = folder / set.folder;
    std::filesystem::create_directories(setFolder);
    for (int number = 0; number < set.count; ++number) {
      const NoteLength length{set.SecondsOf(number), set.fadeSeconds, set.silenceSeconds};
      const std::string bytes = WavFile(PlayNote(recipe.guitar, set.PitchOf(number), length));
      const std::filesystem::path path = setFolder / (std::to_string(number) + ".wav");
      std::ofstream out(path, std::ios::binary | std::ios::trunc);
      out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
      out.close();
      if (!out) {
        throw std::runtime_error("cannot write " + path.string());
      }
    }
  }
}

}  // namespace tonalith::synth
