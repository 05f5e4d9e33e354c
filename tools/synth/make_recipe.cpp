// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// tonalith_make_recipe <recipe> <source>: writes the C++ source that defines the recipe for the program. Exit status 0:
// written. 1: failed, with one line on standard error. 2: wrong usage.

#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "synth/recipe_parser.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: tonalith_make_recipe <recipe> <source>\n";
    return 2;
  }
  try {
    std::ifstream in(argv[1], std::ios::binary);
    std::ostringstream text;
    if (!in || !(text << in.rdbuf())) throw std::runtime_error("cannot be read");
    std::ofstream out(argv[2], std::ios::binary | std::ios::trunc);
    out << tonalith::synth::RecipeSource(tonalith::synth::ParseRecipe(text.str()));
    out.close();
    if (!out) throw std::runtime_error("its source cannot be written");
  } catch (const std::exception& failure) {
    std::cerr << argv[1] << ": " << failure.what() << '\n';
    return 1;
  }
  return 0;
}
