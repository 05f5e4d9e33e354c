// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Starts Tonalith and the bare window alternately, then Tonalith with a large and a small library; and measures memory
// and activity when idle. start_bench <where>, the name of the platform in the table.

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "measuring.h"

namespace {

using namespace tonalith;
namespace fs = std::filesystem;

struct Run {
  double paint = 0;
  int widgets = 0;
  double memory = 0;
  double processor = 0;
  long wakeUps = 0;
};

std::string OutputOf(const std::vector<std::string>& command) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return {};
  std::vector<char*> words;
  words.reserve(command.size() + 1);
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  const auto start = std::chrono::steady_clock::now().time_since_epoch();
  const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(start).count();
  setenv("TONALITH_BENCH_START", std::to_string(nanoseconds).c_str(), 1);
  const pid_t child = fork();
  if (child == 0) {
    dup2(ends[1], STDOUT_FILENO);
    close(ends[0]);
    close(ends[1]);
    execv(words[0], words.data());
    _exit(127);
  }
  close(ends[1]);
  std::string output;
  std::array<char, 512> buffer{};
  for (ssize_t count = read(ends[0], buffer.data(), buffer.size()); count > 0;
       count = read(ends[0], buffer.data(), buffer.size())) {
    output.append(buffer.data(), static_cast<std::size_t>(count));
  }
  close(ends[0]);
  waitpid(child, nullptr, 0);
  return output;
}

using Command = std::vector<std::string>;

enum class Until { kFirstPaint, kRest };

Run Start(const Command& command, Until until) {
  Run run;
  until == Until::kFirstPaint ? setenv("TONALITH_BENCH_START_ONLY", "1", 1) : unsetenv("TONALITH_BENCH_START_ONLY");
  const std::string output = OutputOf(command);
  const int wanted = until == Until::kFirstPaint ? 2 : 5;
  const int found =
      std::sscanf(output.c_str(), "first-paint %lf widgets %d proportional-memory %lf processor %lf wake-ups %ld",
                  &run.paint, &run.widgets, &run.memory, &run.processor, &run.wakeUps);
  if (found != wanted) throw std::runtime_error(command[0] + " said: " + output);
  return run;
}

double Median(const std::vector<double>& values) {
  std::vector<bench::Spent> times;
  times.reserve(values.size());
  for (const double value : values) times.push_back({value, 0});
  return bench::Quantile(times, 0.5).wall;
}

/// Starts both alternately and prints the median of the ratios of the pairs.
void CompareStarts(const std::string& what, const Command& ours, const std::string& title, const Command& baseline,
                   double bound) {
  std::vector<double> our;
  std::vector<double> base;
  std::vector<double> ratios;
  for (int i = 0; i < bench::Runs(25); ++i) {
    our.push_back(Start(ours, Until::kFirstPaint).paint);
    base.push_back(Start(baseline, Until::kFirstPaint).paint);
    ratios.push_back(our.back() / base.back());
  }
  bench::Tell(
      {what, Median(ratios), bound, "", bench::TimeText(Median(our)), title + ": " + bench::TimeText(Median(base))});
}

std::string MebibytesText(double kibibytes) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f MiB", kibibytes / 1024);
  return text.data();
}

void CompareRest(const std::string& where, const Command& tonalith, const Command& bare) {
  std::vector<double> our;
  std::vector<double> base;
  std::vector<double> ratios;
  std::vector<double> processor;
  std::vector<double> wakeUps;
  for (int i = 0; i < (bench::IsQuick() ? 1 : 5); ++i) {
    const Run run = Start(tonalith, Until::kRest);
    our.push_back(run.memory);
    base.push_back(Start(bare, Until::kRest).memory);
    ratios.push_back(our.back() / base.back());
    processor.push_back(run.processor);
    wakeUps.push_back(static_cast<double>(run.wakeUps));
  }
  bench::Tell({"proportional memory after two seconds, " + where, Median(ratios), 1.5, "", MebibytesText(Median(our)),
               "the bare window: " + MebibytesText(Median(base))});
  bench::Tell({"wake-ups in a second at rest, " + where, Median(wakeUps), 0, "", "", ""});
  // The cost of the measurement, which reads /proc twice.
  constexpr double kOwnMilliseconds = 1;
  bench::Tell({"processor time in a second at rest, " + where, Median(processor), kOwnMilliseconds, "ms", "", ""});
}

/// A temporary program folder with a library of the given number of scales.
class Place {
 public:
  Place(const fs::path& program, int scales) {
    fs::copy_file(program, folder_.Path() / program.filename());
    bench::MakeLibrary(folder_.Path() / "TonalithDB97.mdb", scales, "Scale number ");
  }
  [[nodiscard]] Command Program() const { return {(folder_.Path() / "start_tonalith").string()}; }

 private:
  bench::Folder folder_;
};

void Measure(const std::string& where) {
  constexpr const char* kRowsOfOneBlock = "64";
  const fs::path folder = fs::canonical("/proc/self/exe").parent_path();
  const Command tonalith{(folder / "start_tonalith").string()};
  const std::string widgets = std::to_string(Start(tonalith, Until::kFirstPaint).widgets);
  const Command bare{(folder / "start_bare_window").string(), widgets, kRowsOfOneBlock};
  Start(bare, Until::kFirstPaint);
  CompareStarts("start to the first painted scale, " + where, tonalith, "a bare Qt window of " + widgets + " labels",
                bare, 1.35);
  CompareRest(where, tonalith, bare);
  const Place large(tonalith[0], bench::Scales());
  const Place small(tonalith[0], 300);
  Start(large.Program(), Until::kFirstPaint);
  Start(small.Program(), Until::kFirstPaint);
  CompareStarts("start on 100,000 scales, " + where, large.Program(), "with 300 scales", small.Program(), 1.5);
}

}  // namespace

int main(int argc, char* argv[]) {
  try {
    Measure(argc > 1 ? argv[1] : "here");
    return 0;
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "%s\n", exception.what());
    return 1;
  }
}
