// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// tonalith_make_database <table-folder> <output.mdb>: creates a scale database or a data pack from the text tables of a
// folder.
// Exit status 0: success. 1: a table is malformed or the file cannot be written; prints one line. 2: wrong arguments.

#include <exception>
#include <iostream>

#include "make_database/database_maker.h"
#include "make_database/scale_tables.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: tonalith_make_database <table-folder> <output.mdb>\n";
    return 2;
  }
  try {
    tonalith::make_database::MakeDatabase(tonalith::make_database::ReadScaleTables(argv[1]), argv[2]);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << "\n";
    return 1;
  }
  return 0;
}
