// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs command lines: within the test on a folder with the shipped library and packs, or as the real program.

#pragma once

#include <string>
#include <vector>

#include "cli/command_line.h"
#include "support/temp_folder.h"

namespace tonalith::cli {

/// A program's folder with links to the library and the packs of the build.
class ShippedFolder {
 public:
  ShippedFolder();

  [[nodiscard]] ProgramFolders Folders() const { return {folder_.Path(), {}}; }
  [[nodiscard]] const std::filesystem::path& Path() const { return folder_.Path(); }
  [[nodiscard]] Outcome Run(const std::vector<std::string>& arguments) const {
    return RunCommandLine(arguments, Folders());
  }

 private:
  tests::TempFolder folder_;
};

/// The same folder for all tests of a process.
const ShippedFolder& Shipped();

/// The output of a command that has to succeed without any error text.
std::string Output(const std::vector<std::string>& arguments);
/// The same in JSON, with `--json` added.
std::string JsonOutput(std::vector<std::string> arguments);

/// The library that the build makes.
std::string BuiltLibrary();
/// The path of the real program.
std::string ProgramPath();

}  // namespace tonalith::cli
