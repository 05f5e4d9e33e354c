// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Extracts the messages of the program from its sources. A text is a message if it
//   - is an argument of a message box, of a status line, or of a call that makes a failure,
//   - is part of a throw expression, or of a return value that is a failure, the problem of a sound file or the notice
//     of a form,
//   - is raised by a trigger of the database,
// or is assigned to a variable or constant used there. Texts are split into their fixed parts between variable parts.

#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "help_text/source_tokens.h"

namespace tonalith::help_text {

/// Tokens by the path of the source.
using Sources = std::map<std::string, std::vector<SourceToken>>;

/// All headers and sources under src/ except those that only tests use.
Sources ProgramSources();

/// Parses a text with several files: "== path" and the lines of the file.
Sources SourcesFrom(std::string_view text);

/// Each fixed part of a message, with the first source that shows it.
std::map<std::string, std::string> MessagesOf(const Sources& sources);

/// Every string literal of the sources, complete and in parts.
std::set<std::string> TextsOf(const Sources& sources);

}  // namespace tonalith::help_text
