// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "cli/command_line_fixture.h"

#include <gtest/gtest.h>

namespace tonalith::cli {
namespace {

namespace fs = std::filesystem;

}  // namespace

std::string BuiltLibrary() { return TONALITH_BINARY_DIR "/content/TonalithDB97.mdb"; }

std::string ProgramPath() { return TONALITH_BINARY_DIR "/stage/tonalith-cli"; }

ShippedFolder::ShippedFolder() {
  fs::create_symlink(BuiltLibrary(), folder_.Path() / "TonalithDB97.mdb");
  fs::create_directory(folder_.Path() / "DataPacks");
  for (const auto& entry : fs::directory_iterator(TONALITH_BINARY_DIR "/content/packs")) {
    if (entry.path().extension() != ".mdb") continue;
    fs::create_symlink(entry.path(), folder_.Path() / "DataPacks" / entry.path().filename());
  }
}

const ShippedFolder& Shipped() {
  static const ShippedFolder kFolder;
  return kFolder;
}

std::string Output(const std::vector<std::string>& arguments) {
  const Outcome outcome = Shipped().Run(arguments);
  EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
  EXPECT_EQ(outcome.error, "");
  return outcome.output;
}

std::string JsonOutput(std::vector<std::string> arguments) {
  arguments.emplace_back("--json");
  return Output(arguments);
}

}  // namespace tonalith::cli
