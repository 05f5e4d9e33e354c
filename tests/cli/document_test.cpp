// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// docs/cli.md shows real answers: each line "$ tonalith-cli ..." of a console block is run, perhaps through head, and
// the following lines are its answer. With TONALITH_UPDATE_DOCS set, the answers are written into the page.

#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <sstream>
#include <utility>

#include "cli/command_line_fixture.h"

namespace tonalith::cli {
namespace {

const std::string kPage = TONALITH_SOURCE_DIR "/docs/cli.md";
constexpr std::string_view kPrompt = "$ tonalith-cli ";

struct ShownCommand {
  std::vector<std::string> arguments;
  /// The lines that head leaves.
  std::optional<std::size_t> lines;
};

/// Words separated by blanks, and words in quotation marks.
ShownCommand ReadCommand(const std::string& line) {
  ShownCommand command;
  std::string text = line.substr(kPrompt.size());
  const std::string head = " | head -n ";
  if (const std::size_t at = text.find(head); at != std::string::npos) {
    command.lines = std::stoul(text.substr(at + head.size()));
    text.erase(at);
  }
  std::string word;
  bool isQuoted = false;
  for (const char c : text + " ") {
    if (c == '"') {
      isQuoted = !isQuoted;
    } else if (c != ' ' || isQuoted) {
      word += c;
    } else if (!word.empty()) {
      command.arguments.push_back(std::exchange(word, {}));
    }
  }
  return command;
}

std::string AnswerTo(const ShownCommand& command) {
  const Outcome outcome = Shipped().Run(command.arguments);
  std::istringstream all(outcome.error + outcome.output);
  std::string text;
  std::size_t count = 0;
  for (std::string line; (!command.lines || count < *command.lines) && std::getline(all, line); ++count) {
    text += line + "\n";
  }
  return text;
}

std::string WithRealAnswers(const std::string& page) {
  std::istringstream lines(page);
  std::string real;
  bool isInBlock = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("```")) isInBlock = line == "```console";
    const bool isCommand = isInBlock && line.starts_with(kPrompt);
    if (!isInBlock || isCommand || line.starts_with("```")) real += line + "\n";
    if (isCommand) real += AnswerTo(ReadCommand(line));
  }
  return real;
}

TEST(Document, ShowsTheAnswersOfTheProgram) {
  std::ifstream file(kPage);
  std::stringstream page;
  page << file.rdbuf();
  const std::string real = WithRealAnswers(page.str());
  if (std::getenv("TONALITH_UPDATE_DOCS") != nullptr) std::ofstream(kPage) << real;
  EXPECT_EQ(page.str(), real) << "run TONALITH_UPDATE_DOCS=1 ./test -R cli.Document and check the difference";
}

TEST(Document, ComparesAnswersLineByLine) {
  EXPECT_EQ(WithRealAnswers("```console\n$ tonalith-cli --version\nold\n```\ntext\n"),
            "```console\n$ tonalith-cli --version\ntonalith-cli 1.0\n```\ntext\n");
  const ShownCommand command = ReadCommand("$ tonalith-cli list --type \"Two words\" | head -n 4");
  EXPECT_EQ(command.arguments, (std::vector<std::string>{"list", "--type", "Two words"}));
  EXPECT_EQ(command.lines, 4U);
}

}  // namespace
}  // namespace tonalith::cli
