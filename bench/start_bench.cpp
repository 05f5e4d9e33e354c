// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Starts Tonalith and the bare window in turn and prints the medians and their ratios: start_bench [runs].

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

struct Run {
  double paint = 0;
  int widgets = 0;
  double memory = 0;
  double processor = 0;
};

std::string OutputOf(const std::vector<std::string>& command) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return {};
  std::vector<char*> words;
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

bool Measure(const std::vector<std::string>& command, std::vector<Run>& runs) {
  Run run;
  const std::string output = OutputOf(command);
  if (std::sscanf(output.c_str(), "first-paint %lf widgets %d proportional-memory %lf processor %lf", &run.paint,
                  &run.widgets, &run.memory, &run.processor) != 4) {
    std::fprintf(stderr, "%s said: %s\n", command[0].c_str(), output.c_str());
    return false;
  }
  runs.push_back(run);
  return true;
}

double Median(const std::vector<Run>& runs, double Run::*figure) {
  std::vector<double> values;
  for (const Run& run : runs) values.push_back(run.*figure);
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void PrintRow(const char* title, double ours, double bare, const char* bound) {
  std::printf("%-34s %10.2f %10.2f %8.2f   %s\n", title, ours, bare, ours / bare, bound);
}

}  // namespace

int main(int argc, char* argv[]) {
  const int wanted = argc > 1 ? std::atoi(argv[1]) : 15;
  constexpr const char* kRowsOfOneBlock = "64";
  const std::filesystem::path folder = std::filesystem::canonical("/proc/self/exe").parent_path();
  const std::string tonalith = folder / "start_tonalith";
  const std::string bare = folder / "start_bare_window";
  std::vector<Run> warmUp;
  std::vector<Run> ours;
  std::vector<Run> theirs;
  if (!Measure({tonalith}, warmUp)) return 1;
  const std::string widgets = std::to_string(warmUp[0].widgets);
  if (!Measure({bare, widgets, kRowsOfOneBlock}, warmUp)) return 1;
  for (int i = 0; i < wanted; ++i) {
    if (!Measure({tonalith}, ours) || !Measure({bare, widgets, kRowsOfOneBlock}, theirs)) return 1;
  }
  std::printf("%d runs in turn, medians; %s child widgets\n", wanted, widgets.c_str());
  std::printf("%-34s %10s %10s %8s\n", "", "tonalith", "bare", "ratio");
  PrintRow("start to first paint (ms)", Median(ours, &Run::paint), Median(theirs, &Run::paint), "bound 1.35");
  PrintRow("proportional memory (MiB)", Median(ours, &Run::memory) / 1024, Median(theirs, &Run::memory) / 1024,
           "bound 1.50");
  std::printf("%-34s %10.2f\n", "processor in 2 s of idling (ms)", Median(ours, &Run::processor));
  return 0;
}
