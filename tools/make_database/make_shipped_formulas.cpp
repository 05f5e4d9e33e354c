// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// tonalith_make_shipped_formulas <output.cpp> <table-folder>...: writes the formulas and aliases of all scales in the
// folders as C++ source: one text, which needs no work when the program starts.
// Exit status 0: success. 1: a table is malformed; prints one line. 2: wrong arguments.

#include <exception>
#include <fstream>
#include <iostream>
#include <span>
#include <string>

#include "make_database/scale_tables.h"

namespace {

using namespace tonalith;

/// One literal for each line of the text, followed by a comma: compilers limit the length of a literal.
std::string Literals(const std::string& text) {
  std::string literals;
  for (const char c : text) {
    if (literals.empty() || literals.back() == '\n') literals += '"';
    if (c == '\n') {
      literals += "\\n\",\n";
    } else if (c == '\t') {
      literals += "\\t";
    } else {
      if (c == '"' || c == '\\') literals += '\\';
      literals += c;
    }
  }
  return literals;
}

void Make(const std::string& output, std::span<char*> folders) {
  std::ofstream source(output);
  source
      << "#include \"data/formula_tables.h\"\nnamespace tonalith::data {\nstatic constexpr const char* kLines[] = {\n";
  for (const char* folder : folders) {
    source << Literals(make_database::FormulaLines(make_database::ReadScaleTables(folder).scales));
  }
  source << "};\nstd::string_view ShippedFormulas() {\n"
         << "static const std::string kText = [] {\nstd::string text;\n"
         << "for (const char* line : kLines) text += line;\nreturn text;\n}();\nreturn kText;\n}\n}\n";
  if (!source.flush()) throw make_database::TableFailure({output, 0}, "the source cannot be written");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::cerr << "usage: tonalith_make_shipped_formulas <output.cpp> <table-folder>...\n";
    return 2;
  }
  try {
    Make(argv[1], std::span(argv, static_cast<std::size_t>(argc)).subspan(2));
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << "\n";
    return 1;
  }
  return 0;
}
