// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "cli/command_line.h"

#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>
#include <variant>

#include "catalogue/catalogue.h"
#include "cli/commands.h"
#include "cli/json_text.h"
#include "cli/messages.h"
#include "cli/options.h"
#include "cli/plain_text.h"
#include "cli/refusal.h"
#include "core/failure.h"
#include "instrument/catalogue.h"

namespace tonalith::cli {
namespace {

std::string Line(const std::string& message) { return "tonalith-cli: " + message + "\n"; }

catalogue::Catalogue ReadFiles(const Options& options, const ProgramFolders& folders, std::string& error) {
  ProgramFiles files;
  if (options.library.empty()) {
    files = FindProgramFiles(folders);
  } else {
    files.library = options.library;
  }
  std::vector<catalogue::PackProblem> problems;
  catalogue::Catalogue catalogue = catalogue::ReadCatalogue(files.library, files.packs, problems);
  for (const catalogue::PackProblem& problem : problems) {
    error += Line(core::Message(MessageId::kPackLeftOut, problem.failure.Description()).English());
  }
  return catalogue;
}

template <typename Answer>
std::string TextOf(const Answer& answer, const Options& options) {
  return options.json ? JsonText(answer) : PlainText(answer, options.style);
}

std::string AnswerTo(const Options& options, const ProgramFolders& folders, std::string& error) {
  if (options.command == Command::kInstruments) return TextOf(instrument::BuiltInCatalogue(), options);
  const catalogue::Catalogue catalogue = ReadFiles(options, folders, error);
  switch (options.command) {
    case Command::kList:
      return TextOf(ListEntries(catalogue, options), options);
    case Command::kShow:
      return TextOf(ShowMusic(catalogue, options), options);
    case Command::kName:
      return TextOf(NameNotes(catalogue, options), options);
    case Command::kShapes:
      return TextOf(FindShapes(catalogue, options), options);
    case Command::kPositions:
      return TextOf(FindPositions(catalogue, options), options);
    case Command::kChords:
      return TextOf(FindChords(catalogue, options), options);
    case Command::kInstruments:
      break;
  }
  return {};
}

/// Empty if all of the text is written.
std::error_code Write(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(file, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return {errno, std::generic_category()};
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

}  // namespace

Outcome RunCommandLine(const std::vector<std::string>& arguments, const ProgramFolders& folders) {
  Outcome outcome;
  try {
    const auto read = ReadOptions(arguments);
    if (const auto* const exit = std::get_if<Exit>(&read)) return {exit->code, exit->output, exit->error};
    outcome.output = AnswerTo(std::get<Options>(read), folders, outcome.error);
  } catch (const Refusal& refusal) {
    outcome.exitCode = refusal.ExitCode();
    outcome.error += Line(refusal.what());
  } catch (...) {
    outcome.exitCode = kNotFound;
    outcome.error += Line(core::Failure::FromCurrentException().Description());
  }
  return outcome;
}

int WriteOutcome(const Outcome& outcome) {
  Write(STDERR_FILENO, outcome.error);
  const std::error_code error = Write(STDOUT_FILENO, outcome.output);
  if (!error) return outcome.exitCode;
  if (error != std::errc::broken_pipe) {
    Write(STDERR_FILENO, Line(core::Message(MessageId::kNotWritten, error.message()).English()));
  }
  return kNotFound;
}

}  // namespace tonalith::cli
