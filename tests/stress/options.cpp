// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/options.h"

#include <stdexcept>

namespace tonalith::stress {
namespace {

constexpr const char* kUsage =
    "tonalith_stress --stage FOLDER [--seed N] [--actions N] [--seconds N] [--out FOLDER]\n"
    "tonalith_stress --stage FOLDER --replay FILE | --shrink FILE [--seconds N] [--out FOLDER]\n"
    "tonalith_stress kill --stage FOLDER [--times N] [--seed N] [--seconds N] [--out FOLDER]\n";

void Take(Options& options, const std::string& name, const std::string& value) {
  if (name == "--stage") {
    options.stage = value;
  } else if (name == "--out") {
    options.out = value;
  } else if (name == "--seed") {
    options.seed = std::stoull(value);
  } else if (name == "--actions") {
    options.actions = std::stoi(value);
  } else if (name == "--seconds") {
    options.seconds = std::stoi(value);
  } else if (name == "--times") {
    options.times = std::stoi(value);
  } else if (name == "--replay" || name == "--shrink") {
    options.mode = name == "--replay" ? Options::Mode::kReplay : Options::Mode::kShrink;
    options.script = value;
  } else {
    throw std::runtime_error(kUsage);
  }
}

}  // namespace

Options ParseOptions(int argc, char** argv) {
  Options options;
  int at = 1;
  if (at < argc && std::string(argv[at]) == "kill") {
    options.mode = Options::Mode::kKill;
    ++at;
  }
  for (; at + 1 < argc; at += 2) Take(options, argv[at], argv[at + 1]);
  if (at != argc || options.stage.empty()) throw std::runtime_error(kUsage);
  return options;
}

}  // namespace tonalith::stress
