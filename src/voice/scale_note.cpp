// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "voice/scale_note.h"

#include <algorithm>
#include <vector>

#include "voice/guitar_note.h"
#include "voice/wav_file.h"

namespace tonalith::voice {

std::string RenderScaleNote(Pitch pitch) {
  const Recipe& recipe = BuiltInRecipe();
  const auto set =
      std::find_if(recipe.sets.begin(), recipe.sets.end(), [](const SoundSet& found) { return found.IsScale(); });
  const NoteLength length = set == recipe.sets.end() ? NoteLength{} : LengthOf(*set, 0);
  std::vector<double> samples = PlayNote(recipe.guitar, std::clamp(pitch, kLowestPitch, kHighestPitch), length);
  const double gain = std::min(1.0, FromDecibels(kPeakDecibels - PeakDecibels(samples)));
  for (double& sample : samples) sample *= gain;
  return WavFile(samples, ChecksumChunk::kInclude);
}

}  // namespace tonalith::voice
