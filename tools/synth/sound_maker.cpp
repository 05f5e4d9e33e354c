// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "synth/sound_maker.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "synth/recipe_parser.h"
#include "voice/guitar_note.h"
#include "voice/wav_file.h"

namespace tonalith::synth {

void MakeSounds(const voice::Recipe& recipe, std::string_view set, const std::filesystem::path& folder) {
  const auto found = std::find_if(recipe.sets.begin(), recipe.sets.end(),
                                  [set](const voice::SoundSet& candidate) { return candidate.folder == set; });
  if (found == recipe.sets.end()) throw std::runtime_error("the recipe has no set " + std::string(set));
  const std::filesystem::path setFolder = folder / found->folder;
  const voice::ChecksumChunk chunk = found->IsScale() ? voice::ChecksumChunk::kInclude : voice::ChecksumChunk::kOmit;
  std::filesystem::create_directories(setFolder);
  for (int number = 0; number < found->count; ++number) {
    const voice::NoteLength length = LengthOf(*found, number);
    const std::vector<double> note = PlayNote(recipe.guitar, found->PitchOf(number), length);
    if (const double peak = voice::PeakDecibels(note); peak > voice::kPeakDecibels) {
      throw RecipeError("at this level the pitch " + std::to_string(found->PitchOf(number)) +
                        " comes within 1 dB of full scale: " + std::to_string(peak) + " dB");
    }
    const std::string bytes = voice::WavFile(note, chunk);
    const std::filesystem::path path = setFolder / (std::to_string(number) + ".wav");
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) {
      throw std::runtime_error("cannot write " + path.string());
    }
  }
}

}  // namespace tonalith::synth
