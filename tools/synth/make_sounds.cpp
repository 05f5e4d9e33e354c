// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// tonalith_make_sounds <recipe> <set> <output-folder>: writes the sounds of a set of the recipe into a subfolder of the
// output folder. Exit status 0: written. 1: failed, with one line on standard error. 2: wrong usage.

#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "synth/recipe_parser.h"
#include "synth/sound_maker.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: tonalith_make_sounds <recipe> <set> <output-folder>\n";
    return 2;
  }
  try {
    std::ifstream in(argv[1], std::ios::binary);
    std::ostringstream text;
    if (!in || !(text << in.rdbuf())) {
      throw std::runtime_error("cannot be read");
    }
    tonalith::synth::MakeSounds(tonalith::synth::ParseRecipe(text.str()), argv[2], argv[3]);
  } catch (const std::exception& failure) {
    std::cerr << argv[1] << ": " << failure.what() << '\n';
    return 1;
  }
  return 0;
}
