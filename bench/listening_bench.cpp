// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// listening_bench AUDIO-FOLDER SHARE SHARES: plays a share of twenty scales and chords in all twelve keys and analyses
// the output of the sound device. Writes a line per playback: name, key, detected notes, largest deviation in cents,
// largest difference from the rendered samples, and the gaps in milliseconds; "wrong" at the end if the notes are not
// those of the scale. Runs in real time.

#include <algorithm>
#include <cstdio>
#include <string>

#include "core/note_model.h"
#include "measuring.h"
#include "platform/scale_listener.h"

namespace {

using namespace tonalith;
namespace support = tonalith::testing;

void Listen(const std::string& folder, const support::ListenedScale& scale, const std::string& key) {
  const support::AnalysedScale heard = support::ListenToScale(folder, key, scale.pattern);
  std::vector<int> pitches;
  double cents = 0;
  double difference = 0;
  for (const support::AnalysedNote& note : heard.notes) {
    pitches.push_back(note.pitch);
    cents = std::max(cents, note.cents);
    difference = std::max(difference, note.difference);
  }
  const bool right = pitches == support::PitchesOfScale(key, scale.pattern) && heard.messages.empty();
  std::printf("%s\t%s\t%zu\t%.3f\t%.2g\t", scale.name.c_str(), key.c_str(), heard.notes.size(), cents, difference);
  for (const double gap : heard.gaps) std::printf("%.2f ", 1000 * gap);
  std::printf("\t%s\n", right ? "right" : "wrong");
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: listening_bench AUDIO-FOLDER SHARE SHARES\n");
    return 2;
  }
  const std::string folder = argv[1];
  const std::size_t share = std::stoul(argv[2]);
  const std::size_t shares = std::stoul(argv[3]);
  const auto& scales = support::ListenedScales();
  const std::size_t keys = bench::IsQuick() ? 1 : core::kSharpNotes.size();
  for (std::size_t i = share; i < scales.size(); i += shares) {
    for (std::size_t key = 0; key < keys; ++key) Listen(folder, scales[i], std::string(core::kSharpNotes[key]));
  }
  return 0;
}
