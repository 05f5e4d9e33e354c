// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// tonalith_stage_recordings <made> <staged>: updates the recordings in the folder <staged> from those in <made>. Exit
// status 0: updated. 1: failed, with one line on standard error. 2: wrong usage.

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
