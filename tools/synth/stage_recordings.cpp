// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// tonalith_stage_recordings <made> <staged>: brings the recordings in the folder <staged> up to date with those in
// <made>. Ends with 0, with 1 and one line on the standard error stream where something failed, with 2 where it was
// called wrongly.

#include <exception>
#include <iostream>

#include "synth/staged_recordings.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: tonalith_stage_recordings <made> <staged>\n";
    return 2;
  }
  try {
    tonalith::synth::StageRecordings(argv[1], argv[2]);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
  return 0;
}
