// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The command line as a user starts it: from the start of the process to its end, with the library and packs of the
// build and with a library of 100,000 scales. cli_bench <tonalith-cli> <folder of the packs>.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "measuring.h"

namespace {

using namespace tonalith;
namespace fs = std::filesystem;
using Words = std::vector<std::string>;

/// The bound of a start without a library of many scales.
constexpr double kStartMilliseconds = 20;
/// A second is what a user accepts for an answer from 100,000 scales.
constexpr double kManyMilliseconds = 1000;

/// Returns the processor time of the process in milliseconds.
double Run(const Words& command) {
  std::vector<char*> words;
  words.reserve(command.size() + 1);
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
    execv(words[0], words.data());
    _exit(127);
  }
  int status = 0;
  rusage used{};
  wait4(child, &status, 0, &used);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) throw std::runtime_error(command[0] + " failed");
  const auto milliseconds = [](const timeval& time) {
    return 1000.0 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1000.0;
  };
  return milliseconds(used.ru_utime) + milliseconds(used.ru_stime);
}

void Tell(const std::string& what, const Words& command, double bound) {
  Run(command);
  std::vector<bench::Spent> times;
  for (int i = 0; i < bench::Runs(25); ++i) {
    double processor = 0;
    times.push_back(bench::Measure([&] { processor = Run(command); }));
    times.back().cpu = processor;
  }
  bench::ReportTimes(what, times, 0.5, bound);
}

Words With(const std::string& program, const Words& arguments) {
  Words command{program};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return command;
}

/// Copies program, library and packs into a folder of their own.
std::string MakeProgramFolder(const fs::path& folder, const fs::path& program, const fs::path& packs) {
  fs::copy_file(program, folder / "tonalith-cli");
  fs::copy_file(packs.parent_path() / "TonalithDB97.mdb", folder / "TonalithDB97.mdb");
  fs::create_directory(folder / "DataPacks");
  for (const auto& pack : fs::directory_iterator(packs)) {
    if (pack.path().extension() == ".mdb") fs::copy_file(pack.path(), folder / "DataPacks" / pack.path().filename());
  }
  return (folder / "tonalith-cli").string();
}

void Measure(const fs::path& program, const fs::path& packs) {
  const bench::Folder folder;
  const std::string ours = MakeProgramFolder(folder.Path(), program, packs);
  Tell("tonalith-cli: show a chord, with library and packs", With(ours, {"show", "Am7"}), kStartMilliseconds);
  Tell("the same: list all as JSON", With(ours, {"list", "--json"}), kStartMilliseconds);
  Tell("the same: name a shape", With(ours, {"name", "x32010"}), kStartMilliseconds);
  Tell("the same: shapes of a seventh chord", With(ours, {"shapes", "Am7"}), kStartMilliseconds);
  Tell("the same: boxes of a scale", With(ours, {"positions", "Major"}), kStartMilliseconds);
  const std::string many = (folder.Path() / "many.mdb").string();
  bench::MakeLibrary(many, bench::Scales(), "Scale number ");
  Tell("tonalith-cli: list 100,000 scales as JSON", With(ours, {"list", "--json", "--library", many}),
       kManyMilliseconds);
  Tell("the same: list a word", With(ours, {"list", "77", "--library", many}), kManyMilliseconds);
  Tell("the same: show a symbol", With(ours, {"show", "Am7", "--library", many}), kManyMilliseconds);
  Tell("the same: name a scale", With(ours, {"name", "C D E F G A B", "--library", many}), kManyMilliseconds);
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc != 3) return 2;
  try {
    Measure(argv[1], argv[2]);
    return 0;
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "%s\n", exception.what());
    return 1;
  }
}
