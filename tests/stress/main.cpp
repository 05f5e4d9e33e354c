// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs in two roles: the parent prepares a folder, starts the program in it and checks the results; the child is the
// complete program with simulated user input.

#include <QWidget>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/program.h"
#include "stress/action_run.h"
#include "stress/kill_run.h"
#include "stress/kill_worker.h"
#include "stress/options.h"
#include "stress/stress_session.h"

namespace tonalith::stress {
namespace {

WorkPaths PathsOf(const char* program) { return {std::filesystem::path(program).parent_path().parent_path()}; }

int RunSession(char** argv) {
  SessionOptions options{PathsOf(argv[0]),
                         std::stoull(argv[2]),
                         std::stoi(argv[3]),
                         std::stoi(argv[4]),
                         std::stoi(argv[5]),
                         std::stoi(argv[6]),
                         {}};
  if (std::string(argv[7]) != "-") options.script = ReadActions(argv[7]);
  std::unique_ptr<StressSession> session;
  int argc = 1;
  app::RunProgram(argc, argv, [&](QWidget&) {
    session = std::make_unique<StressSession>(std::move(options));
    session->Begin();
  });
  return session == nullptr ? 1 : session->End();
}

int RunWorker(char** argv) {
  std::unique_ptr<KillWorker> worker;
  const std::uint64_t seed = std::stoull(argv[2]);
  const std::string round = argv[3];
  int argc = 1;
  return app::RunProgram(argc, argv, [&](QWidget&) {
    worker = std::make_unique<KillWorker>(seed, round);
    worker->Begin();
  });
}

int Run(int argc, char** argv) {
  const std::string role = argc > 1 ? argv[1] : "";
  if (role == "live" && argc == 8) return RunSession(argv);
  if (role == "work" && argc == 4) return RunWorker(argv);
  const Options options = ParseOptions(argc, argv);
  switch (options.mode) {
    case Options::Mode::kKill:
      return RunKills(options);
    case Options::Mode::kShrink:
      return RunShrink(options);
    default:
      return RunActions(options);
  }
}

}  // namespace
}  // namespace tonalith::stress

int main(int argc, char** argv) {
  try {
    return tonalith::stress::Run(argc, argv);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << "\n";
    return 1;
  }
}
